// The power of single precision, defined to an accuracy alone.
#pragma once

#include <cmath>

namespace reference {

// Units of the last place between a power of the library and the true one, as the header states.
constexpr double kPowerAccuracy = 0.51;

// Units of the last place by which the true power is moved before it is rounded. A power within 0.5 + s units of the
// true one lies between those of -s and of s, and so does what a rising function makes of it.
inline double powerShift = 0;

inline float power(float base, float exponent) {
  const double exact = std::pow(double{base}, double{exponent});
  if (powerShift == 0 || !std::isnormal(exact)) return static_cast<float>(exact);
  return static_cast<float>(exact + std::ldexp(powerShift, std::ilogb(exact) - 23));
}

}  // namespace reference
