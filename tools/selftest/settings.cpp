// Rotations of every kind of argument, and faults.
#include "settings.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace tolk::selftest {

bool hasSettings(const Function& f) {
  constexpr std::string_view kNames[] = {"alpha",      "coeffs[3]", "twist[3][4]", "twist[4][4]",
                                         "ditherType", "vMax",      "srcRect",     "stripe"};
  return std::any_of(std::begin(kNames), std::end(kNames), [&](std::string_view name) { return f.has(name); });
}

// In the range of the samples that it stands among.
static double alphaFor(const Function& f, uint32_t turn) {
  const uint32_t value = turn * 29 + 77;
  if (f.dst.sample == "32f") return static_cast<double>(value) * -0x1p-9;
  if (f.dst.sample == "16s") return static_cast<int16_t>(value * 2003);
  return static_cast<double>(f.dst.sample == "16u" ? value * 2003 & 0xffff : value & 0xff);
}

// A usual matrix; sums that differ by their order; ties; sums of words beyond 32 bits; one in the scale of words.
static std::array<float, 16> twistFor(uint32_t turn) {
  constexpr std::array<float, 16> kTwists[] = {
      {0.393f, 0.769f, 0.189f, 3.7f, 0.349f, 0.686f, 0.168f, -20, 0.272f, 0.534f, 0.131f, 0.3f, -0.1f, 1.3f, 2, 0.7f},
      {1.1e9f, -1.1e9f, 0.7f, 0.9f, 0.7f, 1e9f, -1e9f, 0.9f, 1, 0.7f, 3e7f, -3e9f, -5e8f, 1, 5e8f, 1},
      {0.5f, 0, 0, 0, 0, 0.5f, 0.5f, 0.5f, 0.25f, -0.5f, 1, -0.5f, 0, 0, 0.5f, -1},
      {-40000, 0, 0, 7, 30000, 20000, -3e4f, 0.5f, 0, 40000, 1, -9, 1, 0, 0, 50000},
      {-1.7f, 0.9f, 1.6f, 300.3f, 0.3f, -0.59f, 0.11f, 32768, 20.1f, -7.7f, -12.3f, 0.1f, 1, -0.9f, 0.8f, -0.7f}};
  return kTwists[turn % std::size(kTwists)];
}

// None, a usual set, sums above 1, negative weights, ones that wrap as 16-bit integers, ones whose sum saturates there,
// and some that leave the range of 16-bit samples far behind.
static std::optional<std::array<double, 3>> coeffsFor(const Function& f, uint32_t turn) {
  using Weights = std::optional<std::array<double, 3>>;
  static const Weights kWeights[] = {{},
                                     {{0.2126, 0.7152, 0.0722}},
                                     {{0.5, 0.5, 0.5}},
                                     {{-0.5, 1.25, 0.25}},
                                     {{2.0, 0.25, -0.125}},
                                     {{1.99, 0.7, 1.99}},
                                     {{40.5, -7.25, 300.0}}};
  const Weights& chosen = kWeights[turn % std::size(kWeights)];
  return chosen || takesNullCoeffs(f) ? chosen : kWeights[1];
}

static void setRange(uint32_t turn, Call& call) {
  constexpr std::pair<float, float> kRanges[] = {{0, 1},    {0, 255},    {-1, 1},         {-0.3f, 0.7f}, {0.1f, 1.9f},
                                                 {0.2f, 3}, {-2, -0.5f}, {-7e4f, 1.1e5f}, {16, 235.5f},  {0, 1e-5f}};
  std::tie(call.vMin, call.vMax) = kRanges[turn % std::size(kRanges)];
}

static void setReduction(const Function& f, uint32_t turn, Call& call) {
  constexpr uint32_t kNoises[] = {0, 100, 37, 1};
  constexpr int32_t kLevels[] = {2, 3, 4, 6, 7, 64, 100, 255, 256, 258, 1000, 65535, 65536};
  constexpr uint8_t kThresholds[] = {127, 0, 1, 128, 254, 255, 64};
  const bool bits = f.dst.sample == "1u", bytes = f.src.sample == "8u" || f.dst.sample == "8u";
  call.noise = bits ? 0 : kNoises[turn / 5 % 4];
  call.ditherType = bits ? turn % 2 * tolkDitherStucki : turn % 5;
  call.levels = kLevels[turn % (bytes ? 9 : 13)];
  call.threshold = kThresholds[turn % 7];
  call.dstBitOffset = bits ? static_cast<int32_t>(turn % 19) : 0;
}

