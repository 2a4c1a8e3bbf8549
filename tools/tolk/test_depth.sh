#!/usr/bin/env bash
# test_depth.sh TOLK: dithering, tone mapping, twists, samples of 12 bits and of one.
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

gray() {  # WIDTH HEX: a PGM file of bytes
  printf 'P5\n%d %d\n255\n' "$1" $((${#2} / 2 / $1))
  bytes "$2"
}

pixels() {  # HEX FILE FORMAT: what the image file holds, in plain samples
  ask convert "$2" pixels.raw --to "$3"
  holds pixels.raw "$1"
}

floats() { python3 -c 'import struct, sys; sys.stdout.buffer.write(struct.pack(f"<{len(sys.argv) - 1}f", *map(float, sys.argv[1:])))' "$@"; }

# A ramp of 256 columns in each channel, in three directions; of 16 bits it has shades between those of bytes.
python3 - <<'END'
rows = [(x, 255 - x, (x + 4 * y) % 256) for y in range(64) for x in range(256)]
flat = [sample for row in rows for sample in row]
open("ramp.ppm", "wb").write(b"P6\n256 64\n255\n" + bytes(flat))
open("ramp16.ppm", "wb").write(b"P6\n256 64\n65535\n" + b"".join((v * 257).to_bytes(2, "big") for v in flat))
open("dim16.pgm", "wb").write(b"P5\n64 64\n65535\n" + (32896 + 100).to_bytes(2, "big") * 4096)
END
ask convert ramp.ppm ramp.png --to rgba --alpha 9
ask convert ramp.ppm ramp.tiff --to rgbad
ask convert ramp.ppm ramp.pfm
ask convert ramp.ppm ramp.pgm --to gray

dithered() {  # LEVELS BITS FILE [MEAN]: only these levels, and all; with MEAN the means of the ramp's channels
  local bits=$2 depth
  checks=$((checks + 1))
  depth=$([[ $bits == 8 ]] && echo rgb24 || echo rgb48)
  ask convert "$3" levels.raw --from "$depth" --to "$depth"
  python3 - "$@" <<'END' || fail "dithered $*"
import array, pathlib, sys
levels, bits, k = int(sys.argv[1]), int(sys.argv[2]), int(sys.argv[1]) - 1
full = 2**bits - 1
samples = array.array("B" if bits == 8 else "H", pathlib.Path("levels.raw").read_bytes())
assert len(samples) == 256 * 64 * 3
assert sorted(set(samples)) == [full * i // k for i in range(levels)], sorted(set(samples))[:20]
source = pathlib.Path("ramp.ppm").read_bytes()[-len(samples):]
for c in range(3 if len(sys.argv) > 4 else 0):
    means = [sum(data[c::3]) / (256 * 64) / scale for data, scale in ((samples, full), (source, 255))]
    assert abs(means[0] - means[1]) < 0.004, means
END
}

while read -r method levels in options; do
  # shellcheck disable=SC2086
  say 0 ", $levels levels" dither "ramp.$in" out.png --method "$method" --levels "$levels" $options
  dithered "$levels" 8 out.png mean
done <<'END'
none 2 ppm
none 6 tiff
fs 2 ppm
fs 4 ppm --noise 40
jjn 4 pfm
jjn 16 tiff --depth 8
stucki 6 ppm
bayer 4 ppm
bayer 16 pfm
END
while read -r levels in; do
  ask dither "$in" out.tiff --levels "$levels" --depth 16
  dithered "$levels" 16 out.tiff mean
done <<'END'
4 ramp16.ppm
4 ramp.pfm
END
# The same as the function itself, by its name; alpha stays, and gray is one channel
while read -r method levels noise; do
  ask dither ramp.ppm out.ppm --method "$method" --levels "$levels" --noise "$noise"
  ask run tolkReduceBits_8u_C3R ramp.ppm run.ppm --dither "$method" --levels "$levels" --noise "$noise" >report
  same out.ppm run.ppm
  ask dither ramp.png out.png --method "$method" --levels "$levels" --noise "$noise"
  ask convert run.ppm expected.raw --to rgba --alpha 9
  ask convert out.png out.raw --to rgba
  same expected.raw out.raw
  ask dither ramp.pgm out.pgm --method "$method" --levels "$levels" --noise "$noise"
  ask run tolkReduceBits_8u_C1R ramp.pgm run.pgm --dither "$method" --levels "$levels" --noise "$noise" >report
  same out.pgm run.pgm
done <<'END'
none 3 0
fs 3 0
bayer 7 30
stucki 2 5
END

# What only one method makes of three pixels, by its weights, and of one shade, by the matrix
gray 3 646462 >three.pgm
gray 4 "$(printf 28%.0s {1..16})" >shade.pgm
while read -r method hex; do
  ask dither three.pgm out.png --method "$method"
  pixels "$hex" out.png gray
done <<'END'
none 000000
fs 00ff00
jjn 000000
stucki 0000ff
bayer ff00ff
END
ask dither shade.pgm out.png --method bayer
pixels ff00ff00000000000000ff0000000000 out.png gray
gray 6 646464646464 >six.pgm
ask dither six.pgm out.png --method jjn
pixels 000000ff0000 out.png gray

{ printf 'P5\n1 2\n65535\n'; bytes 00011234; } >deep.pgm

# Fewer bits: by default all levels of bytes, and what lies between two of them is a mixture
say 0 "by tolkReduceBits_16u8u_C1R, 256 levels" dither dim16.pgm out.jpg
say 0 "by tolkReduceBits_16u8u_C1R, 256 levels" dither dim16.pgm out.pgm --depth 8
checks=$((checks + 1))
tail -c 4096 out.pgm | python3 -c 'import sys
samples = sys.stdin.buffer.read()
assert set(samples) == {128, 129} and abs(sum(samples) / 4096 - 32996 / 257) < 0.01' || fail "dim16.pgm in 8 bits"
say 0 "by tolkReduceBits_16u_C1R, 2 levels" dither dim16.pgm out.png
say 0 "by tolkReduceBits_32f16u_C3R, 65536 levels" dither ramp.pfm out.png --depth 16
say 0 "by tolkReduceBits_32f8u_C3R, 256 levels" dither ramp.pfm out.ppm
say 0 "largest 0, mean 0.000, PSNR inf dB
green largest 0," compare out.ppm ramp.ppm

# One bit a pixel: rows of whole bytes, high bit first; 1 is black in PBM
gray 9 00ff807fffff0000ffffff000000000000ff >bits.pgm
say 0 "by tolkReduceBits_8u1u_C1R" dither bits.pgm out.pbm --method none1
same out.pbm <(printf 'P4\n9 2\n'; bytes 93003f00)
ask dither bits.pgm out.png --method none1
holds <(head -c 26 out.png | tail -c 2) 0100  # gray of 1 bit
for kind in png pbm; do pixels 00ffff00ffff0000ffffff000000000000ff out.$kind gray; done
ask dither bits.pgm out.pbm --method none1 --threshold 128
pixels 00ff0000ffff0000ffffff000000000000ff out.pbm gray
say 0 "" run tolkReduceBits_8u1u_C1R bits.pgm out.raw --threshold 126 --bit-offset 11
holds out.raw 000f90001810
say 0 ", of the gray of tolkRGBToGray_32f_C3C1R" dither ramp.tiff out.png --method stucki1
say 0 ", of the gray of tolkRGBToGray_8u_C3C1R" dither ramp.png again.png --method stucki1
say 0 "" run tolkReduceBits_8u1u_C1R ramp.pgm out.pbm --dither stucki
say 0 "largest 0," compare out.pbm again.png
ask convert out.pbm out.pgm
checks=$((checks + 1))
cat out.pgm ramp.pgm | python3 -c 'import sys
data = sys.stdin.buffer.read()
bits, shades = data[14:16398], data[-16384:]
assert set(bits) == {0, 255} and abs(sum(bits) - sum(shades)) < 0.01 * 255 * 16384' || fail "the mean of bits"

# Twists of every sample type; gray is three equal colours, alpha stays but for four rows
printf '# swaps\r\n  0 0 1 1   # and adds\r\n\r\n0 1e0 0 -2\n+1 0 0 0' >swap.txt
printf '0 0 0 1\n1 0 0 0\n0 .5 0 0\n0 0 1 0\n' >four.txt
{ printf 'PF 1 1 -1\n'; floats 1 0.5 0.25; } >one.pfm
ask convert one.pfm one.tiff --to rgbd
ask convert six.ppm six.png --to rgba --alpha 7
ask convert <(bytes 0a141e28) four.png --from rgba --to rgba --size 1x1
while read -r matrix in out format hex; do
  say 0 "by tolkColorTwist" twist "$in" "$out" --matrix "$matrix.txt"
  pixels "$hex" "$out" "$format"
done <<'END'
swap six.ppm out.ppm rgb24 0100ff01fd00ff0000040001827e7fcbc7c8
swap six.png out.png rgba 0100ff0701fd0007ff00000704000107827e7f07cbc7c807
swap deep.ppm out.png rgb48 01fefd800201
swap gray.pgm out.png rgb24 010000fffdff
swap one.pfm out.pfm rgbf 0000a03f0000c0bf0000803f
swap one.tiff out.tiff rgbd 000000000000f43f000000000000f8bf000000000000f03f
four four.png out.png rgba 280a0a1e
END
ask twist six.ppm out.ppm --matrix swap.txt
say 0 "Color C3 8u" run tolkColorTwist32f_8u_C3IR six.ppm run.ppm --twist swap.txt
same run.ppm out.ppm
say 0 "" run tolkColorTwist_32f_C4R <(floats 1 2 3 4) out.raw --twist four.txt --size 1x1
holds out.raw "$(floats 4 1 1 3 | od -An -v -tx1 | tr -d ' \n')"

# One factor for all channels and not for alpha; below 0 is black
{ printf 'PF 2 1 -1\n'; floats 4 2 1 0.5 -1 0; } >light.pfm
{ printf 'Pf 2 1 -1\n'; floats -4 2; } >dark.pfm
ask convert light.pfm light.tiff --to rgbd
ask convert light.pfm light4.tiff --to rgbaf --alpha 51
while read -r in options hex format; do
  say 0 "by tolkToneMap" tonemap "$in" out.png --mode "$options"
  pixels "$hex" out.png "$format"
done <<'END'
light.pfm linear ff7f3f1f0000 rgb24
light.pfm mean ffeb753a0000 rgb24
light.tiff linear ff7f3f1f0000 rgb24
light4.tiff mean ffeb75333a000033 rgba
dark.pfm linear 00ff gray
END

# Radiance files: runs of equal bytes, runs of equal pixels, black by the exponent
{
  printf '#?RADIANCE\n# by hand\nEXPOSURE=2\nFORMAT=32-bit_rle_rgbe\n\n-Y 3 +X 8\n'
  bytes 02020008888003402010850888008881
  bytes 8040208201010107
  bytes 0000000001010105ffffff0080000088
} >three.hdr
say 0 "8x3 rgbf -> rgbf" convert three.hdr out.rgbf
# shellcheck disable=SC2046
same out.rgbf <(floats 1 .5 0 1 .25 0 1 .125 0 $(printf '1 .0625 0 %.0s' {1..5}) $(printf '2 1 .5 %.0s' {1..8}) \
  $(printf '0 0 0 %.0s' {1..7}) 128 0 0)
ask tonemap three.hdr out.ppm
holds <(tail -c 3 out.ppm) ff0000

# 12 bits, in every kind of file
samples=bc0aef0d2301ff0f00000108
bytes $samples >twelve.raw
{ printf 'P5\n3 2\n4095\n'; bytes 0abc0def01230fff00000801; } >twelve.pgm
say 0 "3x2 by tolkPack_16u12u_C1R" pack12 twelve.raw packed.bin --size 3x2
holds packed.bin abcdef1230fff0008010
for kind in raw pgm png tiff; do
  say 0 "3x2 by tolkUnpack_12u16u_C1R" unpack12 packed.bin again.$kind --size 3x2
  ask pack12 again.$kind again.bin --size 3x2
  same again.bin packed.bin
done
same again.pgm twelve.pgm
same again.raw twelve.raw
pixels $samples again.png gray16
pixels abde12ff0080 twelve.pgm gray
say 0 "by tolkReduceBits_16u_C1R" dither twelve.pgm out.png
say 0 "" run tolkUnpack_12u16u_C1R packed.bin run.pgm --size 3x2
same run.pgm twelve.pgm
say 0 "" run tolkPack_16u12u_C1R deep.pgm run.bin  # drops high bits
holds run.bin 00102340

# Signed samples are those of the file with 32768 added; alpha is of their range.
ask convert ramp16.ppm in.png
say 0 "SBGR C3 16s -> YCoCg P3 16s" run tolkSBGRToYCoCg_Rev_16s_C3P3R in.png planes.raw
ask run tolkSBGRToYCoCg_Rev_16s_C3P3R deep.ppm out.raw >report
holds out.raw 404002037e81
ask run tolkYCoCgToSBGR_Rev_16s_P3C3R planes.raw out.ppm --size 256x64 >report
same out.ppm ramp16.ppm
while read -r hex alpha; do
  # shellcheck disable=SC2086
  ask run tolkYCoCgToSBGR_Rev_16s_P3C4R <(bytes 000000000000) out.png --size 1x1 $alpha >report
  pixels "008000800080$hex" out.png rgba64
done <<'END'
ffff
ffff --alpha=32767
0000 --alpha=-32768
END

say 0 "uint32_t noise  (of tolk run: --noise)" info tolkReduceBits_8u_C1R
say 0 "Any C1 1u, an image file or raw bytes" info tolkReduceBits_8u1u_C1R
say 0 "Any C1 16u     -> Any C1 12u" list pack_16u12u

bytes 00 >short.bin
printf '1 2 3 4\n1 2 3\n' >row.txt
printf '1 2 3 4x\n' >word.txt
printf '1 2 3 1e99\n' >large.txt
printf '1 2 3 4\n5 6 7 8 # 9\n' >two.txt
head -c 90 three.hdr >cut.hdr
sed 's/rgbe/xyze/' three.hdr >xyz.hdr
sed 's/^-Y/+Y/' three.hdr >up.hdr
{ head -n 6 three.hdr; bytes 020200088980; } >long.hdr
{ head -n 6 three.hdr; bytes 0202000800; } >none.hdr
{ head -n 6 three.hdr; bytes 02020009; } >wide.hdr
{ head -n 6 three.hdr; bytes 01010101; } >first.hdr
{ printf 'Pf 1 1 -1\n'; floats -1; } >below.pfm
beginErrors
while IFS='|' read -r words options; do
  # shellcheck disable=SC2086
  say 1 "$words" $options
done <<'END'
--method|dither ramp.ppm out.png --method sierra
--noise|dither ramp.ppm out.png --noise 101
--levels is 2 to 256 where out.png gets 8 bits|dither ramp.ppm out.png --levels 257
--levels is 2 to 256 where out.png gets 8 bits|dither ramp.pfm out.png --levels 1
ramp.ppm has 8 bits, and dithering adds none|dither ramp.ppm out.png --depth 16
out.jpg: this format cannot hold 16-bit RGB|dither ramp16.ppm out.jpg --depth 16
out.pbm: this format cannot hold 8-bit RGB|dither ramp.ppm out.pbm
out.jpg: this format cannot hold 1-bit gray|dither ramp.ppm out.jpg --method stucki1
are not of stucki1, which gives one bit a pixel|dither ramp.ppm out.png --method stucki1 --levels 4
--threshold is of methods that give one bit|dither ramp.ppm out.png --threshold 3
row.txt, line 2: a row has 4 numbers, not 3|twist six.ppm out.png --matrix row.txt
word.txt, line 1: 4x is no number that a float holds|twist six.ppm out.png --matrix word.txt
large.txt, line 1: 1e99 is no number that a float holds|twist six.ppm out.png --matrix large.txt
two.txt: a matrix has 3 or 4 rows, not 2|twist six.ppm out.png --matrix two.txt
cannot read none.txt|twist six.ppm out.png --matrix none.txt
six.ppm has no four channels for the 4 rows of four.txt|twist six.ppm out.png --matrix four.txt
out.pgm: this format cannot hold 8-bit RGB|twist gray.pgm out.pgm --matrix swap.txt
swap.txt: the matrix has 3 rows, but tolkColorTwist_32f_C4R takes 4|run tolkColorTwist_32f_C4R one.pfm out.raw --twist swap.txt
six.ppm has samples of 8 bits, but tones are mapped from floating point|tonemap six.ppm out.png
out.hdr: files of this format are only read|tonemap light.pfm out.hdr
returned tolkStatusNotProcessed (1)|tonemap below.pfm out.png --mode mean
--mode|tonemap light.pfm out.png --mode log
cut.hdr: a bad HDR image: the file ends early|tonemap cut.hdr out.png
xyz.hdr: a bad HDR image: only FORMAT=32-bit_rle_rgbe is read|tonemap xyz.hdr out.png
up.hdr: a bad HDR image: only sizes of the form -Y HEIGHT +X WIDTH|tonemap up.hdr out.png
long.hdr: a bad HDR image: a bad run of bytes|tonemap long.hdr out.png
none.hdr: a bad HDR image: a bad run of bytes|tonemap none.hdr out.png
wide.hdr: a bad HDR image: a row of another width|tonemap wide.hdr out.png
first.hdr: a bad HDR image: a bad run of pixels|tonemap first.hdr out.png
deep.pgm: the sample in column 0 of row 1 is 4660, above 4095|pack12 deep.pgm out.raw
the samples have 8 bits, but expected is Any C1 16u|pack12 gray.pgm out.raw
a colour image, but expected is Any C1 16u|pack12 deep.ppm out.raw
out.png is an image file, but tolkPack_16u12u_C1R gives Any C1 12u|pack12 twelve.pgm out.png
needs --size|pack12 twelve.raw out.raw
expected 4 bytes for Any C1 12u of 1x2 pixels, got 1|unpack12 short.bin out.png --size 1x2
out.ppm: this format cannot hold 16-bit gray|unpack12 short.bin out.ppm --size 1x1
returned tolkStatusBadNoise (-55)|run tolkReduceBits_8u_C3R ramp.ppm out.raw --dither bayer --noise 101
returned tolkStatusBadLevels (-54)|run tolkReduceBits_8u_C3R ramp.ppm out.raw --levels 257
returned tolkStatusBadDitherType (-224)|run tolkReduceBits_8u1u_C1R ramp.pgm out.raw --dither fs
--dither|run tolkReduceBits_8u_C3R ramp.ppm out.raw --dither 5
tolkReduceBits_8u1u_C1R takes no levels|run tolkReduceBits_8u1u_C1R ramp.pgm out.raw --levels 4
tolkReduceBits_8u_C1R takes no threshold|run tolkReduceBits_8u_C1R ramp.pgm out.raw --threshold 4
tolkReduceBits_8u_C1R takes no dstBitOffset|run tolkReduceBits_8u_C1R ramp.pgm out.raw --bit-offset 4
tolkGammaFwd_8u_C3R takes no ditherType|run tolkGammaFwd_8u_C3R six.ppm out.raw --dither fs
tolkGammaFwd_8u_C3R takes no twist|run tolkGammaFwd_8u_C3R six.ppm out.raw --twist swap.txt
a whole number from -32768 to 32767|run tolkYCoCgToSBGR_Rev_16s_P3C4R planes.raw out.png --size 256x64 --alpha 32768
END
endErrors
finish
