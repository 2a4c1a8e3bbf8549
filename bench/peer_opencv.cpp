// OpenCV's cvtColor on one thread; OPENCV_CPU_DISABLE=AVX2 in the environment holds it to SSE4.1, the nearest to SSSE3
// that it has.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string_view>
#include <utility>

#include "peers.h"

namespace {

struct Entry {
  std::string_view from, to;
  int code;
  std::string_view samples = "8u";
};
constexpr int kTransform = -1;
constexpr Entry kEntries[] = {
    {"RGB C3", "YCbCr C3", cv::COLOR_RGB2YUV},
    {"YCbCr C3", "RGB C3", cv::COLOR_YUV2RGB},
    {"RGB C3", "YUV C3", cv::COLOR_RGB2YUV},
    {"YUV C3", "RGB C3", cv::COLOR_YUV2RGB},
    {"BGR C3", "YUV C3", cv::COLOR_BGR2YUV},
    {"YUV C3", "BGR C3", cv::COLOR_YUV2BGR},
    {"RGB C3", "YCbCr420 P3", cv::COLOR_RGB2YUV_I420},
    {"BGR C3", "YCbCr420 P3", cv::COLOR_BGR2YUV_I420},
    {"RGB C4", "YCbCr420 P3", cv::COLOR_RGBA2YUV_I420},
    {"BGR C4", "YCbCr420 P3", cv::COLOR_BGRA2YUV_I420},
    {"YCbCr420 P3", "RGB C3", cv::COLOR_YUV2RGB_I420},
    {"YCbCr420 P3", "BGR C3", cv::COLOR_YUV2BGR_I420},
    {"YCbCr420 P3", "RGB C4", cv::COLOR_YUV2RGBA_I420},
    {"YCbCr420 P3", "BGR C4", cv::COLOR_YUV2BGRA_I420},
    {"YCbCr420 P2", "RGB C3", cv::COLOR_YUV2RGB_NV12},
    {"YCbCr420 P2", "BGR C3", cv::COLOR_YUV2BGR_NV12},
    {"YCbCr420 P2", "RGB C4", cv::COLOR_YUV2RGBA_NV12},
    {"YCbCr420 P2", "BGR C4", cv::COLOR_YUV2BGRA_NV12},
    {"YCrCb420 P2", "RGB C3", cv::COLOR_YUV2RGB_NV21},
    {"YCrCb420 P2", "BGR C3", cv::COLOR_YUV2BGR_NV21},
    {"YCrCb420 P2", "RGB C4", cv::COLOR_YUV2RGBA_NV21},
    {"YCrCb420 P2", "BGR C4", cv::COLOR_YUV2BGRA_NV21},
    {"YCbCr422 C2", "RGB C3", cv::COLOR_YUV2RGB_YUY2},
    {"YCbCr422 C2", "BGR C3", cv::COLOR_YUV2BGR_YUY2},
    {"YCbCr422 C2", "RGB C4", cv::COLOR_YUV2RGBA_YUY2},
    {"YCbCr422 C2", "BGR C4", cv::COLOR_YUV2BGRA_YUY2},
    {"YCrCb422 C2", "RGB C3", cv::COLOR_YUV2RGB_YVYU},
    {"YCrCb422 C2", "BGR C3", cv::COLOR_YUV2BGR_YVYU},
    {"YCrCb422 C2", "RGB C4", cv::COLOR_YUV2RGBA_YVYU},
    {"YCrCb422 C2", "BGR C4", cv::COLOR_YUV2BGRA_YVYU},
    {"CbYCr422 C2", "RGB C3", cv::COLOR_YUV2RGB_UYVY},
    {"CbYCr422 C2", "BGR C3", cv::COLOR_YUV2BGR_UYVY},
    {"CbYCr422 C2", "RGB C4", cv::COLOR_YUV2RGBA_UYVY},
    {"CbYCr422 C2", "BGR C4", cv::COLOR_YUV2BGRA_UYVY},
    {"RGB C3", "Gray C1", cv::COLOR_RGB2GRAY, "8u 16u 32f"},
    {"RGB C4", "Gray C1", cv::COLOR_RGBA2GRAY, "8u 16u 32f"},
    {"Gray C1", "RGB C3", cv::COLOR_GRAY2RGB, "8u 16u 32f"},
    {"Gray C1", "RGB C4", cv::COLOR_GRAY2RGBA, "8u 16u 32f"},
    {"YCbCr422 C2", "Gray C1", cv::COLOR_YUV2GRAY_YUY2},
    {"RGB C3", "XYZ C3", cv::COLOR_RGB2XYZ, "8u 16u 32f"},
    {"XYZ C3", "RGB C3", cv::COLOR_XYZ2RGB, "8u 16u 32f"},
    {"RGB C3", "HLS C3", cv::COLOR_RGB2HLS_FULL, "8u 32f"},
    {"HLS C3", "RGB C3", cv::COLOR_HLS2RGB_FULL, "8u 32f"},
    {"BGR C3", "HLS C3", cv::COLOR_BGR2HLS_FULL, "8u 32f"},
    {"HLS C3", "BGR C3", cv::COLOR_HLS2BGR_FULL, "8u 32f"},
    {"RGB C3", "HSV C3", cv::COLOR_RGB2HSV_FULL},
    {"HSV C3", "RGB C3", cv::COLOR_HSV2RGB_FULL},
    {"RGB C3", "Lab C3", cv::COLOR_LRGB2Lab, "8u 32f"},
    {"BGR C3", "Lab C3", cv::COLOR_LBGR2Lab, "8u 32f"},
    {"Lab C3", "RGB C3", cv::COLOR_Lab2LRGB, "8u 32f"},
    {"Lab C3", "BGR C3", cv::COLOR_Lab2LBGR, "8u 32f"},
    {"RGB C3", "LUV C3", cv::COLOR_LRGB2Luv, "8u 32f"},
    {"BGR C3", "LUV C3", cv::COLOR_LBGR2Luv, "8u 32f"},
    {"LUV C3", "RGB C3", cv::COLOR_Luv2LRGB, "8u 32f"},
    {"LUV C3", "BGR C3", cv::COLOR_Luv2LBGR, "8u 32f"},
    {"RGB C3", "twisted C3", kTransform, "8u 16u 16s 32f"},
};

cv::Mat packed(const tolk::Side& side, size_t plane, int channels, int width, int height, int depth = CV_8U) {
  return cv::Mat(height, width, CV_MAKETYPE(depth, channels), side.plane[plane], static_cast<size_t>(side.step[plane]));
}

// The three planes lie one behind the other in OpenCV's image: copies them from or to the call's, once.
template <bool fromImage>
void copyPlanes(cv::Mat& image, const tolk::Side& side, TolkSize roi) {
  uint8_t* at = image.data;
  for (size_t plane = 0; plane < 3; ++plane) {
    const int width = plane ? roi.width / 2 : roi.width, height = plane ? roi.height / 2 : roi.height;
    for (int y = 0; y < height; ++y, at += width) {
      uint8_t* row = static_cast<uint8_t*>(side.plane[plane]) + y * side.step[plane];
      std::memcpy(fromImage ? row : at, fromImage ? at : row, static_cast<size_t>(width));
    }
  }
}

void scaleHue(cv::Mat image, double factor) {
  for (cv::Vec3f& pixel : cv::Mat_<cv::Vec3f>(image)) pixel[0] *= static_cast<float>(factor);
}

// Hue of 32f is a share of the circle in the call and degrees here: adapts it, once.
Conversion findPacked(const Entry& entry, std::string_view sample, TolkSize roi) {
  const int depth = sample == "32f" ? CV_32F : sample == "16u" ? CV_16U : sample == "16s" ? CV_16S : CV_8U;
  return [=, first = depth == CV_32F](const tolk::Call& call) mutable {
    std::array<float, 16> twist = *call.twist;
    const cv::Mat source = packed(call.src, 0, entry.from.back() - '0', roi.width, roi.height, depth);
    cv::Mat target = packed(call.dst, 0, entry.to.back() - '0', roi.width, roi.height, depth);
    const bool adapts = std::exchange(first, false);
    if (adapts && entry.from == "HLS C3") scaleHue(source, 360);
    if (entry.code == kTransform) return cv::transform(source, target, cv::Mat(3, 4, CV_32F, &twist[0]));
    cv::cvtColor(source, target, entry.code);
    if (adapts && entry.to == "HLS C3") scaleHue(target, 1 / 360.0);
  };
}

Conversion find(const std::string& fromSample, const std::string& toSample, TolkSize roi) {
  const auto parts = [](const std::string& format) {
    const size_t end = format.find(' ', format.find(' ') + 1);
    return std::pair(format.substr(0, end), end == std::string::npos ? "8u" : format.substr(end + 1));
  };
  const std::string from = parts(fromSample).first, to = parts(toSample).first, sample = parts(toSample).second;
  const auto entry = std::find_if(std::begin(kEntries), std::end(kEntries), [&](const Entry& e) {
    return e.from == from && e.to == to && e.samples.find(sample) != std::string_view::npos;
  });
  if (entry == std::end(kEntries)) return nullptr;
  if (!from.ends_with("P2") && !from.ends_with("P3") && !to.ends_with("P3")) return findPacked(*entry, sample, roi);
  const int code = entry->code, src = from.back() - '0', dst = to.back() - '0', w = roi.width, h = roi.height;
  if (from.ends_with("P2")) {
    return [=](const tolk::Call& call) {
      cv::Mat target = packed(call.dst, 0, dst, w, h);
      cv::cvtColorTwoPlane(packed(call.src, 0, 1, w, h), packed(call.src, 1, 2, w / 2, h / 2), target, code);
    };
  }
  auto image = std::make_shared<cv::Mat>(h * 3 / 2, w, CV_8UC1);
  if (from.ends_with("P3")) {
    return [=, first = true](const tolk::Call& call) mutable {
      if (std::exchange(first, false)) copyPlanes<false>(*image, call.src, roi);
      cv::Mat target = packed(call.dst, 0, dst, w, h);
      cv::cvtColor(*image, target, code);
    };
  }
  return [=, first = true](const tolk::Call& call) mutable {
    cv::cvtColor(packed(call.src, 0, src, w, h), *image, code);
    if (std::exchange(first, false)) copyPlanes<true>(*image, call.dst, roi);
  };
}

}  // namespace

std::vector<Peer> opencvPeers() {
  cv::setNumThreads(1);
  return {{"opencv", cv::getVersionString(), find}};
}
