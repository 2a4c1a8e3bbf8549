// Plain scalar reference of demosaicing by a variable number of gradients.
#include <limits>

#include "mosaic.h"

namespace reference {
namespace {

using Eight = std::array<Integer, 8>;  // of the directions N, E, S, W, NE, SE, NW, SW

// The 5 by 5 samples around a site.
template <typename Sample>
struct Neighbourhood {
  const Mosaic<Sample>& m;
  Integer x, y;
  bool isGreen;

  Integer operator()(Integer row, Integer column) const { return m.at(x + column, y + row); }
  // Distance of two samples.
  Integer d(Integer r1, Integer c1, Integer r2, Integer c2) const {
    return std::llabs((*this)(r1, c1) - (*this)(r2, c2));
  }

  Eight gradients() const {
    const Integer vertical = 2 * d(-1, 0, 1, 0) + d(-1, -1, 1, -1) + d(-1, 1, 1, 1);
    const Integer horizontal = 2 * d(0, -1, 0, 1) + d(-1, -1, -1, 1) + d(1, -1, 1, 1);
    const Integer n = 2 * d(-2, 0, 0, 0) + vertical + d(0, -1, -2, -1) + d(0, 1, -2, 1);
    const Integer s = 2 * d(2, 0, 0, 0) + vertical + d(0, -1, 2, -1) + d(0, 1, 2, 1);
    const Integer e = 2 * d(0, 2, 0, 0) + horizontal + d(-1, 0, -1, 2) + d(1, 0, 1, 2);
    const Integer w = 2 * d(0, -2, 0, 0) + horizontal + d(-1, 0, -1, -2) + d(1, 0, 1, -2);
    if (isGreen) {
      return {n,
              e,
              s,
              w,
              2 * (d(0, 0, -2, 2) + d(-1, 1, 1, -1) + d(0, -1, -2, 1) + d(1, 0, -1, 2)),
              2 * (d(0, 0, 2, 2) + d(-1, -1, 1, 1) + d(0, -1, 2, 1) + d(-1, 0, 1, 2)),
              2 * (d(0, 0, -2, -2) + d(-1, -1, 1, 1) + d(0, 1, -2, -1) + d(1, 0, -1, -2)),
              2 * (d(0, 0, 2, -2) + d(-1, 1, 1, -1) + d(0, 1, 2, -1) + d(-1, 0, 1, -2))};
    }
    return {
        n,
        e,
        s,
        w,
        2 * (d(0, 0, -2, 2) + d(-1, 1, 1, -1)) + d(-1, 2, 0, 1) + d(-2, 1, -1, 0) + d(0, 1, 1, 0) + d(-1, 0, 0, -1),
        2 * (d(0, 0, 2, 2) + d(-1, -1, 1, 1)) + d(2, 1, 1, 0) + d(1, 2, 0, 1) + d(0, 1, -1, 0) + d(1, 0, 0, -1),
        2 * (d(0, 0, -2, -2) + d(-1, -1, 1, 1)) + d(-2, -1, -1, 0) + d(-1, -2, 0, -1) + d(0, 1, -1, 0) + d(1, 0, 0, -1),
        2 * (d(0, 0, 2, -2) + d(-1, 1, 1, -1)) + d(1, -2, 0, -1) + d(2, -1, 1, 0) + d(0, 1, 1, 0) + d(-1, 0, 0, -1)};
  }

