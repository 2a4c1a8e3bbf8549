// Gamma correction by the BT.709 transfer curve, and its inverse.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/gamma_forms.h"
#include "spaces/gamma_tables.h"

using namespace tolk;

namespace {

// The range is tested before everything else.
struct RangeTest {
  float vMin, vMax;
  TolkStatus fault() const { return vMax - vMin > 0 ? tolkStatusOk : tolkStatusGammaRange; }
};

// A row of three-channel pixels is a row of samples.
struct Samples {
  ptrdiff_t width, height;
};
Samples ofThree(TolkSize roi) { return {ptrdiff_t{3} * roi.width, roi.height}; }

// A 16-bit table has no place in registers: sample by sample, the first kUsed of kStride.
template <int kUsed, int kStride>
void lookUpWords(const void* src, ptrdiff_t srcStep, void* dst, ptrdiff_t dstStep, TolkSize roi,
                 const uint16_t* table) {
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    const uint8_t* from = static_cast<const uint8_t*>(src) + y * srcStep;
    uint8_t* to = static_cast<uint8_t*>(dst) + y * dstStep;
    for (ptrdiff_t x = 0; x < roi.width; ++x, from += 2 * kStride, to += 2 * kStride) {
      unrolled<kUsed>([&](auto c) {
        uint16_t sample;
        std::memcpy(&sample, from + 2 * c, sizeof sample);
        std::memcpy(to + 2 * c, &table[sample], sizeof sample);
      });
    }
  }
}

// What becomes of the samples, by their type.
TolkStatus threeChannels(const uint8_t* src, ptrdiff_t srcStep, uint8_t* dst, ptrdiff_t dstStep, TolkSize roi,
                         const ByteTable& table) {
  return rows(ofThree(roi), plane(src, srcStep), plane(dst, dstStep), GammaBytes{table});
}
TolkStatus threeChannels(const uint16_t* src, ptrdiff_t srcStep, uint16_t* dst, ptrdiff_t dstStep, TolkSize roi,
                         const uint16_t* table) {
  lookUpWords<3, 3>(src, srcStep, dst, dstStep, roi, table);
  return tolkStatusOk;
}
template <class Form>
TolkStatus threeChannels(const float* src, ptrdiff_t srcStep, float* dst, ptrdiff_t dstStep, TolkSize roi,
                         const Form& form) {
  return rows(ofThree(roi), plane(src, srcStep), plane(dst, dstStep), form);
}

TolkStatus fourChannels(const uint8_t* src, ptrdiff_t srcStep, uint8_t* dst, ptrdiff_t dstStep, TolkSize roi,
                        const ByteTable& table) {
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), GammaBytes{table});
}
TolkStatus fourChannels(const uint16_t* src, ptrdiff_t srcStep, uint16_t* dst, ptrdiff_t dstStep, TolkSize roi,
                        const uint16_t* table) {
  lookUpWords<3, 4>(src, srcStep, dst, dstStep, roi, table);
  return tolkStatusOk;
}
template <class Form>
TolkStatus fourChannels(const float* src, ptrdiff_t srcStep, float* dst, ptrdiff_t dstStep, TolkSize roi,
                        const Form& form) {
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), form);
}

template <class T, class Form>
TolkStatus threePlanes(const T* const* src, ptrdiff_t srcStep, T* const* dst, ptrdiff_t dstStep, TolkSize roi,
                       const Form& form) {
  if constexpr (sizeof(T) == 2) {
    for (int c = 0; c < 3; ++c) lookUpWords<1, 1>(src[c], srcStep, dst[c], dstStep, roi, form);
    return tolkStatusOk;
  } else if constexpr (sizeof(T) == 1) {
    return rows(roi, from(src, srcStep), to(dst, dstStep), GammaBytes{form});
  } else {
    return rows(roi, from(src, srcStep), to(dst, dstStep), form);
  }
}

}  // namespace

TolkStatus tolkGammaFwd_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threePlanes<uint8_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::forward));
}

TolkStatus tolkGammaFwd_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3], int32_t dstStep,
                                TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threePlanes<uint16_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::forward);
}

TolkStatus tolkGammaFwd_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, GammaForward<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaFwd_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                 float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, GammaForward<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaFwd_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3], int32_t dstStep,
                                TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), planes(src), planes(dst), size(roi),
                         steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, GammaForward<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaFwd_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaForward<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaFwd_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaForward<InDouble>{{vMin, vMax}});
}

TolkStatus tolkGammaFwd_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep)))
    return fault;
  return threePlanes<float>(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaForward<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threePlanes<uint8_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, ByteTable(GammaTables<uint8_t>::inverse));
}

TolkStatus tolkGammaInv_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3], int32_t dstStep,
                                TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threePlanes<uint16_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaTables<uint16_t>::inverse);
}

TolkStatus tolkGammaInv_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return threeChannels(src, srcStep, dst, dstStep, roi, GammaInverse<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                 float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return fourChannels(src, srcStep, dst, dstStep, roi, GammaInverse<InDouble>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3], int32_t dstStep,
                                TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(src, dst), planes(src), planes(dst), size(roi),
                         steps(srcStep, dstStep)))
    return fault;
  return threePlanes(src, srcStep, dst, dstStep, roi, GammaInverse<InDouble>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return threeChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaInverse<Single>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), size(roi), steps(srcDstStep))) return fault;
  return fourChannels(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaInverse<InDouble>{{vMin, vMax}});
}

TolkStatus tolkGammaInv_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  if (auto fault = check(RangeTest{vMin, vMax}, pointers(srcDst), planes(srcDst), size(roi), steps(srcDstStep)))
    return fault;
  return threePlanes<float>(srcDst, srcDstStep, srcDst, srcDstStep, roi, GammaInverse<InDouble>{{vMin, vMax}});
}
