// Plain scalar reference of the conversions between 4:2:2 and 4:2:0 of interlaced pictures.
#include "planes.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// Row y of 4:2:0 from 4:2:2.
Integer down(const Channel& s, Integer x, Integer y) {
  const Integer group = y / 2 * 4;
  return y % 2 == 0 ? fl(3 * s.at(x, group) + s.at(x, group + 2) + 2, 4)
                    : fl(s.at(x, group + 1) + 3 * s.at(x, group + 3) + 2, 4);
}

// Row y of h rows of 4:2:2 from 4:2:0.
Integer up(const Channel& s, Integer x, Integer y, Integer h) {
  if (y < 2) return s.at(x, y);
  if (y >= h - 2) return s.at(x, y - h / 2);
  const Integer base = (y - 2) / 4 * 2;
  switch ((y - 2) % 4) {
    case 0:
      return fl(5 * s.at(x, base) + 3 * s.at(x, base + 2) + 4, 8);
    case 1:
      return fl(7 * s.at(x, base + 1) + s.at(x, base + 3) + 4, 8);
    case 2:
      return fl(s.at(x, base) + 7 * s.at(x, base + 2) + 4, 8);
    default:
      return fl(3 * s.at(x, base + 1) + 5 * s.at(x, base + 3) + 4, 8);
  }
}

// Whole groups of 2 columns by 4 rows are converted.
TolkStatus result(TolkSize roi) { return roi.width % 2 != 0 || roi.height % 4 != 0 ? tolkStatusOddSize : tolkStatusOk; }
TolkStatus interlacedDown(TolkSize roi, const Source& from, const Target& to) {
  const int32_t w = roi.width & ~1, h = roi.height & ~3;
  resample(from, to, {w, h}, {w / 2, h / 2}, down);
  return result(roi);
}
TolkStatus interlacedUp(TolkSize roi, const Source& from, const Target& to) {
  const int32_t w = roi.width & ~1, h = roi.height & ~3;
  resample(from, to, {w, h}, {w / 2, h}, [&](const Channel& s, Integer x, Integer y) { return up(s, x, y, h); });
  return result(roi);
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYCbCr422To420_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                         uint8_t* const dst[3], const int32_t dstStep[3],
                                                         TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 4)})) return fault;
  return interlacedDown(roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToYCbCr420_Interlace_8u_C2P3R(const uint8_t* src, int32_t srcStep,
                                                                uint8_t* const dst[3], const int32_t dstStep[3],
                                                                TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 4)})) return fault;
  return interlacedDown(roi, packedCbYCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420To422_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                         uint8_t* const dst[3], const int32_t dstStep[3],
                                                         TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 4)})) return fault;
  return interlacedUp(roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToCbYCr422_Interlace_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                                uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2, 4)})) return fault;
  return interlacedUp(roi, planarYCbCr(src, srcStep), packedCbYCr422(dst, dstStep));
}
