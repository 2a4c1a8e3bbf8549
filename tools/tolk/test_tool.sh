#!/usr/bin/env bash
# test_tool.sh TOLK ODD_SIZE_LIBRARY: runs every command and every error of the tool, but convert.
odd_size=$(realpath "$2")
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

toPlanes=tolkRGBToYCbCr_8u_C3P3R toPacked=tolkRGBToYCbCr_8u_C3R toPacked4=tolkRGBToYCbCr_8u_AC4R
fromPlanes=tolkYCbCrToRGB_8u_P3C3R fromPacked4=tolkYCbCrToRGB_8u_AC4R

# Black is Y 16, white 235, both with Cb and Cr 128.
pixels=ff000001fe02
{ printf 'P6 # a comment\n2 1\n255\n'; bytes $pixels; } >two.ppm
bytes ff0000017fc800ff000280c90000ff0381ca >six-planes.raw
{ printf 'P6\n2 1\n255\n'; bytes ff0000; } >short.ppm
printf 'P6\n99999999999 1\n255\n' >huge.ppm
printf 'P6\n2 1\n100\n123456' >dim.ppm
printf 'P6\n0 1\n255\n' >empty.ppm
printf 'no picture' >words.png
bytes 10eb80808080 >gray.yuv
bytes 108080aaeb8080aa >gray4.raw
: >nothing.raw

say 0 "TolkColor" version
say 0 "libtolkcolor.so.2022" version
say 0 "$toPacked " list
say 0 "RGB C3 8u      -> YCbCr P3 8u" list "$toPlanes"
say 0 "tolkYCbCrToRGB_8u_AC4R" list ycbcrtorgb
say 0 "$toPacked4" list 'tolkRGB*AC4R'
say 1 "no function matches C3R?" list 'C3R?'
say 0 "uint8_t* const dst[3]" info "$toPlanes"
say 0 "1353 bytes x 300" info "$toPlanes"
say 0 "tolkStatusBadSize" info "$toPlanes"
say 1 "$toPlanes" info tolkRGBToYCbCr_8u_C3P3
say 1 "'tolk list' shows all" info photo
say 1 "subcommand is required"
say 1 "FUNCTION is required" info
say 0 "Exit status" run --help

# What is read and written
say 0 "3x2 RGB C3 8u -> YCbCr P3 8u" run "$toPlanes" six.ppm a.yuv
say 0 "" run "$toPlanes" six.raw b.bin --size 3x2
same a.yuv b.bin
say 0 "" run tolkRGBToYCbCr_8u_P3R six.ppm c.yuv
say 0 "" run tolkRGBToYCbCr_8u_P3R six-planes.raw d.yuv --size 3X2
same c.yuv d.yuv
say 0 "" run "$fromPlanes" a.yuv rgb.ppm --size 3x2
say 0 "" run tolkYCbCrToBGR_8u_P3C3R a.yuv bgr.ppm --size 3x2
same rgb.ppm bgr.ppm
say 0 "" run "$fromPlanes" a.yuv rgb.raw --size 3x2
say 0 "Mpixel/s (median of 3)" run tolkYCbCrToBGR_8u_P3C3R a.yuv bgr.raw --size 3x2 --repeat 3
bytes "$(od -An -v -tx1 rgb.raw | tr -d ' \n' | sed 's/\(..\)\(..\)\(..\)/\3\2\1/g')" >swapped.raw
same swapped.raw bgr.raw
say 0 "" run "$toPlanes" gray.pgm gray-got.yuv
same gray.yuv gray-got.yuv
say 0 "" run tolkYCbCrToRGB_8u_P3C4R gray.yuv alpha.raw --size 2x1 --alpha 7
holds alpha.raw 00000007ffffff07
say 0 "" run tolkYCbCrToRGB_8u_P3C4R gray.yuv opaque.png --size 2x1
say 0 "" run "$toPacked4" opaque.png opaque.raw
holds opaque.raw 10808000eb808000
say 0 "" run "$fromPacked4" gray4.raw left.raw --size 2x1
holds left.raw 00000000fefefe00
"$tool" run "$fromPlanes" - - --size 3x2 <a.yuv >stream.raw 2>/dev/null
same stream.raw rgb.raw
: >kept.raw
ln -s kept.raw link.raw
say 0 "" run "$toPlanes" six.ppm link.raw
same kept.raw a.yuv
mkfifo pipe
timeout 10 cat pipe >piped.raw &
say 0 "" run "$toPlanes" six.ppm pipe
wait $!
same piped.raw a.yuv

