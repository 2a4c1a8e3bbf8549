// Error diffusion: the weights, the decision about a sample, and the plain loop.
#pragma once

#include "depth/levels.h"
#include "depth/noise.h"
#include "depth/sample_rows.h"

namespace tolk {

// The weight of the error of the pixel so far below and right of which the sample lies.
struct Tap {
  int down, right, weight;
};
struct FloydSteinberg {
  static constexpr int kRows = 1, kReach = 1;
  static constexpr float kFactor = 0.0625F;
  static constexpr Tap kTaps[] = {{1, -1, 1}, {1, 0, 5}, {1, 1, 3}, {0, -1, 7}};
};
struct JarvisJudiceNinke {
  static constexpr int kRows = 2, kReach = 2;
  static constexpr float kFactor = 0.020833334F;
  static constexpr Tap kTaps[] = {{2, -2, 1}, {2, -1, 3}, {2, 0, 5}, {2, 1, 3}, {2, 2, 1},  {1, -2, 3},
                                  {1, -1, 5}, {1, 0, 7},  {1, 1, 5}, {1, 2, 3}, {0, -2, 5}, {0, -1, 7}};
};
struct Stucki {
  static constexpr int kRows = 2, kReach = 2;
  static constexpr float kFactor = 0.023809524F;
  static constexpr Tap kTaps[] = {{2, -2, 1}, {2, -1, 2}, {2, 0, 4}, {2, 1, 2}, {2, 2, 1},  {1, -2, 2},
                                  {1, -1, 4}, {1, 0, 8},  {1, 1, 4}, {1, 2, 2}, {0, -2, 4}, {0, -1, 8}};
};

// The sum of errorAt(down, right) times the weights, product by product.
template <class Method>
LANE_OP auto weightedErrors(auto errorAt) {
  auto term = [&](auto i) __attribute__((always_inline)) {
    constexpr Tap kTap = Method::kTaps[i];
    const auto error = errorAt(std::integral_constant<int, kTap.down>{}, std::integral_constant<int, kTap.right>{});
    if constexpr (kTap.weight == 1) {
      return error;
    } else {
      return times<kTap.weight>(error);
    }
  };
  return [&]<int... I>(std::integer_sequence<int, I...>) __attribute__((always_inline)) {
    return (... + term(std::integral_constant<int, I>{}));
  }
  (std::make_integer_sequence<int, std::size(Method::kTaps)>{});
}

template <class Integer, class Error>
struct Diffused {
  Integer integer;
  Error error;
};
template <class Integer, class Error>
Diffused(Integer, Error) -> Diffused<Integer, Error>;

// To one of evenly spaced levels.
template <class FromSample, class ToSample, class Weights>
struct ToLevels {
  using From = FromSample;
  using To = ToSample;
  using Method = Weights;
  using Error = float;
  // What leaves no error, whatever the errors around it.
  static constexpr float kOutside = 1 << 30;

  LANE_OP auto operator()(auto v, auto sum, auto threshold) const {
    const auto w = v + sum * Method::kFactor;
    const auto level = levelOf(levels, w, threshold);
    const auto error = onlyWhere(w < kTop<From>, onlyWhere(w >= kBottom<From>, w - level));
    return Diffused{limitedAtBoth<From>(w, integerOf<From, To>(level)), error};
  }
  Levels levels;
};

// What samples are compared with: a constant, or noise.
struct Threshold {
  float at(int32_t y, int32_t x) const { return noise ? noise->at(y, x) : constant; }

  const Noise* noise;
  float constant;
};

// The rows of an image's channels, one channel after the other.
template <class FromSample, class ToSample>
struct ChannelRows {
  using From = FromSample;
  using To = ToSample;
  struct Row {
    const uint8_t* src;
    uint8_t* dst;
    int stride;
    int32_t y;

    auto number(ptrdiff_t x) const { return numberAt<From>(src, x * stride); }
    // So many results from pixel x on, every `apart`th of an array.
    void set(ptrdiff_t x, ptrdiff_t count, const int* integers, ptrdiff_t apart) const {
      for (ptrdiff_t i = 0; i < count; ++i) setSample<To>(dst, (x + i) * stride, integers[i * apart]);
    }

    // Sixteen at once, where pixels have one channel.
    LANE_OP Registers<float, 1, 4> numbers(ptrdiff_t x) const {
      return detail::quartersAt<From, 1>(src + x * ptrdiff_t{sizeof(From)}, Whole{});
    }
    LANE_OP void setSixteen(ptrdiff_t x, const Registers<int32_t, 1, 4>& integers) const {
      detail::storeSamples<To, false>(dst + x * ptrdiff_t{sizeof(To)}, Whole{},
                                      detail::narrowQuarters<To, true>(integers));
    }
  };
  ptrdiff_t count() const { return ptrdiff_t{roi.height} * channels; }
  bool isPlane() const { return stride == 1; }
  Row row(ptrdiff_t i) const {
    const ptrdiff_t channel = i / roi.height, y = i % roi.height;
    return {src + y * srcStep + channel * ptrdiff_t{sizeof(From)}, dst + y * dstStep + channel * ptrdiff_t{sizeof(To)},
            stride, static_cast<int32_t>(y)};
  }

  const uint8_t* src;
  ptrdiff_t srcStep;
  uint8_t* dst;
  ptrdiff_t dstStep;
  TolkSize roi;
  int channels, stride;
};

// Rows of errors with zeros on both sides.
template <class Method, class Error>
struct ErrorRows {
  static constexpr int kCount = Method::kRows + 1, kGuard = Method::kReach;

  ErrorRows(uint8_t* memory, ptrdiff_t width) {
    const ptrdiff_t length = width + 2 * kGuard;
    Error* first = reinterpret_cast<Error*>(memory);
    std::fill_n(first, kCount * length, Error{0});
    for (int i = 0; i < kCount; ++i) row[i] = first + i * length + kGuard;
  }

  Error* row[kCount];
};

// Row by row, each from left to right. The errors of a channel's last rows carry on into the next channel.
template <class Form, class Rows>
void diffusePlainly(const Form& form, const Rows& rows, const Threshold& threshold, uint8_t* memory) {
  using Error = typename Form::Error;
  ErrorRows<typename Form::Method, Error> errors(memory, rows.roi.width);
  for (ptrdiff_t i = 0; i < rows.count(); ++i) {
    const auto row = rows.row(i);
    for (int32_t x = 0; x < rows.roi.width; ++x) {
      const auto sum =
          weightedErrors<typename Form::Method>([&](auto down, auto right) { return errors.row[down][x + right]; });
      const auto [integer, error] = form(static_cast<Error>(row.number(x)), sum, threshold.at(row.y, x));
      row.set(x, 1, &integer, 1);
      errors.row[0][x] = error;
    }
    std::rotate(errors.row, errors.row + errors.kCount - 1, errors.row + errors.kCount);  // newest first
  }
}

}  // namespace tolk
