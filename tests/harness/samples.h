// Bytes to fill images with, by the type of their samples.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace harness {

// Extremes: the ends of a sample's range at random; of floats also infinity, NaN and denormal numbers.
enum class Contents { Random, Zeros, Ones, Alternating, Extremes };

// A long run of samples drawn at random; empty where bytes do as well. "unit" are single-precision numbers from 0 to 1
// and a little beyond.
std::span<const uint8_t> samplePool(std::string_view sample, Contents contents);
std::span<const uint8_t> bytePool();

// Fills with a part of the pool, from the start of a sample; no image of the tests repeats itself.
void fillFrom(std::span<const uint8_t> pool, std::span<uint8_t> target, uint32_t& seed);

}  // namespace harness
