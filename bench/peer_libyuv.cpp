// libyuv, whose names spell words, not bytes: RAW is R, G, B in memory, RGB24 B, G, R, ARGB B, G, R, A, ABGR R, G, B,
// A.
#include <libyuv.h>

#include <memory>
#include <string_view>
#include <variant>

#include "peers.h"

namespace {

using namespace libyuv;
using Packed = int (*)(const uint8_t*, int, uint8_t*, int, int, int);
using ToPlanes2 = int (*)(const uint8_t*, int, uint8_t*, int, uint8_t*, int, int, int);
using ToPlanes3 = int (*)(const uint8_t*, int, uint8_t*, int, uint8_t*, int, uint8_t*, int, int, int);
using FromPlanes2 = int (*)(const uint8_t*, int, const uint8_t*, int, uint8_t*, int, int, int);
using FromPlanes3 = int (*)(const uint8_t*, int, const uint8_t*, int, const uint8_t*, int, uint8_t*, int, int, int);

struct Entry {
  std::string_view from, to;
  std::variant<Packed, ToPlanes2, ToPlanes3, FromPlanes2, FromPlanes3> function;
};
constexpr Entry kEntries[] = {
    {"RGB C3", "YCbCr420 P3", RAWToI420},  {"BGR C3", "YCbCr420 P3", RGB24ToI420},
    {"RGB C4", "YCbCr420 P3", ABGRToI420}, {"BGR C4", "YCbCr420 P3", ARGBToI420},
    {"BGR C4", "YCbCr422 P3", ARGBToI422}, {"BGR C4", "YCbCr P3", ARGBToI444},
    {"BGR C4", "YCbCr420 P2", ARGBToNV12}, {"RGB C4", "YCbCr420 P2", ABGRToNV12},
    {"BGR C4", "YCbCr422 C2", ARGBToYUY2}, {"BGR C4", "CbYCr422 C2", ARGBToUYVY},
    {"YCbCr420 P3", "RGB C3", I420ToRAW},  {"YCbCr420 P3", "BGR C3", I420ToRGB24},
    {"YCbCr420 P3", "RGB C4", I420ToABGR}, {"YCbCr420 P3", "BGR C4", I420ToARGB},
    {"YCbCr420 P2", "RGB C3", NV12ToRAW},  {"YCbCr420 P2", "BGR C3", NV12ToRGB24},
    {"YCbCr420 P2", "RGB C4", NV12ToABGR}, {"YCbCr420 P2", "BGR C4", NV12ToARGB},
    {"YCrCb420 P2", "RGB C3", NV21ToRAW},  {"YCrCb420 P2", "BGR C3", NV21ToRGB24},
    {"YCrCb420 P2", "RGB C4", NV21ToABGR}, {"YCrCb420 P2", "BGR C4", NV21ToARGB},
    {"YCbCr422 P3", "RGB C3", I422ToRAW},  {"YCbCr422 P3", "BGR C3", I422ToRGB24},
    {"YCbCr422 P3", "RGB C4", I422ToABGR}, {"YCbCr422 P3", "BGR C4", I422ToARGB},
    {"YCbCr422 C2", "BGR C4", YUY2ToARGB}, {"CbYCr422 C2", "BGR C4", UYVYToARGB},
    {"YCbCr P3", "RGB C3", I444ToRAW},     {"YCbCr P3", "BGR C3", I444ToRGB24},
    {"YCbCr P3", "RGB C4", I444ToABGR},    {"YCbCr P3", "BGR C4", I444ToARGB},
    {"YUV420 P3", "RGB C3", J420ToRAW},    {"YUV420 P3", "BGR C3", J420ToRGB24},
    {"YUV420 P3", "RGB C4", J420ToABGR},   {"YUV420 P3", "BGR C4", J420ToARGB},
    {"YUV422 P3", "RGB C4", J422ToABGR},   {"YUV422 P3", "BGR C4", J422ToARGB},
    {"YUV P3", "RGB C4", J444ToABGR},      {"YUV P3", "BGR C4", J444ToARGB},
    {"RGB C4", "YUV420 P3", ABGRToJ420},   {"BGR C4", "YUV420 P3", ARGBToJ420},
    {"RGB C3", "YUV420 P3", RAWToJ420},    {"BGR C3", "YUV420 P3", RGB24ToJ420},
    {"RGB C4", "YUV422 P3", ABGRToJ422},   {"BGR C4", "YUV422 P3", ARGBToJ422},
    {"RGB C3", "Gray C1", RAWToJ400},      {"RGB C4", "Gray C1", ABGRToJ400},
    {"Gray C1", "RGB C4", J400ToARGB},     {"YCbCr422 C2", "Gray C1", YUY2ToY},
};

uint8_t* at(const tolk::Side& side, size_t plane) { return static_cast<uint8_t*>(side.plane[plane]); }
int step(const tolk::Side& side, size_t plane) { return static_cast<int>(side.step[plane]); }

struct Invoke {
  const tolk::Side &src, &dst;
  const int w, h;

