#!/usr/bin/env bash
# test_light.sh TOLK: Lab, LUV and the transfer curve.
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

near() {  # A B LARGEST: image files of 8 or 16 bits that differ by no more
  local apart
  say 0 "largest" compare "$1" "$2"
  for apart in $(grep -o 'largest [0-9]*' <<<"$output" | cut -d' ' -f2); do
    ((apart <= $3)) || fail "$1 and $2 differ by $apart"
  done
}

arranged() {  # LAYOUT BYTES FILE: packed samples of so many bytes in the layout
  if [[ $1 != P3 ]]; then cat "$3"; return; fi
  python3 - "$2" "$3" <<'END'
import pathlib, sys
size, data = int(sys.argv[1]), pathlib.Path(sys.argv[2]).read_bytes()
samples = [data[at:at + size] for at in range(0, len(data), size)]
sys.stdout.buffer.write(b"".join(b"".join(samples[c::3]) for c in range(3)))
END
}

# Image files against raw bytes: function, layout, then image file, format and bytes of a sample, of IN and of OUT.
# The colours of six.ppm serve as colours of Lab, too.
while read -r function layout in from inBytes out to outBytes; do
  ask convert six.ppm "in.$in" --to "${from/bgr/rgb}"
  ask convert "in.$in" packed.raw --to "$from"
  arranged "$layout" "$inBytes" packed.raw >in.raw
  ask run "$function" in.raw out.raw --size 3x2 >report
  ask run "$function" "in.$in" "out.$out" >report
  ask convert "out.$out" packed.raw --to "$to"
  same out.raw <(arranged "$layout" "$outBytes" packed.raw)
done <<'END'
tolkBGRToLab_8u16u_C3R C3 png bgr24 1 tiff rgb48 2
tolkLabToBGR_16u8u_C3R C3 tiff rgb48 2 png bgr24 1
tolkRGBToLab_32f_P3R P3 pfm rgbf 4 tiff rgbf 4
tolkLabToRGB_32f_P3R_L P3 tiff rgbf 4 pfm rgbf 4
tolkRGBToLab_64f_P3R_L P3 tiff rgbd 8 tiff rgbd 8
tolkLabToRGB_64f_P3R P3 tiff rgbd 8 tiff rgbd 8
tolkGammaFwd_8u_P3R P3 png rgb24 1 ppm rgb24 1
tolkGammaInv_16u_IP3R P3 tiff rgb48 2 ppm rgb48 2
tolkGammaInv_32f_C3IR C3 tiff rgbf 4 pfm rgbf 4
tolkGammaFwd_8u_AC4IR AC4 png rgba 1 png rgba 1
END
ask run tolkRGBToLab_32f_C3R in.tiff lab.tiff >report
for form in P3R P3R_L; do
  say 0 "RGB P3 32f -> Lab P3 32f" run tolkRGBToLab_32f_$form in.tiff planes.tiff
  same planes.tiff lab.tiff
done

# The curve of every byte and every word, by the rule
curve() {  # DIRECTION LARGEST: a PGM file
  python3 - "$1" "$2" <<'END'
import struct, sys
n = int(sys.argv[2])
forward = lambda i: 4.5 * i if i / n < 0.018 else n * (1.099 * (i / n) ** 0.45 - 0.099)
inverse = lambda i: i / 4.5 if i / n < 0.0812 else n * ((i / n + 0.099) / 1.099) ** (1 / 0.45)
single = lambda x: struct.unpack("f", struct.pack("f", x))[0]
samples = [round(single((forward if sys.argv[1] == "Fwd" else inverse)(i))) for i in range(n + 1)]
side = 16 if n == 255 else 256
sys.stdout.buffer.write(b"P5\n%d %d\n%d\n" % (side, side, n) + struct.pack(f">{n + 1}{'B' if n == 255 else 'H'}", *samples))
END
}
{ printf 'P5\n16 16\n255\n'; bytes "$(printf %02x $(seq 0 255))"; } >all8.pgm
{ printf 'P5\n256 256\n65535\n'; bytes "$(printf %04x $(seq 0 65535))"; } >all16.pgm
while read -r direction bits largest integer float inverse; do
  # shellcheck disable=SC2086
  say 0 "by tolkGamma${direction}_${bits}u_C3R" gamma all$bits.pgm bent.pgm $inverse
  same bent.pgm <(curve "$direction" "$largest")
  ask convert all$bits.pgm all.tiff --to "$float"
  # shellcheck disable=SC2086
  say 0 "by tolkGamma${direction}_32f_C3R" gamma all.tiff bent.tiff $inverse
  ask convert bent.tiff float.pgm --to "$integer"
  near float.pgm bent.pgm 1
