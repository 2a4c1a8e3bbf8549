// Binary PGM and PPM.
#include <algorithm>
#include <bit>
#include <cctype>
#include <stdexcept>

#include "image_io.h"

namespace tolk {

namespace {

// PNM holds 16-bit samples most significant byte first.
void swapBytes(Image& image) {
  if (image.bits != 16 || std::endian::native == std::endian::big) return;
  for (size_t i = 0; i + 1 < image.samples.size(); i += 2) std::swap(image.samples[i], image.samples[i + 1]);
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

  std::span<const uint8_t> samples() {
    if (!std::isspace(peek())) throw std::runtime_error("the PNM header does not end with a space");
    return file_.subspan(at_ + 1);
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
  Image image;
  image.channels = file[1] == '6' ? 3 : 1;
  image.width = header.number();
  image.height = header.number();
  const int32_t maximum = header.number();
  if (maximum != 255 && maximum != 65535) {
    throw std::runtime_error("the largest sample value is " + std::to_string(maximum) +
                             "; only 255 and 65535 are read");
  }
  image.bits = maximum == 255 ? 8 : 16;
  if (image.width == 0 || image.height == 0) throw std::runtime_error("the image has no pixels");
  const auto samples = header.samples();
  const size_t expected = image.rowBytes() * static_cast<size_t>(image.height);
  if (samples.size() < expected) {
    throw std::runtime_error("the file ends early: expected " + std::to_string(expected) + " bytes of samples, got " +
                             std::to_string(samples.size()));
  }
  image.samples.assign(samples.begin(), samples.begin() + static_cast<ptrdiff_t>(expected));
  swapBytes(image);
  return image;
}

Bytes encodePnm(const Image& image) {
  const std::string header = std::string(image.channels == 3 ? "P6" : "P5") + "\n" + std::to_string(image.width) + " " +
                             std::to_string(image.height) + "\n" + (image.bits == 8 ? "255" : "65535") + "\n";
  Image swapped = image;
  swapBytes(swapped);
  Bytes file(header.begin(), header.end());
  file.insert(file.end(), swapped.samples.begin(), swapped.samples.end());
  return file;
}

}  // namespace tolk
