// Thresholds with noise, always the same: a table of them and a table of where to look, drawn anew for every image.
#pragma once

#include "lanes/doubles.h"

namespace tolk {

// A lagged subtraction with carry and a congruential generator, added.
class Generator {
 public:
  Generator(float low, float high)
      : scale_((static_cast<double>(high) - static_cast<double>(low)) * 2.3283064365386963e-10),
        middle_((static_cast<double>(low) + static_cast<double>(high)) * 0.5) {}

  double next() {
    const auto t = static_cast<int32_t>(c_ - d_ + carry_);
    const uint32_t sign = t < 0 ? UINT32_MAX : 0;
    d_ = c_;
    c_ = b_;
    b_ = static_cast<uint32_t>(t) - (18 & sign);
    carry_ = sign;
    a_ = a_ * 69069 + 1013904243;
    return static_cast<int32_t>(b_ + a_) * scale_ + middle_;
  }

 private:
  double scale_, middle_;
  uint32_t a_ = 1131199209, b_ = 0, c_ = 1013904243, d_ = 924302730, carry_ = UINT32_MAX;
};

struct Noise {
  static constexpr int kCount = 1024;

  void draw(float low, float high) {
    Generator places(0, kCount), thresholds(low, high);
    for (uint16_t& place : index) place = static_cast<uint16_t>(rounded(places.next()));
    for (float& t : threshold) t = narrowed(thresholds.next());
  }
  float at(int32_t y, int32_t x) const {
    const uint32_t place =
        index[static_cast<uint32_t>(x) % kCount] + 2 * static_cast<uint32_t>(y) + static_cast<uint32_t>(x);
    return threshold[place % kCount];
  }

  float threshold[kCount];
  uint16_t index[kCount];
};

}  // namespace tolk
