// Inexact functions by their names, and their bounds as the header states them.
#include "bounds.h"

#include <cmath>
#include <cstring>
#include <sstream>

namespace tolk::selftest {

static bool isInteger(const SideInfo& side) { return !side.sample.ends_with("f"); }
static bool isPixels(const SideInfo& side) { return side.space.ends_with("RGB") || side.space.ends_with("BGR"); }

std::optional<Inexact> inexactness(const Function& f) {
  const std::string_view space = f.dst.space;
  if (f.family == "Gamma" && !isInteger(f.src)) return Inexact{{true, true, true}};
  if (f.src.space == "LUV" && isInteger(f.src)) return Inexact{.channels = {true, true, true}, .inBlockOnly = true};
  if (!isPixels(f.src)) return std::nullopt;
  if (space == "HLS" && isInteger(f.src)) return Inexact{{true, false, true}};
  if (space == "HSV" && f.src.sample == "8u") return Inexact{{true, true, false}};
  if (space == "LUV" && f.src.sample != "8u") return Inexact{{false, true, true}};
  // In the last place of 64f good ones differ: one C library has two, for processors with and without FMA.
  if (space == "LUV" || space == "Lab")
    return Inexact{.channels = {true, true, true}, .usuallyExact = f.dst.sample != "64f"};
  return std::nullopt;
}

void forget(const Function& f, TolkSize roi, const PaddedImage& results) {
  const auto inexact = inexactness(f);
  const size_t sampleBytes = static_cast<size_t>(sampleBits(f.dst.sample)) / 8;
  const bool planar = results.planes() > 1;
  const int64_t columns = inexact->inBlockOnly ? roi.width & ~3 : roi.width;
  for (size_t channel = 0; channel < 3; ++channel) {
    if (!inexact->channels[channel]) continue;
    const size_t plane = planar ? channel : 0, first = planar ? 0 : channel * sampleBytes;
    const size_t stride = static_cast<size_t>(results.shape(plane).channels) * sampleBytes;
    for (int64_t y = 0; y < roi.height; ++y)
      for (int64_t x = 0; x < columns; ++x)
        std::memset(results.row(plane, y) + first + static_cast<size_t>(x) * stride, 0, sampleBytes);
  }
}

template <class Sample>
static double load(const Rows& rows, size_t index) {
  Sample sample;
  std::memcpy(&sample, &rows[index * sizeof sample], sizeof sample);
  return static_cast<double>(sample);
}

static double valueAt(std::string_view type, const Rows& rows, size_t index) {
  if (type == "8u") return load<uint8_t>(rows, index);
  if (type == "16u") return load<uint16_t>(rows, index);
  if (type == "16s") return load<int16_t>(rows, index);
  return type == "32f" ? load<float>(rows, index) : load<double>(rows, index);
}

// What a result may be beyond the least and the greatest.
static double tolerance(const Function& f, const Rows& exact, size_t index, size_t channel) {
  if (channel > 2 || !inexactness(f)->channels[channel] || f.family == "Gamma") return 0;
  if (isInteger(f.dst)) return 1;
  // Of L, a and b the roots' last places times 500.
  if (f.dst.space == "Lab") return f.dst.sample == "32f" ? 0x1p-13 : 0x1p-42;
  constexpr double kEstimate = 0x1.8p-21, kWhite[] = {0, 0.197839, 0.468342};  // 2^-21, and what rounding adds
  const double l = valueAt(f.dst.sample, exact, index - channel), value = valueAt(f.dst.sample, exact, index);
  return kEstimate * std::fabs(value + 13 * l * kWhite[channel]);
}

std::string outOfBounds(const Function& f, const Rows& got, const Rows& least, const Rows& greatest) {
  const size_t channels = static_cast<size_t>(f.dst.layout.back() - '0');
  const size_t samples = got.size() * 8 / static_cast<size_t>(sampleBits(f.dst.sample));
  if (least.size() != got.size() || greatest.size() != got.size()) return "its line of the table is damaged";
  for (size_t i = 0; i < samples; ++i) {
    const bool planar = f.dst.layout.find('P') != std::string_view::npos;
    const size_t channel = planar ? i / (samples / channels) : i % channels;
    const double by = tolerance(f, least, i, channel), value = valueAt(f.dst.sample, got, i);
    const double low = valueAt(f.dst.sample, least, i) - by, high = valueAt(f.dst.sample, greatest, i) + by;
    if (low <= value && value <= high) continue;
    std::ostringstream text;
    text.precision(17);
    text << "sample " << i << " (channel " << channel << ") is " << value << ", which is not within " << low << " and "
         << high;
    return text.str();
  }
  return "";
}

}  // namespace tolk::selftest
