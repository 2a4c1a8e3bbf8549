// The committed table of what the functions give: one line for each.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runner.h"

namespace tolk::selftest {

// NAME = DIGEST PARTS: all bits; NAME ~ DIGEST PARTS LEAST [GREATEST]: all but the inexact samples, and results of one
// call; or both, where results are usually exact. Numbers are hexadecimal; without GREATEST it is LEAST.
struct Entry {
  std::string name;
  std::optional<Digest> exact, bounded;
  Rows least, greatest;
};
std::string toLine(const Entry& entry);
Entry fromLine(std::string_view line);

// The table that is compiled in; the lines stand in the order of their names.
std::optional<Entry> findEntry(std::string_view name);

struct Verdict {
  std::string fault;  // empty if all is well
  bool byBound = false;
  bool unusual = false;  // within the bounds, but not what every good pow gives
};
Verdict judge(Runner& runner, const Subject& subject);

}  // namespace tolk::selftest
