// Sources and destinations of rows: packed pixels and planes.
#pragma once

#include <algorithm>

#include "frame/layouts.h"

namespace tolk {

// Pixels in a lane: samples of one register's lane.
template <class T>
inline constexpr int kLanePixels = 16 / int{sizeof(T)};

template <class T>
using BytesOf = std::conditional_t<std::is_const_v<T>, const uint8_t, uint8_t>;

// What becomes of the samples of a pixel that no channel fills.
struct Keep {};
template <class T>
struct Set {
  T value;
};
template <class T>
Set(T) -> Set<T>;

// ---- Packed ----

template <class Layout, class Element>
struct PackedRow {
  using T = std::remove_const_t<Element>;
  using Sample = T;
  using Byte = BytesOf<Element>;
  static constexpr int kPixelBytes = Layout::kStride * int{sizeof(T)};
  static constexpr int kLaneBytes = kPixelBytes * kLanePixels<T>;
  Byte* base;

  Byte* at(ptrdiff_t x) const { return base + x * kPixelBytes; }

  template <int L>
  LANE_OP Registers<T, L, Layout::kStride> registers(ptrdiff_t x) const {
    Registers<T, L, Layout::kStride> memory;
    unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
      memory[k] = loadLanes<kLaneBytes, T, L>(at(x) + 16 * k);
    });
    return memory;
  }
  template <int L>
  LANE_OP Registers<T, L, Layout::kStride> someRegisters(ptrdiff_t x, ptrdiff_t pixels) const {
    Registers<T, L, Layout::kStride> memory;
    unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
      memory[k] = loadBytes<kLaneBytes, T, L>(at(x) + 16 * k, pixels * kPixelBytes - 16 * k);
    });
    return memory;
  }
  T sample(ptrdiff_t x, int place) const {
    T value;
    std::memcpy(&value, at(x) + place * int{sizeof(T)}, sizeof value);
    return value;
  }
  void setSample(ptrdiff_t x, int place, T value) const {
    std::memcpy(at(x) + place * int{sizeof(T)}, &value, sizeof value);
  }
};

template <class Layout, class T>
struct PackedSource {
  struct Row : PackedRow<Layout, const T> {
    template <int L>
    LANE_OP auto load(ptrdiff_t x) const {
      return unpackPixels<Layout>(this->template registers<L>(x));
    }
    template <int L>
    LANE_OP auto loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      return unpackPixels<Layout>(this->template someRegisters<L>(x, pixels));
    }
    auto loadPixel(ptrdiff_t x) const {
      std::array<T, Layout::kChannels> pixel;
      for (int c = 0; c < Layout::kChannels; ++c) pixel[c] = this->sample(x, Layout::kPlace[c]);
      return pixel;
    }
  };
  Row row(ptrdiff_t y) const { return {{base + y * step}}; }

  const uint8_t* base;
  ptrdiff_t step;
};

// Fourth: Keep or Set, for the samples that no channel fills.
template <class Layout, class T, class Fourth>
struct PackedTarget {
  struct Row : PackedRow<Layout, T> {
    Fourth fourth;

