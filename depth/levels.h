// Evenly spaced levels of samples: the constants, the decision between two levels, and what is stored of a level.
#pragma once

#include "lanes/floats.h"

namespace tolk {

template <class From>
inline constexpr float kTop = sizeof(From) == 1   ? 255.0F
                              : sizeof(From) == 2 ? 65535.0F
                                                  : 1.0F;
template <class From>
inline constexpr float kBottom = std::is_same_v<From, float> ? 1.1920929e-7F : 0.0F;
template <class To>
inline constexpr int kLargest = sizeof(To) == 1 ? 255 : 65535;

// `step` is the distance of the levels, `toIndex` its inverse; both are rounded, and not each other's.
struct Levels {
  float count, step, toIndex;
};
template <class From>
Levels levelsOf(int32_t levels) {
  const float k = static_cast<float>(levels - 1);
  if constexpr (sizeof(From) == 1) return {k, (65280.0F / k) * 0.00390625F, k * 0.003921569F};
  if constexpr (sizeof(From) == 2) return {k, 65535.0F / k, k * 1.5259022e-5F};
  return {k, 1.0F / k, k};
}

// The level at or below w, or the next one where w lies further above than the threshold.
LANE_OP auto levelOf(const Levels& levels, auto w, auto threshold) {
  const auto base = asFloat(truncated(w * levels.toIndex)) * levels.step;
  return base + onlyWhere(threshold < w - base, levels.step);
}

// The integer of a level; of signed samples it is 32768 higher. Of one too large for its sample the low bits count.
template <class From, class To>
LANE_OP auto integerOf(auto level) {
  if constexpr (std::is_same_v<From, float>) {
    return truncated(level * static_cast<float>(kLargest<To>) + 0.5F);
  } else if constexpr (sizeof(From) == sizeof(To)) {
    return truncated(level);
  } else if constexpr (std::is_same_v<From, int16_t>) {
    return fl(truncated(level + 0.5F), 256);
  } else {
    return fl(truncated(level), 256);
  }
}

// A level's integer; the largest one where w is at the top, 0 where it is below the bottom or no number.
template <class From>
LANE_OP auto limitedAtTop(auto w, auto integer) {
  return orAllBits(integer, w >= kTop<From>);
}
template <class From>
LANE_OP auto limitedAtBoth(auto w, auto integer) {
  return onlyWhere(w >= kBottom<From>, limitedAtTop<From>(w, integer));
}

// Ordered dithering.
template <class From, class To>
struct Ordered {
  static constexpr bool kDithers = true;

  LANE_OP auto operator()(auto w, auto threshold) const {
    const auto integer = integerOf<From, To>(levelOf(levels, w, threshold));
    if constexpr (std::is_same_v<From, float>) {
      return limitedAtBoth<From>(w, integer);
    } else {
      return limitedAtTop<From>(w, integer);  // integers are never below the bottom
    }
  }
  Levels levels;
};

// Words to all 256 levels, which are multiples of 257: floor(sum / 257), in 16 bits.
struct ToAllBytes {
  template <int L>
  LANE_OP I16<L> operator()(U16<L> w, U16<L> share) const {
    const auto sum = addLimited(w, share);
    return as<int16_t>(shiftRight(sum - shiftRight(sum, 8), 8));
  }
};

// No dithering. Levels are fractions of 1 here, whatever the source.
template <class From, class To>
struct Nearest {
  static constexpr bool kDithers = false;
  static constexpr float kToOne = sizeof(From) == 1 ? 0.003921569F : sizeof(From) == 2 ? 1.5259022e-5F : 1.0F;

  LANE_OP auto operator()(auto v) const {
    if constexpr (std::is_same_v<From, float>) {
      return nearest(larger(smaller(2.0F, v), 0.0F));  // so that the integers below hold what is limited later
    } else {
      return nearest(v * kToOne);
    }
  }
  float count, step, half;

 private:
  LANE_OP auto nearest(auto t) const {
    const auto base = asFloat(truncated(t * count)) * step;
    return truncated((base + onlyWhere(t - base > half, step)) * static_cast<float>(kLargest<To>));
  }
};
template <class From, class To>
Nearest<From, To> nearestOf(int32_t levels) {
  const float k = static_cast<float>(levels - 1), step = 1.0F / k;
  return {k, step, step * 0.5F};
}

}  // namespace tolk
