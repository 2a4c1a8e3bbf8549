/* TolkColor: image colour-conversion primitives for 64-bit x86. C11 and C++.
 *
 * Every function is flat: it takes caller-owned memory, converts one rectangular region, and returns a status. It keeps
 * no state, starts no thread, allocates nothing and prints nothing, and may run on any number of threads at once over
 * different destinations. Every output bit is defined, except where a family states an accuracy, and is the same in
 * every build and, except where a family says that it takes the processor's reciprocal estimate, on every processor.
 *
 * Images. A pointer addresses the first sample of the region; a step is the distance in bytes from one row to the next,
 * so row y is at base + y * step, computed in 64 bits. Unless a family says that it tests steps, a step may be any
 * value: tight, padded, odd, zero or negative. Nothing needs alignment. Unless a function says so, no byte outside the
 * region's rows is read or written. Source and destination must not overlap, except in the in-place (I) forms.
 *
 * Names. tolk<From>To<To>[_variant]_<sample types>_<layouts>: colour spaces name their samples in memory order (BGR has
 * blue first). Layouts: C3 three interleaved channels; C4 four, the fourth computed, copied or set; AC4 four, the
 * fourth an alpha position that the operation does not compute; P2 luma and interleaved chroma planes; P3 three planes.
 * Two joined layouts are source then destination. R: works on a region with steps. I: in place, on one image. _L: the
 * same with a size and steps of 64 bits.
 *
 * Blocks and tails. Where a family gives two formulas, columns below `width & ~(N - 1)` of every row use the block
 * formula and the rest the tail formula. Both are part of the definition: a sample may depend on its column.
 *
 * Floating point. Where a formula is one of floats, each operation is rounded on its own, to nearest, and denormal
 * numbers are kept. Functions that write integers do so in every thread: where they calculate in floats, they set its
 * rounding mode and its flags for denormal numbers, and restore the caller's. Functions that write floats calculate in
 * the thread's state, and their results are defined for the one that programs start in.
 *
 * Errors. The tests run in the stated order and the first fault is returned; nothing has been written then.
 */
#ifndef TOLKCOLOR_H
#define TOLKCOLOR_H

#include <stdint.h>

#if defined(__GNUC__)
#define TOLK_API __attribute__((visibility("default")))
#else
#define TOLK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Result of every image function: zero is success, a negative value an error (nothing was written), a positive value a
 * warning (the work was done as the family defines it). */
typedef enum TolkStatus {
  tolkStatusOk = 0,                /**< success */
  tolkStatusNotProcessed = 1,      /**< warning: nothing was computed (tone mapping) */
  tolkStatusOddSize = 35,          /**< warning: not a whole number of chroma groups; the whole groups were converted */
  tolkStatusBadEnum = -5,          /**< an enumeration argument is out of range */
  tolkStatusBadSize = -6,          /**< width or height is out of range */
  tolkStatusNullPointer = -8,      /**< a required pointer is null */
  tolkStatusContextMismatch = -13, /**< a generator state carries a wrong tag */
  tolkStatusBadStep = -16,         /**< a row step is out of range */
  tolkStatusBadChannelType = -47,  /**< channel-layout code not accepted by the buffer-size query */
  tolkStatusGammaRange = -49,      /**< vMax is not above vMin */
  tolkStatusBadLevels = -54,       /**< reduction level count out of range */
  tolkStatusBadNoise = -55,        /**< noise percentage out of range */
  tolkStatusBadDitherType = -224,  /**< dither type out of range */
  tolkStatusSizeOverflow = -232    /**< a 64-bit dimension exceeds what the call can process */
} TolkStatus;

/** Region size in pixels; subsampled layouts count luma pixels. */
typedef struct TolkSize {
  int32_t width;
  int32_t height;
} TolkSize;

/** Region size in pixels of the _L forms. */
typedef struct TolkSizeL {
  int64_t width;
  int64_t height;
} TolkSizeL;

/** Rectangle of sites in the coordinates of a whole mosaic. */
typedef struct TolkRect {
  int32_t x;
  int32_t y;
  int32_t width;
  int32_t height;
} TolkRect;

/** Rectangle of the _L forms. */
typedef struct TolkRectL {
  int64_t x;
  int64_t y;
  int64_t width;
  int64_t height;
} TolkRectL;

/** Identity of the library that the process has loaded. */
typedef struct TolkLibraryVersion {
  int32_t versionMajor;
  int32_t versionMinor;
  int32_t versionPatch;
  uint32_t revision;
  char targetCode[8];      /**< processor target, NUL-terminated */
  const char* libraryName; /**< product name with its target code */
  const char* versionText; /**< the three numbers and the revision in hexadecimal */
  const char* buildDate;
} TolkLibraryVersion;

/* ==== Version ==== */

/** Returns the constant version record: never null, the same pointer at each call, valid while the library is loaded.
 * It belongs to the library; do not write through it or free it. */
TOLK_API const TolkLibraryVersion* tolkGetLibVersion(void);

/* ==== YCbCr at full resolution ==== */

/** Full-range 8-bit RGB or BGR to and from studio-range YCbCr without subsampling: Y 16 to 235, Cb and Cr 16 to 240
 * about 128. The matrix is that of ITU-R BT.601, except in the 709CSC functions, which use ITU-R BT.709.
 *
 * Fixed point: each function has its own scale and rounding. In these terms, divisions rounding toward minus infinity,
 * rnd8(x, c) = (x * c + 128) / 256 and h(a, c) = a * c / 65536, with Yb = (Y - 16) * 128, Cbb = (Cb - 128) * 128,
 * Crb = (Cr - 128) * 128 and every result limited to 0..255:
 *
 * - forward A: Y = (rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + 1056) / 64,
 *   Cb = (rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)) + 8194) / 64,
 *   Cr = (rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029)) + 8194) / 64
 * - forward B: Y = (R * 16843 / 256 + G * 33030 / 256 + B * 6423 / 256 + 128) / 256 + 16,
 *   Cb = (R * -9699 / 512 + G * -19071 / 512 + B * 28770 / 512 + 64) / 128 + 128,
 *   Cr = (R * 28770 / 512 + G * -24117 / 512 + B * -4653 / 512 + 64) / 128 + 128
 * - forward T: Y = (16843 R + 33030 G + 6423 B + 1081344) / 65536,
 *   Cb = (-9699 R - 19071 G + 28770 B + 8421376) / 65536, Cr = (28770 R - 24117 G - 4653 B + 8421376) / 65536
 * - inverse A, with y = h(Yb, 4769): R = (y + h(Crb, 6537) + 4) / 8,
 *   G = (y - (h(Cbb, 1605) + h(Crb, 3330)) + 4) / 8, B = (y + h(Cbb, 8263) + 4) / 8
 * - inverse B, with y = h(Yb, 9536): R = (y + h(Crb, 13074)) / 16,
 *   G = (y + h(Cbb, -3203) + h(Crb, -6660)) / 16, B = (y + h(Cbb, 16523)) / 16
 * - inverse C, with y = h(Yb, 9535): R = (y + h(Crb, 13074) + 8) / 16,
 *   G = (y - h(Cbb, 3211) - h(Crb, 6660) + 8) / 16, B = (y + h(Cbb, 16523) + 8) / 16
 * - inverse T: R = (76282 Y + 104593 (Cr - 128) - 1187744) / 65536,
 *   G = (76282 Y - 25689 (Cb - 128) - 53279 (Cr - 128) - 1187744) / 65536,
 *   B = (76282 Y + 132184 (Cb - 128) - 1187744) / 65536
 * - inverse U: inverse T with 76284, 104595, 25690, 53281, 132186 and 1187776; inverse N: inverse U with 1220544
 * - inverse 709, with y = h(Yb, 9535): R = (y + h(Crb, 14688) + 8) / 16, B = (y + h(Cbb, 17326) + 8) / 16 and,
 *   in P3C3R, G = (y + h(Cbb, -1745) + h(Crb, -4375) + 8) / 16 or,
 *   in P3C4R, G = (y - h(Cbb, 1745) - h(Crb, 4375) + 8) / 16
 *
 * A round trip need not give the source back. Planes are in the order of the name (dst[0] is Y, src[0] is R or Y); all
 * planes of a side share one step. Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under 1. Pointers are tested first, then the size; where a function says so, planes are tested after the
 * size.
 */
/** Forward A in `width & ~15` columns, then forward T. */
TOLK_API TolkStatus tolkRGBToYCbCr_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** Forward A in `width & ~15` columns, whose fourth byte is set to 0; then forward T, whose fourth byte is left as it
 * was. The source's fourth byte is not used. */
TOLK_API TolkStatus tolkRGBToYCbCr_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** Forward B in `width & ~7` columns, then forward T. */
TOLK_API TolkStatus tolkRGBToYCbCr_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                            TolkSize roi);
/** Forward B in `width & ~7` columns, then forward T. The source's fourth byte is not used. */
TOLK_API TolkStatus tolkRGBToYCbCr_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                             int32_t dstStep, TolkSize roi);
/** Forward B in `width & ~15` columns, then forward T. Planes are tested after the size. */
TOLK_API TolkStatus tolkRGBToYCbCr_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkYCbCrToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkYCbCrToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkYCbCrToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** Inverse N in every column. The destination's fourth byte is left as it was. */
TOLK_API TolkStatus tolkYCbCrToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** Inverse B in `width & ~3` columns, then inverse U. Planes are tested after the size. */
TOLK_API TolkStatus tolkYCbCrToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi);
/** Inverse C in `width & ~7` columns, then inverse T; the fourth byte is alpha. Planes are tested after the size. */
TOLK_API TolkStatus tolkYCbCrToRGB_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi, uint8_t alpha);
/** Inverse C in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCrToBGR_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi, uint8_t alpha);
/** Inverse 709 in every column. */
TOLK_API TolkStatus tolkYCbCrToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                   int32_t dstStep, TolkSize roi);
/** Inverse 709 in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCrToBGR_709CSC_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                   int32_t dstStep, TolkSize roi, uint8_t alpha);

/* ==== RGB and BGR to 4:2:2 ==== */

/** Full-range 8-bit RGB or BGR to 4:2:2 YCbCr: luma of each pixel, and one chroma pair for pixels 2k and 2k + 1 of a
 * row. The matrix is that of ITU-R BT.601 in studio range (Y 16 to 235, Cb and Cr 16 to 240 about 128), except in the
 * 709HDTV functions, which use ITU-R BT.709 with luma at full scale and limit every sample to 1..254.
 *
 * Packed pairs have four bytes: YCbCr422 is Y0 Cb Y1 Cr, YCrCb422 is Y0 Cr Y1 Cb, CbYCr422 is Cb Y0 Cr Y1. Planes:
 * dst[0] is Y, dst[1] Cb, dst[2] Cr, each with its own step; Cb and Cr have one sample a pair. src[0..2] are R, G, B
 * and share one step. A source's fourth byte is not used.
 *
 * Formulas, divisions rounding toward minus infinity, with rnd8 and forward A and T of YCbCr at full resolution,
 * rnd9(s, c) = (s * c + 256) / 512, mu8(x, c) = x * c / 256, ms(s, c) = s * c / 1024, pair sums Rs = R0 + R1 (Gs and Bs
 * alike) and every result limited to 0..255, in the HDTV forms to 1..254:
 *
 * - pair block: Y of forward A, Cb = (rnd9(Bs, 7193) - (rnd9(Rs, 2425) + rnd9(Gs, 4768)) + 8224) / 64,
 *   Cr = (rnd9(Rs, 7193) - (rnd9(Bs, 1163) + rnd9(Gs, 6029)) + 8224) / 64
 * - pair tail 1: Y of forward T, Cb = (-9699 Rs - 19071 Gs + 28770 Bs + 16793600) / 131072,
 *   Cr = (28770 Rs - 24117 Gs - 4653 Bs + 16793600) / 131072
 * - pair tail 2: pair tail 1 with 16842752 for 16793600, and with Y1 = (16843 R + 33030 G + 6423 B + 1048576) / 65536,
 *   so that the second luma of a pair is cut while the first is rounded
 * - shift block: Y = (mu8(R, 8422) + mu8(G, 16515) + mu8(B, 3212) + 2112) / 128,
 *   Cb = (ms(Rs, -9699) + ms(Gs, -19071) + ms(Bs, 28770) + 16448) / 128,
 *   Cr = (ms(Rs, 28770) + ms(Gs, -24117) + ms(Bs, -4653) + 16448) / 128
 * - shift tail: Y of forward T, Cb = (-9699 Rs - 19071 Gs + 28770 Bs + 16842752) / 131072,
 *   Cr = (28770 Rs - 24117 Gs - 4653 Bs + 16842750) / 131072
 * - filter block: Y of forward A, Cb = (Cb0 + Nb + Nb' + 16448) / 128, Cr = (Cr0 + Nr + Nr' + 16448) / 128 with
 *   Cb0 = rnd8(B0, 7193) - (rnd8(R0, 2425) + rnd8(G0, 4768)), Nb = rnd8(B1, 3596) - (rnd8(R1, 1212) + rnd8(G1, 2384)),
 *   Cr0 = rnd8(R0, 7193) - (rnd8(B0, 1163) + rnd8(G0, 6029)), Nr = rnd8(R1, 3596) - (rnd8(B1, 582) + rnd8(G1, 3015)),
 *   Nb' and Nr' being the Nb and Nr of the pair before, 0 in the first pair of a row
 * - filter tail: Y of forward T, Cb = (Qb0 / 2 + Cb' + Qb1 / 4 + 8421375) / 65536,
 *   Cr = (Qr0 / 2 + Cr' + Qr1 / 4 + 8421375) / 65536 with Qb = -9699 R - 19071 G + 28770 B and
 *   Qr = 28770 R - 24117 G - 4653 B of pixels 0 and 1 of the pair, Cb' and Cr' being Qb1 / 4 and Qr1 / 4 of the pair
 *   before, 512 Nb and 512 Nr after a pair of the block, 0 in the first pair of a row
 * - HDTV blocks: Y = (mu8(R, 6980) + mu8(G, 23429) + mu8(B, 2359) + 64) / 128; signed:
 *   Cb = (ms(Rs, -3834) + ms(Gs, -12911) + ms(Bs, 16744) + 8224) / 64,
 *   Cr = (ms(Rs, 16744) + ms(Gs, -15204) + ms(Bs, -1540) + 8224) / 64; unsigned:
 *   Cb = (ms(Bs, 16744) - (ms(Rs, 3834) + ms(Gs, 12911)) + 8224) / 64,
 *   Cr = (ms(Rs, 16744) - (ms(Gs, 15204) + ms(Bs, 1540)) + 8224) / 64
 * - HDTV tail: Y = (13959 R + 46858 G + 4719 B + 32768) / 65536,
 *   Cb = (-7668 Rs - 25821 Gs + 33489 Bs + 16842752) / 131072,
 *   Cr = (33489 Rs - 30409 Gs - 3080 Bs + 16842750) / 131072
 *
 * Tails work on the whole pairs after the block's columns. An odd width is no warning: of its last pixel nothing is
 * written, except in the CbYCr422 functions, which write bytes 0 and 1 of its group: Y0 of the tail, and Cb of forward
 * T or, in the 709HDTV functions, Cb = (-7668 R - 25821 G + 33489 B + 8421376) / 65536, from that pixel alone.
 *
 * Any height from 1 and any width from 1, or from 2 where a function says so. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under the least. Pointers are tested first, then the size; where a function says so, planes are tested
 * after the size.
 */
/** Pair block in `width & ~7` columns, then pair tail 2. */
TOLK_API TolkStatus tolkRGBToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 2. Planes are tested after the size. */
TOLK_API TolkStatus tolkRGBToYCbCr422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 2. */
TOLK_API TolkStatus tolkRGBToYCrCb422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 2. Planes are tested after the size. */
TOLK_API TolkStatus tolkRGBToYCrCb422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 1. Width from 2. */
TOLK_API TolkStatus tolkRGBToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 1. Width from 2. */
TOLK_API TolkStatus tolkBGRToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 1. Width from 2. */
TOLK_API TolkStatus tolkBGRToYCbCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 1. Width from 2. */
TOLK_API TolkStatus tolkBGRToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Pair block in `width & ~7` columns, then pair tail 1. Width from 2. */
TOLK_API TolkStatus tolkBGRToYCbCr422_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi);
/** Filter block in `width & ~7` columns, then filter tail: chroma weighs 1/4, 1/2, 1/4 about the even pixel of a pair,
 * and the first pair of a row counts 0 for its left neighbour. */
TOLK_API TolkStatus tolkRGBToCbYCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Shift block in `width & ~7` columns, then shift tail. */
TOLK_API TolkStatus tolkBGRToCbYCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi);
/** HDTV block, signed, in `width & ~7` columns, then HDTV tail. */
TOLK_API TolkStatus tolkBGRToCbYCr422_709HDTV_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                        int32_t dstStep, TolkSize roi);
/** HDTV block, unsigned, in `width & ~15` columns, then HDTV tail. */
TOLK_API TolkStatus tolkBGRToCbYCr422_709HDTV_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                       int32_t dstStep, TolkSize roi);

/* ==== RGB and BGR to 4:2:0 and 4:1:1 ==== */

