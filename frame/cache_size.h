// The size of the processor's largest cache.
#pragma once

#include <cstddef>

namespace tolk {

// In bytes; PTRDIFF_MAX where it is not known. Asking costs about as much as some kilobytes of work.
ptrdiff_t largestCacheSize();

}  // namespace tolk
