/* A function that does its work and warns. */
#include "tolkcolor.h"

TolkStatus tolkRGBToYCbCr_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  (void)srcStep, (void)dstStep, (void)roi;
  dst[0] = src[0];
  return tolkStatusOddSize;
}
