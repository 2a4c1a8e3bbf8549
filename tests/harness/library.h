// The functions of the table, each with its address in the library under test and in the reference.
#pragma once

#include <ostream>
#include <span>
#include <string_view>
#include <vector>

#include "catalogue.h"

namespace harness {

struct Subject {
  const tolk::Function* function;
  void* tested;
  void* expected;
};

enum class StepKind { None, Shared, Each };  // no step argument; one for all planes; one a plane

// What the signature says of one side; `name` is "src", "dst" or, in place, "srcDst".
struct SideArguments {
  bool array = false;  // planes behind an array of pointers
  StepKind steps = StepKind::None;
};
SideArguments sideArguments(const tolk::Function& function, std::string_view name);

// Null weights are a request for the usual ones, but one function reads them untested.
inline bool takesNullCoeffs(const tolk::Function& f) {
  return f.has("coeffs[3]") && f.name != "tolkColorToGray_64f_AC4C1R";
}

// Defined but for the accuracy of a single-precision power.
inline bool roundsPower(const tolk::Function& f) { return f.family == "Gamma" && f.src.sample == "32f"; }

// Loads the file that TOLK_LIBRARY names. A failure or a function that is missing ends the program with a message.
void openLibrary();
void* librarySymbol(const char* name);
const std::vector<Subject>& subjects();
const Subject& subject(std::string_view name);

inline void PrintTo(const Subject& subject, std::ostream* out) { *out << subject.function->name; }

}  // namespace harness
