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

using tolk::SideArguments, tolk::sideArguments, tolk::StepKind, tolk::takesNullCoeffs;

// Defined but for the accuracy of a single-precision power.
inline bool roundsPower(const tolk::Function& f) { return f.family == "Gamma" && f.src.sample == "32f"; }

// The references of some functions read the planes behind a null array; the library reports the array instead.
bool undefinedInReference(const tolk::Function& f, const tolk::Call& call);

// Loads the file that TOLK_LIBRARY names. A failure or a function that is missing ends the program with a message.
void openLibrary();
void* librarySymbol(const char* name);
const std::vector<Subject>& subjects();
const Subject& subject(std::string_view name);

inline void PrintTo(const Subject& subject, std::ostream* out) { *out << subject.function->name; }

}  // namespace harness
