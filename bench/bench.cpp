// Measures every function in every class library, in one run with plain scalar code, a copy of as many bytes (memcpy's,
// for large images also a streamed one: the faster counts) and the peers that the build has found, and prints the
// ratios.
//
//   tolk_bench [PATTERN] [--size WxH]... [Google Benchmark's own options]
//   tolk_bench [PATTERN] --summary [...]: the medians at 256x128 in one table
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <emmintrin.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "catalogue.h"
#include "peers.h"

namespace {

struct Implementation {
  const char* name;
  const char* path;
};
constexpr Implementation kImplementations[] = {
    {"plain", PLAIN_LIBRARY},
    {"ssse3", BASE_LIBRARY},
#ifdef V3_LIBRARY
    {"avx2", V3_LIBRARY},
#endif
};

// Bits that a predictor of branches learns nothing from.
uint32_t scramble(uint32_t bits) {
  bits = (bits ^ bits >> 16) * 0x7feb352du;
  bits = (bits ^ bits >> 15) * 0x846ca68bu;
  return bits ^ bits >> 16;
}

template <class T>
void append(std::vector<uint8_t>& bytes, T value) {
  const auto* first = reinterpret_cast<const uint8_t*>(&value);
  bytes.insert(bytes.end(), first, first + sizeof value);
}

// Integers of the whole range, floats from 0 up to 1.
void appendSample(std::vector<uint8_t>& bytes, std::string_view type, uint32_t bits) {
  const float share = static_cast<float>(bits >> 8) * 0x1p-24f;
  if (type == "64f") return append(bytes, static_cast<double>(share));
  if (type == "32f") return append(bytes, share);
  if (type == "32u" || type == "32s") return append(bytes, bits);
  tolk::sampleBits(type) == 16 ? append(bytes, static_cast<uint16_t>(bits)) : append(bytes, static_cast<uint8_t>(bits));
}

// The images of a call: rows without slack, planes apart, every sample on its own so that code that branches by the
// data pays for it; beside subsampled chroma patches of one colour, so that a peer that takes a chroma group's first
// pixel for the whole agrees with one that takes the mean.
class Images {
 public:
  Images(const tolk::Function& function, TolkSize roi, uint32_t ditherType = tolkDitherNone) {
    inPatches = tolk::chromaGroup(function.src).across > 1 || tolk::chromaGroup(function.dst).across > 1;
    call.roi = roi;
    call.alpha = 255;
    call.twist = {{0.393f, 0.769f, 0.189f, 3.7f, 0.349f, 0.686f, 0.168f, 0, 0.272f, 0.534f, 0.131f, 0, 0, 0, 0, 1}};
    call.ditherType = ditherType;
    call.levels = function.src.sample == function.dst.sample ? 4 : 256;
    sourceBytes = fill(function.src, call.src);
    firstTarget = planes.size();
    targetBytes = fill(function.dst, call.dst);
    scratch = tolk::scratchMemory(function, call);
  }
  tolk::Call call;
  size_t sourceBytes = 0, targetBytes = 0, firstTarget = 0;
  std::vector<std::vector<uint8_t>> planes;
  std::vector<uint8_t> scratch;

 private:
  bool inPatches;

