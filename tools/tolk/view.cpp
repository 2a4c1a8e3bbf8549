// The view command: the three channels of a space, side by side.
#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

#include "call.h"
#include "commands.h"
#include "conversion.h"
#include "lookup.h"
#include "panel.h"
#include "samples.h"

namespace tolk {

namespace {

constexpr int kGap = 4;

struct Glyph {
  char letter;
  std::array<uint8_t, 7> rows;  // bit 4 is the left one
};
constexpr Glyph kGlyphs[] = {
    {'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}}, {'2', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}},
    {'B', {0x1E, 0x11, 0x11, 0x1E, 0x11, 0x11, 0x1E}}, {'C', {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}},
    {'G', {0x0E, 0x11, 0x10, 0x17, 0x11, 0x11, 0x0F}}, {'H', {0x11, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}},
    {'L', {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x1F}}, {'R', {0x1E, 0x11, 0x11, 0x1E, 0x14, 0x12, 0x11}},
    {'S', {0x0F, 0x10, 0x10, 0x0E, 0x01, 0x01, 0x1E}}, {'U', {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}},
    {'V', {0x11, 0x11, 0x11, 0x11, 0x11, 0x0A, 0x04}}, {'X', {0x11, 0x11, 0x0A, 0x04, 0x0A, 0x11, 0x11}},
    {'Y', {0x11, 0x11, 0x0A, 0x04, 0x04, 0x04, 0x04}}, {'Z', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x10, 0x1F}},
    {'a', {0x00, 0x00, 0x0E, 0x01, 0x0F, 0x11, 0x0F}}, {'b', {0x10, 0x10, 0x16, 0x19, 0x11, 0x11, 0x1E}},
    {'r', {0x00, 0x00, 0x16, 0x19, 0x10, 0x10, 0x10}}, {'u', {0x00, 0x00, 0x11, 0x11, 0x11, 0x13, 0x0D}},
    {'v', {0x00, 0x00, 0x11, 0x11, 0x11, 0x0A, 0x04}},
};

using Names = std::array<std::string_view, 3>;

Names channelNames(std::string_view space) {
  if (space == "LUV") return {"L", "u", "v"};
  if (space == "YCC") return {"Y", "C1", "C2"};
  if (space == "YCbCr") return {"Y", "Cb", "Cr"};
  return {space.substr(0, 1), space.substr(1, 1), space.substr(2, 1)};
}

bool isShown(const SideInfo& side) { return side.layout == "C3" && side.sample != "32u"; }

const Format& requireShown(const std::string& name) {
  const Format& format = requireFormat(name);
  if (isShown(format.side)) return format;
  std::string names;
  for (const Format& other : formats()) names += isShown(other.side) ? " " + std::string(other.name) : "";
  throw std::runtime_error(name + " has no three channels of whole pictures; --space takes one of" + names);
}

void drawText(Image& picture, std::string_view text, int scale) {
  int32_t left = scale;
  for (char letter : text) {
    auto glyph = std::find_if(std::begin(kGlyphs), std::end(kGlyphs), [&](auto& g) { return g.letter == letter; });
    for (int32_t y = 0; y < 7 * scale; ++y) {
      for (int32_t x = 0; x < 5 * scale && left + x < picture.width; ++x) {
        const bool ink = glyph->rows[static_cast<size_t>(y / scale)] >> (4 - x / scale) & 1;
        const int64_t pixel = int64_t{y + scale} * picture.width + left + x;
        if (ink) std::fill_n(picture.samples.begin() + pixel * picture.channels, picture.channels, uint8_t{0});
      }
    }
    left += 6 * scale;
  }
}

// The picture below a white strip that has its name.
Image labelled(const Image& picture, std::string_view name) {
  const int scale = std::clamp(picture.width / 160, 1, 16);
  Image result = picture;
  result.height += 9 * scale;
  result.samples.assign(result.rowBytes() * static_cast<size_t>(9 * scale), 255);
  result.samples.insert(result.samples.end(), picture.samples.begin(), picture.samples.end());
  drawText(result, name, scale);
  return result;
}

// Where floating point is no part of full scale, what integers of the space would be of theirs.
Image fractionsOf(Image image, std::string_view space) {
  struct Scale {
    double below, span;
  };
  static constexpr Scale kLab[] = {{0, 100}, {128, 255}, {128, 255}}, kLUV[] = {{0, 100}, {134, 354}, {140, 262}};
  if (image.bits < 32 || (space != "Lab" && space != "LUV")) return image;
  const size_t count = image.pixels() * 3, bytes = image.sampleBytes();
  for (size_t i = 0; i < count; ++i) {
    const Scale& scale = (space == "Lab" ? kLab : kLUV)[i % 3];
    uint8_t* sample = &image.samples[i * bytes];
    storeFraction(sample, image.bits, (sampleAt(sample, image.bits) + scale.below) / scale.span);
  }
  return image;
}

Image channelOf(const Image& image, size_t index) {
  Image result{image.width, image.height, 1, 8, {}};
  for (size_t at = index; at < image.samples.size(); at += 3) result.samples.push_back(image.samples[at]);
  return result;
}

// Every hue as its purest colour; gray where there is no saturation, and so no hue.
Image huesOf(const Image& image, bool saturationIsLast) {
  RawImage hues({"HSV", "C3", "8u"}, {image.width, image.height});
  for (size_t at = 0; at < image.samples.size(); at += 3) {
    const bool gray = image.samples[at + (saturationIsLast ? 2 : 1)] == 0;
    const uint8_t pixel[] = {image.samples[at], uint8_t(gray ? 0 : 255), uint8_t(gray ? 128 : 255)};
    std::copy_n(pixel, 3, &hues.bytes[at]);
  }
  RawImage colours({"RGB", "C3", "8u"}, hues.size);
  callFunction(requireFunction("tolkHSVToRGB_8u_C3R"), hues, colours);
  return toImage(colours);
}

}  // namespace

void viewPicture(const ViewOptions& options) {
  const ConvertOptions conversion = {options.in, options.out,  options.from, options.space,
                                     {},         options.size, {},           options.linear};
  if (!options.space.empty()) requireShown(options.space);
  Source source = readSource(conversion);
  const std::string own(isShown(source.format.side) ? source.format.name : "rgb24");
  const Format& space = requireShown(options.space.empty() ? own : options.space);
  const bool hasHue = space.side.space.starts_with("H");
  requireHolds(options.out, hasHue ? 3 : 1, 8);
  RawImage converted = convertSource(std::move(source), space, conversion).image;
  const Image image = withBits(fractionsOf(toImage(converted), space.side.space), 8);

  std::vector<Image> pictures;
  const Names names = channelNames(space.side.space);
  for (size_t c = 0; c < 3; ++c) {
    const bool hue = hasHue && c == 0;
    pictures.push_back(labelled(hue ? huesOf(image, space.side.space == "HLS") : channelOf(image, c), names[c]));
  }
  writeImage(options.out, sideBySide(pictures, kGap));
}

}  // namespace tolk
