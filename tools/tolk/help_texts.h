// What --help says of a command beside its options.
#pragma once

namespace tolk {

inline constexpr char kRunText[] = R"(
Sides of RGB, BGR, gray, XYZ, Lab, LUV, HLS, HSV and YCC, and of functions for any channels (gamma,
twist, bit reduction, tone mapping, packing), take image files, by the file's extension, and planes of
YCbCr in 4:2:0, 4:2:2, 4:1:1 and 4:4:4 video files (y4m), of which the first frame is read. Every other
name is raw bytes: the planes of the side one after another without padding. A raw IN needs --size. The
name - is raw standard input or output.

Of image files 8u takes png, tiff, jpg, ppm, pgm and pnm, 16u the same but jpg, 32f tiff, pfm and, to
read, hdr, and 64f tiff. 1u gives png or pbm. 16s takes what 16u does, its samples with 32768 added. A
file's three channels are those of the side in its own order: X, Y and Z, or hue, lightness and
saturation. The file does not tell which. A function in place reads IN and writes OUT.

Channels of RGB are swapped or split as the side wants them. A gray picture goes into all three, a
missing alpha is opaque, a superfluous one is dropped. The destination starts as zero, for functions
that leave some of it as it was; in an image file the fourth channel of AC4 starts as opaque, and is
dropped where the file holds no alpha. --bit-offset makes rows of bits as much longer, with 0 in front.
JPEG files are written at quality 95 without chroma subsampling.

Exit status: 0 also for a warning (a positive status: the result is written), unless --strict; not 0
for an error, and then OUT is as it was.)";

inline constexpr char kConvertText[] = R"(
Examples:
  tolk convert photo.png photo.nv12
  tolk convert photo.nv12 photo.png --size 640x480
  tolk convert camera.raw video.y4m --from yuyv --to i420 --size 640x480
  tolk convert photo.png hls.tiff --to hlsf
  tolk convert hls.tiff photo.png --from hlsf
  tolk convert photo.png lab.tiff --to labf --linear

Image files (png, jpg, pbm, pgm, ppm, pnm, tiff, pfm; hdr to read) hold RGB, or whatever --from or --to says of RGB, gray,
XYZ, Lab, LUV, HLS, HSV and PhotoYCC: 8 bits and 16 as in png and tiff, floating point in tiff and, with
32 bits, in pfm. Without --to OUT has the depth of IN where such a file holds it. A .y4m file holds i420, i422,
i411 or ycbcr444p; its first frame is read. Every other name is raw bytes, in the format that its
extension names or the option does; - is raw standard input or output. A raw IN needs --size.

RGB and gray are brought to another depth where a function wants it, each sample to the nearest of the
same part of full scale: 255, 65535, and 1 in floating point, which is limited to 0 and 1 for it.

One function is called or, where none leads from the one format to the other, two; standard error
tells which. Those that filter, resample within fields or apply a gamma curve are left to tolk run.

XYZ, Lab and LUV are of linear light, but the samples of most pictures are bent by a transfer curve.
Without --linear RGB is taken as it is. With it the curve of ITU-R BT.709 is taken off (tolkGammaInv)
before RGB becomes one of them, and laid on (tolkGammaFwd) what comes from one of them, in the depth of
that function or of the RGB beside it, the deeper one, but at most 32 bits. Linear light of 8 bits is
coarse in the dark: xyz16, luv16 or floating point is better. lab16 goes from and to RGB of 8 bits
alone. In floating point L of Lab and LUV is 0 to 100, and a, b, u and v are as they come.

The YCbCr formats have studio range, with the matrix hdtv full range. The -fullscale formats are YUV
with U and V at 0.492 and 0.877 of a difference, other than YCbCr of full range.

An odd size is completed to whole chroma groups by repeating the last column and row, and cut again.
In raw files rows of packed 4:2:2 have whole pairs, and rows of v210 are as long as for a multiple of
48 pixels. tolk run calls a function on the size as it is.

Formats: i420 and the like, and names with a p at the end, are three planes; nv12 and the like are a
plane of luma and one of chroma pairs. Cb comes before Cr except in yv12, yv16, yvyu and nv21. i1620 has
one chroma pair for 4 by 4 pixels. The first letter of rgb565 and bgr565 has the lowest bits. rgb48,
rgba64 and names with 16 at the end have samples of 16 bits in the machine's byte order, those with f
and d at the end of floating point in 32 and 64 bits.)";

inline constexpr char kLinearText[] = "XYZ, Lab, LUV: take the curve of BT.709 off before, lay it on after";

inline constexpr char kGammaText[] = R"(
Examples:
  tolk gamma linear.tiff photo.tiff
  tolk gamma photo.png linear.png --inverse

The curve of ITU-R BT.709 bends linear light so that dark shades get more steps, and --inverse makes it
straight again. It is laid on each colour channel or gray, whatever their space; alpha stays. OUT has the
samples of IN: 8 or 16 bits or floating point, whose 64 bits are calculated in 32. tolk convert changes
the depth: linear light of 8 bits is coarse in the dark.)";

inline constexpr char kTwistText[] = R"(
Examples:
  tolk twist photo.png sepia.png --matrix sepia.txt

  # red, green and blue of OUT from red, green and blue of IN, and an offset
  0.393 0.769 0.189 0
  0.349 0.686 0.168 0
  0.272 0.534 0.131 0

The offset is in the scale of the samples: of 8 bits 0 to 255, of 16 bits 0 to 65535, while floating point
has no limits. Alpha stays. Gray becomes three equal colours before. A matrix of 4 rows has no offsets:
its columns are the weights of red, green, blue and alpha, which is its fourth row, all from 0 to 1. It
takes pictures with alpha.)";

