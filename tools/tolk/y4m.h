// One frame of planar YCbCr as a Y4M video file.
#pragma once

#include <string>

#include "packing.h"

namespace tolk {

enum class SampleRange { Unknown, Studio, Full };

bool isY4mFile(const std::string& path);  // by its extension
bool servesY4m(const SideInfo& info);     // planes Y, Cb, Cr of 8 bits in 4:2:0, 4:2:2, 4:1:1 or 4:4:4

struct Y4mFrame {
  RawImage image;
  SampleRange range;
};
Y4mFrame readY4m(const std::string& path);  // the first frame
void writeY4m(const std::string& path, const RawImage& image, SampleRange range);

}  // namespace tolk
