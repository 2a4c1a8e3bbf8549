// Binary PBM, PGM and PPM, and PFM for floating point.
#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>
#include <stdexcept>

#include "image_io.h"
#include "samples.h"

namespace tolk {

namespace {

constexpr bool kLittle = std::endian::native == std::endian::little;

void swapBytes(Image& image) {
  const auto sample = static_cast<ptrdiff_t>(image.sampleBytes());
  for (auto at = image.samples.begin(); at != image.samples.end(); at += sample) std::reverse(at, at + sample);
}

// PFM stands on its head.
void swapRows(Image& image) {
  const auto row = static_cast<ptrdiff_t>(image.rowBytes());
  auto top = image.samples.begin(), bottom = image.samples.end() - row;
  for (; top < bottom; top += row, bottom -= row) std::swap_ranges(top, top + row, bottom);
}

size_t packedRow(const Image& image) { return (static_cast<size_t>(image.width) + 7) / 8; }

// Of bits 1 is black in the file.
Bytes packedInk(const Image& image) {
  const size_t width = static_cast<size_t>(image.width);
  Bytes packed(packedRow(image) * static_cast<size_t>(image.height));
  for (size_t i = 0; i < image.samples.size(); ++i) {
    uint8_t& byte = packed[i / width * packedRow(image) + i % width / 8];
    byte = static_cast<uint8_t>(byte | (image.samples[i] ^ 1) << (7 - i % width % 8));
  }
  return packed;
}

class Header {
 public:
  explicit Header(std::span<const uint8_t> file) : file_(file) {}

  int32_t number() {
    skipSpace();
    int32_t value = 0;
    int digits = 0;
    for (; std::isdigit(peek()) && digits < 9; ++digits) value = value * 10 + (file_[at_++] - '0');
    if (digits == 0 || std::isdigit(peek())) throw std::runtime_error("a bad number in the PNM header");
    return value;
  }

  // Of PFM's scale only the sign is heeded: below zero the least significant byte comes first.
  bool scaleIsNegative() {
    skipSpace();
    const size_t start = at_;
    while (at_ < file_.size() && !std::isspace(peek())) ++at_;
    double scale = 0;
    const auto* words = reinterpret_cast<const char*>(file_.data());
    const auto got = std::from_chars(words + start + (start < at_ && words[start] == '+'), words + at_, scale);
    if (got.ec != std::errc() || got.ptr != words + at_ || scale == 0) {
      throw std::runtime_error("a bad scale in the PFM header");
    }
    return scale < 0;
  }

  // The bits of the largest sample value.
  int depth() {
    const int32_t maximum = number();
    for (int bits : {8, 10, 12, 14, 16}) {
      if (maximum == (1 << bits) - 1) return bits;
    }
    throw std::runtime_error("the largest sample value is " + std::to_string(maximum) +
                             "; only 255, 1023, 4095, 16383 and 65535 are read");
  }

  std::span<const uint8_t> samples(size_t expected) {
    if (!std::isspace(peek())) throw std::runtime_error("the PNM header does not end with a space");
    const auto samples = file_.subspan(at_ + 1);
    if (samples.size() < expected) {
      throw std::runtime_error("the file ends early: expected " + std::to_string(expected) + " bytes of samples, got " +
                               std::to_string(samples.size()));
    }
    return samples.first(expected);
  }

 private:
  int peek() const { return at_ < file_.size() ? file_[at_] : 0; }
  void skipSpace() {
    while (std::isspace(peek()) || peek() == '#') {
      if (peek() == '#') {
        while (at_ < file_.size() && peek() != '\n') ++at_;
      } else {
        ++at_;
      }
    }
  }

  std::span<const uint8_t> file_;
  size_t at_ = 2;
};

}  // namespace

Image decodePnm(std::span<const uint8_t> file) {
  Header header(file);
  const bool real = file[1] == 'F' || file[1] == 'f', bits = file[1] == '4';
  Image image;
  image.channels = file[1] == '6' || file[1] == 'F' ? 3 : 1;
  image.width = header.number();
  image.height = header.number();
  image.bits = real ? 32 : bits ? 1 : header.depth();
  const bool little = real && header.scaleIsNegative();
  if (image.width == 0 || image.height == 0) throw std::runtime_error("the image has no pixels");
  if (bits) {
    image.samples = unpackedBits(header.samples(packedRow(image) * static_cast<size_t>(image.height)), image.width);
    for (uint8_t& sample : image.samples) sample ^= 1;  // 1 is black
    return image;
  }
  const auto samples = header.samples(image.rowBytes() * static_cast<size_t>(image.height));
  image.samples.assign(samples.begin(), samples.end());
  if (little != kLittle) swapBytes(image);
  if (real) swapRows(image);
  return image;
}

Bytes encodePnm(const Image& image) {
  const bool real = image.bits == 32, colour = image.channels == 3;
  const std::string_view magic = image.bits == 1 ? "P4" : real ? (colour ? "PF" : "Pf") : colour ? "P6" : "P5";
  std::string header =
      std::string(magic) + "\n" + std::to_string(image.width) + " " + std::to_string(image.height) + "\n";
  if (real) header += kLittle ? "-1.0\n" : "1.0\n";
  if (!real && image.bits > 1) header += std::to_string((1 << image.bits) - 1) + "\n";
  Image stored = image;
  if (image.bits == 1) stored.samples = packedInk(image);
  if (real) swapRows(stored);
  if (!real && kLittle) swapBytes(stored);
  Bytes file(header.begin(), header.end());
  file.insert(file.end(), stored.samples.begin(), stored.samples.end());
  return file;
}

}  // namespace tolk
