// Steps in double precision between steps in single precision, on registers and on single numbers.
#pragma once

#include "lanes/floats.h"

namespace tolk {

// The samples of a register of floats.
template <int L>
struct Doubles {
  F64<L> first, second;
};

template <int L>
LANE_OP Doubles<L> widened(F32<L> a) {
  if constexpr (L == 1) {
    return {F64<1>::of(_mm_cvtps_pd(a.v)), F64<1>::of(_mm_cvtps_pd(_mm_movehl_ps(a.v, a.v)))};
  } else {
    return {F64<2>::of(_mm256_cvtps_pd(_mm256_castps256_ps128(a.v))),
            F64<2>::of(_mm256_cvtps_pd(_mm256_extractf128_ps(a.v, 1)))};
  }
}
LANE_OP double widened(float a) { return a; }

template <int L>
LANE_OP F32<L> narrowed(Doubles<L> a) {
  if constexpr (L == 1) {
    return F32<1>::of(_mm_movelh_ps(_mm_cvtpd_ps(a.first.v), _mm_cvtpd_ps(a.second.v)));
  } else {
    return F32<2>::of(_mm256_set_m128(_mm256_cvtpd_ps(a.second.v), _mm256_cvtpd_ps(a.first.v)));
  }
}
LANE_OP float narrowed(double a) { return static_cast<float>(a); }

// Toward zero; what 32 bits do not hold becomes INT32_MIN.
template <int L>
LANE_OP I32<L> truncated(Doubles<L> a) {
  if constexpr (L == 1) {
    return I32<1>(_mm_unpacklo_epi64(_mm_cvttpd_epi32(a.first.v), _mm_cvttpd_epi32(a.second.v)));
  } else {
    return I32<2>(_mm256_set_m128i(_mm256_cvttpd_epi32(a.second.v), _mm256_cvttpd_epi32(a.first.v)));
  }
}
LANE_OP int truncated(double a) { return _mm_cvttsd_si32(_mm_set_sd(a)); }
// In the caller's rounding mode: to nearest, ties to even, unless it was changed.
LANE_OP int rounded(double a) { return _mm_cvtsd_si32(_mm_set_sd(a)); }

template <int L>
LANE_OP Doubles<L> operator+(Doubles<L> a, Doubles<L> b) {
  return {a.first + b.first, a.second + b.second};
}
template <int L>
LANE_OP Doubles<L> operator-(Doubles<L> a, Doubles<L> b) {
  return {a.first - b.first, a.second - b.second};
}
template <int L>
LANE_OP Doubles<L> operator*(Doubles<L> a, Doubles<L> b) {
  return {a.first * b.first, a.second * b.second};
}
template <int L>
LANE_OP Doubles<L> operator+(Doubles<L> a, double b) {
  return {a.first + b, a.second + b};
}
template <int L>
LANE_OP Doubles<L> operator-(Doubles<L> a, double b) {
  return {a.first - b, a.second - b};
}
template <int L>
LANE_OP Doubles<L> operator-(double a, Doubles<L> b) {
  return {a - b.first, a - b.second};
}
template <int L>
LANE_OP Doubles<L> operator*(Doubles<L> a, double b) {
  return {a.first * b, a.second * b};
}

namespace detail {
template <int L>
LANE_OP I32<L> narrowMasks(Reg<int64_t, L> first, Reg<int64_t, L> second) {
  const auto halves = as<int32_t>(quadsOf<0, 2, 0, 2>(first, second));
  if constexpr (L == 1) {
    return halves;
  } else {
    return I32<2>(_mm256_permute4x64_epi64(halves.bits(), 0xd8));
  }
}
}  // namespace detail

template <int L>
LANE_OP I32<L> operator<(Doubles<L> a, double b) {
  using Mask = Reg<int64_t, L>;
  const auto limit = F64<L>::splat(b).v;
  return detail::narrowMasks(Mask::of(a.first.v < limit), Mask::of(a.second.v < limit));
}
template <int L>
LANE_OP I32<L> operator>=(Doubles<L> a, double b) {
  using Mask = Reg<int64_t, L>;
  const auto limit = F64<L>::splat(b).v;
  return detail::narrowMasks(Mask::of(a.first.v >= limit), Mask::of(a.second.v >= limit));
}

template <int L>
LANE_OP Reg<int64_t, L> operator>(F64<L> a, double b) {
  return Reg<int64_t, L>::of(a.v > F64<L>::splat(b).v);
}
template <int L>
LANE_OP F64<L> choose(Reg<int64_t, L> mask, double a, F64<L> b) {
  return choose(mask, F64<L>::splat(a), b);
}
LANE_OP double choose(bool mask, double a, double b) { return mask ? a : b; }

}  // namespace tolk
