// The BT.709 transfer curve and its inverse at every 8-bit and 16-bit sample; made by make_gamma_tables in the build.
#pragma once

#include <cstdint>

namespace tolk {

template <class Sample>
struct GammaTables;
template <>
struct GammaTables<uint8_t> {
  static const uint8_t forward[256], inverse[256];
};
template <>
struct GammaTables<uint16_t> {
  static const uint16_t forward[65536], inverse[65536];
};

}  // namespace tolk
