// Conversions between 4:2:2 and 4:2:0 of interlaced pictures: chroma rows are mixed within their field.
#include "chroma/mixed_rows.h"
#include "frame/checks.h"

using namespace tolk;

namespace {

// A chroma row of 4:2:0 is of two rows of its field; the outer one weighs more.
template <class Image>
auto fieldsDown(const Image& image) {
  return mixedRows<2, 2>(image, [](ptrdiff_t row) {
    const ptrdiff_t field = row % 2, first = row / 2 * 4 + field;
    const int weight = field == 0 ? 3 : 1;
    return WeightedRows<2>{{first, first + 2}, {weight, 4 - weight}};
  });
}

// The weights of a chroma row of 4:2:2 in eighths; the first and last two rows are copies.
auto fieldsUp(const PlanarGroups<2, 2>& image, ptrdiff_t height) {
  return mixedRows<1, 3>(image, [height](ptrdiff_t y) {
    constexpr int kFirst[4] = {5, 7, 1, 3};
    const ptrdiff_t field = y % 2, last = height / 2 - 2 + field;
    if (y < 2) return WeightedRows<2>{{field, field}, {8, 0}};
    if (y >= height - 2) return WeightedRows<2>{{last, last}, {8, 0}};
    const ptrdiff_t first = (y - 2) / 4 * 2 + field;
    const int weight = kFirst[(y - 2) % 4];
    return WeightedRows<2>{{first, first + 2}, {weight, 8 - weight}};
  });
}

}  // namespace

TolkStatus tolkYCbCr422To420_Interlace_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                              uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 4}))) return fault;
  relayout(wholeGroups<2, 4>(roi), fieldsDown(fromPlanes<2, 1>(src, srcStep)), toPlanes<2, 2>(dst, dstStep));
  return oddSize<2, 4>(roi);
}

TolkStatus tolkCbYCr422ToYCbCr420_Interlace_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                     const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 4}))) return fault;
  relayout(wholeGroups<2, 4>(roi), fieldsDown(from422<CbYCr422>(src, srcStep)), toPlanes<2, 2>(dst, dstStep));
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
