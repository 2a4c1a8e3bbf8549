// What the library holds: list, info and version.
#include <dlfcn.h>
#include <fnmatch.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <stdexcept>

#include "commands.h"
#include "lookup.h"
#include "packing.h"

namespace tolk {

namespace {

constexpr size_t kLineWidth = 100;
constexpr TolkSize kExample = {451, 300};

bool matches(const std::string& pattern, std::string_view name) {
  if (pattern.find_first_of("*?[") != std::string::npos) {
    return ::fnmatch(pattern.c_str(), std::string(name).c_str(), FNM_CASEFOLD) == 0;
  }
  auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
  return std::search(name.begin(), name.end(), pattern.begin(), pattern.end(), same) != name.end();
}

// One paragraph or list item, its lines broken anew; a list item hangs under its first word.
void printFilled(std::string_view text, size_t indent) {
  const size_t hang = indent + (text.starts_with("- ") ? 2 : 0);
  size_t column = indent;
  std::cout << std::string(indent, ' ');
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find_first_of(" \n", at), text.size());
    const std::string_view word = text.substr(at, end - at);
    if (column > hang && column + 1 + word.size() > kLineWidth) {
      std::cout << '\n' << std::string(hang, ' ');
      column = hang;
    } else if (at > 0) {
      std::cout << ' ';
      ++column;
    }
    std::cout << word;
    column += word.size();
    at = std::min(text.find_first_not_of(" \n", end), text.size());
  }
  std::cout << '\n';
}

void printText(std::string_view text, size_t indent) {
  while (!text.empty()) {
    const size_t end = std::min({text.find("\n\n"), text.find("\n- "), text.size()});
    printFilled(text.substr(0, end), indent);
    text.remove_prefix(end);
    if (text.starts_with("\n\n")) std::cout << '\n';
    text.remove_prefix(std::min(text.find_first_not_of('\n'), text.size()));
  }
}

void printSide(const char* title, const SideInfo& side) {
  std::cout << "  " << std::left << std::setw(13) << title << label(side) << ", from or to "
            << (servesImages(side) ? "an image file or raw bytes" : "raw bytes") << '\n'
            << std::string(15, ' ') << "planes of " << kExample.width << "x" << kExample.height
            << " pixels, in bytes by rows:";
  for (const PlaneShape& shape : planeShapes(side, kExample)) std::cout << "  " << shape.rowBytes << "x" << shape.rows;
  std::cout << '\n';
}

}  // namespace

void listFunctions(const std::string& pattern) {
  bool found = false;
  for (const Function& function : functions()) {
    if (!matches(pattern, function.name)) continue;
    found = true;
    std::cout << std::left << std::setw(36) << function.name << "  " << std::setw(14) << label(function.src);
    std::cout << (function.inPlace ? "  in place" : " -> " + label(function.dst)) << '\n';
  }
  if (!found) throw std::runtime_error("no function matches " + pattern);
}

void showFunction(const std::string& name) {
  const Function& function = requireFunction(name);
  std::cout << function.name << '\n';
  printText(function.text, 2);
  std::cout << '\n';
  const char* title = "arguments";
  for (const Parameter& parameter : function.parameters) {
    std::cout << "  " << std::left << std::setw(13) << title << parameter.type
              << (parameter.type.ends_with('*') ? "" : " ") << parameter.name << '\n';
    title = "";
  }
  printSide(function.inPlace ? "in place" : "source", function.src);
  if (!function.inPlace) printSide("destination", function.dst);
  std::cout << '\n' << function.family << "\n\n";
  printText(function.familyText, 2);
}

void showVersion() {
  const TolkLibraryVersion* version = tolkGetLibVersion();
  std::cout << version->libraryName << '\n'
            << "version  " << version->versionText << '\n'
            << "built    " << version->buildDate << '\n'
            << "target   " << version->targetCode << '\n';
  // The record lies in the library, while a function's address may be that of a stub in the program.
  Dl_info place = {};
  if (::dladdr(version, &place) == 0) throw std::runtime_error("the loader does not tell the library's file");
  std::cout << "file     " << std::filesystem::canonical(place.dli_fname).string() << '\n';
}

}  // namespace tolk
