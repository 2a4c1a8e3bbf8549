// Plain scalar reference of packed 12-bit samples: a row of half bytes, three a sample, the high one first.
#include "../samples.h"
#include "reference_declarations.h"

namespace reference {
namespace {

template <typename Sample>
Samples3<Sample> plane(Sample* p, Integer step) {
  return {{p, nullptr, nullptr, nullptr}, step, sizeof(Sample)};
}

TolkStatus fault(const void* src, int32_t srcStep, const void* dst, int32_t dstStep, TolkSize roi) {
  return firstFault({pointer(src), pointer(dst), size(roi), steps(srcStep, dstStep)});
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkPack_16u12u_C1R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto status = fault(src, srcStep, dst, dstStep, roi)) return status;
  const auto from = plane(src, srcStep);
  const auto to = plane(dst, dstStep);
  const Integer halves = 3 * Integer{roi.width};
  for (Integer y = 0; y < roi.height; ++y) {
    const auto half = [&](Integer i) { return i < halves ? from.load(0, i / 3, y) >> (8 - i % 3 * 4) & 15 : 0; };
    for (Integer i = 0; i < halves; i += 2) to.put(0, i / 2, y, static_cast<uint8_t>(half(i) << 4 | half(i + 1)));
  }
  return tolkStatusOk;
}

TolkStatus reference::tolkUnpack_12u16u_C1R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto status = fault(src, srcStep, dst, dstStep, roi)) return status;
  const auto from = plane(src, srcStep);
  const auto to = plane(dst, dstStep);
  for (Integer y = 0; y < roi.height; ++y) {
    const auto half = [&](Integer i) { return from.load(0, i / 2, y) >> (4 - i % 2 * 4) & 15; };
    for (Integer x = 0; x < roi.width; ++x)
      to.put(0, x, y, static_cast<uint16_t>(half(3 * x) << 8 | half(3 * x + 1) << 4 | half(3 * x + 2)));
  }
  return tolkStatusOk;
}
