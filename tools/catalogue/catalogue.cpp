// Lookup in the function table and image geometry.
#include "catalogue.h"

#include <algorithm>
#include <charconv>

#include "table_binding.h"

namespace tolk {

#define FUNCTION_SCOPE
#include "function_table.inc"

std::span<const Function> functions() { return kTable; }

const Function* findFunction(std::string_view name) {
  const auto found = std::ranges::find(kTable, name, &Function::name);
  return found == std::end(kTable) ? nullptr : found;
}

bool Function::has(std::string_view parameterName) const {
  return std::any_of(parameters.begin(), parameters.end(), [&](const Parameter& p) { return p.name == parameterName; });
}

int sampleBits(std::string_view sample) {
  int bits = 0;
  std::from_chars(sample.data(), sample.data() + sample.size(), bits);
  return bits;
}

ChromaGroup chromaGroup(const SideInfo& side) {
  if (side.space.ends_with("422")) return {2, 1};
  if (side.space.ends_with("411")) return {4, 1};
  if (side.space.ends_with("1620")) return {4, 4};
  if (side.space.ends_with("420")) return {2, 2};
  return {1, 1};
}

std::vector<PlaneShape> planeShapes(const SideInfo& side, TolkSize roi) {
  const int64_t width = roi.width, height = roi.height;
  const int bits = sampleBits(side.sample);
  auto plane = [&](int64_t columns, int64_t rows, int channels) {
    return PlaneShape{(columns * channels * bits + 7) / 8, rows, channels};
  };
  if (side.space.ends_with("v210")) return {{(width + 5) / 6 * 16, height, 1}};
  const auto [across, down] = chromaGroup(side);
  const bool whole = side.tight && down > 1;
  const int64_t chromaWidth = (width + (whole ? 0 : across - 1)) / across;
  const int64_t chromaHeight = (height + (whole ? 0 : down - 1)) / down;
  const int count = side.layout.back() - '0';
  if (side.layout == "P2") return {plane(width, height, 1), plane(chromaWidth, chromaHeight, 2)};
  if (side.layout.find('P') == std::string_view::npos) return {plane(width, height, count)};
  std::vector<PlaneShape> planes(static_cast<size_t>(count), plane(width, height, 1));
  planes[1] = planes[2] = plane(chromaWidth, chromaHeight, 1);
  return planes;
}

SideArguments sideArguments(const Function& function, std::string_view name) {
  SideArguments result;
  for (const tolk::Parameter& parameter : function.parameters) {
    const std::string_view rest = parameter.name.substr(std::min(name.size(), parameter.name.size()));
    if (!parameter.name.starts_with(name) || rest.starts_with("Dst")) continue;
    if (rest.find("Step") == std::string_view::npos) {
      result.array = result.array || rest.starts_with("[");
    } else {
      result.steps = rest == "Step" ? StepKind::Shared : StepKind::Each;
    }
  }
  return result;
}

static size_t scratchSize(const Function& function, Call& call) {
  if (!function.has("buffer")) return 0;
  if (function.has("bufferStep")) {
    call.bufferStep = (call.roi.width + 6) * sampleBits(function.src.sample) / 8;
    return size_t{30} * static_cast<size_t>(call.bufferStep);
  }
  uint32_t bytes = 0;  // stays so for arguments that the function itself refuses
  const uint32_t anyChannels = 1, noise = function.has("noise") ? call.noise : 0;
  tolkReduceBitsGetBufferSize(anyChannels, static_cast<uint32_t>(call.roi.width), noise, call.ditherType, &bytes);
  return bytes;
}
std::vector<uint8_t> scratchMemory(const Function& function, Call& call) {
  std::vector<uint8_t> memory(scratchSize(function, call));
  call.buffer = memory.data();
  return memory;
}

}  // namespace tolk