done <<'END'
Fwd 8 255 gray grayf
Fwd 16 65535 gray16 grayd
Inv 8 255 gray grayf --inverse
Inv 16 65535 gray16 grayd --inverse
END

# Twice the range is twice the sample, to the bit.
{ printf 'PF 2 1 -1\n'; bytes 0000003f0ad7233c000000bf000000400000803e00000000; } >one.pfm
{ printf 'PF 2 1 -1\n'; bytes 0000803f0ad7a33c000080bf000080400000003f00000000; } >two.pfm
for inverse in "" --inverse; do
  # shellcheck disable=SC2086
  ask gamma one.pfm one-bent.pfm $inverse
  # shellcheck disable=SC2086
  ask gamma two.pfm two-bent.pfm $inverse --vmax 2
  same two-bent.pfm <(python3 - <<'END'
import pathlib, struct, sys
file = pathlib.Path("one-bent.pfm").read_bytes()
sys.stdout.buffer.write(file[:-24] + struct.pack("6f", *(2 * x for x in struct.unpack("6f", file[-24:]))))
END
  )
done
say 0 "" run tolkGammaInv_32f_C3IR two.pfm run.pfm --vmax 2
same run.pfm two-bent.pfm
say 0 "" run tolkGammaInv_32f_C3R two.pfm run.pfm --vmin -0.5 --vmax 3
ask gamma two.pfm two-bent.pfm --inverse --vmin -0.5 --vmax 3
same run.pfm two-bent.pfm

