// Runs a command where the processor has a class's instructions, else reports the test as skipped.
#include <unistd.h>

#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s ssse3|avx2 COMMAND [ARGUMENT]...\n", argv[0]);
    return 2;
  }
  const bool avx2 = std::strcmp(argv[1], "avx2") == 0;
  if (avx2 && !__builtin_cpu_supports("avx2")) {
    std::fprintf(stderr, "skipped: this processor has no AVX2\n");
    return 77;
  }
  execv(argv[2], argv + 2);
  std::perror(argv[2]);
  return 2;
}
