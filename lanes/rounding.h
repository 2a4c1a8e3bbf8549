// The thread's rounding mode: to nearest, ties to even, for the time of a kernel.
#pragma once

#include <xmmintrin.h>

namespace tolk {

// Sets the mode and brings the caller's back; other flags are left alone.
class NearestMode {
 public:
  NearestMode() : callers(_MM_GET_ROUNDING_MODE()) { set(_MM_ROUND_NEAREST); }
  ~NearestMode() { set(callers); }
  NearestMode(const NearestMode&) = delete;
  NearestMode& operator=(const NearestMode&) = delete;

 private:
  void set(unsigned mode) const {
    if (callers != _MM_ROUND_NEAREST) _MM_SET_ROUNDING_MODE(mode);
  }
  unsigned callers;
};

namespace detail {
template <class Kernel, class... Args>
[[gnu::noinline]] auto apart(Kernel kernel, Args... args) {
  return kernel(args...);
}
}  // namespace detail

// kernel(args...), rounding to nearest. The kernel stays a function of its own: compilers know of no order between
// arithmetic and the mode.
template <class Kernel, class... Args>
auto roundingToNearest(Kernel kernel, Args... args) {
  const NearestMode mode;
  return detail::apart(kernel, args...);
}

}  // namespace tolk