  size_t fill(const tolk::SideInfo& info, tolk::Side& side) {
    size_t total = 0, plane = 0;
    for (const tolk::PlaneShape& shape : tolk::planeShapes(info, call.roi)) {
      const uint32_t period = shape.channels == 2 ? 4 : static_cast<uint32_t>(shape.channels);
      const int64_t samples =
          info.sample == "12u" ? shape.rowBytes : shape.rowBytes * 8 / tolk::sampleBits(info.sample);
      std::vector<uint8_t>& bytes = planes.emplace_back();
      bytes.reserve(static_cast<size_t>(shape.rowBytes * shape.rows) + 64);  // peers write past the last row
      for (uint32_t y = 0; y < shape.rows; ++y) {
        for (uint32_t x = 0; x < samples; ++x) {
          const uint32_t patch = x / 48 * 5 + y / 16 * 1009, channel = static_cast<uint32_t>(plane) * 4 + x % period;
          const uint32_t sample = (y << 16 | x) * 4 + static_cast<uint32_t>(plane);
          appendSample(bytes, info.sample, scramble(inPatches ? patch * 16 + channel : sample));
        }
      }
      side.plane[plane] = bytes.data();
      side.step[plane++] = shape.rowBytes;
      total += bytes.size();
    }
    return total;
  }
};

void countPixels(benchmark::State& state, TolkSize roi) {
  const double pixels = static_cast<double>(state.iterations()) * roi.width * roi.height;
  state.counters["Mpixel/s"] = benchmark::Counter(pixels / 1e6, benchmark::Counter::kIsRate);
}

// What is measured of a function: each kind of dithering on its own.
struct Method {
  std::string name;
  uint32_t ditherType = tolkDitherNone;
};
std::vector<Method> methods(const tolk::Function& function) {
  const std::string name(function.name);
  if (!function.has("ditherType")) return {{name}};
  std::vector<Method> all = {{name, tolkDitherNone}, {name + ":stucki", tolkDitherStucki}};
  if (function.has("levels")) {  // the others have these two alone
    all.push_back({name + ":fs", tolkDitherFloydSteinberg});
    all.push_back({name + ":bayer", tolkDitherBayer});
  }
  return all;
}

void runFunction(benchmark::State& state, const tolk::Function& function, uint32_t ditherType, const char* path,
                 TolkSize roi) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  void* entry = library ? dlsym(library, std::string(function.name).c_str()) : nullptr;
  Images images(function, roi, ditherType);
  if (entry == nullptr || function.invoke(entry, images.call) < 0) {
    state.SkipWithError(entry ? "the call fails" : dlerror());
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(function.invoke(entry, images.call));
  countPixels(state, roi);
}

void copyPastCaches(uint8_t* to, const uint8_t* from, size_t bytes) {
  for (size_t i = 0; i + 64 <= bytes; i += 64) {
    for (size_t k = 0; k < 64; k += 16) {
      _mm_stream_si128(reinterpret_cast<__m128i*>(to + i + k),
                       _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i + k)));
    }
  }
  _mm_sfence();
}

// Moves as many bytes as the function reads and writes.
void runCopy(benchmark::State& state, const tolk::Function& function, bool streamed, TolkSize roi) {
  Images images(function, roi);
  const size_t bytes = (images.sourceBytes + images.targetBytes) / 2;
  std::vector<uint8_t> from(bytes), to(bytes + 16);
  uint8_t* aligned = to.data() + (-reinterpret_cast<uintptr_t>(to.data()) & 15);
  for (auto _ : state) {
    streamed ? copyPastCaches(aligned, from.data(), bytes)
             : static_cast<void>(std::memcpy(aligned, from.data(), bytes));
    benchmark::DoNotOptimize(aligned);
    benchmark::ClobberMemory();
  }
  countPixels(state, roi);
}

template <class T>
double valueAt(const std::vector<uint8_t>& bytes, size_t index) {
  T value;
  std::memcpy(&value, bytes.data() + index * sizeof value, sizeof value);
  return value;
}

// A sample on the scale of 8-bit samples, floats limited to 0..1, as some of the libraries do. The peers have these
// three types.
double onByteScale(std::string_view type, const std::vector<uint8_t>& bytes, size_t index) {
  if (type == "32f") return std::min(std::max(0.0, valueAt<float>(bytes, index)), 1.0) * 255;
  if (type == "16u") return valueAt<uint16_t>(bytes, index) / 257;
  return bytes[index];
}

