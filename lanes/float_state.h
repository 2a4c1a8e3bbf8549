// The thread's floating-point state: for the time of a kernel that gives integers, the one that every thread starts in.
#pragma once

#include <pmmintrin.h>

namespace tolk {

// Rounding to nearest, ties to even, and denormal numbers kept; then the caller's state again. Masks and the flags of
// what has happened are left alone.
class UsualFloatState {
 public:
  UsualFloatState() : callers_(_mm_getcsr() & kControl) { set(0); }
  ~UsualFloatState() { set(callers_); }
  UsualFloatState(const UsualFloatState&) = delete;
  UsualFloatState& operator=(const UsualFloatState&) = delete;

 private:
  static constexpr unsigned kControl = _MM_ROUND_MASK | _MM_FLUSH_ZERO_MASK | _MM_DENORMALS_ZERO_MASK;
  void set(unsigned control) const {
    if (callers_ != 0) _mm_setcsr((_mm_getcsr() & ~kControl) | control);
  }
  unsigned callers_;
};

namespace detail {
template <class Kernel, class... Args>
[[gnu::noinline]] auto apart(Kernel kernel, Args... args) {
  return kernel(args...);
}
}  // namespace detail

// kernel(args...) in the usual state. The kernel stays a function of its own: compilers know of no order between
// arithmetic and the state.
template <class Kernel, class... Args>
auto inUsualFloatState(Kernel kernel, Args... args) {
  const UsualFloatState state;
  return detail::apart(kernel, args...);
}

}  // namespace tolk
