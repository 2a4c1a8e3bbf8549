// RGB, BGR and hue, lightness, saturation.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/hls_forms.h"

using namespace tolk;

TolkStatus tolkRGBToHLS_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), HlsFromRgb8{});
}

TolkStatus tolkRGBToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), HlsFromRgb8{});
}

TolkStatus tolkRGBToHLS_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(HlsFromRgb<uint16_t>{}));
}

TolkStatus tolkRGBToHLS_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(HlsFromRgb<uint16_t>{}));
}

TolkStatus tolkRGBToHLS_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<int16_t>(HlsFromRgb<int16_t>{}));
}

TolkStatus tolkRGBToHLS_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<int16_t>(HlsFromRgb<int16_t>{}));
}

TolkStatus tolkRGBToHLS_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), HlsFromRgbFloat{});
}

TolkStatus tolkRGBToHLS_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), HlsFromRgbFloat{});
}

TolkStatus tolkHLSToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep),
              block<4>(onFloats<uint8_t>(RgbFromHls<uint8_t, FirstHues>{})),
              tail(onFloats<uint8_t>(RgbFromHls<uint8_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep),
              block<4>(onFloats<uint8_t>(RgbFromHls<uint8_t, FirstHues>{})),
              tail(onFloats<uint8_t>(RgbFromHls<uint8_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep),
              block<4>(onFloats<uint16_t>(RgbFromHls<uint16_t, FirstHues>{})),
              tail(onFloats<uint16_t>(RgbFromHls<uint16_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep),
              block<4>(onFloats<uint16_t>(RgbFromHls<uint16_t, FirstHues>{})),
              tail(onFloats<uint16_t>(RgbFromHls<uint16_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep),
              block<4>(onFloats<int16_t>(RgbFromHls<int16_t, FirstHues>{})),
              tail(onFloats<int16_t>(RgbFromHls<int16_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep),
              block<4>(onFloats<int16_t>(RgbFromHls<int16_t, FirstHues>{})),
              tail(onFloats<int16_t>(RgbFromHls<int16_t, LastHues>{})));
}

TolkStatus tolkHLSToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(RgbFromHlsFloatBlock{}),
              tail(RgbFromHlsFloatTail{}));
}

TolkStatus tolkHLSToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(RgbFromHlsFloatBlock{}),
              tail(RgbFromHlsFloatTail{}));
}

namespace {

// The first pixels of a row take saturation's estimate as it comes.
auto forwardBlock() { return block<4>(HlsFromRgb8<Raw>{}); }
auto forwardTail() { return tail(HlsFromRgb8{}); }
auto inverseBlock() { return block<4>(onFloats<uint8_t>(RgbFromHls<uint8_t, FirstHues>{})); }
auto inverseTail() { return tail(onFloats<uint8_t>(RgbFromHls<uint8_t, LastHues>{})); }

// The same rules with alpha beside the three channels.
template <int N, class Form>
auto withAlpha(Block<N, Form> rule) {
  return block<N>(WithAlpha<Form>{rule.form});
}
template <class Form>
auto withAlpha(Tail<Form> rule) {
  return tail(WithAlpha<Form>{rule.form});
}

}  // namespace

TolkStatus tolkBGRToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return rows(roi, from<BGRA>(src, srcStep), to<RGBA>(dst, dstStep), withAlpha(forwardBlock()),
              withAlpha(forwardTail()));
}

TolkStatus tolkBGRToHLS_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to(dst, dstStep), forwardBlock(), forwardTail());
}

TolkStatus tolkBGRToHLS_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, reversed(from(src, srcStep)), to<RGB3>(dst, dstStep), forwardBlock(), forwardTail());
}

TolkStatus tolkBGRToHLS_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), steps(srcStep, dstStep), size(roi)))
    return fault;
  return rows(roi, reversed(from(src, srcStep)), to(dst, dstStep), forwardBlock(), forwardTail());
}

TolkStatus tolkBGRToHLS_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                  TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst, 4), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from<BGRA>(src, srcStep), to<4>(dst, dstStep), withAlpha(forwardBlock()), withAlpha(forwardTail()));
}

TolkStatus tolkBGRToHLS_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                  TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src, 4), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, reversed(from<4>(src, srcStep)), to<RGBA>(dst, dstStep), withAlpha(forwardBlock()),
              withAlpha(forwardTail()));
}

TolkStatus tolkBGRToHLS_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src, 4), planes(dst, 4), steps(srcStep, dstStep), size(roi)))
    return fault;
  return rows(roi, reversed(from<4>(src, srcStep)), to<4>(dst, dstStep), withAlpha(forwardBlock()),
              withAlpha(forwardTail()));
}

TolkStatus tolkHLSToBGR_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), reversed(to(dst, dstStep)), inverseBlock(), inverseTail());
}

TolkStatus tolkHLSToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR3>(dst, dstStep), inverseBlock(), inverseTail());
}

TolkStatus tolkHLSToBGR_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), steps(srcStep, dstStep), size(roi)))
    return fault;
  return rows(roi, from(src, srcStep), reversed(to(dst, dstStep)), inverseBlock(), inverseTail());
}

TolkStatus tolkHLSToBGR_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                  TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst, 4), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from<RGBA>(src, srcStep), reversed(to<4>(dst, dstStep)), withAlpha(inverseBlock()),
              withAlpha(inverseTail()));
}

TolkStatus tolkHLSToBGR_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                  TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src, 4), steps(srcStep, dstStep), size(roi))) return fault;
  return rows(roi, from<4>(src, srcStep), to<BGRA>(dst, dstStep), withAlpha(inverseBlock()), withAlpha(inverseTail()));
}

TolkStatus tolkHLSToBGR_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src, 4), planes(dst, 4), steps(srcStep, dstStep), size(roi)))
    return fault;
  return rows(roi, from<4>(src, srcStep), reversed(to<4>(dst, dstStep)), withAlpha(inverseBlock()),
              withAlpha(inverseTail()));
}
