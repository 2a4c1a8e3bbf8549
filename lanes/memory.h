// Loads and stores of registers, whole or up to a byte of a row. Nothing needs alignment.
#pragma once

#include "lanes/lanes.h"

namespace tolk {

// Lane j from p + j * Stride.
template <int Stride, class T, int L>
LANE_OP Reg<T, L> loadLanes(const void* p) {
  if constexpr (L == 1) {
    return Reg<T, 1>(_mm_loadu_si128(static_cast<const __m128i*>(p)));
  } else if constexpr (Stride == 16) {
    return Reg<T, 2>(_mm256_loadu_si256(static_cast<const __m256i*>(p)));
  } else {
    return Reg<T, 2>(_mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(static_cast<const char*>(p) + Stride),
                                         static_cast<const __m128i*>(p)));
  }
}
template <int Stride, class T, int L>
LANE_OP void storeLanes(void* p, Reg<T, L> a) {
  if constexpr (L == 1) {
    _mm_storeu_si128(static_cast<__m128i*>(p), a.bits());
  } else if constexpr (Stride == 16) {
    _mm256_storeu_si256(static_cast<__m256i*>(p), a.bits());
  } else {
    _mm256_storeu2_m128i(reinterpret_cast<__m128i*>(static_cast<char*>(p) + Stride), static_cast<__m128i*>(p),
                         a.bits());
  }
}

// The samples in their order: those of lane j's halves from p + 32 j.
template <class T, int L>
LANE_OP Halves<T, L> loadHalves(const uint8_t* p) {
  return {loadLanes<32, T, L>(p), loadLanes<32, T, L>(p + 16)};
}
template <class T, int L>
LANE_OP void storeHalves(uint8_t* p, Halves<T, L> a) {
  if constexpr (L == 1) {
    storeLanes<16>(p, a.low);
    storeLanes<16>(p + 16, a.high);
  } else {
    const __m256i low = a.low.bits(), high = a.high.bits();
    storeLanes<16>(p, Reg<T, 2>(_mm256_permute2x128_si256(low, high, 0x20)));
    storeLanes<16>(p + 32, Reg<T, 2>(_mm256_permute2x128_si256(low, high, 0x31)));
  }
}

namespace detail {
// Sixteen bytes from kSlide + 16 - n move a lane up by n bytes, those from kSlide + 16 + n move it down.
alignas(16) inline constexpr int8_t kSlide[48] = {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1,
                                                  0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                                                  -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};

// The bytes from kMasks + 32 - n: n set ones, then clear ones.
struct Masks {
  alignas(32) int8_t at[64];
};
inline constexpr Masks kMasks = [] {
  Masks masks{};
  for (int i = 0; i < 32; ++i) masks.at[i] = -1;
  return masks;
}();

template <class Word>
LANE_OP uint64_t loadWord(const uint8_t* p) {
  Word word;
  std::memcpy(&word, p, sizeof word);
  return word;
}
template <class Word>
LANE_OP void storeWord(uint8_t* p, uint64_t value) {
  const Word word = static_cast<Word>(value);
  std::memcpy(p, &word, sizeof word);
}

// The first n bytes of a lane (all of it from 16 on, none below 1), by two overlapping accesses inside them.
LANE_OP __m128i loadLane(const uint8_t* p, ptrdiff_t n) {
  if (n >= 16) return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  if (n >= 8) {
    const __m128i low = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
    const __m128i high = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + n - 8));
    const __m128i up = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kSlide + 16 - (n - 8)));
    return _mm_or_si128(low, _mm_shuffle_epi8(high, up));
  }
  uint64_t word = 0;
  if (n >= 4) {
    word = loadWord<uint32_t>(p) | loadWord<uint32_t>(p + n - 4) << 8 * (n - 4);
  } else if (n >= 2) {
    word = loadWord<uint16_t>(p) | loadWord<uint16_t>(p + n - 2) << 8 * (n - 2);
  } else if (n == 1) {
    word = *p;
  }
  return _mm_cvtsi64_si128(static_cast<long long>(word));
}
LANE_OP void storeLane(uint8_t* p, __m128i lane, ptrdiff_t n) {
  if (n >= 16) return _mm_storeu_si128(reinterpret_cast<__m128i*>(p), lane);
  if (n >= 8) {
    const __m128i down = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kSlide + 16 + (n - 8)));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), lane);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p + n - 8), _mm_shuffle_epi8(lane, down));
    return;
  }
  const uint64_t word = static_cast<uint64_t>(_mm_cvtsi128_si64(lane));
  if (n >= 4) {
    storeWord<uint32_t>(p, word);
    storeWord<uint32_t>(p + n - 4, word >> 8 * (n - 4));
  } else if (n >= 2) {
    storeWord<uint16_t>(p, word);
    storeWord<uint16_t>(p + n - 2, word >> 8 * (n - 2));
  } else if (n == 1) {
    *p = static_cast<uint8_t>(word);
  }
}
}  // namespace detail