    template <int L>
    LANE_OP void store(ptrdiff_t x, const Registers<T, L, Layout::kChannels>& channel) const {
      const auto memory = packed<L>(channel, [&] { return this->template registers<L>(x); });
      unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
        storeLanes<Row::kLaneBytes>(this->at(x) + 16 * k, memory[k]);
      });
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const Registers<T, L, Layout::kChannels>& channel) const {
      const auto memory = packed<L>(channel, [&] { return this->template someRegisters<L>(x, pixels); });
      unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
        storeBytes<Row::kLaneBytes>(this->at(x) + 16 * k, memory[k], pixels * Row::kPixelBytes - 16 * k);
      });
    }
    void storePixel(ptrdiff_t x, const auto& pixel) const {
      for (int place = 0; place < Layout::kStride; ++place) {
        const int c = Layout::channelAt(place);
        if (c < Layout::kChannels) {
          this->setSample(x, place, static_cast<T>(pixel[c]));
        } else if constexpr (!std::is_same_v<Fourth, Keep>) {
          this->setSample(x, place, static_cast<T>(fourth.value));
        }
      }
    }

   private:
    template <int L>
    LANE_OP auto packed(const Registers<T, L, Layout::kChannels>& channel, auto oldRegisters) const {
      if constexpr (Layout::kStride == Layout::kChannels) {
        return packPixels<Layout>(channel, Reg<T, L>::splat(0));
      } else if constexpr (!std::is_same_v<Fourth, Keep>) {
        return packPixels<Layout>(channel, Reg<T, L>::splat(static_cast<T>(fourth.value)));
      } else {
        Registers<T, L, Layout::kChannels> none;
        none.fill(Reg<T, L>::splat(0));
        const auto keepMask = packPixels<Layout>(none, as<T>(U8<L>::splat(255)));
        auto memory = packPixels<Layout>(channel, Reg<T, L>::splat(0));
        const auto old = oldRegisters();
        unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
          memory[k] = memory[k] | (old[k] & keepMask[k]);
        });
        return memory;
      }
    }
  };
  Row row(ptrdiff_t y) const { return {{base + y * step}, fourth}; }

  uint8_t* base;
  ptrdiff_t step;
  Fourth fourth;
};

// ---- Packed samples of 16 bits, as many pixels to a lane as of bytes ----

// The samples of the first and the last eight pixels of each lane.
template <int L>
struct WordPair {
  using Sample = uint8_t;  // what there are as many of
  U16<L> low, high;
};
template <int L>
LANE_OP U16<L> widenLow(WordPair<L> a) {
  return a.low;
}
template <int L>
LANE_OP U16<L> widenHigh(WordPair<L> a) {
  return a.high;
}

// Both halves of what a form of 16-bit numbers gives.
LANE_OP auto joined(auto low, auto high) { return narrow(low, high); }
template <int L>
LANE_OP WordPair<L> joined(U16<L> low, U16<L> high) {
  return {low, high};
}

template <class Layout>
struct PairedSource {
  struct Row : PackedRow<Layout, const uint16_t> {
    using Sample = uint8_t;

    template <int L>
    LANE_OP auto load(ptrdiff_t x) const {
      return pairs<L>(x, Whole{});
    }
    template <int L>
    LANE_OP auto loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      return pairs<L>(x, pixels * Row::kPixelBytes);
    }
    std::array<uint16_t, Layout::kChannels> loadPixel(ptrdiff_t x) const {
      return PackedSource<Layout, uint16_t>{this->base, 0}.row(0).loadPixel(x);
    }

   private:
    template <int L>
    LANE_OP auto half(const uint8_t* p, auto bytes) const {
      Registers<uint16_t, L, Layout::kStride> memory;
      unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
        memory[k] = loadBytes<2 * Row::kLaneBytes, uint16_t, L>(p + 16 * k, bytes - 16 * k);
      });
      return unpackPixels<Layout>(memory);
    }
    template <int L>
    LANE_OP auto pairs(ptrdiff_t x, auto bytes) const {
      const auto low = half<L>(this->at(x), bytes),
                 high = half<L>(this->at(x) + Row::kLaneBytes, bytes - Row::kLaneBytes);
      std::array<WordPair<L>, Layout::kChannels> channel;
      unrolled<Layout::kChannels>([&](auto c) __attribute__((always_inline)) { channel[c] = {low[c], high[c]}; });
      return channel;
    }
  };
  Row row(ptrdiff_t y) const { return {{base + y * step}}; }

  const uint8_t* base;
  ptrdiff_t step;
};

template <class Layout>
struct PairedTarget {
  static_assert(Layout::kStride == Layout::kChannels);
  struct Row : PackedRow<Layout, uint16_t> {
    template <int L>
    LANE_OP void store(ptrdiff_t x, const std::array<WordPair<L>, Layout::kChannels>& channel) const {
      storePairs(x, Whole{}, channel);
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels,
                           const std::array<WordPair<L>, Layout::kChannels>& channel) const {
      storePairs(x, pixels * Row::kPixelBytes, channel);
    }
    void storePixel(ptrdiff_t x, const auto& pixel) const {
      for (int c = 0; c < Layout::kChannels; ++c) {
        this->setSample(x, Layout::kPlace[c], static_cast<uint16_t>(pixel[c]));
      }
    }