  // What each direction adds to a sum, of the site's own colour and of the two others: at a red or blue site green and
  // the opposite colour, at a green site the colours beside and above.
  Eight ownTerms() const {
    const auto& p = *this;
    const Integer c = p(0, 0);
    Eight terms = {p(-2, 0) + c, p(0, 2) + c, p(2, 0) + c,   p(0, -2) + c,
                   p(-2, 2) + c, p(2, 2) + c, p(-2, -2) + c, p(2, -2) + c};
    if (isGreen) terms[4] = 2 * p(-1, 1), terms[5] = 2 * p(1, 1), terms[6] = 2 * p(-1, -1), terms[7] = 2 * p(1, -1);
    return terms;
  }
  Eight greenTerms() const {
    const auto& p = *this;
    return {2 * p(-1, 0),
            2 * p(0, 1),
            2 * p(1, 0),
            2 * p(0, -1),
            (p(-2, 1) + p(-1, 0) + p(-1, 2) + p(0, 1)) >> 1,
            (p(0, 1) + p(1, 0) + p(1, 2) + p(2, 1)) >> 1,
            (p(-2, -1) + p(-1, -2) + p(-1, 0) + p(0, -1)) >> 1,
            (p(0, -1) + p(1, -2) + p(1, 0) + p(2, -1)) >> 1};
  }
  Eight otherTerms() const {
    const auto& p = *this;
    return {p(-1, -1) + p(-1, 1), p(-1, 1) + p(1, 1), p(1, -1) + p(1, 1), p(-1, -1) + p(1, -1),
            2 * p(-1, 1),         2 * p(1, 1),        2 * p(-1, -1),      2 * p(1, -1)};
  }
  Eight rowTerms() const {
    const auto& p = *this;
    return {p(-2, -1) + p(-2, 1), 2 * p(0, 1),       p(2, -1) + p(2, 1),   2 * p(0, -1),
            p(-2, 1) + p(0, 1),   p(0, 1) + p(2, 1), p(-2, -1) + p(0, -1), p(0, -1) + p(2, -1)};
  }
  Eight columnTerms() const {
    const auto& p = *this;
    return {2 * p(-1, 0),        p(-1, 2) + p(1, 2), 2 * p(1, 0),          p(-1, -2) + p(1, -2),
            p(-1, 0) + p(-1, 2), p(1, 0) + p(1, 2),  p(-1, -2) + p(-1, 0), p(1, -2) + p(1, 0)};
  }
};

struct Kept {
  std::array<bool, 8> directions;
  int count;

  Integer sum(const Eight& terms) const {
    Integer total = 0;
    for (size_t i = 0; i < 8; ++i) total += directions[i] ? terms[i] : 0;
    return total;
  }
};

Kept keptOf(const Eight& gradients) {
  const auto [least, greatest] = std::ranges::minmax(gradients);
  const auto threshold =
      static_cast<Integer>(std::max(0.5 * static_cast<double>(greatest), 1.0) + static_cast<double>(least));
  Kept kept{};
  for (size_t i = 0; i < 8; ++i) kept.count += kept.directions[i] = gradients[i] < threshold;
  return kept;
}

// Blue, green and red before the gains.
template <typename Sample>
Samples colours(const Mosaic<Sample>& m, Integer x, Integer y) {
  const char colour = m.colour(x, y);
  const Neighbourhood<Sample> p{m, x, y, colour == 'G'};
  const Integer c = p(0, 0);
  const Kept kept = keptOf(p.gradients());
  const Integer own = kept.sum(p.ownTerms());
  auto interpolated = [&](const Eight& terms) { return c + (kept.sum(terms) - own) / (2 * kept.count); };
  if (p.isGreen) {
    const Integer row = interpolated(p.rowTerms()), column = interpolated(p.columnTerms());
    return m.colour(x + 1, y) == 'B' ? Samples{row, c, column} : Samples{column, c, row};
  }
  const Integer green = interpolated(p.greenTerms()), other = interpolated(p.otherTerms());
  return colour == 'B' ? Samples{c, green, other} : Samples{other, green, c};
}

template <typename Sample>
Sample scaled(Integer colour, float gain) {
  const float product = static_cast<float>(colour) * gain;
  // A product that is not a number is limited to 0.
  const float limited = std::min(std::max(0.0f, product), float{std::numeric_limits<Sample>::max()});
  Integer nearest = (static_cast<Integer>(limited * 2) + 1) >> 1;
  if (nearest % 2 == 1 && static_cast<float>(nearest) - 0.5f == limited) --nearest;
  return static_cast<Sample>(nearest);
}

// Pixels of four samples by their coordinates in the mosaic.
template <typename Sample>
struct Output {
  Sample* dst;
  Integer step;
  TolkRectL rect;

