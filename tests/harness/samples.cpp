// Pools of random samples.
#include "harness/samples.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace harness {

static constexpr size_t kPoolBytes = 1 << 22;

template <class Sample>
static std::vector<uint8_t> pool(auto draw) {
  std::vector<uint8_t> bytes(kPoolBytes);
  std::mt19937_64 random(1);
  for (size_t i = 0; i < bytes.size(); i += sizeof(Sample)) {
    const Sample sample = draw(random);
    std::memcpy(&bytes[i], &sample, sizeof sample);
  }
  return bytes;
}

template <class Sample>
static std::vector<uint8_t> oneOf(std::vector<Sample> values) {
  return pool<Sample>([&](auto& random) { return values[random() % values.size()]; });
}

// Within -2 and 2, with more digits than a product keeps, and some far smaller or larger.
template <class Float>
static std::vector<uint8_t> randomFloats() {
  return pool<Float>([](auto& random) {
    const Float value = static_cast<Float>(static_cast<int64_t>(random())) * static_cast<Float>(0x1p-62);
    constexpr Float kScales[] = {1, 1, 1, 1, 1, 1, Float{1} / 65536, 65536};
    return value * kScales[random() % 8];
  });
}

// The one NaN is that of the processor's own invalid operations, so that the order of operands never shows.
template <class Float>
static std::vector<uint8_t> extremeFloats() {
  using Limits = std::numeric_limits<Float>;
  const Float least = Limits::denorm_min(), smallest = Limits::min(), most = Limits::max(),
              infinite = Limits::infinity();
  return oneOf<Float>({0, Float{-0.0}, 1, -1, Float{0.5}, 1 + Limits::epsilon(), least, -least, smallest, -smallest,
                       smallest - least, most, -most, infinite, -infinite, -Limits::quiet_NaN()});
}

std::span<const uint8_t> bytePool() {
  static const auto kBytes = pool<uint64_t>([](auto& random) { return random(); });
  return kBytes;
}

std::span<const uint8_t> samplePool(std::string_view sample, Contents contents) {
  if (contents == Contents::Random && sample == "32f") {
    static const auto kFloats = randomFloats<float>();
    return kFloats;
  }
  if (contents == Contents::Random && sample == "64f") {
    static const auto kDoubles = randomFloats<double>();
    return kDoubles;
  }
  if (contents == Contents::Ones && sample == "32f") {
    static const auto kNans = oneOf<float>({-std::numeric_limits<float>::quiet_NaN()});
    return kNans;
  }
  if (contents == Contents::Random && sample == "unit") {
    static const auto kUnits = pool<float>(
        [](auto& random) { return static_cast<float>(static_cast<int32_t>(random() >> 32)) * 0x1.4p-32f + 0.5f; });
    return kUnits;
  }
  if (contents != Contents::Extremes) return {};
  if (sample == "16u" || sample == "16s") {
    static const auto kWords = oneOf<uint16_t>({0, 1, 0xff, 0x7fff, 0x8000, 0xffff});
    return kWords;
  }
  if (sample == "32s") {
    static const auto kLongs =
        oneOf<uint32_t>({0, 1, 0x7fff, 0x8000, 0xffff, 0x10000, 0x7fffffff, 0x80000000, 0xffff8000, 0xffffffff});
    return kLongs;
  }
  if (sample == "32f") {
    static const auto kFloats = extremeFloats<float>();
    return kFloats;
  }
  if (sample == "64f") {
    static const auto kDoubles = extremeFloats<double>();
    return kDoubles;
  }
  return {};
}

void fillFrom(std::span<const uint8_t> pool, std::span<uint8_t> target, uint32_t& seed) {
  while (!target.empty()) {
    const size_t from = ((seed = seed * 1664525 + 1013904223) >> 11) & ~size_t{7};
    const size_t count = std::min(target.size(), pool.size() / 2);
    std::memcpy(target.data(), pool.data() + from, count);
    target = target.subspan(count);
  }
}

}  // namespace harness
