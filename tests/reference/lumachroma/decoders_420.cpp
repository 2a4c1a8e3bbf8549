// Plain scalar reference of the decoders of 4:2:0 and 4:1:1 to RGB and BGR.
#include <algorithm>

#include "forms.h"
#include "reference_declarations.h"
#include "subsampled.h"

namespace reference {
namespace {

Samples inverseF(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9536), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 13074) + 8, 16)),                  // R
          clamp8(fl(y + h(Cbb, -3203) + h(Crb, -6660) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 16523) + 8, 16))};                 // B
}

Samples inverseV(Integer Y, Integer Cb, Integer Cr) {
  return {clamp8(fl(76294 * Y + 104595 * Cr - 14576096, 65536)),
          clamp8(fl(76294 * Y - 25625 * Cb - 53281 * Cr + 8912032, 65536)),
          clamp8(fl(76294 * Y + 132186 * Cb - 18107744, 65536))};
}

// Chroma of 4:2:0 between two rows, three parts of the nearer; outside the whole chroma rows the outermost one repeats.
struct FilteredRows {
  Subsampled source;
  Integer chromaRows;

  Samples fetch(Integer x, Integer y) const {
    const Integer near = y >> 1, far = std::clamp<Integer>(y % 2 == 0 ? near - 1 : near + 1, 0, chromaRows - 1);
    const auto blend = [&](const Channel& chroma) {
      return fl(3 * chroma.at(x >> 1, near) + chroma.at(x >> 1, far) + 2, 4);
    };
    return {source.luma.at(x, y), blend(source.cb), blend(source.cr)};
  }
};

// Planar 4:1:1, whose columns after the last whole group take that group's chroma.
struct Groups411 {
  const uint8_t* const* plane;
  const int32_t* step;
  Integer width;

  Samples fetch(Integer x, Integer y) const {
    const Integer group = x < (width & ~3) ? x >> 2 : (x >> 2) - 1;
    const auto at = [&](int i, Integer column) { return Channel{plane[i], step[i], 1}.at(column, y); };
    return {at(0, x), at(1, group), at(2, group)};
  }
};

// Only whole groups of 2 by 2 pixels are read and written.
template <typename Source, typename BlockForm, typename TailForm, typename Destination>
TolkStatus walk420(TolkSize roi, const Source& from, int block, BlockForm blockForm, TailForm tailForm,
                   const Destination& to, Fourth fourth = {kKept, kKept}) {
  walk({roi.width & ~1, roi.height & ~1}, from, block, blockForm, tailForm, to, fourth);
  return roi.width % 2 != 0 || roi.height % 2 != 0 ? tolkStatusOddSize : tolkStatusOk;
}
template <typename Source, typename Form, typename Destination>
TolkStatus walk420(TolkSize roi, const Source& from, Form form, const Destination& to,
                   std::optional<uint8_t> fourth = kKept) {
  return walk420(roi, from, 1, form, form, to, {fourth, fourth});
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYCbCr420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, planar420(src, srcStep), 8, inverseA, inverseU, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, planar420(src, srcStep), 8, inverseA, inverseU, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, planar420(src, srcStep), inverseD2, packedReversed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCbCr420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep), inverseD2, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep), inverseD2, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                                 uint8_t alpha) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep), inverseD2, packed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCbCr420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                                 uint8_t alpha) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep), inverseD2, packedReversed(4, dst, dstStep),
                 alpha);
}

TolkStatus reference::tolkYCrCb420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, crFirst(twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep)), inverseD3, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi)})) return fault;
  return walk420(roi, crFirst(twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep)), inverseD3,
                 packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                                 uint8_t alpha) {
  if (const auto fault = firstFault({size(roi), pointer(srcY), pointer(srcCbCr), pointer(dst)})) return fault;
  return walk420(roi, crFirst(twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep)), inverseD3, packed(4, dst, dstStep),
                 alpha);
}

TolkStatus reference::tolkYCrCb420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                 int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                                 uint8_t alpha) {
  if (const auto fault = firstFault({size(roi), pointer(srcY), pointer(srcCbCr), pointer(dst)})) return fault;
  return walk420(roi, crFirst(twoPlanes420(srcY, srcYStep, srcCbCr, srcCbCrStep)), inverseD3,
                 packedReversed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCrCb420ToRGB_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, crFirst(planar420(src, srcStep)), 8, inverseC, inverseU, packed(4, dst, dstStep), {alpha, alpha});
}

TolkStatus reference::tolkYCrCb420ToBGR_Filter_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                        uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, FilteredRows{crFirst(planar420(src, srcStep)), roi.height >> 1}, inverseA,
                 packedReversed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCbCr420ToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                        uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, planar420(src, srcStep), inverse709C3, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToBGR_709HDTV_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                         uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk420(roi, planar420(src, srcStep), inverseH, packedReversed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCbCr411ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 4)})) return fault;
  return walk(roi, Groups411{src, srcStep, roi.width}, 4, inverseF, inverseV, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 4)})) return fault;
  return walk(roi, Groups411{src, srcStep, roi.width}, 4, inverseF, inverseV, packedReversed(4, dst, dstStep),
              {alpha, alpha});
}
