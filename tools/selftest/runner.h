// Calls functions over the fixed inputs of the self-test.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bounds.h"

namespace tolk::selftest {

// What a digest is made of; each part has a short digest too, which tells where something differs.
inline constexpr std::array<const char*, 9> kParts = {
    "whole blocks",    "tails and small images", "padded rows",   "rows from the bottom up",
    "extreme samples", "other arguments",        "a large image", "bad arguments",
    "statuses"};

struct Digest {
  uint64_t all = 0;
  std::array<uint16_t, kParts.size()> parts{};
};

// A function and where it stands: an image function of the table, or that which tells the size of scratch memory.
struct Subject {
  std::string name;
  const Function* function;  // null for the latter
  void* address;
};
std::vector<Subject> subjects(std::span<const Function> functions, void* sizeQuery);

class Runner {
 public:
  // Statuses and all bytes of images and their surroundings; if `bounded`, but for inexact samples.
  Digest digest(const Subject& subject, bool bounded);
  // The results of one call of an inexact function, rows without slack.
  Rows results(const Subject& subject);

 private:
  struct Plan;
  static std::vector<Plan> plansOf(size_t part, const Function& f);
  Call prepare(const Function& f, const Plan& plan, uint32_t turn);

  PaddedImage src_, dst_;
  std::vector<uint8_t> scratch_;
};

}  // namespace tolk::selftest