/** Full-range 8-bit RGB or BGR to 4:2:0 or 4:1:1 YCbCr: luma of each pixel, and one chroma pair for a group of four
 * pixels, which weigh the same. A group is 2 columns of 2 rows in 4:2:0, 4 columns of one row in 4:1:1. The matrix is
 * that of ITU-R BT.601 in studio range (Y 16 to 235, Cb and Cr 16 to 240 about 128); that of ITU-R BT.709 in studio
 * range in the 709CSC functions; ITU-R BT.709 with luma at full scale and every sample limited to 1..254 in 709HDTV.
 *
 * P3: dst[0] is Y, dst[1] Cb, dst[2] Cr, in the YCrCb functions dst[1] Cr and dst[2] Cb, each with its own step. P2:
 * dstY, and dstCbCr with Cb then Cr of each group. A source's fourth byte is not used.
 *
 * Formulas, divisions rounding toward minus infinity, with rnd8 and forward T of YCbCr at full resolution,
 * rnd10(s, c) = (s * c + 512) / 1024, mu8(x, c) = x * c / 256, m11(s, c) = s * c / 2048, sums Rs, Gs, Bs over a group
 * and every result limited to 0..255, in block W and tail W to 1..254:
 *
 * - block H with luma bias L: Y = (rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + L) / 64,
 *   Cb = (rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768)) + 8194) / 64,
 *   Cr = (rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029)) + 8194) / 64
 * - block 411 H: Y = (rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606)) / 64 + 16,
 *   Cb = (rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768))) / 64 + 128,
 *   Cr = (rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029))) / 64 + 128
 * - block U: Y = (mu8(R, 8422) + mu8(G, 16515) + mu8(B, 3212) + 2112) / 128,
 *   Cb = (m11(Bs, 28770) - (m11(Rs, 9699) + m11(Gs, 19071)) + 16400) / 128,
 *   Cr = (m11(Rs, 28770) - (m11(Gs, 24117) + m11(Bs, 4653)) + 16400) / 128
 * - tail 601: Y of forward T, Cb = (-9699 Rs - 19071 Gs + 28770 Bs + 33587200) / 262144,
 *   Cr = (28770 Rs - 24117 Gs - 4653 Bs + 33587200) / 262144
 * - block V: Y = (mu8(R, 5997) + mu8(G, 20120) + mu8(B, 2032) + 2112) / 128,
 *   Cb = (m11(Bs, 28770) - (m11(Rs, 6619) + m11(Gs, 22151)) + 16400) / 128,
 *   Cr = (m11(Rs, 28770) - (m11(Gs, 26149) + m11(Bs, 2621)) + 16400) / 128
 * - tail 709: Y = (11993 R + 40239 G + 4063 B + 1081344) / 65536,
 *   Cb = (-6619 Rs - 22151 Gs + 28770 Bs + 33587200) / 262144,
 *   Cr = (28770 Rs - 26149 Gs - 2621 Bs + 33587200) / 262144
 * - block W: Y = (mu8(R, 6980) + mu8(G, 23429) + mu8(B, 2359) + 64) / 128,
 *   Cb = (m11(Bs, 16744) - (m11(Rs, 3834) + m11(Gs, 12911)) + 8224) / 64,
 *   Cr = (m11(Rs, 16744) - (m11(Gs, 15204) + m11(Bs, 1540)) + 8224) / 64
 * - tail W: Y = (13959 R + 46858 G + 4719 B + 32768) / 65536,
 *   Cb = (-7668 Rs - 25821 Gs + 33489 Bs + 33587200) / 262144,
 *   Cr = (33489 Rs - 30409 Gs - 3080 Bs + 33587200) / 262144
 *
 * Only whole groups are converted: of a last odd column or row in 4:2:0, and of the last `width & 3` columns in 4:1:1,
 * neither luma nor chroma is written, and the status is tolkStatusOddSize. Steps are not tested.
 *
 * The least size is 2 by 2, 1 by 1 in the functions that say so, and 4 by 1 in 4:1:1. A size of 1 in either dimension
 * that is not an error writes nothing in 4:2:0 and gives tolkStatusOddSize.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under the least; tolkStatusOddSize, after the work, for a width or height that is odd (4:2:0) or a width
 * that is no multiple of 4 (4:1:1). Pointers are tested first, then the size; where a function says so, planes are
 * tested after the size.
 */
/** Block H with bias 1056 in `width & ~7` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Block H with bias 1056 in `width & ~7` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCrCb420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Block H with bias 1026 in `width & ~7` columns, then tail 601. Any size from 1 by 1. */
TOLK_API TolkStatus tolkBGRToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                               uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** Block H with bias 1026 in `width & ~7` columns, then tail 601. Any size from 1 by 1. */
TOLK_API TolkStatus tolkBGRToYCbCr420_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                                uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** Block H with bias 1026 in `width & ~7` columns, then tail 601. Any size from 1 by 1. */
TOLK_API TolkStatus tolkRGBToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                               uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** Block H with bias 1026 in `width & ~7` columns, then tail 601. Any size from 1 by 1. */
TOLK_API TolkStatus tolkRGBToYCbCr420_8u_C4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                               uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** Block H with bias 1026 in `width & ~7` columns, then tail 601. Any size from 1 by 1. Planes are tested after the
 * size. */
TOLK_API TolkStatus tolkRGBToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Block U in `width & ~3` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCbCr420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi);
/** Block U in `width & ~3` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi);
/** Block U in `width & ~3` columns, then tail 601. */
TOLK_API TolkStatus tolkRGBToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi);
/** Block V in `width & ~3` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCbCr420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi);
/** Block V in `width & ~3` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCbCr420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                       const int32_t dstStep[3], TolkSize roi);
/** Block V in `width & ~3` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCrCb420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi);
/** Block V in `width & ~3` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCrCb420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                       const int32_t dstStep[3], TolkSize roi);
/** Block V in `width & ~7` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCbCr420_709CSC_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                      int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                      TolkSize roi);
/** Block V in `width & ~7` columns, then tail 709. */
TOLK_API TolkStatus tolkBGRToYCbCr420_709CSC_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                       int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                       TolkSize roi);
/** Block W in `width & ~3` columns, then tail W. */
TOLK_API TolkStatus tolkBGRToYCbCr420_709HDTV_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                        const int32_t dstStep[3], TolkSize roi);
/** Block 411 H in `width & ~15` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCbCr411_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi);
/** Block U in `width & ~15` columns, then tail 601. */
TOLK_API TolkStatus tolkBGRToYCbCr411_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi);

/* ==== 4:2:2 to RGB and BGR ==== */

/** 8-bit YCbCr 4:2:2 to full-range RGB or BGR: Y 16 to 235, Cb and Cr 16 to 240 about 128 by the matrix of ITU-R
 * BT.601, except in the 709HDTV functions, which use ITU-R BT.709 with luma of full scale. Both pixels of a pair take
 * the pair's chroma as it stands.
 *
 * Sources. C2: a row is 2 * width bytes in pairs of four, Y0 Cb Y1 Cr for YCbCr422, Y0 Cr Y1 Cb for YCrCb422 and
 * Cb Y0 Cr Y1 for CbYCr422. P3: planes Y, Cb, Cr, the chroma planes with `width >> 1` samples a row, each plane with
 * its own step. A P3 destination is R, G, B with one step for the three planes.
 *
 * Fixed point: inverse A, B, T and U, and the terms, are those of YCbCr at full resolution. Further forms, divisions
 * rounding toward minus infinity and every result limited to 0..255:
 *
 * - inverse D1, with y = h(128 Y, 4768): R = (y + h(128 Cr, 6537) - 1783) / 8,
 *   G = (y - (h(128 Cb, 1606) + h(128 Cr, 3330) - 1085)) / 8, B = (y + h(128 Cb, 8262) - 2214) / 8
 * - inverse E, with y = h(Yb, 4767): R = (y + h(Crb, 6537)) / 8,
 *   G = (y - (h(Cbb, 1605) + h(Crb, 3330))) / 8, B = (y + h(Cbb, 8261)) / 8
 * - inverse H: R = (16 Y + h(Crb, 12616) + 8) / 16,
 *   G = (16 Y - h(Cbb, 1499) - h(Crb, 3760) + 8) / 16, B = (16 Y + h(Cbb, 14877) + 8) / 16
 * - inverse N2: R = (76284 Y + 104595 Cr - 14608761) / 65536,
 *   G = (76284 Y - 25690 Cb - 53281 Cr + 8887730) / 65536, B = (76284 Y + 132186 Cb - 18140365) / 65536
 *
 * The colour order of a name can change the arithmetic, not only the order of the bytes.
 *
 * Odd widths give no warning. The last column of a C2 source is written from its own luma and the one chroma byte of
 * its pair that lies inside the row; the other chroma sample is that of the pair before or, at width 1, the same byte
 * serves as both. The last column of a P3 source is left as it was. The fourth byte of every pixel that a C4 function
 * writes is alpha.
 *
 * Any width and height from 1. Steps are not tested. Returns tolkStatusOk; tolkStatusNullPointer for a null pointer,
 * pointer array or plane; tolkStatusBadSize for a width or height under 1. Pointers and planes are tested first, then
 * the size.
 */
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkYCbCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkYCbCr422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T. */
TOLK_API TolkStatus tolkCbYCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse T; the fourth byte is alpha. */
TOLK_API TolkStatus tolkCbYCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, uint8_t alpha);
/** Inverse H in every column. */
TOLK_API TolkStatus tolkCbYCr422ToBGR_709HDTV_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                       int32_t dstStep, TolkSize roi);
/** Inverse H in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkCbYCr422ToBGR_709HDTV_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                       int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Inverse D1 in `width & ~7` columns, then inverse U; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, uint8_t alpha);
/** Inverse E in `width & ~7` columns, then inverse N2; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, uint8_t alpha);
/** Inverse D1 in `width & ~7` columns, then inverse U. */
TOLK_API TolkStatus tolkYCrCb422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Inverse D1 in `width & ~7` columns, then inverse U. */
TOLK_API TolkStatus tolkYCrCb422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi);
/** Inverse D1 in `width & ~7` columns, then inverse U; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCrCb422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, uint8_t alpha);
/** Inverse D1 in `width & ~7` columns, then inverse U; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCrCb422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, uint8_t alpha);
/** Inverse B in `width & ~3` columns, then inverse N2. */
TOLK_API TolkStatus tolkYCbCr422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               int32_t dstStep, TolkSize roi);
/** Inverse B in `width & ~3` columns, then inverse N2. */
TOLK_API TolkStatus tolkYCrCb422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               int32_t dstStep, TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse N2. */
TOLK_API TolkStatus tolkYCbCr422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse N2. */
TOLK_API TolkStatus tolkYCbCr422ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);

/* ==== 4:2:0 and 4:1:1 to RGB and BGR ==== */

/** 8-bit YCbCr 4:2:0 and 4:1:1 to full-range RGB or BGR: Y 16 to 235, Cb and Cr 16 to 240 about 128 by the matrix of
 * ITU-R BT.601; the 709CSC function uses ITU-R BT.709, the 709HDTV function ITU-R BT.709 with luma of full scale. All
 * pixels of a group take the group's chroma as it stands, except in the Filter function: 2 by 2 pixels in 4:2:0, four
 * in a row in 4:1:1.
 *
 * Sources. P3: planes Y, Cb, Cr or, for YCrCb420, Y, Cr, Cb, each with its own step. P2: a luma plane and a plane of
 * chroma pairs, Cb first or, for YCrCb420, Cr first. The chroma of 4:2:0 has `width >> 1` samples or pairs in each of
 * `height >> 1` rows, that of 4:1:1 `width >> 2` samples in each row.
 *
 * Fixed point: inverse A, C, U and 709, and the terms, are those of YCbCr at full resolution, inverse D1 and H those of
 * 4:2:2 to RGB and BGR. Further forms, divisions rounding toward minus infinity and every result limited to 0..255:
 *
 * - inverse D2, with y = h(128 Y, 4769): R = (y + h(128 Cr, 6537) - 1779) / 8,
 *   G = (y - (h(128 Cb, 1605) + h(128 Cr, 3330) - 1089)) / 8, B = (y + h(128 Cb, 8263) - 2211) / 8
 * - inverse D3: inverse D1 with -1779 in R, -1084 in G and -2210 in B
 * - inverse F, with y = h(Yb, 9536): R = (y + h(Crb, 13074) + 8) / 16,
 *   G = (y + h(Cbb, -3203) + h(Crb, -6660) + 8) / 16, B = (y + h(Cbb, 16523) + 8) / 16
 * - inverse V: R = (76294 Y + 104595 Cr - 14576096) / 65536,
 *   G = (76294 Y - 25625 Cb - 53281 Cr + 8912032) / 65536, B = (76294 Y + 132186 Cb - 18107744) / 65536
 *
 * 4:2:0 converts whole groups: the last column of an odd width and the last row of an odd height are left as they were,
 * the fourth byte included, and tolkStatusOddSize is returned; a width or height of 1 writes nothing. 4:1:1 writes
 * every column: those after the last whole group take that group's chroma. The fourth byte of every pixel that a C4
 * function writes is alpha.
 *
 * Any width and height from 1; in 4:1:1 any width from 4. Steps are not tested. Returns tolkStatusOk; tolkStatusOddSize
 * (4:2:0 only); tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width or
 * height under the least. Pointers and planes are tested first, then the size, except where a function says otherwise.
 */
/** Inverse A in `width & ~7` columns, then inverse U. */
TOLK_API TolkStatus tolkYCbCr420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Inverse A in `width & ~7` columns, then inverse U. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Inverse D2 in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Inverse D2 in every column. */
TOLK_API TolkStatus tolkYCbCr420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** Inverse D2 in every column. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** Inverse D2 in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                               uint8_t alpha);
/** Inverse D2 in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                               uint8_t alpha);
/** Inverse D3 in every column. */
TOLK_API TolkStatus tolkYCrCb420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** Inverse D3 in every column. */
TOLK_API TolkStatus tolkYCrCb420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** Inverse D3 in every column; the fourth byte is alpha. The size is tested before the pointers. */
TOLK_API TolkStatus tolkYCrCb420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                               uint8_t alpha);
/** Inverse D3 in every column; the fourth byte is alpha. The size is tested before the pointers. */
TOLK_API TolkStatus tolkYCrCb420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                               int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                               uint8_t alpha);
/** Inverse C in `width & ~7` columns, then inverse U; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCrCb420ToRGB_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Inverse A in every column, the fourth byte alpha, on chroma interpolated vertically for rows sited between the luma
 * rows: row y uses (3 * near + far + 2) / 4, where near is chroma row `y >> 1` and far the row above it for even y,
 * below it for odd y, or near itself where the whole chroma rows end. Horizontally chroma is repeated. */
TOLK_API TolkStatus tolkYCrCb420ToBGR_Filter_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Inverse 709, with G as in tolkYCbCrToBGR_709CSC_8u_P3C3R, in every column. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi);
/** Inverse H in every column; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr420ToBGR_709HDTV_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                       uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Inverse F in `width & ~3` columns, then inverse V. */
TOLK_API TolkStatus tolkYCbCr411ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Inverse F in `width & ~3` columns, then inverse V; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYCbCr411ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi, uint8_t alpha);

/* ==== RGB and YUV ==== */

/** 8-bit RGB or BGR to and from analog-style YUV: full-scale Y with the luma weights of ITU-R BT.601 (0.299, 0.587,
 * 0.114), U = 0.492 (B - Y) + 128 and V = 0.877 (R - Y) + 128. There is no studio range. U is 16..239, V saturates at
 * strong reds and cyans.
 *
 * With divisions rounding toward minus infinity, h(a, c) = a * c / 65536, u = U - 128, v = V - 128 and every result
 * limited to 0..255:
 *
 * - forward B: Y = (R * 256 * 19595 / 65536 + G * 256 * 38469 / 65536 + B * 256 * 7471 / 65536) / 256,
 *   U = (h(128 R, -4816) + h(128 G, -9469) + h(128 B, 14286)) / 64 + 128,
 *   V = (h(128 R, 20152) + h(128 G, -16875) + h(128 B, -3276)) / 64 + 128
 * - forward S, with t = 19595 R + 38470 G + 7471 B: Y = t / 65536,
 *   U = (65536 B - t + 32767) / 65536 * 32244 / 65536 + 128, V = (65536 R - t + 32767) / 65536 * 57475 / 65536 + 128
 * - forward R: forward S with Y = (t + 32768) / 65536 and with 32768 for 32767 in U and V
 * - forward P: Y = (19595 R + 38469 G + 7471 B) / 65536, U = (-4816 R - 9469 G + 14286 B) / 32768 + 128,
 *   V = (20152 R - 16875 G - 3276 B) / 32768 + 128
 * - forward N, of a group of n pixels with the sums Rs, Gs, Bs: Y = (9798 R + 19235 G + 3736 B + 16384) / 32768 of each
 *   pixel and, with t = 9798 Rs + 19235 Gs + 3736 Bs and d(s, c) = ((32768 s - t) / (256 n) * c + 16384) / 32768,
 *   U = (d(Bs, 16121) + 64) / 128 + 128, V = (d(Rs, 28737) + 64) / 128 + 128
 * - inverse B: R = Y + h(8 v, 9339), G = Y + h(8 u, -3228) + h(8 v, -4760), B = Y + h(8 u, 16646)
 * - inverse W: R = (2 Y + h(16 v, 9338)) / 2, G = (2 Y + h(16 u, -3227) + h(16 v, -4759)) / 2,
 *   B = (2 Y + h(16 u, 16645)) / 2
 * - inverse R: R = (65536 Y + 74711 v + 32768) / 65536, G = (65536 Y - 25821 u - 38076 v) / 65536,
 *   B = (65536 Y + 133169 u + 32768) / 65536
 * - inverse Q: inverse R with + 32768 in G as well; inverse Z: inverse R without it in any of the three
 *
 * Planes are in the order of the name: Y, U, V and R, G, B. All planes of a side at full resolution share one step; a
 * 4:2:2 or 4:2:0 side in planes has a step for each.
 *
 * 4:2:2: columns 2 i and 2 i + 1 share a chroma sample of the same row, and a last column of an odd width has one of
 * its own: the chroma planes are (width + 1) / 2 wide, and every column is converted. The packed form holds Y0 U Y1 V,
 * and of a last odd column Y and U: its rows are 2 * width bytes.
 *
 * 4:2:0: 2 by 2 pixels share a chroma sample. Whole groups are converted: of an odd width the last column, and of an
 * odd height the last row, is neither read nor written, in luma too; at a width or height of 1 nothing is. Only
 * tolkYUV420ToRGB_8u_P3AC4R reports that.
 *
 * The encoders of 4:2:2 and 4:2:0 use forward N in every column, with the pixels that share a chroma sample as a group:
 * 2, or 1 for a last odd column, and 4. The decoders repeat a chroma sample over its pixels and, where their line says
 * nothing else, use inverse W in `width & ~15` columns, then inverse Z.
 *
 * The forms without R convert a whole image without slack: the steps are 3 * width of a C3 side, width of a Y, R, G or
 * B plane, (width + 1) / 2 of the chroma planes of 4:2:2 and width / 2 of those of 4:2:0.
 *
 * Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under 1; tolkStatusOddSize from the one function that says so. Pointers and planes are tested first, then
 * the size. An array of steps must not be null.
 */