   private:
    template <int L>
    LANE_OP void storePairs(ptrdiff_t x, auto bytes, const std::array<WordPair<L>, Layout::kChannels>& channel) const {
      Registers<uint16_t, L, Layout::kChannels> low, high;
      unrolled<Layout::kChannels>([&](auto c) __attribute__((always_inline)) {
        low[c] = channel[c].low;
        high[c] = channel[c].high;
      });
      const auto none = U16<L>::splat(0);
      const auto first = packPixels<Layout>(low, none), last = packPixels<Layout>(high, none);
      unrolled<Layout::kStride>([&](auto k) __attribute__((always_inline)) {
        constexpr int kStep = 2 * Row::kLaneBytes;
        storeBytes<kStep>(this->at(x) + 16 * k, first[k], bytes - 16 * k);
        storeBytes<kStep>(this->at(x) + Row::kLaneBytes + 16 * k, last[k], bytes - Row::kLaneBytes - 16 * k);
      });
    }
  };
  Row row(ptrdiff_t y) const { return {{base + y * step}}; }

  uint8_t* base;
  ptrdiff_t step;
};

// ---- Planes of full resolution ----

template <class Element, int C>
struct PlanarImage {
  using T = std::remove_const_t<Element>;
  using Byte = BytesOf<Element>;
  struct Row {
    using Sample = T;
    std::array<Byte*, C> base;

    Byte* at(ptrdiff_t x, int c) const { return base[c] + x * ptrdiff_t{sizeof(T)}; }

    template <int L>
    LANE_OP Registers<T, L, C> load(ptrdiff_t x) const {
      Registers<T, L, C> channel;
      unrolled<C>([&](auto c) __attribute__((always_inline)) { channel[c] = loadLanes<16, T, L>(at(x, c)); });
      return channel;
    }
    template <int L>
    LANE_OP Registers<T, L, C> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      Registers<T, L, C> channel;
      unrolled<C>([&](auto c) __attribute__((always_inline)) {
        channel[c] = loadBytes<16, T, L>(at(x, c), pixels * ptrdiff_t{sizeof(T)});
      });
      return channel;
    }
    std::array<T, C> loadPixel(ptrdiff_t x) const {
      std::array<T, C> pixel;
      for (int c = 0; c < C; ++c) std::memcpy(&pixel[c], at(x, c), sizeof(T));
      return pixel;
    }
    template <int L>
    LANE_OP void store(ptrdiff_t x, const Registers<T, L, C>& channel) const {
      unrolled<C>([&](auto c) __attribute__((always_inline)) { storeLanes<16>(at(x, c), channel[c]); });
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const Registers<T, L, C>& channel) const {
      unrolled<C>([&](auto c) __attribute__((always_inline)) {
        storeBytes<16>(at(x, c), channel[c], pixels * ptrdiff_t{sizeof(T)});
      });
    }
    void storePixel(ptrdiff_t x, const auto& pixel) const {
      for (int c = 0; c < C; ++c) {
        const T value = static_cast<T>(pixel[c]);
        std::memcpy(at(x, c), &value, sizeof value);
      }
    }
  };
  Row row(ptrdiff_t y) const {
    Row row;
    unrolled<C>([&](auto c) __attribute__((always_inline)) { row.base[c] = base[c] + y * step[c]; });
    return row;
  }

  std::array<Byte*, C> base;
  std::array<ptrdiff_t, C> step;
};

// ---- Planes of samples twice as wide as those of the other side, whose pixels to a lane they take ----

template <class Element, int C>
struct WidePlanes : PlanarImage<Element, C> {
  using T = std::remove_const_t<Element>;
  struct Row : PlanarImage<Element, C>::Row {
    using Sample = std::conditional_t<sizeof(T) == 4, uint16_t, uint8_t>;

