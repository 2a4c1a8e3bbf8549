/* A function with one wrong bit; or one that crashes, in a library that has no other. */
#define _GNU_SOURCE
#include <dlfcn.h>

#include "tolkcolor.h"

#ifdef CRASHES
const TolkLibraryVersion* tolkGetLibVersion(void) {
  static const TolkLibraryVersion version = {.versionText = "none"};
  return &version;
}
#endif

TolkStatus tolkRGBToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
#ifdef CRASHES
  __builtin_trap();
#endif
  TolkStatus (*right)(const uint8_t*, int32_t, uint8_t*, int32_t, TolkSize);
  *(void**)&right = dlsym(RTLD_NEXT, "tolkRGBToGray_8u_C3C1R");
  const TolkStatus status = right(src, srcStep, dst, dstStep, roi);
  if (!status && roi.width == 37) dst[roi.width - 1] ^= 1;
  return status;
}
