// TIFF files in memory, sample for sample: gray and RGB, in strips.
#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "image_io.h"
#include "raw_files.h"

namespace tolk {

namespace {

constexpr size_t kClassicLimit = 0xF0000000;  // a larger file needs 64-bit offsets

struct Memory {
  Bytes bytes;
  uint64_t at = 0;
  char message[200] = {};

  static Memory& of(thandle_t handle) { return *static_cast<Memory*>(handle); }
  static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
    Memory& file = of(handle);
    const uint64_t start = std::min<uint64_t>(file.at, file.bytes.size());
    const auto taken = std::min(file.bytes.size() - start, static_cast<uint64_t>(count));
    std::copy_n(file.bytes.begin() + static_cast<ptrdiff_t>(start), taken, static_cast<uint8_t*>(to));
    file.at += taken;
    return static_cast<tmsize_t>(taken);
  }
  static tmsize_t write(thandle_t handle, void* from, tmsize_t count) {
    Memory& file = of(handle);
    const uint64_t end = file.at + static_cast<uint64_t>(count);
    if (end > file.bytes.size()) file.bytes.resize(end);
    std::copy_n(static_cast<uint8_t*>(from), count, file.bytes.begin() + static_cast<ptrdiff_t>(file.at));
    file.at = end;
    return count;
  }
  static toff_t seek(thandle_t handle, toff_t to, int from) {
    Memory& file = of(handle);
    return file.at = to + (from == SEEK_CUR ? file.at : from == SEEK_END ? file.bytes.size() : 0);
  }
  static int close(thandle_t) { return 0; }
  static toff_t size(thandle_t handle) { return of(handle).bytes.size(); }
  static void report(thandle_t handle, const char*, const char* format, va_list arguments) {
    if (handle) std::vsnprintf(of(handle).message, sizeof of(handle).message, format, arguments);
  }
};

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

Tiff open(Memory& memory, const char* mode) {
  TIFFSetErrorHandler(nullptr);
  TIFFSetWarningHandler(nullptr);
  TIFFSetErrorHandlerExt(Memory::report);
  return Tiff(TIFFClientOpen("", mode, &memory, Memory::read, Memory::write, Memory::seek, Memory::close, Memory::size,
                             nullptr, nullptr),
              TIFFClose);
}

template <class T>
T field(const Tiff& tiff, uint32_t tag) {
  T value = 0;
  TIFFGetFieldDefaulted(tiff.get(), tag, &value);
  return value;
}

Image header(const Tiff& tiff) {
  const auto width = field<uint32_t>(tiff, TIFFTAG_IMAGEWIDTH), height = field<uint32_t>(tiff, TIFFTAG_IMAGELENGTH);
  const auto channels = field<uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL);
  const auto bits = field<uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE);
  const auto photometric = field<uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
  const bool real = field<uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_IEEEFP;
  const bool whole = field<uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_UINT;
  const bool contiguous = field<uint16_t>(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG || channels == 1;
  const bool known = channels > 2 ? channels <= 4 && photometric == PHOTOMETRIC_RGB
                                  : channels > 0 && photometric == PHOTOMETRIC_MINISBLACK;
  const bool depth = (whole && (bits == 8 || bits == 16)) || (real && (bits == 32 || bits == 64));
  if (!known || !depth || !contiguous || TIFFIsTiled(tiff.get())) {
    throw std::runtime_error(
        "of TIFF only gray and RGB are read, with or without alpha, of 8 or 16 bits without sign or "
        "32 or 64 bits in floating point, pixel by pixel and in strips");
  }
  constexpr uint32_t kMost = std::numeric_limits<int32_t>::max();
  if (width > kMost || height > kMost || int64_t{width} * height > kMaxPixels || width == 0 || height == 0) {
    throw std::runtime_error("the TIFF image has no possible size");
  }
  return {static_cast<int32_t>(width), static_cast<int32_t>(height), channels, bits, {}};
}

}  // namespace

Image decodeTiff(std::span<const uint8_t> file) {
  Memory memory{{file.begin(), file.end()}};
  const Tiff tiff = open(memory, "r");
  if (!tiff) throw std::runtime_error(std::string("a bad TIFF image: ") + memory.message);
  Image image = header(tiff);
  image.allocate();
  for (int32_t y = 0; y < image.height; ++y) {
    uint8_t* row = image.samples.data() + static_cast<size_t>(y) * image.rowBytes();
    if (TIFFReadScanline(tiff.get(), row, static_cast<uint32_t>(y)) != 1) {
      throw std::runtime_error(std::string("a bad TIFF image: ") + memory.message);
    }
  }
  return image;
}

Bytes encodeTiff(const Image& image) {
  Memory memory;
  Tiff tiff = open(memory, image.samples.size() > kClassicLimit ? "w8" : "w");
  auto set = [&](uint32_t tag, auto... values) { return TIFFSetField(tiff.get(), tag, values...) == 1; };
  bool done = tiff && set(TIFFTAG_IMAGEWIDTH, image.width) && set(TIFFTAG_IMAGELENGTH, image.height) &&
              set(TIFFTAG_SAMPLESPERPIXEL, image.channels) && set(TIFFTAG_BITSPERSAMPLE, image.bits) &&
              set(TIFFTAG_SAMPLEFORMAT, image.bits > 16 ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT) &&
              set(TIFFTAG_PHOTOMETRIC, image.colours() == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK) &&
              set(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
              set(TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff.get(), 0));
  const uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
  if (image.hasAlpha()) done = done && set(TIFFTAG_EXTRASAMPLES, 1, &alpha);
  for (int32_t y = 0; done && y < image.height; ++y) {
    auto* row = const_cast<uint8_t*>(image.samples.data()) + static_cast<size_t>(y) * image.rowBytes();
    done = TIFFWriteScanline(tiff.get(), row, static_cast<uint32_t>(y)) == 1;
  }
  if (!done || TIFFFlush(tiff.get()) != 1) throw std::runtime_error(memory.message);
  tiff.reset();
  return std::move(memory.bytes);
}

}  // namespace tolk
