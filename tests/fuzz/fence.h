// With address sanitizer, every byte beside the rows of images is a fault to the instrumented library.
#pragma once

#include <initializer_list>

#include "harness/guarded_image.h"

extern "C" {
[[gnu::weak]] void __asan_poison_memory_region(const volatile void* address, size_t size);
[[gnu::weak]] void __asan_unpoison_memory_region(const volatile void* address, size_t size);
}

namespace fuzz {

class Fence {
 public:
  explicit Fence(std::initializer_list<const harness::Image*> images) : images_(images) {
    if (!__asan_poison_memory_region) return;
    for (const harness::Image* image : images_)
      for (const harness::Plane& plane : image->planes()) {
        for (const std::span<uint8_t> window : plane.windows) __asan_poison_memory_region(window.data(), window.size());
        for (int64_t y = 0; y < plane.shape.rows; ++y)
          __asan_unpoison_memory_region(plane.first + y * plane.step, static_cast<size_t>(plane.shape.rowBytes));
      }
  }
  ~Fence() {
    if (!__asan_poison_memory_region) return;
    for (const harness::Image* image : images_)
      for (const harness::Plane& plane : image->planes())
        for (const std::span<uint8_t> window : plane.windows)
          __asan_unpoison_memory_region(window.data(), window.size());
  }
  Fence(const Fence&) = delete;
  Fence& operator=(const Fence&) = delete;

 private:
  std::vector<const harness::Image*> images_;
};

}  // namespace fuzz