// The mean distance of two results in the plane where it is largest, on the scale of 8-bit samples; without the fourth
// channel, which some leave as it was.
double distance(const tolk::Function& function, const Images& one, const Images& other) {
  const std::string_view type = function.dst.sample;
  const bool fourth = function.dst.layout.ends_with("C4");
  double largest = 0;
  for (size_t plane = one.firstTarget; plane < one.planes.size(); ++plane) {
    double sum = 0, count = 0;
    for (size_t i = 0; i < one.planes[plane].size() * 8 / static_cast<size_t>(tolk::sampleBits(type)); ++i) {
      if (fourth && i % 4 == 3) continue;
      sum += std::abs(onByteScale(type, one.planes[plane], i) - onByteScale(type, other.planes[plane], i));
      ++count;
    }
    largest = std::max(largest, sum / count);
  }
  return largest;
}

void runPeer(benchmark::State& state, const tolk::Function& function, const Peer& peer, TolkSize roi) {
  Images ours(function, roi), theirs(function, roi);
  const Conversion convert = findConversion(peer, function, roi);
  convert(theirs.call);
  function.invoke(function.linked(), ours.call);
  // Another range of the samples makes 13 at most, samples in exchange far more.
  const double far = distance(function, ours, theirs);
  if (far > 16) {
    state.SkipWithError("not compared: its result is another one");
    return;
  }
  for (auto _ : state) {
    convert(theirs.call);
    benchmark::ClobberMemory();
  }
  countPixels(state, roi);
}

// Names of benchmarks are function/size/code; the codes of each function/size in the order of the registration.
std::map<std::string, std::vector<std::string>> registeredCodes;

std::pair<std::string, std::string> groupAndCode(const std::string& name) {
  const size_t last = name.rfind('/');
  return {name.substr(0, last), name.substr(last + 1)};
}

// One line a function, size and code with the rate and its ratios, as soon as all codes have run; or one summary at the
// end.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  explicit RatioReporter(bool summary) : summary_(summary) {}

  bool ReportContext(const Context&) override {
    std::string found;
    for (const Peer& peer : peers()) found += (found.empty() ? "" : ", ") + peer.name + " " + peer.version;
    std::printf("peers: %s\n", found.empty() ? "none found by the build" : found.c_str());
    if (!summary_) {
      std::printf("%-44s %-10s %-12s %8s %8s %9s %7s\n", "function", "size", "code", "Mpixel/s", "x plain", "x copy",
                  "x peer");
    }
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      const auto [group, code] = groupAndCode(run.run_name.function_name);
      bool isNew = false;
      if (run.error_occurred) {
        isNew = rates_[group].emplace(code, 0).second;
        if (isNew) std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
      } else if (run.repetitions == 1 || run.aggregate_name == "median") {
        isNew = rates_[group].emplace(code, run.counters.at("Mpixel/s")).second;
      }
      if (isNew && !summary_ && rates_[group].size() == registeredCodes[group].size()) printLines(group);
    }
    std::fflush(stdout);
  }

  void Finalize() override {
    for (const auto& [group, rates] : rates_) {
      if (!summary_ && rates.size() < registeredCodes[group].size()) printLines(group);
    }
    if (summary_) printSummary();
  }

 private:
  void printLines(const std::string& group) {
    const auto [function, size] = groupAndCode(group);
    for (const std::string& code : registeredCodes[group]) {
      const double rate = rateOf(group, code);
      if (rate == 0) continue;
      const bool ours = code == "ssse3" || code == "avx2";
      std::printf("%-44s %-10s %-12s %8.0f %8s %9s %7s\n", function.c_str(), size.c_str(), code.c_str(), rate,
                  ratio(rate, rateOf(group, "plain")).c_str(),
                  ratio(rate, std::max(rateOf(group, "memcpy"), rateOf(group, "stream"))).c_str(),
                  ours ? ratio(rate, rateOf(group, bestPeer(group, code))).c_str() : "-");
    }
  }

  void printSummary() {
    std::printf("%-39s %6s %6s %-12s %6s   %6s %6s %-12s %6s\n", "Mpixel/s", "ssse3", "best", "peer", "ratio", "avx2",
                "best", "peer", "ratio");
    for (const tolk::Function& function : tolk::functions()) {
      for (const Method& method : methods(function)) {
        if (rates_.count(method.name + "/256x128")) printSummary(method.name);
      }
    }
  }

  void printSummary(const std::string& name) {
    const std::string group = name + "/256x128";
    std::printf("%-39s", name.c_str());
    for (const char* code : {"ssse3", "avx2"}) {
      const std::string peer = bestPeer(group, code);
      const double rate = rateOf(group, code), theirs = rateOf(group, peer);
      std::printf(" %6.0f %6s %-12s %6s  ", rate, theirs > 0 ? std::to_string(std::lround(theirs)).c_str() : "-",
                  peer.c_str(), ratio(rate, theirs).c_str());
    }
    std::printf("\n");
  }

  double rateOf(const std::string& group, const std::string& code) {
    const auto found = rates_[group].find(code);
    return found == rates_[group].end() ? 0 : found->second;
  }

  // The fastest peer; against SSSE3 code a library that can be held to SSSE3 counts as held.
  std::string bestPeer(const std::string& group, const std::string& code) {
    std::string best;
    for (const Peer& peer : peers()) {
      if (code == "ssse3" && rateOf(group, peer.name + " ssse3") > 0) continue;
      if (rateOf(group, peer.name) > rateOf(group, best)) best = peer.name;
    }
    return best;
  }

  static std::string ratio(double rate, double to) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", rate / to);
    return to > 0 ? text : "-";
  }

  bool summary_;
  std::map<std::string, std::map<std::string, double>> rates_;
};

