// The calls of the self-test, and digests of what they leave behind.
#include "runner.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <algorithm>

#include "settings.h"

namespace tolk::selftest {

namespace {

enum Part : size_t { kBlocks, kTails, kPadded, kUpward, kExtremes, kArguments, kLarge, kFaults, kStatuses };

class Hash {
 public:
  Hash() { XXH3_64bits_reset(&state_); }
  void add(std::span<const uint8_t> bytes) { XXH3_64bits_update(&state_, bytes.data(), bytes.size()); }
  template <class Number>
  void addNumber(Number number) {
    XXH3_64bits_update(&state_, &number, sizeof number);
  }
  uint64_t value() const { return XXH3_64bits_digest(&state_); }

 private:
  XXH3_state_t state_;
};

Digest digestOf(const std::array<Hash, kParts.size()>& parts) {
  Digest digest;
  Hash all;
  for (size_t i = 0; i < parts.size(); ++i) {
    all.addNumber(parts[i].value());
    digest.parts[i] = static_cast<uint16_t>(parts[i].value());
  }
  digest.all = all.value();
  return digest;
}

Digest digestOfSizes(void* address) {
  std::array<Hash, kParts.size()> parts;
  auto ask = [&](Part part, uint32_t channels, uint32_t width, uint32_t noise, uint32_t type, uint32_t* size) {
    const TolkStatus status =
        reinterpret_cast<decltype(&tolkReduceBitsGetBufferSize)>(address)(channels, width, noise, type, size);
    parts[part].addNumber(size ? *size : 0);
    parts[kStatuses].addNumber(status);
  };
  uint32_t size = 77;
  for (const uint32_t channels : {0u, 1u, 2u, 3u, 4u, 5u, 9u})
    for (const uint32_t width : {0u, 1u, 2u, 77u, 640u, 350'000'000u, 0x7fffffffu, 0x80000000u})
      for (const uint32_t noise : {0u, 1u, 100u, 101u})
        for (uint32_t type = 0; type < 6; ++type) ask(kArguments, channels, width, noise, type, &size);
  ask(kFaults, 2, 0, 101, 5, nullptr);
  return digestOf(parts);
}

bool movesChroma(const Function& f) { return chromaGroup(f.src).across > 1 && chromaGroup(f.dst).across > 1; }

// L, u and v of colours near gray, which RGB has; not too dark, for which a step of u and v is a small one.
void fillNearGray(const PaddedImage& image, std::string_view sample, uint32_t seed) {
  constexpr int kGray[] = {0, 97, 137};
  const PlaneShape& shape = image.shape(0);
  const int64_t sampleBytes = sampleBits(sample) / 8, samples = shape.rowBytes / sampleBytes;
  for (int64_t y = 0; y < shape.rows; ++y)
    for (int64_t i = 0; i < samples; ++i) {
      const auto channel = static_cast<size_t>(i % shape.channels);
      const auto random = static_cast<int>((seed = seed * 1664525 + 1013904223) >> 16);
      if (channel > 2) continue;
      const int value = channel == 0 ? 80 * 256 + random % (160 * 256) : kGray[channel] * 256 - 768 + random % 1536;
      uint8_t* const at = image.row(0, y) + i * sampleBytes;
      const int word = value * 257 / 256 - (sample == "16s" ? 32768 : 0);
      at[0] = static_cast<uint8_t>(sampleBytes > 1 ? word : value / 256);
      if (sampleBytes > 1) at[1] = static_cast<uint8_t>(word >> 8);
    }
}

}  // namespace

std::vector<Subject> subjects(std::span<const Function> functions, void* sizeQuery) {
  std::vector<Subject> list = {{"tolkReduceBitsGetBufferSize", nullptr, sizeQuery}};
  for (const Function& f : functions) list.push_back({std::string(f.name), &f, f.linked()});
  std::sort(list.begin(), list.end(), [](const Subject& a, const Subject& b) { return a.name < b.name; });
  return list;
}

struct Runner::Plan {
  TolkSize roi;
  Placement src = {}, dst = {};
  Contents contents = Contents::Random;
};

std::vector<Runner::Plan> Runner::plansOf(size_t part, const Function& f) {
  constexpr int32_t kHeights[] = {1, 2, 3, 4, 5, 8, 9, 14, 15, 17};  // of a mosaic's sites few are away from all edges
  constexpr Placement kOdd = {.padding = 7, .alignment = 5};
  std::vector<Plan> plans;
  switch (part) {
    case kBlocks:
      for (const int32_t width : {32, 64, 128})
        for (const int32_t height : {2, 8, 16}) plans.push_back({{width, height}});
      break;
    case kTails:
      for (int32_t width = 1; width <= 70; ++width)
        for (const int32_t height : {kHeights[width % 10], kHeights[(width * 7 + width / 10) % 10]})
          plans.push_back({{width, height}, {.alignment = width % 13}, {.alignment = width % 11}});
      break;
    case kPadded:
      for (const int32_t width : {6, 31, 48, 67, 97})
        for (const int32_t height : {3, 16}) plans.push_back({{width, height}, kOdd, {.padding = 64 - width % 4}});
      break;
    case kUpward:
      for (const int32_t width : {4, 37, 64, 90})
        for (const int32_t height : {8, 15}) {
          plans.push_back({{width, height}, {.upward = true}, kOdd});
          plans.push_back({{width, height}, kOdd, {.padding = 32, .upward = true}});
        }
      break;
    case kExtremes:
      for (const int32_t width : {7, 16, 33, 515})
        for (const Contents contents : {Contents::Extremes, Contents::Unit})
          plans.push_back({{width, 15}, {}, kOdd, contents});
      break;
    case kArguments:
      for (int32_t i = 0; i < 65 && hasSettings(f); ++i)
        plans.push_back({{67, 9 + i % 6}, {}, {}, i % 2 ? Contents::Unit : Contents::Random});
      break;
    case kLarge:  // of layouts one that goes past the caches
      plans.push_back({movesChroma(f) ? TolkSize{2048, 2048} : TolkSize{1027, 33}});
      break;
    case kFaults:
      plans.push_back({{37, 14}});
      break;
  }
  return plans;
}

Call Runner::prepare(const Function& f, const Plan& plan, uint32_t turn) {
  Call call{.roi = plan.roi};
  setArguments(f, turn, call);
  const TolkSize written = {plan.roi.width + call.dstBitOffset, plan.roi.height};
  if (f.inPlace) {
    src_.layOut({}, StepKind::None, {});
  } else {
    src_.layOut(planeShapes(f.src, plan.roi), sideArguments(f, "src").steps, plan.src);
  }
  dst_.layOut(planeShapes(f.dst, written), sideArguments(f, f.inPlace ? "srcDst" : "dst").steps, plan.dst);
  const bool ofUnit = f.dst.space == "LUV" && f.src.sample == "32f";  // brighter pixels may have an L that is no number
  src_.fill(f.src.sample, ofUnit && plan.contents == Contents::Random ? Contents::Unit : plan.contents, turn);
  dst_.fill(f.dst.sample, plan.contents, ~turn);
  call.dst = dst_.side();
  call.src = f.inPlace ? call.dst : src_.side();
  scratch_ = scratchMemory(f, call);
  call.buffer = scratch_.data();
  if (call.rect)  // the destination begins with the rectangle
    call.dst.plane[0] = dst_.row(0, call.rect->y) + call.rect->x * dst_.shape(0).rowBytes / plan.roi.width;
  return call;
}

Digest Runner::digest(const Subject& subject, bool bounded) {
  if (!subject.function) return digestOfSizes(subject.address);
  const Function& f = *subject.function;
  std::array<Hash, kParts.size()> parts;
  uint32_t turn = 0;
  auto run = [&](size_t part, const Plan& plan, const auto& fault) {
    Call call = prepare(f, plan, ++turn);
    fault(call);
    parts[kStatuses].addNumber(f.invoke(subject.address, call));
    if (bounded) forget(f, plan.roi, dst_);
    parts[part].add(dst_.bytes());
    parts[part].add(src_.bytes());
  };
  for (size_t part = 0; part < kFaults; ++part)
    for (const Plan& plan : plansOf(part, f)) run(part, plan, [](Call&) {});
  for (const auto& fault : faults(f)) run(kFaults, plansOf(kFaults, f)[0], fault);
  return digestOf(parts);
}

Rows Runner::results(const Subject& subject) {
  const Function& f = *subject.function;
  const TolkSize roi = {21, sampleBits(f.dst.sample) > 16 ? 1 : 3};
  Call call = prepare(f, {roi, {}, {}, Contents::Unit}, 0);
  call.vMin = 0.1f, call.vMax = 0.9f;
  if (f.src.space == "LUV") fillNearGray(src_, f.src.sample, 1);
  f.invoke(subject.address, call);
  Rows rows;
  for (size_t p = 0; p < dst_.planes(); ++p)
    for (int64_t y = 0; y < roi.height; ++y)
      rows.insert(rows.end(), dst_.row(p, y), dst_.row(p, y) + dst_.shape(p).rowBytes);
  return rows;
}

}  // namespace tolk::selftest
