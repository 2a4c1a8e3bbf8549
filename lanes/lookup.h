// Tables of 256 bytes that a vector of bytes looks up at once.
#pragma once

#include "lanes/lanes.h"

namespace tolk {

// Row k is the difference of the table's sixteen entries from 16 k on to those before them, from the start and from
// entry 128: the sum of the rows up to its own is an entry.
struct ByteTable {
  explicit ByteTable(const uint8_t (&table)[256]) : entry(table) {
    for (int i = 0; i < 256; ++i) {
      row[i / 16].at[i % 16] = static_cast<int8_t>(i % 128 < 16 ? table[i] : table[i] ^ table[i - 16]);
    }
  }
  Places row[16];
  const uint8_t* entry;
};

// Signed, limited to -128.
template <int L>
LANE_OP Reg<int8_t, L> subLimited(Reg<int8_t, L> a, Reg<int8_t, L> b) {
  if constexpr (L == 1) {
    return Reg<int8_t, L>(_mm_subs_epi8(a.bits(), b.bits()));
  } else {
    return Reg<int8_t, L>(_mm256_subs_epi8(a.bits(), b.bits()));
  }
}

// A shuffle gives 0 for negative places: those of rows behind the sample's own.
template <int L>
LANE_OP U8<L> lookUp(const ByteTable& table, U8<L> samples) {
  const auto sixteen = Reg<int8_t, L>::splat(16);
  auto low = as<int8_t>(samples), high = as<int8_t>(differing(samples, U8<L>::splat(128)));
  U8<L> found = U8<L>::splat(0);
  unrolled<8>([&](auto k) __attribute__((always_inline)) {
    found = differing(found, pick(as<uint8_t>(everyLane<L>(table.row[k])), low));
    found = differing(found, pick(as<uint8_t>(everyLane<L>(table.row[k + 8])), high));
    low = subLimited(low, sixteen);
    high = subLimited(high, sixteen);
  });
  return found;
}
LANE_OP int lookUp(const ByteTable& table, int sample) { return table.entry[sample]; }

}  // namespace tolk
