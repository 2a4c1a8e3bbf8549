#!/usr/bin/env bash
# test_convert.sh TOLK: what convert chooses, writes and refuses.
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

times() { printf "%0.s$1" $(seq "$2"); }  # HEX COUNT

layout() {  # FORMAT: a picture of 5x3 pixels in hex, luma 10 to 34, Cb 3c and Cr c8 everywhere
  local luma=101112131420212223243031323334 row
  case $1 in
    yuyv) row=r03cr1c8r23cr3c8r43cr4c8 ;;
    yvyu) row=r0c8r13cr2c8r33cr4c8r43c ;;
    uyvy) row=3cr0c8r13cr2c8r33cr4c8r4 ;;
    i422) echo $luma"$(times 3c 9)$(times c8 9)" ;;
    yv16) echo $luma"$(times c8 9)$(times 3c 9)" ;;
    i420 | i411) echo $luma"$(times 3c 6)$(times c8 6)" ;;
    yv12) echo $luma"$(times c8 6)$(times 3c 6)" ;;
    nv12 | nv11) echo $luma"$(times 3cc8 6)" ;;
    nv21) echo $luma"$(times c83c 6)" ;;
    i1620) echo $luma"$(times 3c 2)$(times c8 2)" ;;
  esac
  [[ -z ${row-} ]] || echo "${row//r/1}${row//r/2}${row//r/3}"
}

# From every YCbCr layout to every other, none by way of RGB.
layouts="yuyv yvyu uyvy i422 yv16 i420 yv12 nv12 nv21 i411 nv11 i1620"
declare -A expected
for to in $layouts; do expected[$to]=$(layout "$to"); done
for from in $layouts; do
  bytes "${expected[$from]}" >"from.$from"
  for to in $layouts; do
    say 0 "5x3 $from -> $to" convert "from.$from" "to.$to" --size 5x3
    [[ $output != *@(RGB|BGR|Filter|Interlace)* ]] || fail "an odd choice: $output"
    holds "to.$to" "${expected[$to]}"
  done
done

{ printf 'P6\n2 1\n255\n'; bytes 000000ffffff; } >gray.ppm
bytes 000000000000000010122022 >low.i420  # in two rows tolk run of this function reads below the picture
say 0 "by tolkYCbCr420To411_8u_P3R" convert low.i420 low.i411 --size 4x2
holds low.i411 000000000000000010102020

# What is chosen, of black and white and back, with the bytes between
while read -r hex options; do
  # shellcheck disable=SC2086
  say 0 "2x1 rgb24 -> " convert gray.pgm gray.raw $options
  holds gray.raw "$hex"
  # shellcheck disable=SC2086
  say 0 "-> rgb24" convert gray.raw gray-back.ppm --size 2x1 ${options/--to/--from}
  say 0 "largest" compare gray-back.ppm gray.ppm
  [[ ! $output =~ largest\ ([2-9]|[0-9]{2}) ]] || fail "gray of $options comes back otherwise: $output"
done <<'END'
10eb8080 --to i420
10eb8080 --to nv21
10eb8080 --to i411
10eb8080 --to nv11
10eb8080 --to i1620
10eb8080 --to i420 --matrix 709
1080eb80 --to yuyv
801080eb --to uyvy
800180fe --to uyvy --matrix hdtv
10eb80808080 --to ycbcr444p
00ff8080 --to yuv420p-fullscale
END
say 0 "by tolkRGBToYCbCr420_8u_C3P2R, matrix 601" convert six.ppm six.nv12
say 0 "by tolkBGRToYCrCb420_8u_C3P3R" convert six.ppm six.yv12
say 0 "by tolkBGRToCbYCr422_8u_AC4C2R, matrix 601" convert six.ppm six.uyvy
say 0 "by tolkRGBToYCbCr420_8u_C3P3R" convert six.raw six.i420 --from rgb24 --size 3x2
say 0 " in two steps:
  rgb24 -> i420 by tolkRGBToYCbCr420_8u_C3P3R, matrix 601;
  i420 -> nv21 by tolkYCrCb420ToYCbCr420_8u_P3P2R, Cr in the place of Cb" convert six.ppm six.nv21
