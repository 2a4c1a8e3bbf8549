// Plain scalar reference of gradient-guided demosaicing.
#include "mosaic.h"

namespace reference {
namespace {

template <typename Sample>
Integer green(const Mosaic<Sample>& m, Integer x, Integer y) {
  const Integer vertical = m.at(x, y - 1) + m.at(x, y + 1), horizontal = m.at(x - 1, y) + m.at(x + 1, y);
  if (x >= 2 && x <= m.width - 3 && y >= 2 && y <= m.height - 3) {
    const Integer dv = std::llabs(m.at(x, y - 2) - m.at(x, y + 2)), dh = std::llabs(m.at(x - 2, y) - m.at(x + 2, y));
    if (dh > dv) return (vertical + 1) >> 1;
    if (dv > dh) return (horizontal + 1) >> 1;
  }
  return (vertical + horizontal + 2) >> 2;
}

template <typename Sample>
Samples colours(const Mosaic<Sample>& m, Integer x, Integer y) {
  const Integer c = m.at(x, y);
  if (m.colour(x, y) == 'G') {
    const Integer vertical = (m.at(x, y - 1) + m.at(x, y + 1) + 1) >> 1;
    const Integer horizontal = (m.at(x - 1, y) + m.at(x + 1, y) + 1) >> 1;
    return m.colour(x + 1, y) == 'R' ? Samples{horizontal, c, vertical} : Samples{vertical, c, horizontal};
  }
  const Integer diagonal = (m.at(x - 1, y - 1) + m.at(x + 1, y - 1) + m.at(x - 1, y + 1) + m.at(x + 1, y + 1) + 2) >> 2;
  const Integer g = green(m, x, y);
  return m.colour(x, y) == 'R' ? Samples{c, g, diagonal} : Samples{diagonal, g, c};
}

// Steps in bytes.
template <typename Sample>
TolkStatus demosaic(const Sample* src, TolkRect rect, TolkSize size, Integer srcStep, Sample* dst, Integer dstStep,
                    uint32_t grid) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), mosaicSize(size, 2), gridCode(grid)})) return fault;
  const Mosaic<Sample> m{src, srcStep, size.width, size.height, grid};
  const Integer left = rect.x, top = rect.y;
  const Integer right = std::min(left + rect.width, m.width), bottom = std::min(top + rect.height, m.height);
  for (Integer y = std::max(top, 0LL); y < bottom; ++y)
    for (Integer x = std::max(left, 0LL); x < right; ++x) put(dst, dstStep, x - left, y - top, colours(m, x, y));
  return tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkCFAToRGB_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                            uint8_t* dst, int32_t dstStep, uint32_t grid, int32_t) {
  return demosaic(src, srcRect, srcSize, srcStep, dst, dstStep, grid);
}
TolkStatus reference::tolkCFAToRGB_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                             uint16_t* dst, int32_t dstStep, uint32_t grid, int32_t) {
  return demosaic(src, srcRect, srcSize, 2 * (srcStep >> 1), dst, 2 * (dstStep >> 1), grid);
}
