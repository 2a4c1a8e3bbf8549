// Two threads convert the two bands of one image.
#include <latch>
#include <thread>

#include "sweeps/all_functions.h"

class Threads : public AllFunctions {};
INSTANTIATE_TEST_SUITE_P(All, Threads, testing::ValuesIn(harness::subjects()), functionName);

// The lower half of an image: as far down as the upper half has rows.
static tolk::Side lowerBand(tolk::Side side, const tolk::SideInfo& info, TolkSize band) {
  const auto shapes = planeShapes(info, band);
  for (size_t i = 0; i < shapes.size(); ++i)
    side.plane[i] = static_cast<uint8_t*>(side.plane[i]) + shapes[i].rows * side.step[i];
  return side;
}

TEST_P(Threads, BandsOfOneImage) {
  constexpr TolkSize kBand{333, 32};
  constexpr harness::Layout kOdd{.rows = harness::Layout::Block, .padding = 3, .alignment = 1};
  const tolk::Function& f = *GetParam().function;
  const harness::Case whole{&GetParam(), {kBand.width, 2 * kBand.height}, kOdd, kOdd};
  harness::Rig& rig = harness::sharedRig();
  rig.prepare(whole);
  auto bands = [&](const harness::Images& images) {
    tolk::Call upper = images.call(whole);
    upper.roi = kBand;
    tolk::Call lower = upper;
    lower.src = lowerBand(upper.src, f.inPlace ? f.dst : f.src, kBand);
    lower.dst = lowerBand(upper.dst, f.dst, kBand);
    static std::array<uint8_t, 1 << 16> lowerScratch;                         // two calls must not share theirs
    if (upper.buffer) lower.buffer = &lowerScratch[lowerScratch.size() / 2];  // its rows may go upward
    return std::pair(upper, lower);
  };
  const int rounds = f.inPlace ? 1 : 100;  // long enough for the calls to overlap
  std::latch bothReady(2);
  auto convert = [&](const tolk::Call& call) {
    bothReady.arrive_and_wait();
    for (int i = 0; i < rounds; ++i) rig.callTested(call);
  };
  const auto [upper, lower] = bands(rig.tested);
  std::thread first(convert, upper), second(convert, lower);
  first.join();
  second.join();
  const auto [expectedUpper, expectedLower] = bands(rig.expected);
  rig.callExpected(expectedUpper);
  rig.callExpected(expectedLower);
  ASSERT_TRUE(rig.compare());
}