say 0 "rgb24 -> bgr24, no function needed" convert six.ppm six.bgr24
holds six.bgr24 0000ff00ff00ff000003020181807fcac9c8
planes=$(od -An -v -tx1 six.i420 | tr -d ' \n')
holds six.yv12 "${planes:0:12}${planes:16:4}${planes:12:4}"  # red first, whatever the function's order
say 0 "" convert six.nv12 six-nv12.ppm --size 3x2
say 0 "" convert six.nv12 six.bgra --size 3x2 --alpha 7
bytes "$(od -An -v -tx1 six-nv12.ppm -j 11 | tr -d ' \n' | sed 's/\(..\)\(..\)\(..\)/\3\2\107/g')" >six-expected.bgra
same six.bgra six-expected.bgra
say 0 "" convert six.bgra six.rgba --size 3x2 --alpha 9
say 0 "" convert six.rgba six-rgba.bgra --size 3x2
same six-rgba.bgra <(od -An -v -tx1 six.bgra | tr -d ' \n' | sed 's/\(......\)07/\109/g' | { read -r hex; bytes "$hex"; })
bytes 00ff8080 >gray.yuv420p-fullscale
say 0 "P3AC4R" convert gray.yuv420p-fullscale gray.rgba --size 2x1 --alpha 7
holds gray.rgba 00000007ffffff07

{ bytes 00040000; head -c 124 /dev/zero; bytes 00080000; head -c 124 /dev/zero; } >two.v210
say 0 "v210 -> gray10 by" convert two.v210 two.pgm --to gray10 --size 1x2
same two.pgm <(printf 'P5\n1 2\n65535\n'; bytes 00400080)

# Video files
header='YUV4MPEG2 W2 H1 F25:1 Ip A1:1' black=$'FRAME\n\x10\xeb\x80\x80'
say 0 "rgb24 -> i420" convert gray.pgm gray.y4m
same gray.y4m <(echo "$header C420jpeg XCOLORRANGE=LIMITED"; printf %s "$black")
say 0 "i420 -> nv12" convert gray.y4m gray.nv12
holds gray.nv12 10eb8080
say 0 "matrix hdtv" convert gray.pgm full.y4m --matrix hdtv
say 0 "full.y4m has samples of full range, but tolkYCbCr420ToRGB_8u_P3C3R takes them for studio" convert full.y4m x.ppm
say 0 "i411" convert gray.pgm gray411.y4m --to i411
say 0 "i411 -> rgb24" convert gray411.y4m gray411.ppm --size 2x1
same gray411.ppm gray.ppm
bytes 10eb8080 >raw.i411
say 0 "i411 -> i411, no function needed" convert raw.i411 raw.y4m --size 2x1
same raw.y4m <(echo "$header C411"; printf %s "$black")

beginErrors
while IFS='|' read -r words options; do
  # shellcheck disable=SC2086
  say 1 "$words" convert $options
done <<'END'
cannot read none.nv12: No such file|none.nv12 out.png --size 3x2
there is no format yuv; the formats are|six.ppm out.raw --to yuv
the name does not tell the format; --to takes one of|six.ppm out.raw
the name does not tell the format; --from takes one of|six.raw out.png --size 3x2
raw input needs --size|six.nv12 out.png
the picture has no pixels|/dev/null out.raw --from nv12 --to i420 --size 0x2
expected 6 bytes for YCbCr420 P2 8u of 2x2 pixels, got 10|six.nv12 out.png --size 2x2
six.ppm has 3x2 pixels, not 2x3|six.ppm out.raw --to nv12 --size 2x3
six.ppm is an image file, not nv12|six.ppm out.raw --from nv12 --to i420
gray.y4m holds i420, not i422|gray.y4m out.png --from i422
out.png: such a file cannot hold nv12|six.ppm out.png --to nv12
out.y4m: such a file cannot hold nv12|six.ppm out.y4m --to nv12
cannot hold 8-bit RGB and alpha|six.ppm out.jpg --to rgba
nv12 has no alpha|six.ppm out.raw --to nv12 --alpha 3
no one or two functions lead from v210 to rgb24|two.v210 out.png --size 1x2
they lead to gray10 rgb565 bgr565|two.v210 out.png --size 1x2
with the matrix 709; with 601 they do|six.ppm out.raw --to ycbcr444p --matrix 709
from nv12 to i420 no matrix of YCbCr is applied|six.nv12 out.raw --to i420 --size 3x2 --matrix 709
--matrix|six.ppm out.raw --to nv12 --matrix 2020
END
while IFS='|' read -r content words; do
  printf '%b' "$content" >bad.y4m
  say 1 "bad.y4m: $words" convert bad.y4m out.png
done <<'END'
words\n|not a Y4M file
YUV4MPEG2 W2 H1|the file ends early
YUV4MPEG2 W2\nFRAME\n|the header gives no possible size
YUV4MPEG2 W2 H0\n|a bad number
YUV4MPEG2 W2 H1 C420p10\n|chroma 420p10 is not read
YUV4MPEG2 W2 H1\nFRAM\n|no frame follows
YUV4MPEG2 W2 H1\nFRAME\n123|the file ends early: expected 4 bytes of samples, got 3
END
rm bad.y4m
endErrors
finish
