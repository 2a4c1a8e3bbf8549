// Files of cameras through LibRaw: the sensor's samples between black and white, and nothing done to their colours.
#include <libraw.h>

#include <cctype>
#include <memory>
#include <stdexcept>

#include "mosaic.h"
#include "samples.h"

namespace tolk {

namespace {

// Empty for sensors of another pattern than two by two sites of red, green and blue.
std::string gridOf(LibRaw& camera) {
  const libraw_iparams_t& about = camera.imgdata.idata;
  constexpr unsigned kLeastPattern = 1000;  // smaller numbers stand for other kinds of sensors
  if (about.filters < kLeastPattern || camera.is_fuji_rotated()) return "";
  std::string grid;
  for (int site = 0; site < 16; ++site) {  // patterns are stored as eight rows of two
    const auto colour = static_cast<unsigned char>(about.cdesc[camera.COLOR(site / 2, site % 2)]);
    const char letter = static_cast<char>(std::tolower(colour));
    if (site < 4) grid += letter;
    if (letter != grid[static_cast<size_t>(site % 4)]) return "";
  }
  return kGrids.contains(grid) ? grid : "";
}

// Of the whole sensor, of a colour, and of a site in a repeated block.
unsigned blackOf(LibRaw& camera, int row, int column) {
  const libraw_colordata_t& levels = camera.imgdata.color;
  const unsigned rows = levels.cblack[4], columns = levels.cblack[5];
  const unsigned black = levels.black + levels.cblack[camera.COLOR(row, column)];
  if (rows == 0 || columns == 0) return black;
  return black +
         levels.cblack[6 + static_cast<unsigned>(row) % rows * columns + static_cast<unsigned>(column) % columns];
}

Image visibleSites(LibRaw& camera) {
  const libraw_image_sizes_t& sizes = camera.imgdata.sizes;
  Image image{sizes.width, sizes.height, 1, 16, {}};
  image.allocate();
  uint8_t* to = image.samples.data();
  const size_t pitch = sizes.raw_pitch / sizeof(uint16_t);
  for (int y = 0; y < sizes.height; ++y) {
    const uint16_t* row =
        camera.imgdata.rawdata.raw_image + static_cast<size_t>(y + sizes.top_margin) * pitch + sizes.left_margin;
    for (int x = 0; x < sizes.width; ++x, to += sizeof(uint16_t)) {
      const double black = blackOf(camera, y, x), range = camera.imgdata.color.maximum - black;
      if (range <= 0) throw std::runtime_error("the white level is not above the black level");
      storeFraction(to, 16, (row[x] - black) / range);
    }
  }
  return image;
}

void requireDone(int code, const std::string& fault, const std::string& advice = "") {
  if (code != LIBRAW_SUCCESS) throw std::runtime_error(fault + ": " + libraw_strerror(code) + advice);
}

Mosaic decode(const std::string& path) {
  const auto camera = std::make_unique<LibRaw>();  // too large for the stack
  bool damaged = false;
  camera->set_dataerror_handler([](void* flag, const char*, auto) { *static_cast<bool*>(flag) = true; }, &damaged);
  requireDone(camera->open_file(path.c_str()), "not read as a camera's file", " (raw bytes need --size)");
  const std::string grid = gridOf(*camera);
  if (grid.empty()) throw std::runtime_error("the sensor has no Bayer pattern, and no other is read");
  requireDone(camera->unpack(), "the samples cannot be read");
  if (damaged) throw std::runtime_error("the file is damaged");
  if (!camera->imgdata.rawdata.raw_image) throw std::runtime_error("the file holds no whole samples of a mosaic");
  return {visibleSites(*camera), grid};
}

}  // namespace

Mosaic readCameraFile(const std::string& path) {
  if (path == kStandardStream) throw std::runtime_error("raw bytes of standard input need --size");
  try {
    return decode(path);
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(path + ": " + fault.what());
  }
}

}  // namespace tolk
