#!/usr/bin/env bash
# test_spaces.sh TOLK: colour spaces and depths in image files, and the pictures of view.
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

patch() {  # FILE FROM TO: the one place where a file holds FROM, in hex
  python3 - "$@" <<'END' || fail "patch $*"
import pathlib, sys
old, new = (bytes.fromhex(words) for words in sys.argv[2:])
data = pathlib.Path(sys.argv[1]).read_bytes()
assert data.count(old) == 1
pathlib.Path(sys.argv[1]).write_bytes(data.replace(old, new))
END
}

flipSigns() { python3 -c 'import sys; d = sys.stdin.buffer.read(); sys.stdout.buffer.write(
  bytes(b ^ i % 2 * 128 for i, b in enumerate(d)))'; }

# Image files against raw bytes, which a function takes as they are: sample type, file, format of the plain samples
while read -r sample file plain; do
  ask convert six.ppm "in.$file" --to "$plain"
  ask convert six.ppm in.raw --to "$plain"
  if [[ $sample == 16s ]]; then flipSigns <in.raw >flipped && mv flipped in.raw; fi
  for space in XYZ HLS HSV YCC LUV Lab; do
    [[ $space != HSV || $sample == *u ]] || continue
    [[ $space != Lab || $sample == 8u || $sample == 32f ]] || continue
    ask run "tolkRGBTo${space}_${sample}_C3R" in.raw there.raw --size 3x2 >report
    ask run "tolkRGBTo${space}_${sample}_C3R" "in.$file" "there.$file" >report
    ask run "tolk${space}ToRGB_${sample}_C3R" there.raw back.raw --size 3x2 >report
    ask run "tolk${space}ToRGB_${sample}_C3R" "there.$file" "back.$file" >report
    for way in there back; do
      ask convert "$way.$file" plain.raw --from "$plain" --to "$plain"
      if [[ $sample == 16s ]]; then flipSigns <plain.raw >flipped && mv flipped plain.raw; fi
      same plain.raw "$way.raw"
    done
  done
done <<'END'
8u png rgb24
8u tiff rgb24
16u png rgb48
16u tiff rgb48
16u ppm rgb48
16s png rgb48
16s tif rgb48
32f tiff rgbf
32f pfm rgbf
END

# Red, green and blue have their own hue, whatever the order of channels and planes. The processor's estimate decides
# whether saturation is full or one less.
say 0 "RGB C3 8u -> HLS C3 8u" run tolkRGBToHLS_8u_C3R six.ppm hls.ppm
checks=$((checks + 1))
[[ $(tail -c 18 hls.ppm | od -An -v -tx1 | tr -d ' \n') =~ ^007ff[ef]557ff[ef]aa7ff[ef] ]] || fail "hues of six.ppm"
for function in tolkBGRToHLS_8u_C3P3R tolkBGRToHLS_8u_P3C3R tolkBGRToHLS_8u_P3R tolkBGRToHLS_8u_AC4R; do
  say 0 "" run $function six.ppm planes.ppm
  say 0 "" compare planes.ppm hls.ppm
  [[ ! $output =~ largest\ ([2-9]|[0-9]{2}) ]] || fail "$function: $output"
done
say 0 "" run tolkHLSToBGR_8u_P3C3R hls.ppm hls-back.ppm
say 0 "" compare hls-back.ppm six.ppm
[[ ! $output =~ largest\ ([4-9]|[0-9]{2}) ]] || fail "tolkHLSToBGR_8u_P3C3R: $output"

# Alpha: opaque where the function leaves it alone, dropped where the file has none, else the function's
say 0 "" run tolkRGBToXYZ_8u_C3R six.ppm xyz.ppm
for kind in png tiff ppm; do
  say 0 "" run tolkRGBToXYZ_8u_AC4R six.ppm "xyz4.$kind"
  ask convert "xyz4.$kind" xyz4.raw --to rgba
  checks=$((checks + 1))
  [[ $(od -An -v -tx1 xyz4.raw | tr -d ' \n' | grep -oE '.{8}' | cut -c7-8 | tr -d '\n') == ffffffffffff ]] ||
    fail "the alpha of xyz4.$kind is not opaque"
  ask convert "xyz4.$kind" xyz4.ppm --to rgb24
  same xyz.ppm xyz4.ppm
done
while read -r sample gray plain alpha hex; do
  ask convert gray.pgm gray.tiff --to "$gray"
  say 0 "" run "tolkGrayToRGB_${sample}_C1C4R" gray.tiff four.tiff --alpha "$alpha"
  ask convert four.tiff four.raw --to "$plain"
  holds four.raw "$hex"