/** Forward B in `width & ~15` columns, then forward S. */
TOLK_API TolkStatus tolkRGBToYUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** Forward B in `width & ~15` columns, then forward S. */
TOLK_API TolkStatus tolkRGBToYUV_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                          TolkSize roi);
/** Forward B in `width & ~15` columns, then forward P. */
TOLK_API TolkStatus tolkRGBToYUV_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** Forward R in every column. The source's fourth byte is not used, the destination's is left as it was. */
TOLK_API TolkStatus tolkRGBToYUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** Forward N with n = 1 in every column; the source's fourth byte is copied to the fourth plane. */
TOLK_API TolkStatus tolkRGBToYUV_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                           TolkSize roi);
/** Inverse B in `width & ~7` columns, then inverse R. */
TOLK_API TolkStatus tolkYUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** Inverse R in every column. The destination's fourth byte is left as it was. */
TOLK_API TolkStatus tolkYUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** Inverse Z in every column. */
TOLK_API TolkStatus tolkYUVToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** Inverse W in `width & ~15` columns, then inverse Z. */
TOLK_API TolkStatus tolkYUVToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** Inverse B in `width & ~7` columns, then inverse Q; the fourth byte is alpha. */
TOLK_API TolkStatus tolkYUVToRGB_8u_C3C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint8_t alpha);
/** Packed 4:2:2; a last odd column writes its Y and U. */
TOLK_API TolkStatus tolkRGBToYUV422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi);
/** Packed RGB to planar 4:2:2. */
TOLK_API TolkStatus tolkRGBToYUV422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi);
/** Planar RGB to planar 4:2:2. */
TOLK_API TolkStatus tolkRGBToYUV422_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi);
/** tolkRGBToYUV422_8u_C3P3R of a whole image without slack. */
TOLK_API TolkStatus tolkRGBToYUV422_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi);
/** tolkRGBToYUV422_8u_P3R of a whole image without slack. */
TOLK_API TolkStatus tolkRGBToYUV422_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi);
/** Packed RGB to planar 4:2:0. */
TOLK_API TolkStatus tolkRGBToYUV420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi);
/** Planar RGB to planar 4:2:0. */
TOLK_API TolkStatus tolkRGBToYUV420_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi);
/** tolkRGBToYUV420_8u_C3P3R of a whole image without slack. */
TOLK_API TolkStatus tolkRGBToYUV420_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi);
/** tolkRGBToYUV420_8u_P3R of a whole image without slack. */
TOLK_API TolkStatus tolkRGBToYUV420_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi);
/** Packed BGR to planar 4:2:0. The source's fourth byte is not used. */
TOLK_API TolkStatus tolkBGRToYUV420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                              const int32_t dstStep[3], TolkSize roi);
/** Inverse W in `width & ~15` columns, then inverse Q. No byte at or past 2 * width of a source row is read: a last odd
 * column takes V of the pair before or, at width 1, its U for both. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi);
/** Planar 4:2:2 to packed RGB. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                             int32_t dstStep, TolkSize roi);
/** Planar 4:2:2 to packed RGB. The destination's fourth byte is left as it was. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                              int32_t dstStep, TolkSize roi);
/** Planar 4:2:2 to planar RGB. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                           int32_t dstStep, TolkSize roi);
/** tolkYUV422ToRGB_8u_P3C3R of a whole image without slack. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi);
/** tolkYUV422ToRGB_8u_P3R of a whole image without slack. */
TOLK_API TolkStatus tolkYUV422ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi);
/** Planar 4:2:0 to packed RGB. */
TOLK_API TolkStatus tolkYUV420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                             int32_t dstStep, TolkSize roi);
/** Planar 4:2:0 to packed BGR. */
TOLK_API TolkStatus tolkYUV420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                             int32_t dstStep, TolkSize roi);
/** Planar 4:2:0 to packed RGB. The destination's fourth byte is left as it was. Returns tolkStatusOddSize, after the
 * work, for an odd width or height. */
TOLK_API TolkStatus tolkYUV420ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                              int32_t dstStep, TolkSize roi);
/** Planar 4:2:0 to planar RGB. */
TOLK_API TolkStatus tolkYUV420ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                           int32_t dstStep, TolkSize roi);
/** tolkYUV420ToRGB_8u_P3C3R of a whole image without slack. */
TOLK_API TolkStatus tolkYUV420ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi);
/** tolkYUV420ToRGB_8u_P3R of a whole image without slack. */
TOLK_API TolkStatus tolkYUV420ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi);

/* ==== v210 and the gamma encoder ==== */

/** Decoders of v210, the packing of 10-bit 4:2:2 video, and an encoder of packed 4:2:2 through the gamma curve.
 *
 * A v210 word holds three 10-bit samples in bits 0..9, 10..19 and 20..29; bits 30 and 31 are ignored. Four words hold
 * six pixels, in the order Cb0 Y0 Cr0 Y1 Cb1 Y2 Cr1 Y3 Cb2 Y4 Cr2 Y5; a chroma pair serves two pixels. The steps of
 * these three functions count elements, not bytes: row y is at src + y * srcStep words and at dst + y * dstStep samples
 * of 16 bits. The width need not be a multiple of six: of a row's last group no word past the last one used is read,
 * and nothing past the width is written.
 *
 * The colour decoders apply the matrix of ITU-R BT.709 without studio range, in single precision, each operation
 * rounded on its own, with u = Cb - 512 and v = Cr - 512: R = Y + 1.54 v, G = (Y + -0.183 u) + -0.459 v,
 * B = Y + 1.816 u. Each value has 0.5 added, is truncated to an integer and limited to its field, R and B to 0..31 and
 * G to 0..63. It is not scaled to the field, so only the bottom of the 10-bit range reaches the fields unsaturated.
 *
 * The encoder is tolkRGBToCbYCr422_8u_C3C2R of the source with each sample replaced by an entry of the 8-bit table of
 * the gamma curve of ITU-R BT.709. With t = i / 255 in double precision, entry i is 4.5 i where t is under 0.018 and
 * 255 (1.099 t^0.45 - 0.099), brought to single precision, elsewhere; each rounded to an integer, ties to even.
 *
 * Any width and height from 1. The steps of the encoder count bytes and are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer; tolkStatusBadSize for a width or height under 1 and,
 * from the decoders, for a step under 1. Pointers are tested first.
 */
/** One word a pixel: B in bits 11..15, G in bits 5..10, R in bits 0..4. */
TOLK_API TolkStatus tolkYUV422v210ToRGB_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                          int32_t dstStep, TolkSize roi);
/** One word a pixel: R in bits 11..15, G in bits 5..10, B in bits 0..4. */
TOLK_API TolkStatus tolkYUV422v210ToBGR_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                          int32_t dstStep, TolkSize roi);
/** The 10-bit Y of each pixel, unchanged. */
TOLK_API TolkStatus tolkYUV422v210ToGray_709HDTV_32u16u_C3C1(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                             int32_t dstStep, TolkSize roi);
/** Gamma table, then tolkRGBToCbYCr422_8u_C3C2R: the same blocks, tail, first pair and last odd column. */
TOLK_API TolkStatus tolkRGBToCbYCr422Gamma_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                    TolkSize roi);

/* ==== 4:2:2 layouts ==== */

/** The packed byte orders and the planar form of 8-bit 4:2:2, one into another. Bytes are moved, none is changed.
 *
 * C2: a row is pairs of four bytes, Y0 Cb Y1 Cr for YCbCr422, Y0 Cr Y1 Cb for YCrCb422 and Cb Y0 Cr Y1 for CbYCr422; a
 * pair serves two pixels. P3: planes Y, Cb, Cr, the chroma planes with `width >> 1` samples a row, each plane with its
 * own step.
 *
 * Whole pairs are converted: of an odd width the last column is neither read nor written, in luma too, and nothing
 * reports that.
 *
 * Any width from 2 and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * under 2 or a height under 1. Pointers and planes are tested first, then the size. Two functions do not test the
 * height: with one of zero or below they write nothing and return tolkStatusOk. An array of steps must not be null.
 */
/** Packed Y0 Cb Y1 Cr to planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                          const int32_t dstStep[3], TolkSize roi);
/** Planes Y, Cb, Cr to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                          int32_t dstStep, TolkSize roi);
/** Packed Y0 Cb Y1 Cr to packed Cb Y0 Cr Y1. */
TOLK_API TolkStatus tolkYCbCr422ToCbYCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi);
/** Planes Y, Cb, Cr to packed Cb Y0 Cr Y1. */
TOLK_API TolkStatus tolkYCbCr422ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** Packed Cb Y0 Cr Y1 to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi);
/** Packed Cb Y0 Cr Y1 to planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** Packed Y0 Cb Y1 Cr to packed Y0 Cr Y1 Cb. The height is not tested. */
TOLK_API TolkStatus tolkYCbCr422ToYCrCb422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi);
/** Planes Y, Cb, Cr to packed Y0 Cr Y1 Cb. The height is not tested. */
TOLK_API TolkStatus tolkYCbCr422ToYCrCb422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** Packed Y0 Cr Y1 Cb to planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCrCb422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);

/* ==== 4:2:2 and 4:2:0 layouts ==== */

/** 8-bit 4:2:2 to and from 4:2:0, and the 4:2:0 layouts one into another. Bytes are moved, none is changed: to 4:2:0
 * the chroma of every even row is kept and that of every odd row is not read, from 4:2:0 each chroma row serves two
 * rows.
 *
 * 4:2:2: C2 and P3 are those of the 4:2:2 layouts. 4:2:0: the chroma has `width >> 1` samples a row and `height >> 1`
 * rows. P3: planes Y, Cb, Cr for YCbCr420 and Y, Cr, Cb for YCrCb420, each with its own step. P2: a luma plane and a
 * plane of byte pairs Cb, Cr; tolkYCbCr422ToYCrCb420_8u_C2P2R alone writes pairs Cr, Cb.
 *
 * Whole groups of 2 by 2 pixels are converted: of an odd width the last column, and of an odd height the last row, is
 * neither read nor written, and nothing reports that.
 *
 * Any width and height from 2. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under 2. Pointers and planes are tested first, then the size, except where a function says otherwise. An
 * array of steps must not be null.
 */
/** Packed Y0 Cb Y1 Cr to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                    int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                    TolkSize roi);
/** Packed Y0 Cb Y1 Cr to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:2 planes Y, Cb, Cr to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);
/** 4:2:2 planes Y, Cb, Cr to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Packed Y0 Cb Y1 Cr to 4:2:0 planes Y and CrCb. */
TOLK_API TolkStatus tolkYCbCr422ToYCrCb420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                    int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                    TolkSize roi);
/** Packed Y0 Cb Y1 Cr to 4:2:0 planes Y, Cr, Cb. */
TOLK_API TolkStatus tolkYCbCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** Packed Y0 Cr Y1 Cb to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCrCb422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** Packed Cb Y0 Cr Y1 to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                    int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                    TolkSize roi);
/** Packed Cb Y0 Cr Y1 to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** Packed Cb Y0 Cr Y1 to 4:2:0 planes Y, Cr, Cb. */
TOLK_API TolkStatus tolkCbYCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y and CbCr to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** 4:2:0 planes Y and CbCr to 4:2:2 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y, Cb, Cr to 4:2:2 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y, Cr, Cb to 4:2:2 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCrCb420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y, Cr, Cb to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkYCrCb420ToYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** 4:2:0 planes Y and CbCr to packed Cb Y0 Cr Y1. */
TOLK_API TolkStatus tolkYCbCr420ToCbYCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** 4:2:0 planes Y, Cr, Cb to packed Cb Y0 Cr Y1. */
TOLK_API TolkStatus tolkYCrCb420ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** 4:2:0 planes Y and CbCr to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                          int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                          TolkSize roi);
/** 4:2:0 planes Y, Cb, Cr to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                          int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** 4:2:0 planes Y and CbCr to 4:2:0 planes Y, Cb, Cr: the chroma is not exchanged, dst[1] takes the first byte of each
 * pair. Tests srcY, srcCbCr and dst, then sizes under 1, then the planes of dst, then sizes of 1. */
TOLK_API TolkStatus tolkYCbCr420ToYCrCb420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y, Cr, Cb to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCrCb420ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);

/* ==== 4:1:1 layouts ==== */

/** 8-bit 4:1:1 to and from 4:2:2 and 4:2:0, and the 4:1:1 layouts one into another. Bytes are moved, none is changed.
 *
 * 4:1:1: the chroma has `width >> 2` samples a row and `height` rows. P3: planes Y, Cb, Cr, each with its own step.
 * P2: a luma plane and a plane of byte pairs Cb, Cr. The layouts of 4:2:2 and of 4:2:0 are those of their sections.
 *
 * Luma is copied. Sample (x, y) of the output chroma is this sample of the source chroma:
 *
 * - 4:2:2 to 4:1:1: (2 x, y); odd samples are not used
 * - 4:1:1 to 4:2:2: (x / 2, y)
 * - 4:1:1 to 4:1:1: (x, y)
 * - 4:1:1 to 4:2:0: (x / 2, 2 y + x % 2), two source rows interleaved sample by sample
 * - 4:2:0 to 4:1:1: (2 x + y % 2, y / 2), a source row split into its even and its odd samples
 *
 * The last two are inverses: they keep every chroma sample once, though not its place in the picture.
 *
 * `width & ~3` columns are converted and, to and from 4:2:0, `height & ~1` rows. The rest is neither read nor written,
 * in luma too, and nothing reports that.
 *
 * Any width from 4; to and from 4:2:0 any height from 2. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * under 4, to and from 4:2:0 for a height under 2, and from tolkYCbCr422ToYCbCr411_8u_C2P3R for a height under 1. The
 * other functions do not test the height: with one of zero or below they write nothing and return tolkStatusOk.
 * Pointers and planes are tested first, then the size. An array of steps must not be null, nor a pointer array that a
 * function does not test.
 */
/** Packed Cb Y0 Cr Y1 to 4:1:1 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** Packed Y0 Cb Y1 Cr to 4:1:1 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr411_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                    int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                    TolkSize roi);
/** Packed Y0 Cb Y1 Cr to 4:1:1 planes Y, Cb, Cr. The height is tested. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:2 planes Y, Cb, Cr to 4:1:1 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);
/** 4:2:2 planes Y, Cb, Cr to 4:1:1 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr422ToYCbCr411_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Packed Y0 Cr Y1 Cb to 4:1:1 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCrCb422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y and CbCr to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi);
/** 4:1:1 planes Y and CbCr to 4:2:2 planes Y, Cb, Cr. The array dst is not tested, its planes are. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr422_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to packed Y0 Cb Y1 Cr. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to 4:2:2 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to packed Y0 Cr Y1 Cb. */
TOLK_API TolkStatus tolkYCbCr411ToYCrCb422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                    int32_t dstStep, TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to 4:2:2 planes Y, Cr, Cb. */
TOLK_API TolkStatus tolkYCbCr411ToYCrCb422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y and CbCr to 4:1:1 planes Y, Cb, Cr. The array dst is not tested, its planes are. */
TOLK_API TolkStatus tolkYCbCr411_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                          int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                          TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to 4:1:1 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                          int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi);
/** 4:1:1 planes Y and CbCr to 4:2:0 planes Y, Cb, Cr. The array dst is not tested, its planes are. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to 4:2:0 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);
/** 4:1:1 planes Y, Cb, Cr to 4:2:0 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr411ToYCbCr420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                  uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** 4:1:1 planes Y and CbCr to 4:2:0 planes Y, Cr, Cb. The array dst is not tested, its planes are. */
TOLK_API TolkStatus tolkYCbCr411ToYCrCb420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y and CbCr to 4:1:1 planes Y, Cb, Cr. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr411_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                    int32_t srcCbCrStep, uint8_t* const dst[3],
                                                    const int32_t dstStep[3], TolkSize roi);
/** 4:2:0 planes Y, Cb, Cr to 4:1:1 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);
/** 4:2:0 planes Y, Cr, Cb to 4:1:1 planes Y and CbCr. */
TOLK_API TolkStatus tolkYCrCb420ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                    int32_t dstCbCrStep, TolkSize roi);

/* ==== Interlace conversions ==== */

/** 8-bit YCbCr between 4:2:2 and 4:2:0 for interlaced pictures, whose even rows are one field and whose odd rows the
 * other: chroma is resampled within each field, so rows of one never mix with rows of the other. Luma is copied.
 *
 * Planes are in the order Y, Cb, Cr, each with its own step; packed CbYCr422 is Cb Y0 Cr Y1. The conversions work on
 * w = `width & ~1` columns and h = `height & ~3` rows, and write nothing of the others, luma included. Each chroma
 * plane is treated by itself, every column and both planes alike, divisions being cut:
 *
 * - down, 4:2:2 to 4:2:0: of source rows s0..s3 = 4g..4g + 3, row 2g = (3 s0 + s2 + 2) / 4 and
 *   row 2g + 1 = (s1 + 3 s3 + 2) / 4
 * - up, 4:2:0 to 4:2:2: of source rows s0..s3 = b..b + 3 with b = (k - 2) / 2, for k = 2, 6 and so on up to h - 6,
 *   row k = (5 s0 + 3 s2 + 4) / 8, row k + 1 = (7 s1 + s3 + 4) / 8, row k + 2 = (s0 + 7 s2 + 4) / 8 and
 *   row k + 3 = (3 s1 + 5 s3 + 4) / 8; rows 0 and 1 are source rows 0 and 1, rows h - 2 and h - 1 the source rows
 *   h / 2 - 2 and h / 2 - 1
 *
 * Width from 2 and height from 4. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * under 2 or a height under 4; tolkStatusOddSize, after the work, for an odd width or a height that is not a multiple
 * of 4. Pointers and planes are tested first, then the size. An array of steps must not be null.
 */
/** Down, planes to planes. */
TOLK_API TolkStatus tolkYCbCr422To420_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                       uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Down, packed to planes. */
TOLK_API TolkStatus tolkCbYCr422ToYCbCr420_Interlace_8u_C2P3R(const uint8_t* src, int32_t srcStep,
                                                              uint8_t* const dst[3], const int32_t dstStep[3],
                                                              TolkSize roi);
/** Up, planes to planes. */
TOLK_API TolkStatus tolkYCbCr420To422_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                       uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Up, planes to packed. */
TOLK_API TolkStatus tolkYCbCr420ToCbYCr422_Interlace_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                              uint8_t* dst, int32_t dstStep, TolkSize roi);

/* ==== Filter conversions ==== */

