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
using BGRA = Packed<4, 2, 1, 0, 3>;

// Adds what P picks of a, if anything.
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

// Three samples a pixel: no byte place is a channel's in two of the memory registers. So one blend and one shuffle move
// a channel, once for all of them. The bytes of memory register k that are the channel's,
template <class Layout, int Size>
constexpr Places ownBytes(int channel, int k) {
  Places places{};
  for (int b = 0; b < 16; ++b) {
    places.at[b] = static_cast<int8_t>((16 * k + b) / Size % 3 == Layout::kPlace[channel] ? -1 : 0);
  }
  return places;
}
constexpr int wordBits(const Places& ownBytes) {
  int bits = 0;
  for (int word = 0; word < 8; ++word) bits |= (ownBytes.at[2 * word] & 1) << word;
  return bits;
}
// where the bytes of its register are found in the blend,
template <class Layout, int Size>
constexpr Places placesInBlend(int channel) {
  Places places{};
  for (int b = 0; b < 16; ++b) {
    places.at[b] = static_cast<int8_t>(((b / Size * 3 + Layout::kPlace[channel]) * Size + b % Size) % 16);
  }
  return places;
}
// and the inverse of these.
template <class Layout, int Size>
constexpr Places placesForBlend(int channel) {
  const Places from = placesInBlend<Layout, Size>(channel);
  Places places{};
  for (int b = 0; b < 16; ++b) places.at[from.at[b]] = static_cast<int8_t>(b);
  return places;
}

template <class Layout, int Size, int Channel, int K>
inline constexpr Places kOwnBytes = ownBytes<Layout, Size>(Channel, K);
template <class Layout, int Size, int Channel>
inline constexpr Places kPlacesInBlend = placesInBlend<Layout, Size>(Channel);
template <class Layout, int Size, int Channel>
inline constexpr Places kPlacesForBlend = placesForBlend<Layout, Size>(Channel);
template <class Layout, int Size, int Channel, int From>
inline constexpr Places kPlacesOfChannel = placesOfChannel<Layout, Size>(Channel, From);
template <class Layout, int Size, int Channel, int To>
inline constexpr Places kPlacesInMemory = placesInMemory<Layout, Size>(Channel, To);
template <class Layout, int Size>
inline constexpr Places kPlacesOfQuarters = placesOfQuarters<Layout, Size>();

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

// a where memory register k holds the channel's bytes, else b.
template <class Layout, int C, int K, class T, int L>
LANE_OP Reg<T, L> chooseOwn(Reg<T, L> a, Reg<T, L> b) {
  constexpr const Places& kOwn = kOwnBytes<Layout, sizeof(T), C, K>;
  if constexpr (sizeof(T) == 2) {
    return chooseWords<wordBits(kOwn)>(a, b);
  } else {
    return choose(everyLane<L>(kOwn), a, b);
  }
}
template <class Layout, int C, class T, int L>
LANE_OP Reg<T, L> blendedChannel(const Registers<T, L, 3>& memory) {
  const auto blend = chooseOwn<Layout, C, 0>(memory[0], chooseOwn<Layout, C, 1>(memory[1], memory[2]));
  return pick(blend, everyLane<L>(kPlacesInBlend<Layout, sizeof(T), C>));
}
template <class Layout, class T, int L>
LANE_OP Registers<T, L, 3> blendedMemory(const Registers<T, L, 3>& channel) {
  Registers<T, L, 3> part, memory;
  unrolled<3>([&](auto c) __attribute__((always_inline)) {
    part[c] = pick(channel[c], everyLane<L>(kPlacesForBlend<Layout, sizeof(T), c>));
  });
  unrolled<3>([&](auto k) __attribute__((always_inline)) {
    memory[k] = chooseOwn<Layout, 0, k>(part[0], chooseOwn<Layout, 1, k>(part[1], part[2]));
  });
  return memory;
}

// Samples of 32 bits move by shuffles of pairs of registers: to the three places of four pixels, and back.
template <class T, int L>
LANE_OP Registers<T, L, 3> thirdsOfQuads(const Registers<T, L, 3>& m) {
  return {quadsOf<0, 3, 0, 2>(m[0], quadsOf<2, 2, 1, 1>(m[1], m[2])),
          quadsOf<0, 2, 0, 2>(quadsOf<1, 1, 0, 0>(m[0], m[1]), quadsOf<3, 3, 2, 2>(m[1], m[2])),
          quadsOf<0, 2, 0, 3>(quadsOf<2, 2, 1, 1>(m[0], m[1]), m[2])};
}
template <class T, int L>
LANE_OP Registers<T, L, 3> quadsOfThirds(const Registers<T, L, 3>& p) {
  return {quadsOf<0, 1, 0, 2>(interleaveLow<4>(p[0], p[1]), quadsOf<0, 0, 1, 1>(p[2], p[0])),
          quadsOf<0, 2, 0, 2>(quadsOf<1, 1, 1, 1>(p[1], p[2]), quadsOf<2, 2, 2, 2>(p[0], p[1])),
          quadsOf<0, 2, 2, 3>(quadsOf<2, 2, 3, 3>(p[2], p[0]), interleaveHigh<4>(p[1], p[2]))};
}

