// Colour twists of packed and planar pixels.
#include "frame/checks.h"
#include "frame/rows.h"
#include "values/packed_twist.h"

using namespace tolk;

namespace {

TolkStatus integerRows(TolkSize roi, auto src, auto dst, auto form) {
  if constexpr (requires { twistPacked(roi, src, dst, form); }) {
    return twistPacked(roi, src, dst, form);
  } else {
    return rows(roi, src, dst, form);
  }
}

template <class T>
TolkStatus integerTwist(TolkSize roi, auto src, auto dst, const float (*twist)[4]) {
  auto kernel = [](TolkSize size, auto from, auto to, const Weights<3>& weights) {
    if (kLanes > 0 && sumsFit(weights)) return integerRows(size, from, to, IntegerTwist<T, true>{{weights}});
    return integerRows(size, from, to, IntegerTwist<T, false>{{weights}});
  };
  return inUsualFloatState(kernel, roi, src, dst, Weights<3>(twist));
}

}  // namespace

TolkStatus tolkColorTwist32f_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<uint8_t>(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<uint8_t>(roi, from<RGB3>(srcDst, srcDstStep), to<RGB3>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                     const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<uint8_t>(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<uint8_t>(roi, from<RGB4>(srcDst, srcDstStep), to<RGB4>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                    int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return integerTwist<uint8_t>(roi, from(src, srcStep), to(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                     const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), planes(srcDst), size(roi), steps(srcDstStep, srcDstStep)))
    return fault;
  return integerTwist<uint8_t>(roi, from(srcDst, srcDstStep), to(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                     const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<uint16_t>(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<uint16_t>(roi, from<RGB3>(srcDst, srcDstStep), to<RGB3>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                      TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<uint16_t>(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<uint16_t>(roi, from<RGB4>(srcDst, srcDstStep), to<RGB4>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                     int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return integerTwist<uint16_t>(roi, from(src, srcStep), to(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                      const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), planes(srcDst), size(roi), steps(srcDstStep, srcDstStep)))
    return fault;
  return integerTwist<uint16_t>(roi, from(srcDst, srcDstStep), to(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                     const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<int16_t>(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_C3IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<int16_t>(roi, from<RGB3>(srcDst, srcDstStep), to<RGB3>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                      const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return integerTwist<int16_t>(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_AC4IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return integerTwist<int16_t>(roi, from<RGB4>(srcDst, srcDstStep), to<RGB4>(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_P3R(const int16_t* const src[3], int32_t srcStep, int16_t* const dst[3],
                                     int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return integerTwist<int16_t>(roi, from(src, srcStep), to(dst, dstStep), twist);
}

TolkStatus tolkColorTwist32f_16s_IP3R(int16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                      const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), planes(srcDst), size(roi), steps(srcDstStep, srcDstStep)))
    return fault;
  return integerTwist<int16_t>(roi, from(srcDst, srcDstStep), to(srcDst, srcDstStep), twist);
}

TolkStatus tolkColorTwist_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                  const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return twistPacked(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return twistPacked(roi, from<RGB3>(srcDst, srcDstStep), to<RGB3>(srcDst, srcDstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                   const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return twistPacked(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), size(roi), steps(srcDstStep, srcDstStep))) return fault;
  return twistPacked(roi, from<RGB4>(srcDst, srcDstStep), to<RGB4>(srcDst, srcDstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3], int32_t dstStep,
                                  TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(src, dst, twist), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, const float twist[3][4]) {
  if (auto fault = check(pointers(srcDst, twist), planes(srcDst), size(roi), steps(srcDstStep, srcDstStep)))
    return fault;
  return rows(roi, from(srcDst, srcDstStep), to(srcDst, srcDstStep), Twist{Weights<3>(twist)});
}

TolkStatus tolkColorTwist_32f_C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                  const float twist[4][4]) {
  if (auto fault = check(pointers(src, dst, twist), size(roi), steps(srcStep, dstStep))) return fault;
  return twistPacked(roi, from<RGBA>(src, srcStep), to<RGBA>(dst, dstStep), FourTwist{Weights<4>(twist)});
}
