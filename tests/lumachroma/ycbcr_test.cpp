// Values and statuses of the full-resolution YCbCr family worked out by hand, in the library and in the reference.
#include <array>

#include "harness/compare.h"

namespace {

using harness::Image;
using Pixel = std::array<int, 3>;

// Both implementations' images of one row with equal contents; the source holds `pixel` in every column.
harness::Rig& rowOf(const harness::Case& c, const Pixel& pixel) {
  harness::Rig& rig = harness::sharedRig();
  rig.prepare(c);
  for (const Image* image : {&rig.tested.src, &rig.expected.src})
    for (int32_t x = 0; x < c.roi.width; ++x)
      for (int channel = 0; channel < 3; ++channel)
        image->at(x, 0, channel) = static_cast<uint8_t>(pixel[static_cast<size_t>(channel)]);
  return rig;
}

harness::Case row(const char* function, int32_t width) { return {&harness::subject(function), {width, 1}, {}, {}}; }

TEST(YCbCr, ValuesThatDependOnTheColumn) {
  struct Value {
    const char* function;
    int32_t width, column;
    Pixel from, to;
  };
  constexpr Value kValues[] = {
      {"tolkRGBToYCbCr_8u_C3R", 16, 0, {0, 0, 3}, {16, 129, 127}},     // forward A
      {"tolkRGBToYCbCr_8u_C3R", 17, 16, {0, 0, 3}, {16, 129, 128}},    // forward T
      {"tolkRGBToYCbCr_8u_AC4R", 15, 0, {0, 0, 3}, {16, 129, 128}},    // forward T
      {"tolkRGBToYCbCr_8u_C3P3R", 15, 7, {0, 9, 39}, {24, 142, 122}},  // forward B
      {"tolkRGBToYCbCr_8u_C3P3R", 15, 8, {0, 9, 39}, {24, 143, 122}},  // forward T
      {"tolkRGBToYCbCr_8u_P3R", 15, 0, {0, 9, 39}, {24, 143, 122}},    // forward T
      {"tolkRGBToYCbCr_8u_C3R", 16, 15, {0, 0, 0}, {16, 128, 128}},    //
      {"tolkRGBToYCbCr_8u_AC4P3R", 8, 7, {0, 0, 0}, {16, 128, 128}},   //
      {"tolkRGBToYCbCr_8u_C3R", 17, 15, {255, 255, 255}, {235, 128, 128}},
      {"tolkRGBToYCbCr_8u_P3R", 17, 0, {255, 255, 255}, {235, 128, 128}},
      {"tolkRGBToYCbCr_8u_P3R", 17, 16, {255, 255, 255}, {235, 128, 128}},
      {"tolkYCbCrToRGB_8u_C3R", 9, 0, {0, 128, 128}, {0, 0, 0}},  // sums below 0
      {"tolkYCbCrToRGB_8u_C3R", 9, 8, {255, 128, 255}, {255, 175, 255}},
      {"tolkYCbCrToRGB_8u_P3R", 5, 3, {235, 128, 128}, {254, 254, 254}},  // inverse B does not round
      {"tolkYCbCrToRGB_8u_P3R", 5, 4, {235, 128, 128}, {255, 255, 255}},
      {"tolkYCbCrToRGB_8u_AC4R", 8, 0, {16, 128, 128}, {0, 0, 0}},
  };
  for (const Value& value : kValues) {
    const harness::Case c = row(value.function, value.width);
    harness::Rig& rig = rowOf(c, value.from);
    ASSERT_TRUE(rig.run());
    for (const Image* image : {&rig.tested.dst, &rig.expected.dst}) {
      Pixel got{};
      for (int i = 0; i < 3; ++i) got[static_cast<size_t>(i)] = image->at(value.column, 0, i);
      EXPECT_EQ(got, value.to) << describe(c) << ", column " << value.column;
    }
  }
}

TEST(YCbCr, FourthByte) {
  enum Expectation { Kept, Zero, Alpha };
  struct Rule {
    const char* function;
    int32_t width, column;
    Expectation fourth;
  };
  constexpr Rule kRules[] = {
      {"tolkRGBToYCbCr_8u_AC4R", 16, 15, Zero}, {"tolkRGBToYCbCr_8u_AC4R", 15, 0, Kept},
      {"tolkRGBToYCbCr_8u_AC4R", 33, 31, Zero}, {"tolkRGBToYCbCr_8u_AC4R", 33, 32, Kept},
      {"tolkYCbCrToRGB_8u_AC4R", 32, 0, Kept},  {"tolkYCbCrToRGB_8u_AC4R", 3, 2, Kept},
      {"tolkYCbCrToRGB_8u_P3C4R", 9, 0, Alpha}, {"tolkYCbCrToRGB_8u_P3C4R", 9, 8, Alpha},
      {"tolkYCbCrToBGR_8u_P3C4R", 1, 0, Alpha}, {"tolkYCbCrToBGR_709CSC_8u_P3C4R", 1, 0, Alpha},
  };
  for (const Rule& rule : kRules) {
    const harness::Case c = row(rule.function, rule.width);
    harness::Rig& rig = rowOf(c, {100, 100, 100});
    for (const harness::Images* images : {&rig.tested, &rig.expected}) images->dst.at(rule.column, 0, 3) = 0x5A;
    ASSERT_TRUE(rig.run());
    const double want = rule.fourth == Kept ? 0x5A : rule.fourth == Zero ? 0 : rig.tested.call(c).alpha;
    for (const harness::Images* images : {&rig.tested, &rig.expected})
      EXPECT_EQ(images->dst.at(rule.column, 0, 3), want) << describe(c) << ", column " << rule.column;
  }
}

// Where planes are tested after the size, a bad size wins over a null plane.
TEST(YCbCr, NullPlaneOfABadSize) {
  for (const harness::Subject& subject : harness::subjects()) {
    if (subject.function->family != "YCbCr at full resolution") continue;
    const std::string_view name = subject.function->name;
    const bool planesLast =
        name == "tolkRGBToYCbCr_8u_P3R" || name == "tolkYCbCrToRGB_8u_P3R" || name == "tolkYCbCrToRGB_8u_P3C4R";
    const TolkStatus want = planesLast ? tolkStatusBadSize : tolkStatusNullPointer;
    const harness::Case c{&subject, {8, 1}, {}, {}};
    harness::Rig& rig = harness::sharedRig();
    rig.prepare(c);
    for (tolk::Side tolk::Call::*side : {&tolk::Call::src, &tolk::Call::dst}) {
      tolk::Call call = rig.tested.call(c);
      const bool planar = (call.*side).plane[2] != nullptr;
      (call.*side).plane[planar ? 2 : 0] = nullptr;
      call.roi.height = 0;
      EXPECT_EQ(rig.callTested(call), planar ? want : tolkStatusNullPointer) << name;
      EXPECT_EQ(rig.callExpected(call), planar ? want : tolkStatusNullPointer) << name;
    }
  }
}

}  // namespace