// The channel that lies at each place of a pixel, and the inverse.
template <class Layout, class T, int L>
LANE_OP Registers<T, L, 3> inPlaces(const Registers<T, L, 3>& channel) {
  return {channel[Layout::channelAt(0)], channel[Layout::channelAt(1)], channel[Layout::channelAt(2)]};
}
template <class Layout, class T, int L>
LANE_OP Registers<T, L, 3> inChannels(const Registers<T, L, 3>& place) {
  return {place[Layout::kPlace[0]], place[Layout::kPlace[1]], place[Layout::kPlace[2]]};
}

// Register q of the result has the 32-bit groups q of the four registers.
template <class T, int L>
LANE_OP Registers<T, L, 4> transposed(const Registers<T, L, 4>& m) {
  const auto low01 = interleaveLow<4>(m[0], m[1]), low23 = interleaveLow<4>(m[2], m[3]);
  const auto high01 = interleaveHigh<4>(m[0], m[1]), high23 = interleaveHigh<4>(m[2], m[3]);
  return {interleaveLow<8>(low01, low23), interleaveHigh<8>(low01, low23), interleaveLow<8>(high01, high23),
          interleaveHigh<8>(high01, high23)};
}
template <class Layout, class T, int L>
LANE_OP auto quartersOf(const Registers<T, L, 4>& memory) {
  Registers<T, L, 4> place;
  if constexpr (sizeof(T) == 8) {
    place = {interleaveLow<8>(memory[0], memory[2]), interleaveHigh<8>(memory[0], memory[2]),
             interleaveLow<8>(memory[1], memory[3]), interleaveHigh<8>(memory[1], memory[3])};
  } else if constexpr (sizeof(T) == 4) {
    place = transposed(memory);
  } else {
    const auto quarters = everyLane<L>(kPlacesOfQuarters<Layout, sizeof(T)>);
    const auto byChannel = transposed<T, L>(
        {pick(memory[0], quarters), pick(memory[1], quarters), pick(memory[2], quarters), pick(memory[3], quarters)});
    unrolled<4>([&](auto c) __attribute__((always_inline)) {
      place[c < Layout::kChannels ? Layout::kPlace[c % Layout::kChannels] : Layout::kFourth] = byChannel[c];
    });
  }
  return place;
}

// The channels of the first, second ... place of a pixel.
template <class Layout, class T, int L>
LANE_OP Registers<T, L, Layout::kChannels> channelsAt(const Registers<T, L, Layout::kStride>& place) {
  Registers<T, L, Layout::kChannels> channel;
  unrolled<Layout::kChannels>([&](auto c) __attribute__((always_inline)) { channel[c] = place[Layout::kPlace[c]]; });
  return channel;
}

template <class Layout>
inline constexpr bool kAllOfThree = Layout::kStride == 3 && Layout::kChannels == 3;

}  // namespace detail

// Memory registers to channels: register k of a lane holds bytes 16k to 16k + 15 of the lane's pixels.
template <class Layout, class T, int L>
LANE_OP Registers<T, L, Layout::kChannels> unpackPixels(const Registers<T, L, Layout::kStride>& memory) {
  if constexpr (Layout::kStride == 4) {
    return detail::channelsAt<Layout>(detail::quartersOf<Layout>(memory));
  } else if constexpr (detail::kAllOfThree<Layout> && sizeof(T) == 4) {
    return detail::channelsAt<Layout>(detail::thirdsOfQuads(memory));
  } else {
    return [&]<size_t... C>(std::index_sequence<C...>) __attribute__((always_inline)) {
      if constexpr (detail::kAllOfThree<Layout> && sizeof(T) < 4 && L == 2) {
        return Registers<T, L, 3>{detail::blendedChannel<Layout, C>(memory)...};
      } else {
        return Registers<T, L, Layout::kChannels>{
            detail::gatherChannel<Layout, C>(memory, std::make_index_sequence<Layout::kStride>{})...};
      }
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
  } else if constexpr (detail::kAllOfThree<Layout> && sizeof(T) == 4) {
    return detail::quadsOfThirds<T, L>(
        {channel[Layout::channelAt(0)], channel[Layout::channelAt(1)], channel[Layout::channelAt(2)]});
  } else if constexpr (detail::kAllOfThree<Layout> && sizeof(T) < 4 && L == 2) {
    return detail::blendedMemory<Layout>(channel);
  } else {
    return [&]<size_t... To>(std::index_sequence<To...>) __attribute__((always_inline)) {
      return Registers<T, L, Layout::kStride>{
          detail::gatherMemory<Layout, To>(channel, std::make_index_sequence<Layout::kChannels>{})...};
    }
    (std::make_index_sequence<Layout::kStride>{});
  }
}

}  // namespace tolk