inline constexpr char kDitherText[] = R"(
Examples:
  tolk dither photo.png poster.png --method bayer --levels 4
  tolk dither deep.tiff photo.png --depth 8
  tolk dither scan.jpg page.pbm --method stucki1

Each colour channel, or gray, gets so many levels, evenly from 0 to full scale; png, tiff, ppm and pgm
keep them, jpg does not. Alpha stays, but is dropped where a pixel is one bit. Methods:

  none    the nearest level
  fs      error diffusion of Floyd and Steinberg
  jjn     error diffusion of Jarvis, Judice and Ninke
  stucki  error diffusion of Stucki
  bayer   ordered, by a matrix of 4 by 4
  stucki1 to one bit a pixel (png, pbm), of a colour picture's gray
  none1   likewise: white is what lies above --threshold

From floating point, whose full scale is 1, OUT has 8 bits by default. Every call gives the same result,
with noise too.)";

inline constexpr char kTonemapText[] = R"(
Examples:
  tolk tonemap light.hdr photo.png --mode mean

IN is floating point of any range: hdr, pfm or tiff. All samples of all channels, but alpha, get the same
factor, so that colours keep their hue: with linear the largest sample becomes 255, with mean the mean
of all samples becomes 127.5 and what lies above 255 becomes 255. Below 0 is black. Where the mean is
below 0 nothing is written. The result is as linear as IN; a picture to look at has the transfer curve
laid on before, as long as there are shades enough:

  tolk gamma light.hdr bent.pfm --vmax 20
  tolk tonemap bent.pfm photo.png)";

inline constexpr char kPackText[] = R"(
Examples:
  tolk pack12 frame.pgm frame.raw
  tolk unpack12 frame.raw frame.pgm --size 1920x1080

Two samples a and b take three bytes: the high 8 bits of a; its low 4 and the high 4 of b; the low 8 of b.
Rows begin at whole bytes. The other side is gray of 16 bits whose samples are 0 to 4095, as they are: an
image file (png, tiff, pgm) or raw bytes in the machine's order, which need --size. A pgm file says so
itself and is as bright as it should be, in others 65535 would be white.)";

inline constexpr char kViewText[] = R"(
Examples:
  tolk view photo.jpg channels.png --space hls
  tolk view hls.tiff channels.png --from hlsf

IN is RGB, or what --from says, and is converted as tolk convert does it. The channels are gray
pictures of 8 bits from black, which is 0, to white, which is 255, 65535 or 1; Lab and LUV of floating
point are shown as their bytes would be. Hue is shown in
colour, and gray where a pixel has no saturation.)";

inline constexpr char kDemosaicText[] = R"(
Examples:
  tolk demosaic frame.pgm photo.png --grid rggb
  tolk demosaic frame.raw photo.png --grid gbrg --bits 12 --size 1920x1080 --method vng
  tolk demosaic camera.dng photo.tiff --gains 1.5,1,2.2

IN is a gray image file (png, tiff, pgm), or with --size raw bytes, or else a camera's file. GRID names the
colours of the first two sites of the first row, and then of the second. Methods:

  linear  means of the nearest sites of a colour; green along the smaller of two gradients
  vng     means over the directions with the smaller gradients of eight; from 5x5 sites
  ahd     along rows or columns, whichever gives the more even colours; from 5x5 sites

Samples of 8 bits give a picture of 8 bits, deeper ones a picture of 16, for which they are scaled: the
largest of their bits becomes 65535, what lies between becomes the nearest. A pgm file tells 8 to 16 bits
by its largest sample value; other samples of 10 to 14 bits are the lower bits of 16, and --bits tells
how many. Raw bytes are, without rows' padding, one byte a sample, little-endian words of 16 bits for
--bits of 10 to 16, or two samples of 12 bits in three bytes, as of tolk pack12, where the file is as
short as that.

Camera files are read where the tool was built with LibRaw, and only of Bayer sensors. From each sample
the black level is taken off, and the white level becomes 65535. Nothing else is done: the picture is
as the sensor lay, and its light is linear, in the sensor's own colours. Without gains it is mostly too
green; 'tolk twist' takes its colours to those of a screen, and 'tolk gamma' lays on a screen's curve.

Gains multiply all samples of the picture, which are then limited to their range and rounded: vng does it
itself, after linear and ahd a colour twist does.)";

inline constexpr char kMosaicText[] = R"(
Examples:
  tolk mosaic photo.png mosaic.png --grid rggb
  tolk mosaic photo.png frame.raw --grid gbrg --bits 12

OUT is gray: png, tiff, pgm, or for every other name raw bytes, a sample in one byte, or of more than 8
bits in a little-endian word of 16. Full scale stays full scale; 10, 12 and 14 bits are for pgm and raw
bytes. 'tolk demosaic' makes a picture of it again, and 'tolk compare' tells how near that is.)";

inline constexpr char kSelftestText[] = R"(
Examples:
  tolk selftest --library build/lib/libtolkcolor.so
  tolk selftest 'tolkRGBTo*_8u*' --verbose --library ./libtolkcolor.so

Without options, the library that the loader chose. Calls every function over fixed images of many sizes, steps
and contents, with good arguments and bad, and compares statuses and all bytes, also those around the images,
with a table. It comes from plain code that was written apart from the library.

Most functions are judged by a digest of all that. Of those that take the processor's estimate of a
reciprocal, and of gamma in floating point, whose power has a stated accuracy, a digest judges all other bytes,
and the results of one call have to lie within the bounds that the function's text states. So it is where the
C library's pow gives other bits than usual.

Exit status: 0 if all is as defined, else 1; a function that crashes is named.)";

}  // namespace tolk
