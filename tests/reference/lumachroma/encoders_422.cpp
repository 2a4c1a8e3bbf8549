// Plain scalar reference of the encoders from RGB and BGR to 4:2:2.
#include "groups.h"
#include "reference_declarations.h"

namespace reference {
namespace {

constexpr GroupSize kPair = {2, 1};

Integer rnd9(Integer s, Integer c) { return fl(s * c + 256, 512); }
Integer ms(Integer s, Integer c) { return fl(s * c, 1024); }

Chroma pairBlockChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(rnd9(Bs, 7193) - (rnd9(Rs, 2425) + rnd9(Gs, 4768)) + 8224, 64)),
          clamp8(fl(rnd9(Rs, 7193) - (rnd9(Bs, 1163) + rnd9(Gs, 6029)) + 8224, 64))};
}

Chroma pairTail1Chroma(Integer Rs, Integer Gs, Integer Bs) {
  return {fl(-9699 * Rs - 19071 * Gs + 28770 * Bs + 16793600, 131072),
          fl(28770 * Rs - 24117 * Gs - 4653 * Bs + 16793600, 131072)};
}

Chroma pairTail2Chroma(Integer Rs, Integer Gs, Integer Bs) {
  return {fl(-9699 * Rs - 19071 * Gs + 28770 * Bs + 16842752, 131072),
          fl(28770 * Rs - 24117 * Gs - 4653 * Bs + 16842752, 131072)};
}
// The second luma of a pair is cut, not rounded.
Integer pairTail2OddLuma(Integer R, Integer G, Integer B) {
  return fl(16843 * R + 33030 * G + 6423 * B + 1048576, 65536);
}

Chroma shiftBlockChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(ms(Rs, -9699) + ms(Gs, -19071) + ms(Bs, 28770) + 16448, 128)),
          clamp8(fl(ms(Rs, 28770) + ms(Gs, -24117) + ms(Bs, -4653) + 16448, 128))};
}
// Cr's constant is two under Cb's.
Chroma shiftTailChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {fl(-9699 * Rs - 19071 * Gs + 28770 * Bs + 16842752, 131072),
          fl(28770 * Rs - 24117 * Gs - 4653 * Bs + 16842750, 131072)};
}

Chroma hdtvSignedChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {lim(fl(ms(Rs, -3834) + ms(Gs, -12911) + ms(Bs, 16744) + 8224, 64)),
          lim(fl(ms(Rs, 16744) + ms(Gs, -15204) + ms(Bs, -1540) + 8224, 64))};
}
Chroma hdtvUnsignedChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {lim(fl(ms(Bs, 16744) - (ms(Rs, 3834) + ms(Gs, 12911)) + 8224, 64)),
          lim(fl(ms(Rs, 16744) - (ms(Gs, 15204) + ms(Bs, 1540)) + 8224, 64))};
}
Chroma hdtvTailChroma(Integer Rs, Integer Gs, Integer Bs) {
  return {lim(fl(-7668 * Rs - 25821 * Gs + 33489 * Bs + 16842752, 131072)),
          lim(fl(33489 * Rs - 30409 * Gs - 3080 * Bs + 16842750, 131072))};
}

constexpr GroupForm kPairBlock = {lumaA, pairBlockChroma};
constexpr GroupForm kPairTail1 = {lumaT, pairTail1Chroma};
constexpr GroupForm kPairTail2 = {lumaT, pairTail2Chroma, pairTail2OddLuma};
constexpr GroupForm kShiftBlock = {lumaShift, shiftBlockChroma};
constexpr GroupForm kShiftTail = {lumaT, shiftTailChroma};
constexpr GroupForm kHdtvSignedBlock = {lumaHdtvBlock, hdtvSignedChroma};
constexpr GroupForm kHdtvUnsignedBlock = {lumaHdtvBlock, hdtvUnsignedChroma};
constexpr GroupForm kHdtvTail = {lumaHdtvTail, hdtvTailChroma};

// The last pixel of an odd width where it is written at all: Cb from that pixel alone, and luma; no Cr.
Integer lastCb(Integer R, Integer G, Integer B) { return forwardT(R, G, B)[1]; }
Integer lastCbHdtv(Integer R, Integer G, Integer B) {
  return lim(fl(-7668 * R - 25821 * G + 33489 * B + 8421376, 65536));
}

template <typename Source>
void lastColumn(TolkSize roi, const Source& from, LumaForm luma, LumaForm cb, const Target& to) {
  if (roi.width % 2 == 0) return;
  for (Integer y = 0; y < roi.height; ++y) {
    const Samples pixel = from.fetch(roi.width - 1, y);
    to.Cb.at(roi.width / 2, y) = static_cast<uint8_t>(std::apply(cb, pixel));
    to.Y.at(roi.width - 1, y) = static_cast<uint8_t>(std::apply(luma, pixel));
  }
}

template <typename Source>
TolkStatus encodePairs(TolkSize roi, const Source& from, const GroupForm& tail, const Target& to) {
  walkGroups(roi, kPair, from, 8, kPairBlock, tail, to);
  return tolkStatusOk;
}

