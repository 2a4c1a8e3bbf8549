// Sizes in words, and raw bytes from files.
#pragma once

#include <string>

#include "packing.h"

namespace tolk {

inline constexpr int64_t kMaxPixels = int64_t{1} << 36;  // keeps every byte count far inside 64 bits

std::string text(TolkSize size);  // "640x480"
TolkSize parseSize(const std::string& words);
// Fails unless `words`, if any, are the size of the picture in the file.
void requireSize(const std::string& path, TolkSize size, const std::string& words);

int32_t addColumns(int32_t width, int32_t more);  // fails beyond 32 bits

// The planes of a side, one after another, and nothing else.
RawImage readRaw(const std::string& path, const SideInfo& side, TolkSize size);

}  // namespace tolk
