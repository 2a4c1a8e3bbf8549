// Registers of independent 16-byte lanes: element types, operations and memory primitives for every register width.
//
// Each lane holds its own run of consecutive pixels, so lane order is pixel order, unpacking and packing undo each
// other inside a lane, and a shuffle written for one lane is right at any width.
#pragma once

#include <immintrin.h>

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#define LANE_OP [[gnu::always_inline]] inline

namespace tolk {

// f(0), f(1) ... f(N - 1), as text: each index is a constant, so arrays of registers stay in registers.
template <int N>
LANE_OP constexpr void unrolled(auto f) {
  [&]<int... I>(std::integer_sequence<int, I...>) __attribute__((always_inline)) {
    (f(std::integral_constant<int, I>{}), ...);
  }
  (std::make_integer_sequence<int, N>{});
}

#if defined(TOLK_PLAIN)
inline constexpr int kLanes = 0;  // no lanes: every form runs on plain integers
#elif defined(__AVX2__)
inline constexpr int kLanes = 2;
#else
inline constexpr int kLanes = 1;
#endif

template <int L>
struct BitsOf;
template <>
struct BitsOf<1> {
  using Type = __m128i;
  using Float = __m128;
};
template <>
struct BitsOf<2> {
  using Type = __m256i;
  using Float = __m256;
};

// A register of L lanes of samples T.
template <class T, int L>
struct Reg {
  using Sample = T;
  static constexpr int kCount = 16 * L / int{sizeof(T)};
  typedef T Vec __attribute__((vector_size(16 * L)));
  using Bits = typename BitsOf<L>::Type;

  Reg() = default;
  LANE_OP explicit Reg(Bits bits) : v(reinterpret_cast<Vec>(bits)) {}
  LANE_OP static Reg of(Vec vec) { return Reg(reinterpret_cast<Bits>(vec)); }
  LANE_OP static Reg splat(T value) {  // bit for bit, a signalling NaN too
    if constexpr (std::is_floating_point_v<T>) {
      using Word = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
      return Reg(Reg<Word, L>::splat(std::bit_cast<Word>(value)).bits());
    } else {
      return of(value - Vec{});
    }
  }
  LANE_OP Bits bits() const { return reinterpret_cast<Bits>(v); }

