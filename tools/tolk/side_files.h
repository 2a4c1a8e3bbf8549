// The two sides of one function's call in files: image files, video files, raw bytes.
#pragma once

#include <string>

#include "raw_files.h"

namespace tolk {

RawImage readSide(const std::string& path, const Function& function, const std::string& size);
void requireTarget(const std::string& path, const Function& function);  // fails where writeSide would
void writeSide(const std::string& path, const Function& function, RawImage& dst);

}  // namespace tolk