    template <int L>
    LANE_OP std::array<Halves<T, L>, C> load(ptrdiff_t x) const {
      std::array<Halves<T, L>, C> channel;
      unrolled<C>([&](auto c) __attribute__((always_inline)) { channel[c] = loadHalves<T, L>(this->at(x, c)); });
      return channel;
    }
    template <int L>
    LANE_OP std::array<Halves<T, L>, C> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      std::array<Halves<T, L>, C> channel;
      const ptrdiff_t bytes = pixels * ptrdiff_t{sizeof(T)};
      unrolled<C>([&](auto c) __attribute__((always_inline)) {
        channel[c] = {loadBytes<32, T, L>(this->at(x, c), bytes), loadBytes<32, T, L>(this->at(x, c) + 16, bytes - 16)};
      });
      return channel;
    }
    template <int L>
    LANE_OP void store(ptrdiff_t x, const std::array<Halves<T, L>, C>& channel) const {
      unrolled<C>([&](auto c) __attribute__((always_inline)) { storeHalves(this->at(x, c), channel[c]); });
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const std::array<Halves<T, L>, C>& channel) const {
      const ptrdiff_t bytes = pixels * ptrdiff_t{sizeof(T)};
      unrolled<C>([&](auto c) __attribute__((always_inline)) {
        storeBytes<32>(this->at(x, c), channel[c].low, bytes);
        storeBytes<32>(this->at(x, c) + 16, channel[c].high, bytes - 16);
      });
    }
  };
  Row row(ptrdiff_t y) const { return {PlanarImage<Element, C>::row(y)}; }
};
template <class Element, int C>
WidePlanes<Element, C> wide(PlanarImage<Element, C> image) {
  return {image};
}

// ---- What the exported functions call them ----

template <class Layout, class T>
PackedSource<Layout, T> from(const T* src, ptrdiff_t step) {
  return {reinterpret_cast<const uint8_t*>(src), step};
}
template <class Layout, class T, class Fourth = Keep>
PackedTarget<Layout, T, Fourth> to(T* dst, ptrdiff_t step, Fourth fourth = {}) {
  return {reinterpret_cast<uint8_t*>(dst), step, fourth};
}
// One channel.
template <class T>
PlanarImage<T, 1> plane(T* p, ptrdiff_t step) {
  return {{reinterpret_cast<BytesOf<T>*>(p)}, {step}};
}
// C planes with one step.
template <int C = 3, class T>
PlanarImage<const T, C> from(const T* const* src, ptrdiff_t step) {
  PlanarImage<const T, C> image;
  for (int c = 0; c < C; ++c) {
    image.base[c] = reinterpret_cast<const uint8_t*>(src[c]);
    image.step[c] = step;
  }
  return image;
}
template <int C = 3, class T>
PlanarImage<T, C> to(T* const* dst, ptrdiff_t step) {
  PlanarImage<T, C> image;
  for (int c = 0; c < C; ++c) {
    image.base[c] = reinterpret_cast<uint8_t*>(dst[c]);
    image.step[c] = step;
  }
  return image;
}

// C planes with a step each.
template <int C = 3, class T, class Step>
PlanarImage<const T, C> from(const T* const* src, const Step* steps) {
  auto image = from<C>(src, ptrdiff_t{0});
  std::copy_n(steps, C, image.step.begin());
  return image;
}
template <int C = 3, class T, class Step>
PlanarImage<T, C> to(T* const* dst, const Step* steps) {
  auto image = to<C>(dst, ptrdiff_t{0});
  std::copy_n(steps, C, image.step.begin());
  return image;
}
template <class Layout>
PairedSource<Layout> fromPairs(const uint16_t* src, ptrdiff_t step) {
  return {reinterpret_cast<const uint8_t*>(src), step};
}
template <class Layout>
PairedTarget<Layout> toPairs(uint16_t* dst, ptrdiff_t step) {
  return {reinterpret_cast<uint8_t*>(dst), step};
}

// The first three planes in the opposite order, as BGR is to RGB.
template <class Element, int C>
PlanarImage<Element, C> reversed(PlanarImage<Element, C> image) {
  std::swap(image.base[0], image.base[2]);
  return image;
}

}  // namespace tolk
