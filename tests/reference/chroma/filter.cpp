// Plain scalar reference of the conversions from 4:2:0 that filter chroma, and luma too, by rows.
#include <algorithm>
#include <initializer_list>

#include "planes.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// Row y of the chroma of 4:2:2 from `rows` rows of 4:2:0; the outermost ones repeat.
Integer fourTap(const Channel& chroma, Integer x, Integer y, Integer rows) {
  const auto C = [&](Integer k) { return chroma.at(x, std::clamp<Integer>(k, 0, rows - 1)); };
  const Integer j = y / 2;
  if (y % 2 == 0) return C(j);
  return clamp8(fl(9 * (C(j) + C(j + 1)) - (C(j - 1) + C(j + 2)) + 8, 16));
}

// Whole groups of 2 columns by 8 rows are converted.
TolkStatus fourTapFilter(TolkSize roi, const Source& from, const Target& to) {
  const int32_t w = roi.width & ~1, h = roi.height & ~7;
  resample(from, to, {w, h}, {w / 2, h},
           [&](const Channel& s, Integer x, Integer y) { return fourTap(s, x, y, h / 2); });
  return tolkStatusOk;
}

// A sample with those above and below it, each read only where a term needs it.
struct Site {
  const Channel& channel;
  Integer x, y;

  Integer above() const { return channel.at(x, y - 1); }
  Integer here() const { return channel.at(x, y); }
  Integer below() const { return channel.at(x, y + 1); }
};
using Term = Integer (*)(const Site& s);

Integer triSum(const Site& s) { return s.above() + 2 * s.here() + s.below(); }
Integer topSum(const Site& s) { return 3 * s.here() + s.below(); }
Integer bottomSum(const Site& s) { return 3 * s.here() + s.above(); }
Integer plus(Integer sum) { return std::min<Integer>(255, fl(sum + 4, 4)); }

Integer unchanged(const Site& s) { return s.here(); }
Integer tri(const Site& s) { return fl(triSum(s), 4); }
Integer triPlus(const Site& s) { return plus(triSum(s)); }
Integer triAvg(const Site& s) { return avg(avg(s.here(), s.below()), avg(s.here(), s.above())); }
Integer triCross(const Site& s) { return avg(avg(s.above(), s.below()), s.here()); }
Integer top(const Site& s) { return fl(topSum(s), 4); }
Integer topPlus(const Site& s) { return plus(topSum(s)); }
Integer topAvg(const Site& s) { return avg(avg(s.here(), s.below()), s.here()); }
Integer bottom(const Site& s) { return fl(bottomSum(s), 4); }
Integer bottomPlus(const Site& s) { return plus(bottomSum(s)); }
Integer bottomAvg(const Site& s) { return avg(avg(s.here(), s.above()), s.here()); }
Integer meanNext(const Site& s) { return mean(s.here(), s.below()); }
Integer avgNext(const Site& s) { return avg(s.here(), s.below()); }
Integer meanPrev(const Site& s) { return mean(s.above(), s.here()); }
Integer avgPrev(const Site& s) { return avg(s.above(), s.here()); }

// Columns below `split` take the block term, the rest the tail term; output row y stands at source row y >> rowShift.
struct Filter {
  Term block, tail;

  Filter(Term both) : block(both), tail(both) {}
  Filter(Term blockTerm, Term tailTerm) : block(blockTerm), tail(tailTerm) {}

  void rows(Integer first, Integer last, Integer split, Integer columns, int rowShift, const Channel& from,
            const TargetChannel& to) const {
    fill(to, columns, first, last, [&](Integer x, Integer y) {
      return (x < split ? block : tail)({from, x, y >> rowShift});
    });
  }
};

enum : uint32_t { kFirst = 1, kMiddle = 4, kLast = 16, kWhole = kFirst | kMiddle | kLast };

// To packed 4:2:2, whose rows 2j and 2j + 1 take chroma of row j.
struct PackedFilter {
  Source from;
  Target to;
  Integer w;

  void rows(Integer first, Integer last, Integer split, const Filter& luma, const Filter& chroma) const {
    luma.rows(first, last, split, w, 0, from.Y, to.Y);
    chroma.rows(first, last, split / 2, w / 2, 1, from.Cb, to.Cb);
    chroma.rows(first, last, split / 2, w / 2, 1, from.Cr, to.Cr);
  }
};

void filterToPacked(TolkSize roi, const Source& from, const Target& to, uint32_t stripe) {
  const Integer w = roi.width & ~1, h = roi.height & ~1, B = w & ~31, B8 = w & ~7;
  const PackedFilter filter{from, to, w};
  if (stripe == kLast) {
    filter.rows(-2, h - 3, B, {triAvg, tri}, {avgNext, meanNext});
    filter.rows(h - 2, h - 2, B8, {triAvg, tri}, {avgPrev, meanPrev});
    filter.rows(h - 1, h - 1, B8, {bottomAvg, bottom}, {avgPrev, meanPrev});
  } else if (stripe == kMiddle) {
    filter.rows(-2, h - 3, B, {triAvg, tri}, {avgNext, meanNext});
  } else if (stripe == kFirst) {
    filter.rows(0, 0, B8, {topAvg, top}, {avgNext, meanNext});
    filter.rows(1, 1, B8, {triAvg, tri}, {avgNext, meanNext});
    filter.rows(2, h - 3, B, {triAvg, tri}, {avgNext, meanNext});
  } else if ((stripe & kWhole) == kWhole && h == 2) {
    filter.rows(0, 0, 0, topPlus, unchanged);
    filter.rows(1, 1, 0, bottomPlus, unchanged);
  } else if ((stripe & kWhole) == kWhole) {
    filter.rows(0, 0, 0, topPlus, meanNext);
    filter.rows(1, 1, 0, triPlus, meanNext);
    filter.rows(2, h - 3, B, {triAvg, triPlus}, {avgNext, meanNext});
    filter.rows(h - 2, h - 2, 0, triPlus, meanPrev);
    filter.rows(h - 1, h - 1, 0, bottomPlus, meanPrev);
  }
}

