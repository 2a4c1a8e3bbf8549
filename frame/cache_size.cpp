// The size of the largest cache: the word of a companion library, if the process has it, or the system's.
#include "frame/cache_size.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>

#include "tolkcolor.h"

extern "C" [[gnu::weak, gnu::visibility("default")]] TolkStatus tolkGetMaxCacheSizeB(int32_t* bytes);

namespace tolk {

ptrdiff_t largestCacheSize() {
  if (tolkGetMaxCacheSizeB != nullptr) {
    int32_t bytes = 0;
    return tolkGetMaxCacheSizeB(&bytes) == tolkStatusOk ? bytes : PTRDIFF_MAX;
  }
  const long bytes =
      std::max({sysconf(_SC_LEVEL2_CACHE_SIZE), sysconf(_SC_LEVEL3_CACHE_SIZE), sysconf(_SC_LEVEL4_CACHE_SIZE)});
  return bytes > 0 ? bytes : PTRDIFF_MAX;
}

}  // namespace tolk
