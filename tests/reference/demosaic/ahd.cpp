// Plain scalar reference of homogeneity-directed demosaicing.
#include <vector>

#include "mosaic.h"

namespace reference {
namespace {

template <typename Sample>
struct Candidate {
  const Mosaic<Sample>& m;
  bool alongRow;

  Integer green(Integer x, Integer y) const {
    const Integer c = m.at(x, y);
    if (m.colour(x, y) == 'G') return c;
    const Integer dx = alongRow, dy = !alongRow;
    const Integer a = m.at(x - dx, y - dy), b = m.at(x + dx, y + dy);
    const Integer d = m.at(x - 2 * dx, y - 2 * dy), e = m.at(x + 2 * dx, y + 2 * dy);
    const Integer t = ((a + b) >> 1) + ((2 * c - d - e) >> 2);
    return std::clamp(t, std::min(a, b), std::max(a, b));
  }

  // 'R' or 'B'.
  Integer colour(char sought, Integer x, Integer y) const {
    if (m.colour(x, y) == sought) return m.at(x, y);
    auto difference = [&](Integer dx, Integer dy) { return m.at(x + dx, y + dy) - green(x + dx, y + dy); };
    Integer mean = 0;
    if (m.colour(x, y) != 'G') {
      mean = (difference(-1, -1) + difference(1, -1) + difference(-1, 1) + difference(1, 1)) >> 2;
    } else if (m.colour(x + 1, y) == sought) {
      mean = (difference(-1, 0) + difference(1, 0)) >> 1;
    } else {
      mean = (difference(0, -1) + difference(0, 1)) >> 1;
    }
    return std::clamp(green(x, y) + mean, 0LL, Integer{Sample(~0u)});
  }

  Samples rgb(Integer x, Integer y) const { return {colour('R', x, y), green(x, y), colour('B', x, y)}; }

  Samples yuv(Integer x, Integer y) const {
    const auto [r, g, b] = rgb(x, y);
    return {(66 * r + 129 * g + 25 * b + 128) >> 8, (-38 * r - 74 * g + 112 * b + 128) >> 8,
            (112 * r - 94 * g - 18 * b + 128) >> 8};
  }
};

struct Distance {
  Integer luma, chroma;
};

Distance distance(const Samples& a, const Samples& b) {
  const Integer u = a[1] - b[1], v = a[2] - b[2];
  return {std::llabs(a[0] - b[0]), (u * u + v * v) & 0xffffffff};  // unsigned, of 32 bits
}

struct Neighbours {
  Distance left, right, up, down;
};

struct Rect {
  Integer x, y, width, height;
};

// One candidate's luma and chroma over a rectangle.
class LumaChroma {
 public:
  template <typename Sample>
  LumaChroma(const Candidate<Sample>& candidate, const Rect& rect) : rect_(rect) {
    for (Integer y = rect.y; y < rect.y + rect.height; ++y)
      for (Integer x = rect.x; x < rect.x + rect.width; ++x) values_.push_back(candidate.yuv(x, y));
  }
  Neighbours neighbours(Integer x, Integer y) const {
    const Samples& site = at(x, y);
    return {distance(at(x - 1, y), site), distance(at(x + 1, y), site), distance(at(x, y - 1), site),
            distance(at(x, y + 1), site)};
  }

