// RGB to CbYCr 4:2:2 with filtered chroma.
#include "frame/checks.h"
#include "lumachroma/filtered_chroma.h"

using namespace tolk;

TolkStatus tolkRGBToCbYCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return encodeFiltered(roi, from<RGB3>(src, srcStep), to422<ToCbYCr422>(dst, dstStep));
}
