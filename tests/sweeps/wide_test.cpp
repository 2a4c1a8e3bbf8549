// A row of more columns than 31 bits count: the same memory again and again, but for the row's last columns.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "harness/compare.h"

namespace {

constexpr int64_t kPage = 4096, kPeriod = int64_t{1} << 20;

// `size` bytes, whole pages, that repeat after kPeriod and end at a guard page; the last period is memory of its own.
class RepeatedMemory {
 public:
  explicit RepeatedMemory(int64_t size) : size_(size) {
    const int file = memfd_create("period", 0);
    void* memory =
        mmap(nullptr, static_cast<size_t>(size + kPage), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    bool mapped = file >= 0 && ftruncate(file, kPeriod) == 0 && memory != MAP_FAILED;
    base_ = static_cast<uint8_t*>(memory);
    constexpr int kAccess = PROT_READ | PROT_WRITE;
    for (int64_t at = 0; mapped && at < size; at += kPeriod) {
      const bool last = at + kPeriod >= size;
      mapped = mmap(base_ + at, static_cast<size_t>(std::min(kPeriod, size - at)), kAccess,
                    MAP_FIXED | (last ? MAP_PRIVATE : MAP_SHARED), file, 0) != MAP_FAILED;
    }
    if (file >= 0) close(file);
    if (mapped) return;
    std::perror("cannot map repeated memory");
    std::exit(2);
  }
  ~RepeatedMemory() { munmap(base_, static_cast<size_t>(size_ + kPage)); }
  RepeatedMemory(const RepeatedMemory&) = delete;
  RepeatedMemory& operator=(const RepeatedMemory&) = delete;
  uint8_t* end() const { return base_ + size_; }

 private:
  int64_t size_;
  uint8_t* base_;
};

}  // namespace

TEST(WideRows, MoreThan31Bits) {
  constexpr int64_t kWidth = (int64_t{1} << 31) + 1031, kBytes = kWidth * 4;
  constexpr int64_t kMapped = (kBytes + kPage - 1) / kPage * kPage;
  const harness::Subject& subject = harness::subject("tolkLabToRGB_32f_P3R_L");
  harness::announce("tolkLabToRGB_32f_P3R_L, more columns than 31 bits count");
  const RepeatedMemory lab(kMapped), red(kMapped), green(kMapped), blue(kMapped);
  const RepeatedMemory* const channels[] = {&red, &green, &blue};
  // One plane serves for all three: lightness from 0 to 100, and colours far out.
  float sample = 0;
  for (float* p = reinterpret_cast<float*>(lab.end() - kMapped);
       p < reinterpret_cast<float*>(lab.end() - kMapped + kPeriod);)
    *p++ = sample = sample < 100 ? sample + 0.01f : 0;
  tolk::Call call;
  call.roiL = {kWidth, 1};
  for (size_t i = 0; i < 3; ++i) {
    call.src.plane[i] = lab.end() - kBytes;
    call.dst.plane[i] = channels[i]->end() - kBytes;
    call.src.step[i] = call.dst.step[i] = kBytes;
  }
  ASSERT_EQ(subject.function->invoke(subject.tested, call), tolkStatusOk);

  for (const int64_t first : {kWidth - 5000, kWidth - 5000 - kPeriod / 4}) {
    std::vector<float> want[3];
    tolk::Call part;
    part.roiL = {5000, 1};
    for (size_t i = 0; i < 3; ++i) {
      want[i].resize(5000);
      part.src.plane[i] = lab.end() - kBytes + 4 * first;
      part.dst.plane[i] = want[i].data();
      part.src.step[i] = part.dst.step[i] = 20000;
    }
    ASSERT_EQ(subject.function->invoke(subject.expected, part), tolkStatusOk);
    for (size_t i = 0; i < 3; ++i)
      EXPECT_EQ(std::memcmp(channels[i]->end() - kBytes + 4 * first, want[i].data(), 20000), 0) << "channel " << i;
  }
}
