// Samples to convert, the same on every machine.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tolk::selftest {

// Unit: floats from 0 to 1 and a little beyond. Extremes: few values, the ends of integers and small floats among
// them. None is a NaN or makes one, since not every bit of those is defined.
enum class Contents { Random, Unit, Extremes };

void fillSamples(std::span<uint8_t> target, std::string_view sample, Contents contents, uint32_t& seed);

}  // namespace tolk::selftest
