// One side of a call in memory, and the pictures that fit it.
#pragma once

#include <string>
#include <vector>

#include "catalogue.h"
#include "image_io.h"

namespace tolk {

// All planes of a side, one after another without padding: byte for byte a raw file.
struct RawImage {
  SideInfo info;
  TolkSize size;
  std::vector<PlaneShape> shapes;
  Bytes bytes;

  RawImage(const SideInfo& side, TolkSize roi);  // all zero
  Side side();
};

int64_t rawBytes(const SideInfo& info, TolkSize size);
std::string label(const SideInfo& info);  // "YCbCr P3 8u"

bool servesImages(const SideInfo& info);  // RGB, BGR and gray sides of 8 or 16 bits without sign
int imageChannels(const SideInfo& info);
// Swaps, splits and drops channels as the side wants it; gray goes into all three, a missing alpha is opaque. Colour is
// never turned into gray, nor one sample type into another.
RawImage fromImage(Image image, const SideInfo& info);
Image toImage(RawImage& raw);

}  // namespace tolk
