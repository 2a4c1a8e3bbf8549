// Packed rows of even and odd width worked out by hand, in the library and in the reference.
#include "harness/compare.h"

namespace {

struct Row {
  std::vector<uint16_t> samples;
  std::vector<uint8_t> packed;
  std::vector<uint16_t> unpacked;
};
const Row kRows[] = {
    {{0xABCD}, {0xBC, 0xD0}, {0x0BCD}},
    {{0xABCD, 0x1234}, {0xBC, 0xD2, 0x34}, {0x0BCD, 0x0234}},
    {{0xF001, 0x0FFF, 0x0800}, {0x00, 0x1F, 0xFF, 0x80, 0x00}, {0x0001, 0x0FFF, 0x0800}},
};

// Rows that are `pairs` pairs longer; bytes past them stay.
template <class Sample>
std::vector<Sample> longer(std::vector<Sample> row, const std::vector<Sample>& pair, int pairs) {
  for (int i = 0; i < pairs; ++i) row.insert(row.begin(), pair.begin(), pair.end());
  return row;
}

template <class From, class To>
void expectRow(const char* name, std::vector<From> from, std::vector<To> want, size_t width) {
  const harness::Subject& subject = harness::subject(name);
  for (void* function : {subject.tested, subject.expected}) {
    std::vector<To> to(want.size() + 5, 99);
    tolk::Call call;
    call.roi = {static_cast<int32_t>(width), 1};
    call.src = {{from.data()}, {1}};
    call.dst = {{to.data()}, {1}};
    ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
    EXPECT_EQ(std::vector(to.begin(), to.end() - 5), want) << name << ", width " << width;
    EXPECT_EQ(std::vector(to.end() - 5, to.end()), std::vector<To>(5, 99)) << name << ", width " << width;
  }
}

TEST(Pack12, RowsOfEvenAndOddWidth) {
  for (const Row& row : kRows)
    for (const int pairs : {0, 1, 33, 100}) {
      const auto samples = longer(row.samples, {0xFEDC, 0xF321}, pairs);
      const auto packed = longer(row.packed, {0xED, 0xC3, 0x21}, pairs);
      const auto unpacked = longer(row.unpacked, {0x0EDC, 0x0321}, pairs);
      expectRow("tolkPack_16u12u_C1R", samples, packed, samples.size());
      expectRow("tolkUnpack_12u16u_C1R", packed, unpacked, samples.size());
    }
}

TEST(Pack12, LowHalfOfTheLastByteIsNotRead) {
  expectRow<uint8_t, uint16_t>("tolkUnpack_12u16u_C1R", {0xBC, 0xDF}, {0x0BCD}, 1);
}

}  // namespace
