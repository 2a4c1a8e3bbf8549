// Places planes one behind the other.
#include "padded_image.h"

#include <algorithm>

namespace tolk::selftest {

static constexpr int64_t kLine = 64, kMargin = 64, kSpareRows = 3;

static int64_t wholeLines(int64_t bytes) { return (bytes + kLine - 1) / kLine * kLine; }

void PaddedImage::layOut(const std::vector<PlaneShape>& shapes, StepKind steps, const Placement& placement) {
  int64_t widest = 0, end = 0;
  for (const PlaneShape& shape : shapes) widest = std::max(widest, shape.rowBytes);
  std::vector<int64_t> firsts;
  planes_.clear();
  for (const PlaneShape& shape : shapes) {
    const auto index = static_cast<int64_t>(planes_.size());
    int64_t step = shape.rowBytes;
    if (steps == StepKind::Shared) step = widest + placement.padding;
    if (steps == StepKind::Each) step += placement.padding + (placement.padding ? 5 * index : 0);
    const int64_t climb = step * (shape.rows - 1), spare = kSpareRows * step + kMargin;
    const int64_t top = wholeLines(end + spare) + (placement.alignment ? (placement.alignment + 3 * index) % kLine : 0);
    const bool upward = placement.upward && steps != StepKind::None;
    firsts.push_back(upward ? top + climb : top);
    planes_.push_back({shape, nullptr, upward ? -step : step});
    end = wholeLines(top + climb + shape.rowBytes + spare);
  }
  if (memory_.size() < static_cast<size_t>(end + kLine)) memory_.resize(static_cast<size_t>(end + kLine));
  uint8_t* const start = memory_.data() + (-reinterpret_cast<uintptr_t>(memory_.data()) & (kLine - 1));
  for (size_t i = 0; i < planes_.size(); ++i) planes_[i].first = start + firsts[i];
  bytes_ = {start, static_cast<size_t>(end)};
}

void PaddedImage::fill(std::string_view sample, Contents contents, uint32_t seed) {
  fillSamples(bytes_, "8u", Contents::Random, seed);
  for (size_t p = 0; p < planes_.size(); ++p)
    for (int64_t y = 0; y < shape(p).rows; ++y)
      fillSamples({row(p, y), static_cast<size_t>(shape(p).rowBytes)}, sample, contents, seed);
}

Side PaddedImage::side() const {
  Side side;
  for (size_t i = 0; i < planes_.size(); ++i) side.plane[i] = planes_[i].first, side.step[i] = planes_[i].step;
  return side;
}

}  // namespace tolk::selftest
