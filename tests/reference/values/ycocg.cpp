// Plain scalar reference of the YCoCg family.
#include <algorithm>
#include <type_traits>

#include "../samples.h"
#include "reference_declarations.h"

namespace reference {
namespace {

enum class BadSize { Refused, NotTested };
constexpr BadSize kRefused = BadSize::Refused, kNotTested = BadSize::NotTested;

Integer exact(Integer v) { return v; }
Integer wrapped16(Integer v) { return static_cast<int16_t>(v); }
Integer wrapped32(Integer v) { return static_cast<int32_t>(v); }
Integer half(Integer v) { return fl(v, 2); }

// Forward forms give Y, Co, Cg, and inverse ones B, G, R.

Samples plainForward(Integer b, Integer g, Integer r) {
  return {fl(r + 2 * g + b + 2, 4), fl(r - b + 1, 2), fl(2 * g - r - b + 2, 4)};
}

Samples limitedForward(Integer b, Integer g, Integer r) {
  Samples results = plainForward(b, g, r);
  for (Integer& v : results) v = std::clamp(v, -32768LL, 32767LL);
  return results;
}

Samples offsetForward(Integer r, Integer g, Integer b) {
  const auto [y, co, cg] = plainForward(b, g, r);
  return {y, std::min(co + 128, 255LL), std::min(cg + 128, 255LL)};
}

template <Integer reduced(Integer)>
Samples revForward(Integer b, Integer g, Integer r) {
  const Integer co = reduced(r - b);
  const Integer t = reduced(b + half(co));
  const Integer cg = reduced(g - t);
  const Integer y = reduced(t + half(cg));
  return {y, co, cg};
}

template <Integer reduced(Integer)>
Samples plainInverse(Integer y, Integer co, Integer cg) {
  const Integer t = reduced(y - cg);
  return {reduced(t - co), reduced(y + cg), reduced(t + co)};
}

template <Integer reduced(Integer)>
Samples revInverse(Integer y, Integer co, Integer cg) {
  const Integer t = reduced(y - half(cg));
  const Integer g = reduced(cg + t);
  const Integer b = reduced(t - half(co));
  const Integer r = reduced(b + co);
  return {b, g, r};
}

auto limited(Samples inverse(Integer, Integer, Integer)) {
  return [=](Integer y, Integer co, Integer cg) {
    const auto [b, g, r] = inverse(y, co, cg);
    return Samples{clamp8(b), clamp8(g), clamp8(r)};
  };
}

// To R, G, B.
Samples offsetInverse(Integer y, Integer co, Integer cg) {
  const auto [b, g, r] = plainInverse<exact>(y, co - 128, cg - 128);
  return {clamp8(r), clamp8(g), clamp8(b)};
}

TolkStatus size(TolkSize roi, BadSize rule) { return rule == kRefused ? reference::size(roi) : tolkStatusOk; }

template <typename From, typename To, typename Form>
TolkStatus toPlanes(int channels, const From* src, Integer srcStep, To* const* dst, Integer dstStep, TolkSize roi,
                    BadSize badSize, Form form) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, badSize)})) return fault;
  return walkOneForm(roi, interleaved(channels, src, srcStep), form, separate(3, dst, dstStep));
}

template <typename From, typename To, typename Form>
TolkStatus fromPlanes(const From* const* src, Integer srcStep, To* dst, Integer dstStep, TolkSize roi, BadSize badSize,
                      Form form, std::optional<std::type_identity_t<To>> alpha = {}) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, badSize)})) return fault;
  const auto to = interleaved(alpha ? 4 : 3, dst, dstStep);
  walkOneForm(roi, separate(3, src, srcStep), form, to);
  for (Integer y = 0; alpha && y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) to.put(3, x, y, *alpha);
  return tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkBGRToYCoCg_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, plainForward);
}

TolkStatus reference::tolkBGRToYCoCg_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kRefused, plainForward);
}

TolkStatus reference::tolkBGRToYCoCg_Rev_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                     int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, revForward<exact>);
}

TolkStatus reference::tolkBGRToYCoCg_Rev_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3],
                                                     int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kRefused, revForward<exact>);
}

TolkStatus reference::tolkRGBToYCoCg_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                              int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, offsetForward);
}

TolkStatus reference::tolkSBGRToYCoCg_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, limitedForward);
}

TolkStatus reference::tolkSBGRToYCoCg_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kRefused, limitedForward);
}

TolkStatus reference::tolkSBGRToYCoCg_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                   int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, plainForward);
}

TolkStatus reference::tolkSBGRToYCoCg_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                   int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kNotTested, plainForward);
}

TolkStatus reference::tolkSBGRToYCoCg_Rev_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                    int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kNotTested, revForward<wrapped16>);
}

TolkStatus reference::tolkSBGRToYCoCg_Rev_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3],
                                                    int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kNotTested, revForward<wrapped16>);
}

TolkStatus reference::tolkSBGRToYCoCg_Rev_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                       int32_t dstStep, TolkSize roi) {
  return toPlanes(3, src, srcStep, dst, dstStep, roi, kRefused, revForward<exact>);
}

TolkStatus reference::tolkSBGRToYCoCg_Rev_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3],
                                                       int32_t dstStep, TolkSize roi) {
  return toPlanes(4, src, srcStep, dst, dstStep, roi, kNotTested, revForward<exact>);
}

TolkStatus reference::tolkYCoCgToBGR_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, limited(plainInverse<wrapped16>));
}

TolkStatus reference::tolkYCoCgToBGR_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi, uint8_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, limited(plainInverse<wrapped16>), alpha);
}

TolkStatus reference::tolkYCoCgToBGR_Rev_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                     int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, limited(revInverse<wrapped16>));
}

TolkStatus reference::tolkYCoCgToBGR_Rev_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                     int32_t dstStep, TolkSize roi, uint8_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, limited(revInverse<wrapped16>), alpha);
}

TolkStatus reference::tolkYCoCgToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                              int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, offsetInverse);
}

TolkStatus reference::tolkYCoCgToSBGR_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, plainInverse<wrapped16>);
}

TolkStatus reference::tolkYCoCgToSBGR_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                int32_t dstStep, TolkSize roi, int16_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kRefused, plainInverse<wrapped16>, alpha);
}

TolkStatus reference::tolkYCoCgToSBGR_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                   int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kRefused, plainInverse<wrapped32>);
}

TolkStatus reference::tolkYCoCgToSBGR_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                   int32_t dstStep, TolkSize roi, int16_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kRefused, plainInverse<wrapped32>, alpha);
}

TolkStatus reference::tolkYCoCgToSBGR_Rev_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                    int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, revInverse<wrapped16>);
}

TolkStatus reference::tolkYCoCgToSBGR_Rev_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst,
                                                    int32_t dstStep, TolkSize roi, int16_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, revInverse<wrapped16>, alpha);
}

TolkStatus reference::tolkYCoCgToSBGR_Rev_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                       int32_t dstStep, TolkSize roi) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, revInverse<wrapped32>);
}

TolkStatus reference::tolkYCoCgToSBGR_Rev_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst,
                                                       int32_t dstStep, TolkSize roi, int16_t alpha) {
  return fromPlanes(src, srcStep, dst, dstStep, roi, kNotTested, revInverse<wrapped32>, alpha);
}
