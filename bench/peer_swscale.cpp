// libswscale without scaling, in one context made outside of the measured loop.
extern "C" {
#include <libavutil/log.h>
#include <libavutil/pixfmt.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "peers.h"

namespace {

const std::map<std::string, AVPixelFormat> kFormats = {
    {"RGB C3", AV_PIX_FMT_RGB24},        {"BGR C3", AV_PIX_FMT_BGR24},        {"RGB C4", AV_PIX_FMT_RGB0},
    {"BGR C4", AV_PIX_FMT_BGR0},         {"RGB P3", AV_PIX_FMT_GBRP},         {"YCbCr P3", AV_PIX_FMT_YUV444P},
    {"YCbCr422 P3", AV_PIX_FMT_YUV422P}, {"YCbCr422 C2", AV_PIX_FMT_YUYV422}, {"CbYCr422 C2", AV_PIX_FMT_UYVY422},
    {"YCrCb422 C2", AV_PIX_FMT_YVYU422}, {"YCbCr420 P3", AV_PIX_FMT_YUV420P}, {"YCbCr420 P2", AV_PIX_FMT_NV12},
    {"YCrCb420 P2", AV_PIX_FMT_NV21},    {"YCbCr411 P3", AV_PIX_FMT_YUV411P}, {"YUV P3", AV_PIX_FMT_YUVJ444P},
    {"YUV422 P3", AV_PIX_FMT_YUVJ422P},  {"YUV420 P3", AV_PIX_FMT_YUVJ420P},  {"Gray C1", AV_PIX_FMT_GRAY8},
    {"RGB C3 16u", AV_PIX_FMT_RGB48},    {"RGB C4 16u", AV_PIX_FMT_RGBA64},   {"Gray C1 16u", AV_PIX_FMT_GRAY16},
};

using Planes = std::array<uint8_t*, 4>;
using Strides = std::array<int, 4>;

void planes(const tolk::Side& side, bool greenFirst, Planes& plane, Strides& stride) {
  for (size_t i = 0; i < plane.size(); ++i) {
    plane[i] = static_cast<uint8_t*>(side.plane[i]);
    stride[i] = static_cast<int>(side.step[i]);
  }
  if (greenFirst) {  // R, G, B to G, B, R
    std::rotate(plane.begin(), plane.begin() + 1, plane.begin() + 3);
    std::rotate(stride.begin(), stride.begin() + 1, stride.begin() + 3);
  }
}

Conversion find(const std::string& from, const std::string& to, TolkSize roi) {
  const auto source = kFormats.find(from), target = kFormats.find(to);
  if (source == kFormats.end() || target == kFormats.end()) return nullptr;
  if (from.starts_with("YCbCr") && to.starts_with("Gray")) return nullptr;  // widens the range instead of copying
  if (roi.width % 32 != 0) return nullptr;  // some of its vector code faults on rows that are not aligned
  av_log_set_level(AV_LOG_FATAL);
  // Its fastest setting: one point for each sample (no filter), nothing of SWS_ACCURATE_RND and SWS_FULL_CHR_*. The
  // matrix is BT.601 in studio range as it comes.
  std::shared_ptr<SwsContext> context(sws_getContext(roi.width, roi.height, source->second, roi.width, roi.height,
                                                     target->second, SWS_POINT, nullptr, nullptr, nullptr),
                                      sws_freeContext);
  if (!context) return nullptr;
  return [=, planarSource = from == "RGB P3", planarTarget = to == "RGB P3"](const tolk::Call& call) {
    Planes src, dst;
    Strides srcStride, dstStride;
    planes(call.src, planarSource, src, srcStride);
    planes(call.dst, planarTarget, dst, dstStride);
    sws_scale(context.get(), src.data(), srcStride.data(), 0, call.roi.height, dst.data(), dstStride.data());
  };
}

}  // namespace

std::vector<Peer> swscalePeers() {
  const unsigned v = swscale_version();
  const std::string version =
      std::to_string(v >> 16) + "." + std::to_string(v >> 8 & 255) + "." + std::to_string(v & 255);
  return {{"swscale", version, find}};
}
