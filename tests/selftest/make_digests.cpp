// Prints the table of the self-test, from the references.
#include <cstdio>

#include "fault_note.h"
#include "reference/power.h"
#include "reference/spaces/pixels.h"
#include "reference/table.h"
#include "reference_declarations.h"
#include "selftest/table.h"

using namespace tolk::selftest;

static Entry entryOf(Runner& runner, const Subject& subject) {
  Entry entry;
  entry.name = subject.name;
  const auto inexact = subject.function ? inexactness(*subject.function) : std::nullopt;
  if (!inexact || inexact->usuallyExact) entry.exact = runner.digest(subject, false);
  if (!inexact) return entry;
  entry.bounded = runner.digest(subject, true);
  reference::exactReciprocals = true;
  reference::powerShift = 0.5 - reference::kPowerAccuracy;
  entry.least = runner.results(subject);
  reference::powerShift = reference::kPowerAccuracy - 0.5;
  entry.greatest = runner.results(subject);
  reference::exactReciprocals = false, reference::powerShift = 0;
  return entry;
}

int main() {
  tolk::reportFaults();
  Runner runner;
  for (const Subject& subject :
       subjects(reference::functions(), reinterpret_cast<void*>(&reference::tolkReduceBitsGetBufferSize))) {
    tolk::announce(subject.name);
    std::puts(toLine(entryOf(runner, subject)).c_str());
  }
}
