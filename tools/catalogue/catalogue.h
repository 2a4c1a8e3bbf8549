// The table of all image functions, derived from the public header, and the shapes of their images.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tolkcolor.h"

namespace tolk {

// The image of one side of a call. `plane` and `step` in the order of the arguments, every step in bytes; a missing
// array is a null pointer.
struct Side {
  std::array<void*, 4> plane{};
  std::array<int64_t, 4> step{};
  bool nullArray = false;
  bool nullSteps = false;  // where each plane has a step
};

// One call of any function: every argument that some function takes.
struct Call {
  Side src = {}, dst = {};
  TolkSize roi{};
  double alpha = 0;      // a double holds the values of every sample type
  uint32_t stripe = 21;  // a whole picture
  // Rows of a matrix, of which most functions take three; none is a null pointer.
  std::optional<std::array<float, 16>> twist = {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
  // Weights of the caller; none is a null pointer, which one function does not take.
  std::optional<std::array<double, 3>> coeffs = {{0.299, 0.587, 0.114}};
  float vMin = 0, vMax = 1;            // the range of values that a curve is laid over
  std::optional<TolkSizeL> roiL = {};  // the size in the forms of 64 bits, if it is not that of `roi`
  // Of bit reduction, whose scratch memory is the caller's.
  uint32_t noise = 0, ditherType = tolkDitherNone;
  int32_t levels = 2, dstBitOffset = 0;
  uint8_t threshold = 127;
  void* buffer = nullptr;
  // Of demosaicing: rows of scratch memory in `buffer`; the mosaic in `src` and its rectangle that `dst` begins with,
  // both of `roi` if there are none; gains of blue, green and red, of which none are a null pointer.
  int32_t bufferStep = 0;
  std::optional<TolkSizeL> mosaic = {};
  std::optional<TolkRectL> rect = {};
  uint32_t grid = tolkGridRGGB;
  int32_t reserved = -1;
  std::optional<std::array<float, 3>> scale = {};
};

struct SideInfo {
  // "RGB", "YCbCr422"; "Color" has its channels in any order, "Any" is whatever the caller has; "RGB565" and "Gray10"
  // are 16-bit words, and no plain 16-bit samples; "CFA" is a Bayer mosaic
  std::string_view space;
  std::string_view layout;  // "C3", "P2", "AC4"
  std::string_view sample;  // "8u", "32f"
  bool tight = false;       // the call takes no steps: rows stand without slack, and 4:2:0 chroma is rounded down
};

struct Parameter {
  std::string_view type, name;  // an array's extent stands behind its name: "src[3]"
};

struct Function {
  std::string_view name, family, operation, variant;
  SideInfo src, dst;
  bool inPlace;
  std::span<const Parameter> parameters;
  std::string_view familyText, text;  // the header's words
  void* (*linked)();                  // gives the function in the library that this program is linked with
  TolkStatus (*invoke)(void* function, const Call& call);

  bool has(std::string_view parameterName) const;
};

std::span<const Function> functions();
const Function* findFunction(std::string_view name);

enum class StepKind { None, Shared, Each };  // no step argument; one for all planes; one a plane

// What the signature says of one side; `name` is "src", "dst" or, in place, "srcDst".
struct SideArguments {
  bool array = false;  // planes behind an array of pointers
  StepKind steps = StepKind::None;
};
SideArguments sideArguments(const Function& function, std::string_view name);

// Null weights are a request for the usual ones, but one function reads them untested.
inline bool takesNullCoeffs(const Function& f) { return f.has("coeffs[3]") && f.name != "tolkColorToGray_64f_AC4C1R"; }

// One plane of an image: its rows are `rowBytes` long without slack.
struct PlaneShape {
  int64_t rowBytes;
  int64_t rows;
  int channels;  // samples that belong together: 3 in a C3 plane, 2 in a packed 4:2:2 or interleaved chroma plane
};

int sampleBits(std::string_view sample);

// The pixels that share a chroma sample.
struct ChromaGroup {
  int across, down;
};
ChromaGroup chromaGroup(const SideInfo& side);

// The planes of an image of `roi` pixels; subsampled dimensions are rounded up, except where a tight side says
// otherwise.
std::vector<PlaneShape> planeShapes(const SideInfo& side, TolkSize roi);

// Gives a call the scratch memory that the function asks for, by the settings that the call has.
std::vector<uint8_t> scratchMemory(const Function& function, Call& call);

}  // namespace tolk