static void setDemosaicing(uint32_t turn, Call& call) {
  using Gains = std::optional<std::array<float, 3>>;
  static const Gains kGains[] = {{},
                                 {{1, 1, 1}},
                                 {{0.5f, 1.5f, 0.25f}},
                                 {{1.7f, 0.9f, 2.3f}},
                                 {{0.3333f, 1.0001f, 0.9999f}},
                                 {{0, 255, 1}},
                                 {{-1, -0.5f, 1e30f}}};
  call.grid = turn % 4;
  call.scale = kGains[turn / 4 % std::size(kGains)];
  call.reserved = static_cast<int32_t>(turn * 0x9e3779b9);
  if (turn % 3 == 0 || call.roi.width < 16 || call.roi.height < 12) return;
  const int32_t x = static_cast<int32_t>(turn % 6), y = static_cast<int32_t>(turn % 5);
  call.rect = {x, y, call.roi.width - x - static_cast<int32_t>(turn % 7), call.roi.height - y - 4};
}

void setArguments(const Function& f, uint32_t turn, Call& call) {
  constexpr uint32_t kStripes[] = {21, 1, 21, 4, 21, 16, 21, 21};
  call.alpha = alphaFor(f, turn);
  call.twist = twistFor(turn);
  call.coeffs = coeffsFor(f, turn);
  call.stripe = kStripes[turn % std::size(kStripes)];
  setRange(turn, call);
  if (f.has("ditherType")) setReduction(f, turn, call);
  if (f.has("grid")) setDemosaicing(turn, call);
}

std::vector<std::function<void(Call&)>> faults(const Function& f) {
  std::vector<std::function<void(Call&)>> list;
  auto add = [&](auto fault) { list.emplace_back(fault); };
  const size_t lastSource = planeShapes(f.src, {8, 8}).size() - 1, lastTarget = planeShapes(f.dst, {8, 8}).size() - 1;
  add([=](Call& c) { (f.inPlace ? c.dst : c.src).plane[lastSource] = nullptr; });
  add([=](Call& c) { c.dst.plane[lastTarget] = nullptr; });
  add([](Call& c) { c.dst.plane[0] = nullptr, c.roi.width = 0; });
  add([](Call& c) { c.roi.width = 0; });
  add([](Call& c) { c.roi.height = -1, c.src.step[0] = 0; });
  add([](Call& c) { c.roi.height = 0, c.dst.step[0] = 0; });
  add([](Call& c) { c.roi.width = 1; });
  add([](Call& c) { c.roi.height = 1; });
  if (!f.has("grid")) {
    add([](Call& c) { c.src.step[0] = 0; });
    add([](Call& c) { c.dst.step[0] = 0; });
    add([](Call& c) { c.src.step[0] = 0, c.dst.plane[0] = nullptr; });
  }
  if (f.has("grid")) {
    add([](Call& c) { c.grid = 4; });
    add([](Call& c) { c.rect = TolkRectL{0, 0, 0, 9}; });
    add([](Call& c) { c.rect = TolkRectL{0, 0, 9, -1}, c.grid = 5; });
  }
  if (f.has("vMax")) {
    add([](Call& c) { c.vMax = c.vMin; });
    add([](Call& c) { c.vMax = c.vMin - 1, c.dst.plane[0] = nullptr; });
  }
  if (f.has("twist[3][4]") || f.has("twist[4][4]")) add([](Call& c) { c.twist.reset(); });
  if (f.has("ditherType")) add([](Call& c) { c.ditherType = 5; });
  if (f.has("noise")) add([](Call& c) { c.noise = 101; });
  if (f.has("levels")) add([](Call& c) { c.levels = 1; });
  if (f.has("dstBitOffset")) add([](Call& c) { c.dstBitOffset = -1; });
  return list;
}

}  // namespace tolk::selftest
