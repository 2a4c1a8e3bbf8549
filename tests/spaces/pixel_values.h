// Rows of one pixel whose results were worked out by hand, in the library and in the reference, in every layout.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "harness/compare.h"

namespace pixels {

template <class Sample>
using Pixel = std::array<Sample, 3>;

// The results that are right in the first columns of a row, those below `width & ~3`, and in the last ones.
template <class Sample>
struct Value {
  using Pixels = std::vector<Pixel<Sample>>;
  Value(const Pixel<Sample>& pixel, const Pixels& inFirst, const Pixels& inLast)
      : from(pixel), first(inFirst), last(inLast) {}
  Value(const Pixel<Sample>& pixel, const Pixels& everywhere) : Value(pixel, everywhere, everywhere) {}

  Pixel<Sample> from;
  Pixels first, last;
};

// One row in the layout of one side. Channels are those of R, G, B, also where B comes first.
template <class Sample>
class Row {
 public:
  Row(const tolk::SideInfo& side, size_t width)
      : channels_(static_cast<size_t>(side.layout.back() - '0')),
        width_(width),
        planar_(side.layout.find('P') != std::string_view::npos),
        reversed_(side.space == "BGR"),
        samples_(channels_ * width) {}
  size_t channels() const { return channels_; }
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

enum class Fourth { Kept, Copied };

template <class Sample>
void expectValue(const std::string& name, const Value<Sample>& value, size_t width, Fourth fourth) {
  const harness::Subject& subject = harness::subject(name);
  constexpr Sample kSource{77}, kBefore{99};
  for (void* function : {subject.tested, subject.expected}) {
    Row<Sample> src(subject.function->src, width), dst(subject.function->dst, width);
    for (size_t x = 0; x < width; ++x) {
      for (size_t c = 0; c < src.channels(); ++c) src.at(x, c) = c < 3 ? value.from[c] : kSource;
      for (size_t c = 0; c < dst.channels(); ++c) dst.at(x, c) = kBefore;
    }
    tolk::Call call;
    call.roi = {static_cast<int32_t>(width), 1};
    call.src = src.side();
    call.dst = dst.side();
    ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
    for (size_t x = 0; x < width; ++x) {
      const auto& accepted = x < (width & ~size_t{3}) ? value.first : value.last;
      const Pixel<Sample> got = {dst.at(x, 0), dst.at(x, 1), dst.at(x, 2)};
      EXPECT_TRUE(std::ranges::find(accepted, got) != accepted.end())
          << name << (function == subject.tested ? "" : " (reference)") << ", column " << x << " of " << width << ": "
          << testing::PrintToString(value.from) << " gives " << testing::PrintToString(got);
      if (dst.channels() == 4) {
        EXPECT_EQ(dst.at(x, 3), fourth == Fourth::Kept ? kBefore : kSource) << name;
      }
    }
  }
}

template <class Sample>
void expectValues(const std::string& operation, std::initializer_list<const char*> layouts,
                  const std::vector<Value<Sample>>& values, Fourth fourth = Fourth::Kept) {
  for (const char* layout : layouts)
    for (const Value<Sample>& value : values)
      for (const size_t width : {3, 39}) expectValue(operation + layout, value, width, fourth);
}

}  // namespace pixels
