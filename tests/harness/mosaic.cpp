// Rectangles, gains, destinations and scratch rows of demosaicing.
#include "harness/mosaic.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <utility>

namespace harness {

// Start and length along an axis of `size` sites: at, before and beyond both edges and the margins of all methods.
static std::pair<int64_t, int64_t> spanOf(int64_t size, std::mt19937& random) {
  const int64_t starts[] = {0, 1, 2, 3, 4, 5, 6, 7, -1, -3, size / 2, size - 8, size - 3, size - 2, size - 1};
  const int64_t start = starts[random() % std::size(starts)];
  const int64_t ends[] = {size,     size - 1, size - 2,  size - 3,  size - 5, size - 6,
                          size + 1, size + 9, start + 1, start + 2, start + 8};
  return {start, std::max<int64_t>(ends[random() % std::size(ends)] - start, 1)};
}

// None, gains below and above 1, of whole halves, and far out.
static std::optional<std::array<float, 3>> gainsFor(uint32_t n) {
  using Gains = std::optional<std::array<float, 3>>;
  static const Gains kGains[] = {{},
                                 {{1, 1, 1}},
                                 {{0.5f, 1.5f, 0.25f}},
                                 {{1.7f, 0.9f, 2.3f}},
                                 {{0.3333f, 1.0001f, 0.9999f}},
                                 {{0, 255, 1}},
                                 {{-1, -0.5f, 1e30f}}};
  return kGains[n % std::size(kGains)];
}

void setDemosaicing(uint32_t variant, uint32_t turn, tolk::Call& call) {
  call.grid = turn % 4;
  call.scale = gainsFor(turn / 4);
  call.reserved = static_cast<int32_t>(turn * 0x9e3779b9);
  if (variant == 0) return;
  std::mt19937 random(variant);
  const auto [x, width] = spanOf(call.roi.width, random);
  const auto [y, height] = spanOf(call.roi.height, random);
  call.rect = {x, y, width, height};
}

static TolkRectL rectOf(const tolk::Call& call) {
  return call.rect.value_or(TolkRectL{0, 0, call.roi.width, call.roi.height});
}

// From a to b, at least one.
static std::pair<int64_t, int64_t> between(int64_t a, int64_t b) { return {a, std::max<int64_t>(b - a, 1)}; }

TolkRectL writtenPixels(const tolk::Function& f, const tolk::Call& call) {
  const TolkRectL rect = rectOf(call);
  auto span = [&](int64_t start, int64_t count, int64_t size) {
    if (f.variant == "VNG") return between(std::min<int64_t>(start, 0), std::max(start + count, size));
    const int64_t first = std::max<int64_t>(start, 0);
    return between(first, std::min((f.operation == "DemosaicAHD" ? first : start) + count, size));
  };
  const auto [x, width] = span(rect.x, rect.width, call.roi.width);
  const auto [y, height] = span(rect.y, rect.height, call.roi.height);
  return {x, y, width, height};
}

void addressDestination(const tolk::Function& f, tolk::Call& call) {
  if (f.operation == "DemosaicAHD") return;
  const TolkRectL rect = rectOf(call), written = writtenPixels(f, call);
  const int64_t pixel = (f.dst.layout.back() - '0') * tolk::sampleBits(f.dst.sample) / 8;
  call.dst.plane[0] =
      static_cast<uint8_t*>(call.dst.plane[0]) + (rect.y - written.y) * call.dst.step[0] + (rect.x - written.x) * pixel;
}

void layOutRows(const tolk::Function& f, uint32_t turn, const tolk::Call& call, Image& scratch) {
  const int bytes = tolk::sampleBits(f.src.sample) / 8;
  const int64_t length = (writtenPixels(f, call).width + 6) * bytes;
  const bool upward = turn % 2;
  scratch.layOut({{length, 30, 1}}, StepKind::Shared,
                 {.rows = Layout::Block,
                  .flush = upward ? Layout::Left : Layout::Right,
                  .direction = upward ? -1 : 1,
                  .padding = static_cast<int>(turn / 2 % 3) * 19 * bytes});
}

void addressRows(const tolk::Function& f, uint32_t turn, const Image& scratch, tolk::Call& call) {
  const Plane& rows = scratch.planes()[0];
  const bool odd = f.src.sample == "16u" && turn % 5 > 2;  // words lose the lowest bit of the step
  call.buffer = rows.first;
  call.bufferStep = static_cast<int32_t>(rows.step | odd);
}

}  // namespace harness
