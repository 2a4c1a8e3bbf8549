// Runs cases, names differences and faults.
#include "harness/compare.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>

#include "harness/mosaic.h"
#include "reference/power.h"
#include "reference_declarations.h"

namespace harness {

std::string describe(const Case& c) {
  constexpr const char* kContents[] = {"", ", zeros", ", ones", ", alternating", ", extremes"};
  return std::string(c.subject->function->name) + " " + std::to_string(c.roi.width) + "x" +
         std::to_string(c.roi.height) + ", src " + describe(c.src) + ", dst " + describe(c.dst) +
         kContents[static_cast<int>(c.contents)] + (c.variant ? ", variant " + std::to_string(c.variant) : "");
}

// Where a byte lies: a sample inside the rows, or its distance from the nearest row's start.
static std::string place(const Plane& plane, const uint8_t* byte, int64_t sampleBytes) {
  const int64_t distance = byte - plane.first;
  int64_t nearest = 0, best = INT64_MAX;
  for (int64_t y = 0; y < plane.shape.rows; ++y) {
    const int64_t offset = distance - y * plane.step;
    if (offset >= 0 && offset < plane.shape.rowBytes) {
      const int64_t sample = offset / sampleBytes;
      const std::string byteOfSample = sampleBytes > 1 ? " byte " + std::to_string(offset % sampleBytes) : "";
      return " x " + std::to_string(sample / plane.shape.channels) + " y " + std::to_string(y) + " channel " +
             std::to_string(sample % plane.shape.channels) + byteOfSample;
    }
    const int64_t away = offset < 0 ? -offset : offset - plane.shape.rowBytes + 1;
    if (away < best) best = away, nearest = y;
  }
  return " outside the image, at byte " + std::to_string(distance - nearest * plane.step) + " of row " +
         std::to_string(nearest) + " (" + std::to_string(plane.shape.rowBytes) + " long)";
}

static void listDifferences(const Image& got, const Image& want, std::string_view sample, const std::string& side,
                            std::vector<std::string>& list) {
  constexpr size_t kMost = 4;
  const int64_t sampleBytes = std::max(1, tolk::sampleBits(sample) / 8);
  for (size_t p = 0; p < got.planes().size(); ++p) {
    const Plane &g = got.planes()[p], &w = want.planes()[p];
    for (size_t i = 0; i < g.windows.size(); ++i) {
      const std::span<uint8_t> a = g.windows[i], b = w.windows[i];
      if (std::memcmp(a.data(), b.data(), a.size()) == 0) continue;
      for (size_t at = 0; at < a.size() && list.size() < kMost; ++at)
        if (a[at] != b[at])
          list.push_back(side + " plane " + std::to_string(p) + place(g, &a[at], sampleBytes) + ": got " +
                         std::to_string(a[at]) + ", want " + std::to_string(b[at]));
    }
  }
}

// In the range of the samples that it stands among.
static double alphaFor(const tolk::Function& f, TolkSize roi) {
  const int64_t value = int64_t{roi.width} * 29 + int64_t{roi.height} * 113 + 77;
  if (f.dst.sample == "32f") return static_cast<double>(value) * -0x1p-9;
  if (f.dst.sample == "16s") return static_cast<int16_t>(value * 2003);
  return static_cast<double>(f.dst.sample == "16u" ? value * 2003 & 0xffff : value & 0xff);
}

// Sums that differ by their order; what is no number from the start; ties; a usual matrix; sums without bound, that may
// be no number; denormal numbers; sums of words beyond 32 bits; a matrix in the scale of words. The one NaN is that of
// invalid operations.
static std::array<float, 16> twistFor(TolkSize roi) {
  constexpr float kMost = std::numeric_limits<float>::max(), kLeast = std::numeric_limits<float>::denorm_min(),
                  kInfinite = std::numeric_limits<float>::infinity(), kNan = -std::numeric_limits<float>::quiet_NaN();
  constexpr std::array<float, 16> kTwists[] = {
      {1.1e9f, -1.1e9f, 0.7f, 0.9f, 0.7f, 1e9f, -1e9f, 0.9f, 1, 0.7f, 3e7f, -3e9f, -5e8f, 1, 5e8f, 1},
      {kInfinite, 0, 0, 1, 0, 1, kNan, 0, 0, 0, 1, -kInfinite, -0.0f, -0.0f, -0.0f, kInfinite},
      {0.5f, 0, 0, 0, 0, 0.5f, 0.5f, 0.5f, 0.25f, -0.5f, 1, -0.5f, 0, 0, 0.5f, -1},
      {0.393f, 0.769f, 0.189f, 3.7f, 0.349f, 0.686f, 0.168f, -20, 0.272f, 0.534f, 0.131f, 0.3f, -0.1f, 1.3f, 2, 0.7f},
      {kMost, -kMost, 0, 1, 1, kMost, kMost, -kMost, -kMost, 0.5f, 0.5f, -kMost, kMost, 0, -kMost, kMost},
      {kLeast, -kLeast, 1e-40f, kLeast, 0.5f, 1e-39f, 1e-41f, 0, 1e-36f, -1e-37f, 1, 1e-39f, 0, 1e-40f, 0, 1},
      {-40000, 0, 0, 7, 30000, 20000, -3e4f, 0.5f, 0, 40000, 1, -9, 1, 0, 0, 50000},
      {-1.7f, 0.9f, 1.6f, 300.3f, 0.3f, -0.59f, 0.11f, 32768, 20.1f, -7.7f, -12.3f, 0.1f, 1, -0.9f, 0.8f, -0.7f}};
  return kTwists[(int64_t{roi.width} + 5 * roi.height) % std::size(kTwists)];
}

// None, a usual set, sums above 1, negative weights, ones that wrap as 16-bit integers, ones whose sum saturates there,
// and some that leave the range of 16-bit samples far behind.
static std::optional<std::array<double, 3>> coeffsFor(const tolk::Function& f, TolkSize roi) {
  using Weights = std::optional<std::array<double, 3>>;
  static const Weights kWeights[] = {{},
                                     {{0.2126, 0.7152, 0.0722}},
                                     {{0.5, 0.5, 0.5}},
                                     {{-0.5, 1.25, 0.25}},
                                     {{2.0, 0.25, -0.125}},
                                     {{1.99, 0.7, 1.99}},
                                     {{40.5, -7.25, 300.0}}};
  const Weights& chosen = kWeights[(int64_t{roi.width} + roi.height) % 7];
  return chosen || takesNullCoeffs(f) ? chosen : kWeights[1];
}

// The extent of the last but one is infinite, and the reciprocal of the last's.
static std::pair<float, float> rangeFor(TolkSize roi) {
  constexpr std::pair<float, float> kRanges[] = {{0, 1},       {0, 255},    {-1, 1},         {-0.3f, 0.7f},
                                                 {0.1f, 1.9f}, {0.003f, 3}, {-2, -0.5f},     {-7e4f, 1.1e5f},
                                                 {16, 235.5f}, {0, 1e-5f},  {-3e38f, 3e38f}, {0, 0x1p-149f}};
  return kRanges[(int64_t{roi.width} + 5 * roi.height) % std::size(kRanges)];
}

// The place of a case in the rotation of settings.
static uint32_t rotation(const Case& c) {
  return c.variant + static_cast<uint32_t>(7 * c.roi.width + 31 * c.roi.height + 3 * c.src.alignment + c.dst.alignment);
}

// Every method with every percentage and every number of levels, in 260 steps at one size.
static void setReduction(const tolk::Function& f, uint32_t n, tolk::Call& call) {
  constexpr uint32_t kNoises[] = {0, 100, 37, 1};
  constexpr int32_t kLevels[] = {2, 3, 4, 6, 7, 64, 100, 255, 256, 258, 1000, 65535, 65536};
  constexpr uint8_t kThresholds[] = {127, 0, 1, 128, 254, 255, 64};
  const bool bits = f.dst.sample == "1u", bytes = f.src.sample == "8u" || f.dst.sample == "8u";
  call.noise = bits ? 0 : kNoises[n / 5 % 4];
  call.ditherType = bits ? n % 2 * tolkDitherStucki : n % 5;
  call.levels = kLevels[n / 20 % (bytes ? 9 : 13)];
  call.threshold = kThresholds[n % 7];
  call.dstBitOffset = bits ? static_cast<int32_t>(n % 19) : 0;
}

static tolk::Call settingsFor(const Case& c) {
  const tolk::Function& f = *c.subject->function;
  const auto [vMin, vMax] = rangeFor(c.roi);
  tolk::Call call{.roi = c.roi,
                  .alpha = alphaFor(f, c.roi),
                  .twist = twistFor(c.roi),
                  .coeffs = coeffsFor(f, c.roi),
                  .vMin = vMin,
                  .vMax = vMax};
  if (f.has("ditherType")) setReduction(f, rotation(c), call);
  if (demosaics(f)) setDemosaicing(c.variant, rotation(c), call);
  return call;
}

tolk::Call Images::call(const Case& c) const {
  const tolk::Function& f = *c.subject->function;
  tolk::Call call = c.settings ? *c.settings : settingsFor(c);
  call.src = f.inPlace ? dst.side() : src.side();
  call.dst = dst.side();
  call.roi = c.roi;
  if (f.has("ditherType") && !scratch.planes().empty()) call.buffer = scratch.planes()[0].first;
  if (demosaics(f)) {
    if (!dst.planes().empty()) addressDestination(f, call);
    if (!scratch.planes().empty()) addressRows(f, rotation(c), scratch, call);
  }
  return call;
}

// Of the least size, at any address or up to a guard page.
void Images::layOutScratch(const Case& c) {
  const tolk::Function& f = *c.subject->function;
  const tolk::Call settings = call(c);
  if (f.has("bufferStep")) return layOutRows(f, rotation(c), settings, scratch);
  const auto n = static_cast<int>(rotation(c) % 96);
  uint32_t size = 0;
  if (f.has("ditherType"))
    reference::tolkReduceBitsGetBufferSize(1, static_cast<uint32_t>(c.roi.width), settings.noise, settings.ditherType,
                                           &size);
  scratch.layOut(std::vector<tolk::PlaneShape>(size ? 1 : 0, {size, 1, 1}), StepKind::Shared,
                 {.rows = Layout::Block, .alignment = n % 3 ? n % 32 : -1});
}

// The planes of a source. One function reads, of the least image, a second row below its one row of chroma.
static std::vector<tolk::PlaneShape> sourceShapes(const tolk::Function& f, TolkSize roi) {
  if (f.inPlace) return {};
  const bool readsBelow = f.name == "tolkYCbCr420To411_8u_P3R" && roi.height == 2;
  std::vector<tolk::PlaneShape> shapes = planeShapes(f.src, roi);
  for (size_t c = 1; readsBelow && c < shapes.size(); ++c) shapes[c].rows = 2;
  return shapes;
}

// The bits that a row of bits begins after belong to its first bytes.
static std::vector<tolk::PlaneShape> destinationShapes(const tolk::Function& f, const tolk::Call& call) {
  if (demosaics(f)) {
    const TolkRectL written = writtenPixels(f, call);
    return planeShapes(f.dst, {static_cast<int32_t>(written.width), static_cast<int32_t>(written.height)});
  }
  return planeShapes(f.dst, {call.roi.width + std::max(call.dstBitOffset, 0), call.roi.height});
}

void Rig::prepare(const Case& c) {
  case_ = c;
  seed_ = c.seed ? c.seed : seed_ + 1;
  announce(describe(c));
  const tolk::Function& f = *c.subject->function;
  for (Images* images : {&tested, &expected, &highest_}) {
    if (images == &highest_ && !roundsPower(f)) continue;
    const bool inPlace = f.inPlace;
    images->src.layOut(sourceShapes(f, c.roi), sideArguments(f, "src").steps, c.src);
    images->dst.layOut(destinationShapes(f, images->call(c)), sideArguments(f, inPlace ? "srcDst" : "dst").steps,
                       c.dst);
    images->layOutScratch(c);
    fill(*images);
  }
}

void Rig::fill(Images& images) const {
  const tolk::Function& f = function();
  const bool unit = f.family == "Bit reduction" && f.src.sample == "32f" && case_.contents == Contents::Random;
  images.src.fill(case_.contents, seed_, unit ? "unit" : f.src.sample);
  if (f.inPlace) {
    images.dst.fill(case_.contents, ~seed_, f.dst.sample);
  } else {
    images.dst.fill(Contents::Random, ~seed_);
  }
  overwrite(input(images));
  // Rows of noise, or numbers that are none.
  images.scratch.fill(f.has("bufferStep") ? Contents::Random : Contents::Ones, seed_);
}

void Rig::overwrite(const Image& source) const {
  for (const Plane& plane : source.planes())
    for (int64_t y = 0; y < plane.shape.rows && !case_.samples.empty(); ++y)
      for (int64_t at = seed_ % (plane.shape.rowBytes + 1) & -8, from = at; at < plane.shape.rowBytes; ++at)
        plane.first[y * plane.step + at] = case_.samples[static_cast<size_t>(at - from) % case_.samples.size()];
}

void Rig::fillExpected() {
  fill(expected);
  if (roundsPower(function())) fill(highest_);
}

static void move(tolk::Side& side, const Image& from, const Image& to) {
  for (size_t i = 0; i < from.planes().size(); ++i)
    if (side.plane[i])
      side.plane[i] = to.planes()[i].first + (static_cast<uint8_t*>(side.plane[i]) - from.planes()[i].first);
}

TolkStatus Rig::callExpected(const tolk::Call& call) const {
  void* const reference = case_.subject->expected;
  if (!roundsPower(function())) return function().invoke(reference, call);
  tolk::Call highest = call;
  move(highest.src, expected.src, highest_.src);
  move(highest.dst, expected.dst, highest_.dst);
  reference::powerShift = reference::kPowerAccuracy - 0.5;
  function().invoke(reference, highest);
  reference::powerShift = 0.5 - reference::kPowerAccuracy;
  const TolkStatus status = function().invoke(reference, call);
  reference::powerShift = 0;
  return status;
}

template <class Float>
static void acceptNans(const Plane& got, const Plane& want) {
  for (int64_t y = 0; y < got.shape.rows; ++y)
    for (int64_t at = 0; at < got.shape.rowBytes; at += sizeof(Float)) {
      Float a, b;
      std::memcpy(&a, got.first + y * got.step + at, sizeof a);
      std::memcpy(&b, want.first + y * want.step + at, sizeof b);
      if (a != a && b != b) std::memcpy(want.first + y * want.step + at, &a, sizeof a);
    }
}

void Rig::acceptNans() const {
  const std::string_view sample = function().dst.sample;
  for (size_t p = 0; p < tested.dst.planes().size(); ++p) {
    const Plane &got = tested.dst.planes()[p], &want = expected.dst.planes()[p];
    if (sample == "32f") harness::acceptNans<float>(got, want);
    if (sample == "64f") harness::acceptNans<double>(got, want);
  }
}

// A result between those of the least and the greatest power becomes the expected one.
void Rig::acceptPowers() const {
  for (size_t p = 0; p < tested.dst.planes().size(); ++p) {
    const Plane &got = tested.dst.planes()[p], &low = expected.dst.planes()[p], &high = highest_.dst.planes()[p];
    for (int64_t y = 0; y < got.shape.rows; ++y)
      for (int64_t at = 0; at < got.shape.rowBytes; at += sizeof(float)) {
        float sample, least, greatest;
        std::memcpy(&sample, got.first + y * got.step + at, sizeof sample);
        std::memcpy(&least, low.first + y * low.step + at, sizeof least);
        std::memcpy(&greatest, high.first + y * high.step + at, sizeof greatest);
        if (least < greatest && least <= sample && sample <= greatest)
          std::memcpy(low.first + y * low.step + at, &sample, sizeof sample);
      }
  }
}

// Of scratch memory only what lies around and between its rows must stay.
void Rig::acceptRows() const {
  const Plane &got = tested.scratch.planes()[0], &want = expected.scratch.planes()[0];
  for (int64_t y = 0; y < got.shape.rows; ++y)
    std::memcpy(want.first + y * want.step, got.first + y * got.step, static_cast<size_t>(got.shape.rowBytes));
}

testing::AssertionResult Rig::run() const {
  const TolkStatus got = callTested(tested.call(case_)), want = callExpected(expected.call(case_));
  if (got != want) return testing::AssertionFailure() << describe(case_) << ": status " << got << ", want " << want;
  return compare();
}

testing::AssertionResult Rig::compare() const {
  const tolk::Function& f = function();
  if (case_.settings || !case_.samples.empty()) acceptNans();
  if (roundsPower(f)) acceptPowers();
  std::vector<std::string> list;
  listDifferences(tested.dst, expected.dst, f.dst.sample, "dst", list);
  listDifferences(tested.src, expected.src, f.src.sample, "src", list);
  if (!tested.scratch.planes().empty()) {
    acceptRows();
    listDifferences(tested.scratch, expected.scratch, "8u", "scratch", list);
  }
  if (list.empty()) return testing::AssertionSuccess();
  auto result = testing::AssertionFailure() << describe(case_);
  for (const std::string& difference : list) result << "\n  " << difference;
  return result;
}

Rig& sharedRig() {
  static Rig rig;
  return rig;
}

int sample() {
  static const char* const text = std::getenv("TOLK_SAMPLE");
  static const int n = text ? std::max(std::atoi(text), 1) : 1;
  return n;
}

testing::AssertionResult runCase(const Case& c) {
  static int count = 0;
  if (count++ % sample() != 0) return testing::AssertionSuccess();
  sharedRig().prepare(c);
  return sharedRig().run();
}

}  // namespace harness
