// Values, untouched bytes and statuses of images whose pixels share chroma, worked out by hand.
#include <cstring>

#include "harness/compare.h"

namespace {

constexpr harness::Layout kTight{.rows = harness::Layout::Block};
constexpr uint8_t kOld = 0x5A;  // what the destination holds before the call

// A row of a plane repeats its bytes; each row adds 1 to those of the row above where they climb.
struct Pattern {
  std::vector<std::vector<int>> plane;
  bool climbs = false;
};

harness::Rig& filled(const harness::Case& c, const Pattern& source) {
  harness::Rig& rig = harness::sharedRig();
  rig.prepare(c);
  for (const harness::Images* images : {&rig.tested, &rig.expected}) {
    for (size_t p = 0; p < source.plane.size(); ++p) {
      const harness::Plane& plane = images->src.planes()[p];
      const std::vector<int>& bytes = source.plane[p];
      for (int64_t y = 0; y < plane.shape.rows; ++y)
        for (int64_t i = 0; i < plane.shape.rowBytes; ++i)
          plane.first[y * plane.step + i] =
              static_cast<uint8_t>(bytes[static_cast<size_t>(i) % bytes.size()] + (source.climbs ? y : 0));
    }
    for (const harness::Plane& plane : images->dst.planes())
      for (int64_t y = 0; y < plane.shape.rows; ++y)
        std::memset(plane.first + y * plane.step, kOld, static_cast<size_t>(plane.shape.rowBytes));
  }
  return rig;
}

// The bytes of a destination's row from one on; most spans reach from a block into its tail and to what is left alone.
struct Value {
  const char* function;
  TolkSize size;
  Pattern source;
  TolkStatus status;
  size_t plane;
  int64_t y, from;
  std::vector<int> want;
};

void expectValues(const std::vector<Value>& values) {
  for (const Value& value : values) {
    const harness::Case c{&harness::subject(value.function), value.size, kTight, kTight};
    harness::Rig& rig = filled(c, value.source);
    EXPECT_EQ(rig.callTested(rig.tested.call(c)), value.status) << value.function;
    EXPECT_EQ(rig.callExpected(rig.expected.call(c)), value.status) << value.function;
    for (const harness::Images* images : {&rig.tested, &rig.expected}) {
      const harness::Plane& plane = images->dst.planes()[value.plane];
      const uint8_t* first = plane.first + value.y * plane.step + value.from;
      ASSERT_LE(value.from + static_cast<int64_t>(value.want.size()), plane.shape.rowBytes) << value.function;
      EXPECT_EQ(std::vector<int>(first, first + value.want.size()), value.want) << describe(c);
    }
  }
}

TEST(Subsampled, Encoders) {
  const Pattern kOrange{{{168, 25, 38}}}, kOrangeBgr{{{38, 25, 168}}}, kBlue{{{167, 42, 31, 9}}};
  const Pattern kPink{{{217, 171, 94, 9}}}, kPinkC3{{{217, 171, 94}}}, kBlack{{{0}}}, kWhite{{{255}}};
  const Pattern kSky{{{203, 148, 109}}}, kSkyAC4{{{203, 148, 109, 9}}}, kGray{{{128, 79, 90}}};
  const Pattern kNavy{{{146, 73, 20, 9}}}, kGreen{{{40, 200, 90}}};
  const TolkStatus kOk = tolkStatusOk, kOdd = tolkStatusOddSize;
  expectValues({
      // 4:2:2: the last pair of the block, the pair of the tail, the column that has no pair.
      {"tolkRGBToYCbCr422_8u_C3C2R", {11, 1}, kOrange, kOk, 0, 0, 12, {75, 113, 75, 190, 76, 113, 75, 190, kOld, kOld}},
      {"tolkBGRToYCbCr422_8u_C3C2R", {11, 1}, kOrangeBgr, kOk, 0, 0, 12, {75, 113, 75, 190, 76, 112, 76, 189, kOld}},
      {"tolkRGBToYCbCr422_8u_C3C2R", {1, 1}, kOrange, kOk, 0, 0, 0, {kOld, kOld}},
      {"tolkBGRToCbYCr422_8u_AC4C2R", {11, 1}, kBlue, kOk, 0, 0, 12, {184, 61, 114, 61, 185, 62, 114, 62, 185, 62}},
      {"tolkBGRToCbYCr422_709HDTV_8u_AC4C2R", {11, 1}, kPink, kOk, 0, 0, 14, {86, 158, 161, 158, 86, 158, 161, 158}},
      {"tolkBGRToCbYCr422_709HDTV_8u_AC4C2R", {9, 1}, kPink, kOk, 0, 0, 12, {160, 158, 86, 158, 161, 158}},
      {"tolkBGRToCbYCr422_709HDTV_8u_C3C2R", {18, 1}, kPinkC3, kOk, 0, 0, 28, {161, 158, 87, 158, 161, 158, 86, 158}},
      {"tolkBGRToCbYCr422_709HDTV_8u_C3C2R", {19, 1}, kBlack, kOk, 0, 0, 30, {128, 1, 128, 1, 128, 1, 128, 1}},
      {"tolkBGRToCbYCr422_709HDTV_8u_AC4C2R", {11, 1}, kWhite, kOk, 0, 0, 14, {128, 254, 128, 254, 128, 254, 128, 254}},
      // Filtered: nothing lies left of the first pair, which is pulled toward zero; the carry goes from block to tail.
      {"tolkRGBToCbYCr422_8u_C3C2R", {11, 1}, kGreen, kOk, 0, 0, 0, {110, 136, 81, 136, 103, 136, 66, 136}},
      {"tolkRGBToCbYCr422_8u_C3C2R", {11, 1}, kGreen, kOk, 0, 0, 16, {103, 136, 66, 136, 103, 136}},
      {"tolkRGBToCbYCr422_8u_C3C2R", {5, 1}, kGreen, kOk, 0, 0, 0, {110, 136, 81, 136, 103, 136, 66, 136, 103, 136}},
      // 4:2:0 and 4:1:1.
      {"tolkBGRToYCbCr420_8u_C3P3R", {11, 3}, kSky, kOdd, 0, 1, 6, {139, 139, 139, 139, kOld}},
      {"tolkBGRToYCbCr420_8u_C3P2R", {11, 3}, kSky, kOdd, 0, 1, 6, {138, 138, 139, 139, kOld}},
      {"tolkBGRToYCbCr420_8u_C3P2R", {11, 3}, kSky, kOdd, 0, 2, 0, {kOld, kOld, kOld}},
      {"tolkBGRToYCbCr420_8u_C3P2R", {11, 3}, kSky, kOdd, 1, 0, 6, {157, 107, 158, 107, kOld, kOld}},
      {"tolkBGRToYCrCb420_8u_AC4P3R", {6, 2}, kSkyAC4, kOk, 0, 1, 2, {138, 138, 139, 139}},
      {"tolkBGRToYCrCb420_8u_AC4P3R", {6, 2}, kSkyAC4, kOk, 1, 0, 0, {107, 107, 107}},
      {"tolkBGRToYCrCb420_8u_AC4P3R", {7, 2}, kSkyAC4, kOdd, 2, 0, 0, {158, 158, 158, kOld}},
      {"tolkBGRToYCbCr420_709CSC_8u_C3P3R", {14, 2}, kGray, kOk, 2, 0, 3, {131, 131, 131, 130}},
      {"tolkBGRToYCbCr420_709CSC_8u_C3P2R", {14, 2}, kGray, kOk, 1, 0, 6, {148, 131, 148, 130}},
      {"tolkBGRToYCbCr420_709HDTV_8u_AC4P3R", {6, 2}, kNavy, kOk, 2, 0, 0, {98, 98, 97}},
      {"tolkBGRToYCbCr420_709HDTV_8u_AC4P3R", {6, 2}, kBlack, kOk, 0, 0, 2, {1, 1, 1, 1}},
      {"tolkBGRToYCbCr411_8u_C3P3R", {23, 1}, kSky, kOdd, 0, 0, 14, {138, 138, 139, 139, 139, 139, kOld, kOld, kOld}},
      {"tolkBGRToYCbCr411_8u_C3P3R", {23, 1}, kSky, kOdd, 2, 0, 3, {106, 107, kOld}},
      {"tolkBGRToYCbCr411_8u_AC4P3R", {20, 1}, kSkyAC4, kOk, 1, 0, 3, {158, 158}},
      // YUV: pure red saturates V; the packed form has no room for the V of a last odd column.
      {"tolkRGBToYUV422_8u_C3C2R", {3, 1}, {{{255, 0, 0}}}, kOk, 0, 0, 0, {76, 90, 76, 255, 76, 90}},
      {"tolkRGBToYUV420_8u_C3P3R", {3, 3}, {{{10, 200, 90}}}, kOk, 0, 1, 0, {131, 131, kOld}},
      {"tolkRGBToYUV420_8u_C3P3R", {3, 3}, {{{10, 200, 90}}}, kOk, 2, 0, 0, {22, kOld}},
  });
}

TEST(Subsampled, Decoders) {
  const Pattern kPlanes{{{94}, {171}, {125}}}, kTwoPlanes{{{94}, {171, 125}}}, kCrFirst{{{94}, {125, 171}}};
  const Pattern kYCbCr{{{94, 171, 94, 125}}}, kYCrCb{{{94, 125, 94, 171}}}, kCbYCr{{{171, 94, 125, 94}}};
  const Pattern kYuv{{{63}, {222}, {127}}}, kGroups{{{94}, {171, 60}, {125, 200}}};
  const TolkStatus kOk = tolkStatusOk, kOdd = tolkStatusOddSize;
  expectValues({
      {"tolkYCbCr422ToRGB_8u_C2C3R", {9, 1}, kYCbCr, kOk, 0, 0, 21, {86, 77, 177, 86, 76, 178}},
      {"tolkYCbCr422ToRGB_8u_C2C3R", {1, 1}, kYCbCr, kOk, 0, 0, 0, {159, 39, 178}},  // its Cb serves as both
      {"tolkYCrCb422ToBGR_8u_C2C3R", {10, 1}, kYCrCb, kOk, 0, 0, 21, {177, 76, 85, 178, 76, 86}},
      {"tolkYCbCr422ToBGR_8u_C2C4R", {8, 1}, kYCbCr, kOk, 0, 0, 28, {177, 76, 85, 166}},  // alpha 8 * 29 + 113 + 77,
                                                                                          // its low byte
      {"tolkYCbCr422ToBGR_8u_C2C4R", {9, 1}, kYCbCr, kOk, 0, 0, 32, {177, 76, 86, 195}},
      {"tolkCbYCr422ToBGR_709HDTV_8u_C2C3R", {9, 1}, kCbYCr, kOk, 0, 0, 21, {172, 88, 89, 172, 88, 89}},
      {"tolkYCbCr422ToRGB_8u_C2P3R", {6, 1}, kYCbCr, kOk, 0, 0, 2, {85, 85, 86, 86}},
      {"tolkYCbCr422ToRGB_8u_C2P3R", {1, 1}, kYCbCr, kOk, 1, 0, 0, {38}},
      {"tolkYCbCr422ToRGB_8u_P3C3R", {11, 1}, kPlanes, kOk, 0, 0, 21, {86, 77, 177, 86, 76, 177, 86, 76, 177, kOld}},
      {"tolkYCbCr420ToRGB_8u_P3C3R", {11, 3}, kPlanes, kOdd, 0, 1, 21, {86, 77, 177, 86, 76, 178, 86, 76, 178, kOld}},
      {"tolkYCbCr420ToBGR_8u_P3C4R", {7, 5}, kPlanes, kOdd, 0, 3, 20, {177, 77, 86, 77, kOld, kOld, kOld, kOld}},
      {"tolkYCbCr420ToBGR_8u_P3C4R", {7, 5}, kPlanes, kOdd, 0, 4, 0, {kOld, kOld, kOld, kOld}},
      {"tolkYCbCr420ToRGB_8u_P2C3R", {10, 2}, kTwoPlanes, kOk, 0, 1, 24, {86, 77, 177, 86, 77, 177}},
      {"tolkYCrCb420ToRGB_8u_P2C3R", {10, 2}, kCrFirst, kOk, 0, 1, 24, {86, 76, 178, 86, 76, 178}},
      {"tolkYCbCr420ToRGB_8u_P2C3R", {1, 4}, kTwoPlanes, kOdd, 0, 3, 0, {kOld, kOld, kOld}},
      {"tolkYCbCr420ToBGR_709CSC_8u_P3C3R", {10, 2}, kPlanes, kOk, 0, 1, 21, {182, 83, 85, 182, 83, 85}},
      // The tail takes the chroma of the group before its own.
      {"tolkYCbCr411ToBGR_8u_P3C3R", {6, 1}, kGroups, kOk, 0, 0, 9, {177, 76, 86, 178, 76, 86, 178, 76, 86}},
      {"tolkYUV422ToRGB_8u_P3C3R", {17, 1}, kYuv, kOk, 0, 0, 45, {61, 26, 253, 61, 26, 254}},
      {"tolkYUV422ToRGB_8u_C2C3R", {18, 1}, {{{63, 222, 63, 127}}}, kOk, 0, 0, 45, {61, 26, 253, 62, 27, 254}},
      {"tolkYUV420ToRGB_8u_P3R", {17, 3}, kYuv, kOk, 2, 1, 15, {253, kOld}},
      {"tolkYUV420ToRGB_8u_P3AC4R", {3, 3}, kYuv, kOdd, 0, 1, 4, {61, 26, 254, kOld, kOld}},
  });
}

TEST(Subsampled, Layouts) {
  const Pattern kPlanes{{{100}, {10, 20, 30, 40}, {50, 60, 70, 80}}, true}, kPacked{{{10, 20, 30, 40}}, true};
  const Pattern kPairs{{{100}, {10, 20, 30, 40}}, true};
  const TolkStatus kOk = tolkStatusOk;
  expectValues({
      {"tolkYCbCr422ToCbYCr422_8u_C2R", {3, 1}, kPacked, kOk, 0, 0, 0, {20, 10, 40, 30, kOld, kOld}},
      {"tolkYCbCr422ToYCrCb422_8u_C2R", {2, 1}, kPacked, kOk, 0, 0, 0, {10, 40, 30, 20}},
      {"tolkYCrCb422ToYCbCr422_8u_C2P3R", {3, 1}, kPacked, kOk, 1, 0, 0, {40, kOld}},
      {"tolkYCbCr422ToYCrCb420_8u_C2P2R", {2, 4}, kPacked, kOk, 1, 1, 0, {42, 22}},  // of rows 0 and 2
      {"tolkYCbCr422ToYCbCr420_8u_C2P2R", {3, 5}, kPacked, kOk, 1, 1, 0, {22, 42, kOld, kOld}},
      {"tolkYCbCr422ToYCbCr420_8u_C2P2R", {3, 5}, kPacked, kOk, 0, 4, 0, {kOld, kOld, kOld}},
      {"tolkYCrCb420ToCbYCr422_8u_P3C2R", {2, 4}, kPlanes, kOk, 0, 3, 0, {51, 103, 11, 103}},
      {"tolkYCbCr420ToYCrCb420_8u_P2P3R", {4, 2}, kPairs, kOk, 1, 0, 0, {10, 30}},  // not exchanged
      {"tolkYCbCr422ToYCbCr411_8u_P3R", {11, 1}, kPlanes, kOk, 1, 0, 0, {10, 30, kOld}},
      {"tolkYCbCr411ToYCbCr422_8u_P3C2R", {7, 1}, kPlanes, kOk, 0, 0, 0, {100, 10, 100, 50, 100, 10, 100, 50, kOld}},
      {"tolkYCbCr411ToYCbCr420_8u_P3R", {8, 2}, kPlanes, kOk, 1, 0, 0, {10, 11, 20, 21}},  // two rows in turn
      {"tolkYCbCr420ToYCbCr411_8u_P3P2R", {8, 2}, kPlanes, kOk, 1, 0, 0, {10, 50, 30, 70}},
      {"tolkYCbCr420ToYCbCr411_8u_P3P2R", {8, 3}, kPlanes, kOk, 1, 1, 0, {20, 60, 40, 80}},
  });
}

TEST(Subsampled, Statuses) {
  enum Null { None, ThePlane, Everything };  // ThePlane: the second one of the destination or else of the source
  struct Rule {
    const char* function;
    TolkSize size;
    Null null;
    TolkStatus want;
  };
  constexpr Rule kRules[] = {
      {"tolkBGRToYCbCr422_8u_C3C2R", {1, 1}, None, tolkStatusBadSize},
      {"tolkRGBToYCbCr422_8u_P3C2R", {0, 1}, ThePlane, tolkStatusBadSize},
      {"tolkRGBToYCbCr422_8u_C3P3R", {1, 1}, ThePlane, tolkStatusNullPointer},
      {"tolkBGRToYCbCr420_8u_C3P3R", {1, 5}, None, tolkStatusBadSize},
      {"tolkBGRToYCbCr420_8u_C3P2R", {1, 5}, None, tolkStatusOddSize},
      {"tolkBGRToYCrCb420_8u_C3P3R", {1, 5}, ThePlane, tolkStatusNullPointer},
      {"tolkRGBToYCbCr420_8u_C3P3R", {0, 5}, ThePlane, tolkStatusBadSize},
      {"tolkBGRToYCbCr420_709CSC_8u_C3P2R", {5, 1}, None, tolkStatusBadSize},
      {"tolkBGRToYCbCr411_8u_C3P3R", {3, 1}, None, tolkStatusBadSize},
      {"tolkBGRToYCbCr411_8u_C3P3R", {6, 1}, None, tolkStatusOddSize},
      {"tolkYCbCr411ToBGR_8u_P3C3R", {3, 1}, None, tolkStatusBadSize},
      {"tolkYCbCr411ToBGR_8u_P3C3R", {6, 1}, None, tolkStatusOk},
      {"tolkYCbCr422ToRGB_8u_P3C3R", {0, 1}, ThePlane, tolkStatusNullPointer},
      {"tolkYCrCb420ToBGR_8u_P2C4R", {0, 1}, Everything, tolkStatusBadSize},
      {"tolkYCrCb420ToRGB_8u_P2C4R", {1, 0}, Everything, tolkStatusBadSize},
      {"tolkYCrCb420ToRGB_8u_P2C3R", {0, 1}, Everything, tolkStatusNullPointer},
      {"tolkYCbCr420ToRGB_8u_P2C4R", {0, 1}, Everything, tolkStatusNullPointer},
      {"tolkYUV420ToRGB_8u_P3C3R", {3, 3}, None, tolkStatusOk},
      {"tolkYUV420ToRGB_8u_P3AC4R", {1, 1}, None, tolkStatusOddSize},
      {"tolkRGBToYUV420_8u_C3P3R", {1, 1}, None, tolkStatusOk},
      {"tolkYCbCr422_8u_C2P3R", {1, 1}, None, tolkStatusBadSize},
      {"tolkYCbCr422ToYCrCb422_8u_C2R", {2, 0}, None, tolkStatusOk},
      {"tolkYCbCr422ToYCrCb422_8u_P3C2R", {2, -1}, None, tolkStatusOk},
      {"tolkYCbCr422ToCbYCr422_8u_C2R", {2, 0}, None, tolkStatusBadSize},
      {"tolkYCbCr422ToYCbCr420_8u_C2P3R", {2, 1}, None, tolkStatusBadSize},
      {"tolkYCbCr420ToYCrCb420_8u_P2P3R", {1, 2}, ThePlane, tolkStatusNullPointer},
      {"tolkYCbCr420ToYCrCb420_8u_P2P3R", {0, 2}, ThePlane, tolkStatusBadSize},
      {"tolkYCbCr420ToYCrCb420_8u_P2P3R", {2, 1}, None, tolkStatusBadSize},
      {"tolkYCbCr422ToYCbCr411_8u_P3R", {4, 0}, None, tolkStatusOk},
      {"tolkYCbCr422ToYCbCr411_8u_C2P3R", {4, 0}, None, tolkStatusBadSize},
      {"tolkYCbCr411_8u_P2P3R", {3, 0}, None, tolkStatusBadSize},
      {"tolkYCbCr411ToYCbCr420_8u_P3R", {4, 1}, None, tolkStatusBadSize},
      {"tolkYCbCr420ToYCbCr411_8u_P3P2R", {7, 3}, None, tolkStatusOk},
  };
  for (const Rule& rule : kRules) {
    const harness::Case c{&harness::subject(rule.function), {8, 8}, kTight, kTight};
    harness::Rig& rig = harness::sharedRig();
    rig.prepare(c);
    auto call = [&](const harness::Images& images) {
      tolk::Call result = images.call(c);
      result.roi = rule.size;
      tolk::Side& side = images.dst.planes().size() > 1 ? result.dst : result.src;
      if (rule.null == ThePlane) side.plane[1] = nullptr;
      if (rule.null == Everything) result.src.plane = result.dst.plane = {};
      return result;
    };
    EXPECT_EQ(rig.callTested(call(rig.tested)), rule.want) << rule.function << " " << rule.size.width;
    EXPECT_EQ(rig.callExpected(call(rig.expected)), rule.want) << rule.function << " " << rule.size.width;
  }
}

}  // namespace
