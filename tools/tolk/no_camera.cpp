// Stands in for camera.cpp where LibRaw is not installed.
#include <stdexcept>

#include "mosaic.h"

namespace tolk {

Mosaic readCameraFile(const std::string& path) {
  throw std::runtime_error(path +
                           ": raw bytes need --size, and files of cameras are not read: this tool was built "
                           "without LibRaw");
}

}  // namespace tolk