/** 8-bit 4:2:0 YCbCr to 4:2:2, or to 4:2:0 again, with chroma rows made by a vertical filter.
 *
 * P3 planes are in the order of the name, each with its own step. A P2 source has a luma plane and a plane of chroma
 * pairs Cb Cr. Packed YCbCr422 is Y0 Cb Y1 Cr; Cb is made of the pairs' first bytes and Cr of their second, and so are
 * dst[1] and dst[2].
 *
 * Four taps, in the functions without a stripe: w = `width & ~1` and h = `height & ~7` are converted. Luma is copied.
 * With C[k] row k of a source chroma plane, k limited to 0..h / 2 - 1, chroma row 2j is C[j] and row 2j + 1 is
 * (9 (C[j] + C[j + 1]) - (C[j - 1] + C[j + 2]) + 8) / 16, rounded toward minus infinity and limited to 0..255.
 *
 * Three rows, in the functions with a stripe: w = `width & ~1` and h = `height & ~1` are converted, and luma is
 * filtered too. c is a luma sample, a the one above it and b the one below; n is a chroma sample, p the one above it
 * and m the one below. With avg(u, v) = (u + v + 1) / 2 and all divisions cut:
 *
 * - tri (a + 2c + b) / 4, triPlus (a + 2c + b + 4) / 4 limited to 255, triAvg avg(avg(c, b), avg(c, a)),
 *   triCross avg(avg(a, b), c)
 * - top (3c + b) / 4, topPlus (3c + b + 4) / 4 limited to 255, topAvg avg(avg(c, b), c)
 * - bottom (3c + a) / 4, bottomPlus (3c + a + 4) / 4 limited to 255, bottomAvg avg(avg(c, a), c)
 * - meanNext (n + m) / 2, avgNext avg(n, m), meanPrev (p + n) / 2, avgPrev avg(p, n)
 *
 * The Plus terms raise a flat luma by one. Of two terms with a bar between, the first holds in the luma columns below
 * B = `w & ~31` or, where a row says so, B8 = `w & ~7`, and in the chroma pairs of those columns; the second elsewhere.
 *
 * A picture is converted in one call or stripe by stripe, from the top down: stripe is 1 for the first stripe, 4 for a
 * middle one, 16 for the last, and any value with these three bits set, such as 21, for a whole picture. Any other
 * value converts nothing, and the status is tolkStatusOk. The pointers address the first row of the stripe, its height
 * is the stripe's own, and the stripes of a picture lie in memory one below the other: the last two rows of a stripe
 * need a row of the next one and are finished by the call for that.
 *
 * Hence a call with stripe 4 or 16 writes rows above dst: luma and packed rows -2 and -1, and row -1 of a chroma plane.
 * It reads luma rows -3..-1 and chroma row -1, above the source pointers. With stripe 1 and h = 2,
 * tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R reads luma row 2 and chroma row 1, below the stripe.
 *
 * Width from 2; height from 8 for four taps, from 2 for three rows. Columns and rows that are left out are not written
 * and give no warning. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width
 * or height under the least. Pointers and planes are tested first, then the size, except where a function says
 * otherwise. An array of steps must not be null.
 */
/** Four taps. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                         uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Four taps. src[1] is Cr and src[2] Cb, dst[1] Cb and dst[2] Cr. */
TOLK_API TolkStatus tolkYCrCb420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                         uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Four taps. */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep,
                                                           const uint8_t* srcCbCr, int32_t srcCbCrStep,
                                                           uint8_t* const dst[3], const int32_t dstStep[3],
                                                           TolkSize roi);
/** Three rows; row y takes chroma of row j = y / 2, rounded toward minus infinity.
 *
 * - whole, h = 2: row 0 topPlus, row 1 bottomPlus, both with chroma row 0 as it is
 * - whole, h from 4: row 0 topPlus and row 1 triPlus with meanNext; rows 2..h - 3 triAvg | triPlus with
 *   avgNext | meanNext; row h - 2 triPlus and row h - 1 bottomPlus with meanPrev
 * - stripe 1, h = 2 included: row 0 topAvg | top and row 1 triAvg | tri, both by B8 with avgNext | meanNext by B8;
 *   rows 2..h - 3 triAvg | tri with avgNext | meanNext
 * - stripe 4: rows -2..h - 3 triAvg | tri with avgNext | meanNext
 * - stripe 16: rows -2..h - 3 as in stripe 4; row h - 2 triAvg | tri and row h - 1 bottomAvg | bottom, both by B8
 *   with avgPrev | meanPrev by B8
 */
TOLK_API TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep,
                                                           const uint8_t* srcCbCr, int32_t srcCbCrStep, uint8_t* dst,
                                                           int32_t dstStep, TolkSize roi, uint32_t stripe);
/** Three rows; 4:2:0 stays, and each chroma row is made about its own. Despite the name dst[1] is Cb and dst[2] Cr.
 *
 * - whole, h = 2: luma row 0 topPlus, row 1 bottomPlus; chroma row 0 as it is
 * - whole, h from 4: luma row 0 top, rows 1..h - 2 triAvg | tri, row h - 1 bottom; chroma rows 0..h / 2 - 2
 *   avgNext | meanNext, row h / 2 - 1 meanPrev
 * - stripe 1: luma row 0 topAvg | top, rows 1..h - 3 triCross | tri; chroma rows 0..h / 2 - 2 avgNext | meanNext
 * - stripe 4: luma rows -2..h - 3 triAvg | tri; chroma rows -1..h / 2 - 2 avgNext | meanNext
 * - stripe 16: luma rows -2..h - 2 tri, row h - 1 bottom; chroma rows -1..h / 2 - 2 meanNext, row h / 2 - 1 meanPrev
 *
 * With stripe 1, 4 or 16, alignment changes the result: triAvg is taken for triCross and tri, bottomAvg for bottom,
 * avgNext for meanNext and avgPrev for meanPrev, if srcY, srcCbCr, the planes of dst, srcYStep and h are multiples of
 * 16, srcCbCrStep and the three steps of dst multiples of 32, and w is a multiple of 64.
 *
 * The tests are, in this order: srcY, srcCbCr and the array dst; a width or height under 1; the planes of dst; a width
 * or height of 1.
 */
TOLK_API TolkStatus tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep,
                                                           const uint8_t* srcCbCr, int32_t srcCbCrStep,
                                                           uint8_t* const dst[3], const int32_t dstStep[3],
                                                           TolkSize roi, uint32_t stripe);

/* ==== Plane resampling ==== */

/** 8-bit planar YCbCr between 4:2:0, 4:1:1 and 1620, a layout of one chroma pair for 4 by 4 pixels. Chroma is
 * resampled, luma copied.
 *
 * Planes are in the order Y, Cb, Cr, each with its own step. A chroma plane is width / 4 by height / 4 in 1620,
 * width / 2 by height / 2 in 4:2:0 and width / 4 by height in 4:1:1. Both are treated by the same rule, each by itself.
 *
 * A sample that lies between two others is their mean: (u + v + 1) / 2 in the block columns, (u + v) / 2, cut, in the
 * tail columns. A row of n samples is widened to 2n: sample 2i is source sample i, sample 2i + 1 the mean of source
 * samples i and i + 1, and the last sample repeats the last source sample. The tail of widening is the last
 * (n - 1) % 16 + 1 source columns i.
 *
 * The width is a multiple of 4, and so is the height, except where a function says otherwise; nothing is rounded to
 * such a size. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for any
 * other width or height, or one under 1. Pointers and planes are tested first, then the size. An array of steps must
 * not be null.
 */
/** Row 2k is source row k widened, row 2k + 1 the mean of rows 2k and 2k + 2, with block and tail by the same source
 * columns i as in widening. The last row repeats each sample of the last source row twice, not widened. */
TOLK_API TolkStatus tolkYCbCr1620To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                              uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Every second sample of every second row, the first ones, without averaging. */
TOLK_API TolkStatus tolkYCbCr420To1620_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                              uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Row r is source row 2r widened; the chroma of odd rows is not read. */
TOLK_API TolkStatus tolkYCbCr411To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                             uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);
/** Every second sample of a source row k makes row 2k, and the mean of those of rows k and k + 1 row 2k + 1, with
 * `n & ~31` block columns of n = width / 4; the last row repeats the one above it. The height is even, from 2. At
 * height 2 there is no such repeat: row 1 is the mean of source chroma rows 0 and 1, and that second row is read though
 * it lies below the plane. */
TOLK_API TolkStatus tolkYCbCr420To411_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                             uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi);

/* ==== Gray ==== */

/** A colour image to one channel of gray, and gray to three or four channels, of 8, 16, 32 and 64-bit samples.
 *
 * R, G and B below are channels 0, 1 and 2 in memory order, whatever colours they hold; the fourth channel of an AC4
 * source is not used. Gray is their weighted sum. tolkRGBToGray has the luma weights of ITU-R BT.601, 0.299, 0.587 and
 * 0.114, as single precision holds them (0.29899999499320984 and so on in 64f too); tolkColorToGray takes the weights
 * w0, w1 and w2 from coeffs, and a null coeffs means those of BT.601, except where a function says otherwise. Weights
 * of any size and sign are accepted, and the results of the rules below are not limited unless they say so.
 *
 * - 8u: a weight is the low 16 bits of w * 32768 + 0.5, calculated in double precision and cut toward zero: -0.5
 *   becomes 49153, 2.0 becomes 0, and so does a weight that is not finite. The weights of BT.601 are 9798, 19235 and
 *   3736, whose sum is 32769. With divisions cut:
 *   - block: s = R * w0 / 256 + G * w1 / 256 + B * w2 / 256 + 64, limited to 65535; s / 128, or 0 for s from 32768: a
 *     sum of weights above 1 turns bright pixels black
 *   - tail: (R * w0 + G * w1 + B * w2 + 16384) / 32768, of which the low 8 bits are stored
 * - 16u, 16s: v = (R * w0 + G * w1) + B * w2 in single precision, each operation rounded on its own, where 16s has
 *   32768 added to each sample first. v is rounded to an integer of 32 bits, ties to even; a v that it does not hold,
 *   or that is not a number, becomes -2147483648.
 *   - 16u block: of four integers a, b, c, d with low and high words, a.low | c.high, b.low | a.high, c.low | b.high
 *     and d.low | c.high are stored: outside 0..65535 high words leak into neighbours
 *   - 16u tail: the low 16 bits
 *   - 16s block: the integer minus 32768, limited to -32768..32767
 *   - 16s tail: the low 16 bits of the integer minus 32768
 * - 32f, 64f: (R * w0 + G * w1) + B * w2 in single or double precision, each operation rounded on its own. The sign and
 *   payload of a result that is not a number are not defined.
 *
 * The block columns are `width & ~3`, in 8u of an AC4 source `width & ~7`.
 *
 * tolkGrayToRGB writes the sample to channels 0, 1 and 2, and alpha to channel 3 of C4, all bit for bit.
 *
 * Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1.
 * Pointers are tested first, then the size.
 */
/** 8u, weights of BT.601, of three channels. */
TOLK_API TolkStatus tolkRGBToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** 8u, weights of BT.601, of four channels. */
TOLK_API TolkStatus tolkRGBToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** 16u, weights of BT.601, of three channels. */
TOLK_API TolkStatus tolkRGBToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** 16u, weights of BT.601, of four channels. */
TOLK_API TolkStatus tolkRGBToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                             TolkSize roi);
/** 16s, weights of BT.601, of three channels. */
TOLK_API TolkStatus tolkRGBToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** 16s, weights of BT.601, of four channels. */
TOLK_API TolkStatus tolkRGBToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                             TolkSize roi);
/** 32f, weights of BT.601, of three channels. */
TOLK_API TolkStatus tolkRGBToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi);
/** 32f, weights of BT.601, of four channels. */
TOLK_API TolkStatus tolkRGBToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                             TolkSize roi);
/** 8u, weights of the caller, of three channels. */
TOLK_API TolkStatus tolkColorToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, const float coeffs[3]);
/** 8u, weights of the caller, of four channels. */
TOLK_API TolkStatus tolkColorToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, const float coeffs[3]);
/** 16u, weights of the caller, of three channels. */
TOLK_API TolkStatus tolkColorToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, const float coeffs[3]);
/** 16u, weights of the caller, of four channels. */
TOLK_API TolkStatus tolkColorToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                               TolkSize roi, const float coeffs[3]);
/** 16s, weights of the caller, of three channels. */
TOLK_API TolkStatus tolkColorToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi, const float coeffs[3]);
/** 16s, weights of the caller, of four channels. */
TOLK_API TolkStatus tolkColorToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                               TolkSize roi, const float coeffs[3]);
/** 32f, weights of the caller, of three channels. */
TOLK_API TolkStatus tolkColorToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                              TolkSize roi, const float coeffs[3]);
/** 32f, weights of the caller, of four channels. */
TOLK_API TolkStatus tolkColorToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                               TolkSize roi, const float coeffs[3]);
/** 64f, weights of the caller, of three channels. */
TOLK_API TolkStatus tolkColorToGray_64f_C3C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep,
                                              TolkSize roi, const double coeffs[3]);
/** 64f, weights of the caller, of four channels. coeffs must not be null and is not tested. */
TOLK_API TolkStatus tolkColorToGray_64f_AC4C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep,
                                               TolkSize roi, const double coeffs[3]);
/** Three equal channels. */
TOLK_API TolkStatus tolkGrayToRGB_8u_C1C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** Three equal channels. */
TOLK_API TolkStatus tolkGrayToRGB_16u_C1C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** Three equal channels. */
TOLK_API TolkStatus tolkGrayToRGB_32f_C1C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi);
/** Three equal channels and alpha. */
TOLK_API TolkStatus tolkGrayToRGB_8u_C1C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi, uint8_t alpha);
/** Three equal channels and alpha. */
TOLK_API TolkStatus tolkGrayToRGB_16u_C1C4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi, uint16_t alpha);
/** Three equal channels and alpha. */
TOLK_API TolkStatus tolkGrayToRGB_32f_C1C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi, float alpha);
/** The luma of packed 4:2:2: sample x is byte 2 x of the row, for a last odd column too. */
TOLK_API TolkStatus tolkYCbCr422ToGray_8u_C2C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi);

/* ==== XYZ ==== */

/** Linear RGB to and from CIE XYZ, of 8, 16 and 32-bit samples.
 *
 * The matrices are those of linear light with the primaries of ITU-R BT.709 and a D65 white; no transfer curve is
 * applied. RGB is R, G, B and XYZ is X, Y, Z in channels 0, 1 and 2; the fourth channel of an AC4 source is not used,
 * that of the destination is left as it was. Black is 0 and white the largest integer or 1.0, in 16s -32768 and 32767:
 * there 32768 is added to each sample first and taken off each result, and zeros are a middle gray.
 *
 * Of the rows of a matrix the first gives X or R, and the columns stand for R, G, B or X, Y, Z:
 *
 * - to XYZ: 0.412453 0.35758 0.180423, 0.212671 0.71516 0.072169, 0.019334 0.119193 0.950227
 * - to RGB: 3.240479 -1.53715 -0.498535, -0.969256 1.875991 0.041556, 0.055648 -0.204043 1.057311
 *
 * 8u: a result is a sum of the three products with integers, divided with rounding toward minus infinity and limited to
 * 0..255. The block columns are `width & ~7`, of AC4 `width & ~3`. The two differ: the Y of white is
 * 255 in a block and 254 in the tail.
 *
 * - to XYZ, block: 13515 11717 5912, 6969 23434 2365, 634 3906 31137, divided by 32768
 * - to XYZ, tail: 27030 23434 11824, 13937 46868 4729, 1267 7811 62274, divided by 65536
 * - to RGB, block: 26546 -12591 -4083, -7939 15368 340, 456 -1671 8661, divided by 8192
 * - to RGB, tail: 212368 -100738 -32671, -63521 122944 2723, 3646 -13372 69291, divided by 65536
 *
 * 16u, 16s, 32f: v = (m0 * c0 + m1 * c1) + m2 * c2 in single precision, each operation rounded on its own, with the
 * decimals above as single precision holds them.
 *
 * - 16u, 16s: v is cut toward zero and limited to 0..65535
 * - 32f to XYZ: X and Y are not limited. Z is +0 for a v that is not above 0, as one that is not a number, and 1.0 for
 *   a v above 1.0, as that of white.
 * - 32f to RGB: +0 for a v below 0 and 1.0 for a v above 1.0; -0 and a v that is not a number stay. As in X and Y, the
 *   sign and payload of a result that is not a number are not defined.
 *
 * A round trip need not give the source back. Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1.
 * Pointers are tested first, then the size.
 */
/** 8u of three channels: blocks of eight, then the tail. */
TOLK_API TolkStatus tolkRGBToXYZ_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels: blocks of four, then the tail. */
TOLK_API TolkStatus tolkRGBToXYZ_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: cut toward zero. */
TOLK_API TolkStatus tolkRGBToXYZ_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: cut toward zero. */
TOLK_API TolkStatus tolkRGBToXYZ_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels: cut toward zero, less 32768. */
TOLK_API TolkStatus tolkRGBToXYZ_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels: cut toward zero, less 32768. */
TOLK_API TolkStatus tolkRGBToXYZ_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels: Z limited to 0..1. */
TOLK_API TolkStatus tolkRGBToXYZ_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels: Z limited to 0..1. */
TOLK_API TolkStatus tolkRGBToXYZ_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels: blocks of eight, then the tail. */
TOLK_API TolkStatus tolkXYZToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels: blocks of four, then the tail. */
TOLK_API TolkStatus tolkXYZToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: cut toward zero. */
TOLK_API TolkStatus tolkXYZToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: cut toward zero. */
TOLK_API TolkStatus tolkXYZToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels: cut toward zero, less 32768. */
TOLK_API TolkStatus tolkXYZToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels: cut toward zero, less 32768. */
TOLK_API TolkStatus tolkXYZToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels: all limited to 0..1. */
TOLK_API TolkStatus tolkXYZToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels: all limited to 0..1. */
TOLK_API TolkStatus tolkXYZToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);

/* ==== HLS ==== */

