// Plain scalar reference of the encoders from RGB and BGR to 4:2:0 and 4:1:1.
#include "groups.h"
#include "reference_declarations.h"

namespace reference {
namespace {

constexpr GroupSize kSquare = {2, 2};
constexpr GroupSize kFour = {4, 1};

Integer rnd10(Integer s, Integer c) { return fl(s * c + 512, 1024); }
Integer m11(Integer s, Integer c) { return fl(s * c, 2048); }

// The common sum of forms H before its bias, in units of 1/64.
Integer lumaSumH(Integer R, Integer G, Integer B) { return rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606); }
Integer lumaH1056(Integer R, Integer G, Integer B) { return clamp8(fl(lumaSumH(R, G, B) + 1056, 64)); }
Integer lumaH1026(Integer R, Integer G, Integer B) { return clamp8(fl(lumaSumH(R, G, B) + 1026, 64)); }
Integer luma411H(Integer R, Integer G, Integer B) { return clamp8(fl(lumaSumH(R, G, B), 64) + 16); }

Chroma chromaH(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768)) + 8194, 64)),
          clamp8(fl(rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029)) + 8194, 64))};
}
Chroma chroma411H(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768)), 64) + 128),
          clamp8(fl(rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029)), 64) + 128)};
}

Chroma chromaU(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(m11(Bs, 28770) - (m11(Rs, 9699) + m11(Gs, 19071)) + 16400, 128)),
          clamp8(fl(m11(Rs, 28770) - (m11(Gs, 24117) + m11(Bs, 4653)) + 16400, 128))};
}

Integer lumaV(Integer R, Integer G, Integer B) { return fl(mu8(R, 5997) + mu8(G, 20120) + mu8(B, 2032) + 2112, 128); }
Chroma chromaV(Integer Rs, Integer Gs, Integer Bs) {
  return {clamp8(fl(m11(Bs, 28770) - (m11(Rs, 6619) + m11(Gs, 22151)) + 16400, 128)),
          clamp8(fl(m11(Rs, 28770) - (m11(Gs, 26149) + m11(Bs, 2621)) + 16400, 128))};
}

Chroma chromaW(Integer Rs, Integer Gs, Integer Bs) {
  return {lim(fl(m11(Bs, 16744) - (m11(Rs, 3834) + m11(Gs, 12911)) + 8224, 64)),
          lim(fl(m11(Rs, 16744) - (m11(Gs, 15204) + m11(Bs, 1540)) + 8224, 64))};
}

Chroma chromaTail601(Integer Rs, Integer Gs, Integer Bs) {
  return {fl(-9699 * Rs - 19071 * Gs + 28770 * Bs + 33587200, 262144),
          fl(28770 * Rs - 24117 * Gs - 4653 * Bs + 33587200, 262144)};
}

Integer lumaTail709(Integer R, Integer G, Integer B) { return fl(11993 * R + 40239 * G + 4063 * B + 1081344, 65536); }
Chroma chromaTail709(Integer Rs, Integer Gs, Integer Bs) {
  return {fl(-6619 * Rs - 22151 * Gs + 28770 * Bs + 33587200, 262144),
          fl(28770 * Rs - 26149 * Gs - 2621 * Bs + 33587200, 262144)};
}

Chroma chromaTailW(Integer Rs, Integer Gs, Integer Bs) {
  return {lim(fl(-7668 * Rs - 25821 * Gs + 33489 * Bs + 33587200, 262144)),
          lim(fl(33489 * Rs - 30409 * Gs - 3080 * Bs + 33587200, 262144))};
}

constexpr GroupForm kBlockH1056 = {lumaH1056, chromaH};
constexpr GroupForm kBlockH1026 = {lumaH1026, chromaH};
constexpr GroupForm kBlock411H = {luma411H, chroma411H};
constexpr GroupForm kBlockU = {lumaShift, chromaU};
constexpr GroupForm kTail601 = {lumaT, chromaTail601};
constexpr GroupForm kBlockV = {lumaV, chromaV};
constexpr GroupForm kTail709 = {lumaTail709, chromaTail709};
constexpr GroupForm kBlockW = {lumaHdtvBlock, chromaW};
constexpr GroupForm kTailW = {lumaHdtvTail, chromaTailW};

template <typename Source>
TolkStatus encode(TolkSize roi, GroupSize group, const Source& from, int block, const GroupForm& blockForm,
                  const GroupForm& tailForm, const Target& to) {
  walkGroups(roi, group, from, block, blockForm, tailForm, to);
  return roi.width % group.width || roi.height % group.height ? tolkStatusOddSize : tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkBGRToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 8, kBlockH1056, kTail601, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCrCb420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 8, kBlockH1056, kTail601, planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                                 uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 8, kBlockH1026, kTail601,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkBGRToYCbCr420_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                                  uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 8, kBlockH1026, kTail601,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkRGBToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                                 uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi)})) return fault;
  return encode(roi, kSquare, packed(3, src, srcStep), 8, kBlockH1026, kTail601,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkRGBToYCbCr420_8u_C4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                                 uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi)})) return fault;
  return encode(roi, kSquare, packed(4, src, srcStep), 8, kBlockH1026, kTail601,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkRGBToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(dst)})) return fault;
  return encode(roi, kSquare, packed(3, src, srcStep), 8, kBlockH1026, kTail601, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                  const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 4, kBlockU, kTail601, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                  const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 4, kBlockU, kTail601, planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                  const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packed(4, src, srcStep), 4, kBlockU, kTail601, planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                        const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 4, kBlockV, kTail709, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                         const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 4, kBlockV, kTail709, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCrCb420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                        const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 4, kBlockV, kTail709, planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCrCb420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                         const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 4, kBlockV, kTail709, planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr420_709CSC_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                        int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                        TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(3, src, srcStep), 8, kBlockV, kTail709,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkBGRToYCbCr420_709CSC_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                         int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                         TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 8, kBlockV, kTail709,
                twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkBGRToYCbCr420_709HDTV_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                          const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return encode(roi, kSquare, packedReversed(4, src, srcStep), 4, kBlockW, kTailW, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr411_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 4)})) return fault;
  return encode(roi, kFour, packedReversed(3, src, srcStep), 16, kBlock411H, kTail601, planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkBGRToYCbCr411_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                  const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 4)})) return fault;
  return encode(roi, kFour, packedReversed(4, src, srcStep), 16, kBlockU, kTail601, planarYCbCr(dst, dstStep));
}
