// 4:2:0 and 4:1:1 to RGB and BGR.
#include "frame/checks.h"
#include "frame/subsampled.h"
#include "lumachroma/decoder_forms.h"

using namespace tolk;

namespace {

// 4:2:0 planes whose chroma rows lie between the luma rows: three parts of the nearer one, one of the one beyond.
struct FilteredGroups {
  static constexpr int kAcross = 2, kDown = 1;
  struct Row {
    LumaRows<1> luma;
    const uint8_t* near[2];
    const uint8_t* far[2];

    template <int L>
    LANE_OP GroupSamples<1, L> load(ptrdiff_t x) const {
      auto chroma = [&](int c) __attribute__((always_inline)) {
        return blend(loadParts<8, L>(near[c] + x / 2), loadParts<8, L>(far[c] + x / 2));
      };
      return {luma.load<L>(x), chroma(0), chroma(1)};
    }
    template <int L>
    LANE_OP GroupSamples<1, L> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      auto chroma = [&](int c) __attribute__((always_inline)) {
        return blend(loadSomeParts<8, L>(near[c] + x / 2, pixels / 2), loadSomeParts<8, L>(far[c] + x / 2, pixels / 2));
      };
      return {luma.loadSome<L>(x, pixels), chroma(0), chroma(1)};
    }
    std::array<int, 3> loadPixel(int, ptrdiff_t x) const {
      auto chroma = [&](int c) { return (3 * near[c][x / 2] + far[c][x / 2] + 2) >> 2; };
      return {luma.base[0][x], chroma(0), chroma(1)};
    }

   private:
    template <int L>
    LANE_OP static U8<L> blend(U8<L> a, U8<L> b) {
      const I16<L> n = widenLow(a), sum = shiftRight(n + n + n + widenLow(b) + 2, 2);
      return narrow(sum, sum);
    }
  };
  Row row(ptrdiff_t y) const {
    const ptrdiff_t near = y / 2, far = std::clamp<ptrdiff_t>(y % 2 == 0 ? near - 1 : near + 1, 0, lastChromaRow);
    auto at = [&](int c, ptrdiff_t row) { return planes.plane[c] + row * planes.step[c]; };
    return {lumaRows<1>(planes.plane[0], planes.step[0], y), {at(1, near), at(2, near)}, {at(1, far), at(2, far)}};
  }

  PlanarGroups<2, 2> planes;
  ptrdiff_t lastChromaRow;
};

// Columns after the last whole group of four take its chroma.
template <class Target>
TolkStatus rows411(TolkSize roi, PlanarGroups<4, 1> src, Target dst) {
  const int32_t whole = roi.width & -4;
  rows(roi, src, dst, InverseF{});
  for (ptrdiff_t y = 0; whole < roi.width && y < roi.height; ++y) {
    const auto last = src.row(y).loadPixel(0, whole - 1);
    for (ptrdiff_t x = whole; x < roi.width; ++x) {
      dst.row(y).storePixel(x, InverseV{}(int{src.row(y).luma.base[0][x]}, last[1], last[2]));
    }
  }
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkYCbCr420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}),
       tail(InverseU{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<BGR3>(dst, dstStep), block<8>(InverseA{}),
       tail(InverseU{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InverseD<kD2>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep), to<RGB3>(dst, dstStep),
       InverseD<kD2>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep), to<BGR3>(dst, dstStep),
       InverseD<kD2>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
       to<RGB4>(dst, dstStep, Set{alpha}), InverseD<kD2>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
       to<BGR4>(dst, dstStep, Set{alpha}), InverseD<kD2>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToRGB_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2, 1>(srcY, srcYStep, srcCbCr, srcCbCrStep), to<RGB3>(dst, dstStep),
       InverseD<kD3>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToBGR_8u_P2C3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2, 1>(srcY, srcYStep, srcCbCr, srcCbCrStep), to<BGR3>(dst, dstStep),
       InverseD<kD3>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToRGB_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(size(roi), pointers(srcY, srcCbCr, dst))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2, 1>(srcY, srcYStep, srcCbCr, srcCbCrStep),
       to<RGB4>(dst, dstStep, Set{alpha}), InverseD<kD3>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToBGR_8u_P2C4R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(size(roi), pointers(srcY, srcCbCr, dst))) return fault;
  rows(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2, 1>(srcY, srcYStep, srcCbCr, srcCbCrStep),
       to<BGR4>(dst, dstStep, Set{alpha}), InverseD<kD3>{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToRGB_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromCrFirst<2, 2>(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}),
       block<8>(InverseC{}), tail(InverseU{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCrCb420ToBGR_Filter_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                             int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), FilteredGroups{fromCrFirst<2, 2>(src, srcStep), roi.height / 2 - 1},
       to<BGR4>(dst, dstStep, Set{alpha}), InverseA{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                             int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<BGR3>(dst, dstStep), Inverse709{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr420ToBGR_709HDTV_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                              int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InverseH{});
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYCbCr411ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {4, 1}))) return fault;
  return rows411(roi, fromPlanes<4, 1>(src, srcStep), to<BGR3>(dst, dstStep));
}

TolkStatus tolkYCbCr411ToBGR_8u_P3C4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {4, 1}))) return fault;
  return rows411(roi, fromPlanes<4, 1>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}));
}