/** RGB and BGR to and from hue, lightness and saturation, of 8, 16 and 32-bit samples.
 *
 * R, G, B, or B, G, R in the functions with BGR in their name, and H, L, S are channels or planes in that order; one
 * step serves all planes of a side. H stands for an angle h in degrees, from red at 0 by green at 120 and blue at 240:
 *
 * - 8u: H is h * 0.7083333, that is 255 / 360; L and S are 0..255
 * - 16u: H is h * 182.04167, that is 65535 / 360; L and S are 0..65535
 * - 16s: every sample of 16u minus 32768, in RGB too: 32768 is added to each sample before the rules of 16u, and taken
 *   off each result
 * - 32f: H is h / 360; L and S are 0..1, and so are R, G and B. Nothing is limited: samples beyond give results beyond.
 *
 * All is calculated in single precision, each operation rounded on its own, from left to right where no parentheses
 * stand, and constants are the single-precision numbers nearest the decimals given. cut() rounds toward zero. Columns
 * below `width & ~3` of a row are its first ones, the others its last ones, where a rule differs.
 *
 * To HLS, with mx and mn the largest and the smallest of R, G, B, sum = mn + mx and d = mx - mn:
 *
 * - h = ((G - B) * 60) / d if mx is R, else ((B - R) * 60) / d + 120 if mx is G, else ((R - G) * 60) / d + 240; 360 is
 *   added, once, to an h below 0. In the integer types "/ d" is "* recip(d)", a product with a refined estimate.
 * - 8u: d of 0 gives H = 0, S = 0; otherwise H = cut(h * 0.7083333) and S = cut((recip(den) * d) * 255), where den is
 *   sum if sum * 0.5 is 127.5 or below, else 510 - sum. L = cut(sum * 0.5): black and (0, 0, 1) alike have L = 0. In
 *   the first columns the functions with BGR in their name use the raw estimate of 1 / den, not the refined one.
 * - 16u: as 8u with H = cut(h * 182.04167), S = cut((recip(den) * d) * 65535), and den 131070 - sum where sum * 0.5 is
 *   above 32767.5; results are limited to 0..65535
 * - 32f: d of 1.1920929e-7 or below gives H = 0, S = 0; otherwise H = h * 0.0027777778, and S = d / sum if L is 0.5 or
 *   below, else d / (2 - sum). L = sum * 0.5. Quotients are true ones, correctly rounded.
 *
 * The estimate. The raw estimate r0 of 1 / d is that of the processor's instruction rcpps, and the refined one is
 * recip(d) = (r0 + r0) - (d * r0) * r0. Processors of different makers have different estimates, so that the results of
 * tolkRGBToHLS_8u, tolkRGBToHLS_16u, tolkRGBToHLS_16s and tolkBGRToHLS_8u, and of no other function here, may differ
 * from one to another; on one processor they are always the same. The raw estimate is within 1.5 * 2^-12 of 1 / d,
 * relatively, and the refined one within 2^-21, so that H and S each differ by at most 1 from what the quotient rounded
 * to single precision gives; L never does. It happens where the quotient is at or next to an integer: pure red has
 * S = 255 or 254.
 *
 * From HLS:
 *
 * - 32f: h = H * 360. 8u: h = H * 1.4117647, and L and S are the samples times 0.003921569. 16u: h = H * 0.005493248,
 *   and L and S are the samples times 1.5259022e-5.
 * - S of 0: R = G = B = L. Otherwise m2 = S * L + L if L is 0.5 or below, else (S + L) - S * L; m1 = (L + L) - m2.
 * - each channel has a hue a: R h + 120, which above 360 becomes (h + 120) - 360 in the first columns and h - 240 in
 *   the last; G h; B h - 120, which below 0 becomes (h - 120) + 360 in the first columns and h + 240 in the last
 * - a channel is f * (m2 - m1) + m1 with f = a * 0.016666668 if a is below 60; m2 if a is below 180;
 *   f * (m2 - m1) + m1 with f = (240 - a) * 0.016666668 if a is below 240; else m1
 * - 32f, last columns: m2 = (S + 1) * L if L is 0.5 or below; in place of (240 - a) * 0.016666668 the factor is
 *   a * -0.016666668 + 4; and those of G are H * 6.0000005 and H * -6.0000005 + 4
 * - 8u: the result is cut(channel * 255), limited to 0..255
 * - 16u: the result is cut(channel * 32767.5), at most 32767, then doubled: all results are even, at most 65534
 * - 16s: the result, before 32768 is taken off it, is cut(channel * 65535 + 0.49998999): nothing is doubled
 *
 * Of samples that are not numbers the results of 32f are not defined.
 *
 * The fourth channel of an AC4 source is not used, that of the destination is left as it was, except where a function
 * says otherwise.
 *
 * Any width and height from 1. tolkRGBToHLS and tolkHLSToRGB do not test steps; the others want them from 1.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src, dst or plane; tolkStatusBadSize for a width or height
 * under 1; tolkStatusBadStep for a step under 1 where steps are tested. Pointers and planes are tested first, then the
 * size; of the functions with BGR in their name tolkBGRToHLS_8u_AC4R tests the size before the steps, all others the
 * steps before the size.
 */
/** 8u of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHLS_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels. */
TOLK_API TolkStatus tolkRGBToHLS_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels. */
TOLK_API TolkStatus tolkRGBToHLS_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels. */
TOLK_API TolkStatus tolkHLSToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels. */
TOLK_API TolkStatus tolkHLSToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: even results. */
TOLK_API TolkStatus tolkHLSToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: even results. */
TOLK_API TolkStatus tolkHLSToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels. */
TOLK_API TolkStatus tolkHLSToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels. */
TOLK_API TolkStatus tolkHLSToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels. */
TOLK_API TolkStatus tolkHLSToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels. */
TOLK_API TolkStatus tolkHLSToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** Four channels to four channels; alpha is copied, and the size is tested before the steps. */
TOLK_API TolkStatus tolkBGRToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** Three channels to planes H, L, S. */
TOLK_API TolkStatus tolkBGRToHLS_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                          TolkSize roi);
/** Planes B, G, R to three channels. */
TOLK_API TolkStatus tolkBGRToHLS_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** Planes B, G, R to planes H, L, S. */
TOLK_API TolkStatus tolkBGRToHLS_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** Four channels to planes H, L, S, alpha; alpha is copied. */
TOLK_API TolkStatus tolkBGRToHLS_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                           TolkSize roi);
/** Planes B, G, R, alpha to four channels; alpha is copied. */
TOLK_API TolkStatus tolkBGRToHLS_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** Planes B, G, R, alpha to planes H, L, S, alpha; alpha is copied. */
TOLK_API TolkStatus tolkBGRToHLS_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4],
                                         int32_t dstStep, TolkSize roi);
/** Three channels to planes B, G, R. */
TOLK_API TolkStatus tolkHLSToBGR_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                          TolkSize roi);
/** Planes H, L, S to three channels. */
TOLK_API TolkStatus tolkHLSToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** Planes H, L, S to planes B, G, R. */
TOLK_API TolkStatus tolkHLSToBGR_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** Four channels to planes B, G, R, alpha; alpha is copied. */
TOLK_API TolkStatus tolkHLSToBGR_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                           TolkSize roi);
/** Planes H, L, S, alpha to four channels; alpha is copied. */
TOLK_API TolkStatus tolkHLSToBGR_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** Planes H, L, S, alpha to planes B, G, R, alpha; alpha is copied. */
TOLK_API TolkStatus tolkHLSToBGR_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4],
                                         int32_t dstStep, TolkSize roi);

/* ==== HSV ==== */

/** RGB to and from hue, saturation and value, of 8 and 16-bit samples.
 *
 * R, G, B and H, S, V are channels 0, 1 and 2. H stands for a place p on six sectors, from red at 0 by green at 2 and
 * blue at 4: H is p * 42.5 in 8u and p * 10922.5 in 16u, so that the largest sample means red again. S is 0..255 or
 * 0..65535, and V is the largest of R, G, B.
 *
 * Apart from the differences of samples all is calculated in single precision, each operation rounded on its own, from
 * left to right where no parentheses stand, and constants are the single-precision numbers nearest the decimals given.
 * cut() rounds toward zero, round() to the nearest integer, ties to even.
 *
 * To HSV, with mx and mn the largest and the smallest of R, G, B and d = mx - mn: d of 0 gives H = 0, S = 0. Otherwise,
 * of three rules for p whose condition holds the last one counts: blue goes before green, and green before red.
 *
 * - 8u: S = round((e(mx) * d) * 255), a = e(d) * (mx - R), b = e(d) * (mx - G), c = e(d) * (mx - B); p = c - b if R is
 *   mx, (a - c) + 2 if G is mx, (b - a) + 4 if B is mx. H = round(p * 42.5), or round(p * 42.5 + 255) if p is below 0.
 * - 16u: S = cut((d * 65535) / mx + 0.5); with r = 1 / d, a = (mx - R) * r, b = (mx - G) * r, c = (mx - B) * r;
 *   p = c - b if R is mx, (a + 2) - c if G is mx, (b + 4) - a if B is mx. 6 is added to p if p + 1.1920929e-7 is below
 *   0. H = cut(p * 10922.5 + 0.5). Quotients are true ones, correctly rounded.
 *
 * The estimate. e(t) is the estimate of 1 / t by the processor's instruction rcpps, as it comes. Processors of
 * different makers have different estimates, so that H and S of tolkRGBToHSV_8u, and of no other function here, may
 * differ from one to another; on one processor they are always the same. The estimate is within 1.5 * 2^-12 of 1 / t,
 * relatively, so that H and S each differ by at most 1 from what the quotient rounded to single precision gives; V
 * never does.
 *
 * From HSV: S of 0 gives R = G = B = V. Otherwise, with V as a number v:
 *
 * - 8u: p = (H * 0.016666668) * 1.4117647, or 0 for H = 255; s = S * 0.003921569
 * - 16u: p = (H * 0.016666668) * 0.005493248, or 0 for H = 65535; s = S * 1.5259022e-5
 * - n = cut(p), f = p - n, sv = s * v; P = round(v - sv), Q = round(v - sv * f), T = round(sv * f + (v - sv))
 * - R, G, B are V, T, P for n = 0; Q, V, P for 1; P, V, T for 2; P, Q, V for 3; T, P, V for 4; V, P, Q for 5
 *
 * The fourth channel of an AC4 source is not used, that of the destination is left as it was.
 *
 * Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1.
 * Pointers are tested first, then the size.
 */
/** 8u of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHSV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToHSV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels. */
TOLK_API TolkStatus tolkRGBToHSV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels. */
TOLK_API TolkStatus tolkRGBToHSV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 8u of three channels. */
TOLK_API TolkStatus tolkHSVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels. */
TOLK_API TolkStatus tolkHSVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels. */
TOLK_API TolkStatus tolkHSVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels. */
TOLK_API TolkStatus tolkHSVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);

/* ==== PhotoYCC ==== */

/** RGB to and from PhotoYCC, of 8, 16 and 32-bit samples.
 *
 * PhotoYCC has luma Y with the weights of ITU-R BT.601, divided by 1.402, and the chroma signals C1, of blue, about
 * 156 / 255, and C2, of red, about 137 / 255. RGB is R, G, B and YCC is Y, C1, C2 in channels 0, 1 and 2; the fourth
 * channel of an AC4 source is not used, that of the destination is left as it was. Black is 0 and white the largest
 * integer or 1.0, in 16s -32768 and 32767: there 32768 is added to each sample first and taken off each result.
 *
 * Float arithmetic is single precision with each operation rounded on its own and the decimals as single precision
 * holds them; sums go left to right, parentheses first. Divisions round toward minus infinity, and
 * h(a, c) = a * c / 65536. Block columns are `width & ~3`, in 8u of C3 `width & ~7`; block and tail may differ by one.
 *
 * - 32f to YCC: w = (R * 0.299 + G * 0.587) + B * 0.114, Y = w * 0.7132668, C1 = (B - w) * 0.4368627 + 0.6117647,
 *   C2 = (R - w) * 0.53192 + 0.5372549; not limited
 * - 32f to RGB: l = Y * 1.3584, p = C1 * 2.2179 - 1.356833, q = C2 * 1.8215 - 0.9786098; R = q + l,
 *   G = (p * -0.194 + l) + q * -0.509, B = l + p; then +0 for a value below 0 and 1.0 for one above 1.0, while -0 and
 *   a value that is not a number stay
 * - 8u to YCC, block: s = R * 4898 / 256 + G * 9617 / 256 + B * 1867 / 256, Y = h(s, 2921) / 4,
 *   C1 = (h(B * 64 - s, 1789) + 624) / 4, C2 = (h(R * 64 - s, 2178) + 548) / 4
 * - 8u to YCC, tail: s = R * 4898 + G * 9617 + B * 1867, Y = h(s / 1024, 2921),
 *   C1 = h((B * 16384 - s) / 1024, 1789) + 156, C2 = h((R * 16384 - s) / 1024, 2178) + 137
 * - 8u to RGB, block: a = Y * 5563 / 256, t1 = h((C1 - 156) * 128, 18168), t2 = h((C2 - 137) * 128, 14921);
 *   R = (a + t2) / 16, G = (a / 2 + h(t1, -6357) + h(t2, -16679)) / 8, B = (a + t1) / 16; limited to 0..255
 * - 8u to RGB, tail: c1 = C1 * 9084 - 1417104, c2 = C2 * 7460 - 1022020; R = (Y * 5564 + c2) / 4096,
 *   G = (c2 / 256 * -2084 + c1 / 256 * -794 + Y * 89024) / 65536, B = (Y * 5564 + c1) / 4096; limited to 0..255
 * - 16u, 16s to YCC, block: w = B * 0.114 + (G * 0.587 + R * 0.299), Y = w * 0.7132668,
 *   C1 = (B - w) * 0.4368627 + 40092, C2 = (R - w) * 0.5319216 + 35209; rounded, ties to even, limited to 0..65535
 * - 16u, 16s to YCC, tail, cut toward zero: Y = (R * 0.213267 + 0.49999) + (B * 0.0813124 + G * 0.418688),
 *   C1 = (R * -0.130621 + 40092.5) + (B * 0.387058 + G * -0.256437),
 *   C2 = (R * 0.372876 + 35209.5) + (B * -0.0606389 + G * -0.312237)
 * - 16u, 16s to RGB, block: l = Y * 1.3584, p = (C1 - 40092) * 2.2179, q = (C2 - 35209) * 1.8215; R = l + q,
 *   G = l + p * -0.194 + q * -0.509, B = l + p; in 16u rounded, ties to even, in 16s cut toward zero; limited to
 *   0..65535
 * - 16u, 16s to RGB, tail: l = Y * 1.3584 + 0.49999, R = l + (C2 - 35209) * 1.8215,
 *   G = ((C1 - 40092) * -0.4302726 + l) + (C2 - 35209) * -0.92714345, B = l + (C1 - 40092) * 2.2179; cut toward zero,
 *   limited to 0..65535
 *
 * The sign and payload of a result that is not a number are not defined. Any width and height from 1. Steps are not
 * tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1.
 * Pointers are tested first, then the size.
 */
/** 8u of three channels: blocks of eight, then the tail. */
TOLK_API TolkStatus tolkRGBToYCC_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels: blocks of four, then the tail. */
TOLK_API TolkStatus tolkRGBToYCC_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkRGBToYCC_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkRGBToYCC_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkRGBToYCC_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkRGBToYCC_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels: not limited. */
TOLK_API TolkStatus tolkRGBToYCC_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels: not limited. */
TOLK_API TolkStatus tolkRGBToYCC_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels: blocks of eight, then the tail. */
TOLK_API TolkStatus tolkYCCToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels: blocks of four, then the tail. */
TOLK_API TolkStatus tolkYCCToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkYCCToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: blocks of four, rounded; then the tail, cut. */
TOLK_API TolkStatus tolkYCCToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels: blocks of four, cut; then the tail, cut. */
TOLK_API TolkStatus tolkYCCToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels: blocks of four, cut; then the tail, cut. */
TOLK_API TolkStatus tolkYCCToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels: limited to 0..1. */
TOLK_API TolkStatus tolkYCCToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels: limited to 0..1. */
TOLK_API TolkStatus tolkYCCToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);

/* ==== LUV ==== */

