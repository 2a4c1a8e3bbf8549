// PNG files, sample for sample: palettes and small depths are expanded, colour profiles are left alone.
#include <png.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

#include "image_io.h"

namespace tolk {

namespace {

// libpng leaves by longjmp: a function that calls setjmp keeps no object of its own.
[[noreturn]] void onError(png_structp png, png_const_charp message) {
  std::strncpy(static_cast<char*>(png_get_error_ptr(png)), message, 99);
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

class PngReader {
 public:
  explicit PngReader(std::span<const uint8_t> file) : rest_(file) {
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, message_, onError, onWarning);
    info_ = png_ ? png_create_info_struct(png_) : nullptr;
    if (!info_) throw std::bad_alloc();
    png_set_read_fn(png_, this, readBytes);
  }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;
  ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }

  Image read() {
    if (!readHeader()) fail();
    image_.allocate();
    if (!readRows()) fail();
    return std::move(image_);
  }

 private:
  [[noreturn]] void fail() { throw std::runtime_error(std::string("a bad PNG image: ") + message_); }

  static void readBytes(png_structp png, png_bytep to, size_t count) {
    auto& rest = static_cast<PngReader*>(png_get_io_ptr(png))->rest_;
    if (count > rest.size()) png_error(png, "the file ends early");
    std::copy_n(rest.begin(), count, to);
    rest = rest.subspan(count);
  }

  bool readHeader() {
    if (setjmp(png_jmpbuf(png_))) return false;
    png_read_info(png_, info_);
    png_set_expand(png_);
    if constexpr (std::endian::native == std::endian::little) png_set_swap(png_);
    passes_ = png_set_interlace_handling(png_);
    png_read_update_info(png_, info_);
    image_.width = static_cast<int32_t>(png_get_image_width(png_, info_));
    image_.height = static_cast<int32_t>(png_get_image_height(png_, info_));
    image_.channels = png_get_channels(png_, info_);
    image_.bits = png_get_bit_depth(png_, info_);
    return true;
  }

  bool readRows() {
    if (setjmp(png_jmpbuf(png_))) return false;
    for (int pass = 0; pass < passes_; ++pass) {
      for (size_t y = 0; y < static_cast<size_t>(image_.height); ++y) {
        png_read_row(png_, image_.samples.data() + y * image_.rowBytes(), nullptr);
      }
    }
    png_read_end(png_, nullptr);
    return true;
  }

  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  std::span<const uint8_t> rest_;
  Image image_;
  int passes_ = 1;
  char message_[100] = {};
};

class PngWriter {
 public:
  explicit PngWriter(const Image& image) : image_(image) {
    png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, message_, onError, onWarning);
    info_ = png_ ? png_create_info_struct(png_) : nullptr;
    if (!info_) throw std::bad_alloc();
    png_set_write_fn(png_, &file_, writeBytes, nullptr);
  }
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;
  ~PngWriter() { png_destroy_write_struct(&png_, &info_); }

  Bytes write() {
    if (!writeRows()) throw std::runtime_error(message_);
    return std::move(file_);
  }

 private:
  static void writeBytes(png_structp png, png_bytep from, size_t count) {
    auto& file = *static_cast<Bytes*>(png_get_io_ptr(png));
    file.insert(file.end(), from, from + count);
  }

  bool writeRows() {
    if (setjmp(png_jmpbuf(png_))) return false;
    constexpr int kColourTypes[] = {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB,
                                    PNG_COLOR_TYPE_RGB_ALPHA};
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(image_.width), static_cast<png_uint_32>(image_.height),
                 image_.bits, kColourTypes[image_.channels - 1], PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png_, info_);
    png_set_packing(png_);
    if constexpr (std::endian::native == std::endian::little) png_set_swap(png_);
    for (size_t y = 0; y < static_cast<size_t>(image_.height); ++y) {
      png_write_row(png_, image_.samples.data() + y * image_.rowBytes());
    }
    png_write_end(png_, nullptr);
    return true;
  }

  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  const Image& image_;
  Bytes file_;
  char message_[100] = {};
};

}  // namespace

Image decodePng(std::span<const uint8_t> file) { return PngReader(file).read(); }
Bytes encodePng(const Image& image) { return PngWriter(image).write(); }

}  // namespace tolk
