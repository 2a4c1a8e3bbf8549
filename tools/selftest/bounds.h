// The functions whose results are not defined to the last bit, and how far they may be from what they should be.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "padded_image.h"

namespace tolk::selftest {

// Which channels of the results: those by the processor's estimate of a reciprocal, by a power of stated accuracy, or
// by the C library's pow.
struct Inexact {
  std::array<bool, 3> channels;
  bool inBlockOnly = false;   // in columns below width & ~3
  bool usuallyExact = false;  // every good pow gives the same bits
};
std::optional<Inexact> inexactness(const Function& f);

// Overwrites the inexact samples of an image of results, so that a digest judges all the others.
void forget(const Function& f, TolkSize roi, const PaddedImage& results);

// How inexact results are judged: rows without slack, of which the least and the greatest results are known that exact
// arithmetic gives; they differ where an accuracy is stated. Empty if all is well.
using Rows = std::vector<uint8_t>;
std::string outOfBounds(const Function& f, const Rows& got, const Rows& least, const Rows& greatest);

}  // namespace tolk::selftest