/** Linear RGB and BGR to and from CIE L*u*v*, of 8, 16 and 32-bit samples.
 *
 * The primaries and the white are those of XYZ, and no transfer curve is applied. R, G, B, or B, G, R in the
 * functions with BGR in their name, and L, u, v are channels 0, 1 and 2; the fourth channel of an AC4 source is not
 * used, that of the destination is left as it was. Black is 0 and white the largest integer or 1.0, in 16s -32768 and
 * 32767: there 32768 is added to each sample first, also to L, u, v, and taken off each result.
 *
 * - 32f: L is 0..100, u and v are as they come, about -84..176 and -131..108 for RGB of 0..1
 * - 8u: L * 2.55, (u + 134) * 255 / 354, (v + 140) * 255 / 262
 * - 16u: L * 655.35, (u + 134) * 65535 / 354, (v + 140) * 65535 / 262
 *
 * All is calculated in single precision, each operation rounded on its own, from left to right where no parentheses
 * stand, and constants are the single-precision numbers nearest the decimals given. cut() rounds toward zero. Block
 * columns are `width & ~3`; without a word of them all columns are alike.
 *
 * To LUV, 16u and 32f:
 *
 * - X = (R * 0.412453 + G * 0.35758) + B * 0.180423, Y = (R * 0.212671 + G * 0.71516) + B * 0.072169 and
 *   Z = (R * 0.019334 + G * 0.119193) + B * 0.950227
 * - 32f: y = Y; L = y * 903.3 if Y is 0.008856 or below, else cbrt(y) * 116 - 16
 * - 16u: y = Y * 1.5259022e-5; L = y * 903.3 if Y is 580.378 or below, else cbrt(y) * 116 - 16
 * - 32f: d = (Y * 15 + Z * 3) + X, in a block 3.0 instead of 0; p = (4 * X) * recip(d), q = (9 * Y) * recip(d). In the
 *   tail Z of 0 gives p = q = 0. u = (L * 13) * (p - 0.197839), v = (L * 13) * (q - 0.468342). Nothing is limited.
 * - 16u: d = (Z * 3 + Y * 15) + X, and results of 0 for u and v if d is 0; p = (X * 4) * recip(d),
 *   q = (Y * 9) * recip(d). The results are cut(L * 655.35),
 *   cut(((p - 0.197839) * (L * 13) + 134) * 185.12712) and
 *   cut(((q - 0.468342) * (L * 13) + 140) * 250.13359 + 0.5), limited to 0..65535.
 *
 * The cube root: cbrt(y) = c * (1 + (a1 * t + (a2 * t^2 + ... + (a7 * t^7 + a8 * t^8)))), in 16u up to a6 * t^6. Each
 * power of t is the one before it times t, and t = r * (y - (c * c) * c). a1 to a8 are 0.33333334, -0.11111111,
 * 0.061728396, -0.041152265, 0.030178327, -0.023472032, 0.01900117 and -0.015834307. c and r stand in row i of a table:
 *
 * - i = cut(y * 127.99805) in 32f of three channels, cut(y * 128) in 32f of four, cut(Y / 512) in 16u; at most 128
 * - c is the cube root of w = (i + 1) / 128 + 0.0001 in six decimals, r is 1 / w in seven digits
 * - but of rows 0 to 2 c is 0.199269, 0.250533, 0.286586 and r 126.3804, 63.59204, 42.48475; of row 128 both are 1.0
 *
 * To LUV, 8u:
 *
 * - X = (B * 0.180423 + R * 0.412453) + G * 0.35758, Y = (B * 0.072169 + G * 0.71516) + R * 0.212671,
 *   Z = (G * 0.119193 + B * 0.950227) + R * 0.019334, y = Y * 0.003921569
 * - if y is 0.008856 or below: L = Y * 3.5423532, and the result is cut(Y * 9.033)
 * - otherwise: L = pow(y, 0.3333333432674408) * 116 - 16, with a pow in double precision rounded to single precision,
 *   and the result is cut(L * 2.55)
 * - if y is 0: p = q = 0; otherwise k = 1 / ((Z * 0.011764707 + Y * 0.058823533) + X * 0.003921569), a true quotient,
 *   p = (X * 0.015686275) * k, q = (Y * 0.03529412) * k
 * - the results are cut((L * 9.364407) * (p - 0.197839) + 97.02542) and
 *   cut((L * 12.652672) * (q - 0.468342) + 136.75954)
 *
 * From LUV, 32f: all quotients are true ones.
 *
 * - L below 9e-5 or not a number: R = G = B = 0
 * - Y = L * 0.001107052 if L is below 7.9996247, else (t * t) * t with t = L * 0.00862069 + 0.13793103
 * - q = v / (L * 13) + 0.468342; if |q| is below 1.1920929e-7, q = v / (L * 13) + 0.468432
 * - w = Y / q, X = ((u * 2.25) / (L * 13) + 0.44513777) * w, Z = X * -0.33333334 + (Y * -5 + w * 3)
 * - R = Z * -0.498535 + (X * 3.240479 - Y * 1.53715), G = Z * 0.041556 + (Y * 1.875991 - X * 0.969256),
 *   B = Z * 1.057311 + (Y * -0.204043 + X * 0.055648); then 1.0 for a value above 1.0 and +0 for one below 0, while -0
 *   and a value that is not a number stay
 *
 * From LUV, 8u and 16u, with L, u, v as stored and m the largest sample:
 *
 * - l = L * 0.3921569, in 16u L * 0.0015259022; l below 9e-5: R = G = B = 0
 * - V = v * 1.027451 - 140, in 16u v * 0.0039978637 - 140
 * - Y = L * 0.00043413806, in 16u L * 1.689253e-6, if l is below 7.9996247; else (t * t) * t with
 *   t = L * 0.003380663 + 0.13793103, in 16u L * 1.3154329e-5 + 0.13793103
 * - e = L * 5.0980396, in 16u L * 0.019836728
 * - q = V / e + 0.4683422; if |q| is below 1.1920929e-5, in the tail of 8u 1.1920929e-7, q = V / e + 0.46843222
 * - w = (Y * m) / q
 * - X = ((u * 3.1235294 - 301.5) / e + 0.44513866) * w, in 16u u * 0.012153811
 * - Z = X * -0.33333334 + (Y * (m * -5) + w * 3)
 * - R = ((a + 0.5) + X * 3.240479) + Z * -0.498535, G = ((b + 0.5) + X * -0.969256) + Z * 0.041556, with
 *   a = Y * -391.97327 and b = Y * 478.37772, in 16u a = (Y * m) * -1.53715 and b = (Y * m) * 1.875991
 * - B = (g + 0.5) + Z * 1.057311, both sums and this product in double precision, with
 *   g = Y * -52.030964 + X * 0.055648 in single precision, in 16u Y * -13371.958 + X * 0.055648
 * - R, G, B are cut, then limited to 0..m
 * - in a block each quotient n / d is n * recip(d); in the tail it is a true one
 *
 * The estimate. recip(d) = (r0 + r0) - (d * r0) * r0, and r0 is the estimate of 1 / d by the processor's instruction
 * rcpps. Processors of different makers have different estimates, so that the results of the functions below that say
 * "by the estimate", and of no other, may differ from one to another; on one processor they are always the same. For d
 * of 2^-126 to 2^126 recip(d) is within 2^-21 of 1 / d, relatively. By it u and v of 32f differ by at most about
 * 2^-21 * 13 * L * p and 2^-21 * 13 * L * q, and those of 16u and 16s by at most 1; L never does. From LUV the samples
 * of 8u differ by at most 1, and so do those of 16u and 16s where L, u, v are a colour of RGB; elsewhere, where q is
 * near 0, by more.
 *
 * pow is that of the C library; 8u to LUV is the same with every pow whose relative error is below 1e-14.
 *
 * In 32f an RGB whose Y is above 1.0078 is beyond the table: its L has no use. The sign and payload of a result that is
 * not a number are not defined. A round trip need not give the source back. Any width and height from 1. Steps are not
 * tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1.
 * Pointers are tested first, then the size.
 */
/** 8u of three channels, by pow. */
TOLK_API TolkStatus tolkRGBToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels, by pow. */
TOLK_API TolkStatus tolkRGBToLUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels, by the estimate. */
TOLK_API TolkStatus tolkRGBToLUV_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels, from BGR, by pow. */
TOLK_API TolkStatus tolkBGRToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 32f of three channels, from BGR, by the estimate. */
TOLK_API TolkStatus tolkBGRToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u of four channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of three channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u of four channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16s of three channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16s of four channels: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 32f of three channels: limited to 0..1. */
TOLK_API TolkStatus tolkLUVToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of four channels: limited to 0..1. */
TOLK_API TolkStatus tolkLUVToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 8u of three channels, to BGR: blocks of four by the estimate, then the tail. */
TOLK_API TolkStatus tolkLUVToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 32f of three channels, to BGR: limited to 0..1. */
TOLK_API TolkStatus tolkLUVToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);

/* ==== Lab ==== */

/** Linear RGB and BGR to and from CIE L*a*b* about a D65 white.
 *
 * R, G, B, or B, G, R in the functions with BGR in their name, and L, a, b are channels or planes in that order; each
 * plane has its own step. No transfer curve is applied. With l, p, q for L*, a*, b*:
 *
 * - 8u: R, G and B are 0..255; L is l * 2.55, a is p + 128, b is q + 128
 * - 16u, of Lab alone: L is l * 655.35, a is (p + 128) * 255, b is (q + 128) * 255
 * - 32f and 64f: R, G and B are 0..1; L is l, 0..100, a is p, b is q
 *
 * All is calculated in single precision, and in double precision in the 64f functions, each operation rounded on its
 * own, from left to right where no parentheses stand; constants are the nearest numbers to the decimals given. cut()
 * rounds toward zero.
 *
 * The root. root(t) is the power of t by the C library's pow() in double precision, with the exponent
 * 0.3333333432674408 and the result rounded to single precision, in 64f with the exponent 0.3333333333333333. Where a
 * function calculates it in another way its results are those of this rule.
 *
 * To Lab, from 8u:
 *
 * - X = 0.412453 R + 0.35758 G + 0.180423 B, Y = 0.212671 R + 0.71516 G + 0.072169 B,
 *   Z = 0.019334 R + 0.119193 G + 0.950227 B; each function has its order of the sums
 * - x = X * 0.0041259914, y = Y * 0.003921569, z = Z * 0.0036018905
 * - y above 0.008856: fy = root(y), l = fy * 116 - 16; else fy = Y * 0.030537257 + 0.13793103, l = Y * 3.5423532
 * - fx = root(x) for an x above 0.008856, else X * 0.032129094 + 0.13793103; fz = root(z) for a z above 0.008856, else
 *   Z * 0.028047923 + 0.13793103
 * - to 8u: L = cut(l * 2.55 + 0.5), a = cut((fx - fy) * 500 + 128.5), b = cut((fy - fz) * 200 + 128.5)
 * - to 16u: L = cut(l * 655.35), a = cut((fx - fy) * 127500 + 32640), b = cut((fy - fz) * 51000 + 32640); here l of a y
 *   above 0.008856 is the power * 116 - 16 in double precision, the power not rounded, and then rounded
 *
 * To Lab, 32f and 64f, with sums as (0.412453 R + 0.35758 G) + 0.180423 B:
 *
 * - x = X * 1.0521265327391165, y = Y, z = Z * 0.9184811767477967; in 32f these two products are formed in double
 *   precision and rounded. Each that is above 1 becomes 1; negative numbers stay.
 * - y above 0.008856: fy = root(y), L = fy * 116 - 16; else fy = y * 7.787 + 0.13793103448275862, L = y * 903.3
 * - fx = root(x) for an x above 0.008856, else x * 7.787 + 0.13793103448275862; fz of z alike
 * - a = (fx - fy) * 500, b = (fy - fz) * 200; not limited
 *
 * From Lab there is no linear branch, so that dark colours do not come back: black of L = 0 gives small positive
 * values.
 *
 * - 8u: k = L * 0.003380663; fy = k + 0.13793103, fx = (a - 128) * 0.002 + fy, fz = (k + 0.77793103) + b * -0.005
 * - 16u: k = L * 1.3154329e-5; fy and fz as in 8u with b * -1.9607844e-5; fx = v + fy with
 *   v = (a * 0.003921569 + -128) * 0.002, whose last product is formed in double precision, with 0.002 in double
 *   precision, and rounded
 * - 8u and 16u: X = ((fx * fx) * 242.366) * fx, Y = ((fy * fy) * 255) * fy, Z = ((fz * fz) * 277.632) * fz
 * - from 8u: R = ((Y * -1.53715 + 0.5) + Z * -0.498535) + X * 3.240479,
 *   G = ((Y * 1.875991 + 0.5) + Z * 0.041556) + X * -0.969256,
 *   B = ((Y * -0.204043 + 0.5) + Z * 1.057311) + X * 0.055648, cut and limited to 0..255
 * - from 16u: R = (Z * -0.498535 + Y * -1.53715) + X * 3.240479, G = (Z * 0.041556 + Y * 1.875991) + X * -0.969256,
 *   B = (Z * 1.057311 + Y * -0.204043) + X * 0.055648, cut and limited to 0..255: no half is added
 * - 32f: fy = L * 0.00862069 + 0.13793103, fx = a * 0.002 + fy, fz = b * -0.005 + fy; X = ((fx * fx) * 0.950456) * fx,
 *   Y = (fy * fy) * fy, Z = ((fz * fz) * 1.0887539) * fz; R, G and B are the sums of the products as from 16u, added
 *   as Z + (Y + X), and are not limited. In the last columns of C3, those from `width & ~3` on, R and B are
 *   (Z + Y) + X and G is (Z + X) + Y.
 * - 64f: as 32f of P3, with L * 0.008620689655172414 + 0.13793103448275862, 0.002 and -0.005 of double precision, but
 *   with the numbers that single precision has for 0.950456, 1.0887539 and the nine factors of X, Y and Z
 *
 * A value that is not a number is not above anything; the sign and payload of a result that is not a number are not
 * defined. Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array, plane or array of steps;
 * tolkStatusBadSize for a width or height under 1, in the _L forms as 64-bit numbers. Pointers are tested first, then
 * the size.
 */
/** 8u to 8u; sums as (R + G) + B. */
TOLK_API TolkStatus tolkRGBToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u to 8u; sums as (B + R) + G. */
TOLK_API TolkStatus tolkBGRToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u to 16u; sums as (B + G) + R. */
TOLK_API TolkStatus tolkBGRToLab_8u16u_C3R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** 32f. */
TOLK_API TolkStatus tolkRGBToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f; sums as those of RGB. */
TOLK_API TolkStatus tolkBGRToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of planes. */
TOLK_API TolkStatus tolkRGBToLab_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi);
/** 32f of planes, with a size and steps of 64 bits. */
TOLK_API TolkStatus tolkRGBToLab_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                           const int64_t dstStep[3], TolkSizeL roi);
/** 64f of planes. */
TOLK_API TolkStatus tolkRGBToLab_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi);
/** 64f of planes, with a size and steps of 64 bits. */
TOLK_API TolkStatus tolkRGBToLab_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                           const int64_t dstStep[3], TolkSizeL roi);
/** 8u to 8u. */
TOLK_API TolkStatus tolkLabToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u to 8u. */
TOLK_API TolkStatus tolkLabToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 16u to 8u. */
TOLK_API TolkStatus tolkLabToBGR_16u8u_C3R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi);
/** 32f: blocks of four, then the tail. */
TOLK_API TolkStatus tolkLabToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f: blocks of four, then the tail. */
TOLK_API TolkStatus tolkLabToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi);
/** 32f of planes. */
TOLK_API TolkStatus tolkLabToRGB_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi);
/** 32f of planes, with a size and steps of 64 bits. */
TOLK_API TolkStatus tolkLabToRGB_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                           const int64_t dstStep[3], TolkSizeL roi);
/** 64f of planes. */
TOLK_API TolkStatus tolkLabToRGB_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi);
/** 64f of planes, with a size and steps of 64 bits. */
TOLK_API TolkStatus tolkLabToRGB_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                           const int64_t dstStep[3], TolkSizeL roi);

/* ==== Gamma ==== */

/** The transfer curve of ITU-R BT.709 (Fwd) and its inverse (Inv), on each of three colour channels in any order.
 *
 * Of samples in 0..1 the curve is 4.5 * x below 0.018, else 1.099 * x^0.45 - 0.099; its inverse is x / 4.5 below
 * 0.0812, else ((x + 0.099) / 1.099)^(1 / 0.45). The fourth channel of AC4 is neither read nor written. C3IR, AC4IR and
 * IP3R work in place. One step serves all planes of a side.
 *
 * 8u and 16u: a sample i becomes an entry of a table, with N = 255 or 65535 and t = i / N in double precision. Rounding
 * is to the nearest integer, ties to even.
 *
 * - Fwd: 4.5 * i rounded for a t below 0.018, else N * (1.099 * t^0.45 - 0.099) in double precision, rounded to single
 *   precision and that to an integer
 * - Inv: i / 4.5 rounded for a t below 0.0812, else N * ((t + 0.099) / 1.099)^(1 / 0.45), rounded as in Fwd. The
 *   table steps back once: 5321 gives 1182 in 16u, and 5322 gives 1179.
 *
 * 32f: vMin stands for 0 and vMax for 1. All is calculated in single precision, each operation rounded on its own, from
 * left to right where no parentheses stand, and constants are the single-precision numbers nearest the decimals given.
 * wide() says that an expression is calculated in double precision, from single-precision numbers. With
 * d = vMax - vMin and s = x - vMin:
 *
 * - Fwd: n = s * (1 / d), in AC4IR m = wide(s * (1 / d)) and n is m rounded. The result is (s * 4.5) + vMin if n, in
 *   AC4IR m, is below 0.018, else ((n^0.45 * 1.099 + -0.099) * d) + vMin.
 * - Inv of C3R and C3IR: n = s * (1 / d), t = s * (0.9099181 * (1 / d)) + 0.09008189
 * - Inv of AC4R, AC4IR, P3R and IP3R: n = wide(s * (1 / d)), and t = wide(s * (0.9099181 * (1 / d)) + c), rounded, with
 *   the double-precision number c = 0.09008189432684999
 * - Inv: the result is (t^2.2222223 * d) + vMin if n is at or above 0.0812, else (s * 0.2222222) + vMin
 *
 * Nothing is limited: above vMax the curve goes on, and below vMin the line. Of an n that is not a number Fwd takes the
 * power and Inv the line; the sign and payload of a result that is not a number are not defined.
 *
 * Accuracy. The power is one of single precision, within 0.51 units in the last place of the true power of the same
 * base and exponent. All else is exact as written: a result of the line is the same everywhere.
 *
 * Any width and height from 1. Steps are tested for their sign alone.
 *
 * Returns tolkStatusOk; in 32f tolkStatusGammaRange if vMax - vMin is not above 0, as of a bound that is not a number;
 * tolkStatusNullPointer for a null pointer, pointer array or plane; tolkStatusBadSize for a width or height under 1;
 * tolkStatusBadStep for a step under 1. They are tested in this order.
 */
/** 8u by table, three channels. */
TOLK_API TolkStatus tolkGammaFwd_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u by table, four channels. */
TOLK_API TolkStatus tolkGammaFwd_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 8u by table, planes. */
TOLK_API TolkStatus tolkGammaFwd_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** 8u by table, three channels in place. */
TOLK_API TolkStatus tolkGammaFwd_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 8u by table, four channels in place. */
TOLK_API TolkStatus tolkGammaFwd_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 8u by table, planes in place. */
TOLK_API TolkStatus tolkGammaFwd_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi);
/** 16u by table, three channels. */
TOLK_API TolkStatus tolkGammaFwd_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u by table, four channels. */
TOLK_API TolkStatus tolkGammaFwd_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16u by table, planes. */
TOLK_API TolkStatus tolkGammaFwd_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                         int32_t dstStep, TolkSize roi);
/** 16u by table, three channels in place. */
TOLK_API TolkStatus tolkGammaFwd_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 16u by table, four channels in place. */
TOLK_API TolkStatus tolkGammaFwd_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 16u by table, planes in place. */
TOLK_API TolkStatus tolkGammaFwd_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi);
/** 32f, three channels. */
TOLK_API TolkStatus tolkGammaFwd_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                         float vMin, float vMax);
/** 32f, four channels. */
TOLK_API TolkStatus tolkGammaFwd_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                          float vMin, float vMax);
/** 32f, planes. */
TOLK_API TolkStatus tolkGammaFwd_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                         int32_t dstStep, TolkSize roi, float vMin, float vMax);
/** 32f, three channels in place. */
TOLK_API TolkStatus tolkGammaFwd_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax);
/** 32f, four channels in place; n in double precision. */
TOLK_API TolkStatus tolkGammaFwd_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax);
/** 32f, planes in place. */
TOLK_API TolkStatus tolkGammaFwd_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin,
                                          float vMax);
