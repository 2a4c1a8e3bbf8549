// Values that were never set, and bytes that are not the image's, followed through every function by an instrumented
// library: from padding, scratch memory and destinations that hold nothing, no sample may come.
#include <sanitizer/msan_interface.h>

#include <algorithm>
#include <string>
#include <vector>

#include "sweeps/all_functions.h"

// The library allocates nothing, so what this program allocates counts as set.
const char* __msan_default_options() { return "poison_in_malloc=0:poison_in_free=0"; }

namespace {

// This program is not instrumented: it neither sets nor clears the marks of its stack and arguments, and would hand on
// those that the last call has left there.
void forgetLastCall() {
  constexpr size_t kDeepest = 1 << 18, kArguments = 64;
  __msan_unpoison(static_cast<uint8_t*>(__builtin_frame_address(0)) - kDeepest, kDeepest);
  __msan_unpoison_param(kArguments);
}

void forEachRow(const harness::Image& image, auto f) {
  for (const harness::Plane& plane : image.planes())
    for (int64_t y = 0; y < plane.shape.rows; ++y)
      f(std::span(plane.first + y * plane.step, static_cast<size_t>(plane.shape.rowBytes)));
}

void poison(const harness::Image& image) {
  for (const harness::Plane& plane : image.planes())
    for (const std::span<uint8_t> window : plane.windows) __msan_poison(window.data(), window.size());
}

class Memory : public AllFunctions {
 protected:
  static void SetUpTestSuite() { __msan_scoped_disable_interceptor_checks(); }  // of this program's own calls

  void everySampleIsSet(const harness::Case& c) {
    rig.prepare(c);
    const tolk::Call call = rig.tested.call(c);
    const std::vector<uint8_t> overZeros = resultOver(0, c), overOnes = resultOver(255, c);
    for (const harness::Image* image : {&rig.tested.src, &rig.tested.dst, &rig.tested.scratch}) poison(*image);
    forEachRow(rig.input(rig.tested), [](std::span<uint8_t> row) { __msan_unpoison(row.data(), row.size()); });
    size_t at = 0;
    forEachRow(rig.tested.dst, [&](std::span<uint8_t> row) {
      for (size_t i = 0; i < row.size(); ++i, ++at)
        if (overZeros[at] != overOnes[at]) __msan_unpoison(&row[i], 1);  // kept, and may be read for that
    });
    forgetLastCall();
    const TolkStatus status = rig.callTested(call);
    forgetLastCall();
    ASSERT_EQ(status, rig.callExpected(rig.expected.call(c))) << describe(c);
    forEachRow(rig.tested.dst, [&](std::span<uint8_t> row) {
      const intptr_t unset = __msan_test_shadow(row.data(), row.size());
      if (unset >= 0) ADD_FAILURE() << describe(c) << ": byte " << unset << " of a row depends on what was never set";
    });
  }

 private:
  harness::Rig& rig = harness::sharedRig();

  // The reference's, in the order of rows.
  std::vector<uint8_t> resultOver(uint8_t before, const harness::Case& c) const {
    const harness::Image& image = rig.expected.dst;
    for (const harness::Plane& plane : image.planes())
      for (const std::span<uint8_t> window : plane.windows) std::ranges::fill(window, before);
    rig.callExpected(rig.expected.call(c));
    std::vector<uint8_t> bytes;
    forEachRow(image, [&](std::span<uint8_t> row) { bytes.insert(bytes.end(), row.begin(), row.end()); });
    return bytes;
  }
};
INSTANTIATE_TEST_SUITE_P(All, Memory, testing::ValuesIn(harness::subjects()), functionName);

// Of every method and rectangle several; a mosaic's strips are about 250 columns wide.
TEST_P(Memory, EverySampleIsSet) {
  // Steps of whole words: some functions cut others to them and then read padding.
  constexpr harness::Layout kPadded{.rows = harness::Layout::Block, .padding = 16, .alignment = 5};
  uint32_t variant = 0;
  for (const TolkSize size : {TolkSize{1, 1}, {2, 2}, {3, 4}, {7, 14}, {16, 2}, {23, 13}, {67, 5}, {130, 3}, {300, 15}})
    for (const auto contents : {harness::Contents::Random, harness::Contents::Extremes})
      for (int i = 0; i < 3; ++i)
        ASSERT_NO_FATAL_FAILURE(everySampleIsSet({&GetParam(), size, kPadded, kPadded, contents, variant++}));
}

}  // namespace
