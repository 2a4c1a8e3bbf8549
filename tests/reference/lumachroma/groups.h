// What the plain subsampling encoders share: layouts of one chroma pair per group, integer terms, the walk by groups.
#pragma once

#include "../arithmetic.h"
#include "forms.h"

namespace reference {

inline Integer mu8(Integer x, Integer c) { return fl(x * c, 256); }
inline Integer lim(Integer v) { return v < 1 ? 1 : v > 254 ? 254 : v; }

// One channel: its first sample, and the bytes to the next row and the next sample.
struct TargetChannel {
  uint8_t* first;
  Integer step;
  Integer sample;

  uint8_t& at(Integer x, Integer y) const { return first[y * step + x * sample]; }
};

// Luma by pixels, chroma by groups.
struct Target {
  TargetChannel Y, Cb, Cr;
};

inline Target packedYCbCr422(uint8_t* p, Integer step) { return {{p, step, 2}, {p + 1, step, 4}, {p + 3, step, 4}}; }
inline Target packedYCrCb422(uint8_t* p, Integer step) { return {{p, step, 2}, {p + 3, step, 4}, {p + 1, step, 4}}; }
inline Target packedCbYCr422(uint8_t* p, Integer step) { return {{p + 1, step, 2}, {p, step, 4}, {p + 2, step, 4}}; }
inline Target planarYCbCr(uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[1], step[1], 1}, {p[2], step[2], 1}};
}
inline Target planarYCrCb(uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[2], step[2], 1}, {p[1], step[1], 1}};
}
inline Target twoPlanes(uint8_t* Y, Integer stepY, uint8_t* CbCr, Integer stepCbCr) {
  return {{Y, stepY, 1}, {CbCr, stepCbCr, 2}, {CbCr + 1, stepCbCr, 2}};
}

struct Chroma {
  Integer Cb;
  Integer Cr;
};
using LumaForm = Integer (*)(Integer R, Integer G, Integer B);
using ChromaForm = Chroma (*)(Integer Rs, Integer Gs, Integer Bs);

// Luma of each pixel, and chroma of the sums over a group.
struct GroupForm {
  LumaForm luma;
  ChromaForm chroma;
  LumaForm oddColumnLuma = luma;
};

inline Integer lumaA(Integer R, Integer G, Integer B) { return forwardA(R, G, B)[0]; }
inline Integer lumaT(Integer R, Integer G, Integer B) { return forwardT(R, G, B)[0]; }
inline Integer lumaShift(Integer R, Integer G, Integer B) {
  return fl(mu8(R, 8422) + mu8(G, 16515) + mu8(B, 3212) + 2112, 128);
}
inline Integer lumaHdtvBlock(Integer R, Integer G, Integer B) {
  return lim(fl(mu8(R, 6980) + mu8(G, 23429) + mu8(B, 2359) + 64, 128));
}
inline Integer lumaHdtvTail(Integer R, Integer G, Integer B) {
  return lim(fl(13959 * R + 46858 * G + 4719 * B + 32768, 65536));
}

struct GroupSize {
  int width;
  int height;
};

// Whole groups only, whose columns below `roi.width & ~(block - 1)` take the block form and the rest the tail form.
template <typename Source>
void walkGroups(TolkSize roi, GroupSize group, const Source& from, int block, const GroupForm& blockForm,
                const GroupForm& tailForm, const Target& to) {
  const Integer run = roi.width & ~(block - 1);
  for (Integer j = 0; j < roi.height / group.height; ++j) {
    for (Integer i = 0; i < roi.width / group.width; ++i) {
      const GroupForm& form = i * group.width < run ? blockForm : tailForm;
      Samples sum = {};
      for (Integer y = j * group.height; y < (j + 1) * group.height; ++y) {
        for (Integer x = i * group.width; x < (i + 1) * group.width; ++x) {
          const Samples pixel = from.fetch(x, y);
          for (unsigned channel = 0; channel < 3; ++channel) sum[channel] += pixel[channel];
          to.Y.at(x, y) = static_cast<uint8_t>(std::apply(x % 2 ? form.oddColumnLuma : form.luma, pixel));
        }
      }
      const Chroma chroma = std::apply(form.chroma, sum);
      to.Cb.at(i, j) = static_cast<uint8_t>(chroma.Cb);
      to.Cr.at(i, j) = static_cast<uint8_t>(chroma.Cr);
    }
  }
}

}  // namespace reference
