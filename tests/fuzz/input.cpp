// Bytes become a function, its images, its arguments, faults of them, and samples.
#include "fuzz/input.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <limits>

#include "fuzz/fence.h"
#include "harness/mosaic.h"

namespace fuzz {
namespace {

using harness::Case;
using harness::Layout;

class Reader {
 public:
  explicit Reader(std::span<const uint8_t> bytes) : rest_(bytes) {}

  template <class T>
  T take() {
    std::array<uint8_t, sizeof(T)> bytes{};
    const size_t count = std::min(sizeof(T), rest_.size());
    std::copy_n(rest_.begin(), count, bytes.begin());
    rest_ = rest_.subspan(count);
    return std::bit_cast<T>(bytes);
  }
  uint8_t byte() { return take<uint8_t>(); }
  int32_t below(int32_t count) { return (count > 256 ? take<uint16_t>() : byte()) % count; }
  std::span<const uint8_t> rest() const { return rest_; }

  // Mostly one of a list, else any.
  template <class T, size_t kCount>
  T oneOf(const T (&values)[kCount]) {
    const size_t choice = byte();
    return choice < 4 * kCount ? values[choice % kCount] : take<T>();
  }
  template <class Float>
  Float number() {
    using Limits = std::numeric_limits<Float>;
    constexpr Float kNumbers[] = {0,
                                  1,
                                  -1,
                                  0.5,
                                  -0.25,
                                  2,
                                  255,
                                  65535,
                                  -32768,
                                  Float(0.299),
                                  Float(1e-39),
                                  Float(3e9),
                                  Limits::denorm_min(),
                                  -Limits::max(),
                                  Limits::infinity(),
                                  Limits::quiet_NaN()};
    return oneOf(kNumbers);
  }
  int32_t anyInteger() {
    constexpr int32_t kIntegers[] = {0, -1, 1, 2, INT32_MIN, INT32_MAX, INT32_MIN + 1, -32, 4096, 65536};
    return oneOf(kIntegers);
  }

