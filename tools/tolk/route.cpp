// The functions that lead from one format to another.
#include "route.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

#include "lookup.h"
#include "matrices.h"
#include "samples.h"

namespace tolk {

namespace {

using Matrix = std::optional<std::string>;

// Compared from the left: matrices, loss of chroma, resampling, kinds of matrix, loss of depth, repacking.
using Cost = std::array<int, 6>;

struct PricedStep {
  Step step;
  Cost cost;
};

bool isResampling(const Function& function) { return function.family == "Plane resampling"; }

bool isChoosable(const Function& function, const Matrix& matrix) {
  const std::optional<int> own = matrixOf(function);
  if (!own || function.inPlace || function.src.tight) return false;
  if (function.operation == "YCbCr420ToYCrCb420") return false;  // against its name it puts Cb first
  if (function.operation == "RGBToCbYCr422") return false;       // its filter pales the chroma of a row's first pair
  if (function.operation == "YCbCr422ToGray") return false;      // its gray keeps luma's studio range
  return !matrix || !hasMatrix(function) || *matrix == matrixName(*own);
}

// A function had best work at the depth of the deeper end.
int depthLoss(const Format& from, const Function& function, const Format& to) {
  const int wanted = std::max(sampleBits(from.side.sample), sampleBits(to.side.sample));
  const int apart = sampleBits(function.src.sample) - wanted;
  return apart < 0 ? -2 * apart : apart;
}

std::optional<PricedStep> findStep(const Format& from, const Format& to, const Matrix& matrix) {
  std::optional<PricedStep> best;
  auto consider = [&](const Step& step, int extra) {
    const auto in = repackingCost(from.side, step.src), out = repackingCost(step.dst, to.side);
    if (!in || !out) return;
    const Function& f = *step.function;
    const int kind = hasMatrix(f) ? *matrixOf(f) : 0;
    const Cost cost = {hasMatrix(f), 0, isResampling(f), kind, depthLoss(from, f, to), *in + *out + extra};
    if (!best || cost < best->cost) best = {step, cost};
  };
  for (const Function& function : functions()) {
    if (!isChoosable(function, matrix)) continue;
    consider({&function, function.src, function.dst}, 0);
    const auto src = exchangedChroma(function.src), dst = exchangedChroma(function.dst);
    if (src && dst) consider({&function, *src, *dst}, 1);
  }
  return best;
}

// A format on the way had best have the grouping of the end with less chroma.
int chromaLoss(const Format& from, const Format& between, const Format& to) {
  const ChromaGroup a = chromaGroup(from.side), b = chromaGroup(between.side), c = chromaGroup(to.side);
  auto same = [](ChromaGroup x, ChromaGroup y) { return x.across == y.across && x.down == y.down; };
  auto area = [](ChromaGroup x) { return x.across * x.down; };
  const int largest = std::max(area(a), area(c));
  return (same(b, a) || same(b, c) ? 0 : 2) + (area(b) < largest ? 1 : area(b) > largest ? 4 : 0);
}

std::optional<Route> findRoute(const Format& from, const Format& to, const Matrix& matrix) {
  if (repackingCost(from.side, to.side)) return Route{{&from, &to}, {}};
  if (const auto step = findStep(from, to, matrix)) return Route{{&from, &to}, {step->step}};
  std::optional<Route> best;
  Cost least{};
  for (const Format& between : formats()) {
    const auto first = findStep(from, between, matrix);
    const auto second = first ? findStep(between, to, matrix) : std::nullopt;
    if (!second) continue;
    Cost cost;
    std::transform(first->cost.begin(), first->cost.end(), second->cost.begin(), cost.begin(), std::plus());
    cost[1] = chromaLoss(from, between, to);
    if (!best || cost < least) best = {{&from, &between, &to}, {first->step, second->step}}, least = cost;
  }
  return best;
}

std::string reached(const Format& from, const Matrix& matrix) {
  std::string names;
  for (const Format& to : formats()) {
    if (&to != &from && findRoute(from, to, matrix)) names += " " + std::string(to.name);
  }
  return names.empty() ? " nothing" : names;
}

bool isOfLight(const SideInfo& side) { return side.space == "XYZ" || side.space == "Lab" || side.space == "LUV"; }

// A curve between a step's RGB and the format beside it, at the deeper one's depth as far as there are curves.
Step curveStep(const char* direction, const SideInfo& side, const Format& beside) {
  const int bits = std::max(sampleBits(side.sample), sampleBits(beside.side.sample));
  const std::string sample(sampleType(std::min(bits, 32)));
  const Function& curve = requireFunction(std::string("tolkGamma") + direction + "_" + sample + "_C3R");
  const SideInfo rgb = {"RGB", "C3", curve.src.sample};
  return {&curve, rgb, rgb};
}

}  // namespace

Route requireRoute(const Format& from, const Format& to, const Matrix& matrix) {
  const std::string names = std::string(from.name) + " to " + std::string(to.name);
  if (auto route = findRoute(from, to, matrix)) {
    auto any =
        std::any_of(route->steps.begin(), route->steps.end(), [](auto& step) { return hasMatrix(*step.function); });
    if (matrix && !any) throw std::runtime_error("from " + names + " no matrix of YCbCr is applied");
    return *route;
  }
  const std::string given = matrix ? " with the matrix " + *matrix : "";
  std::string message = "no one or two functions lead from " + names + given;
  for (int other = 0; matrix && other < kMatrixCount; ++other) {
    const std::string name(matrixName(other));
    if (findRoute(from, to, name)) message += "; with " + name + " they do";
  }
  throw std::runtime_error(message + "\nfrom " + std::string(from.name) + given + " they lead to" +
                           reached(from, matrix));
}

Route withCurve(const Route& route) {
  const auto& [formats, steps] = route;
  if (std::none_of(formats.begin(), formats.end(), [](const Format* format) { return isOfLight(format->side); })) {
    throw std::runtime_error("from " + std::string(formats.front()->name) + " to " + std::string(formats.back()->name) +
                             " no transfer curve is applied: neither is XYZ, Lab or LUV");
  }
  if (steps.empty()) return route;
  Route curved = {{formats[0]}, {}};
  auto append = [&](const Step& step, const Format* format) {
    curved.steps.push_back(step);
    curved.formats.push_back(format);
  };
  for (size_t i = 0; i < steps.size(); ++i) {
    const bool straight = i > 0 && isOfLight(steps[i - 1].src);  // from light by RGB to light
    if (isOfLight(steps[i].dst) && !straight) {
      const Step off = curveStep("Inv", steps[i].src, *formats[i]);
      append(off, findFormat(off.dst));
    }
    const bool lays = isOfLight(steps[i].src) && !isOfLight(formats.back()->side);
    append(steps[i], lays ? findFormat({"RGB", "C3", steps[i].dst.sample}) : formats[i + 1]);
    if (lays) append(curveStep("Fwd", steps[i].dst, *formats[i + 1]), formats[i + 1]);
  }
  return curved;
}

TolkSize wholeSize(const Route& route, TolkSize size) {
  ChromaGroup whole = {1, 1};
  auto take = [&](ChromaGroup group) {
    whole = {std::max(whole.across, group.across), std::max(whole.down, group.down)};
  };
  for (const Format* format : route.formats) take(chromaGroup(format->side));
  for (const Step& step : route.steps) {
    if (isResampling(*step.function)) take({4, 4});
  }
  return {roundUp(size.width, whole.across), roundUp(size.height, whole.down)};
}

}  // namespace tolk
