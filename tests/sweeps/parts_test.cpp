// An image converted in parts, bands of rows or tiles of columns, against the whole image at once.
#include <algorithm>
#include <initializer_list>

#include "sweeps/all_functions.h"

class Parts : public AllFunctions {};
INSTANTIATE_TEST_SUITE_P(All, Parts, testing::ValuesIn(harness::subjects()), functionName);

static constexpr TolkSize kWhole{2 * 192 + 44, 24};

// The part of an image behind the first `part.width` columns or, of whole rows, below the first `part.height` rows.
static tolk::Side behind(tolk::Side side, const tolk::SideInfo& info, TolkSize part) {
  const auto shapes = planeShapes(info, part);
  for (size_t i = 0; i < shapes.size(); ++i) {
    const int64_t bytes = part.width < kWhole.width ? shapes[i].rowBytes : shapes[i].rows * side.step[i];
    side.plane[i] = static_cast<uint8_t*>(side.plane[i]) + bytes;
  }
  return side;
}

// Whether the library gives the same for the whole and for its parts, one after the other; ordered dithering, where a
// function has it.
static bool sameInParts(const harness::Subject& subject, TolkSize part) {
  constexpr harness::Layout kOdd{.rows = harness::Layout::Block, .padding = 4, .alignment = 1};
  const tolk::Function& f = *subject.function;
  const harness::Case whole{&subject, kWhole, kOdd, kOdd};
  harness::Rig& rig = harness::sharedRig();
  rig.prepare(whole);
  tolk::Call expected = rig.expected.call(whole), tested = rig.tested.call(whole);
  for (tolk::Call* call : {&expected, &tested}) {
    call->noise = 0;
    call->ditherType = f.has("levels") ? tolkDitherBayer : tolkDitherNone;
  }
  f.invoke(subject.tested, expected);
  for (int32_t done = 0; done < (part.width < kWhole.width ? kWhole.width : kWhole.height);) {
    const bool columns = part.width < kWhole.width;
    tested.roi = {columns ? std::min(part.width, kWhole.width - done) : kWhole.width, part.height};
    rig.callTested(tested);
    tested.src = behind(tested.src, f.inPlace ? f.dst : f.src, part);
    tested.dst = behind(tested.dst, f.dst, part);
    done += columns ? part.width : part.height;
  }
  return static_cast<bool>(rig.compare());
}

static bool isOneOf(std::initializer_list<std::string_view> names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Some functions take whole images only, or any rectangle of one; tone mapping has one factor for an image.
static bool takesParts(const tolk::Function& f) {
  return !f.src.tight && !f.has("srcRect") && f.family != "Tone mapping";
}

// Four rows are whole groups of every layout, and of the ordered matrix.
TEST_P(Parts, BandsOfWholeGroups) {
  const tolk::Function& f = *GetParam().function;
  if (!takesParts(f)) GTEST_SKIP();
  const bool looksBeyond = isOneOf({"tolkYCrCb420ToBGR_Filter_8u_P3C4R", "tolkYCbCr420To422_Interlace_8u_P3R",
                                    "tolkYCbCr420ToCbYCr422_Interlace_8u_P3C2R", "tolkYCbCr420ToYCbCr422_Filter_8u_P3R",
                                    "tolkYCrCb420ToYCbCr422_Filter_8u_P3R", "tolkYCbCr420ToYCbCr422_Filter_8u_P2P3R",
                                    "tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R", "tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R",
                                    "tolkYCbCr1620To420_8u_P3R", "tolkYCbCr420To411_8u_P3R"},
                                   f.name);
  EXPECT_EQ(sameInParts(GetParam(), {kWhole.width, 4}), !looksBeyond);
}

// 192 columns are whole blocks, whole groups and whole words of every layout.
TEST_P(Parts, TilesOfWholeBlocks) {
  const tolk::Function& f = *GetParam().function;
  if (!takesParts(f)) GTEST_SKIP();
  const bool looksBeyond =
      isOneOf({"tolkRGBToCbYCr422_8u_C3C2R", "tolkRGBToCbYCr422Gamma_8u_C3C2R", "tolkYCbCr1620To420_8u_P3R",
               "tolkYCbCr411To420_8u_P3R", "tolkYCbCr420To411_8u_P3R"},
              f.name);
  EXPECT_EQ(sameInParts(GetParam(), {192, kWhole.height}), !looksBeyond);
}
