// Guard pages, placement of rows and contents.
#include "harness/guarded_image.h"

#include <sys/mman.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>

namespace harness {

static constexpr int64_t kPage = 4096, kMargin = 96;

static int64_t wholePages(int64_t bytes) { return (bytes + kPage - 1) / kPage * kPage; }

std::string describe(const Layout& layout) {
  std::string text = layout.rows == Layout::Guarded ? "guarded rows" : "block";
  if (layout.apart) text += " " + std::to_string(layout.apart) + " apart";
  if (layout.alignment >= 0) {
    text += " at " + std::to_string(layout.alignment) + " modulo 32";
  } else {
    text += layout.flush == Layout::Left ? " flush left" : " flush right";
  }
  if (layout.padding) text += " padded " + std::to_string(layout.padding);
  if (layout.direction <= 0) text += layout.direction ? " upward" : " step 0";
  return text;
}

// The slots stand in the second quarter of the reserved span: an offset that has wrapped at 32 bits stays inside it.
Arena::Arena(int64_t stride, int64_t capacity, int64_t slots)
    : stride_(stride), slots_(slots), reserved_(4 * slots * stride) {
  void* memory =
      mmap(nullptr, static_cast<size_t>(reserved_), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  bool mapped = memory != MAP_FAILED;
  base_ = static_cast<uint8_t*>(memory);
  for (int64_t i = 0; i < slots && mapped; ++i)
    mapped = mprotect(slot(i), static_cast<size_t>(capacity), PROT_READ | PROT_WRITE) == 0;
  if (!mapped) {
    std::perror("cannot map guarded memory");
    std::exit(2);
  }
}

Arena::~Arena() { munmap(base_, static_cast<size_t>(reserved_)); }

const Arena& Image::arena(size_t index, int64_t stride, int64_t capacity, int64_t slots) {
  auto& place = arenas_[{index, stride, capacity, slots}];
  if (!place) place = std::make_unique<Arena>(stride, capacity, slots);
  return *place;
}

Plane Image::guardedPlane(size_t index, const tolk::PlaneShape& shape, int64_t rowSpan, StepKind steps,
                          const Layout& layout) {
  const int64_t extraPages = steps == StepKind::Each ? static_cast<int64_t>(index) : 0;  // makes the steps differ
  const int64_t capacity = wholePages(rowSpan) + extraPages * kPage;
  const int64_t stride = layout.apart ? layout.apart : capacity + kPage;
  const int64_t slots = std::max<int64_t>(shape.rows, layout.apart ? 1 : 8);
  const Arena& memory = arena(index, stride, capacity, slots);
  const int64_t used = layout.direction ? shape.rows : 1;
  uint8_t* start = memory.slot(layout.direction < 0 ? used - 1 : 0);
  if (layout.flush == Layout::Right) start += capacity - shape.rowBytes;
  Plane plane{shape, start, layout.direction * stride, {}};
  for (int64_t i = 0; i < used; ++i) plane.windows.emplace_back(memory.slot(i), static_cast<size_t>(capacity));
  return plane;
}

Plane Image::blockPlane(size_t index, const tolk::PlaneShape& shape, int64_t rowSpan, StepKind steps,
                        const Layout& layout) {
  const int64_t plane = static_cast<int64_t>(index);
  const int64_t step = rowSpan + layout.padding + (steps == StepKind::Each ? 5 * plane : 0);
  const int64_t climb = step * ((layout.direction ? shape.rows : 1) - 1);
  const int64_t extent = climb + shape.rowBytes;
  const int64_t capacity =
      static_cast<int64_t>(std::bit_ceil(static_cast<uint64_t>(wholePages(extent + kMargin + 32))));
  int64_t begin = layout.flush == Layout::Left ? 0 : capacity - extent;
  if (layout.alignment >= 0) begin = kMargin + (layout.alignment + 3 * plane) % 32;  // no two planes alike
  uint8_t* slot = arena(index, capacity + kPage, capacity, 1).slot(0);
  const int64_t from = std::max<int64_t>(0, begin - kMargin), to = std::min(capacity, begin + extent + kMargin);
  return {
      shape, slot + begin + (layout.direction < 0 ? climb : 0), layout.direction * step, {{slot + from, slot + to}}};
}

void Image::layOut(const std::vector<tolk::PlaneShape>& shapes, StepKind steps, const Layout& layout) {
  Layout possible = layout;
  if (steps == StepKind::None) possible = {.rows = Layout::Block, .flush = layout.flush};  // tight by definition
  int64_t widest = 0;
  for (const tolk::PlaneShape& shape : shapes) widest = std::max(widest, shape.rowBytes);
  planes_.clear();
  for (size_t i = 0; i < shapes.size(); ++i) {
    const int64_t rowSpan = steps == StepKind::Shared ? widest : shapes[i].rowBytes;
    planes_.push_back(possible.rows == Layout::Block ? blockPlane(i, shapes[i], rowSpan, steps, possible)
                                                     : guardedPlane(i, shapes[i], rowSpan, steps, possible));
  }
}

static void fillBytes(std::span<uint8_t> bytes, Contents contents, uint32_t& seed) {
  switch (contents) {
    case Contents::Random:
      fillFrom(bytePool(), bytes, seed);
      break;
    case Contents::Zeros:
      std::ranges::fill(bytes, uint8_t{0});
      break;
    case Contents::Ones:
      std::ranges::fill(bytes, uint8_t{255});
      break;
    case Contents::Alternating:
      for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = i % 2 ? 255 : 0;
      break;
    case Contents::Extremes:
      fillFrom(bytePool(), bytes, seed);
      for (uint8_t& byte : bytes) byte = byte % 2 ? 255 : 0;
      break;
  }
}

void Image::fill(Contents contents, uint32_t seed, std::string_view sample) {
  const std::span<const uint8_t> pool = samplePool(sample, contents);
  for (const Plane& plane : planes_) {
    for (const std::span<uint8_t> window : plane.windows) fillBytes(window, contents, seed);
    for (int64_t y = 0; y < plane.shape.rows && !pool.empty(); ++y)
      fillFrom(pool, {plane.first + y * plane.step, static_cast<size_t>(plane.shape.rowBytes)}, seed);
  }
}

tolk::Side Image::side() const {
  tolk::Side side;
  for (size_t i = 0; i < planes_.size(); ++i) {
    side.plane[i] = planes_[i].first;
    side.step[i] = planes_[i].step;
  }
  return side;
}

uint8_t& Image::at(int64_t x, int64_t y, int channel) const {
  const Plane& plane = planes_[planes_.size() > 1 ? static_cast<size_t>(channel) : 0];
  return plane.first[y * plane.step + (planes_.size() > 1 ? x : x * plane.shape.channels + channel)];
}

}  // namespace harness
