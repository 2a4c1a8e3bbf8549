// Lab values worked out by hand, in the library and in the reference.
#include <iomanip>
#include <limits>
#include <utility>

#include "spaces/known_values.h"

namespace {

template <class From, class To>
struct Value {
  std::array<From, 3> rgbOrLab;
  std::array<To, 3> block;
  std::optional<std::array<To, 3>> tail = {};  // none: as in a block
};

template <class Sample>
std::array<Sample, 3> inOrderOf(const tolk::SideInfo& side, std::array<Sample, 3> pixel) {
  if (side.space == "BGR") std::swap(pixel[0], pixel[2]);
  return pixel;
}

// Samples of pixels or of planes, one after the other.
template <class Sample>
struct Memory {
  std::vector<Sample> samples;
  size_t pixels;
  bool planar;

  Memory(const tolk::SideInfo& side, size_t width)
      : samples(3 * width), pixels(width), planar(side.layout.front() == 'P') {}
  Sample& at(size_t x, size_t channel) { return samples[planar ? channel * pixels + x : 3 * x + channel]; }
  tolk::Side side() {
    tolk::Side result;
    for (size_t i = 0; i < 3; ++i) result.plane[i] = &samples[planar ? i * pixels : i];
    return result;
  }
};

template <class From, class To>
void expectValues(std::initializer_list<const char*> names, const std::vector<Value<From, To>>& values) {
  for (const char* name : names)
    for (const Value<From, To>& value : values)
      for (const size_t width : {3, 19})
        for (const bool tested : {true, false}) {
          const harness::Subject& subject = harness::subject(name);
          const tolk::Function& f = *subject.function;
          Memory<From> src(f.src, width);
          Memory<To> dst(f.dst, width);
          const auto pixel = inOrderOf(f.src, value.rgbOrLab);
          for (size_t i = 0; i < 3 * width; ++i) src.at(i / 3, i % 3) = pixel[i % 3];
          tolk::Call call;
          call.roi = {static_cast<int32_t>(width), 1};
          call.src = src.side();
          call.dst = dst.side();
          ASSERT_EQ(f.invoke(tested ? subject.tested : subject.expected, call), tolkStatusOk);
          for (size_t i = 0; i < 3 * width; ++i) {
            const bool inBlock = dst.planar || i / 3 < (width & ~size_t{3});
            const To want = inOrderOf(f.dst, inBlock ? value.block : value.tail.value_or(value.block))[i % 3];
            EXPECT_TRUE(known::same(dst.at(i / 3, i % 3), want))
                << f.name << (tested ? "" : " (reference)") << ", column " << i / 3 << ", channel " << i % 3 << " of "
                << +value.rgbOrLab[0] << " " << +value.rgbOrLab[1] << " " << +value.rgbOrLab[2] << ": got "
                << std::setprecision(17) << +dst.at(i / 3, i % 3) << ", want " << +want;
          }
        }
}

TEST(Lab, OfBytes) {
  expectValues<uint8_t, uint8_t>({"tolkRGBToLab_8u_C3R", "tolkBGRToLab_8u_C3R"},
                                 {
                                     {{0, 0, 0}, {0, 128, 128}},
                                     {{1, 1, 1}, {9, 128, 128}},
                                     {{3, 3, 3}, {26, 128, 128}},
                                     {{128, 128, 128}, {194, 128, 128}},
                                     {{255, 255, 255}, {255, 128, 128}},
                                     {{255, 0, 0}, {136, 208, 195}},
                                     {{0, 255, 0}, {224, 42, 211}},
                                     {{0, 0, 255}, {82, 207, 20}},
                                     {{0, 0, 31}, {20, 167, 75}},  // x and z by the root, y by the line
                                 });
  // By the order of the sums alone.
  expectValues<uint8_t, uint8_t>({"tolkRGBToLab_8u_C3R"}, {{{198, 161, 77}, {214, 127, 160}}});
  expectValues<uint8_t, uint8_t>({"tolkBGRToLab_8u_C3R"}, {{{198, 161, 77}, {214, 126, 160}}});
}

TEST(Lab, OfBytesInWords) {
  expectValues<uint8_t, uint16_t>({"tolkBGRToLab_8u16u_C3R"}, {
                                                                  {{0, 0, 0}, {0, 32640, 32640}},
                                                                  {{1, 1, 1}, {2321, 32640, 32639}},
                                                                  {{255, 255, 255}, {65534, 32640, 32639}},
                                                                  {{255, 0, 0}, {34891, 53064, 49776}},
                                                                  {{0, 255, 0}, {57497, 10663, 53850}},
                                                                  {{0, 0, 255}, {21164, 52832, 5135}},
                                                                  {{0, 0, 31}, {5193, 42642, 19014}},
                                                                  // in other orders of the sums 45963, 30967 and 30898
                                                                  {{126, 40, 217}, {39169, 45964, 19234}},
                                                                  {{140, 182, 197}, {56460, 30998, 30966}},
                                                                  {{90, 116, 115}, {47023, 30899, 32149}},
                                                                  // in single precision 60338 and 34901
                                                                  {{151, 218, 252}, {60339, 30523, 29728}},
                                                                  {{94, 45, 29}, {34900, 36618, 37580}},
                                                              });
}

constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinite = std::numeric_limits<float>::infinity();

TEST(Lab, OfFloats) {
  expectValues<float, float>(
      {"tolkRGBToLab_32f_C3R", "tolkBGRToLab_32f_C3R", "tolkRGBToLab_32f_P3R", "tolkRGBToLab_32f_P3R_L"},
      {
          {{0, 0, 0}, {0, 0, 0}},
          {{1, 1, 1}, {100, 0, 0}},
          {{2, 2, 2}, {100, 0, 0}},
          {{0.5f, 0.25f, 0.125f}, {61.14586f, 14.649182f, 27.855373f}},
          {{-0.1f, -0.1f, -0.1f}, {-90.33f, 0, 1.1920929e-05f}},
          {{0.008f, 0.008f, 0.008f}, {7.2264004f, 0, 0}},
          {{1, 0, 0}, {53.240585f, 80.094185f, 67.20153f}},
          {{0.55f, 0.55f, 0.19f}, {77.52055f, -11.167735f, 37.681557f}},  // by a single-precision white -11.167765
          {{0.84f, 0.98f, 0.78f}, {97.46219f, -9.686768f, 9.73214f}},     // -9.686798
          {{0.82f, 0.08f, 0.18f}, {56.544792f, 61.7826f, 12.065673f}},    // blue first 56.5448, 61.78257, 12.065685
          {{0.96f, 0.61f, 0.62f}, {86.26364f, 16.254276f, 5.3242326f}},   // 86.26365, 16.254246, 5.3242445
          {{kInfinite, kInfinite, kInfinite}, {100, 0, 0}},
          {{-kInfinite, -kInfinite, -kInfinite}, {-kInfinite, kNan, kNan}},
          {{kNan, 0, 0}, {kNan, kNan, kNan}},
      });
  expectValues<double, double>({"tolkRGBToLab_64f_P3R", "tolkRGBToLab_64f_P3R_L"},
                               {
                                   {{1, 1, 1}, {100, -4.033151757010245e-06, 0}},
                                   {{2, 2, 2}, {100, 0, 0}},
                                   {{-0.1, -0.1, -0.1}, {-90.33, 9.421845748036617e-06, 8.582655519617788e-06}},
                                   {{0.5, 0.25, 0.125}, {61.145857809821194, 14.649178725369193, 27.855367042347545}},
                                   {{0.6, 0.1, 0.9}, {58.421438698997605, 67.64647789957029, -57.89770849560056}},
                               });
}

TEST(Lab, ToBytes) {
  expectValues<uint8_t, uint8_t>({"tolkLabToRGB_8u_C3R", "tolkLabToBGR_8u_C3R"}, {
                                                                                     {{0, 128, 128}, {1, 1, 1}},
                                                                                     {{128, 128, 128}, {47, 47, 47}},
                                                                                     {{255, 128, 128}, {255, 255, 255}},
                                                                                     {{136, 208, 195}, {255, 0, 0}},
                                                                                     {{82, 207, 20}, {0, 0, 255}},
                                                                                     {{224, 42, 211}, {1, 255, 0}},
                                                                                     {{0, 0, 255}, {15, 0, 0}},
                                                                                     {{255, 255, 255}, {255, 16, 0}},
                                                                                 });
  expectValues<uint16_t, uint8_t>({"tolkLabToBGR_16u8u_C3R"},
                                  {
                                      {{0, 32640, 32640}, {0, 0, 0}},
                                      {{32768, 32640, 32640}, {46, 46, 46}},
                                      {{65535, 32640, 32640}, {254, 255, 254}},
                                      {{34891, 53064, 49776}, {254, 0, 0}},
                                      {{57497, 10663, 53850}, {0, 255, 0}},
                                      {{0, 0, 0}, {0, 7, 138}},
                                      {{55207, 53560, 45373}, {255, 56, 49}},  // 55 by a single-precision 0.002
                                  });
}

TEST(Lab, ToFloats) {
  expectValues<float, float>(
      {"tolkLabToRGB_32f_C3R", "tolkLabToBGR_32f_C3R", "tolkLabToRGB_32f_P3R", "tolkLabToRGB_32f_P3R_L"},
      {
          {{0, 0, 0}, {0.002624136f, 0.002624134f, 0.002624133f}, {{0.002624136f, 0.002624134f, 0.0026241327f}}},
          {{100, 0, 0}, {1.0000007f, 1, 0.9999995f}, {{1.0000007f, 1, 0.99999946f}}},
          {{53.24f, 80.09f, 67.2f},
           {0.9999369f, 1.0786403e-05f, 7.264316e-07f},
           {{0.9999368f, 1.0788441e-05f, 7.264316e-07f}}},
          {{120, -300, 40}, {-2.3986187f, 2.8920646f, 0.7395829f}, {{-2.3986187f, 2.8920648f, 0.7395829f}}},
          {{kNan, 0, 0}, {kNan, kNan, kNan}},
      });
  expectValues<double, double>({"tolkLabToRGB_64f_P3R", "tolkLabToRGB_64f_P3R_L"},
                               {
                                   {{0, 0, 0}, {0.0026241359260007653, 0.0026241339840826126, 0.002624132659908642}},
                                   {{100, 0, 0}, {1.0000007984255106, 1.000000058402982, 0.9999995537892481}},
                                   {{120, -300, 40}, {-2.398619154662977, 2.892065462992226, 0.7395830542747784}},
                               });
}

}  // namespace
