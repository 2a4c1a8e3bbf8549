#!/usr/bin/env bash
# test_demosaic.sh TOLK HAS_LIBRAW: pictures to mosaics and back; mosaics of all depths, in all kinds of files.
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"
libraw=$2
grids=(rggb bggr gbrg grbg)

# A picture with edges and lines of all directions, fine texture, and colours that change more slowly than brightness.
python3 - <<'END'
import math
def colour(x, y):
    radius = math.hypot(x - 70, y - 45)
    light = 0.5 + 0.22 * math.sin(radius * radius / 400) + 0.1 * math.sin(0.6 * x + 0.5 * y)
    if abs(x - 2 * y + 20) < 3: light = 0.95
    if (x - 25) ** 2 + (y - 70) ** 2 < 300: light *= 0.3
    if 95 < x < 120 and 20 < y < 60: light = 0.9 if (x + 2 * y) % 20 < 9 else 0.2
    tint = 0.15 * math.sin(x / 40), 0.05 * math.cos(y / 30), 0.15 * math.sin((y - x) / 50)
    return [min(max(round(255 * (light + t)), 0), 255) for t in tint]
flat = [sample for y in range(96) for x in range(128) for sample in colour(x, y)]
open("scene.ppm", "wb").write(b"P6\n128 96\n255\n" + bytes(flat))
open("scene16.ppm", "wb").write(b"P6\n128 96\n65535\n" + b"".join((v * 256 + 7).to_bytes(2, "big") for v in flat))
END

# Every grid of four colours by two; gray; other depths
{ printf 'P6\n4 2\n255\n'; bytes 010203040506070809101112212223242526272829303132; } >four.ppm
while read -r hex in options; do
  # shellcheck disable=SC2086
  ask mosaic "$in" mosaic.raw --grid $options
  holds mosaic.raw "$hex"
done <<'END'
0105071122262832 four.ppm rggb
0305091122242830 four.ppm bggr
0206081221252731 four.ppm gbrg
0204081023252931 four.ppm grbg
00ff gray.pgm gbrg
00fe deep.ppm bggr
0000ff0f gray.pgm rggb --bits 12
0000ff3f gray.pgm rggb --bits 14
0000ffff gray.pgm rggb --bits 16
END

# A site keeps its sample (vng's frame does not), and the three methods come nearer and nearer to the picture
decibels() { "$tool" compare "$@" | sed 's/.*PSNR \([0-9.]*\).*/\1/'; }
for in in scene scene16; do
  for grid in "${grids[@]}"; do
    ask mosaic $in.ppm mosaic.png --grid "$grid"
    bits=$([[ $in == scene ]] && echo 8 || echo 16)
    while read -r method function; do
      ask demosaic mosaic.png "$method.png" --grid "$grid" --method "$method"
      say 0 "" run "${function/BITS/$bits}" mosaic.png run.png --grid "$grid"
      say 0 "largest 0, mean 0.000, PSNR inf dB
green largest 0," compare "$method.png" run.png
      ask mosaic "$method.png" again.png --grid "$grid"
      for name in mosaic again; do ask panel $name-inside.png $name.png --crop 124x92+2+2; done
      say 0 "largest 0," compare mosaic-inside.png again-inside.png
      [[ $method == vng ]] || say 0 "largest 0," compare mosaic.png again.png
    done <<'END'
linear tolkCFAToRGB_BITSu_C1C3R
vng tolkCFAToBGRA_VNG_BITSu_C1C4R
ahd tolkDemosaicAHD_BITSu_C1C3R
END
    checks=$((checks + 1))
    paste <(decibels $in.ppm linear.png) <(decibels $in.ppm vng.png) <(decibels $in.ppm ahd.png) >decibels
    awk '$1 < 20 || $2 < $1 + 1 || $3 < $2 + 1 { bad = 1 } END { exit bad || NR != 3 }' decibels ||
      fail "$in $grid: PSNR of linear, vng and ahd: $(paste -sd';' decibels)"
  done
done

# The same samples in every kind of file
for bits in 8 10 12 14 16; do
  ask mosaic scene16.ppm "m$bits.pgm" --grid gbrg --bits $bits
  ask mosaic scene16.ppm "m$bits.raw" --grid gbrg --bits $bits
  ask demosaic "m$bits.pgm" expected.ppm --grid gbrg
  ask demosaic "m$bits.raw" out.ppm --grid gbrg --bits $bits --size 128x96
  same out.ppm expected.ppm
