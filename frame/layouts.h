// Where the samples of a pixel lie in memory, and the loads and stores that follow from it.
#pragma once

#include <array>
#include <utility>

#include "lanes/memory.h"

namespace tolk {

template <class T, int L, int C>
using Registers = std::array<Reg<T, L>, static_cast<size_t>(C)>;

// Interleaved pixels of kStride samples; channel c is sample kPlace[c] of its pixel.
template <int Stride, int... Place>
struct Packed {
  static constexpr int kStride = Stride;
  static constexpr int kChannels = sizeof...(Place);
  static constexpr int kPlace[sizeof...(Place)] = {Place...};
  static constexpr int kFourth = Stride * (Stride - 1) / 2 - (Place + ...);  // the place that a third channel leaves

  // The channel at a place of the pixel; kChannels where no channel lies.
  static constexpr int channelAt(int place) {
    for (int c = 0; c < kChannels; ++c) {
      if (kPlace[c] == place) return c;
    }
    return kChannels;
  }
};
using RGB3 = Packed<3, 0, 1, 2>;
using BGR3 = Packed<3, 2, 1, 0>;
using RGB4 = Packed<4, 0, 1, 2>;  // the fourth is no channel
using RGBA = Packed<4, 0, 1, 2, 3>;
using BGR4 = Packed<4, 2, 1, 0>;

namespace detail {

// Places that take sample `channel` of the pixels of a lane out of source register `from`.
template <class Layout, int Size>
constexpr Places placesOfChannel(int channel, int from) {
  Places places{};
  for (int b = 0; b < 16; ++b) {
    const int source = (b / Size * Layout::kStride + Layout::kPlace[channel]) * Size + b % Size - 16 * from;
    places.at[b] = static_cast<int8_t>(source >= 0 && source < 16 ? source : -1);
  }
  return places;
}
// The inverse: places in a channel's register for the bytes of memory register `to`.
template <class Layout, int Size>
constexpr Places placesInMemory(int channel, int to) {
  Places places{};
  for (int b = 0; b < 16; ++b) {
    const int sample = (16 * to + b) / Size;
    const bool own = sample % Layout::kStride == Layout::kPlace[channel];
    places.at[b] = static_cast<int8_t>(own ? sample / Layout::kStride * Size + b % Size : -1);
  }
  return places;
}
// Places that bring the samples of one channel together in a register that holds 4 / Size pixels of four samples.
template <class Layout, int Size>
constexpr Places placesOfQuarters() {
  Places places{};
  for (int b = 0; b < 16; ++b) {
    const int place = b / 4 < Layout::kChannels ? Layout::kPlace[b / 4] : Layout::kFourth;
    places.at[b] = static_cast<int8_t>((b % 4 / Size * 4 + place) * Size + b % Size);
  }
  return places;
}

template <class Layout, int Size, int Channel, int From>
inline constexpr Places kPlacesOfChannel = placesOfChannel<Layout, Size>(Channel, From);
template <class Layout, int Size, int Channel, int To>
inline constexpr Places kPlacesInMemory = placesInMemory<Layout, Size>(Channel, To);
template <class Layout, int Size>
inline constexpr Places kPlacesOfQuarters = placesOfQuarters<Layout, Size>();

constexpr bool isEmpty(const Places& places) {
  for (int8_t place : places.at) {
    if (place >= 0) return false;
  }
  return true;
}
template <const Places& P, class T, int L>
LANE_OP Reg<T, L> addPicked(Reg<T, L> sum, Reg<T, L> a) {
  if constexpr (isEmpty(P)) {
    return sum;
  } else {
    return sum | pick(a, everyLane<L>(P));
  }
}

template <class Layout, int C, class T, int L, size_t... From>
LANE_OP Reg<T, L> gatherChannel(const Registers<T, L, Layout::kStride>& memory, std::index_sequence<From...>) {
  Reg<T, L> channel = Reg<T, L>::splat(0);
  ((channel = addPicked<kPlacesOfChannel<Layout, sizeof(T), C, From>>(channel, memory[From])), ...);
  return channel;
}
template <class Layout, int To, class T, int L, size_t... C>
LANE_OP Reg<T, L> gatherMemory(const Registers<T, L, Layout::kChannels>& channel, std::index_sequence<C...>) {
  Reg<T, L> memory = Reg<T, L>::splat(0);
  ((memory = addPicked<kPlacesInMemory<Layout, sizeof(T), C, To>>(memory, channel[C])), ...);
  return memory;
}

}  // namespace detail

// Memory registers to channels: register k of a lane holds bytes 16k to 16k + 15 of the lane's pixels.
template <class Layout, class T, int L>
LANE_OP Registers<T, L, Layout::kChannels> unpackPixels(const Registers<T, L, Layout::kStride>& memory) {
  if constexpr (Layout::kStride == 4) {
    const auto quarters = everyLane<L>(detail::kPlacesOfQuarters<Layout, sizeof(T)>);
    const auto a = pick(memory[0], quarters), b = pick(memory[1], quarters);
    const auto c = pick(memory[2], quarters), d = pick(memory[3], quarters);
    const auto ab = interleaveLow<4>(a, b), cd = interleaveLow<4>(c, d);
    const auto ab2 = interleaveHigh<4>(a, b), cd2 = interleaveHigh<4>(c, d);
    const Registers<T, L, 4> all = {interleaveLow<8>(ab, cd), interleaveHigh<8>(ab, cd), interleaveLow<8>(ab2, cd2),
                                    interleaveHigh<8>(ab2, cd2)};
    return [&]<size_t... C>(std::index_sequence<C...>) __attribute__((always_inline)) {
      return Registers<T, L, Layout::kChannels>{all[C]...};
    }
    (std::make_index_sequence<Layout::kChannels>{});
  } else {
    return [&]<size_t... C>(std::index_sequence<C...>) __attribute__((always_inline)) {
      return Registers<T, L, Layout::kChannels>{
          detail::gatherChannel<Layout, C>(memory, std::make_index_sequence<Layout::kStride>{})...};
    }
    (std::make_index_sequence<Layout::kChannels>{});
  }
}

// Channels to memory registers. Samples without a channel become `fourth`.
template <class Layout, class T, int L>
LANE_OP Registers<T, L, Layout::kStride> packPixels(const Registers<T, L, Layout::kChannels>& channel,
                                                    Reg<T, L> fourth) {
  if constexpr (Layout::kStride == 4) {
    constexpr int kSize = sizeof(T);
    auto at = [&](int place) __attribute__((always_inline)) {
      const int c = Layout::channelAt(place);
      return c < Layout::kChannels ? channel[static_cast<size_t>(c)] : fourth;
    };
    const auto low01 = interleaveLow<kSize>(at(0), at(1)), high01 = interleaveHigh<kSize>(at(0), at(1));
    const auto low23 = interleaveLow<kSize>(at(2), at(3)), high23 = interleaveHigh<kSize>(at(2), at(3));
    return {interleaveLow<2 * kSize>(low01, low23), interleaveHigh<2 * kSize>(low01, low23),
            interleaveLow<2 * kSize>(high01, high23), interleaveHigh<2 * kSize>(high01, high23)};
  } else {
    return [&]<size_t... To>(std::index_sequence<To...>) __attribute__((always_inline)) {
      return Registers<T, L, Layout::kStride>{
          detail::gatherMemory<Layout, To>(channel, std::make_index_sequence<Layout::kChannels>{})...};
    }
    (std::make_index_sequence<Layout::kStride>{});
  }
}

}  // namespace tolk
