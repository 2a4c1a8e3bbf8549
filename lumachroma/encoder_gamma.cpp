// RGB to CbYCr 4:2:2 with filtered chroma, through the gamma curve.
#include "frame/checks.h"
#include "lumachroma/filtered_chroma.h"

using namespace tolk;

namespace {

// The forward curve of ITU-R BT.709 on 0..255: 4.5 i below 0.018 * 255, else 255 (1.099 (i / 255)^0.45 - 0.099),
// rounded.
constexpr uint8_t kGamma[256] = {
    0,   4,   9,   14,  18,  23,  27,  30,  34,  37,  40,  43,  46,  48,  51,  53,  55,  58,  60,  62,  64,  66,
    68,  70,  72,  73,  75,  77,  78,  80,  82,  83,  85,  86,  88,  89,  91,  92,  94,  95,  97,  98,  99,  101,
    102, 103, 104, 106, 107, 108, 109, 111, 112, 113, 114, 115, 116, 118, 119, 120, 121, 122, 123, 124, 125, 126,
    127, 128, 129, 130, 131, 132, 133, 134, 135, 136, 137, 138, 139, 140, 141, 142, 143, 144, 145, 146, 147, 147,
    148, 149, 150, 151, 152, 153, 154, 154, 155, 156, 157, 158, 159, 159, 160, 161, 162, 163, 164, 164, 165, 166,
    167, 168, 168, 169, 170, 171, 171, 172, 173, 174, 174, 175, 176, 177, 177, 178, 179, 180, 180, 181, 182, 182,
    183, 184, 185, 185, 186, 187, 187, 188, 189, 189, 190, 191, 191, 192, 193, 193, 194, 195, 195, 196, 197, 197,
    198, 199, 199, 200, 201, 201, 202, 203, 203, 204, 205, 205, 206, 206, 207, 208, 208, 209, 209, 210, 211, 211,
    212, 213, 213, 214, 214, 215, 216, 216, 217, 217, 218, 218, 219, 220, 220, 221, 221, 222, 223, 223, 224, 224,
    225, 225, 226, 227, 227, 228, 228, 229, 229, 230, 230, 231, 232, 232, 233, 233, 234, 234, 235, 235, 236, 236,
    237, 238, 238, 239, 239, 240, 240, 241, 241, 242, 242, 243, 243, 244, 244, 245, 245, 246, 246, 247, 247, 248,
    248, 249, 249, 250, 251, 251, 252, 252, 253, 253, 254, 254, 255, 255};

// A source whose samples have passed the curve.
struct GammaSource {
  struct Row {
    PackedSource<RGB3, uint8_t>::Row linear;

    template <int L>
    LANE_OP auto load(ptrdiff_t x) const {
      return curved(linear.load<L>(x));
    }
    template <int L>
    LANE_OP auto loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      return curved(linear.loadSome<L>(x, pixels));
    }
    std::array<uint8_t, 3> loadPixel(ptrdiff_t x) const {
      const auto [R, G, B] = linear.loadPixel(x);
      return {kGamma[R], kGamma[G], kGamma[B]};
    }

   private:
    template <int L>
    LANE_OP static Registers<uint8_t, L, 3> curved(Registers<uint8_t, L, 3> rgb) {
      unrolled<3>([&](auto c) __attribute__((always_inline)) {
        uint8_t samples[16 * L];
        storeLanes<16>(samples, rgb[c]);
        for (uint8_t& sample : samples) sample = kGamma[sample];
        rgb[c] = loadLanes<16, uint8_t, L>(samples);
      });
      return rgb;
    }
  };
  Row row(ptrdiff_t y) const { return {linear.row(y)}; }

  PackedSource<RGB3, uint8_t> linear;
};

}  // namespace

TolkStatus tolkRGBToCbYCr422Gamma_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return encodeFiltered(roi, GammaSource{from<RGB3>(src, srcStep)}, to422<ToCbYCr422>(dst, dstStep));
}
