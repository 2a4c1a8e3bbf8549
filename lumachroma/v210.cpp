// v210 decoders: 10-bit 4:2:2 in words of three samples, six pixels to four words.
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "frame/checks.h"
#include "lanes/float_state.h"

using namespace tolk;

namespace {

// Sample i of a row: Cb0 Y0 Cr0 Y1 Cb1 Y2 Cr1 Y3 ... in the low, middle and high ten bits of word i / 3.
int sampleAt(const unsigned char* row, ptrdiff_t i) {
  uint32_t word;
  std::memcpy(&word, row + i / 3 * 4, sizeof word);
  return static_cast<int>(word >> i % 3 * 10 & 1023);
}
int lumaAt(const unsigned char* row, ptrdiff_t x) { return sampleAt(row, 2 * x + 1); }

// Not scaled to the field: all but the lowest values saturate.
unsigned field(float v, int most) { return static_cast<unsigned>(std::clamp(static_cast<int>(v + 0.5F), 0, most)); }

uint16_t packed565(unsigned low, unsigned middle, unsigned high) {
  return static_cast<uint16_t>(high << 11 | middle << 5 | low);
}
uint16_t decode(const unsigned char* row, ptrdiff_t x, bool redLow) {
  const float Y = static_cast<float>(lumaAt(row, x));
  const float u = static_cast<float>(sampleAt(row, x / 2 * 4) - 512);
  const float v = static_cast<float>(sampleAt(row, x / 2 * 4 + 2) - 512);
  const unsigned r = field(Y + 1.54F * v, 31);
  const unsigned g = field((Y + -0.183F * u) + -0.459F * v, 63);
  const unsigned b = field(Y + 1.816F * u, 31);
  return redLow ? packed565(r, g, b) : packed565(b, g, r);
}

// Steps count elements; one under 1 is a fault of the size.
struct StepTest {
  int32_t srcStep, dstStep;
  TolkStatus fault() const { return srcStep < 1 || dstStep < 1 ? tolkStatusBadSize : tolkStatusOk; }
};

template <class Pixel>
void convertRows(const uint32_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi, Pixel pixel) {
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    const auto from = reinterpret_cast<const unsigned char*>(src) + y * srcStep * ptrdiff_t{sizeof *src};
    const auto to = reinterpret_cast<unsigned char*>(dst) + y * dstStep * ptrdiff_t{sizeof *dst};
    for (ptrdiff_t x = 0; x < roi.width; ++x) {
      const uint16_t value = pixel(from, x);
      std::memcpy(to + x * ptrdiff_t{sizeof value}, &value, sizeof value);
    }
  }
}

template <class Pixel>
TolkStatus decodeRows(const uint32_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi, Pixel pixel) {
  if (auto fault = check(pointers(src, dst), size(roi), StepTest{srcStep, dstStep})) return fault;
  inUsualFloatState(convertRows<Pixel>, src, srcStep, dst, dstStep, roi, pixel);
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkYUV422v210ToRGB_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  return decodeRows(src, srcStep, dst, dstStep, roi, [](auto row, ptrdiff_t x) { return decode(row, x, true); });
}

TolkStatus tolkYUV422v210ToBGR_709HDTV_32u16u_C3(const uint32_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  return decodeRows(src, srcStep, dst, dstStep, roi, [](auto row, ptrdiff_t x) { return decode(row, x, false); });
}

TolkStatus tolkYUV422v210ToGray_709HDTV_32u16u_C3C1(const uint32_t* src, int32_t srcStep, uint16_t* dst,
                                                    int32_t dstStep, TolkSize roi) {
  return decodeRows(src, srcStep, dst, dstStep, roi,
                    [](auto row, ptrdiff_t x) { return static_cast<uint16_t>(lumaAt(row, x)); });
}
