// Converts four RGB pixels to Y, Cb and Cr planes and back: cc planar_round_trip.c -ltolkcolor
#include <stdio.h>
#include <tolkcolor.h>

int main(void) {
  const uint8_t rgb[12] = {255, 0, 0, 0, 255, 0, 0, 0, 255, 200, 150, 100};
  uint8_t y[4], cb[4], cr[4], back[12], *const planes[3] = {y, cb, cr};
  const TolkSize size = {4, 1};
  TolkStatus status = tolkRGBToYCbCr_8u_C3P3R(rgb, 12, planes, 4, size);
  if (!status) status = tolkYCbCrToRGB_8u_P3C3R((const uint8_t* const*)planes, 4, back, 12, size);
  for (int i = 0; i < 4 && !status; ++i)
    printf("%d %d %d -> %d %d %d\n", y[i], cb[i], cr[i], back[3 * i], back[3 * i + 1], back[3 * i + 2]);
  return status;
}
