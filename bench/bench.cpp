// Measures every function in every class library, in one run with plain scalar code and memcpy, and prints the ratios.
//
//   tolk_bench [PATTERN] [--size WxH]... [Google Benchmark's own options]
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "catalogue.h"

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

// The images of a call: rows without slack, planes apart.
class Images {
 public:
  Images(const tolk::Function& function, TolkSize roi) {
    call.roi = roi;
    call.alpha = 255;
    sourceBytes = fill(function.src, call.src);
    targetBytes = fill(function.dst, call.dst);
  }
  tolk::Call call;
  size_t sourceBytes = 0, targetBytes = 0;

 private:
  size_t fill(const tolk::SideInfo& info, tolk::Side& side) {
    size_t total = 0, plane = 0;
    for (const tolk::PlaneShape& shape : tolk::planeShapes(info, call.roi)) {
      const size_t bytes = static_cast<size_t>(shape.rowBytes * shape.rows);
      storage_.emplace_back(new uint8_t[bytes]);
      for (size_t i = 0; i < bytes; ++i) storage_.back()[i] = static_cast<uint8_t>(i * 2654435761u >> 13);
      side.plane[plane] = storage_.back().get();
      side.step[plane++] = shape.rowBytes;
      total += bytes;
    }
    return total;
  }
  std::vector<std::unique_ptr<uint8_t[]>> storage_;
};

void countPixels(benchmark::State& state, TolkSize roi) {
  const double pixels = static_cast<double>(state.iterations()) * roi.width * roi.height;
  state.counters["Mpixel/s"] = benchmark::Counter(pixels / 1e6, benchmark::Counter::kIsRate);
}

void runFunction(benchmark::State& state, const tolk::Function& function, const char* path, TolkSize roi) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  void* entry = library ? dlsym(library, std::string(function.name).c_str()) : nullptr;
  Images images(function, roi);
  if (entry == nullptr || function.invoke(entry, images.call) < 0) {
    state.SkipWithError(entry ? "the call fails" : dlerror());
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(function.invoke(entry, images.call));
  countPixels(state, roi);
}

// Moves as many bytes as the function reads and writes.
void runMemcpy(benchmark::State& state, const tolk::Function& function, TolkSize roi) {
  Images images(function, roi);
  const size_t bytes = (images.sourceBytes + images.targetBytes) / 2;
  std::unique_ptr<uint8_t[]> from(new uint8_t[bytes]()), to(new uint8_t[bytes]());
  for (auto _ : state) {
    std::memcpy(to.get(), from.get(), bytes);
    benchmark::DoNotOptimize(to.get());
    benchmark::ClobberMemory();
  }
  countPixels(state, roi);
}

// One line a function and size, with the rate of each implementation and its ratios to the first two.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::printf("%-44s %-10s %-7s %9s %8s %9s\n", "function", "size", "code", "Mpixel/s", "x plain", "x memcpy");
    return true;
  }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        continue;
      }
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      const std::string name = run.run_name.function_name;  // function/size/code
      const size_t last = name.rfind('/'), middle = name.rfind('/', last - 1);
      const std::string group = name.substr(0, last), code = name.substr(last + 1);
      const double rate = run.counters.at("Mpixel/s");
      rates_[group][code] = rate;
      if (runs.size() > 1 && run.run_type != Run::RT_Aggregate) continue;
      std::printf("%-44s %-10s %-7s %9.0f %8s %9s\n", name.substr(0, middle).c_str(),
                  name.substr(middle + 1, last - middle - 1).c_str(), code.c_str(), rate,
                  ratio(group, "plain", rate).c_str(), ratio(group, "memcpy", rate).c_str());
    }
    std::fflush(stdout);
  }

 private:
  std::string ratio(const std::string& group, const char* to, double rate) {
    const auto found = rates_[group].find(to);
    if (found == rates_[group].end()) return "-";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", rate / found->second);
    return text;
  }
  std::map<std::string, std::map<std::string, double>> rates_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  std::string pattern;
  std::vector<TolkSize> sizes;
  for (int i = 1; i < argc; ++i) {
    TolkSize size;
    if (std::strcmp(argv[i], "--size") == 0 && i + 1 < argc &&
        std::sscanf(argv[++i], "%dx%d", &size.width, &size.height) == 2) {
      sizes.push_back(size);
    } else if (argv[i][0] != '-') {
      pattern = argv[i];
    } else {
      std::fprintf(stderr, "tolk_bench: unknown argument %s\n", argv[i]);
      return 2;
    }
  }
  if (sizes.empty()) sizes = {{256, 128}, {250, 128}, {1920, 1080}, {3840, 2160}};
  for (const tolk::Function& function : tolk::functions()) {
    if (function.name.find(pattern) == std::string_view::npos) continue;
    for (const TolkSize roi : sizes) {
      const std::string group =
          std::string(function.name) + "/" + std::to_string(roi.width) + "x" + std::to_string(roi.height) + "/";
      benchmark::RegisterBenchmark((group + "memcpy").c_str(), runMemcpy, function, roi);
      for (const Implementation& code : kImplementations) {
        benchmark::RegisterBenchmark((group + code.name).c_str(), runFunction, function, code.path, roi);
      }
    }
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
