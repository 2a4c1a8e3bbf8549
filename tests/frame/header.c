/* The public header by itself, as C and as C++: it compiles, links and converts a pixel. */
#include "tolkcolor.h"

int main(void) {
  const uint8_t white[3] = {255, 255, 255};
  uint8_t luma[3] = {0, 0, 0};
  TolkSize roi;
  roi.width = 1;
  roi.height = 1;
  if (tolkGetLibVersion()->versionMajor != 2022) return 1;
  if (tolkRGBToYCbCr_8u_C3R(white, 3, luma, 3, roi) != tolkStatusOk) return 2;
  return luma[0] == 235 && luma[1] == 128 && luma[2] == 128 ? 0 : 3;
}
