// Plain scalar reference of the resampling between planar 4:2:0, 4:1:1 and one chroma pair per 4 by 4 pixels.
#include "planes.h"
#include "reference_declarations.h"

namespace reference {
namespace {

Integer meanOf(bool rounded, Integer u, Integer v) { return rounded ? avg(u, v) : mean(u, v); }

// The columns that round: those before the last 1 to 16.
Integer roundedColumns(Integer columns) { return columns - ((columns - 1) % 16 + 1); }

// Column x of a row of twice as many columns.
Integer widened(const Channel& s, Integer x, Integer row, Integer columns) {
  const Integer i = x / 2;
  if (x % 2 == 0 || i == columns - 1) return s.at(i, row);
  return meanOf(i < roundedColumns(columns), s.at(i, row), s.at(i + 1, row));
}

Integer decimated(const Channel& s, Integer x, Integer y) { return s.at(2 * x, 2 * y); }

Integer doubled(const Channel& s, Integer x, Integer y, Integer columns, Integer rows) {
  const Integer k = y / 2;
  if (y == 2 * rows - 1) return s.at(x / 2, k);
  if (y % 2 == 0) return widened(s, x, k, columns);
  return meanOf(x / 2 < roundedColumns(columns), widened(s, x, k, columns), widened(s, x, k + 1, columns));
}

// A single source row has one past it, which the last output row takes.
Integer heightened(const Channel& s, Integer x, Integer y, Integer columns, Integer rows) {
  const Integer k = y / 2;
  if (y % 2 == 0 || (rows > 1 && k == rows - 1)) return s.at(2 * x, k);
  return meanOf(x < (columns & ~31), s.at(2 * x, k), s.at(2 * x, k + 1));
}

TolkStatus checks(TolkSize roi, const uint8_t* const* src, uint8_t* const* dst, int minHeight, int heightUnit) {
  return firstFault({planes(src), planes(dst), size(roi, 4, minHeight),
                     roi.width % 4 != 0 || roi.height % heightUnit != 0 ? tolkStatusBadSize : tolkStatusOk});
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYCbCr1620To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = checks(roi, src, dst, 4, 4)) return fault;
  resample(planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep), roi, {roi.width / 2, roi.height / 2},
           [&](const Channel& s, Integer x, Integer y) { return doubled(s, x, y, roi.width / 4, roi.height / 4); });
  return tolkStatusOk;
}

TolkStatus reference::tolkYCbCr420To1620_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = checks(roi, src, dst, 4, 4)) return fault;
  resample(planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep), roi, {roi.width / 4, roi.height / 4}, decimated);
  return tolkStatusOk;
}

TolkStatus reference::tolkYCbCr411To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                               uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = checks(roi, src, dst, 4, 4)) return fault;
  resample(planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep), roi, {roi.width / 2, roi.height / 2},
           [&](const Channel& s, Integer x, Integer y) { return widened(s, x, 2 * y, roi.width / 4); });
  return tolkStatusOk;
}

TolkStatus reference::tolkYCbCr420To411_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                               uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = checks(roi, src, dst, 2, 2)) return fault;
  resample(planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep), roi, {roi.width / 4, roi.height},
           [&](const Channel& s, Integer x, Integer y) { return heightened(s, x, y, roi.width / 4, roi.height / 2); });
  return tolkStatusOk;
}