done <<'END'
8u gray rgba 7 00000007ffffff07
16u gray16 rgba64 513 0000000000000102ffffffffffff0102
32f grayf rgbaf 0.25 0000000000000000000000000000803e0000803f0000803f0000803f0000803e
END
ask convert gray.pgm half.tiff --to rgbaf --alpha 51
ask convert half.tiff half.raw --to rgba
holds half.raw 00000033ffffff33

# Weights
say 0 "" run tolkColorToGray_8u_C3C1R six.ppm red.raw --coeffs 1,0,0
holds red.raw ff0000017fc8
ask convert six.ppm six-double.tiff --to rgbad
say 0 "Color AC4 64f -> Gray C1 64f" run tolkColorToGray_64f_AC4C1R six-double.tiff blue.tiff --coeffs=0,-0.5,1.5
same <(ask run tolkColorToGray_64f_C3C1R six-double.tiff - --coeffs=0,-0.5,1.5) <(ask convert blue.tiff - --to grayd)
say 0 "" run tolkColorToGray_64f_C3C1R six-double.tiff own.tiff
weights=0.29899999499320984,0.5870000123977661,0.11400000005960464
say 0 "" run tolkColorToGray_64f_C3C1R six-double.tiff given.tiff --coeffs $weights
same own.tiff given.tiff

# Every sample keeps its value on the way to deeper samples and back.
{ printf 'P5\n16 16\n255\n'; bytes "$(printf %02x $(seq 0 255))"; } >all8.pgm
{ printf 'P5\n256 256\n65535\n'; bytes "$(printf %04x $(seq 0 65535))"; } >all16.pgm
while read -r file deeper kind; do
  say 0 "no function needed" convert "$file.pgm" "deeper.$kind" --to "$deeper"
  say 0 "no function needed" convert "deeper.$kind" back.pgm --to "$([[ $file == all8 ]] && echo gray || echo gray16)"
  same back.pgm "$file.pgm"
done <<'END'
all8 gray16 png
all8 gray16 tiff
all8 grayf tiff
all8 grayf pfm
all8 grayd tiff
all16 gray16 tiff
all16 grayf pfm
all16 grayd tiff
END
bytes 010280fffe00 >deep.rgb48
say 0 "rgb48 -> rgb24, no" convert deep.ppm narrow.raw --to rgb24
holds narrow.raw 0180fd

# PFM: the lowest row first, in either byte order; out of 0 to 1 only for floating point
printf 'P5\n1 2\n255\n\377\0' >column.pgm
ask convert column.pgm column.pfm
same column.pfm <(printf 'Pf\n1 2\n-1.0\n'; bytes 000000000000803f)
{ printf 'PF 1 1 2.5\n'; bytes 3f800000bf8000007fc00000; } >big.pfm
ask convert big.pfm big.raw --to rgb24
holds big.raw ff0000
ask convert big.pfm big.tiff
ask convert big.tiff big.raw --to rgbf
holds big.raw 0000803f000080bf0000c07f
say 0 "red   largest 1, mean 1.000" compare big.pfm <(printf 'PF 1 1 -1\n'; bytes 000000000000000000000000)

# What convert chooses, and how near a picture comes back
while read -r from words; do
  say 0 "$words" convert six.ppm "there.$from" --to "$from"
  say 0 "" convert "there.$from" back.ppm --from "$from" --to rgb24 --size 3x2
  say 0 "" compare back.ppm six.ppm
  [[ ! $output =~ largest\ ([3-9]|[0-9]{2}) ]] || fail "six.ppm comes back otherwise from $from: $output"
done <<'END'
hls16 by tolkRGBToHLS_16u_C3R
hlsf by tolkRGBToHLS_32f_C3R
hsv by tolkRGBToHSV_8u_C3R
hsv16 by tolkRGBToHSV_16u_C3R
ycocg by tolkRGBToYCoCg_8u_C3P3R
END
say 0 "xyzf by tolkRGBToXYZ_32f_C3R" convert six.ppm six.xyzf
say 0 "ycc by tolkRGBToYCC_8u_C3R" convert six.ppm six.ycc
say 0 "rgb24 -> gray16 by tolkRGBToGray_16u_C3C1R" convert six.ppm gray16.png --to gray16
say 0 "gray16 -> rgb48 by tolkGrayToRGB_16u_C1C3R" convert gray16.png gray48.ppm
say 0 "  hls16 -> rgb48 by tolkHLSToRGB_16u_C3R;
  rgb48 -> xyz16 by tolkRGBToXYZ_16u_C3R" convert there.hls16 x.raw --to xyz16 --size 3x2
