// What the generated table binds arguments with.
#pragma once

#include "catalogue.h"

namespace tolk {

using namespace std::string_view_literals;

template <class T>
struct Planes {
  explicit Planes(const Side& side) : missing(side.nullArray) {
    for (size_t i = 0; i < pointer.size(); ++i) pointer[i] = static_cast<T*>(side.plane[i]);
  }
  operator T* const*() const { return missing ? nullptr : pointer.data(); }

  std::array<T*, 4> pointer;
  bool missing;
};

template <class T>
struct Steps {
  explicit Steps(const Side& side) : missing(side.nullSteps) {
    for (size_t i = 0; i < step.size(); ++i) step[i] = static_cast<T>(side.step[i]);
  }
  operator const T*() const { return missing ? nullptr : step.data(); }

  std::array<T, 4> step;
  bool missing;
};

inline TolkSizeL wideSize(const Call& call) { return call.roiL.value_or(TolkSizeL{call.roi.width, call.roi.height}); }

template <class Size>
Size mosaicSize(const Call& call) {
  using Number = decltype(Size::width);
  const TolkSizeL size = call.mosaic.value_or(TolkSizeL{call.roi.width, call.roi.height});
  return {static_cast<Number>(size.width), static_cast<Number>(size.height)};
}

template <class Rect>
Rect rectangle(const Call& call) {
  using Number = decltype(Rect::x);
  const TolkRectL rect = call.rect.value_or(TolkRectL{0, 0, call.roi.width, call.roi.height});
  return {static_cast<Number>(rect.x), static_cast<Number>(rect.y), static_cast<Number>(rect.width),
          static_cast<Number>(rect.height)};
}

// Missing weights are a null pointer.
template <class T>
struct Weights {
  template <class Number>
  explicit Weights(const std::optional<std::array<Number, 3>>& weights) : missing(!weights) {
    for (size_t i = 0; i < value.size() && weights; ++i) value[i] = static_cast<T>((*weights)[i]);
  }
  operator const T*() const { return missing ? nullptr : value.data(); }

  std::array<T, 3> value{};
  bool missing;
};

// A missing matrix is a null pointer.
struct Matrix {
  using Row = const float[4];
  explicit Matrix(const std::optional<std::array<float, 16>>& twist) : missing(!twist) {
    for (size_t i = 0; i < 16 && twist; ++i) value[i / 4][i % 4] = (*twist)[i];
  }
  operator Row*() const { return missing ? nullptr : value; }

  float value[4][4]{};
  bool missing;
};

}  // namespace tolk
