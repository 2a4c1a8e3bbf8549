// What the library holds: list, info and version.
#include <dlfcn.h>

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "commands.h"
#include "lookup.h"
#include "packing.h"

namespace tolk {

namespace {

constexpr TolkSize kExample = {451, 300};

// Where tolk run has the arguments from that are no images.
constexpr std::pair<std::string_view, std::string_view> kOrigins[] = {{"alpha", "--alpha"},
                                                                      {"coeffs[3]", "--coeffs"},
                                                                      {"vMin", "--vmin"},
                                                                      {"vMax", "--vmax"},
                                                                      {"twist[3][4]", "--twist"},
                                                                      {"twist[4][4]", "--twist"},
                                                                      {"noise", "--noise"},
                                                                      {"ditherType", "--dither"},
                                                                      {"levels", "--levels"},
                                                                      {"threshold", "--threshold"},
                                                                      {"dstBitOffset", "--bit-offset"},
                                                                      {"grid", "--grid"},
                                                                      {"scale[3]", "--gains"},
                                                                      {"srcRect", "the whole mosaic"},
                                                                      {"bufferStep", "as large as it has to be"},
                                                                      {"buffer", "as large as it has to be"},
                                                                      {"stripe", "21, a whole picture"}};

void printIndented(std::string_view text) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    std::cout << (end > 0 ? "  " : "") << text.substr(0, end) << '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void printItem(std::string_view title, std::string_view value) {
  std::cout << "  " << std::left << std::setw(13) << title << value << '\n';
}

std::string originOf(std::string_view parameter) {
  for (const auto& [name, origin] : kOrigins) {
    if (name == parameter) return "  (of tolk run: " + std::string(origin) + ")";
  }
  return "";
}

void printSide(std::string_view title, const SideInfo& side) {
  printItem(title, label(side) + (servesImages(side) ? ", an image file or raw bytes" : ", raw bytes"));
  std::string planes;
  for (const PlaneShape& shape : planeShapes(side, kExample)) {
    planes += (planes.empty() ? "" : ", ") + std::to_string(shape.rowBytes) + " bytes x " + std::to_string(shape.rows);
  }
  printItem("", "planes of " + std::to_string(kExample.width) + "x" + std::to_string(kExample.height) +
                    " pixels: " + planes + " rows");
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
  printIndented(function.text);
  std::cout << '\n';
  std::string_view title = "arguments";
  for (const Parameter& parameter : function.parameters) {
    printItem(title, std::string(parameter.type) + " " + std::string(parameter.name) + originOf(parameter.name));
    title = "";
  }
  printSide(function.inPlace ? "in place" : "source", function.src);
  if (!function.inPlace) printSide("destination", function.dst);
  std::cout << '\n' << function.family << "\n\n";
  printIndented(function.familyText);
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
