// Bit reduction: images to fewer levels, with or without dithering.
#include "depth/reduction.h"

using namespace tolk;

namespace {

struct ChannelTypeTest {
  uint32_t code;
  TolkStatus fault() const {
    return code == 1 || code == 3 || code == 4 || code == 9 ? tolkStatusOk : tolkStatusBadChannelType;
  }
};

uint32_t bytesFor(const Reduction& asked, uint32_t width) {
  if (!asked.usesBuffer()) return 0;
  uint32_t bytes = asked.noise != 0 ? kNoiseBytes : 0;
  if (asked.ditherType == tolkDitherFloydSteinberg) bytes += 8 * width + 16;
  if (asked.ditherType == tolkDitherJarvisJudiceNinke || asked.ditherType == tolkDitherStucki) bytes += 12 * width + 48;
  return bytes + 64;
}

}  // namespace

TolkStatus tolkReduceBitsGetBufferSize(uint32_t channelCode, uint32_t width, uint32_t noise, uint32_t ditherType,
                                       uint32_t* size) {
  const Reduction asked = {noise, ditherType, 2, nullptr};
  const TolkSize row = {static_cast<int32_t>(width), 1};
  if (auto fault = check(pointers(size), tolk::size(row), ChannelTypeTest{channelCode}, NoiseTest{noise},
                         DitherTypeTest{ditherType})) {
    return fault;
  }
  *size = bytesFor(asked, width);
  return tolkStatusOk;
}

TolkStatus tolkReduceBits_8u_C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                 uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                 uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_8u_C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                 uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u_C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u_C4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                   uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s_C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s_C4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                  uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                   uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u8u_C1R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u8u_C3R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u8u_C4R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16u8u_AC4R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s8u_C1R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s8u_C3R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s8u_C4R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_16s8u_AC4R(const int16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16s_C1R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16s_C3R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16s_C4R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16s_AC4R(const float* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                      uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<int16_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16u_C1R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16u_C3R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16u_C4R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f16u_AC4R(const float* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                      uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint16_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<1>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f8u_C3R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f8u_C4R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<4>(src, srcStep, dst, dstStep, roi, asked);
}

TolkStatus tolkReduceBits_32f8u_AC4R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                     uint32_t noise, uint32_t ditherType, int32_t levels, uint8_t* buffer) {
  const Reduction asked = {noise, ditherType, levels, buffer};
  if (auto fault = check(pointers(src, dst), size(roi), reducible<uint8_t>(asked))) return fault;
  return reduced<3, 4>(src, srcStep, dst, dstStep, roi, asked);
}
