// The floating-point state of the caller: integer results do not depend on it, and no function changes it.
#include <pmmintrin.h>

#include <cfenv>
#include <utility>

#include "harness/mosaic.h"
#include "sweeps/all_functions.h"

namespace {

using harness::Contents;

// Rounding for x87 and SSE, and what is done with denormal numbers; the state before comes back.
class State {
 public:
  State(int rounding, unsigned denormals) {
    std::fegetenv(&before_);
    std::fesetround(rounding);
    _mm_setcsr(_mm_getcsr() | denormals);
  }
  ~State() { std::fesetenv(&before_); }
  static std::pair<int, unsigned> current() { return {std::fegetround(), _mm_getcsr() & ~unsigned{_MM_EXCEPT_MASK}}; }

 private:
  std::fenv_t before_;
};

// Else they are rounded in that state, on their way to the function. Not inlined: arithmetic moves across calls.
[[gnu::noinline]] tolk::Call roundedWeights(tolk::Call call) {
  for (size_t i = 0; call.coeffs && i < 3; ++i) (*call.coeffs)[i] = static_cast<float>((*call.coeffs)[i]);
  return call;
}

void expectSame(const harness::Case& c, int rounding, unsigned denormals) {
  harness::Rig& rig = harness::sharedRig();
  rig.prepare(c);
  const tolk::Call tested = roundedWeights(rig.tested.call(c)), expected = roundedWeights(rig.expected.call(c));
  const TolkStatus want = rig.callExpected(expected);
  TolkStatus got;
  std::pair<int, unsigned> before, after;
  {
    const State state(rounding, denormals);
    before = State::current();
    got = rig.callTested(tested);
    after = State::current();
  }
  const std::string where =
      describe(c) + ", rounding " + std::to_string(rounding) + (denormals ? ", no denormals" : "");
  ASSERT_EQ(after, before) << where;
  if (c.subject->function->dst.sample.ends_with("f")) return;
  ASSERT_EQ(got, want) << where;
  ASSERT_TRUE(rig.compare()) << where;
}

}  // namespace

class FloatState : public AllFunctions {};
INSTANTIATE_TEST_SUITE_P(All, FloatState, testing::ValuesIn(harness::subjects()), functionName);

TEST_P(FloatState, LeavesResultsAndItself) {
  constexpr harness::Layout kRight{.flush = harness::Layout::Right};
  const tolk::Function& f = *GetParam().function;
  for (const int rounding : {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO})
    for (const unsigned denormals : {0u, unsigned{_MM_FLUSH_ZERO_ON | _MM_DENORMALS_ZERO_ON}})
      for (const Contents contents : {Contents::Random, Contents::Extremes})
        for (const int32_t width : {1, 7, 37, 64, 301})
          for (uint32_t variant = 0; variant < (f.has("ditherType") ? 10 : 1); ++variant) {
            const int32_t height = harness::demosaics(f) ? 14 : 4;
            ASSERT_NO_FATAL_FAILURE(
                expectSame({&GetParam(), {width, height}, kRight, kRight, contents, variant}, rounding, denormals));
          }
}