// The terms of a pixel in the middle of the filter's three, in the block's units of 1/128.
Chroma filterCentre(Integer R, Integer G, Integer B) {
  return {rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)), rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029))};
}
// The terms of a pixel beside it.
Chroma filterSide(Integer R, Integer G, Integer B) {
  return {rnd8(B, 3596) - (rnd8(R, 1212) + rnd8(G, 2384)), rnd8(R, 3596) - (rnd8(B, 582) + rnd8(G, 3015))};
}
// The same terms in the tail's units of 1/65536, before they are weighted.
Chroma filterTail(Integer R, Integer G, Integer B) {
  return {-9699 * R - 19071 * G + 28770 * B, 28770 * R - 24117 * G - 4653 * B};
}

template <typename Source>
void filterRow(Integer width, Integer y, const Source& from, const Target& to) {
  const Integer run = width & ~7;
  Chroma carry = {0, 0};  // of the pixel to the left; none at the row's start
  for (Integer i = 0; i < width / 2; ++i) {
    const Samples pixel0 = from.fetch(2 * i, y), pixel1 = from.fetch(2 * i + 1, y);
    const bool inRun = 2 * i < run;
    if (2 * i == run) carry = {carry.Cb * 512, carry.Cr * 512};
    Chroma chroma, side;
    if (inRun) {
      const Chroma centre = std::apply(filterCentre, pixel0);
      side = std::apply(filterSide, pixel1);
      chroma = {clamp8(fl(centre.Cb + side.Cb + carry.Cb + 16448, 128)),
                clamp8(fl(centre.Cr + side.Cr + carry.Cr + 16448, 128))};
    } else {
      const Chroma Q0 = std::apply(filterTail, pixel0), Q1 = std::apply(filterTail, pixel1);
      side = {fl(Q1.Cb, 4), fl(Q1.Cr, 4)};
      chroma = {fl(fl(Q0.Cb, 2) + carry.Cb + side.Cb + 8421375, 65536) & 255,
                fl(fl(Q0.Cr, 2) + carry.Cr + side.Cr + 8421375, 65536) & 255};
    }
    carry = side;
    const LumaForm luma = inRun ? lumaA : lumaT;
    to.Cb.at(i, y) = static_cast<uint8_t>(chroma.Cb);
    to.Y.at(2 * i, y) = static_cast<uint8_t>(std::apply(luma, pixel0));
    to.Cr.at(i, y) = static_cast<uint8_t>(chroma.Cr);
    to.Y.at(2 * i + 1, y) = static_cast<uint8_t>(std::apply(luma, pixel1));
  }
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return encodePairs(roi, packed(3, src, srcStep), kPairTail2, packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCbCr422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(src)})) return fault;
  return encodePairs(roi, planar(src, srcStep), kPairTail2, packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCrCb422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return encodePairs(roi, packed(3, src, srcStep), kPairTail2, packedYCrCb422(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCrCb422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(src)})) return fault;
  return encodePairs(roi, planar(src, srcStep), kPairTail2, packedYCrCb422(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return encodePairs(roi, packed(3, src, srcStep), kPairTail1, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi, 2)})) return fault;
  return encodePairs(roi, packedReversed(3, src, srcStep), kPairTail1, packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi, 2)})) return fault;
  return encodePairs(roi, packedReversed(4, src, srcStep), kPairTail1, packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return encodePairs(roi, packedReversed(3, src, srcStep), kPairTail1, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr422_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                  const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return encodePairs(roi, packedReversed(4, src, srcStep), kPairTail1, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkRGBToCbYCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const auto from = packed(3, src, srcStep);
  const auto to = packedCbYCr422(dst, dstStep);
  for (Integer y = 0; y < roi.height; ++y) filterRow(roi.width, y, from, to);
  lastColumn(roi, from, lumaT, lastCb, to);
  return tolkStatusOk;
}

TolkStatus reference::tolkBGRToCbYCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const auto from = packedReversed(4, src, srcStep);
  const auto to = packedCbYCr422(dst, dstStep);
  walkGroups(roi, kPair, from, 8, kShiftBlock, kShiftTail, to);
  lastColumn(roi, from, lumaT, lastCb, to);
  return tolkStatusOk;
}

TolkStatus reference::tolkBGRToCbYCr422_709HDTV_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                          int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const auto from = packedReversed(4, src, srcStep);
  const auto to = packedCbYCr422(dst, dstStep);
  walkGroups(roi, kPair, from, 8, kHdtvSignedBlock, kHdtvTail, to);
  lastColumn(roi, from, lumaHdtvTail, lastCbHdtv, to);
  return tolkStatusOk;
}

TolkStatus reference::tolkBGRToCbYCr422_709HDTV_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                         int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const auto from = packedReversed(3, src, srcStep);
  const auto to = packedCbYCr422(dst, dstStep);
  walkGroups(roi, kPair, from, 16, kHdtvUnsignedBlock, kHdtvTail, to);
  lastColumn(roi, from, lumaHdtvTail, lastCbHdtv, to);
  return tolkStatusOk;
}