void registerMethod(const tolk::Function& function, const Method& method, TolkSize roi, bool summary) {
  const std::string group = method.name + "/" + std::to_string(roi.width) + "x" + std::to_string(roi.height);
  const auto add = [&](const std::string& code, auto run, auto... arguments) {
    registeredCodes[group].push_back(code);
    benchmark::RegisterBenchmark((group + "/" + code).c_str(), run, function, arguments..., roi)->UseRealTime();
  };
  if (!summary) add("memcpy", runCopy, false);
  if (!summary && roi.width * roi.height >= 1 << 22) add("stream", runCopy, true);
  for (const Peer& peer : peers()) {
    if (findConversion(peer, function, roi)) add(peer.name, runPeer, peer);
  }
  for (const Implementation& code : kImplementations) {
    if (!summary || std::strcmp(code.name, "plain") != 0) add(code.name, runFunction, method.ditherType, code.path);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  const auto asked = std::find_if(arguments.begin(), arguments.end(),
                                  [](const char* argument) { return std::strcmp(argument, "--summary") == 0; });
  const bool summary = asked != arguments.end();
  // Many short runs in random order, so that what else the machine does falls on all alike; later options win.
  char repetitions[] = "--benchmark_repetitions=9", time[] = "--benchmark_min_time=0.01",
       order[] = "--benchmark_enable_random_interleaving=true";
  if (summary) {
    arguments.erase(asked);
    arguments.insert(arguments.begin() + 1, {repetitions, time, order});
  }
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  std::string pattern;
  std::vector<TolkSize> sizes;
  for (int i = 1; i < count; ++i) {
    TolkSize size;
    if (!summary && std::strcmp(arguments[i], "--size") == 0 && i + 1 < count &&
        std::sscanf(arguments[++i], "%dx%d", &size.width, &size.height) == 2) {
      sizes.push_back(size);
    } else if (arguments[i][0] != '-') {
      pattern = arguments[i];
    } else {
      std::fprintf(stderr, "tolk_bench: unknown argument %s\n", arguments[i]);
      return 2;
    }
  }
  if (summary) sizes = {{256, 128}};
  if (sizes.empty()) sizes = {{256, 128}, {250, 128}, {1920, 1080}, {3840, 2160}};
  for (const tolk::Function& function : tolk::functions()) {
    for (const Method& method : methods(function)) {
      if (method.name.find(pattern) == std::string::npos) continue;
      for (const TolkSize roi : sizes) registerMethod(function, method, roi, summary);
    }
  }
  RatioReporter reporter(summary);
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
