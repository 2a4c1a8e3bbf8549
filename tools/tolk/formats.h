// The pixel formats that convert knows by name.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "packing.h"

namespace tolk {

struct Format {
  std::string_view name, kind;
  SideInfo side;
};

std::span<const Format> formats();
std::string formatTable();  // the names by kind, a line each
const Format& requireFormat(std::string_view name);
const Format* findFormat(const SideInfo& side);
const Format* formatOfExtension(const std::string& path);

int32_t roundUp(int32_t count, int whole);
// The size that a file is laid out for: its rows have whole pairs in packed 4:2:2, and whole groups of 48 pixels in
// v210.
TolkSize fileSize(const SideInfo& side, TolkSize size);

}  // namespace tolk
