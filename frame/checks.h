// Validation: small tests in the order of the words, the first fault is returned.
#pragma once

#include "tolkcolor.h"

namespace tolk {

struct PointerTest {
  bool null;
  TolkStatus fault() const { return null ? tolkStatusNullPointer : tolkStatusOk; }
};
template <class... Pointers>
PointerTest pointers(Pointers... p) {
  return {(... || (p == nullptr))};
}

// The planes of an array, which an earlier pointers() has found to be there.
template <class Pointer>
struct PlaneTest {
  const Pointer* plane;
  int count;
  TolkStatus fault() const {
    for (int i = 0; i < count; ++i) {
      if (plane[i] == nullptr) return tolkStatusNullPointer;
    }
    return tolkStatusOk;
  }
};
template <class Pointer>
PlaneTest<Pointer> planes(const Pointer* plane, int count = 3) {
  return {plane, count};
}

struct StepTest {
  int32_t srcStep, dstStep;
  TolkStatus fault() const { return srcStep < 1 || dstStep < 1 ? tolkStatusBadStep : tolkStatusOk; }
};
inline StepTest steps(int32_t srcStep, int32_t dstStep) { return {srcStep, dstStep}; }
inline StepTest steps(int32_t step) { return {step, step}; }

template <class Size>
struct SizeTest {
  Size roi, least;
  TolkStatus fault() const {
    return roi.width < least.width || roi.height < least.height ? tolkStatusBadSize : tolkStatusOk;
  }
};
inline constexpr int32_t kAnyHeight = INT32_MIN;
inline SizeTest<TolkSize> size(TolkSize roi, TolkSize least = {1, 1}) { return {roi, least}; }
inline SizeTest<TolkSizeL> size(TolkSizeL roi) { return {roi, {1, 1}}; }

template <class... Tests>
TolkStatus check(const Tests&... tests) {
  TolkStatus fault = tolkStatusOk;
  static_cast<void>((... || ((fault = tests.fault()) != tolkStatusOk)));
  return fault;
}

}  // namespace tolk