/** 8u by table, three channels. */
TOLK_API TolkStatus tolkGammaInv_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** 8u by table, four channels. */
TOLK_API TolkStatus tolkGammaInv_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 8u by table, planes. */
TOLK_API TolkStatus tolkGammaInv_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                        int32_t dstStep, TolkSize roi);
/** 8u by table, three channels in place. */
TOLK_API TolkStatus tolkGammaInv_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 8u by table, four channels in place. */
TOLK_API TolkStatus tolkGammaInv_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 8u by table, planes in place. */
TOLK_API TolkStatus tolkGammaInv_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi);
/** 16u by table, three channels. */
TOLK_API TolkStatus tolkGammaInv_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                         TolkSize roi);
/** 16u by table, four channels. */
TOLK_API TolkStatus tolkGammaInv_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);
/** 16u by table, planes. */
TOLK_API TolkStatus tolkGammaInv_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                         int32_t dstStep, TolkSize roi);
/** 16u by table, three channels in place. */
TOLK_API TolkStatus tolkGammaInv_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 16u by table, four channels in place. */
TOLK_API TolkStatus tolkGammaInv_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi);
/** 16u by table, planes in place. */
TOLK_API TolkStatus tolkGammaInv_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi);
/** 32f, three channels. */
TOLK_API TolkStatus tolkGammaInv_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                         float vMin, float vMax);
/** 32f, four channels; n and t in double precision. */
TOLK_API TolkStatus tolkGammaInv_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                          float vMin, float vMax);
/** 32f, planes; n and t in double precision. */
TOLK_API TolkStatus tolkGammaInv_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                         int32_t dstStep, TolkSize roi, float vMin, float vMax);
/** 32f, three channels in place. */
TOLK_API TolkStatus tolkGammaInv_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax);
/** 32f, four channels in place; n and t in double precision. */
TOLK_API TolkStatus tolkGammaInv_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax);
/** 32f, planes in place; n and t in double precision. */
TOLK_API TolkStatus tolkGammaInv_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin,
                                          float vMax);

/* ==== YCoCg ==== */

/** RGB and BGR to and from planes of luma Y and the chroma Co, of orange, and Cg, of green, by integers.
 *
 * BGR and SBGR have samples B, G, R, and RGB has R, G, B; the samples of SBGR are signed. The planes are Y, Co, Cg in
 * this order and share one step. The fourth sample of a C4 source is not used, that of a C4 destination is alpha. The
 * plain transform loses low bits, so that its inverse does not restore the source. The transform Rev restores it, where
 * Co and Cg have a bit more than the source: of bytes they are -255..255, and in the plain one -127..128. Divisions
 * round toward minus infinity:
 *
 * - plain forward: Y = (R + 2 G + B + 2) / 4, Co = (R - B + 1) / 2, Cg = (2 G - R - B + 2) / 4
 * - plain inverse: t = Y - Cg, B = t - Co, G = Y + Cg, R = t + Co
 * - Rev forward: Co = R - B, t = B + Co / 2, Cg = G - t, Y = t + Cg / 2
 * - Rev inverse: t = Y - Cg / 2, G = Cg + t, B = t - Co / 2, R = B + Co
 *
 * Results are stored:
 *
 * - 8u16s and 16s32s: as they are
 * - plain forward in 16s: limited to -32768..32767
 * - Rev forward and both inverses in 16s: each, t too, is reduced to its low 16 bits, as a signed number, before it is
 *   used; so Rev restores every source, as one reduction undoes the other
 * - 16s8u: reduced likewise, then R, G, B are limited to 0..255; so a sum above 32767, being negative by then, gives 0
 * - 32s16s: the low 16 bits of R, G, B, calculated in 32 bits of which overflows are dropped
 * - 8u to planes: Y as it is, Co + 128 and Cg + 128, limited to 255; none is below 1
 * - 8u from planes: Co - 128 and Cg - 128 are taken for Co and Cg, and R, G, B are limited to 0..255
 *
 * Every column is calculated alike. Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array or plane; then, in the functions that
 * say so, tolkStatusBadSize for a width or height under 1. The other functions do not refuse such a size: they write
 * nothing and return tolkStatusOk.
 */
/** Plain forward, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkBGRToYCoCg_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                               int32_t dstStep, TolkSize roi);
/** Plain forward, from four channels. Refuses a bad size. */
TOLK_API TolkStatus tolkBGRToYCoCg_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                               int32_t dstStep, TolkSize roi);
/** Rev forward, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkBGRToYCoCg_Rev_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                   int32_t dstStep, TolkSize roi);
/** Rev forward, from four channels. Refuses a bad size. */
TOLK_API TolkStatus tolkBGRToYCoCg_Rev_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                   int32_t dstStep, TolkSize roi);
/** Plain forward with offsets, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkRGBToYCoCg_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                            TolkSize roi);
/** Plain forward, limited, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkSBGRToYCoCg_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                              int32_t dstStep, TolkSize roi);
/** Plain forward, limited, from four channels. Refuses a bad size. */
TOLK_API TolkStatus tolkSBGRToYCoCg_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                              int32_t dstStep, TolkSize roi);
/** Plain forward, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkSBGRToYCoCg_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi);
/** Plain forward, from four channels. */
TOLK_API TolkStatus tolkSBGRToYCoCg_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi);
/** Rev forward in 16 bits, from three channels. */
TOLK_API TolkStatus tolkSBGRToYCoCg_Rev_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                  int32_t dstStep, TolkSize roi);
/** Rev forward in 16 bits, from four channels. */
TOLK_API TolkStatus tolkSBGRToYCoCg_Rev_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                  int32_t dstStep, TolkSize roi);
/** Rev forward, from three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkSBGRToYCoCg_Rev_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                     int32_t dstStep, TolkSize roi);
/** Rev forward, from four channels. */
TOLK_API TolkStatus tolkSBGRToYCoCg_Rev_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                     int32_t dstStep, TolkSize roi);
/** Plain inverse in 16 bits, then limited, to three channels. */
TOLK_API TolkStatus tolkYCoCgToBGR_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                               int32_t dstStep, TolkSize roi);
/** Plain inverse in 16 bits, then limited, to four channels. */
TOLK_API TolkStatus tolkYCoCgToBGR_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                               int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Rev inverse in 16 bits, then limited, to three channels. */
TOLK_API TolkStatus tolkYCoCgToBGR_Rev_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                   int32_t dstStep, TolkSize roi);
/** Rev inverse in 16 bits, then limited, to four channels. */
TOLK_API TolkStatus tolkYCoCgToBGR_Rev_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                   int32_t dstStep, TolkSize roi, uint8_t alpha);
/** Plain inverse with offsets, limited, to three channels. */
TOLK_API TolkStatus tolkYCoCgToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi);
/** Plain inverse in 16 bits, to three channels. */
TOLK_API TolkStatus tolkYCoCgToSBGR_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                              int32_t dstStep, TolkSize roi);
/** Plain inverse in 16 bits, to four channels. Refuses a bad size. */
TOLK_API TolkStatus tolkYCoCgToSBGR_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                              int32_t dstStep, TolkSize roi, int16_t alpha);
/** Plain inverse, cut to 16 bits, to three channels. Refuses a bad size. */
TOLK_API TolkStatus tolkYCoCgToSBGR_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                 int32_t dstStep, TolkSize roi);
/** Plain inverse, cut to 16 bits, to four channels. Refuses a bad size. */
TOLK_API TolkStatus tolkYCoCgToSBGR_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                 int32_t dstStep, TolkSize roi, int16_t alpha);
/** Rev inverse in 16 bits, to three channels. */
TOLK_API TolkStatus tolkYCoCgToSBGR_Rev_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                  int32_t dstStep, TolkSize roi);
/** Rev inverse in 16 bits, to four channels. */
TOLK_API TolkStatus tolkYCoCgToSBGR_Rev_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                  int32_t dstStep, TolkSize roi, int16_t alpha);
/** Rev inverse, cut to 16 bits, to three channels. */
TOLK_API TolkStatus tolkYCoCgToSBGR_Rev_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                     int32_t dstStep, TolkSize roi);
/** Rev inverse, cut to 16 bits, to four channels. */
TOLK_API TolkStatus tolkYCoCgToSBGR_Rev_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                     int32_t dstStep, TolkSize roi, int16_t alpha);

/* ==== Colour twist ==== */

/** One affine map of the three colours of every pixel, of 8u, 16u, 16s and 32f samples. twist is the map's matrix: row
 * c gives channel c of the destination by the weights of the channels 0, 1 and 2 and an offset, in the scale of the
 * samples.
 *
 * With samples c0, c1, c2 as single precision numbers and the row m0, m1, m2, m3 of a channel, every operation is
 * rounded on its own to single precision, to nearest, none is fused, and the parentheses count:
 *
 * - r = (m3 + c0 * m0) + (c2 * m2 + c1 * m1)
 * - 32f: the result is r
 * - 8u, 16u, 16s: r limited to 0..255, 0..65535 or -32768..32767, then rounded to the nearest integer, ties to even; an
 *   r that is not a number gives the upper limit
 * - tolkColorTwist_32f_C4R, whose matrix has no offset and a row of four weights for each of four channels:
 *   r = ((c0 * m0 + c1 * m1) + c2 * m2) + c3 * m3
 *
 * The fourth sample of an AC4 source is not used, that of the destination is left as it was. All planes of a side share
 * one step. Every column is calculated alike.
 *
 * The sign and payload of a 32f result that is not a number are not defined.
 *
 * Any width and height from 1.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null pointer, pointer array, plane or twist; tolkStatusBadSize for
 * a width or height under 1; tolkStatusBadStep for a step under 1. Pointers are tested first, then the size, then the
 * steps.
 */
/** 8u of three channels. */
TOLK_API TolkStatus tolkColorTwist32f_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, const float twist[3][4]);
/** 8u of three channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                              const float twist[3][4]);
/** 8u of four channels. */
TOLK_API TolkStatus tolkColorTwist32f_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, const float twist[3][4]);
/** 8u of four channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]);
/** 8u of three planes. */
TOLK_API TolkStatus tolkColorTwist32f_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                             int32_t dstStep, TolkSize roi, const float twist[3][4]);
/** 8u of three planes, in place. */
TOLK_API TolkStatus tolkColorTwist32f_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                              const float twist[3][4]);
/** 16u of three channels. */
TOLK_API TolkStatus tolkColorTwist32f_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, const float twist[3][4]);
/** 16u of three channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]);
/** 16u of four channels. */
TOLK_API TolkStatus tolkColorTwist32f_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                               TolkSize roi, const float twist[3][4]);
/** 16u of four channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                const float twist[3][4]);
/** 16u of three planes. */
TOLK_API TolkStatus tolkColorTwist32f_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                              int32_t dstStep, TolkSize roi, const float twist[3][4]);
/** 16u of three planes, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]);
/** 16s of three channels. */
TOLK_API TolkStatus tolkColorTwist32f_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi, const float twist[3][4]);
/** 16s of three channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16s_C3IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]);
/** 16s of four channels. */
TOLK_API TolkStatus tolkColorTwist32f_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                               TolkSize roi, const float twist[3][4]);
/** 16s of four channels, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16s_AC4IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                const float twist[3][4]);
/** 16s of three planes. */
TOLK_API TolkStatus tolkColorTwist32f_16s_P3R(const int16_t* const src[3], int32_t srcStep, int16_t* const dst[3],
                                              int32_t dstStep, TolkSize roi, const float twist[3][4]);
/** 16s of three planes, in place. */
TOLK_API TolkStatus tolkColorTwist32f_16s_IP3R(int16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]);
/** 32f of three channels. */
TOLK_API TolkStatus tolkColorTwist_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                           const float twist[3][4]);
/** 32f of three channels, in place. */
TOLK_API TolkStatus tolkColorTwist_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]);
/** 32f of four channels. */
TOLK_API TolkStatus tolkColorTwist_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi, const float twist[3][4]);
/** 32f of four channels, in place. */
TOLK_API TolkStatus tolkColorTwist_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]);
/** 32f of three planes. */
TOLK_API TolkStatus tolkColorTwist_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                           int32_t dstStep, TolkSize roi, const float twist[3][4]);
/** 32f of three planes, in place. */
TOLK_API TolkStatus tolkColorTwist_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                            const float twist[3][4]);
/** 32f of four channels, all computed. */
TOLK_API TolkStatus tolkColorTwist_32f_C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                           const float twist[4][4]);

/* ==== 12-bit ==== */

/** Samples of 16 bits to and from packed samples of 12 bits, without scaling.
 *
 * Two packed samples a and b take three bytes, high bits first: bits 11 to 4 of a; bits 3 to 0 of a, in the high half,
 * and bits 11 to 8 of b; bits 7 to 0 of b. The last sample of an odd width takes two bytes, the second with a low half
 * of 0. A packed row so has width / 2 * 3 bytes, and two more if the width is odd. Rows begin at whole bytes.
 *
 * Any width, in samples, and height from 1. Steps are bytes on both sides.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1;
 * tolkStatusBadStep for a step under 1. Pointers are tested first, then the size, then the steps.
 */
/** The low 12 bits of every sample; its high four bits are dropped. */
TOLK_API TolkStatus tolkPack_16u12u_C1R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                        TolkSize roi);
/** Results are 0..4095. The low half of the second byte of an odd last sample is not used. */
TOLK_API TolkStatus tolkUnpack_12u16u_C1R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                          TolkSize roi);

/* ==== Bit reduction ==== */

/** How tolkReduceBits chooses between the two levels next to a sample. */
typedef enum TolkDitherType {
  tolkDitherNone = 0,              /**< the nearest level */
  tolkDitherFloydSteinberg = 1,    /**< error diffusion over two rows */
  tolkDitherJarvisJudiceNinke = 2, /**< error diffusion over three rows */
  tolkDitherStucki = 3,            /**< error diffusion over three rows */
  tolkDitherBayer = 4              /**< ordered, by a matrix of 4 by 4 */
} TolkDitherType;

/** The bytes of scratch memory that tolkReduceBits takes for rows of `width` pixels, the first fitting one of:
 *
 * - 0 for ditherType 0, and for ditherType 4 without noise
 * - 8 * width + 16 for ditherType 1, 12 * width + 48 for 2 and 3, 0 for 4; plus 6272 where noise is not 0; plus 64, so
 *   that the memory may start anywhere
 *
 * Of a number beyond 32 bits the low 32 are given. channelCode is 1, 3 or 4, or 9 for AC4, and does not matter to the
 * size. width is tested as a signed number.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null size; tolkStatusBadSize for a width under 1;
 * tolkStatusBadChannelType for another channelCode; tolkStatusBadNoise for a noise above 100; tolkStatusBadDitherType
 * for a ditherType above 4. The tests run in this order.
 */
TOLK_API TolkStatus tolkReduceBitsGetBufferSize(uint32_t channelCode, uint32_t width, uint32_t noise,
                                                uint32_t ditherType, uint32_t* size);

/** Fewer levels, with or without dithering. Results keep the full range of their type: four levels of 8u are 0, 85, 170
 * and 255. Every channel is treated alike; the fourth channel of an AC4 source is not used, that of the destination is
 * left as it was.
 *
 * ditherType is a TolkDitherType; noise, 0 to 100, is the percentage by which the thresholds of dithering are jittered
 * and does not count for ditherType 0; levels is 2 to 256 in 8u and to 8u, otherwise 2 to 65536. buffer is scratch
 * memory of the size that tolkReduceBitsGetBufferSize gives, not read before it is written; two calls at a time must
 * not share it. No other state is kept: the same arguments always give the same results.
 *
 * All is calculated in single precision, each operation rounded on its own, and constants are the single-precision
 * numbers nearest the decimals given, unless said otherwise. cut() rounds toward zero. k is levels - 1, and v is the
 * sample, in 16s the sample + 32768. Of a result too large for its type the low bits are stored. x counts the pixels of
 * a row and y the rows, from 0.
 *
 * - 8u: v is 0..255, q = (65280 / k) * 0.00390625, inv = k * 0.003921569, store(r) = cut(r)
 * - 16u, 16s: v is 0..65535, q = 65535 / k, inv = k * 1.5259022e-5; store(r) = cut(r), in 16s less 32768
 * - 16u to 8u: as 16u, store(r) = cut(r) / 256, rounded down; 16s to 8u: as 16s, store(r) = cut(r + 0.5) / 256, rounded
 *   down
 * - 32f: v is 0..1, q = 1 / k, inv = k; store(r) = cut(r * 65535 + 0.5), in 16s less 32768, or cut(r * 255 + 0.5) in 8u
 *
 * A sample that is not a number gives the smallest result of the type. Otherwise:
 *
 * ditherType 0: t = v * 0.003921569 in 8u, v * 1.5259022e-5 in 16u and 16s, v in 32f. b = cut(t * k) * (1 / k), to
 * which 1 / k is added if t - b is above (1 / k) * 0.5. The result is cut(b * 255) to 8u, cut(b * 65535) to 16u and
 * 16s, limited to 0..255 or 0..65535, in 16s less 32768. The top level may come out one below the largest value.
 *
 * ditherType 1 to 4: a value w of at least 255 (8u), 65535 (16u, 16s) or 1.0 (32f) gives the largest result of the
 * type, one below 0, in 32f below 1.1920929e-7, the smallest. For any other, b = cut(w * inv) * q, and r = b + q if
 * w - b is above the threshold, r = b if it is not; the result is store(r).
 *
 * - 4: w = v; the threshold is m * q, where m is the entry of column x & 3 and row y & 3 of this matrix, divided by 15:
 *       0  8  2 10
 *      12  4 14  6
 *       3 11  1  9
 *      15  7 13  5
 * - 1 to 3: the threshold is 0.5 * q, and w = v + sum * f. The sum is of the errors of pixels that came before, each
 *   times its weight, the products added one by one in this order: row y - 2 at x - 2 .. x + 2, row y - 1 at
 *   x - 2 .. x + 2, row y at x - 2, x - 1
 *   - 1, f = 0.0625: weights none; 0 1 5 3 0; 0 7
 *   - 2, f = 0.020833334: weights 1 3 5 3 1; 3 5 7 5 3; 5 7
 *   - 3, f = 0.023809524: weights 1 2 4 2 1; 2 4 8 4 2; 4 8
 *
 * The error of a pixel is w - r, but 0 where the largest or the smallest result was given without a level, and 0 left
 * and right of the row. Rows run from left to right. Channels follow one another, each as an image of its own, but
 * errors carry on: the rows above the first row of a channel are the last rows of the channel before. Above the first
 * channel errors are 0.
 *
 * Noise: with j = (P[x & 1023] + 2 * y + x) & 1023 the threshold is T[j] for ditherType 1 to 3, (m + T[j]) * q for 4. P
 * and T are drawn by two generators, each started anew at every call; P has 1024 numbers between the bounds 0 and 1024,
 * rounded to the nearest integer, ties to even, and T has 1024 of single precision. The bounds of T, themselves of
 * single precision, are (50 - noise) * u and (50 + noise) * u for ditherType 1 to 3, with u = 3.90625e-5 * (65280 / k)
 * in 8u and 0.01 * q otherwise; -noise * 0.01 and noise * 0.01 for 4.
 *
 * Generator: 32-bit words, all modulo 2^32, at first a = 1131199209, b = 0, c = 1013904243, d = 924302730, carry = -1.
 * For a number t = c - d + carry, as a signed number; carry = -1 if t is negative, else 0; d = c, c = b, b = t, less 18
 * if t is negative; a = a * 69069 + 1013904243. The number is (b + a, as a signed number) * scale + mid in double
 * precision, where scale = (high - low) * 2.3283064365386963e-10 and mid = (low + high) * 0.5.
 *
 * Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for a width or height under 1;
 * tolkStatusBadNoise for a noise above 100; tolkStatusBadLevels; tolkStatusBadDitherType for a ditherType above 4;
 * tolkStatusNullPointer for a null buffer where ditherType is 1 to 3, or 4 with noise. The tests run in this order.
 */
