// Conversions between 4:2:2 and 4:2:0 of interlaced pictures: chroma rows are mixed within their field.
#include "chroma/mixed_rows.h"
#include "frame/checks.h"

using namespace tolk;

namespace {

// A chroma row of 4:2:0 is of two rows of its field, in eighths: the outer ones weigh more.
template <class RowAt>
auto fieldsDown(RowAt rowAt) {
  using Row = decltype(rowAt(0));
  return mixedRows<2>([rowAt](ptrdiff_t group) {
    const ptrdiff_t field = group % 2, first = group / 2 * 4 + field;
    return MixedRow<Row, 2, 2>{{rowAt(2 * group), rowAt(2 * group + 1)},
                               {rowAt(first), rowAt(first + 2)},
                               {field == 0 ? 6 : 2, field == 0 ? 2 : 6},
                               3};
  });
}

// The weights of a chroma row of 4:2:2 in eighths; the first and last two rows are copies.
auto fieldsUp(const PlanarGroups<2, 2>& planes, ptrdiff_t height) {
  return mixedRows<1>([planes, height](ptrdiff_t y) {
    constexpr int kFirst[4] = {5, 7, 1, 3};
    const bool copy = y < 2 || y >= height - 2;
    const ptrdiff_t first = copy ? y % 2 + (y < 2 ? 0 : height / 2 - 2) : (y - 2) / 4 * 2 + y % 2;
    const int weight = copy ? 8 : kFirst[(y - 2) % 4];
    return MixedRow<PlaneRow, 1, 2>{{planeRow(planes, y, 0)},
                                    {planeRow(planes, y, first), planeRow(planes, y, copy ? first : first + 2)},
                                    {weight, 8 - weight},
                                    3};
  });
}

}  // namespace

TolkStatus tolkYCbCr422To420_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                              uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 4}))) return fault;
  const auto source = fromPlanes<2, 1>(src, srcStep);
  relayout(wholeGroups<2, 4>(roi), fieldsDown([source](ptrdiff_t y) { return source.row(y); }),
           toPlanes<2, 2>(dst, dstStep));
  return oddSize<2, 4>(roi);
}

TolkStatus tolkCbYCr422ToYCbCr420_Interlace_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                     const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 4}))) return fault;
  const auto source = from422<CbYCr422>(src, srcStep);
  relayout(wholeGroups<2, 4>(roi), fieldsDown([source](ptrdiff_t y) { return source.row(y); }),
           toPlanes<2, 2>(dst, dstStep));
  return oddSize<2, 4>(roi);
}

TolkStatus tolkYCbCr420To422_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                              uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 4}))) return fault;
  const TolkSize whole = wholeGroups<2, 4>(roi);
  relayout(whole, fieldsUp(fromPlanes<2, 2>(src, srcStep), whole.height), toPlanes<2, 1>(dst, dstStep));
  return oddSize<2, 4>(roi);
}

TolkStatus tolkYCbCr420ToCbYCr422_Interlace_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                     uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, 4}))) return fault;
  const TolkSize whole = wholeGroups<2, 4>(roi);
  relayout(whole, fieldsUp(fromPlanes<2, 2>(src, srcStep), whole.height), to422<ToCbYCr422>(dst, dstStep));
  return oddSize<2, 4>(roi);
}
