// One side of a call in memory, and the pictures that fit it.
#include "packing.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

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
  if (raw.info.space == "BGR" && index < 3) index = 2 - index;
  const size_t sample = static_cast<size_t>(sampleBits(raw.info.sample)) / 8;
  const Side side = raw.side();
  const bool planar = raw.shapes.size() > 1;
  auto* plane = static_cast<uint8_t*>(side.plane[static_cast<size_t>(planar ? index : 0)]);
  return {plane + (planar ? 0 : static_cast<size_t>(index) * sample),
          static_cast<size_t>(raw.shapes[0].channels) * sample};
}

void requireFits(const Image& image, const SideInfo& info) {
  if (image.colours() == 3 && imageChannels(info) == 1) {
    throw std::runtime_error("a colour image, but the function takes " + label(info));
  }
  if (image.bits != sampleBits(info.sample)) {
    throw std::runtime_error("the samples have " + std::to_string(image.bits) + " bits, but the function takes " +
                             label(info));
  }
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

std::string label(const SideInfo& info) {
  return std::string(info.space) + " " + std::string(info.layout) + " " + std::string(info.sample);
}

bool servesImages(const SideInfo& info) {
  return (info.space == "RGB" || info.space == "BGR" || info.space == "Gray") &&
         (info.sample == "8u" || info.sample == "16u");
}

int imageChannels(const SideInfo& info) { return info.layout.back() - '0'; }

RawImage fromImage(Image image, const SideInfo& info) {
  requireFits(image, info);
  RawImage raw(info, {image.width, image.height});
  Bytes opaque(image.sampleBytes(), 0xFF);
  for (int c = 0; c < imageChannels(info); ++c) {
    Channel from = channelOf(image, image.colours() == 1 ? 0 : c);
    if (c == 3) from = image.hasAlpha() ? channelOf(image, image.channels - 1) : Channel{opaque.data(), 0};
    copyChannel(channelOf(raw, c), from, image.pixels(), image.sampleBytes());
  }
  return raw;
}

Image toImage(RawImage& raw) {
  Image image{raw.size.width, raw.size.height, imageChannels(raw.info), sampleBits(raw.info.sample), {}};
  image.allocate();
  for (int c = 0; c < image.channels; ++c) {
    copyChannel(channelOf(image, c), channelOf(raw, c), image.pixels(), image.sampleBytes());
  }
  return image;
}

}  // namespace tolk
