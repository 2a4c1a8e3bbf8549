// One side of a call in memory, and the pictures that fit it.
#pragma once

#include <optional>
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

// The same side in another size: what is new repeats the last column and row. Chroma stays where it lies.
RawImage resized(RawImage from, TolkSize size);

bool holdsPixels(const SideInfo& side);  // 8-bit RGB in some order
// The side with Cr in the place of Cb; none where no format has it so.
std::optional<SideInfo> exchangedChroma(SideInfo side);
// What it takes to bring samples of one side into another without a function: 0 nothing, 1 another order of channels or
// planes, 2 more or fewer channels; none where that does not do.
std::optional<int> repackingCost(const SideInfo& from, const SideInfo& to);
RawImage repacked(RawImage from, const SideInfo& to, uint8_t alpha);

bool servesImages(const SideInfo& info);  // RGB, BGR and gray sides of 8 or 16 bits without sign
int imageChannels(const SideInfo& info);
// Swaps, splits and drops channels as the side wants it; gray goes into all three, a missing alpha becomes `alpha`.
// Colour is never turned into gray, nor one sample type into another.
RawImage fromImage(Image image, const SideInfo& info, uint8_t alpha = 255);
Image toImage(RawImage& raw);  // 10-bit gray is brought to 16 bits

}  // namespace tolk