 private:
  std::span<const uint8_t> rest_;
};

Layout layoutFrom(Reader& in, const tolk::Function& f) {
  constexpr Layout::Rows kRows[] = {Layout::Guarded, Layout::Block, Layout::Block, Layout::Guarded};
  const int kind = in.byte();
  Layout layout{.rows = kRows[kind % 4], .flush = kind / 4 % 2 ? Layout::Left : Layout::Right};
  layout.direction = kind / 8 % 4 == 1 ? -1 : kind / 8 % 4 == 2 ? 0 : 1;
  layout.padding = in.below(72);
  layout.alignment = in.below(64) - 32;
  if (layout.alignment < 0) layout.alignment = -1;
  // Steps that count elements, or lose their lowest bits.
  const bool elements = f.src.space.ends_with("v210") || f.family == "Tone mapping";
  if (elements || (harness::demosaics(f) && f.src.sample == "16u")) layout.padding &= ~3;
  if (harness::demosaics(f)) layout.direction |= 1;  // no order of rows at one place is defined
  return layout;
}

TolkSize sizeFrom(Reader& in, const tolk::Function& f) {
  constexpr int32_t kMostPixels = 5000;
  const int32_t wide = in.take<uint16_t>();
  const int32_t width = 1 + wide % (wide < 0xe000 ? 140 : 900);
  const bool needsRows = harness::demosaics(f) || f.has("ditherType") || f.has("stripe");
  const int32_t height = 1 + in.byte() % (needsRows ? 40 : 10);
  return {width, std::min(height, 1 + kMostPixels / width)};
}

// Beside the mosaic at a few sites, or anywhere where nothing is written there.
int64_t coordinate(Reader& in, const tolk::Function& f, int64_t size) {
  const uint8_t place = in.byte();
  if (place >= 224 && f.variant != "VNG") return in.anyInteger();
  return place < 160 ? place % (size + 10) - 5 : size + 5 - place % 16;
}

void setDemosaicing(Reader& in, const tolk::Function& f, TolkSize size, tolk::Call& call) {
  call.grid = in.byte() % 4;
  call.reserved = in.anyInteger();
  if (f.has("scale[3]") && in.byte() % 4) call.scale = {in.number<float>(), in.number<float>(), in.number<float>()};
  if (in.byte() % 4 == 0) return;
  TolkRectL rect{coordinate(in, f, size.width), coordinate(in, f, size.height), 0, 0};
  rect.width = coordinate(in, f, size.width) - (in.byte() % 2 ? std::max<int64_t>(rect.x, 0) : 0);
  rect.height = coordinate(in, f, size.height) - (in.byte() % 2 ? std::max<int64_t>(rect.y, 0) : 0);
  // What the function is given has 32 bits.
  call.rect = {static_cast<int32_t>(rect.x), static_cast<int32_t>(rect.y), static_cast<int32_t>(rect.width),
               static_cast<int32_t>(rect.height)};
}

void setReduction(Reader& in, const tolk::Function& f, tolk::Call& call) {
  constexpr int32_t kLevels[] = {2, 3, 4, 7, 255, 256, 257, 1000, 65535, 65536};
  const bool bits = f.dst.sample == "1u";
  call.ditherType = in.byte() % 8;
  if (bits && call.ditherType < 6) call.ditherType = call.ditherType % 2 * tolkDitherStucki;
  call.noise = in.byte() % 4 ? in.byte() % 104 : 0;
  call.levels = in.oneOf(kLevels);
  call.threshold = in.byte();
  call.dstBitOffset = bits ? in.below(300) : 0;
}

// An alpha in the range of the samples that it stands among.
double alphaFrom(Reader& in, const tolk::Function& f) {
  if (f.dst.sample == "32f") return static_cast<double>(in.number<float>());
  if (f.dst.sample == "16s") return in.take<int16_t>();
  return f.dst.sample == "16u" ? in.take<uint16_t>() : in.byte();
}

tolk::Call settingsFrom(Reader& in, const tolk::Function& f, TolkSize size) {
  tolk::Call call{.roi = size};
  if (f.has("alpha")) call.alpha = alphaFrom(in, f);
  if (f.has("vMin")) call.vMin = in.number<float>(), call.vMax = in.number<float>();
  if (f.family == "Colour twist")
    for (float& weight : *call.twist) weight = in.number<float>();
  if (f.has("coeffs[3]"))
    for (double& weight : *call.coeffs)
      weight = f.src.sample == "64f" ? in.number<double>() : static_cast<double>(in.number<float>());
  if (harness::takesNullCoeffs(f) && in.byte() % 8 == 0) call.coeffs.reset();
  if (f.has("ditherType")) setReduction(in, f, call);
  if (harness::demosaics(f)) setDemosaicing(in, f, size, call);
  return call;
}

// What is done to the arguments of a call, alike for library and reference. A refused call touches no image.
class Changes {
 public:
  Changes(Reader& in, const tolk::Function& f, const Case& c) : f_(f), rows_(c.roi) {
    if (f.has("stripe")) takeStripe(in);
    faults_ = in.byte() % 4 == 3 ? 1 + in.byte() % 3 : 0;
    for (int i = 0; i < faults_; ++i) faultList_[i] = {in.byte(), in.byte(), in.anyInteger(), in.anyInteger()};
    steps_ = in.byte() % 4 == 3;
    if (steps_)
      for (int64_t& step : stepList_) step = in.anyInteger();
  }

  void apply(tolk::Call& call, const harness::Images& images) const {
    if (stripe_) moveDown(call, images);
    bool refused = false;
    for (int i = 0; i < faults_; ++i) refused |= applyFault(faultList_[i], call);
    if (steps_) applySteps(call, images, refused);
  }

 private:
  struct Fault {
    uint8_t kind, index;
    int32_t first, second;
  };

  // The whole picture, or a stripe of one that goes on above and below it.
  void takeStripe(Reader& in) {
    constexpr uint32_t kStripes[] = {21, 1, 4, 16, 21, 63};
    const uint8_t kind = in.byte();
    stripe_ = kind < 200 ? kStripes[kind % std::size(kStripes)] : in.take<uint32_t>();
  }
  void moveDown(tolk::Call& call, const harness::Images& images) const {
    call.stripe = *stripe_;
    if (rows_.height <= 8) {
      if (*stripe_ == 1 || *stripe_ == 4 || *stripe_ == 16) call.stripe = 21;
      return;
    }
    call.roi.height = rows_.height - 8;
    for (auto [side, image] : {std::pair(&call.src, &images.src), std::pair(&call.dst, &images.dst)})
      for (size_t i = 0; i < image->planes().size(); ++i) {
        const bool chroma = image->planes()[i].shape.rows < rows_.height;
        side->plane[i] = static_cast<uint8_t*>(side->plane[i]) + side->step[i] * (chroma ? 2 : 4);
      }
  }

