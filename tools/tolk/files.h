// Whole files in and out.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tolk {

using Bytes = std::vector<uint8_t>;

inline constexpr char kStandardStream[] = "-";

std::string extensionOf(const std::string& path);  // in lower case, with its dot

Bytes readFile(const std::string& path);
// An existing file is replaced in one step, and only by a complete one.
void writeFile(const std::string& path, std::span<const uint8_t> bytes);

}  // namespace tolk
