// A function by the name that a user typed.
#include "lookup.h"

#include <fnmatch.h>

#include <algorithm>
#include <cctype>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tolk {

namespace {

// The number of letters to add, drop or change, case aside.
size_t distance(std::string_view a, std::string_view b) {
  std::vector<size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), size_t{0});
  for (size_t i = 0; i < a.size(); ++i) {
    size_t diagonal = std::exchange(row[0], i + 1);
    for (size_t j = 0; j < b.size(); ++j) {
      const bool same =
          std::tolower(static_cast<unsigned char>(a[i])) == std::tolower(static_cast<unsigned char>(b[j]));
      const size_t best = std::min({row[j] + 1, row[j + 1] + 1, diagonal + (same ? 0 : 1)});
      diagonal = std::exchange(row[j + 1], best);
    }
  }
  return row.back();
}

}  // namespace

bool matches(const std::string& pattern, std::string_view name) {
  if (pattern.find_first_of("*?[") != std::string::npos) {
    return ::fnmatch(pattern.c_str(), std::string(name).c_str(), FNM_CASEFOLD) == 0;
  }
  auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
  return std::search(name.begin(), name.end(), pattern.begin(), pattern.end(), same) != name.end();
}

const Function& requireFunction(const std::string& name) {
  if (const Function* function = findFunction(name)) return *function;
  std::vector<std::pair<size_t, std::string_view>> near;
  for (const Function& function : functions()) {
    const size_t apart = distance(name, function.name);
    if (apart <= function.name.size() / 3) near.emplace_back(apart, function.name);
  }
  std::sort(near.begin(), near.end());
  near.resize(std::min<size_t>(near.size(), 3));
  std::string message = "there is no function " + name + "; ";
  if (near.empty()) throw std::runtime_error(message + "'tolk list' shows all");
  message += "near names:";
  for (const auto& [apart, candidate] : near) message += "\n  " + std::string(candidate);
  throw std::runtime_error(message);
}

}  // namespace tolk
