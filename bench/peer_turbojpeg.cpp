// libjpeg-turbo's colour conversion alone: a JPEG's full-range planes, without the coding.
#if __has_include(<jconfig.h>)
#include <jconfig.h>  // the version, which the other header lacks
#endif
#include <turbojpeg.h>

#include <array>
#include <map>
#include <memory>

#include "peers.h"

namespace {

const std::map<std::string, int> kPixels = {
    {"RGB C3", TJPF_RGB}, {"BGR C3", TJPF_BGR}, {"RGB C4", TJPF_RGBX}, {"BGR C4", TJPF_BGRX}};
const std::map<std::string, int> kPlanes = {
    {"YCbCr P3", TJSAMP_444}, {"YCbCr422 P3", TJSAMP_422}, {"YCbCr420 P3", TJSAMP_420}, {"YCbCr411 P3", TJSAMP_411},
    {"YUV P3", TJSAMP_444},   {"YUV422 P3", TJSAMP_422},   {"YUV420 P3", TJSAMP_420},   {"Gray C1", TJSAMP_GRAY},
};

struct Planar {
  explicit Planar(const tolk::Side& side) {
    for (size_t i = 0; i < 3; ++i) {
      plane[i] = static_cast<uint8_t*>(side.plane[i]);
      stride[i] = static_cast<int>(side.step[i]);
    }
  }
  std::array<uint8_t*, 3> plane;
  std::array<int, 3> stride;
};

Conversion find(const std::string& from, const std::string& to, TolkSize) {
  const bool encodes = kPlanes.count(to);
  const auto pixels = kPixels.find(encodes ? from : to), planes = kPlanes.find(encodes ? to : from);
  if (pixels == kPixels.end() || planes == kPlanes.end()) return nullptr;
  std::shared_ptr<void> handle(encodes ? tjInitCompress() : tjInitDecompress(), tjDestroy);
  return [=, pixel = pixels->second, sampling = planes->second](const tolk::Call& call) {
    const auto [w, h] = call.roi;
    Planar planar(encodes ? call.dst : call.src);
    const tolk::Side& side = encodes ? call.src : call.dst;
    auto packed = static_cast<uint8_t*>(side.plane[0]);
    const int pitch = static_cast<int>(side.step[0]);
    if (encodes) {
      tjEncodeYUVPlanes(handle.get(), packed, w, pitch, h, pixel, planar.plane.data(), planar.stride.data(), sampling,
                        0);
    } else {
      auto source = const_cast<const uint8_t**>(planar.plane.data());
      tjDecodeYUVPlanes(handle.get(), source, planar.stride.data(), sampling, packed, w, pitch, h, pixel,
                        TJFLAG_FASTUPSAMPLE);
    }
  };
}

}  // namespace

#define TEXT_OF(name) #name
#define TEXT(name) TEXT_OF(name)
std::vector<Peer> turbojpegPeers() {
#ifdef LIBJPEG_TURBO_VERSION
  const std::string version = TEXT(LIBJPEG_TURBO_VERSION);
#else
  const std::string version = "of unknown version";
#endif
  return {{"turbojpeg", version, find}};
}
