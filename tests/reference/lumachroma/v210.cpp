// Plain scalar reference of the v210 decoders and of the encoder through the gamma curve.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include "../arithmetic.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// Samples of a row in the order Cb0 Y0 Cr0 Y1 Cb1 Y2 ..., three to a word; only the word of the sample is read.
struct V210Row {
  const uint32_t* first;

  int sample(Integer index) const {
    uint32_t word;
    std::memcpy(&word, first + index / 3, sizeof word);
    return static_cast<int>(word >> (10 * (index % 3)) & 0x3ff);
  }
  int luma(Integer x) const { return sample(2 * x + 1); }
  int cb(Integer x) const { return sample(x / 2 * 4); }
  int cr(Integer x) const { return sample(x / 2 * 4 + 2); }
};

struct Fields {
  unsigned r, g, b;
};

unsigned field(float value, int most) {
  const int rounded = static_cast<int>(value + 0.5f);
  return static_cast<unsigned>(std::clamp(rounded, 0, most));
}

// Values are clamped to the fields, not scaled: most of the 10-bit range saturates.
Fields inverseV210(const V210Row& row, Integer x) {
  const float Y = static_cast<float>(row.luma(x));
  const float u = static_cast<float>(row.cb(x) - 512), v = static_cast<float>(row.cr(x) - 512);
  return {field(Y + 1.54f * v, 31), field((Y + -0.183f * u) + -0.459f * v, 63), field(Y + 1.816f * u, 31)};
}

unsigned redLow(const V210Row& row, Integer x) {
  const Fields f = inverseV210(row, x);
  return f.b << 11 | f.g << 5 | f.r;
}
unsigned blueLow(const V210Row& row, Integer x) {
  const Fields f = inverseV210(row, x);
  return f.r << 11 | f.g << 5 | f.b;
}
unsigned gray(const V210Row& row, Integer x) { return static_cast<unsigned>(row.luma(x)); }

TolkStatus stepAsSize(int32_t step) { return step < 1 ? tolkStatusBadSize : tolkStatusOk; }

// Steps count words and samples.
template <typename Form>
TolkStatus decode(const uint32_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi, Form form) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), stepAsSize(srcStep), stepAsSize(dstStep)}))
    return fault;
  for (Integer y = 0; y < roi.height; ++y) {
    for (Integer x = 0; x < roi.width; ++x) {
      const auto word = static_cast<uint16_t>(form(V210Row{src + y * srcStep}, x));
      std::memcpy(dst + y * dstStep + x, &word, sizeof word);
    }
  }
  return tolkStatusOk;
}

// The curve of ITU-R BT.709 on 0 to 255; above the linear segment the value passes through single precision.
uint8_t gammaEntry(int i) {
  const double t = i / 255.0;
  if (t < 0.018) return static_cast<uint8_t>(std::nearbyint(4.5 * i));
  const float v = static_cast<float>(255.0 * (1.099 * std::pow(t, 0.45) - 0.099));
  return static_cast<uint8_t>(std::nearbyint(v));
}

uint8_t gammaForward(uint8_t sample) {
  static const auto kTable = [] {
    std::array<uint8_t, 256> table;
    for (int i = 0; i < 256; ++i) table[static_cast<size_t>(i)] = gammaEntry(i);
    return table;
  }();
  return kTable[sample];
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYUV422v210ToRGB_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                            int32_t dstStep, TolkSize roi) {
  return decode(src, srcStep, dst, dstStep, roi, redLow);
}

TolkStatus reference::tolkYUV422v210ToBGR_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                            int32_t dstStep, TolkSize roi) {
  return decode(src, srcStep, dst, dstStep, roi, blueLow);
}

TolkStatus reference::tolkYUV422v210ToGray_709HDTV_32u16u_C3C1(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                               int32_t dstStep, TolkSize roi) {
  return decode(src, srcStep, dst, dstStep, roi, gray);
}

TolkStatus reference::tolkRGBToCbYCr422Gamma_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                      int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  std::vector<uint8_t> corrected(3 * static_cast<size_t>(roi.width));
  const int32_t step = 0;  // one row at a time
  for (Integer y = 0; y < roi.height; ++y) {
    const uint8_t* row = src + y * srcStep;
    std::transform(row, row + corrected.size(), corrected.begin(), gammaForward);
    reference::tolkRGBToCbYCr422_8u_C3C2R(corrected.data(), step, dst + y * dstStep, step, {roi.width, 1});
  }
  return tolkStatusOk;
}
