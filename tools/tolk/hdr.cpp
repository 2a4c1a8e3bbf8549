// Radiance HDR files: RGB in floating point, from bytes with a common exponent. EXPOSURE is not heeded.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "image_io.h"

namespace tolk {

namespace {

constexpr size_t kPixel = 4;  // red, green, blue, exponent

class HdrReader {
 public:
  explicit HdrReader(std::span<const uint8_t> file) : rest_(file) {}

  Image read() {
    readHeader();
    Bytes row(static_cast<size_t>(image_.width) * kPixel);
    for (int32_t y = 0; y < image_.height; ++y) {
      isRunLength() ? readChannels(row) : readPixels(row);
      append(row);
    }
    return std::move(image_);
  }

 private:
  [[noreturn]] static void fail(const std::string& message) { throw std::runtime_error("a bad HDR image: " + message); }

  std::span<const uint8_t> take(size_t count) {
    if (count > rest_.size()) fail("the file ends early");
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

  std::string_view line() {
    const auto end = std::find(rest_.begin(), rest_.end(), '\n');
    const auto bytes = take(static_cast<size_t>(end - rest_.begin()) + 1);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size() - 1};
  }

  void readHeader() {
    for (std::string_view words = line(); !words.empty(); words = line()) {
      if (words.starts_with("FORMAT=") && words != "FORMAT=32-bit_rle_rgbe") {
        fail("only FORMAT=32-bit_rle_rgbe is read");
      }
    }
    std::string_view words = line();
    image_.height = number(words, "-Y ");
    image_.width = number(words, " +X ");
    image_.channels = 3;
    image_.bits = 32;
    if (!words.empty()) fail("a bad size");
  }

  static int32_t number(std::string_view& words, std::string_view title) {
    if (!words.starts_with(title)) fail("only sizes of the form -Y HEIGHT +X WIDTH are read");
    words.remove_prefix(title.size());
    int32_t value = 0;
    const auto got = std::from_chars(words.data(), words.data() + words.size(), value);
    if (got.ec != std::errc() || value < 1) fail("a bad size");
    words.remove_prefix(static_cast<size_t>(got.ptr - words.data()));
    return value;
  }

  // Such a row begins as no pixel does: the largest of its three numbers has the high bit.
  bool isRunLength() const {
    return image_.width >= 8 && image_.width < 32768 && rest_.size() >= 4 && rest_[0] == 2 && rest_[1] == 2 &&
           rest_[2] < 128;
  }

  // Channel by channel; a count above 128 is of equal bytes.
  void readChannels(Bytes& row) {
    const auto start = take(4);
    if ((start[2] << 8 | start[3]) != image_.width) fail("a row of another width");
    for (size_t channel = 0; channel < kPixel; ++channel) {
      for (size_t at = channel; at < row.size();) {
        const size_t code = take(1)[0], count = code > 128 ? code - 128 : code;
        if (count == 0 || at + (count - 1) * kPixel >= row.size()) fail("a bad run of bytes");
        const auto bytes = take(code > 128 ? 1 : count);
        for (size_t i = 0; i < count; ++i, at += kPixel) row[at] = bytes[code > 128 ? 0 : i];
      }
    }
  }

  // The older form: 1, 1, 1 repeats the pixel before, and one after another such counts are digits of 8 bits.
  void readPixels(Bytes& row) {
    int shift = 0;
    for (size_t at = 0; at < row.size();) {
      const auto pixel = take(kPixel);
      const bool repeats = pixel[0] == 1 && pixel[1] == 1 && pixel[2] == 1;
      const size_t count = repeats ? size_t{pixel[3]} << shift : 1;
      if ((repeats && at == 0) || shift > 16 || count > (row.size() - at) / kPixel) fail("a bad run of pixels");
      for (size_t i = 0; i < count; ++i, at += kPixel) {
        std::copy_n(repeats ? &row[at - kPixel] : pixel.data(), kPixel, &row[at]);
      }
      shift = repeats ? shift + 8 : 0;
    }
  }

  void append(const Bytes& row) {
    for (size_t at = 0; at < row.size(); at += kPixel) {
      for (size_t c = 0; c < 3; ++c) {
        const int exponent = row[at + 3];
        const float sample = exponent == 0 ? 0 : std::ldexp(static_cast<float>(row[at + c]), exponent - 136);
        uint8_t bytes[sizeof sample];
        std::memcpy(bytes, &sample, sizeof sample);
        image_.samples.insert(image_.samples.end(), std::begin(bytes), std::end(bytes));
      }
    }
  }

  std::span<const uint8_t> rest_;
  Image image_;
};

}  // namespace

Image decodeHdr(std::span<const uint8_t> file) { return HdrReader(file).read(); }

}  // namespace tolk