done
ask demosaic m8.raw out.ppm --grid gbrg --size 128x96
ask demosaic m8.pgm expected.ppm --grid gbrg
same out.ppm expected.ppm
ask pack12 m12.pgm packed.raw
ask run tolkUnpack_12u16u_C1R packed.raw words.png --size 128x96 >report
ask run tolkUnpack_12u16u_C1R packed.raw words.tiff --size 128x96 >report
ask demosaic m12.pgm expected.ppm --grid gbrg
for in in "packed.raw --size 128x96" words.png words.tiff; do
  # shellcheck disable=SC2086
  say 0 "128x96 by tolkDemosaicAHD_16u_C1C3R, gbrg" demosaic $in out.ppm --grid gbrg --bits 12
  same out.ppm expected.ppm
done

# Full scale stays full scale, and gains are of blue, green and red; 3 of 12 bits is 48.01 of 16
flat() { python3 -c 'import struct, sys; sys.stdout.buffer.write(struct.pack("<H", int(sys.argv[1])) * 30)' "$1"; }
while read -r sample bits gains hex; do
  flat "$sample" >flat.raw
  for method in linear vng ahd; do
    ask demosaic flat.raw out.ppm --grid rggb --size 6x5 --bits "$bits" --method $method --gains "$gains"
    holds <(tail -c 6 out.ppm) "$hex"
  done
done <<'END'
4095 12 1,1,1 ffffffffffff
3 12 1,1,1 003000300030
1023 10 0.25,0.5,2 ffff80004000
100 16 3,2,0.5 003200c8012c
END

# Files of cameras: black levels of a block of four sites, a border around the picture
python3 - <<'END'
import array, struct
columns, rows, left, top, white, black = 128, 96, 4, 2, 4000, [64, 80, 96, 112]
scene = open("m12.raw", "rb").read()
samples = array.array("H", scene)
def dng(name, pattern, stride=2, photometric=32803, channels=1):
    full, data = (columns + left, rows + top), bytearray()
    for y in range(full[1]):
        for x in range(full[0]):
            inside = x >= left and y >= top
            value = samples[(y - top) * columns + x - left] if inside else 4095
            data += struct.pack("<H", value) * channels
    short, long = "H", "I"
    tags = {254: (4, [0]), 256: (4, [full[0]]), 257: (4, [full[1]]), 258: (3, [16] * channels), 259: (3, [1]),
            262: (3, [photometric]), 271: (2, b"Maker\0"), 272: (2, b"Model\0"), 273: (4, ["data"]),
            277: (3, [channels]), 278: (4, [full[1]]), 279: (4, [len(data)]),
            50706: (1, bytes([1, 4, 0, 0])), 50707: (1, bytes([1, 1, 0, 0])), 50708: (2, b"Maker Model\0"),
            50713: (3, [2, 2]), 50714: (3, black), 50717: (4, [white]), 50829: (4, [top, left, full[1], full[0]])}
    if channels == 1: tags |= {33421: (3, [stride, stride]), 33422: (1, bytes("rgb".index(c) for c in pattern))}
    if channels == 3: del tags[50713], tags[50714]
    place = 8 + 2 + 12 * len(tags) + 4
    rest, entries = bytearray(), b""
    size = sum(len(v) if isinstance(v, bytes) else len(v) * (2 if k == 3 else 4) for k, v in tags.values()) + 99
    for tag, (kind, values) in sorted(tags.items()):
        values = [place + size if v == "data" else v for v in values]
        packed = struct.pack(f"<{len(values)}{ {1: 'B', 2: 'B', 3: 'H', 4: 'I'}[kind]}", *values)
        if len(packed) > 4:
            packed, rest = struct.pack("<I", place + len(rest)), rest + packed + b"\0" * (len(packed) % 2)
        entries += struct.pack("<HHI", tag, kind, len(values)) + packed.ljust(4, b"\0")
    head = struct.pack("<2sHIH", b"II", 42, 8, len(tags)) + entries + bytes(4) + rest
    open(name, "wb").write(head.ljust(place + size, b"\0") + data)
