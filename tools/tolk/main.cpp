// The command line of tolk: converts pictures with the library's functions, and tells about them.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

#include "commands.h"

namespace {

constexpr char kRunText[] = R"(
RGB, BGR and gray sides take image files (png, jpg, ppm, pgm, pnm), by the file's extension. Every
other name is raw bytes: the planes of the side one after another without padding. A raw IN needs
--size. The name - is raw standard input or output.

Channels are swapped or split as the side wants them. A gray picture goes into all three channels,
a missing alpha is opaque, a superfluous one is dropped. The destination starts as zero, for
functions that leave some of it as it was. JPEG files are written at quality 95 without chroma
subsampling.

Exit status: 0 also for a warning (a positive status: the result is written), unless --strict; not 0
for an error, and then OUT is as it was.)";

void addCatalogueCommands(CLI::App& app, std::string& name) {
  auto* list = app.add_subcommand("list", "List functions with layouts and sample types");
  list->add_option("PATTERN", name, "part of a name, or a pattern with * and ? for the whole name; case aside");
  list->callback([&] { tolk::listFunctions(name); });
  auto* info = app.add_subcommand("info", "Show a function's arguments, layouts and rules");
  info->add_option("FUNCTION", name, "a name that list shows")->required();
  info->callback([&] { tolk::showFunction(name); });
  app.add_subcommand("version", "Show the library's record and the file that the loader chose")->callback([] {
    tolk::showVersion();
  });
}

void addRunCommand(CLI::App& app, tolk::RunOptions& options) {
  auto* run = app.add_subcommand("run", "Convert a picture or raw bytes with one function")->footer(kRunText);
  run->add_option("FUNCTION", options.function, "a name that list shows")->required();
  run->add_option("IN", options.in, "the source: an image file or raw bytes")->required();
  run->add_option("OUT", options.out, "the destination: an image file or raw bytes")->required();
  run->add_option("--size", options.size, "WIDTHxHEIGHT in pixels; for an image file it is only checked");
  run->add_option("--alpha", options.alpha, "for functions that set alpha (default 255)")->check(CLI::Range(0, 255));
  run->add_option("--repeat", options.repeat, "call N times and print the speed")->check(CLI::Range(1, 1'000'000));
  run->add_flag("--strict", options.strict, "a warning of the function is an error");
  run->callback([&] { tolk::runFunction(options); });
}

struct PictureOptions {
  std::string first, second;
  std::vector<std::string> images;
  int gap = 4;
};

void addPictureCommands(CLI::App& app, PictureOptions& options) {
  auto* panel = app.add_subcommand("panel", "Put pictures side by side: 8 bits, without alpha, tops aligned");
  panel->add_option("OUT", options.first, "the image file to write")->required();
  panel->add_option("IMAGE", options.images, "the image files, from left to right")->required();
  panel->add_option("--gap", options.gap, "white columns between two pictures")->check(CLI::Range(0, 1000));
  panel->callback([&] { tolk::makePanel(options.first, options.images, options.gap); });
  auto* compare = app.add_subcommand("compare", "Print the difference of two pictures by channel, alpha aside");
  compare->add_option("A", options.first, "an image file")->required();
  compare->add_option("B", options.second, "an image file of the same size")->required();
  compare->callback([&] { tolk::comparePictures(options.first, options.second); });
}

int parse(int count, char** words) {
  CLI::App app("Colour conversion of pictures with TolkColor", "tolk");
  app.require_subcommand(1);
  std::string name;
  tolk::RunOptions runOptions;
  PictureOptions pictureOptions;
  addCatalogueCommands(app, name);
  addRunCommand(app, runOptions);
  addPictureCommands(app, pictureOptions);
  CLI11_PARSE(app, count, words);
  if (!std::cout.flush()) throw std::runtime_error("cannot write standard output");
  return 0;
}

}  // namespace

int main(int count, char** words) {
  try {
    return parse(count, words);
  } catch (const std::bad_alloc&) {
    std::cerr << "tolk: not enough memory\n";
  } catch (const std::exception& fault) {
    std::cerr << "tolk: " << fault.what() << '\n';
  }
  return 1;
}
