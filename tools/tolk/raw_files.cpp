// Sizes in words, and raw bytes from files.
#include "raw_files.h"

#include <charconv>
#include <limits>
#include <stdexcept>

namespace tolk {

std::string text(TolkSize size) { return std::to_string(size.width) + "x" + std::to_string(size.height); }

TolkSize parseSize(const std::string& words) {
  TolkSize size = {};
  const char* end = words.data() + words.size();
  const auto width = std::from_chars(words.data(), end, size.width);
  if (width.ec == std::errc() && width.ptr != end && (*width.ptr == 'x' || *width.ptr == 'X')) {
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    // The function itself judges a size of zero.
    if (height.ec == std::errc() && height.ptr == end && size.width >= 0 && size.height >= 0 &&
        int64_t{size.width} * size.height <= kMaxPixels) {
      return size;
    }
  }
  throw std::runtime_error("--size takes WIDTHxHEIGHT in pixels, such as 640x480, not " + words);
}

void requireSize(const std::string& path, TolkSize size, const std::string& words) {
  if (words.empty() || text(parseSize(words)) == text(size)) return;
  throw std::runtime_error(path + " has " + text(size) + " pixels, not " + words);
}

int32_t addColumns(int32_t width, int32_t more) {
  if (width > std::numeric_limits<int32_t>::max() - more) throw std::runtime_error("too many columns");
  return width + more;
}

RawImage readRaw(const std::string& path, const SideInfo& side, TolkSize size) {
  Bytes bytes = readFile(path);
  const int64_t expected = rawBytes(side, size);
  if (static_cast<int64_t>(bytes.size()) != expected) {
    throw std::runtime_error(path + ": expected " + std::to_string(expected) + " bytes for " + label(side) + " of " +
                             text(size) + " pixels, got " + std::to_string(bytes.size()));
  }
  RawImage raw(side, size);
  raw.bytes.swap(bytes);
  return raw;
}

}  // namespace tolk
