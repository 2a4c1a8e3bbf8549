// The functions that lead from one format to another.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats.h"

namespace tolk {

// One call on a way. A function that only moves chroma serves Cr and Cb in each other's place as well, and a curve
// serves RGB: then the sides are other than the function's own.
struct Step {
  const Function* function;
  SideInfo src, dst;
  bool exchanged() const { return src.space != function->src.space && exchangedChroma(src); }
};

struct Route {
  std::vector<const Format*> formats;  // one more than steps
  std::vector<Step> steps;             // none where repacking does
};

// One step rather than two; then the fewest colour matrices, the least loss of chroma, the matrix 601, the least loss
// of depth, and the least repacking. Fails with what can be reached.
Route requireRoute(const Format& from, const Format& to, const std::optional<std::string>& matrix);

// The same with steps that take the transfer curve of ITU-R BT.709 off RGB on its way to XYZ, Lab or LUV, and lay it on
// behind these. Fails where none of these is on the way.
Route withCurve(const Route& route);

// The size, from `size` up, of which the steps leave no column or row out.
TolkSize wholeSize(const Route& route, TolkSize size);

}  // namespace tolk
