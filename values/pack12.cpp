// Samples of 12 bits: two of them in three bytes, high bits first.
#include "frame/checks.h"
#include "frame/layouts.h"

using namespace tolk;

namespace {

// A lane takes 32 samples: four registers of words, three of packed bytes.
constexpr int kLaneSamples = 32, kLaneWords = 64, kLaneBytes = 48;

constexpr ptrdiff_t wordBytes(ptrdiff_t samples) { return 2 * samples; }
constexpr ptrdiff_t packedBytes(ptrdiff_t samples) { return (3 * samples + 1) / 2; }

// The two 16-bit factors by turns.
template <int L>
LANE_OP I16<L> factors(int even, int odd) {
  return as<int16_t>(I32<L>::splat(odd << 16 | even));
}

struct Pack {
  static constexpr auto sourceBytes = wordBytes, targetBytes = packedBytes;

  // Of register `to`, the bytes whose pair lies in register `from`, four pairs of 24 bits in 32.
  template <int From, int To>
  [[maybe_unused]] static constexpr Places kBytes = [] {
    Places places{};
    for (int b = 0; b < 16; ++b) {
      const int pair = (16 * To + b) / 3 - 4 * From, byte = (16 * To + b) % 3;
      places.at[b] = static_cast<int8_t>(pair >= 0 && pair < 4 ? 4 * pair + 2 - byte : -1);
    }
    return places;
  }();

  template <int L>
  LANE_OP static void vector(const uint8_t* src, uint8_t* dst, auto srcBytes, auto dstBytes) {
    Registers<int32_t, L, 4> pairs;
    unrolled<4>([&](auto k) __attribute__((always_inline)) {
      const auto words = loadBytes<kLaneWords, int16_t, L>(src + 16 * k, srcBytes - 16 * k);
      pairs[k] = pairSum(words & I16<L>::splat(4095), factors<L>(4096, 1));
    });
    unrolled<3>([&](auto k) __attribute__((always_inline)) {
      const auto bytes =
          pick(pairs[k], everyLane<L>(kBytes<k, k>)) | pick(pairs[k + 1], everyLane<L>(kBytes<k + 1, k>));
      storeBytes<kLaneBytes>(dst + 16 * k, bytes, dstBytes - 16 * k);
    });
  }

  // Two samples, or the last one.
  static void pair(const uint8_t* src, uint8_t* dst, ptrdiff_t samples) {
    uint16_t word[2] = {};
    std::memcpy(word, src, static_cast<size_t>(wordBytes(samples)));
    const int a = word[0] & 4095, b = word[1] & 4095;
    dst[0] = static_cast<uint8_t>(a >> 4);
    dst[1] = static_cast<uint8_t>(a << 4 | b >> 8);
    if (samples > 1) dst[2] = static_cast<uint8_t>(b);
  }
};

struct Unpack {
  static constexpr auto sourceBytes = packedBytes, targetBytes = wordBytes;

  // Of register `to`, the bytes that lie in register `from`: each word has a sample's twelve bits, at its top for the
  // first sample of a pair, at its bottom for the second.
  template <int From, int To>
  [[maybe_unused]] static constexpr Places kWords = [] {
    Places places{};
    for (int b = 0; b < 16; ++b) {
      const int sample = 8 * To + b / 2, byte = sample / 2 * 3 + sample % 2 + 1 - b % 2 - 16 * From;
      places.at[b] = static_cast<int8_t>(byte >= 0 && byte < 16 ? byte : -1);
    }
    return places;
  }();

  template <int L>
  LANE_OP static void vector(const uint8_t* src, uint8_t* dst, auto srcBytes, auto dstBytes) {
    Registers<int16_t, L, 3> bytes;
    unrolled<3>([&](auto k) __attribute__((always_inline)) {
      bytes[k] = loadBytes<kLaneBytes, int16_t, L>(src + 16 * k, srcBytes - 16 * k);
    });
    unrolled<4>([&](auto k) __attribute__((always_inline)) {
      auto words = I16<L>::splat(0);
      unrolled<3>([&](auto from)
                      __attribute__((always_inline)) { words = addPicked<kWords<from, k>>(words, bytes[from]); });
      const auto samples = shiftRight(as<uint16_t>(mulLow(words, factors<L>(1, 16))), 4);
      storeBytes<kLaneWords>(dst + 16 * k, samples, dstBytes - 16 * k);
    });
  }

  static void pair(const uint8_t* src, uint8_t* dst, ptrdiff_t samples) {
    uint16_t word[2] = {static_cast<uint16_t>(src[0] << 4 | src[1] >> 4)};
    if (samples > 1) word[1] = static_cast<uint16_t>((src[1] & 15) << 8 | src[2]);
    std::memcpy(dst, word, static_cast<size_t>(wordBytes(samples)));
  }
};

template <class Form>
void convertPairs(const uint8_t* src, uint8_t* dst, ptrdiff_t width) {
  for (ptrdiff_t x = 0; x < width; x += 2) {
    Form::pair(src + Form::sourceBytes(x), dst + Form::targetBytes(x), std::min<ptrdiff_t>(width - x, 2));
  }
}

// Vectors of L lanes from column x on; returns where they end.
template <class Form, int L>
LANE_OP ptrdiff_t convertVectors(const uint8_t* src, uint8_t* dst, ptrdiff_t x, ptrdiff_t width) {
  for (; x + kLaneSamples * L <= width; x += kLaneSamples * L) {
    Form::template vector<L>(src + Form::sourceBytes(x), dst + Form::targetBytes(x), Whole{}, Whole{});
  }
  return x;
}

template <class Form>
TolkStatus convertRows(TolkSize roi, const void* src, ptrdiff_t srcStep, void* dst, ptrdiff_t dstStep) {
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    const auto from = static_cast<const uint8_t*>(src) + y * srcStep;
    const auto to = static_cast<uint8_t*>(dst) + y * dstStep;
    if constexpr (kLanes == 0) {
      convertPairs<Form>(from, to, roi.width);
    } else {
      ptrdiff_t x = convertVectors<Form, kLanes>(from, to, 0, roi.width);
      if constexpr (kLanes > 1) x = convertVectors<Form, 1>(from, to, x, roi.width);
      if (const ptrdiff_t left = roi.width - x; left > 0) {
        Form::template vector<1>(from + Form::sourceBytes(x), to + Form::targetBytes(x), Form::sourceBytes(left),
                                 Form::targetBytes(left));
      }
    }
  }
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkPack_16u12u_C1R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return convertRows<Pack>(roi, src, srcStep, dst, dstStep);
}

TolkStatus tolkUnpack_12u16u_C1R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), steps(srcStep, dstStep))) return fault;
  return convertRows<Unpack>(roi, src, srcStep, dst, dstStep);
}
