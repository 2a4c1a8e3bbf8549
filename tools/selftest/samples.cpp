// Pools of samples drawn by a generator whose numbers the C++ standard fixes.
#include "samples.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tolk::selftest {

using Pool = std::vector<uint8_t>;
static constexpr size_t kPoolBytes = 1 << 16;

template <class Sample>
static Pool drawn(auto draw) {
  Pool bytes(kPoolBytes);
  std::mt19937 random(1);
  for (size_t i = 0; i < bytes.size(); i += sizeof(Sample)) {
    const Sample sample = draw(random);
    std::memcpy(&bytes[i], &sample, sizeof sample);
  }
  return bytes;
}

template <class Sample>
static Pool oneOf(const std::vector<Sample>& values) {
  return drawn<Sample>([&](auto& random) { return values[random() % values.size()]; });
}

static double fraction(std::mt19937& random) {  // from -1 to 1, with more digits than a product keeps
  const uint64_t high = random(), low = random();
  return static_cast<double>(static_cast<int64_t>(high << 32 | low)) * 0x1p-63;
}

template <class Float>
static Pool floats(Contents contents) {
  using Limits = std::numeric_limits<Float>;
  constexpr Float kLeast = Limits::denorm_min(), kSmallest = Limits::min();
  if (contents == Contents::Extremes)
    return oneOf<Float>({0, Float{-0.0}, 1, -1, Float{0.5}, 1 + Limits::epsilon(), kLeast, -kLeast, kSmallest,
                         -kSmallest, kSmallest - kLeast, Float{0.008856f}, Float{0.018f}});
  return drawn<Float>([=](auto& random) {
    const double value = fraction(random);
    if (contents == Contents::Unit) return static_cast<Float>(value * 0.625 + 0.5);
    constexpr double kScales[] = {2, 2, 2, 2, 2, 2, 0x1p-15, 0x1p17};
    return static_cast<Float>(value * kScales[random() % 8]);
  });
}

static Pool makePool(std::string_view sample, Contents contents) {
  if (sample == "32f") return floats<float>(contents);
  if (sample == "64f") return floats<double>(contents);
  if (contents != Contents::Extremes)
    return drawn<uint32_t>([](auto& random) { return static_cast<uint32_t>(random()); });
  if (sample == "16u" || sample == "16s") return oneOf<uint16_t>({0, 1, 0xff, 0x7fff, 0x8000, 0xffff});
  if (sample == "32s" || sample == "32u")
    return oneOf<uint32_t>({0, 1, 0x7fff, 0x8000, 0xffff, 0x10000, 0x7fffffff, 0x80000000, 0xffff8000, 0xffffffff});
  return oneOf<uint8_t>({0, 1, 127, 128, 254, 255});
}

void fillSamples(std::span<uint8_t> target, std::string_view sample, Contents contents, uint32_t& seed) {
  static std::map<std::pair<std::string, Contents>, Pool> pools;
  Pool& pool = pools[{std::string(sample), contents}];
  if (pool.empty()) pool = makePool(sample, contents);
  while (!target.empty()) {
    const size_t from = ((seed = seed * 1664525 + 1013904223) >> 11) % (kPoolBytes / 2) & ~size_t{7};
    const size_t count = std::min(target.size(), kPoolBytes / 2);
    std::memcpy(target.data(), pool.data() + from, count);
    target = target.subspan(count);
  }
}

}  // namespace tolk::selftest
