// How far the peers' results are from the library's on a photograph:
// tolk_differences PHOTO.ppm [PATTERN], one line a function and peer, with the largest and the mean difference of each
// channel.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "peers.h"

namespace {

struct Image {
  tolk::SideInfo info;
  std::vector<tolk::PlaneShape> shapes;
  std::vector<std::vector<uint8_t>> planes;

  Image(const tolk::SideInfo& side, TolkSize roi) : info(side), shapes(planeShapes(side, roi)) {
    for (const auto& shape : shapes) planes.emplace_back(static_cast<size_t>(shape.rowBytes * shape.rows) + 64);
  }
  tolk::Side side() {
    tolk::Side side;
    for (size_t i = 0; i < planes.size(); ++i) {
      side.plane[i] = planes[i].data();
      side.step[i] = shapes[i].rowBytes;
    }
    return side;
  }
};

struct Photo {
  TolkSize roi{};
  std::vector<uint8_t> rgb;
};

Photo readPpm(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::string magic;
  int largest = 0;
  Photo photo;
  file >> magic >> photo.roi.width >> photo.roi.height >> largest;
  file.get();
  if (magic != "P6" || largest != 255) throw std::runtime_error(std::string(path) + ": no PPM file of 8 bits");
  photo.rgb.resize(static_cast<size_t>(photo.roi.width) * static_cast<size_t>(photo.roi.height) * 3);
  file.read(reinterpret_cast<char*>(photo.rgb.data()), static_cast<std::streamsize>(photo.rgb.size()));
  return photo;
}

void store(std::string_view sample, uint8_t* at, uint8_t value) {
  const float unit = static_cast<float>(value) / 255;
  const auto word = static_cast<uint16_t>(value * 257);
  const auto biased = static_cast<int16_t>(word - 32768);
  if (sample == "8u") *at = value;
  if (sample == "16u") std::memcpy(at, &word, sizeof word);
  if (sample == "16s") std::memcpy(at, &biased, sizeof biased);
  if (sample == "32f") std::memcpy(at, &unit, sizeof unit);
}

double load(std::string_view sample, const uint8_t* at) {
  auto as = [at](auto value) {
    std::memcpy(&value, at, sizeof value);
    return static_cast<double>(value);
  };
  return sample == "8u" ? *at : sample == "16u" ? as(uint16_t{}) : sample == "16s" ? as(int16_t{}) : as(0.0f);
}

// The photograph in the layout of a side: packed anew, or by the library's own functions, two at most.
std::unique_ptr<Image> make(const tolk::SideInfo& info, const Photo& photo, int steps = 2) {
  auto image = std::make_unique<Image>(info, photo.roi);
  if (info.space == "RGB" || info.space == "BGR" || info.space == "Color") {
    const size_t bytes = static_cast<size_t>(tolk::sampleBits(info.sample)) / 8, pixels = photo.rgb.size() / 3;
    const bool planar = image->planes.size() > 1;
    const auto channels = static_cast<size_t>(image->shapes[0].channels);
    for (size_t i = 0; i < 3 * pixels; ++i) {
      const size_t pixel = i / 3, channel = info.space == "BGR" ? 2 - i % 3 : i % 3;
      store(info.sample, &image->planes[planar ? channel : 0][bytes * (planar ? pixel : channels * pixel + channel)],
            photo.rgb[i]);
    }
    return image;
  }
  for (const tolk::Function& f : tolk::functions()) {
    if (steps == 0 || f.dst.space != info.space || f.dst.layout != info.layout || f.dst.sample != info.sample ||
        f.src.space == f.dst.space || !f.variant.empty() || f.src.tight || f.has("coeffs[3]"))
      continue;
    auto source = make(f.src, photo, steps - 1);
    if (!source) continue;
    f.invoke(f.linked(), {.src = source->side(), .dst = image->side(), .roi = photo.roi, .alpha = 255});
    return image;
  }
  return nullptr;
}

struct Difference {
  double largest = 0, sum = 0;
  int64_t count = 0;
};

// By plane, and in a plane by the place of a sample among those that belong together, alpha left out.
std::map<std::pair<size_t, int>, Difference> compare(const Image& ours, const Image& theirs) {
  std::map<std::pair<size_t, int>, Difference> result;
  const int bytes = tolk::sampleBits(ours.info.sample) / 8;
  for (size_t plane = 0; plane < ours.planes.size(); ++plane) {
    const int channels = ours.info.layout == "C2" ? 4 : ours.shapes[plane].channels;
    const int64_t samples = ours.shapes[plane].rowBytes * ours.shapes[plane].rows / bytes;
    for (int64_t i = 0; i < samples; ++i) {
      const int channel = static_cast<int>(i % channels);
      if (channel == 3 && ours.info.layout != "C2") continue;
      const auto at = static_cast<size_t>(i * bytes);
      const double d =
          std::abs(load(ours.info.sample, &ours.planes[plane][at]) - load(ours.info.sample, &theirs.planes[plane][at]));
      Difference& difference = result[{plane, channel}];
      difference.largest = std::max(difference.largest, d);
      difference.sum += d;
      ++difference.count;
    }
  }
  return result;
}

void report(const tolk::Function& f, const Peer& peer, const Photo& photo, Conversion convert) {
  const auto source = make(f.src, photo);
  if (!source) return;
  Image ours(f.dst, photo.roi), theirs(f.dst, photo.roi);
  const tolk::Call call{.src = source->side(), .dst = ours.side(), .roi = photo.roi, .alpha = 255};
  f.invoke(f.linked(), call);
  tolk::Call other = call;
  other.dst = theirs.side();
  convert(other);
  std::string largest, mean;
  for (const auto& [place, d] : compare(ours, theirs)) {
    char text[32];
    std::snprintf(text, sizeof text, " %.4g", d.largest);
    largest += text;
    std::snprintf(text, sizeof text, " %.2g", d.sum / static_cast<double>(d.count));
    mean += text;
  }
  std::printf("%-10s %-38s largest%s mean%s\n", peer.name.c_str(), std::string(f.name).c_str(), largest.c_str(),
              mean.c_str());
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 2) throw std::runtime_error("usage: tolk_differences PHOTO.ppm [PATTERN]");
  const Photo photo = readPpm(argv[1]);
  for (const Peer& peer : peers()) {
    if (peer.name == "libyuv ssse3") continue;  // the same results
    std::printf("%s %s\n", peer.name.c_str(), peer.version.c_str());
    for (const tolk::Function& f : tolk::functions()) {
      if (argc > 2 && f.name.find(argv[2]) == std::string_view::npos) continue;
      if (const Conversion convert = findConversion(peer, f, photo.roi)) report(f, peer, photo, convert);
    }
  }
} catch (const std::exception& e) {
  std::fprintf(stderr, "%s\n", e.what());
  return 1;
}
