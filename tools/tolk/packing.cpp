// One side of a call in memory, and the pictures that fit it.
#include "packing.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "samples.h"

namespace tolk {

namespace {

// One channel of all pixels; no plane has slack between its rows.
struct Channel {
  uint8_t* first;
  size_t stride;
};

void copyChannel(Channel to, Channel from, size_t pixels, size_t sampleBytes) {
  for (size_t i = 0; i < pixels; ++i) std::memcpy(to.first + i * to.stride, from.first + i * from.stride, sampleBytes);
}

Channel channelOf(Image& image, int index) {
  const size_t sample = image.sampleBytes();
  return {image.samples.data() + static_cast<size_t>(index) * sample, static_cast<size_t>(image.channels) * sample};
}

// Where an image's gray, red, green, blue or alpha channel lies in a side.
Channel channelOf(RawImage& raw, int index) {
  if (raw.info.space.ends_with("BGR") && index < 3) index = 2 - index;
  const size_t sample = static_cast<size_t>(sampleBits(raw.info.sample)) / 8;
  const Side side = raw.side();
  const bool planar = raw.shapes.size() > 1;
  auto* plane = static_cast<uint8_t*>(side.plane[static_cast<size_t>(planar ? index : 0)]);
  return {plane + (planar ? 0 : static_cast<size_t>(index) * sample),
          static_cast<size_t>(raw.shapes[0].channels) * sample};
}

// Colour channels of whatever space.
bool namesNoSpace(const SideInfo& side) { return side.space == "Color" || side.space == "Any"; }

bool isFourChannels(std::string_view layout) { return layout == "C4" || layout == "AC4"; }

void requireFits(const Image& image, const SideInfo& info) {
  const bool gray = imageChannels(info) == 1, anyColour = holdsPixels(info) || namesNoSpace(info);
  if (gray ? image.colours() == 3 : image.colours() == 1 && !anyColour) {
    throw std::runtime_error(std::string("a ") + (gray ? "colour" : "gray") + " image, but expected is " + label(info));
  }
  if (image.bits != sampleBits(info.sample)) {
    throw std::runtime_error("the samples have " + std::to_string(image.bits) + " bits, but expected is " +
                             label(info) + (isScalable(info) ? " ('tolk convert' changes depths)" : ""));
  }
}

// Between 16s samples and the same counted from zero.
void flipSigns(std::span<uint8_t> samples) {
  for (size_t high = 1; high < samples.size(); high += 2) samples[high] ^= 0x80;
}

}  // namespace

RawImage::RawImage(const SideInfo& side, TolkSize roi)
    : info(side), size(roi), shapes(planeShapes(side, roi)), bytes(static_cast<size_t>(rawBytes(side, roi))) {
  bytes.reserve(1);  // the planes of an empty image are no null pointers
}

Side RawImage::side() {
  Side result;
  uint8_t* plane = bytes.data();
  for (size_t i = 0; i < shapes.size(); ++i) {
    result.plane[i] = plane;
    result.step[i] = shapes[i].rowBytes;
    plane += shapes[i].rowBytes * shapes[i].rows;
  }
  return result;
}

int64_t rawBytes(const SideInfo& info, TolkSize size) {
  int64_t sum = 0;
  for (const PlaneShape& shape : planeShapes(info, size)) sum += shape.rowBytes * shape.rows;
  return sum;
}

RawImage resized(RawImage from, TolkSize size) {
  if (from.size.width == size.width && from.size.height == size.height) return from;
  RawImage to(from.info, size);
  const Side source = from.side(), target = to.side();
  for (size_t i = 0; i < to.shapes.size(); ++i) {
    const PlaneShape &old = from.shapes[i], &now = to.shapes[i];
    const int64_t pair = from.info.layout == "C2" ? 2 : 1;  // the last pair of packed 4:2:2 is repeated as a whole
    const int64_t unit = pair * now.channels * sampleBits(from.info.sample) / 8;
    const int64_t kept = std::min(old.rowBytes, now.rowBytes);
    for (int64_t y = 0; y < now.rows; ++y) {
      auto* row = static_cast<uint8_t*>(target.plane[i]) + y * now.rowBytes;
      std::copy_n(static_cast<uint8_t*>(source.plane[i]) + std::min(y, old.rows - 1) * old.rowBytes, kept, row);
      for (int64_t at = kept; at < now.rowBytes; ++at) row[at] = row[at - unit];
    }
  }
  return to;
}

std::string label(const SideInfo& info) {
  return std::string(info.space) + " " + std::string(info.layout) + " " + std::string(info.sample);
}

bool holdsPixels(const SideInfo& side) { return side.space == "RGB" || side.space.ends_with("BGR"); }

bool isScalable(const SideInfo& side) { return (holdsPixels(side) || side.space == "Gray") && side.sample != "16s"; }

std::optional<SideInfo> exchangedChroma(SideInfo side) {
  static constexpr std::string_view kSpaces[][2] = {{"YCbCr422", "YCrCb422"}, {"YCbCr420", "YCrCb420"}};
  for (const auto& [one, other] : kSpaces) {
    if (side.space != one && side.space != other) continue;
    side.space = side.space == one ? other : one;
    return side;
  }
  return std::nullopt;
}

std::optional<int> repackingCost(const SideInfo& from, const SideInfo& to) {
  const bool fourth = isFourChannels(from.layout), toFourth = isFourChannels(to.layout);
  const bool same = from.space == to.space && (from.layout == to.layout || (fourth && toFourth));
  if (from.sample == to.sample && same) return 0;
  const int depth = from.sample == to.sample ? 0 : 3;
  if (isScalable(from) && isScalable(to)) {
    if (holdsPixels(from) && holdsPixels(to)) return depth + (same ? 0 : fourth == toFourth ? 1 : 2);
    return same ? std::optional(depth) : std::nullopt;
  }
  auto isThree = [](const SideInfo& side) {
    return servesImages(side) && (side.layout == "C3" || side.layout == "P3");
  };
  const bool alike = from.sample == to.sample || (from.sample.ends_with("f") && to.sample.ends_with("f"));
  if (from.space == to.space && isThree(from) && isThree(to) && alike) return depth + (from.layout != to.layout);
  const auto exchanged = exchangedChroma(from);
  const bool swaps = exchanged && exchanged->space == to.space && from.layout == "P3" && to.layout == "P3";
  return swaps ? std::optional(1) : std::nullopt;
}

RawImage repacked(RawImage from, const SideInfo& to, uint8_t alpha) {
  if (label(from.info) == label(to)) return from;
  if (servesImages(to)) return fromImage(withBits(toImage(from), sampleBits(to.sample)), to, alpha);
  from.info = to;
  const Side planes = from.side();
  auto* first = static_cast<uint8_t*>(planes.plane[1]);
  std::swap_ranges(first, first + from.shapes[1].rowBytes * from.shapes[1].rows,
                   static_cast<uint8_t*>(planes.plane[2]));
  return from;
}

bool servesImages(const SideInfo& info) {
  constexpr std::string_view kSpaces[] = {"RGB", "BGR", "SBGR", "Color", "Any", "Gray", "Gray10",
                                          "XYZ", "Lab", "LUV",  "HLS",   "HSV", "YCC",  "CFA"};
  constexpr std::string_view kSamples[] = {"1u", "8u", "16u", "16s", "32f", "64f"};
  auto has = [](const auto& names, std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
  };
  return has(kSpaces, info.space) && has(kSamples, info.sample);
}

int imageChannels(const SideInfo& info) { return info.layout.back() - '0'; }

void setAlpha(RawImage& raw, uint8_t alpha) {
  const int bits = sampleBits(raw.info.sample);
  std::array<uint8_t, sizeof(double)> sample{};
  storeFraction(sample.data(), bits, alpha / 255.0);
  if (raw.info.sample == "16s") flipSigns(sample);
  const size_t pixels = static_cast<size_t>(raw.size.width) * static_cast<size_t>(raw.size.height);
  copyChannel(channelOf(raw, 3), {sample.data(), 0}, pixels, static_cast<size_t>(bits) / 8);
}

RawImage fromImage(Image image, const SideInfo& info, uint8_t alpha) {
  requireFits(image, info);
  RawImage raw(info, {image.width, image.height});
  for (int c = 0; c < imageChannels(info); ++c) {
    if (c == 3 && !image.hasAlpha()) continue;
    const Channel from = channelOf(image, c == 3 ? image.channels - 1 : image.colours() == 1 ? 0 : c);
    copyChannel(channelOf(raw, c), from, image.pixels(), image.sampleBytes());
  }
  if (info.sample == "16s") flipSigns(raw.bytes);
  if (imageChannels(info) == 4 && !image.hasAlpha()) setAlpha(raw, alpha);
  return raw;
}

Image toImage(RawImage& raw) { return toImage(raw, imageChannels(raw.info)); }

Image toImage(RawImage& raw, int channels) {
  Image image{raw.size.width, raw.size.height, channels, sampleBits(raw.info.sample), {}};
  if (image.bits == 1) {
    image.samples = unpackedBits(raw.bytes, image.width);
    return image;
  }
  image.allocate();
  for (int c = 0; c < image.channels; ++c) {
    copyChannel(channelOf(image, c), channelOf(raw, c), image.pixels(), image.sampleBytes());
  }
  if (raw.info.sample == "16s") flipSigns(image.samples);
  for (size_t at = 0; raw.info.space == "Gray10" && at < image.samples.size(); at += 2) {
    uint16_t sample;
    std::memcpy(&sample, &image.samples[at], 2);
    sample = static_cast<uint16_t>(sample << 6 | sample >> 4);
    std::memcpy(&image.samples[at], &sample, 2);
  }
  return image;
}

}  // namespace tolk