// As loadLanes and storeLanes, but no byte at or past p + n is touched; lanes beyond are 0. So one text that counts
// what is left of a row serves its last vector, and the whole ones before it, where n is a word for all.
template <int Stride, class T, int L>
LANE_OP Reg<T, L> loadBytes(const uint8_t* p, ptrdiff_t n) {
  if constexpr (L == 1) {
    return Reg<T, 1>(detail::loadLane(p, n));
  } else {
    return Reg<T, 2>(_mm256_set_m128i(detail::loadLane(p + Stride, n - Stride), detail::loadLane(p, n)));
  }
}
template <int Stride, class T, int L>
LANE_OP void storeBytes(uint8_t* p, Reg<T, L> a, ptrdiff_t n) {
  if constexpr (L == 1) {
    detail::storeLane(p, a.bits(), n);
  } else {
    detail::storeLane(p, _mm256_castsi256_si128(a.bits()), n);
    detail::storeLane(p + Stride, _mm256_extracti128_si256(a.bits(), 1), n - Stride);
  }
}

// The extent of a vector that lies inside its row, for any count; stores of a streamed one go past the caches, to
// addresses that are multiples of 16.
template <bool Stream>
struct AllBytes {
  constexpr AllBytes operator*(ptrdiff_t) const { return {}; }
  constexpr AllBytes operator-(ptrdiff_t) const { return {}; }
};
using Whole = AllBytes<false>;
using Streamed = AllBytes<true>;
template <int Stride, class T, int L, bool Stream>
LANE_OP Reg<T, L> loadBytes(const uint8_t* p, AllBytes<Stream>) {
  return loadLanes<Stride, T, L>(p);
}
template <int Stride, class T, int L, bool Stream>
LANE_OP void storeBytes(uint8_t* p, Reg<T, L> a, AllBytes<Stream>) {
  if constexpr (!Stream) {
    storeLanes<Stride>(p, a);
  } else if constexpr (L == 1) {
    _mm_stream_si128(reinterpret_cast<__m128i*>(p), a.bits());
  } else {
    _mm_stream_si128(reinterpret_cast<__m128i*>(p), _mm256_castsi256_si128(a.bits()));
    _mm_stream_si128(reinterpret_cast<__m128i*>(p + Stride), _mm256_extracti128_si256(a.bits(), 1));
  }
}
// Asks for memory that is soon read (written), where the processor would not by itself: at the start of a short run.
template <bool Written>
LANE_OP void fetchAhead(const void* p, ptrdiff_t bytes) {
  for (ptrdiff_t i = 0; i < bytes; i += 64) __builtin_prefetch(static_cast<const char*>(p) + i, Written);
}

// Orders streamed stores before the stores that follow.
LANE_OP void storeFence() { _mm_sfence(); }

// Lane j has `Part` bytes from p + j * Part, in its low end; the rest of a lane is undefined.
template <int Part, int L>
LANE_OP U8<L> loadParts(const uint8_t* p) {
  auto lane = [&](int j) __attribute__((always_inline)) {
    if constexpr (Part == 8) return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + j * Part));
    return _mm_cvtsi32_si128(static_cast<int>(detail::loadWord<uint32_t>(p + j * Part)));
  };
  if constexpr (Part == 16) {
    return loadLanes<16, uint8_t, L>(p);
  } else if constexpr (L == 1) {
    return U8<1>(lane(0));
  } else {
    return U8<2>(_mm256_set_m128i(lane(1), lane(0)));
  }
}
// The same without touching a byte at or past p + n.
template <int Part, int L>
LANE_OP U8<L> loadSomeParts(const uint8_t* p, ptrdiff_t n) {
  auto lane = [&](int j) __attribute__((always_inline)) {
    return detail::loadLane(p + j * Part, n - j * Part < Part ? n - j * Part : Part);
  };
  if constexpr (L == 1) {
    return U8<1>(lane(0));
  } else {
    return U8<2>(_mm256_set_m128i(lane(1), lane(0)));
  }
}

// The first `Part` bytes of lane j to p + j * Part; with n, no byte at or past p + n is touched.
template <int Part, int L>
LANE_OP void storeParts(uint8_t* p, U8<L> a) {
  auto lane = [](uint8_t * to, __m128i part) __attribute__((always_inline)) {
    if constexpr (Part == 8) {
      _mm_storel_epi64(reinterpret_cast<__m128i*>(to), part);
    } else {
      detail::storeWord<uint32_t>(to, static_cast<uint32_t>(_mm_cvtsi128_si32(part)));
    }
  };
  if constexpr (Part == 16) {
    storeLanes<16>(p, a);
  } else if constexpr (L == 1) {
    lane(p, a.bits());
  } else {
    lane(p, _mm256_castsi256_si128(a.bits()));
    lane(p + Part, _mm256_extracti128_si256(a.bits(), 1));
  }
}
template <int Part, int L>
LANE_OP void storeSomeParts(uint8_t* p, U8<L> a, ptrdiff_t n) {
  if constexpr (L == 1) {
    detail::storeLane(p, a.bits(), n);
  } else {
    detail::storeLane(p, _mm256_castsi256_si128(a.bits()), n < Part ? n : Part);
    detail::storeLane(p + Part, _mm256_extracti128_si256(a.bits(), 1), n - Part);
  }
}

// The bytes of the first n samples of a register, as a mask.
template <class T, int L>
LANE_OP Reg<T, L> firstSamples(ptrdiff_t n) {
  return loadLanes<16, T, L>(detail::kMasks.at + 32 - n * ptrdiff_t{sizeof(T)});
}

}  // namespace tolk