// To 4:2:0 again, whose chroma is filtered as planes of their own.
struct PlanarFilter {
  Source from;
  Target to;
  Integer w;

  void luma(Integer first, Integer last, Integer split, const Filter& filter) const {
    filter.rows(first, last, split, w, 0, from.Y, to.Y);
  }
  void chroma(Integer first, Integer last, Integer split, const Filter& filter) const {
    filter.rows(first, last, split, w / 2, 0, from.Cb, to.Cb);
    filter.rows(first, last, split, w / 2, 0, from.Cr, to.Cr);
  }
};

void filterToPlanar(TolkSize roi, const Source& from, const Target& to, uint32_t stripe, bool aligned) {
  const Integer w = roi.width & ~1, h = roi.height & ~1, B = w & ~31;
  const PlanarFilter filter{from, to, w};
  if (stripe == kLast) {
    const Integer split = aligned ? w : 0;
    filter.luma(-2, h - 2, split, {triAvg, tri});
    filter.luma(h - 1, h - 1, split, {bottomAvg, bottom});
    filter.chroma(-1, h / 2 - 2, split / 2, {avgNext, meanNext});
    filter.chroma(h / 2 - 1, h / 2 - 1, split / 2, {avgPrev, meanPrev});
  } else if (stripe == kMiddle) {
    filter.luma(-2, h - 3, B, {triAvg, tri});
    filter.chroma(-1, h / 2 - 2, B / 2, {avgNext, meanNext});
  } else if (stripe == kFirst) {
    filter.luma(0, 0, B, {topAvg, top});
    filter.luma(1, h - 3, B, {aligned ? triAvg : triCross, tri});
    filter.chroma(0, h / 2 - 2, B / 2, {avgNext, meanNext});
  } else if ((stripe & kWhole) == kWhole && h == 2) {
    filter.luma(0, 0, 0, topPlus);
    filter.luma(1, 1, 0, bottomPlus);
    filter.chroma(0, 0, 0, unchanged);
  } else if ((stripe & kWhole) == kWhole) {
    filter.luma(0, 0, 0, top);
    filter.luma(1, h - 2, B, {triAvg, tri});
    filter.luma(h - 1, h - 1, 0, bottom);
    filter.chroma(0, h / 2 - 2, B / 2, {avgNext, meanNext});
    filter.chroma(h / 2 - 1, h / 2 - 1, 0, meanPrev);
  }
}

bool multiples(std::initializer_list<Integer> values, Integer n) {
  return std::all_of(values.begin(), values.end(), [&](Integer value) { return value % n == 0; });
}
Integer address(const void* p) { return reinterpret_cast<intptr_t>(p); }

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYCbCr420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                           uint8_t* const dst[3], const int32_t dstStep[3],
                                                           TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 8)})) return fault;
  return fourTapFilter(roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                           uint8_t* const dst[3], const int32_t dstStep[3],
                                                           TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 8)})) return fault;
  return fourTapFilter(roi, planarYCrCb(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr422_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep,
                                                             const uint8_t* srcCbCr, int32_t srcCbCrStep,
                                                             uint8_t* const dst[3], const int32_t dstStep[3],
                                                             TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), planes(dst), size(roi, 2, 8)})) return fault;
  return fourTapFilter(roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep,
                                                             const uint8_t* srcCbCr, int32_t srcCbCrStep, uint8_t* dst,
                                                             int32_t dstStep, TolkSize roi, uint32_t stripe) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi, 2, 2)})) return fault;
  filterToPacked(roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), packedYCbCr422(dst, dstStep), stripe);
  return tolkStatusOk;
}

TolkStatus reference::tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep,
                                                             const uint8_t* srcCbCr, int32_t srcCbCrStep,
                                                             uint8_t* const dst[3], const int32_t dstStep[3],
                                                             TolkSize roi, uint32_t stripe) {
  if (const auto fault =
          firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi, 1, 1), planes(dst), size(roi, 2, 2)}))
    return fault;
  const bool aligned =
      multiples({srcYStep, address(srcY), address(srcCbCr), address(dst[0]), address(dst[1]), address(dst[2])}, 16) &&
      multiples({srcCbCrStep, dstStep[0], dstStep[1], dstStep[2]}, 32) && multiples({roi.height & ~1}, 16) &&
      multiples({roi.width & ~1}, 64);
  filterToPlanar(roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep), stripe, aligned);
  return tolkStatusOk;
}
