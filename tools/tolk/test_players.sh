#!/usr/bin/env bash
# test_players.sh TOLK: another program shows what convert writes, and the reverse, in the right colours.
command -v ffmpeg >/dev/null || { echo "ffmpeg is not installed: nothing is tested"; exit 77; }
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

# Smooth fields of all colours, each channel in its own direction.
python3 - >picture.ppm <<'END'
import math, sys
size = (161, 121)
wave = lambda t: round(127.5 + 115 * math.sin(t))
pixels = bytes(v for y in range(size[1]) for x in range(size[0])
               for v in (wave(x / 23), wave(y / 19 + 1), wave((x + y) / 29 + 2)))
sys.stdout.buffer.write(b"P6 %d %d 255\n" % size + pixels)
END

play() { rm -f "${@: -1}"; ffmpeg -v error -y "$@" </dev/null || fail "ffmpeg $*"; }

convert() { rm -f "$2"; "$tool" convert "$@" 2>message || fail "tolk convert $*: $(cat message)"; }

worst() { "$tool" compare "$1" "$2" | sed 's/.*PSNR \(.*\) dB/\1/' | sort -n | head -1; }  # A B: of the channels, in dB

above() {  # BOUND A B WORDS
  checks=$((checks + 1))
  local got
  got=$(worst "$2" "$3")
  [[ -z ${TOLK_VERBOSE-} ]] || echo "$4: $got dB"
  awk "BEGIN { exit !(${got:-0} > $1) }" || fail "$4: $got dB, expected more than $1"
}

studio=in_color_matrix=bt601:out_range=full toStudio=out_color_matrix=bt601:in_range=full:out_range=limited

# Format, its name there, and the least PSNR: measured, less about 1 dB, much of the rest being the other program's own
# chroma filters. Wrong chroma order gives 5 dB, the matrix of BT.709 at most 25, wrong range 28.
formats="nv12 nv12 34
nv21 nv21 34
i420 yuv420p 34
yuyv yuyv422 36
yvyu yvyu422 36
uyvy uyvy422 36
i422 yuv422p 36
i411 yuv411p 32
i1620 yuv410p 30
ycbcr444p yuv444p 50"

for size in 160x120 161x121; do
  play -i picture.ppm -vf "format=rgb24,crop=${size/x/:}:0:0" cropped.ppm
  while read -r format theirs bound; do
    convert cropped.ppm ours.raw --to "$format"
    play -f rawvideo -pix_fmt "$theirs" -s "$size" -i ours.raw -vf "scale=$studio:in_range=limited" shown.ppm
    above "$bound" cropped.ppm shown.ppm "$size $format shown by ffmpeg"
    play -i cropped.ppm -vf "scale=$toStudio" -pix_fmt "$theirs" -f rawvideo theirs.raw
    convert theirs.raw back.ppm --from "$format" --size $size
    above "$bound" cropped.ppm back.ppm "$size $format of ffmpeg"
    case $format in i42* | i411 | ycbcr*) ;; *) continue ;; esac
    convert cropped.ppm ours.y4m --to "$format"  # the file itself tells range and layout
    play -i ours.y4m -vf "scale=$studio" shown.ppm
    above "$bound" cropped.ppm shown.ppm "$size $format in Y4M shown by ffmpeg"
    play -i cropped.ppm -vf "scale=$toStudio" -pix_fmt "$theirs" theirs.y4m
    convert theirs.y4m back.ppm
    above "$bound" cropped.ppm back.ppm "$size $format in Y4M of ffmpeg"
  done <<<"$formats"
done

# TIFF of 16 bits, which the other program narrows by cutting off
convert picture.ppm ours.tiff --to rgb48
play -i ours.tiff -pix_fmt rgb24 shown.ppm
above 47 picture.ppm shown.ppm "TIFF shown by ffmpeg"
play -i picture.ppm -pix_fmt rgb48le theirs.tiff
convert theirs.tiff back.ppm --to rgb24
above 47 picture.ppm back.ppm "TIFF of ffmpeg"

# The measure itself: chroma in the wrong order.
convert cropped.ppm ours.raw --to nv12
convert ours.raw back.ppm --from nv21 --size "$size"
checks=$((checks + 1))
awk "BEGIN { exit !($(worst cropped.ppm back.ppm) < 15) }" || fail "swapped chroma is not seen"

play -i picture.ppm -vf format=rgb24,crop=160:120:0:0 -pix_fmt yuv422p10le -c:v v210 -f rawvideo theirs.v210
play -i picture.ppm -vf format=rgb24,crop=160:120:0:0 -pix_fmt yuv422p10le -f rawvideo planes.raw
convert theirs.v210 ours.gray10 --size 160x120
checks=$((checks + 1))
cmp -s -n 38400 ours.gray10 planes.raw || fail "the luma of v210 differs"
finish