for grid in ("rggb", "bggr", "gbrg", "grbg"): dng(grid + ".dng", grid)
dng("six.dng", "ggrggbggbggrbrgrbgggbggrggrggbrbgbrg", 6)
dng("three.dng", "", photometric=34892, channels=3)
whole = open("rggb.dng", "rb").read()
open("cut.dng", "wb").write(whole[:-5000])
def level(i):
    base = black[i // columns % 2 * 2 + i % 2]
    return int(min(max(samples[i] - base, 0) / (white - base), 1) * 65535 + 0.5)
expected = b"".join(struct.pack(">H", level(i)) for i in range(len(samples)))
open("levels.pgm", "wb").write(b"P5\n128 96\n65535\n" + expected)
END
if ((libraw)); then
  for grid in "${grids[@]}"; do
    say 0 "128x96 by tolkCFAToRGB_16u_C1C3R, $grid" demosaic $grid.dng out.ppm --method linear
    ask demosaic levels.pgm expected.ppm --grid $grid --method linear
    same out.ppm expected.ppm
  done
  ask demosaic rggb.dng out.ppm --grid grbg --method linear
  same out.ppm expected.ppm
fi

{ printf 'P5\n2 1\n1023\n'; bytes 00010400; } >over.pgm
printf 'P5\n4 4\n255\n0123456789abcdef' >small.pgm
printf 'P4\n4 1\n0' >bits.pbm
beginErrors
while IFS='|' read -r words options; do
  # shellcheck disable=SC2086
  say 1 "$words" $options
done <<'END'
--grid: xtrans not in|demosaic m8.pgm out.png --grid xtrans
--grid is required|mosaic scene.ppm out.png
--method: nearest not in|demosaic m8.pgm out.png --grid rggb --method nearest
--bits: 9 not in|demosaic m8.pgm out.png --grid rggb --bits 9
m8.pgm does not tell the colours of its sites: --grid is needed|demosaic m8.pgm out.png
scene.ppm has 3 channels, but a mosaic has one ('tolk mosaic' makes one)|demosaic scene.ppm out.png --grid rggb
m8.pgm has samples of 8 bits, not of 12|demosaic m8.pgm out.png --grid rggb --bits 12
m12.pgm has samples of 12 bits, not of 10|demosaic m12.pgm out.png --grid rggb --bits 10
bits.pbm has samples of 1 bits, not of 8 to 16|demosaic bits.pbm out.png --grid rggb
m8.pgm has 128x96 pixels, not 96x128|demosaic m8.pgm out.png --grid rggb --size 96x128
over.pgm: the sample in column 1 of row 0 is 1024, above 1023, the largest of 10 bits|demosaic over.pgm out.png --grid rggb
m14.raw: the sample in column 0 of row 0 is|demosaic m14.raw out.png --grid rggb --bits 10 --size 128x96
expected 12288 bytes for a mosaic of 128x96 samples of 8 bits, got 24576 (--bits says another|demosaic m12.raw out.png --grid rggb --size 128x96
expected 24576 bytes, or 18432 of packed samples, for a mosaic|demosaic m8.raw out.png --grid rggb --size 128x96 --bits 12
raw bytes need --size, and a camera's file tells its own --bits|demosaic m12.raw out.png --grid rggb --bits 12
out.jpg: this format cannot hold 16-bit RGB|demosaic m12.pgm out.jpg --grid rggb
out.pgm: this format cannot hold 8-bit RGB|demosaic m8.pgm out.pgm --grid rggb
out.png: this format cannot hold 12-bit gray (a .pgm file can)|mosaic scene.ppm out.png --grid rggb --bits 12
out.ppm: this format cannot hold 8-bit gray|mosaic scene.ppm out.ppm --grid rggb
returned tolkStatusBadSize|demosaic small.pgm out.png --grid rggb --method vng
--gains are three numbers from 0 to 65535|demosaic m8.pgm out.png --grid rggb --gains 1,nan,1
--gains|demosaic m8.pgm out.png --grid rggb --gains 1,2
tolkCFAToRGB_8u_C1C3R takes no scale|run tolkCFAToRGB_8u_C1C3R m8.pgm out.png --gains 1,2,3
tolkGammaFwd_8u_C3R takes no grid|run tolkGammaFwd_8u_C3R six.ppm out.png --grid rggb
the part to crop is not all inside|panel out.png scene.ppm --crop 9x9+120+0
--crop takes WIDTHxHEIGHT+X+Y|panel out.png scene.ppm --crop 9x9
END
if ((libraw)); then
  say 1 "six.dng: the sensor has no Bayer pattern" demosaic six.dng out.png
  say 1 "three.dng: the sensor has no Bayer pattern" demosaic three.dng out.png
  say 1 "cut.dng: the samples cannot be read: " demosaic cut.dng out.png
  say 1 "m8.raw: not read as a camera's file" demosaic m8.raw out.png --grid rggb
  say 1 "none.dng: not read as a camera's file: " demosaic none.dng out.png
  say 1 "raw bytes of standard input need --size" demosaic - out.png --grid rggb
else
  say 1 "this tool was built without LibRaw" demosaic rggb.dng out.png
fi
endErrors

# Parts of pictures, enlarged
ask panel part.ppm four.ppm --crop 2x1+0+1 --zoom 3
holds <(tail -c 54 part.ppm) "$(for _ in 1 2 3; do printf '212223%.0s' {1..3}; printf '242526%.0s' {1..3}; done)"
finish
