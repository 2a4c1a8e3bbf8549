// Rows of pixels whose results were worked out by hand, in the library and in the reference.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "harness/compare.h"

namespace known {

template <class Sample, size_t N = 3>
using Pixels = std::vector<std::array<Sample, N>>;

// Zeros differ by their sign; all that is not a number is alike.
inline bool same(double a, double b) { return a == b ? std::signbit(a) == std::signbit(b) : a != a && b != b; }

// Further channels than those of `row` and `want` are not used and stay.
template <class Sample, size_t N>
void expectRow(const std::string& name, const Pixels<Sample>& row, const Pixels<Sample, N>& want,
               const std::optional<std::array<double, 3>>& coeffs = {}) {
  const harness::Subject& subject = harness::subject(name);
  const auto channels = [](const tolk::SideInfo& side) { return static_cast<size_t>(side.layout.back() - '0'); };
  const size_t from = channels(subject.function->src), to = channels(subject.function->dst);
  constexpr Sample kUnused{77}, kKept{99};
  for (void* function : {subject.tested, subject.expected}) {
    std::vector<Sample> src(row.size() * from, kUnused), dst(row.size() * to, kKept);
    for (size_t x = 0; x < row.size(); ++x) std::ranges::copy(row[x], &src[x * from]);
    tolk::Call call;
    call.roi = {static_cast<int32_t>(row.size()), 1};
    call.coeffs = coeffs;
    call.src.plane[0] = src.data();
    call.dst.plane[0] = dst.data();
    ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
    for (size_t i = 0; i < dst.size(); ++i) {
      const size_t x = i / to, channel = i % to;
      const Sample expected = channel < N ? want[x][channel] : kKept;
      EXPECT_TRUE(same(dst[i], expected)) << name << (function == subject.tested ? "" : " (reference)") << ", column "
                                          << x << ", channel " << channel << " of " << +row[x][0] << " " << +row[x][1]
                                          << " " << +row[x][2] << ": got " << +dst[i] << ", want " << +expected;
    }
  }
}

template <class Sample>
struct Value {
  std::array<Sample, 3> from, inBlock;
  std::optional<std::array<Sample, 3>> inTail = {};  // none: as in a block
};

// Rows of each value by `operation` in three and in four channels, whose blocks are that wide.
template <class Sample>
void expectValues(const std::string& operation, const std::vector<Value<Sample>>& values, size_t blockOf3,
                  size_t blockOf4) {
  for (const auto& [layout, block] : {std::pair{"_C3R", blockOf3}, {"_AC4R", blockOf4}})
    for (const Value<Sample>& value : values)
      for (const size_t width : {3, 7, 15, 103}) {
        Pixels<Sample> want(width & ~(block - 1), value.inBlock);
        want.resize(width, value.inTail.value_or(value.inBlock));
        expectRow(operation + layout, Pixels<Sample>(width, value.from), want);
      }
}

// The same values in 16u and, less 32768, in 16s.
inline std::vector<Value<int16_t>> biased(const std::vector<Value<uint16_t>>& values) {
  const auto pixel = [](const std::array<uint16_t, 3>& words) {
    std::array<int16_t, 3> result;
    std::ranges::transform(words, result.begin(), [](int word) { return static_cast<int16_t>(word - 32768); });
    return result;
  };
  std::vector<Value<int16_t>> result;
  for (const Value<uint16_t>& value : values)
    result.push_back({pixel(value.from), pixel(value.inBlock), pixel(value.inTail.value_or(value.inBlock))});
  return result;
}

}  // namespace known
