// Converts a region of a bottom-up BGR image to NV12: cc bottom_up.c -ltolkcolor
#include <stdio.h>
#include <tolkcolor.h>

enum { width = 64, height = 48 };
static uint8_t image[height][width * 3];  // the last row in memory is the top of the picture
static uint8_t luma[20][33], chroma[10][32];

int main(void) {
  for (int row = 0; row < height; ++row)
    for (int i = 0; i < 3 * width; ++i)
      image[row][i] = (uint8_t)(5 * (height - 1 - row));  // brighter toward the bottom
  //! [region]
  const int x = 8, y = 4;          // where the region begins, from the top left of the picture
  const TolkSize size = {33, 20};  // an odd width: 4:2:0 has no chroma for the last column
  const uint8_t* first = image[height - 1 - y] + 3 * x;
  const int32_t upward = -(int32_t)sizeof image[0];
  TolkStatus status =
      tolkBGRToYCbCr420_8u_C3P2R(first, upward, luma[0], sizeof luma[0], chroma[0], sizeof chroma[0], size);
  if (status < 0) return 1;  // an argument is wrong, and nothing was written
  if (status == tolkStatusOddSize) puts("the last column was left out");
  //! [region]
  printf("%d %d, %d %d\n", luma[0][0], luma[19][31], chroma[0][0], chroma[9][31]);
  return 0;
}
