// Takes the transfer curve off 16-bit RGB and converts it to XYZ, some rows at a time: cc two_steps.c -ltolkcolor
#include <stdio.h>
#include <tolkcolor.h>

enum { width = 640, height = 480 };
static uint16_t rgb[height][3 * width], xyz[height][3 * width];

//! [steps]
// A band of rows stays in the cache between the two steps; the image in between never exists as a whole.
static TolkStatus toXyz(void) {
  enum { rows = 16 };
  static uint16_t linear[rows][3 * width];
  for (int y = 0; y < height; y += rows) {
    const TolkSize band = {width, y + rows < height ? rows : height - y};
    TolkStatus status = tolkGammaInv_16u_C3R(rgb[y], sizeof rgb[0], linear[0], sizeof linear[0], band);
    if (!status) status = tolkRGBToXYZ_16u_C3R(linear[0], sizeof linear[0], xyz[y], sizeof xyz[0], band);
    if (status) return status;
  }
  return tolkStatusOk;
}
//! [steps]

int main(void) {
  for (int i = 0; i < height * width * 3; ++i) rgb[i / (3 * width)][i % (3 * width)] = 65535;
  TolkStatus status = toXyz();
  printf("white: X %d, Y %d, Z %d\n", xyz[0][0], xyz[0][1], xyz[0][2]);
  return status;
}
