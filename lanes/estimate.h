// The processor's estimate of a reciprocal, good to 12 bits. Its last bits differ from one maker to another; every
// class takes the same instruction, so that they agree on one machine.
#pragma once

#include "lanes/floats.h"

namespace tolk {

template <int L>
LANE_OP F32<L> estimatedReciprocal(F32<L> d) {
  if constexpr (L == 1) {
    return F32<L>::of(_mm_rcp_ps(d.v));
  } else {
    return F32<L>::of(_mm256_rcp_ps(d.v));
  }
}
LANE_OP float estimatedReciprocal(float d) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(d))); }

// After one Newton step, which doubles the good bits.
LANE_OP auto refinedReciprocal(auto d) {
  const auto r = estimatedReciprocal(d);
  return (r + r) - (d * r) * r;
}

}  // namespace tolk