say 0 "  hls -> rgb24 by tolkHLSToRGB_8u_C3R;
  rgb24 -> nv12 by" convert hls.ppm x.raw --from hls --to nv12
say 0 "  i420 -> rgb24 by tolkYCbCr420ToRGB_8u_P3C3R, matrix 601;
  rgb24 -> gray by" convert <(bytes 101010108080) x.raw --from i420 --to gray --size 2x2
say 0 "hls16               HLS C3 16u" formats

# View
gap=ffffffff
say 0 "no function needed" view six.ppm view.pgm
same <(tail -c 34 view.pgm) <(bytes ff0000${gap}00ff00${gap}0000ff017fc8${gap}0280c9${gap}0381ca)
say 0 "rgb24 -> hsv16 by" view six.ppm view.ppm --space hsv16
same <(head -c 12 view.ppm) <(printf 'P6\n17 11\n255')
same <(tail -c 102 view.ppm | head -c 9) <(head -c 20 six.ppm | tail -c 9)  # pure colours are their hues
say 0 "" convert six.ppm six-hsv16.png --to hsv16
say 0 "hsv16 -> hsv16, no" view six-hsv16.png view-again.ppm --from hsv16
same view.ppm view-again.ppm
say 0 "gray -> rgb24 by" view gray.pgm view.png
say 0 "" view <(bytes 10ebff80807f) view.png --from ycbcr444 --size 2x1

ask convert six.ppm cut.tiff
head -c 20 cut.tiff >six-cut.tiff
ask convert gray.pgm odd.tiff
patch odd.tiff 0201030001000000"08" 020103000100000004
beginErrors
while IFS='|' read -r words options; do
  # shellcheck disable=SC2086
  say 1 "$words" $options
done <<'END'
out.png: this format cannot hold 32-bit RGB (a .tiff file can)|run tolkRGBToHLS_32f_C3R big.pfm out.png
out.pfm: this format cannot hold 8-bit RGB (a .png file can)|run tolkRGBToHLS_8u_C3R six.ppm out.pfm
the samples have 8 bits, but expected is RGB C3 16u ('tolk convert' changes depths)|run tolkRGBToHLS_16u_C3R six.ppm out.png
a gray image, but expected is HLS C3 8u|run tolkHLSToRGB_8u_C3R gray.pgm out.png
a colour image, but expected is Gray C1 8u|run tolkGrayToRGB_8u_C1C3R six.ppm out.png
tolkRGBToGray_8u_C3C1R takes no coeffs|run tolkRGBToGray_8u_C3C1R six.ppm out.png --coeffs 1,0,0
it needs --coeffs|run tolkColorToGray_64f_AC4C1R six-double.tiff out.tiff
--coeffs|run tolkColorToGray_8u_C3C1R six.ppm out.png --coeffs 1,0
is a whole number from 0 to 65535|run tolkGrayToRGB_16u_C1C4R gray16.png out.png --alpha 65536
is a whole number from 0 to 255|run tolkGrayToRGB_8u_C1C4R gray.pgm out.png --alpha 0.5
the samples have 8 bits, but expected is HLS C3 16u|convert hls.ppm out.png --from hls16
out.jpg: this format cannot hold 16-bit RGB|convert six.ppm out.jpg --to hls16
there is no format hsvf|convert six.ppm out.tiff --to hsvf
from rgb24 to hls no matrix of YCbCr is applied|convert six.ppm out.png --to hls --matrix 709
six-cut.tiff: a bad TIFF image|convert six-cut.tiff out.png
odd.tiff: of TIFF only gray and RGB are read|convert odd.tiff out.png
nv12 has no three channels of whole pictures; --space takes one of rgb24|view six.ppm out.png --space nv12
out.raw: the extension names no image format|view six.ppm out.raw --space hls
out.pgm: this format cannot hold 8-bit RGB|view six.ppm out.pgm --space hls
END
while IFS='|' read -r header words; do
  printf '%b' "$header" >bad.pfm
  say 1 "bad.pfm: $words" convert bad.pfm out.png
done <<'END'
PF 1 1 -1.0\n1234|the file ends early: expected 12 bytes
PF 1 1 0\n1234|a bad scale in the PFM header
Pf 1 1 -1x\n1234|a bad scale in the PFM header
Pf 1 0 -1\n1234|the image has no pixels
END
rm bad.pfm
endErrors
finish
