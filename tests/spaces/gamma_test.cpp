// Gamma values worked out by hand, in the library and in the reference.
#include <limits>
#include <numeric>

#include "spaces/known_values.h"

namespace {

constexpr const char* kLayouts[] = {"C3R", "AC4R", "P3R", "C3IR", "AC4IR", "IP3R"};
constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinite = std::numeric_limits<float>::infinity();

// One row whose three channels hold `from`, by both implementations; `matches(got, want)` judges every sample.
template <class Sample, class Matches>
void expectRow(const std::string& name, const std::vector<Sample>& from, const std::vector<Sample>& want,
               std::pair<float, float> range, Matches matches) {
  const harness::Subject& subject = harness::subject(name);
  const tolk::Function& f = *subject.function;
  const size_t channels = static_cast<size_t>(f.src.layout.back() - '0'), width = from.size();
  const bool planar = f.src.layout.front() == 'P';
  constexpr Sample kUnused{77}, kKept{99};
  auto at = [=](size_t x, size_t channel) { return planar ? channel * width + x : x * channels + channel; };
  for (void* function : {subject.tested, subject.expected}) {
    std::vector<Sample> src(channels * width, kUnused), dst(channels * width, kKept);
    std::vector<Sample>& input = f.inPlace ? dst : src;
    for (size_t x = 0; x < width; ++x)
      for (size_t channel = 0; channel < 3; ++channel) input[at(x, channel)] = from[x];
    tolk::Call call;
    call.roi = {static_cast<int32_t>(width), 1};
    call.vMin = range.first, call.vMax = range.second;
    for (size_t channel = 0; channel < (planar ? 3 : 1); ++channel) {
      call.src.plane[channel] = &src[at(0, channel)];
      call.dst.plane[channel] = &dst[at(0, channel)];
    }
    call.src.step[0] = call.dst.step[0] = 1;
    ASSERT_EQ(f.invoke(function, call), tolkStatusOk) << name;
    for (size_t x = 0; x < width; ++x)
      for (size_t channel = 0; channel < channels; ++channel) {
        const Sample got = dst[at(x, channel)], expected = channel < 3 ? want[x] : kKept;
        EXPECT_TRUE(channel < 3 ? matches(got, expected) : got == kKept)
            << name << (function == subject.tested ? "" : " (reference)") << ", channel " << channel << " of "
            << +from[x] << ": got " << +got << ", want " << +expected;
      }
  }
}

template <class Word>
struct Entries {
  const char* curve;
  std::vector<Word> from, to;
};

template <class Word>
void expectEntries(const std::string& type, const std::vector<Entries<Word>>& tables) {
  for (const Entries<Word>& table : tables)
    for (const char* layout : kLayouts)
      expectRow<Word>(std::string("tolkGamma") + table.curve + "_" + type + "_" + layout, table.from, table.to, {0, 1},
                      std::equal_to<>());
}

TEST(Gamma, TableEntries) {
  expectEntries<uint8_t>(
      "8u",
      {{"Fwd",
        {0, 1, 2, 3, 4, 5, 6, 7, 127, 252, 253, 254, 255},
        {0, 4, 9, 14, 18, 23, 27, 30, 180, 254, 254, 255, 255}},
       {"Inv", {0, 1, 2, 3, 4, 5, 6, 7, 127, 252, 253, 254, 255}, {0, 0, 0, 1, 1, 1, 1, 2, 66, 249, 251, 253, 255}}});
  // 1180 and 5322 are the first of the powers; each second of the rows has entries that come of single precision.
  expectEntries<uint16_t>("16u", {{"Fwd",
                                   {0, 1, 2, 3, 4, 5, 6, 7, 1179, 1180, 12345, 65534, 65535},
                                   {0, 4, 9, 14, 18, 22, 27, 32, 5306, 5326, 27492, 65535, 65535}},
                                  {"Fwd", {4082, 7069, 8373}, {14164, 19952, 22046}},
                                  {"Inv",
                                   {0, 1, 2, 3, 4, 5, 6, 7, 5321, 5322, 12345, 65534, 65535},
                                   {0, 0, 0, 1, 1, 1, 1, 2, 1182, 1179, 3326, 65533, 65535}},
                                  {"Inv", {12009, 24057, 26755}, {3196, 9742, 11758}}});
}

struct Floats {
  std::pair<float, float> range;
  std::vector<float> from, to;
};

// By the line, and by powers of 1.
TEST(Gamma, FloatsOfExactResults) {
  const std::pair<const char*, std::vector<Floats>> kCurves[] = {
      {"Fwd",
       {{{0, 1}, {0, -0.0f, 1, -1, 0.015625f, 0.017999997f}, {0, 0, 1, -4.5f, 0.0703125f, 0.080999985f}},
        {{0, 255}, {0, 255, -255, 3.984375f}, {0, 255, -1147.5f, 17.929688f}},
        {{-1, 1}, {-1, 1, -3, -0.96875f}, {-1, 1, -10, -0.859375f}},
        {{0, 1}, {kInfinite, -kInfinite, kNan}, {kInfinite, -kInfinite, kNan}},
        {{0, kInfinite}, {7, kInfinite}, {31.5f, kNan}}}},
      {"Inv",
       {{{0, 1}, {0, -0.0f, 1, -1, 0.015625f, 0.081199996f}, {0, 0, 1, -0.2222222f, 0.0034722218f, 0.018044442f}},
        {{0, 255}, {0, -255, 3.984375f}, {0, -56.66666f, 0.88541657f}},
        {{-1, 1}, {-1, 1, -3, -0.96875f}, {-1, 1, -1.4444444f, -0.9930556f}},
        {{0, 1}, {kInfinite, -kInfinite, kNan}, {kInfinite, -kInfinite, kNan}},
        {{0, kInfinite}, {7, kInfinite}, {1.5555553f, kInfinite}}}}};
  for (const auto& [curve, rows] : kCurves)
    for (const Floats& row : rows)
      for (const char* layout : kLayouts)
        expectRow(std::string("tolkGamma") + curve + "_32f_" + layout, row.from, row.to, row.range, known::same);
}

// The power leaves the last place open; another branch or another precision of the shares shows in more.
TEST(Gamma, FloatsOfPowers) {
  using Layouts = std::vector<const char*>;
  const Layouts all(std::begin(kLayouts), std::end(kLayouts)), threeChannels{"C3R", "C3IR"};
  const struct {
    const char* curve;
    Layouts layouts;
    std::vector<Floats> rows;
  } kTables[] = {
      {"Fwd",
       all,
       {{{0, 1}, {0.5f, 2.5f, 0.018f}, {0.7055151f, 1.560857f, 0.08124793f}},
        {{0, 255}, {127.5f, 637.5f}, {179.90634f, 398.01855f}},
        {{-1, 1}, {0, 4}, {0.41103017f, 2.121714f}}}},
      {"Fwd",
       {"C3R", "AC4R", "P3R", "C3IR", "IP3R"},
       {{{0, 3}, {0.053999994f}, {0.2437438f}}, {{0, 255}, {4.5899997f}, {20.718224f}}}},
      {"Fwd", {"AC4IR"}, {{{0, 3}, {0.053999994f}, {0.24299997f}}, {{0, 255}, {4.5899997f}, {20.654999f}}}},
      {"Inv",
       all,
       {{{0, 1}, {0.5f, 2.5f, 0.0812f}, {0.2595894f, 6.7715144f, 0.017989362f}},
        {{0, 255}, {127.5f}, {66.1953f}},
        {{-1, 1}, {0, 4}, {-0.4808212f, 12.543029f}}}},
      {"Inv",
       threeChannels,
       {{{0, 3}, {0.2436f}, {0.053968087f}}, {{0, 255}, {20.706f, 255}, {4.5872874f, 255.00006f}}}},
      {"Inv",
       {"AC4R", "P3R", "AC4IR", "IP3R"},
       {{{0, 3}, {0.2436f}, {0.054133326f}}, {{0, 255}, {20.706f, 255}, {4.6013327f, 255}}}},
  };
  const auto near = [](float got, float want) { return std::abs(got - want) <= std::abs(want) * 0x1p-23f; };
  for (const auto& [curve, layouts, rows] : kTables)
    for (const Floats& row : rows)
      for (const char* layout : layouts)
        expectRow(std::string("tolkGamma") + curve + "_32f_" + layout, row.from, row.to, row.range, near);
}

}  // namespace
