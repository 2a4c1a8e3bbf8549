// The list of peers, and the formats of a function in the words that they are asked in.
#include "peers.h"

#include <utility>

const std::vector<Peer>& peers() {
  static const std::vector<Peer> kPeers = [] {
    std::vector<Peer> all;
    [[maybe_unused]] auto add = [&](const std::vector<Peer>& some) { all.insert(all.end(), some.begin(), some.end()); };
#ifdef PEER_LIBYUV
    add(libyuvPeers());
#endif
#ifdef PEER_SWSCALE
    add(swscalePeers());
#endif
#ifdef PEER_OPENCV
    add(opencvPeers());
#endif
#ifdef PEER_TURBOJPEG
    add(turbojpegPeers());
#endif
    return all;
  }();
  return kPeers;
}

namespace {

bool crBeforeCb(const tolk::SideInfo& side) { return side.layout == "P3" && side.space.starts_with("YCrCb"); }

std::string format(const tolk::SideInfo& side) {
  std::string space(side.space), layout(side.layout == "AC4" ? "C4" : side.layout);
  if (crBeforeCb(side)) space.replace(0, 5, "YCbCr");
  if (space == "Color") space = "RGB";  // the benchmark gives the caller's weights in this order
  return space + " " + layout + (side.sample == "8u" ? "" : " " + std::string(side.sample));
}

// Whether the size is of whole chroma groups; the peers differ in what they do with a rest.
bool wholeGroups(const tolk::SideInfo& side, TolkSize roi) {
  const bool subsampled = side.space.ends_with("422") || side.space.ends_with("420") || side.space.ends_with("411");
  const int across = side.space.ends_with("411") ? 4 : 2;
  return !subsampled || (roi.width % across == 0 && roi.height % 2 == 0);
}

void swapChroma(tolk::Side& side) {
  std::swap(side.plane[1], side.plane[2]);
  std::swap(side.step[1], side.step[2]);
}

}  // namespace

Conversion findConversion(const Peer& peer, const tolk::Function& function, TolkSize roi) {
  const tolk::SideInfo &src = function.src, &dst = function.dst;
  // Other matrices cost the peers the same; gamma none of them has.
  const bool plain = function.variant.empty() && function.operation.find("Gamma") == std::string_view::npos;
  const bool twist = function.operation.starts_with("ColorTwist");  // between like sides the peers copy
  if (!plain || function.inPlace || src.sample != dst.sample) return nullptr;
  if (!wholeGroups(src, roi) || !wholeGroups(dst, roi)) return nullptr;
  Conversion conversion = peer.find(format(src), twist ? "twisted " + format(dst).substr(4) : format(dst), roi);
  if (!conversion || (!crBeforeCb(src) && !crBeforeCb(dst))) return conversion;
  return [=, swapSource = crBeforeCb(src), swapTarget = crBeforeCb(dst)](tolk::Call call) {
    if (swapSource) swapChroma(call.src);
    if (swapTarget) swapChroma(call.dst);
    conversion(call);
  };
}
