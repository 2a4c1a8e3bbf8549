// Pictures large enough for streamed stores, with every row at a multiple of 16 bytes, or all but those of one plane.
#include <algorithm>
#include <cstring>

#include "sweeps/all_functions.h"

namespace {

constexpr TolkSize kSize{2096, 2056};

struct alignas(64) Line {
  uint8_t at[64];
};

class Pictures {
 public:
  // The plane `off` of the destination starts one byte after a multiple of 16; sources lie anyhow.
  Pictures(const tolk::Function& f, size_t off) {
    call.roi = kSize;
    add(f.src, call.src, 0);
    add(f.dst, call.dst, off);
  }
  bool operator==(const Pictures& other) const {
    auto same = [](const auto& a, const auto& b) { return std::memcmp(&a[0], &b[0], a.size() * sizeof a[0]) == 0; };
    return std::equal(planes_.begin(), planes_.end(), other.planes_.begin(), same);
  }
  tolk::Call call;

 private:
  void add(const tolk::SideInfo& info, tolk::Side& side, size_t off) {
    size_t index = 0;
    for (const tolk::PlaneShape& shape : planeShapes(info, kSize)) {
      const int64_t step = (shape.rowBytes + 40) & -16;  // with slack, so that no plane is one run
      std::vector<Line>& memory = planes_.emplace_back(static_cast<size_t>(step * shape.rows) / sizeof(Line) + 2);
      uint8_t* bytes = memory[0].at;
      for (size_t i = 0; i < memory.size() * sizeof(Line); ++i) bytes[i] = static_cast<uint8_t>(i * 2654435761u >> 13);
      side.plane[index] = bytes + 16 + (index == off ? 1 : 0);
      side.step[index++] = step;
    }
  }
  std::vector<std::vector<Line>> planes_;
};

std::vector<harness::Subject> layoutFunctions() {
  std::vector<harness::Subject> list = harness::subjects();
  std::erase_if(list, [](const harness::Subject& subject) {
    return chromaGroup(subject.function->src).across == 1 || chromaGroup(subject.function->dst).across == 1;
  });
  return list;
}

class Streamed : public AllFunctions {};
INSTANTIATE_TEST_SUITE_P(All, Streamed, testing::ValuesIn(layoutFunctions()), functionName);

TEST_P(Streamed, AsTheReference) {
  const tolk::Function& f = *GetParam().function;
  for (const size_t off : {planeShapes(f.dst, kSize).size(), planeShapes(f.dst, kSize).size() - 1}) {
    const Pictures got(f, off), want(f, off);
    ASSERT_EQ(f.invoke(GetParam().tested, got.call), f.invoke(GetParam().expected, want.call));
    ASSERT_TRUE(got == want) << "plane off by a byte: " << off;
  }
}

}  // namespace
