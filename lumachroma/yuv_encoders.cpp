// RGB and BGR to YUV 4:2:2 and 4:2:0.
#include "frame/checks.h"
#include "frame/groups.h"
#include "lumachroma/yuv_forms.h"

using namespace tolk;

namespace {

template <class Source, class Target>
TolkStatus encode420(TolkSize roi, Source src, Target dst) {
  return rows(wholeGroups<2, 2>(roi), src, dst, block<2>(YuvGroup<4>{}), tail(YuvGroup<4>{}));
}

// The last pixel of an odd width is a group of its own; in the packed form it has no room for V.
template <class Source, class Target>
TolkStatus encode422(TolkSize roi, Source src, Target dst) {
  rows(roi, src, dst, block<2>(YuvGroup<2>{}), tail(YuvGroup<2>{}));
  const ptrdiff_t x = roi.width - 1;
  for (ptrdiff_t y = 0; x % 2 == 0 && y < roi.height; ++y) {
    const auto [R, G, B] = src.row(y).loadPixel(x);
    const auto to = dst.row(y);
    const auto chroma = YuvGroup<1>::chroma(int{R}, int{G}, int{B});
    to.setLuma(0, x, YuvGroup<1>::luma(int{R}, int{G}, int{B}));
    if constexpr (requires { to.setCb(x, 0); }) {
      to.setCb(x, chroma[0]);
    } else {
      to.setChroma(x, chroma);
    }
  }
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkRGBToYUV422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return encode422(roi, from<RGB3>(src, srcStep), to422<ToYCbCr422>(dst, dstStep));
}

TolkStatus tolkRGBToYUV422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                    const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return encode422(roi, from<RGB3>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkRGBToYUV422_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                  const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return encode422(roi, from(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkRGBToYUV422_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return encode422(roi, from<RGB3>(src, 3 * ptrdiff_t{roi.width}), toPlanes<2, 1>(dst, tightSteps422(roi).step));
}

TolkStatus tolkRGBToYUV422_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return encode422(roi, from(src, roi.width), toPlanes<2, 1>(dst, tightSteps422(roi).step));
}

TolkStatus tolkRGBToYUV420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                    const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return encode420(roi, from<RGB3>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkRGBToYUV420_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                  const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return encode420(roi, from(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkRGBToYUV420_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return encode420(roi, from<RGB3>(src, 3 * ptrdiff_t{roi.width}), toPlanes<2, 2>(dst, tightSteps420(roi).step));
}

TolkStatus tolkRGBToYUV420_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return encode420(roi, from(src, roi.width), toPlanes<2, 2>(dst, tightSteps420(roi).step));
}

TolkStatus tolkBGRToYUV420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                     const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return encode420(roi, from<BGR4>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}
