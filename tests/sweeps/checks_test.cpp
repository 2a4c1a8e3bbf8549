// The order of checks: each fault of the arguments alone and each pair of faults, against the reference's status.
#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "harness/mosaic.h"
#include "sweeps/all_functions.h"

namespace {

struct Fault {
  std::string name;
  std::function<void(tolk::Call&)> apply;
  bool maybe = false;  // a fault in some functions only, and not tested with another such
};

void addSideFaults(const tolk::Function& f, const std::string& name, tolk::Side tolk::Call::*side,
                   std::vector<Fault>& faults) {
  const harness::SideArguments arguments = harness::sideArguments(f, name);
  if (arguments.array) faults.push_back({name + " null", [=](tolk::Call& c) { (c.*side).nullArray = true; }});
  if (f.family == "Lab" && arguments.steps == harness::StepKind::Each)
    faults.push_back({name + " steps null", [=](tolk::Call& c) { (c.*side).nullSteps = true; }});
  const size_t planes = planeShapes(name == "src" ? f.src : f.dst, {8, 8}).size();
  for (size_t i = 0; i < planes; ++i) {
    faults.push_back(
        {name + " plane " + std::to_string(i) + " null", [=](tolk::Call& c) { (c.*side).plane[i] = nullptr; }});
    if (arguments.steps == harness::StepKind::None || (arguments.steps == harness::StepKind::Shared && i > 0)) continue;
    for (const int64_t value : {0, -1, INT32_MIN, INT32_MAX})
      faults.push_back({name + " step " + std::to_string(i) + " " + std::to_string(value),
                        [=](tolk::Call& c) { (c.*side).step[i] = value; }, true});
  }
}

void addReductionFaults(const tolk::Function& f, std::vector<Fault>& faults) {
  for (const uint32_t value : {1u, 2u, 4u, 5u, ~0u})
    if (value > 4 || f.dst.sample == "1u")
      faults.push_back({"ditherType " + std::to_string(value), [=](tolk::Call& c) { c.ditherType = value; }});
  if (f.dst.sample == "1u") faults.push_back({"dstBitOffset -1", [](tolk::Call& c) { c.dstBitOffset = -1; }});
  for (const uint32_t value : {101u, ~0u})
    if (f.has("noise")) faults.push_back({"noise " + std::to_string(value), [=](tolk::Call& c) { c.noise = value; }});
  for (const int32_t value : {1, 0, INT32_MIN, 65537, 257})
    if (f.has("levels"))
      faults.push_back({"levels " + std::to_string(value), [=](tolk::Call& c) { c.levels = value; }, value == 257});
}

void addDemosaicingFaults(const tolk::Function& f, std::vector<Fault>& faults) {
  for (const uint32_t value : {4u, ~0u})
    faults.push_back({"grid " + std::to_string(value), [=](tolk::Call& c) { c.grid = value; }});
  for (const TolkRectL rect : {TolkRectL{0, 0, 0, 9}, {0, 0, 9, -1}, {INT32_MIN, INT32_MAX, 1, 1}})
    faults.push_back({"no pixels", [=](tolk::Call& c) { c.rect = rect; }, true});
  if (!f.name.ends_with("_L")) return;
  constexpr int64_t kBeyond = int64_t{1} << 31, kFar = int64_t{1} << 32;
  for (const TolkRectL rect : {TolkRectL{0, 0, kBeyond, 0}, {0, 0, 0, kBeyond}, {5, 5, kFar + 1, kFar + 1}})
    faults.push_back({"rectangle beyond 31 bits", [=](tolk::Call& c) { c.rect = rect; }});
  for (const TolkSizeL size : {TolkSizeL{kBeyond, 37}, {0, kFar + 37}, {37 - kFar, 37}, {37, 37 - kFar}})
    faults.push_back({"mosaic size of 64 bits", [=](tolk::Call& c) { c.mosaic = size; }});
}

std::vector<Fault> argumentFaults(const tolk::Function& f) {
  std::vector<Fault> faults;
  if (!f.inPlace) addSideFaults(f, "src", &tolk::Call::src, faults);
  addSideFaults(f, f.inPlace ? "srcDst" : "dst", &tolk::Call::dst, faults);
  for (const int32_t value : {0, -1, INT32_MIN, 1, 3}) {
    faults.push_back({"width " + std::to_string(value), [=](tolk::Call& c) { c.roi.width = value; }, value > 0});
    faults.push_back({"height " + std::to_string(value), [=](tolk::Call& c) { c.roi.height = value; }, value > 0});
  }
  if (f.has("roi") && f.name.ends_with("_L"))  // positive where only the low half is looked at
    for (const TolkSizeL size : {TolkSizeL{37 - (int64_t{1} << 32), 4}, TolkSizeL{37, INT64_MIN + 4}})
      faults.push_back({"size under 1 in 64 bits", [=](tolk::Call& c) { c.roiL = size; }});
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  if (f.has("vMax"))
    for (const auto& [vMin, vMax] : {std::pair{0.5f, 0.5f}, {0.5f, 0.25f}, {kNan, 1.0f}, {0.0f, kNan}})
      faults.push_back({"range " + std::to_string(vMin) + " to " + std::to_string(vMax),
                        [low = vMin, high = vMax](tolk::Call& c) { c.vMin = low, c.vMax = high; }});
  if (f.has("buffer")) faults.push_back({"buffer null", [](tolk::Call& c) { c.buffer = nullptr; }, true});
  if (f.has("ditherType")) addReductionFaults(f, faults);
  if (harness::demosaics(f)) addDemosaicingFaults(f, faults);
  if (harness::takesNullCoeffs(f)) faults.push_back({"coeffs null", [](tolk::Call& c) { c.coeffs.reset(); }, true});
  if (f.family == "Colour twist") faults.push_back({"twist null", [](tolk::Call& c) { c.twist.reset(); }});
  return faults;
}

class Checks : public AllFunctions {
 protected:
  void check(const Fault& first, const Fault& second, uint32_t variant) {
    const harness::Subject& subject = GetParam();
    const int32_t height = harness::demosaics(*subject.function) ? 14 : 4;
    const harness::Case valid{.subject = &subject, .roi = {37, height}, .src = {}, .dst = {}, .variant = variant};
    harness::Rig& rig = harness::sharedRig();
    rig.prepare(valid);
    tolk::Call tested = rig.tested.call(valid), expected = rig.expected.call(valid);
    for (const Fault& fault : {first, second}) fault.apply(tested), fault.apply(expected);
    const std::string faults = std::string(subject.function->name) + ": " + first.name + ", " + second.name;
    harness::announce(faults);
    const TolkStatus want =
        harness::undefinedInReference(*subject.function, tested) ? tolkStatusNullPointer : rig.callExpected(expected);
    ASSERT_EQ(rig.callTested(tested), want) << faults;
    if (want < 0) rig.fillExpected();  // an error has written nothing
    ASSERT_TRUE(rig.compare()) << faults;
  }
};
INSTANTIATE_TEST_SUITE_P(All, Checks, testing::ValuesIn(harness::subjects()), functionName);

TEST_P(Checks, FaultsAloneAndInPairs) {
  const std::vector<Fault> faults = argumentFaults(*GetParam().function);
  const uint32_t variants = GetParam().function->has("ditherType") ? 10 : 1;  // every method, with and without noise
  for (size_t i = 0; i < faults.size(); ++i)
    for (size_t j = i; j < faults.size(); ++j) {
      if (faults[i].maybe && faults[j].maybe) continue;
      for (uint32_t variant = 0; variant < variants; ++variant)
        ASSERT_NO_FATAL_FAILURE(check(faults[i], faults[j], variant));
    }
}

}  // namespace
