// A single sample that wraps as those of a register do, for forms whose overflows count.
#pragma once

#include "lanes/terms.h"

namespace tolk {

template <class T>
struct Wrapping {
  T value;

  constexpr explicit operator T() const { return value; }
};

template <class T>
constexpr Wrapping<T> operator+(Wrapping<T> a, Wrapping<T> b) {
  return {static_cast<T>(static_cast<int64_t>(a.value) + b.value)};
}
template <class T>
constexpr Wrapping<T> operator-(Wrapping<T> a, Wrapping<T> b) {
  return {static_cast<T>(static_cast<int64_t>(a.value) - b.value)};
}
template <class T>
constexpr Wrapping<T> fl(Wrapping<T> a, Pow2 n) {
  return {static_cast<T>(a.value >> n.log)};
}

template <class T>
constexpr int clamp8(Wrapping<T> a) {
  return clamp8(int{a.value});
}
template <class T>
constexpr int lowBits(Wrapping<T> a) {
  return a.value;
}

// Registers wrap by themselves.
template <class T>
constexpr Wrapping<T> wrapping(int value) {
  return {static_cast<T>(value)};
}
template <class T, int L>
LANE_OP Reg<T, L> wrapping(Reg<T, L> a) {
  return a;
}

}  // namespace tolk