 private:
  const Samples& at(Integer x, Integer y) const {
    return values_[static_cast<size_t>((y - rect_.y) * rect_.width + x - rect_.x)];
  }
  Rect rect_;
  std::vector<Samples> values_;
};

int homogeneityDifference(const Neighbours& h, const Neighbours& v) {
  const Integer luma = std::min(std::max(h.left.luma, h.right.luma), std::max(v.up.luma, v.down.luma));
  const Integer chroma = std::min(std::max(h.left.chroma, h.right.chroma), std::max(v.up.chroma, v.down.chroma));
  auto count = [&](const Neighbours& n) {
    int near = 0;
    for (const Distance& d : {n.left, n.right, n.up, n.down}) near += d.luma <= luma && d.chroma <= chroma;
    return near;
  };
  return count(h) - count(v);
}

// Pixels go to `dst` at their distance from `origin`.
template <typename Sample>
void convertRun(const Mosaic<Sample>& m, const Rect& run, const Rect& origin, Sample* dst, Integer dstStep) {
  if (run.width < 1 || run.height < 1) return;
  const Candidate<Sample> alongRows{m, true}, alongColumns{m, false};
  const Rect around{run.x - 2, run.y - 2, run.width + 4, run.height + 4};
  const LumaChroma h(alongRows, around), v(alongColumns, around);
  const Integer columns = run.width + 2;
  std::vector<int> differences;
  for (Integer y = run.y - 1; y <= run.y + run.height; ++y)
    for (Integer x = run.x - 1; x <= run.x + run.width; ++x)
      differences.push_back(homogeneityDifference(h.neighbours(x, y), v.neighbours(x, y)));
  for (Integer y = 0; y < run.height; ++y) {
    int state = 1;
    for (Integer x = 0; x < run.width; ++x) {
      int sum = 0;
      for (Integer i = 0; i < 9; ++i) sum += differences[static_cast<size_t>((y + i / 3) * columns + x + i % 3)];
      if (sum != 0) state = sum;
      const Samples rgb = (state < 0 ? alongColumns : alongRows).rgb(run.x + x, run.y + y);
      put(dst, dstStep, run.x + x - origin.x, run.y + y - origin.y, rgb);
    }
  }
}

template <typename Sample>
void convertRuns(const Mosaic<Sample>& m, TolkRect rect, Sample* dst, Integer dstStep) {
  const Integer left = std::max(rect.x, 0), top = std::max(rect.y, 0);
  const Integer right = std::min(left + rect.width, m.width), bottom = std::min(top + rect.height, m.height);
  const Rect whole{left, top, right - left, bottom - top};
  if (whole.width < 1 || whole.height < 1) return;
  Rect inner{rect.x < 6 ? 5 : rect.x, rect.y < 6 ? 5 : rect.y, 0, 0};
  inner.width = std::max(std::min(m.width - 5, right) - inner.x, 0LL);
  inner.height = std::max(std::min(m.height - 5, bottom) - inner.y, 0LL);
  const char colour = m.colour(inner.x, inner.y);
  if (colour == 'B' || (colour == 'G' && m.colour(inner.x + 1, inner.y) == 'R')) ++inner.x, --inner.width;
  if (m.colour(inner.x, inner.y) != 'R') ++inner.y, --inner.height;
  inner.width -= inner.width & 1;
  inner.height -= inner.height & 1;
  if (inner.width < 1 || inner.height < 1) return convertRun(m, whole, whole, dst, dstStep);
  const Integer innerRight = inner.x + inner.width, innerBottom = inner.y + inner.height;
  for (const Rect& run : {inner,
                          {left, top, whole.width, inner.y - top},
                          {left, innerBottom, whole.width, bottom - innerBottom},
                          {left, inner.y, inner.x - left, inner.height},
                          {innerRight, inner.y, right - innerRight, inner.height}})
    convertRun(m, run, whole, dst, dstStep);
}

// Steps in bytes.
template <typename Sample>
TolkStatus demosaic(const Sample* src, TolkRect rect, TolkSize size, Integer srcStep, Sample* dst, Integer dstStep,
                    uint32_t grid) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), mosaicSize(size, 5), gridCode(grid)})) return fault;
  convertRuns(Mosaic<Sample>{src, srcStep, size.width, size.height, grid}, rect, dst, dstStep);
  return tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkDemosaicAHD_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                               uint8_t* dst, int32_t dstStep, uint32_t grid, uint8_t*, int32_t) {
  return demosaic(src, srcRect, srcSize, srcStep, dst, dstStep, grid);
}
TolkStatus reference::tolkDemosaicAHD_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize,
                                                int32_t srcStep, uint16_t* dst, int32_t dstStep, uint32_t grid,
                                                uint16_t*, int32_t) {
  return demosaic(src, srcRect, srcSize, srcStep, dst, dstStep / 2 * 2, grid);
}
