// Other libraries that convert between the same memory layouts, as far as the build has found them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue.h"

using Conversion = std::function<void(const tolk::Call&)>;

struct Peer {
  std::string name, version;
  // The conversion between two formats such as "BGR C4" and "YCbCr420 P3", whose planes are Y, Cb, Cr; or none. Samples
  // other than of 8 bits stand behind: "RGB C3 16u".
  Conversion (*find)(const std::string& from, const std::string& to, TolkSize roi);
};

const std::vector<Peer>& peers();

// What the peer has between the layouts of the function: BT.601, in YUV of full range, by arithmetic of its own.
Conversion findConversion(const Peer& peer, const tolk::Function& function, TolkSize roi);

// Each is defined where the build has found the library.
std::vector<Peer> libyuvPeers();
std::vector<Peer> swscalePeers();
std::vector<Peer> opencvPeers();
std::vector<Peer> turbojpegPeers();