  // Whether the call must be refused, or at least do nothing.
  bool applyFault(const Fault& fault, tolk::Call& call) const {
    const size_t planes = planeShapes(fault.kind / 16 % 2 ? f_.dst : f_.src, {8, 8}).size();
    const bool source = fault.kind / 16 % 2 == 0 && !f_.inPlace;
    tolk::Side& side = source ? call.src : call.dst;
    const auto arguments = harness::sideArguments(f_, source ? "src" : f_.inPlace ? "srcDst" : "dst");
    switch (fault.kind % 16) {
      case 0:
        side.nullArray = arguments.array;
        return arguments.array;
      case 1:
        side.nullSteps = f_.family == "Lab" && arguments.steps == harness::StepKind::Each;
        return side.nullSteps;
      case 2:
      case 3:
        (fault.kind % 2 ? call.roi.width : call.roi.height) = std::min(fault.first, 0);
        return true;
      case 4:  // of the 64 bits of a size, such as are positive by their lower half alone
        if (!f_.has("roi") || !f_.name.ends_with("_L")) return false;
        call.roiL = TolkSizeL{fault.first - (int64_t{1} << 32), int64_t{fault.second} << 32 | 7};
        return true;
      case 5:
        call.twist.reset();
        return f_.family == "Colour twist";
      case 6:
        if (harness::demosaics(f_)) return refuseMosaic(fault, call);
        call.buffer = nullptr;
        return false;
      case 7:
        call.dstBitOffset = std::min(fault.first, call.dstBitOffset);
        return call.dstBitOffset < 0 && f_.dst.sample == "1u";
      case 8:
        call.levels = std::min(fault.first, call.levels);
        if (fault.second < 0 || fault.second > 100) call.noise = static_cast<uint32_t>(fault.second);
        return false;
      default:
        side.plane[fault.index % planes] = nullptr;
        return true;
    }
  }
  // Of a mosaic that is too small, has too many sites, or no grid, the rectangle may be anything.
  bool refuseMosaic(const Fault& fault, tolk::Call& call) const {
    const bool far = f_.name.ends_with("_L");
    const int64_t unit = far ? int64_t{1} << 31 : 1;
    if (fault.index % 4 == 3) {
      call.grid = std::max(static_cast<uint32_t>(fault.first), 4u);
    } else {
      call.mosaic = {call.roi.width, call.roi.height};
      (fault.index % 4 == 1 ? call.mosaic->width : call.mosaic->height) =
          far && fault.first > 0 ? unit : std::min(fault.first, 1);
    }
    if (fault.index & 4) call.rect = {fault.second * unit, fault.first * unit, fault.second, fault.first * unit};
    return true;
  }
  // Of planes of one row no step is used, but by the pointer to a mosaic's rectangle; refused calls use none at all.
  void applySteps(tolk::Call& call, const harness::Images& images, bool refused) const {
    size_t n = 0;
    for (auto [side, image] : {std::pair(&call.src, &images.src), std::pair(&call.dst, &images.dst)}) {
      const auto& planes = image->planes();
      const bool single = !harness::demosaics(f_) &&
                          std::ranges::all_of(planes, [](const harness::Plane& p) { return p.shape.rows == 1; });
      if (!single && !refused) continue;
      for (size_t i = 0; i < side->step.size(); ++i) side->step[i] = stepList_[n++];
    }
  }

  const tolk::Function& f_;
  TolkSize rows_;
  std::optional<uint32_t> stripe_;
  int faults_ = 0;
  std::array<Fault, 3> faultList_{};
  bool steps_ = false;
  std::array<int64_t, 8> stepList_{};
};

}  // namespace

testing::AssertionResult runInput(std::span<const uint8_t> bytes) {
  Reader in(bytes);
  const auto& subjects = harness::subjects();
  const harness::Subject& subject = subjects[in.take<uint16_t>() % subjects.size()];
  const tolk::Function& f = *subject.function;
  Case c{.subject = &subject, .roi = sizeFrom(in, f), .src = layoutFrom(in, f), .dst = layoutFrom(in, f)};
  c.contents = static_cast<harness::Contents>(in.byte() % 5);
  c.variant = in.byte();
  c.seed = in.take<uint16_t>() + 1u;
  c.settings = settingsFrom(in, f, c.roi);
  const Changes changes(in, f, c);
  c.samples = in.rest();

  harness::Rig& rig = harness::sharedRig();
  rig.prepare(c);
  tolk::Call tested = rig.tested.call(c), expected = rig.expected.call(c);
  changes.apply(tested, rig.tested);
  changes.apply(expected, rig.expected);
  const TolkStatus want =
      harness::undefinedInReference(f, expected) ? tolkStatusNullPointer : rig.callExpected(expected);
  TolkStatus got;
  {
    const Fence fence({&rig.tested.src, &rig.tested.dst, &rig.tested.scratch});
    got = rig.callTested(tested);
  }
  if (got != want) return testing::AssertionFailure() << describe(c) << ": status " << got << ", want " << want;
  if (want < 0) rig.fillExpected();  // an error has written nothing
  return rig.compare();
}

}  // namespace fuzz
