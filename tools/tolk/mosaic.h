// Bayer mosaics, and the files that they come from.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "image_io.h"
#include "tolkcolor.h"

namespace tolk {

// A name is the colours of the mosaic's first two sites, and those below them.
inline const std::map<std::string, uint32_t> kGrids = {
    {"bggr", tolkGridBGGR}, {"rggb", tolkGridRGGB}, {"gbrg", tolkGridGBRG}, {"grbg", tolkGridGRBG}};

struct Mosaic {
  Image sites;       // gray of 8 or 16 bits at full scale
  std::string grid;  // empty where the file does not tell
};

// An image file, raw bytes where there is a size, or else a camera's file.
Mosaic readMosaic(const std::string& path, const std::string& size, std::optional<int> bits);
Mosaic readCameraFile(const std::string& path);

}  // namespace tolk