# The layouts of all families: function, size, bytes of the source and of the destination
while read -r function size in out; do
  head -c "$in" /dev/zero >zeros.raw
  say 0 "" run "$function" zeros.raw sized.raw --size "$size"
  checks=$((checks + 1))
  [[ $(wc -c <sized.raw) == "$out" ]] || fail "$function $size gives $(wc -c <sized.raw) bytes, expected $out"
done <<'END'
tolkRGBToYCbCr420_8u_C3P2R 3x3 27 17
tolkYCbCr420ToRGB_8u_P3C3R 3x3 17 27
tolkRGBToYCbCr422_8u_C3C2R 3x3 27 18
tolkBGRToYCbCr411_8u_C3P3R 5x1 15 9
tolkRGBToYUV_8u_AC4P4R 3x1 12 12
tolkRGBToYUV422_8u_P3 3x3 27 21
tolkRGBToYUV420_8u_C3P3 3x3 27 11
tolkYUV420ToRGB_8u_P3 3x3 11 27
tolkYUV422v210ToRGB_709HDTV_32u16u_C3 7x2 64 28
tolkYUV422v210ToGray_709HDTV_32u16u_C3C1 7x2 64 28
tolkYCbCr422ToYCrCb422_8u_P3C2R 3x3 21 18
tolkYCbCr411ToYCrCb420_8u_P2P3R 5x3 27 27
tolkYCbCr1620To420_8u_P3R 8x4 36 48
tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R 4x4 24 32
END
say 0 "stripe  (of tolk run: 21, a whole picture)" info tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R
bytes 000000000000000010122022 >low.i420  # this function reads chroma below a picture of two rows
say 0 "" run tolkYCbCr420To411_8u_P3R low.i420 low.i411 --size 4x2
holds low.i411 000000000000000010182010
luma=00040000 zeros=000000000000000000000000 luma2=00080000
bytes $luma$zeros$luma2$zeros >two.v210
say 0 "Gray10 C1 16u" run tolkYUV422v210ToGray_709HDTV_32u16u_C3C1 two.v210 two.gray10 --size 1x2
holds two.gray10 01000200

# Video files: of several frames the first is read
say 0 "" run "$toPlanes" gray.pgm gray444.y4m
same gray444.y4m <(echo 'YUV4MPEG2 W2 H1 F25:1 Ip A1:1 C444 XCOLORRANGE=LIMITED'; bytes 4652414d450a10eb80808080)
frame=$'FRAME Ip\n\x10\xeb\xeb\x10\x80\x80'
printf 'YUV4MPEG2 H2 W2 C420mpeg2 Xa\n%s%s' "$frame" "$frame" >frames.y4m
say 0 "" run tolkYCbCr420ToBGR_8u_P3C3R frames.y4m frames.raw
holds frames.raw 000000ffffffffffff000000

# Pictures
say 0 "" panel all.png six.ppm two.ppm deep.ppm gray.pgm --gap 1
say 0 "" panel all.ppm all.png
white=ffffff
{ printf 'P6\n11 2\n255\n'
  bytes ${colours:0:18}$white$pixels${white}0180fd${white}000000$white
  bytes ${colours:18}$white$white$white$white$white$white$white$white; } >all-expected.ppm
same all.ppm all-expected.ppm
say 0 "" panel gray.png gray.pgm
say 0 "" panel gray-again.pgm gray.png
same gray.pgm gray-again.pgm
say 0 "" panel all.jpg all.png
say 0 "green largest 0, mean 0.000, PSNR inf" compare all.ppm all.png
say 0 "red   largest 1, mean 0.500, PSNR 51.14" compare <(printf 'P6\n2 1\n255\n\1\0\0\1\0\0') <(printf 'P6\n2 1\n255\n\1\0\0\2\0\0')
say 0 "gray  largest 256, mean 256.000, PSNR 48.16" compare <(printf 'P5\n1 1\n65535\n\1\0') <(printf 'P5\n1 1\n65535\n\2\0')
say 0 "PSNR" compare all.jpg all.ppm
say 1 "six.ppm has 3x2" compare six.ppm two.ppm
say 1 "of 16 bits" compare deep.ppm <(printf 'P6\n1 1\n255\n123')

