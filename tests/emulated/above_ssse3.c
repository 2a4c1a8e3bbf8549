// Uses the last instruction set that the base library may have, and then the next one.
#include <stdio.h>

int main(void) {
  __asm__ volatile("pabsb %%xmm0, %%xmm0" ::: "xmm0");
  puts("SSSE3");
  fflush(stdout);
  __asm__ volatile("ptest %%xmm0, %%xmm0" ::: "cc");
  puts("SSE4.1");
  return 0;
}