  Vec v;
};

template <int L>
using U8 = Reg<uint8_t, L>;
template <int L>
using I16 = Reg<int16_t, L>;
template <int L>
using U16 = Reg<uint16_t, L>;
template <int L>
using I32 = Reg<int32_t, L>;
template <int L>
using F32 = Reg<float, L>;
template <int L>
using F64 = Reg<double, L>;

// Samples that are twice as wide as those of the register they belong with: of the lower half of each lane, of the
// upper.
template <class T, int L>
struct Halves {
  Reg<T, L> low, high;
};
template <class T, int L>
Halves(Reg<T, L>, Reg<T, L>) -> Halves<T, L>;

template <class To, class T, int L>
LANE_OP Reg<To, L> as(Reg<T, L> a) {
  return Reg<To, L>(a.bits());
}

// ---- Arithmetic of the compiler's vectors. Signed sums wrap: they are made on the unsigned type. ----

template <class T>
struct WrapOf {
  using Type = T;
};
template <>
struct WrapOf<int16_t> {
  using Type = uint16_t;
};
template <>
struct WrapOf<int32_t> {
  using Type = uint32_t;
};

template <class T, int L>
LANE_OP Reg<T, L> operator+(Reg<T, L> a, Reg<T, L> b) {
  using W = Reg<typename WrapOf<T>::Type, L>;
  return as<T>(W::of(reinterpret_cast<typename W::Vec>(a.v) + reinterpret_cast<typename W::Vec>(b.v)));
}
template <class T, int L>
LANE_OP Reg<T, L> operator-(Reg<T, L> a, Reg<T, L> b) {
  using W = Reg<typename WrapOf<T>::Type, L>;
  return as<T>(W::of(reinterpret_cast<typename W::Vec>(a.v) - reinterpret_cast<typename W::Vec>(b.v)));
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator*(Reg<T, L> a, Reg<T, L> b) {
  return Reg<T, L>::of(a.v * b.v);
}
template <class T, int L>
LANE_OP Reg<T, L> operator|(Reg<T, L> a, Reg<T, L> b) {
  return as<T>(U8<L>::of(as<uint8_t>(a).v | as<uint8_t>(b).v));
}
template <class T, int L>
LANE_OP Reg<T, L> operator&(Reg<T, L> a, Reg<T, L> b) {
  return as<T>(U8<L>::of(as<uint8_t>(a).v & as<uint8_t>(b).v));
}
// The bits in which a and b differ.
template <class T, int L>
LANE_OP Reg<T, L> differing(Reg<T, L> a, Reg<T, L> b) {
  return as<T>(U8<L>::of(as<uint8_t>(a).v ^ as<uint8_t>(b).v));
}
template <class T, int L>
LANE_OP Reg<T, L> shiftLeft(Reg<T, L> a, int n) {
  using W = Reg<typename WrapOf<T>::Type, L>;
  return as<T>(W::of(reinterpret_cast<typename W::Vec>(a.v) << n));
}
// Arithmetic for signed samples, logical for unsigned ones.
template <class T, int L>
LANE_OP Reg<T, L> shiftRight(Reg<T, L> a, int n) {
  return Reg<T, L>::of(a.v >> n);
}

// ---- Operations of the processor. The intrinsics of the widths differ in their prefix alone. ----

#define BY_WIDTH(result, operation, ...)                    \
  if constexpr (L == 1) {                                   \
    return Reg<result, L>(_mm_##operation(__VA_ARGS__));    \
  } else {                                                  \
    return Reg<result, L>(_mm256_##operation(__VA_ARGS__)); \
  }

// Upper half of the 32-bit product.
template <int L>
LANE_OP I16<L> mulHigh(I16<L> a, I16<L> b) {
  BY_WIDTH(int16_t, mulhi_epi16, a.bits(), b.bits())
}
template <int L>
LANE_OP U16<L> mulHigh(U16<L> a, U16<L> b) {
  BY_WIDTH(uint16_t, mulhi_epu16, a.bits(), b.bits())
}
// Limited to the most that the sample holds.
template <int L>
LANE_OP U8<L> addLimited(U8<L> a, U8<L> b) {
  BY_WIDTH(uint8_t, adds_epu8, a.bits(), b.bits())
}
template <int L>
LANE_OP U16<L> addLimited(U16<L> a, U16<L> b) {
  BY_WIDTH(uint16_t, adds_epu16, a.bits(), b.bits())
}
// (a * b + 2^14) >> 15.
template <int L>
LANE_OP I16<L> mulRound(I16<L> a, I16<L> b) {
  BY_WIDTH(int16_t, mulhrs_epi16, a.bits(), b.bits())
}
// Lower half of the 32-bit product.
template <int L>
LANE_OP I16<L> mulLow(I16<L> a, I16<L> b) {
  BY_WIDTH(int16_t, mullo_epi16, a.bits(), b.bits())
}
// Sums of the products of neighbours.
template <int L>
LANE_OP I32<L> pairSum(I16<L> a, I16<L> b) {
  BY_WIDTH(int32_t, madd_epi16, a.bits(), b.bits())
}
// The same of unsigned bytes with signed ones; saturates.
template <int L>
LANE_OP I16<L> pairSum(U8<L> a, Reg<int8_t, L> b) {
  BY_WIDTH(int16_t, maddubs_epi16, a.bits(), b.bits())
}
// Saturating to the narrower sample.
template <int L>
LANE_OP U8<L> narrow(I16<L> low, I16<L> high) {
  BY_WIDTH(uint8_t, packus_epi16, low.bits(), high.bits())
}
template <int L>
LANE_OP I16<L> narrow(I32<L> low, I32<L> high) {
  BY_WIDTH(int16_t, packs_epi32, low.bits(), high.bits())
}
template <int L>
LANE_OP U8<L> smaller(U8<L> a, U8<L> b) {
  BY_WIDTH(uint8_t, min_epu8, a.bits(), b.bits())
}
template <int L>
LANE_OP U8<L> larger(U8<L> a, U8<L> b) {
  BY_WIDTH(uint8_t, max_epu8, a.bits(), b.bits())
}
template <int L>
LANE_OP I16<L> smaller(I16<L> a, I16<L> b) {
  BY_WIDTH(int16_t, min_epi16, a.bits(), b.bits())
}
template <int L>
LANE_OP I16<L> larger(I16<L> a, I16<L> b) {
  BY_WIDTH(int16_t, max_epi16, a.bits(), b.bits())
}
// (a + b + 1) >> 1.
template <int L>
LANE_OP U8<L> average(U8<L> a, U8<L> b) {
  BY_WIDTH(uint8_t, avg_epu8, a.bits(), b.bits())
}
template <int L>
LANE_OP U16<L> average(U16<L> a, U16<L> b) {
  BY_WIDTH(uint16_t, avg_epu16, a.bits(), b.bits())
}
// (a + b) >> 1.
template <std::unsigned_integral T, int L>
LANE_OP Reg<T, L> mean(Reg<T, L> a, Reg<T, L> b) {
  return average(a, b) - (differing(a, b) & Reg<T, L>::splat(1));
}
// Byte i of the result is byte places[i] of a, within each lane; 0 where the place is negative.
template <class T, int L>
LANE_OP Reg<T, L> pick(Reg<T, L> a, Reg<int8_t, L> places) {
  BY_WIDTH(T, shuffle_epi8, a.bits(), places.bits())
}
// Groups of `Size` bytes of the lower (upper) halves of a and b in turn.
template <int Size, class T, int L>
LANE_OP Reg<T, L> interleaveLow(Reg<T, L> a, Reg<T, L> b) {
  if constexpr (Size == 1) {
    BY_WIDTH(T, unpacklo_epi8, a.bits(), b.bits())
  } else if constexpr (Size == 2) {
    BY_WIDTH(T, unpacklo_epi16, a.bits(), b.bits())
  } else if constexpr (Size == 4) {
    BY_WIDTH(T, unpacklo_epi32, a.bits(), b.bits())
  } else {
    BY_WIDTH(T, unpacklo_epi64, a.bits(), b.bits())
  }
}
template <int Size, class T, int L>
LANE_OP Reg<T, L> interleaveHigh(Reg<T, L> a, Reg<T, L> b) {
  if constexpr (Size == 1) {
    BY_WIDTH(T, unpackhi_epi8, a.bits(), b.bits())
  } else if constexpr (Size == 2) {
    BY_WIDTH(T, unpackhi_epi16, a.bits(), b.bits())
  } else if constexpr (Size == 4) {
    BY_WIDTH(T, unpackhi_epi32, a.bits(), b.bits())
  } else {
    BY_WIDTH(T, unpackhi_epi64, a.bits(), b.bits())
  }
}
template <int L>
LANE_OP I16<L> widenLow(U8<L> a) {
  return as<int16_t>(interleaveLow<1>(a, U8<L>::splat(0)));
}
template <int L>
LANE_OP I16<L> widenHigh(U8<L> a) {
  return as<int16_t>(interleaveHigh<1>(a, U8<L>::splat(0)));
}
template <int L>
LANE_OP I32<L> widenLow(I16<L> a) {
  return shiftRight(as<int32_t>(interleaveLow<2>(a, a)), 16);
}
template <int L>
LANE_OP I32<L> widenHigh(I16<L> a) {
  return shiftRight(as<int32_t>(interleaveHigh<2>(a, a)), 16);
}

// The samples that are equal, as a mask.
template <int L>
LANE_OP U8<L> equal(U8<L> a, U8<L> b) {
  return U8<L>::of(a.v == b.v);
}
template <class M, class T, int L>
LANE_OP Reg<T, L> exceptWhere(Reg<M, L> mask, Reg<T, L> a) {
  return a & as<T>(U8<L>::of(~as<uint8_t>(mask).v));
}

// The same 16 bytes in every lane.
template <class T>
struct Lane {
  alignas(16) T at[16 / sizeof(T)];
};
using Places = Lane<int8_t>;
template <int L, class T>
LANE_OP Reg<T, L> everyLane(const Lane<T>& numbers) {
  const __m128i lane = _mm_load_si128(reinterpret_cast<const __m128i*>(numbers.at));
  if constexpr (L == 1) {
    return Reg<T, 1>(lane);
  } else {
    return Reg<T, 2>(_mm256_broadcastsi128_si256(lane));
  }
}

// a where the mask is set, else b. All bits of a sample's mask are equal.
template <class M, class T, int L>
LANE_OP Reg<T, L> choose(Reg<M, L> mask, Reg<T, L> a, Reg<T, L> b) {
  if constexpr (L == 1) {
    return (a & as<T>(mask)) | (b & as<T>(U8<L>::of(~as<uint8_t>(mask).v)));
  } else {
    return Reg<T, L>(_mm256_blendv_epi8(b.bits(), a.bits(), mask.bits()));
  }
}

// Word i of each lane from a where bit i is set, else from b.
template <int Words, class T, int L>
LANE_OP Reg<T, L> chooseWords(Reg<T, L> a, Reg<T, L> b) {
  static_assert(L > 1);
  return Reg<T, L>(_mm256_blend_epi16(b.bits(), a.bits(), Words));
}

// Every number moves up by one place; the last one of `before` comes first.
template <class T, int L>
LANE_OP Reg<T, L> shiftIn(Reg<T, L> before, Reg<T, L> now) {
  constexpr int kUp = 16 - int{sizeof(T)};
  if constexpr (L == 1) {
    return Reg<T, 1>(_mm_alignr_epi8(now.bits(), before.bits(), kUp));
  } else {
    const __m256i lower = _mm256_permute2x128_si256(before.bits(), now.bits(), 0x21);
    return Reg<T, 2>(_mm256_alignr_epi8(now.bits(), lower, kUp));
  }
}
// The highest bits of a lane's bytes, those of the first byte highest.
LANE_OP int topBits(U8<1> a) {
  static constexpr Places kBackward = {{15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}};
  return _mm_movemask_epi8(pick(a, everyLane<1>(kBackward)).bits());
}
// The even and the odd bytes as 16-bit numbers.
template <int L>
LANE_OP I16<L> evenBytes(U8<L> a) {
  return as<int16_t>(a) & I16<L>::splat(255);
}
template <int L>
LANE_OP I16<L> oddBytes(U8<L> a) {
  return as<int16_t>(shiftRight(as<uint16_t>(a), 8));
}
// The even (odd) bytes of two vectors, those of a first.
template <int L>
LANE_OP U8<L> evenOf(U8<L> a, U8<L> b) {
  return narrow(evenBytes(a), evenBytes(b));
}
template <int L>
LANE_OP U8<L> oddOf(U8<L> a, U8<L> b) {
  return narrow(oddBytes(a), oddBytes(b));
}

// The 32-bit groups I and J of a, then K and M of b, within each lane.
template <int I, int J, int K, int M, class T, int L>
LANE_OP Reg<T, L> quadsOf(Reg<T, L> a, Reg<T, L> b) {
  const auto low = as<float>(a).v, high = as<float>(b).v;
  constexpr int kGroups = I | J << 2 | K << 4 | M << 6;
  if constexpr (L == 1) {
    return as<T>(F32<1>::of(_mm_shuffle_ps(low, high, kGroups)));
  } else {
    return as<T>(F32<2>::of(_mm256_shuffle_ps(low, high, kGroups)));
  }
}
// The 32-bit groups I, J, K and M of each lane.
template <int I, int J, int K, int M, class T, int L>
LANE_OP Reg<T, L> quads(Reg<T, L> a) {
  BY_WIDTH(T, shuffle_epi32, a.bits(), (I | J << 2 | K << 4 | M << 6))
}
template <int L>
LANE_OP U8<L> evenQuads(U8<L> a, U8<L> b) {
  return quadsOf<0, 2, 0, 2>(a, b);
}
template <int L>
LANE_OP U8<L> oddQuads(U8<L> a, U8<L> b) {
  return quadsOf<1, 3, 1, 3>(a, b);
}

// Limited to 0..65535; the numbers are at least 32768 above the least of 32 bits.
template <int L>
LANE_OP U16<L> narrowUnsigned(I32<L> low, I32<L> high) {
  if constexpr (L == 1) {  // only the signed pack is there
    const I32<L> middle = I32<L>::splat(32768);
    return as<uint16_t>(differing(narrow(low - middle, high - middle), I16<L>::splat(-32768)));
  } else {
    return U16<L>(_mm256_packus_epi32(low.bits(), high.bits()));
  }
}
// The lower 16 bits of each number.
template <int L>
LANE_OP I16<L> lowWords(I32<L> low, I32<L> high) {
  static constexpr Places kWords = {{0, 1, 4, 5, 8, 9, 12, 13, -1, -1, -1, -1, -1, -1, -1, -1}};
  const auto words = everyLane<L>(kWords);
  return as<int16_t>(interleaveLow<8>(pick(low, words), pick(high, words)));
}
// Of 32-bit groups that four registers in a row were narrowed to, those of each register one after the other.
template <int L>
LANE_OP U8<L> inRegisterOrder(U8<L> a) {
  if constexpr (L == 1) {
    return a;
  } else {
    return U8<L>(_mm256_permutevar8x32_epi32(a.bits(), _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7)));
  }
}

#undef BY_WIDTH

}  // namespace tolk