# Alpha: kept by the command and in place, else opaque
ask convert six.ppm four.png --to rgba --alpha 7
ask gamma six.ppm bent.ppm
while read -r alpha options; do
  # shellcheck disable=SC2086
  ask ${options/OUT/four.png bent4.png} >report
  ask convert bent4.png expected.raw --to rgb24
  ask convert bent.ppm bent.rgba --to rgba --alpha $((16#$alpha))
  same <(ask convert bent4.png - --to rgba) bent.rgba
done <<'END'
07 gamma OUT
07 run tolkGammaFwd_8u_AC4IR OUT
ff run tolkGammaFwd_8u_AC4R OUT
END
python3 - <<'END'
import struct, zlib
chunk = lambda name, data: struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
header = chunk(b"IHDR", struct.pack(">IIBBBBB", 1, 1, 8, 4, 0, 0, 0))
open("alpha.png", "wb").write(b"\x89PNG\r\n\x1a\n" + header + chunk(b"IDAT", zlib.compress(b"\0\x40\x41")) + chunk(b"IEND", b""))
END
ask gamma alpha.png alpha-bent.png
holds <(python3 -c 'import sys, zlib; data = open("alpha-bent.png", "rb").read()
sys.stdout.buffer.write(zlib.decompress(data[data.index(b"IDAT") + 4:])[1:])') 7d41

# What convert chooses, and how near a picture comes back: format, largest difference as it is, with --linear, function
while read -r format plain linear function; do
  say 0 "by $function" convert six.ppm "six.$format" --to "$format"
  say 0 "" convert "six.$format" back.ppm --to rgb24 --size 3x2
  near back.ppm six.ppm "$plain"
  say 0 "rgb24 -> $format in two steps:" convert six.ppm "linear.$format" --linear
  [[ $output == *"by tolkGammaInv_"*"_C3R;"*"by $function" ]] || fail "the steps to $format: $output"
  say 0 "" convert "linear.$format" back.ppm --to rgb24 --size 3x2 --linear
  near back.ppm six.ppm "$linear"
done <<'END'
lab 2 4 tolkRGBToLab_8u_C3R
lab16 1 2 tolkBGRToLab_8u16u_C3R
labf 0 2 tolkRGBToLab_32f_C3R
labd 0 2 tolkRGBToLab_64f_P3R
luv 2 4 tolkRGBToLUV_8u_C3R
luv16 1 1 tolkRGBToLUV_16u_C3R
luvf 0 0 tolkRGBToLUV_32f_C3R
xyz16 1 1 tolkRGBToXYZ_16u_C3R
END
ask convert six.ppm six.tiff --to rgbf
ask gamma six.tiff straight.tiff --inverse
ask run tolkRGBToLab_32f_C3R straight.tiff steps.tiff >report
ask convert six.ppm lab.tiff --to labf --linear
same lab.tiff steps.tiff
ask run tolkLabToRGB_32f_C3R lab.tiff straight.tiff >report
ask gamma straight.tiff steps.tiff
ask convert lab.tiff back.tiff --from labf --linear
same back.tiff steps.tiff
ask convert six.ppm six-lab16.png --to lab16
while read -r options; do
  IFS='|' read -r words options <<<"$options"
  # shellcheck disable=SC2086
  say 0 "$words" convert $options
done <<'END'
  lab16 -> rgb24 by tolkLabToBGR_16u8u_C3R;|six-lab16.png out.ppm --from lab16 --linear
  rgb24 -> rgb48 by tolkGammaFwd_16u_C3R|six-lab16.png out.png --from lab16 --to rgb48 --linear
labf -> labd, no function needed|lab.tiff out.tiff --from labf --to labd --linear
gray -> lab in three steps:|gray.pgm out.lab --from gray --linear
lab -> nv12 in three steps:|six.lab out.nv12 --size 3x2 --linear
END
say 0 "labf -> luv16 in two steps:" convert lab.tiff out.luv16 --from labf --linear
holds <(ask convert <(bytes 0000c8420000000000000000) - --from labf --to labd --size 1x1) \
  000000000000594000000000000000000000000000000000

# View: the channels of all depths look alike.
for format in lab lab16 labf labd luv luv16 luvf; do ask view six.ppm "view-$format.png" --space $format; done
for format in lab16 labf labd; do near view-$format.png view-lab.png 2; done
for format in luv16 luvf; do near view-$format.png view-luv.png 1; done
say 0 "tolkGammaInv_8u_C3R" view six.ppm view.png --space lab --linear
say 0 "lab -> lab, no" view six.lab view.png --from lab --size 3x2
near view.png view-lab.png 0

beginErrors
while IFS='|' read -r words options; do
  # shellcheck disable=SC2086
  say 1 "$words" $options
done <<'END'
there is no format lab32|convert six.ppm out.tiff --to lab32
from rgb24 to hls no transfer curve is applied|convert six.ppm out.png --to hls --linear
from rgb24 to lab no matrix of YCbCr is applied|convert six.ppm out.png --to lab --matrix 709
out.png: this format cannot hold 32-bit RGB|convert six.ppm out.png --to labf
the samples have 8 bits, but expected is Lab C3 16u|convert six.ppm out.png --from lab16
the samples have 8 bits, but expected is Lab P3 64f|run tolkLabToRGB_64f_P3R six.ppm out.raw
there is no function tolkRGBToLab_16u_C3R; near names:|run tolkRGBToLab_16u_C3R deep.ppm out.png
tolkGammaFwd_8u_C3R takes no vMin|run tolkGammaFwd_8u_C3R six.ppm out.png --vmin 1
--vmin and --vmax are of floating point, but the samples have 8 bits|gamma six.ppm out.png --vmax 2
returned tolkStatusGammaRange (-49)|gamma one.pfm out.tiff --vmin 1
returned tolkStatusGammaRange (-49)|run tolkGammaFwd_32f_C3R one.pfm out.tiff --vmax=nan
out.png: this format cannot hold 32-bit RGB|gamma one.pfm out.png
out.raw: the extension names no image format|gamma six.ppm out.raw
none.png: No such file|gamma none.png out.png
END
endErrors
finish