/** 8u, one channel. */
TOLK_API TolkStatus tolkReduceBits_8u_C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                          uint8_t* buffer);
/** 8u, three channels. */
TOLK_API TolkStatus tolkReduceBits_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                          uint8_t* buffer);
/** 8u, four channels. */
TOLK_API TolkStatus tolkReduceBits_8u_C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                          uint8_t* buffer);
/** 8u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16u, one channel. */
TOLK_API TolkStatus tolkReduceBits_16u_C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16u, three channels. */
TOLK_API TolkStatus tolkReduceBits_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16u, four channels. */
TOLK_API TolkStatus tolkReduceBits_16u_C4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                            uint8_t* buffer);
/** 16s, one channel. */
TOLK_API TolkStatus tolkReduceBits_16s_C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16s, three channels. */
TOLK_API TolkStatus tolkReduceBits_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16s, four channels. */
TOLK_API TolkStatus tolkReduceBits_16s_C4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                           uint8_t* buffer);
/** 16s, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                            uint8_t* buffer);
/** 16u to 8u, one channel. */
TOLK_API TolkStatus tolkReduceBits_16u8u_C1R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16u to 8u, three channels. */
TOLK_API TolkStatus tolkReduceBits_16u8u_C3R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16u to 8u, four channels. */
TOLK_API TolkStatus tolkReduceBits_16u8u_C4R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16u to 8u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_16u8u_AC4R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 16s to 8u, one channel. */
TOLK_API TolkStatus tolkReduceBits_16s8u_C1R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16s to 8u, three channels. */
TOLK_API TolkStatus tolkReduceBits_16s8u_C3R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16s to 8u, four channels. */
TOLK_API TolkStatus tolkReduceBits_16s8u_C4R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 16s to 8u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_16s8u_AC4R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16s, one channel. */
TOLK_API TolkStatus tolkReduceBits_32f16s_C1R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16s, three channels. */
TOLK_API TolkStatus tolkReduceBits_32f16s_C3R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16s, four channels. */
TOLK_API TolkStatus tolkReduceBits_32f16s_C4R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16s, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_32f16s_AC4R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                               TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                               uint8_t* buffer);
/** 32f to 16u, one channel. */
TOLK_API TolkStatus tolkReduceBits_32f16u_C1R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16u, three channels. */
TOLK_API TolkStatus tolkReduceBits_32f16u_C3R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16u, four channels. */
TOLK_API TolkStatus tolkReduceBits_32f16u_C4R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 32f to 16u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_32f16u_AC4R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                               TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                               uint8_t* buffer);
/** 32f to 8u, one channel. */
TOLK_API TolkStatus tolkReduceBits_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 32f to 8u, three channels. */
TOLK_API TolkStatus tolkReduceBits_32f8u_C3R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 32f to 8u, four channels. */
TOLK_API TolkStatus tolkReduceBits_32f8u_C4R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                             uint8_t* buffer);
/** 32f to 8u, three channels of four. */
TOLK_API TolkStatus tolkReduceBits_32f8u_AC4R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, uint32_t noise, uint32_t ditherType, int32_t levels,
                                              uint8_t* buffer);
/** 8u to one bit a pixel, in integers; the high bit of a byte comes first. Pixel 0 of a row is bit
 * 7 - (dstBitOffset & 7) of the byte at dstBitOffset / 8; the bits before and behind the row's pixels are left as they
 * were. ditherType 0: the bit is 1 if the sample is above threshold. ditherType 3: s is the sum of the errors times the
 * weights above, t = sample * 8192 + 23 * s, the bit is 1 if t is above threshold * 8192, and the error is t / 1024,
 * rounded toward minus infinity, less 2047 where the bit is 1. buffer has the size for ditherType 3 without noise; it
 * is not used for ditherType 0. unused1 and unused2 are not read. Returns tolkStatusOk; tolkStatusNullPointer for a
 * null src or dst; tolkStatusBadSize for a width or height under 1 or a negative dstBitOffset; tolkStatusNullPointer
 * for a null buffer where ditherType is 3; tolkStatusBadDitherType for a ditherType other than 0 or 3. The tests run in
 * this order. */
TOLK_API TolkStatus tolkReduceBits_8u1u_C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            int32_t dstBitOffset, TolkSize roi, uint32_t unused1, uint32_t unused2,
                                            uint32_t ditherType, uint8_t threshold, uint8_t* buffer);

/* ==== Tone mapping ==== */

/** High-range images of one channel to bytes, by one factor for the whole image. Each image is read twice.
 *
 * Row y of the source begins at src + (y * srcStep) / 4 floats: the product is a signed 32-bit number that wraps
 * around, and the division rounds toward minus infinity.
 *
 * A statistic of the image, the largest sample or the mean, decides: below 0 nothing is written and
 * tolkStatusNotProcessed is returned. Next to 0, or not a number, every byte of the destination's region is set to 0.
 * Otherwise the samples are mapped. Arithmetic is single precision, each operation rounded on its own, unless said
 * otherwise; cut() rounds toward zero.
 *
 * The bytes of 0: a region of more than 0x80000 bytes may bypass the caches. It does if it is as large as the largest
 * cache. Where the process has a function TolkStatus tolkGetMaxCacheSizeB(int32_t* bytes), that is asked for the size,
 * and if it fails the caches are not bypassed; otherwise the system is asked. The bytes are the same either way.
 *
 * Any width and height from 1. Steps are not tested.
 *
 * Returns tolkStatusOk; the warning tolkStatusNotProcessed; tolkStatusNullPointer for a null src or dst;
 * tolkStatusBadSize for a width or height under 1. Pointers are tested first, then the size.
 */
/** The largest sample to 255: M is the largest of -3.4028235e38 and all samples that are numbers; if it is not above
 * 1.1754944e-38 it is next to 0. With r = 1 / M a result is cut((x * 255) * r), of which the low 8 bits are stored:
 * there are no limits, -1 is 255, and 256, should rounding reach it, is 0. A product that is not a number, or that a
 * 32-bit integer does not hold, gives 0: so does a sample above 1.33e36, of which x * 255 is infinite. */
TOLK_API TolkStatus tolkToneMapLinear_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi);
/** The mean to 127.5, where single precision holds the factor; it is infinite for means next to 0: m = S / (width *
 * height) in double precision, the product a signed 32-bit number. The statistic is m + m; if it is not
 * above 1.1754943508222875e-38 it is next to 0. With f = 127.5 / m, divided in double precision and rounded to single,
 * a result is cut(x * f), limited to 0..255. A product that is not a number gives 0.
 *
 * S is the sum of the rows' sums from the first on, in double precision, and depends on where rows lie: with
 * h = (-address & 15) / 4, rounded down, of the row's first sample, sample x is added to partial sum x if x is below h,
 * otherwise to partial sum (x - h) & 15, in the order of x. The sixteen partial sums begin at 0 and in the end are
 * folded by halves: the sum of i and i + 8 for i below 8, then of i and i + 4, of i and i + 2, of 0 and 1. */
TOLK_API TolkStatus tolkToneMapMean_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi);

/* ==== Demosaicing ==== */

/** Colours of a sensor's four-site pattern: even row, then odd row, from the mosaic's site (0, 0). */
enum {
  tolkGridBGGR = 0, /**< BG, GR */
  tolkGridRGGB = 1, /**< RG, GB */
  tolkGridGBRG = 2, /**< GB, RG */
  tolkGridGRBG = 3  /**< GR, BG */
};

/** Any rectangle of a Bayer mosaic, one sample a site, to RGB: the two missing colours from the nearest sites that have
 * them, green along the smaller of two gradients.
 *
 * src addresses the site (0, 0) of the whole mosaic of srcSize, W by H sites; the colour of a site follows from its
 * coordinates there and from grid. dst addresses the pixel of the site (x, y) of srcRect. A rectangle that runs over
 * the mosaic's right or bottom edge is trimmed; sites of negative coordinates are neither computed nor written. Sites
 * of the mosaic are read up to two away from the rectangle, no others. Outside the mosaic its sites are mirrored at the
 * edge sites, which are not repeated: column -1 is column 1, column W is column W - 2.
 *
 * Every average rounds a half up. A red or blue site takes the opposite colour from its four diagonal neighbours. A
 * green site takes one colour from the left and the right neighbour, the other from above and below. With
 * dv = |two above - two below| and dh = |two left - two right|, a red or blue site at least two sites from every edge
 * takes green from above and below where dh > dv, from left and right where dv > dh, and else from all four; nearer to
 * an edge always from all four. Results are the same in every rectangle that a site is part of.
 *
 * reserved is not read. Steps are not tested; with 16u the lowest bit of both steps is ignored.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for W or H under 2;
 * tolkStatusBadEnum for a grid above 3. The tests run in this order.
 */
/** 8 bits. */
TOLK_API TolkStatus tolkCFAToRGB_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                          uint8_t* dst, int32_t dstStep, uint32_t grid, int32_t reserved);
/** 16 bits. */
TOLK_API TolkStatus tolkCFAToRGB_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                           uint16_t* dst, int32_t dstStep, uint32_t grid, int32_t reserved);

/* ==== Demosaicing by a variable number of gradients ==== */

/** Any rectangle of a Bayer mosaic to BGRA, by a variable number of gradients (Chang, Cheung and Pang): eight
 * directional gradients of a site's 5 by 5 neighbourhood, and the mean colour differences over the directions whose
 * gradient is below a threshold. src, srcRect, srcSize, dst and grid are as in Demosaicing, but the rectangle is
 * not trimmed.
 *
 * Interpolated are the sites of the rectangle that are at least two sites from every edge: with x0 = x for x of 3 or
 * more and else 2, x1 = x + width - 1 for x + width below W - 2 and else W - 3, the columns x0 to x1; likewise the
 * rows.
 *
 * With P(r, c) the sample r rows below and c columns right of the site C, the doubled gradients are
 *
 * - N = 2 (|P(-2,0) - C| + |P(-1,0) - P(1,0)|) + |P(-1,-1) - P(1,-1)| + |P(-1,1) - P(1,1)| + |P(0,-1) - P(-2,-1)| +
 *   |P(0,1) - P(-2,1)|; S is N with rows mirrored, W is N with rows and columns exchanged, E is W with columns mirrored
 * - NE of a red or blue site = 2 (|C - P(-2,2)| + |P(-1,1) - P(1,-1)|) + |P(-1,2) - P(0,1)| + |P(-2,1) - P(-1,0)| +
 *   |P(0,1) - P(1,0)| + |P(-1,0) - P(0,-1)|
 * - NE of a green site = 2 (|C - P(-2,2)| + |P(-1,1) - P(1,-1)| + |P(0,-1) - P(-2,1)| + |P(1,0) - P(-1,2)|)
 * - SE, NW and SW are NE mirrored
 *
 * With m the smallest and M the largest gradient, a direction counts if its gradient is below max(M / 2, 1) + m, cut to
 * an integer; n is their number. Each adds one term to three sums. Of directions not listed
 * the terms are those of the listed ones turned or, at a green site, mirrored:
 *
 * - red or blue site: same = P(-2,0) + C, green = 2 P(-1,0), other = P(-1,-1) + P(-1,1); NE: same = P(-2,2) + C,
 *   green = (P(-2,1) + P(-1,0) + P(-1,2) + P(0,1)) / 2 cut to an integer, other = 2 P(-1,1)
 * - green site, row being the colour of its left and right neighbours: N: green = P(-2,0) + C,
 *   row = P(-2,-1) + P(-2,1), column = 2 P(-1,0); E: green = P(0,2) + C, row = 2 P(0,1), column = P(-1,2) + P(1,2);
 *   NE: green = 2 P(-1,1), row = P(-2,1) + P(0,1), column = P(-1,0) + P(-1,2)
 *
 * A missing colour is C + (its sum - the sum of the site's own colour) / (2 n), the quotient cut toward zero. It is
 * converted to single precision, multiplied by its gain, limited to the range of the samples and rounded to the nearest
 * integer, ties to even. scale holds the gains of blue, green and red; a null scale is 1, 1, 1. The fourth sample of an
 * interpolated pixel keeps its value.
 *
 * The frame of two pixels at the mosaic's edges then repeats the nearest interpolated pixel, all four samples, inside
 * dst: first columns, over the interpolated rows, then whole rows of the rectangle. Column x0 is copied two to the left
 * if x is 0 and one to the left if x is 0 or 1; column x1 one to the right if x + width is at least W - 2, and two to
 * the right if it is at least W - 1; rows y0 and y1 likewise with y, height and H. So a rectangle that ends one or two
 * sites before the right or the bottom edge makes the column or row after it be written, for which dst needs room. The
 * copies run also where no site was interpolated: a rectangle in the frame alone may make others of the frame be
 * written, on any side of it.
 *
 * Steps are not tested; they are bytes with 16u too.
 *
 * Returns tolkStatusOk, also for a width or height under 1, when nothing is written; tolkStatusNullPointer for a null
 * src or dst; tolkStatusSizeOverflow for width, height, W or H above 2147483647 (_L forms); tolkStatusBadSize for W or
 * H under 5; tolkStatusBadEnum for a grid above 3. The tests run in this order, that of an empty rectangle last.
 */
/** 8 bits. */
TOLK_API TolkStatus tolkCFAToBGRA_VNG_8u_C1C4R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                               const float scale[3], uint8_t* dst, int32_t dstStep, uint32_t grid);
/** 16 bits. */
TOLK_API TolkStatus tolkCFAToBGRA_VNG_16u_C1C4R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize,
                                                int32_t srcStep, const float scale[3], uint16_t* dst, int32_t dstStep,
                                                uint32_t grid);
/** 8 bits, sizes and steps of 64 bits. */
TOLK_API TolkStatus tolkCFAToBGRA_VNG_8u_C1C4R_L(const uint8_t* src, TolkRectL srcRect, TolkSizeL srcSize,
                                                 int64_t srcStep, const float scale[3], uint8_t* dst, int64_t dstStep,
                                                 uint32_t grid);
/** 16 bits, sizes and steps of 64 bits. */
TOLK_API TolkStatus tolkCFAToBGRA_VNG_16u_C1C4R_L(const uint16_t* src, TolkRectL srcRect, TolkSizeL srcSize,
                                                  int64_t srcStep, const float scale[3], uint16_t* dst, int64_t dstStep,
                                                  uint32_t grid);

/* ==== Homogeneity-directed demosaicing ==== */

/** Any rectangle of a Bayer mosaic to RGB, adaptive and homogeneity-directed (Hirakawa and Parks): two candidates,
 * green interpolated along rows (H) and along columns (V), of which each pixel takes the one with the more homogeneous
 * neighbourhood. src, srcRect, srcSize and grid are as in Demosaicing. The rectangle is trimmed to the
 * mosaic: its origin is moved to 0 where it is negative, which keeps width and height, and then its far edges to the
 * mosaic's. dst addresses the pixel of the trimmed origin. A trimmed rectangle without pixels is success.
 *
 * buffer is scratch memory of 30 rows, bufferStep bytes apart, each of the trimmed width + 6 samples of the function's
 * type, whatever the height. Nothing in it is read before it has been written. It may be anywhere, but two calls at a
 * time need two. It is not tested for null.
 *
 * Outside the mosaic its sites are mirrored at the edge sites, which are not repeated. Integers of 32 bits, divisions
 * round toward minus infinity:
 *
 * - Green of a red or blue site c, with neighbours a, b and d, e one and two sites away along the candidate's
 * direction: (a + b) / 2 + (2 c - d - e) / 4, each quotient rounded for itself, limited to the range from a to b.
 * - Red and blue of a candidate, from its green G and the mosaic's samples X of the colour: at a green site
 *   G + (the two neighbouring X - the two neighbouring G) / 2, at the opposite colour's G + (the four diagonal X - the
 *   four diagonal G) / 4, limited to the range of the samples.
 * - Y = (66 R + 129 G + 25 B + 128) / 256, U = (-38 R - 74 G + 112 B + 128) / 256, V = (112 R - 94 G - 18 B + 128) /
 * 256, for both sample types.
 * - To each of the four neighbours dY = |difference of Y| and dC = the sum of the squared differences of U and V, an
 *   unsigned number of 32 bits that wraps around. epsY = min(the larger dY of H to left and right, the larger dY of V
 *   up and down), epsC likewise. A candidate's count is the number of its neighbours with dY <= epsY and dC <= epsC.
 * - A pixel's sum is count H - count V over its 3 by 3 neighbourhood: below 0 it takes candidate V, above 0 H, and at 0
 *   that of the pixel to its left. At the start of a run's row a 0 takes H.
 *
 * The rectangle is converted in up to five runs, so where a 0 takes H is part of the definition. With xi = 5 for x
 * below 6 and else x, yi likewise, the inner run begins at (xi, yi), moved by one to the right if that site is blue or
 * a green one in a row with red, and then by one down if it still is not red. It ends at the rectangle's end or 5 sites
 * before the mosaic's, whichever comes first; then its width and height are cut to even numbers. Above and below it lie
 * runs over the whole width, left and right of it runs of its height. Without an inner run the rectangle is one run.
 *
 * Steps are not tested; with 16u dstStep is divided by 2 toward zero and bufferStep loses its lowest bit.
 *
 * Returns tolkStatusOk; tolkStatusNullPointer for a null src or dst; tolkStatusBadSize for W or H under 5;
 * tolkStatusBadEnum for a grid above 3. The tests run in this order.
 */
/** 8 bits. */
TOLK_API TolkStatus tolkDemosaicAHD_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                             uint8_t* dst, int32_t dstStep, uint32_t grid, uint8_t* buffer,
                                             int32_t bufferStep);
/** 16 bits. */
TOLK_API TolkStatus tolkDemosaicAHD_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                              uint16_t* dst, int32_t dstStep, uint32_t grid, uint16_t* buffer,
                                              int32_t bufferStep);

#ifdef __cplusplus
}
#endif

#endif