  void operator()(Packed f) const { f(at(src, 0), step(src, 0), at(dst, 0), step(dst, 0), w, h); }
  void operator()(ToPlanes2 f) const {
    f(at(src, 0), step(src, 0), at(dst, 0), step(dst, 0), at(dst, 1), step(dst, 1), w, h);
  }
  void operator()(ToPlanes3 f) const {
    f(at(src, 0), step(src, 0), at(dst, 0), step(dst, 0), at(dst, 1), step(dst, 1), at(dst, 2), step(dst, 2), w, h);
  }
  void operator()(FromPlanes2 f) const {
    f(at(src, 0), step(src, 0), at(src, 1), step(src, 1), at(dst, 0), step(dst, 0), w, h);
  }
  void operator()(FromPlanes3 f) const {
    f(at(src, 0), step(src, 0), at(src, 1), step(src, 1), at(src, 2), step(src, 2), at(dst, 0), step(dst, 0), w, h);
  }
};

// Three bytes a pixel reach two planes in two steps only, by three planes.
Conversion mergeChroma(ToPlanes3 toPlanes, TolkSize roi) {
  const int width = (roi.width + 1) / 2, height = (roi.height + 1) / 2;
  auto chroma = std::make_shared<std::vector<uint8_t>>(2 * width * height);
  return [=](const tolk::Call& call) {
    uint8_t *cb = chroma->data(), *cr = cb + width * height;
    const tolk::Side& dst = call.dst;
    toPlanes(at(call.src, 0), step(call.src, 0), at(dst, 0), step(dst, 0), cb, width, cr, width, roi.width, roi.height);
    MergeUVPlane(cb, width, cr, width, at(dst, 1), step(dst, 1), width, height);
  };
}

// It asks the processor once for what it has; the mask lasts until the next one.
template <bool ssse3>
Conversion find(const std::string& from, const std::string& to, TolkSize roi) {
  MaskCpuFlags(ssse3 ? kCpuInitialized | kCpuHasX86 | kCpuHasSSE2 | kCpuHasSSSE3 : -1);
  for (const Entry& entry : kEntries) {
    if (from != entry.from || to != entry.to) continue;
    return [&entry](const tolk::Call& call) {
      std::visit(Invoke{call.src, call.dst, call.roi.width, call.roi.height}, entry.function);
    };
  }
  if (from == "RGB C3" && to == "YCbCr420 P2") return mergeChroma(RAWToI420, roi);
  if (from == "BGR C3" && to == "YCbCr420 P2") return mergeChroma(RGB24ToI420, roi);
  return nullptr;
}

}  // namespace

std::vector<Peer> libyuvPeers() {
  const std::string version = std::to_string(LIBYUV_VERSION);
  return {{"libyuv ssse3", version, find<true>}, {"libyuv", version, find<false>}};
}
