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

bool holdsPixels(const SideInfo& side);  // RGB in some order
bool isScalable(const SideInfo& side);   // RGB or gray: other depths are the same in another scale
// The side with Cr in the place of Cb; none where no format has it so.
std::optional<SideInfo> exchangedChroma(SideInfo side);
// What it takes to bring samples of one side into another without a function: 0 nothing, 1 another order of channels or
// planes, 2 more or fewer channels, and 3 more for another depth; none where that does not do.
std::optional<int> repackingCost(const SideInfo& from, const SideInfo& to);
RawImage repacked(RawImage from, const SideInfo& to, uint8_t alpha);

bool servesImages(const SideInfo& info);  // three colour channels of one pixel each, or gray
int imageChannels(const SideInfo& info);
void setAlpha(RawImage& raw, uint8_t alpha);  // of all pixels; 255 is opaque at every depth
// Swaps, splits and drops channels as the side wants it; gray goes into all three, a missing alpha becomes `alpha`.
// Colour is never turned into gray, nor one depth into another. In image files 16s samples have 32768 added.
RawImage fromImage(Image image, const SideInfo& info, uint8_t alpha = 255);
Image toImage(RawImage& raw);                // 10-bit gray is brought to 16 bits
Image toImage(RawImage& raw, int channels);  // fewer than the side's leave out alpha

}  // namespace tolk