# Errors
mkdir folder
beginErrors
head -c 60 all.png >cut.png
head -c 300 all.jpg >cut.jpg
say 1 "cannot read none.png: No such file" run "$toPlanes" none.png out.raw
say 1 "cannot read .: Is a directory" run "$toPlanes" . out.raw --size 2x1
say 1 "not a PNG, JPEG, TIFF, HDR, PFM or binary PBM" run "$toPlanes" words.png out.raw
say 1 "cut.png: a bad PNG image" run "$toPlanes" cut.png out.raw
say 1 "cut.jpg: a bad JPEG image" run "$toPlanes" cut.jpg out.raw
say 1 "short.ppm: the file ends early: expected 6 bytes of samples, got 3" run "$toPlanes" short.ppm out.raw
say 1 "a bad number" run "$toPlanes" huge.ppm out.raw
say 1 "the largest sample value is 100" run "$toPlanes" dim.ppm out.raw
say 1 "no pixels" run "$toPlanes" empty.ppm out.raw
say 1 "the samples have 16 bits" run "$toPlanes" deep.ppm out.raw
say 1 "needs --size" run "$toPlanes" six.raw out.raw
say 1 "expected 12 bytes for RGB C3 8u of 4x1 pixels, got 18" run "$toPlanes" six.raw out.raw --size 4x1
for size in 4 4x 4x1x 4*1 -4x1 4000000000x1 2000000000x2000000000; do
  say 1 "--size takes WIDTHxHEIGHT" run "$toPlanes" six.raw out.raw "--size=$size"
done
say 1 "got 18" run "$toPlanes" six.raw out.raw --size 1000000x60000
say 1 "six.ppm has 3x2 pixels, not 2x3" run "$toPlanes" six.ppm out.raw --size 2x3
say 1 "takes no alpha" run "$toPlanes" six.ppm out.raw --alpha 7
say 1 "--alpha" run tolkYCbCrToRGB_8u_P3C4R a.yuv out.raw --size 3x2 --alpha 256
say 1 "--repeat" run "$toPlanes" six.ppm out.raw --repeat 0
say 1 "there is no function tolkRGB" run tolkRGB six.ppm out.raw
say 1 "out.png is an image file, but $toPlanes gives YCbCr P3 8u: use raw bytes" run "$toPlanes" six.ppm out.png
say 1 "six.ppm is an image file, but $fromPlanes takes YCbCr P3 8u" run "$fromPlanes" six.ppm out.png
say 1 "cannot hold 8-bit RGB and alpha" run tolkYCbCrToRGB_8u_P3C4R a.yuv out.jpg --size 3x2
say 1 "cannot hold 8-bit RGB" run "$fromPlanes" a.yuv out.pgm --size 3x2
say 1 "cannot write none/out.raw: No such file" run "$toPlanes" six.ppm none/out.raw
say 1 "cannot write folder: Is a directory" run "$toPlanes" six.ppm folder
say 1 "names no image format" panel out.gif six.ppm
say 1 "$toPlanes returned tolkStatusBadSize (-6): width or height" run "$toPlanes" nothing.raw out.raw --size 0x4
say 1 "a video file of other samples, but $toPlanes takes RGB C3 8u" run "$toPlanes" gray444.y4m out.raw
say 1 "gives YCbCr C3 8u" run "$toPacked" six.ppm out.y4m
rm cut.png cut.jpg
endErrors
checks=$((checks + 2))
"$tool" list >/dev/full 2>&1 && fail "a full standard output is no error of list"
"$tool" run "$toPlanes" six.ppm - >/dev/full 2>&1 && fail "a full standard output is no error of run"

preload=$odd_size
say 0 "returned tolkStatusOddSize (35)" run "$toPacked" gray.pgm odd.raw
holds odd.raw 000000000000
say 1 "nothing is written" run "$toPacked" gray.pgm strict.raw --strict
[[ ! -e strict.raw ]] || fail "--strict wrote a file"

finish
