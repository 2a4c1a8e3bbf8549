// Rows of pixels whose results were worked out by hand, in the library and in the reference, in every layout.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "harness/compare.h"

namespace known {

template <class Sample>
using Pixel = std::array<Sample, 3>;
template <class Sample>
using Pixels = std::vector<Pixel<Sample>>;
using Coeffs = std::optional<std::array<double, 3>>;
enum class Fourth { Kept, Copied, Alpha };

// One row in the layout of one side. Channels are those of R, G, B, also where B comes first.
template <class Sample>
class Row {
 public:
  Row(const tolk::SideInfo& side, size_t width, Sample value)
      : channels_(static_cast<size_t>(side.layout.back() - '0')),
        width_(width),
        planar_(side.layout.find('P') != std::string_view::npos),
        reversed_(side.space.ends_with("BGR")),
        samples_(channels_ * width, value) {}
  size_t channels() const { return channels_; }
  size_t colours() const { return std::min<size_t>(channels_, 3); }
  Sample& at(size_t x, size_t channel) {
    if (reversed_ && channel < 3) channel = 2 - channel;
    return samples_[planar_ ? channel * width_ + x : x * channels_ + channel];
  }
  tolk::Side side() {
    tolk::Side side;
    for (size_t i = 0; i < (planar_ ? channels_ : 1); ++i) side.plane[i] = &samples_[i * width_];
    side.step[0] = static_cast<int64_t>(samples_.size() * sizeof(Sample) / (planar_ ? channels_ : 1));
    return side;
  }

 private:
  size_t channels_, width_;
  bool planar_, reversed_;
  std::vector<Sample> samples_;
};

// Zeros differ by their sign; all that is not a number is alike.
inline bool same(double a, double b) { return a == b ? std::signbit(a) == std::signbit(b) : a != a && b != b; }

// A pixel and the results that are right for it, whose channels beyond those of the destination do not count.
template <class From, class To = From>
struct Column {
  Pixel<From> from;
  Pixels<To> accepted;
};

template <class From, class To>
void expectRow(const std::string& name, const std::vector<Column<From, To>>& row, Fourth fourth = Fourth::Kept,
               const Coeffs& coeffs = {}) {
  const harness::Subject& subject = harness::subject(name);
  constexpr From kSource{77};
  constexpr To kBefore{99}, kAlpha{55}, kFourth[] = {kBefore, static_cast<To>(kSource), kAlpha};
  for (void* function : {subject.tested, subject.expected}) {
    Row<From> src(subject.function->src, row.size(), kSource);
    Row<To> dst(subject.function->dst, row.size(), kBefore);
    for (size_t x = 0; x < row.size(); ++x)
      for (size_t c = 0; c < src.colours(); ++c) src.at(x, c) = row[x].from[c];
    tolk::Call call;
    call.roi = {static_cast<int32_t>(row.size()), 1};
    call.coeffs = coeffs;
    call.alpha = kAlpha;
    call.src = src.side();
    call.dst = dst.side();
    ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
    for (size_t x = 0; x < row.size(); ++x) {
      Pixel<To> got{};
      for (size_t c = 0; c < dst.colours(); ++c) got[c] = dst.at(x, c);
      const bool right = std::ranges::any_of(row[x].accepted, [&](const Pixel<To>& want) {
        return std::equal(got.begin(), got.begin() + dst.colours(), want.begin(), same);
      });
      EXPECT_TRUE(right) << name << (function == subject.tested ? "" : " (reference)") << ", column " << x << " of "
                         << row.size() << ": " << testing::PrintToString(row[x].from) << " gives "
                         << testing::PrintToString(got) << ", want " << testing::PrintToString(row[x].accepted);
      if (dst.channels() == 4) {
        EXPECT_EQ(dst.at(x, 3), kFourth[static_cast<int>(fourth)]) << name;
      }
    }
  }
}

// The columns of a layout's blocks are those below `width & ~(block - 1)`.
struct Layout {
  Layout(const char* layout, size_t columns = 4) : name(layout), block(columns) {}
  const char* name;
  size_t block;
};
using Layouts = std::vector<Layout>;
inline const Layouts kPacked{"C3R", "AC4R"}, kEightThenFour{{"C3R", 8}, {"AC4R", 4}};

template <class Sample>
struct Value {
  Value(const Pixel<Sample>& pixel, const Pixels<Sample>& block, const Pixels<Sample>& tail)
      : from(pixel), inBlock(block), inTail(tail) {}
  Value(const Pixel<Sample>& pixel, const Pixels<Sample>& everywhere) : Value(pixel, everywhere, everywhere) {}

  Pixel<Sample> from;
  Pixels<Sample> inBlock, inTail;
};
template <class Sample>
using Values = std::vector<Value<Sample>>;

// Rows of each value.
template <class Sample>
void expectValues(const std::string& operation, const Layouts& layouts, const Values<Sample>& values,
                  Fourth fourth = Fourth::Kept) {
  for (const Layout& layout : layouts)
    for (const auto& [from, inBlock, inTail] : values)
      for (const size_t width : {3, 7, 15, 103}) {
        std::vector<Column<Sample>> row(width & ~(layout.block - 1), {from, inBlock});
        row.resize(width, {from, inTail});
        expectRow(operation + layout.name, row, fourth);
      }
}

// 16u as 16s, where every sample is less by 32768.
inline Values<int16_t> biased(const Values<uint16_t>& values) {
  const auto pixels = [](const Pixels<uint16_t>& words) {
    Pixels<int16_t> result(words.size());
    for (size_t i = 0; i < words.size(); ++i)
      std::ranges::transform(words[i], result[i].begin(), [](int word) { return static_cast<int16_t>(word - 32768); });
    return result;
  };
  Values<int16_t> result;
  for (const auto& [from, inBlock, inTail] : values)
    result.push_back({pixels({from})[0], pixels(inBlock), pixels(inTail)});
  return result;
}

inline void expectWords(const std::string& operation, const Values<uint16_t>& values) {
  expectValues(operation + "_16u_", kPacked, values);
  expectValues(operation + "_16s_", kPacked, biased(values));
}

}  // namespace known