  char* pixel(Integer x, Integer y) const {
    return reinterpret_cast<char*>(dst) + (y - rect.y) * step + (x - rect.x) * Integer{4 * sizeof(Sample)};
  }
  void put(Integer x, Integer y, const std::array<Sample, 3>& bgr) const {
    std::memcpy(pixel(x, y), bgr.data(), sizeof bgr);
  }
  void copy(Integer fromX, Integer fromY, Integer toX, Integer toY) const {
    std::memmove(pixel(toX, toY), pixel(fromX, fromY), 4 * sizeof(Sample));
  }
};

// The first and last interpolated column or row.
struct Span {
  Integer first, last;
};
Span interpolated(Integer start, Integer count, Integer size) {
  return {start >= 3 ? start : 2, start + count < size - 2 ? start + count - 1 : size - 3};
}

// Copies to the frame's columns or rows: from which, to which.
template <typename Copy>
void fillFrame(Integer start, Integer count, Integer size, Span inner, Copy copy) {
  if (start == 0) copy(inner.first, inner.first - 2);
  if (start == 0 || start == 1) copy(inner.first, inner.first - 1);
  if (start + count >= size - 2) copy(inner.last, inner.last + 1);
  if (start + count >= size - 1) copy(inner.last, inner.last + 2);
}

template <typename Sample>
void convert(const Mosaic<Sample>& m, const TolkRectL& rect, const float* scale, const Output<Sample>& out) {
  const Span columns = interpolated(rect.x, rect.width, m.width), rows = interpolated(rect.y, rect.height, m.height);
  for (Integer y = rows.first; y <= rows.last; ++y)
    for (Integer x = columns.first; x <= columns.last; ++x) {
      const Samples bgr = colours(m, x, y);
      std::array<Sample, 3> pixel;
      for (size_t i = 0; i < 3; ++i) pixel[i] = scaled<Sample>(bgr[i], scale ? scale[i] : 1.0f);
      out.put(x, y, pixel);
    }
  fillFrame(rect.x, rect.width, m.width, columns, [&](Integer from, Integer to) {
    for (Integer y = rows.first; y <= rows.last; ++y) out.copy(from, y, to, y);
  });
  fillFrame(rect.y, rect.height, m.height, rows, [&](Integer from, Integer to) {
    for (Integer x = rect.x; x < rect.x + rect.width; ++x) out.copy(x, from, x, to);
  });
}

TolkStatus sizes(const TolkRectL& rect, TolkSizeL size) {
  for (const int64_t dimension : {rect.width, rect.height, size.width, size.height})
    if (dimension > 2147483647) return tolkStatusSizeOverflow;
  return mosaicSize(size, 5);
}

template <typename Sample>
TolkStatus demosaic(const Sample* src, TolkRectL rect, TolkSizeL size, Integer srcStep, const float* scale, Sample* dst,
                    Integer dstStep, uint32_t grid) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), sizes(rect, size), gridCode(grid)})) return fault;
  if (rect.width < 1 || rect.height < 1) return tolkStatusOk;
  convert(Mosaic<Sample>{src, srcStep, size.width, size.height, grid}, rect, scale, Output<Sample>{dst, dstStep, rect});
  return tolkStatusOk;
}

TolkRectL wide(TolkRect rect) { return {rect.x, rect.y, rect.width, rect.height}; }
TolkSizeL wide(TolkSize size) { return {size.width, size.height}; }

}  // namespace
}  // namespace reference

TolkStatus reference::tolkCFAToBGRA_VNG_8u_C1C4R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize,
                                                 int32_t srcStep, const float scale[3], uint8_t* dst, int32_t dstStep,
                                                 uint32_t grid) {
  return demosaic(src, wide(srcRect), wide(srcSize), srcStep, scale, dst, dstStep, grid);
}
TolkStatus reference::tolkCFAToBGRA_VNG_16u_C1C4R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize,
                                                  int32_t srcStep, const float scale[3], uint16_t* dst, int32_t dstStep,
                                                  uint32_t grid) {
  return demosaic(src, wide(srcRect), wide(srcSize), srcStep, scale, dst, dstStep, grid);
}
TolkStatus reference::tolkCFAToBGRA_VNG_8u_C1C4R_L(const uint8_t* src, TolkRectL srcRect, TolkSizeL srcSize,
                                                   int64_t srcStep, const float scale[3], uint8_t* dst, int64_t dstStep,
                                                   uint32_t grid) {
  return demosaic(src, srcRect, srcSize, srcStep, scale, dst, dstStep, grid);
}
TolkStatus reference::tolkCFAToBGRA_VNG_16u_C1C4R_L(const uint16_t* src, TolkRectL srcRect, TolkSizeL srcSize,
                                                    int64_t srcStep, const float scale[3], uint16_t* dst,
                                                    int64_t dstStep, uint32_t grid) {
  return demosaic(src, srcRect, srcSize, srcStep, scale, dst, dstStep, grid);
}
