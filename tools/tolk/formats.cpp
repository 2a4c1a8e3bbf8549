// The pixel formats that convert knows by name.
#include "formats.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace tolk {

namespace {

// YUV of full scale has other chroma weights than full-range YCbCr, so its names stand apart.
constexpr Format kFormats[] = {
    {"rgb24", "RGB", {"RGB", "C3", "8u"}},
    {"bgr24", "RGB", {"BGR", "C3", "8u"}},
    {"rgba", "RGB", {"RGB", "C4", "8u"}},
    {"bgra", "RGB", {"BGR", "C4", "8u"}},
    {"rgbp", "RGB", {"RGB", "P3", "8u"}},
    {"rgb48", "RGB", {"RGB", "C3", "16u"}},
    {"rgba64", "RGB", {"RGB", "C4", "16u"}},
    {"rgbf", "RGB", {"RGB", "C3", "32f"}},
    {"rgbaf", "RGB", {"RGB", "C4", "32f"}},
    {"rgbd", "RGB", {"RGB", "C3", "64f"}},
    {"rgbad", "RGB", {"RGB", "C4", "64f"}},
    {"gray", "Gray", {"Gray", "C1", "8u"}},
    {"gray16", "Gray", {"Gray", "C1", "16u"}},
    {"grayf", "Gray", {"Gray", "C1", "32f"}},
    {"grayd", "Gray", {"Gray", "C1", "64f"}},
    {"xyz", "XYZ", {"XYZ", "C3", "8u"}},
    {"xyz16", "XYZ", {"XYZ", "C3", "16u"}},
    {"xyzf", "XYZ", {"XYZ", "C3", "32f"}},
    {"lab", "Lab", {"Lab", "C3", "8u"}},
    {"lab16", "Lab", {"Lab", "C3", "16u"}},
    {"labf", "Lab", {"Lab", "C3", "32f"}},
    {"labd", "Lab", {"Lab", "C3", "64f"}},
    {"luv", "LUV", {"LUV", "C3", "8u"}},
    {"luv16", "LUV", {"LUV", "C3", "16u"}},
    {"luvf", "LUV", {"LUV", "C3", "32f"}},
    {"hls", "HLS", {"HLS", "C3", "8u"}},
    {"hls16", "HLS", {"HLS", "C3", "16u"}},
    {"hlsf", "HLS", {"HLS", "C3", "32f"}},
    {"hsv", "HSV", {"HSV", "C3", "8u"}},
    {"hsv16", "HSV", {"HSV", "C3", "16u"}},
    {"ycc", "PhotoYCC", {"YCC", "C3", "8u"}},
    {"ycc16", "PhotoYCC", {"YCC", "C3", "16u"}},
    {"yccf", "PhotoYCC", {"YCC", "C3", "32f"}},
    {"ycocg", "YCoCg", {"YCoCg", "P3", "8u"}},
    {"ycbcr444", "4:4:4", {"YCbCr", "C3", "8u"}},
    {"ycbcr444p", "4:4:4", {"YCbCr", "P3", "8u"}},
    {"yuyv", "4:2:2", {"YCbCr422", "C2", "8u"}},
    {"yvyu", "4:2:2", {"YCrCb422", "C2", "8u"}},
    {"uyvy", "4:2:2", {"CbYCr422", "C2", "8u"}},
    {"i422", "4:2:2", {"YCbCr422", "P3", "8u"}},
    {"yv16", "4:2:2", {"YCrCb422", "P3", "8u"}},
    {"i420", "4:2:0", {"YCbCr420", "P3", "8u"}},
    {"yv12", "4:2:0", {"YCrCb420", "P3", "8u"}},
    {"nv12", "4:2:0", {"YCbCr420", "P2", "8u"}},
    {"nv21", "4:2:0", {"YCrCb420", "P2", "8u"}},
    {"i411", "4:1:1", {"YCbCr411", "P3", "8u"}},
    {"nv11", "4:1:1", {"YCbCr411", "P2", "8u"}},
    {"i1620", "1620", {"YCbCr1620", "P3", "8u"}},
    {"yuv444-fullscale", "YUV", {"YUV", "C3", "8u"}},
    {"yuv444p-fullscale", "YUV", {"YUV", "P3", "8u"}},
    {"yuv422-fullscale", "YUV", {"YUV422", "C2", "8u"}},
    {"yuv422p-fullscale", "YUV", {"YUV422", "P3", "8u"}},
    {"yuv420p-fullscale", "YUV", {"YUV420", "P3", "8u"}},
    {"v210", "10 bits", {"YUV422v210", "C3", "32u"}},
    {"gray10", "10 bits", {"Gray10", "C1", "16u"}},
    {"rgb565", "565", {"RGB565", "C1", "16u"}},
    {"bgr565", "565", {"BGR565", "C1", "16u"}},
};

template <class Condition>
const Format* findIf(Condition condition) {
  auto found = std::find_if(std::begin(kFormats), std::end(kFormats), condition);
  return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace

std::span<const Format> formats() { return kFormats; }

std::string formatTable() {
  std::string table;
  std::string_view kind;
  for (const Format& format : kFormats) {
    if (format.kind != kind) {
      kind = format.kind;
      table += "\n  " + std::string(kind) + std::string(9 - kind.size(), ' ');
    }
    table += " " + std::string(format.name);
  }
  return table;
}

const Format& requireFormat(std::string_view name) {
  if (const Format* format = findIf([&](const Format& f) { return f.name == name; })) return *format;
  throw std::runtime_error("there is no format " + std::string(name) + "; the formats are" + formatTable());
}

const Format* findFormat(const SideInfo& side) {
  return findIf([&](const Format& f) { return label(f.side) == label(side); });
}

const Format* formatOfExtension(const std::string& path) {
  const std::string extension = extensionOf(path);
  return findIf([&](const Format& f) { return extension == "." + std::string(f.name); });
}

int32_t roundUp(int32_t count, int whole) {
  const int64_t up = (int64_t{count} + whole - 1) / whole * whole;
  if (up > std::numeric_limits<int32_t>::max()) throw std::runtime_error("too many columns or rows");
  return static_cast<int32_t>(up);
}

TolkSize fileSize(const SideInfo& side, TolkSize size) {
  const int whole = side.layout == "C2" ? 2 : side.space.ends_with("v210") ? 48 : 1;
  return {roundUp(size.width, whole), size.height};
}

}  // namespace tolk
