// Images in memory whose every row, or whole, lies between pages that fault when touched.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "catalogue.h"
#include "harness/library.h"
#include "harness/samples.h"

namespace harness {

// Where the rows of an image lie.
struct Layout {
  enum Rows { Guarded, Block };  // guard pages around every row, or one block
  enum Flush { Left, Right };    // the end of the row or block that touches a guard page
  Rows rows = Guarded;
  Flush flush = Right;
  int direction = 1;   // -1 walks upward, 0 has every row at the same place
  int padding = 0;     // of a block: bytes between rows
  int alignment = -1;  // of a block: address of the first plane modulo 32; -1 lies flush
  int64_t apart = 0;   // of guarded rows: bytes of a step, whole pages; 0 is next to each other
};
std::string describe(const Layout& layout);

// Pages at a fixed distance, accessible in slots, with no access before, between and after them.
class Arena {
 public:
  Arena(int64_t stride, int64_t capacity, int64_t slots);
  ~Arena();
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;
  uint8_t* slot(int64_t index) const { return base_ + (slots_ + index) * stride_; }

 private:
  int64_t stride_, slots_, reserved_;
  uint8_t* base_;
};

struct Plane {
  tolk::PlaneShape shape;
  uint8_t* first;  // row 0
  int64_t step;
  std::vector<std::span<uint8_t>> windows;  // every accessible byte at and around the rows
};

class Image {
 public:
  void layOut(const std::vector<tolk::PlaneShape>& shapes, StepKind steps, const Layout& layout);
  // All accessible bytes; then the rows with samples, if a type is given that is more than its bytes.
  void fill(Contents contents, uint32_t seed, std::string_view sample = "8u");
  tolk::Side side() const;
  const std::vector<Plane>& planes() const { return planes_; }
  // An 8-bit sample of an image without subsampling.
  uint8_t& at(int64_t x, int64_t y, int channel) const;

 private:
  Plane guardedPlane(size_t index, const tolk::PlaneShape& shape, int64_t rowSpan, StepKind, const Layout&);
  Plane blockPlane(size_t index, const tolk::PlaneShape& shape, int64_t rowSpan, StepKind, const Layout&);
  const Arena& arena(size_t index, int64_t stride, int64_t capacity, int64_t slots);

  std::vector<Plane> planes_;
  std::map<std::tuple<size_t, int64_t, int64_t, int64_t>, std::unique_ptr<Arena>> arenas_;  // kept from case to case
};

}  // namespace harness
