// What the generated table binds arguments with.
#pragma once

#include "catalogue.h"

namespace tolk {

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
  explicit Steps(const Side& side) {
    for (size_t i = 0; i < step.size(); ++i) step[i] = static_cast<T>(side.step[i]);
  }
  operator const T*() const { return step.data(); }

  std::array<T, 4> step;
};

}  // namespace tolk
