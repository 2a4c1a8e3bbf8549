// RGB and BGR to and from YCoCg. Which functions refuse an empty size, and which do nothing, differs between
// neighbours.
#include "frame/checks.h"
#include "frame/rows.h"
#include "values/ycocg_forms.h"

using namespace tolk;

TolkStatus tolkBGRToYCoCg_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCg{}));
}

TolkStatus tolkBGRToYCoCg_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCg{}));
}

TolkStatus tolkBGRToYCoCg_Rev_8u16s_C3P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                          TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCgRev{}));
}

TolkStatus tolkBGRToYCoCg_Rev_8u16s_C4P3R(const uint8_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                          TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCgRev{}));
}

TolkStatus tolkRGBToYCoCg_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                   TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to(dst, dstStep), ToYCoCgUnsigned<uint8_t>{});
}

TolkStatus tolkSBGRToYCoCg_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                     TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to(dst, dstStep), ToYCoCgLimited{});
}

TolkStatus tolkSBGRToYCoCg_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                     TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), to(dst, dstStep), ToYCoCgLimited{});
}

TolkStatus tolkSBGRToYCoCg_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3], int32_t dstStep,
                                        TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCg{}));
}

TolkStatus tolkSBGRToYCoCg_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3], int32_t dstStep,
                                        TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCg{}));
}

TolkStatus tolkSBGRToYCoCg_Rev_16s_C3P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to(dst, dstStep), InWords<ToYCoCgRev>{});
}

TolkStatus tolkSBGRToYCoCg_Rev_16s_C4P3R(const int16_t* src, int32_t srcStep, int16_t* const dst[3], int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), to(dst, dstStep), InWords<ToYCoCgRev>{});
}

TolkStatus tolkSBGRToYCoCg_Rev_16s32s_C3P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3], int32_t dstStep,
                                            TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCgRev{}));
}

TolkStatus tolkSBGRToYCoCg_Rev_16s32s_C4P3R(const int16_t* src, int32_t srcStep, int32_t* const dst[3], int32_t dstStep,
                                            TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), wide(to(dst, dstStep)), onWide(ToYCoCgRev{}));
}

TolkStatus tolkYCoCgToBGR_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR3>(dst, dstStep), InWordsToBytes<FromYCoCg>{});
}

TolkStatus tolkYCoCgToBGR_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR4>(dst, dstStep, Set{alpha}), InWordsToBytes<FromYCoCg>{});
}

TolkStatus tolkYCoCgToBGR_Rev_16s8u_P3C3R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR3>(dst, dstStep), InWordsToBytes<FromYCoCgRev>{});
}

TolkStatus tolkYCoCgToBGR_Rev_16s8u_P3C4R(const int16_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR4>(dst, dstStep, Set{alpha}), InWordsToBytes<FromYCoCgRev>{});
}

TolkStatus tolkYCoCgToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to<RGB3>(dst, dstStep), FromYCoCgOffset{});
}

TolkStatus tolkYCoCgToSBGR_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                     TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to<BGR3>(dst, dstStep), InWords<FromYCoCg>{});
}

TolkStatus tolkYCoCgToSBGR_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                     TolkSize roi, int16_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InWords<FromYCoCg>{});
}

TolkStatus tolkYCoCgToSBGR_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                        TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR3>(dst, dstStep), InLongs<FromYCoCg>{});
}

TolkStatus tolkYCoCgToSBGR_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                        TolkSize roi, int16_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR4>(dst, dstStep, Set{alpha}), InLongs<FromYCoCg>{});
}

TolkStatus tolkYCoCgToSBGR_Rev_16s_P3C3R(const int16_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to<BGR3>(dst, dstStep), InWords<FromYCoCgRev>{});
}

TolkStatus tolkYCoCgToSBGR_Rev_16s_P3C4R(const int16_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                         TolkSize roi, int16_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InWords<FromYCoCgRev>{});
}

TolkStatus tolkYCoCgToSBGR_Rev_32s16s_P3C3R(const int32_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR3>(dst, dstStep), InLongs<FromYCoCgRev>{});
}

TolkStatus tolkYCoCgToSBGR_Rev_32s16s_P3C4R(const int32_t* const src[3], int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi, int16_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src))) return fault;
  return rows(roi, wide(from(src, srcStep)), to<BGR4>(dst, dstStep, Set{alpha}), InLongs<FromYCoCgRev>{});
}
