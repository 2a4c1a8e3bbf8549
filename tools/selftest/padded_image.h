// Images whose surroundings are known too, at addresses that are the same modulo 64 in every run.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "catalogue.h"
#include "samples.h"

namespace tolk::selftest {

struct Placement {
  int padding = 0;    // bytes between rows
  int alignment = 0;  // of the first plane's first row; no two planes alike, but for 0
  bool upward = false;
};

class PaddedImage {
 public:
  // Above and below every plane lie rows enough for the functions that reach there.
  void layOut(const std::vector<PlaneShape>& shapes, StepKind steps, const Placement& placement);
  void fill(std::string_view sample, Contents contents, uint32_t seed);
  Side side() const;
  size_t planes() const { return planes_.size(); }
  const PlaneShape& shape(size_t plane) const { return planes_[plane].shape; }
  uint8_t* row(size_t plane, int64_t y) const { return planes_[plane].first + y * planes_[plane].step; }
  std::span<uint8_t> bytes() const { return bytes_; }  // rows, and all around them

 private:
  struct Plane {
    PlaneShape shape;
    uint8_t* first;
    int64_t step;
  };
  std::vector<Plane> planes_;
  std::vector<uint8_t> memory_;  // never shrinks
  std::span<uint8_t> bytes_;
};

}  // namespace tolk::selftest
