// The command line of tolk: converts pictures with the library's functions, and tells about them.
#include <CLI/CLI.hpp>
#include <exception>
#include <iomanip>
#include <iostream>
#include <new>

#include "commands.h"
#include "formats.h"
#include "help_texts.h"

namespace {

void addCatalogueCommands(CLI::App& app, std::string& name) {
  auto* list = app.add_subcommand("list", "List functions with layouts and sample types");
  list->add_option("PATTERN", name, "part of a name, or a pattern with * and ? for the whole name; case aside");
  list->callback([&] { tolk::listFunctions(name); });
  auto* info = app.add_subcommand("info", "Show a function's arguments, layouts and rules");
  info->add_option("FUNCTION", name, "a name that list shows")->required();
  info->callback([&] { tolk::showFunction(name); });
  app.add_subcommand("formats", "List the formats of convert and view")->callback([] {
    for (const tolk::Format& format : tolk::formats()) {
      std::cout << std::left << std::setw(20) << format.name << tolk::label(format.side) << '\n';
    }
  });
  app.add_subcommand("version", "Show the library's record and the file that the loader chose")->callback([] {
    tolk::showVersion();
  });
}

void addSelftestCommand(CLI::App& app, tolk::SelftestOptions& options) {
  auto* test = app.add_subcommand("selftest", "Prove that the library is exact on this processor");
  test->footer(tolk::kSelftestText);
  test->add_option("FUNCTION", options.pattern, "only these, as of tolk list");
  test->add_option("--library", options.library, "the library's file, in place of the one that the loader chose")
      ->type_name("FILE");
  test->add_flag("--verbose", options.verbose, "print what is judged of every function");
  test->callback([&] { tolk::testLibrary(options); });
}

CLI::Option* addGrid(CLI::App* command, std::string& grid, const char* words) {
  return command->add_option("--grid", grid, words)
      ->check(CLI::IsMember({"rggb", "bggr", "gbrg", "grbg"}))
      ->type_name("GRID");
}

CLI::Option* addBits(CLI::App* command, std::optional<int>& bits, const char* words) {
  return command->add_option("--bits", bits, words)->check(CLI::IsMember({8, 10, 12, 14, 16}))->type_name("NUMBER");
}

CLI::Option* addGains(CLI::App* command, std::vector<float>& gains, const char* words) {
  return command->add_option("--gains", gains, words)->delimiter(',')->expected(3)->type_name("");
}

void addRunCommand(CLI::App& app, tolk::RunOptions& options) {
  auto* run = app.add_subcommand("run", "Convert a picture or raw bytes with one function")->footer(tolk::kRunText);
  run->add_option("FUNCTION", options.function, "a name that list shows")->required();
  run->add_option("IN", options.in, "the source: an image file or raw bytes")->required();
  run->add_option("OUT", options.out, "the destination: an image file or raw bytes")->required();
  run->add_option("--size", options.size, "WIDTHxHEIGHT in pixels; for an image file it is only checked");
  run->add_option("--alpha", options.alpha, "for functions that set alpha, as they take it (default opaque)");
  run->add_option("--coeffs", options.coeffs, "W0,W1,W2: for functions that take weights (default their own)")
      ->delimiter(',')
      ->expected(3)
      ->type_name("");
  run->add_option("--twist", options.twist, "a text file with the matrix of a twist (default: colours stay)");
  run->add_option("--dither", options.dither, "for bit reduction, as of tolk dither (default none)")
      ->check(CLI::IsMember(tolk::kDitherTypes))
      ->type_name("METHOD");
  run->add_option("--levels", options.levels, "likewise, levels of each channel (default 2)");
  run->add_option("--noise", options.noise, "likewise, jitter of the thresholds in percent (default 0)");
  run->add_option("--threshold", options.threshold, "for one bit a pixel, the largest black sample (default 127)")
      ->check(CLI::Range(0, 255));
  run->add_option("--bit-offset", options.bitOffset, "likewise, where in a row the first bit is (default 0)")
      ->check(CLI::Range(0, 1'000'000));
  addGrid(run, options.grid, "for demosaicing, colours of the first two sites and those below (default rggb)");
  addGains(run, options.gains, "B,G,R: likewise, factors of the colours (default 1,1,1)");
  run->add_option("--vmin", options.vMin, "for gamma in floating point, what stands for 0");
  run->add_option("--vmax", options.vMax, "likewise for 1");
  run->add_option("--repeat", options.repeat, "call N times and print the speed")->check(CLI::Range(1, 1'000'000));
  run->add_flag("--strict", options.strict, "a warning of the function is an error");
  run->callback([&] { tolk::runFunction(options); });
}

void addFiles(CLI::App* command, std::string& in, std::string& out, const char* source, const char* target) {
  command->add_option("IN", in, source)->required()->type_name("");
  command->add_option("OUT", out, target)->required()->type_name("");
}

void addConvertCommand(CLI::App& app, tolk::ConvertOptions& options) {
  auto* convert = app.add_subcommand("convert", "Convert a file to another format with the functions that fit");
  convert->footer(tolk::kConvertText + tolk::formatTable());
  addFiles(convert, options.in, options.out, "an image file, a .y4m file or raw bytes", "likewise");
  convert->add_option("--from", options.from, "of IN, where the file or its name does not tell")->type_name("FORMAT");
  convert->add_option("--to", options.to, "of OUT, likewise")->type_name("FORMAT");
  convert->add_option("--matrix", options.matrix, "601 (the default) or 709 of ITU-R, or 709 with luma at full scale")
      ->check(CLI::IsMember({"601", "709", "hdtv"}))
      ->type_name("MATRIX");
  convert->add_option("--size", options.size, "in pixels; for an image or .y4m file it is only checked")
      ->type_name("WIDTHxHEIGHT");
  convert->add_option("--alpha", options.alpha, "of OUT with alpha; at every depth 255 is opaque (default)")
      ->check(CLI::Range(0, 255));
  convert->add_flag("--linear", options.linear, tolk::kLinearText);
  convert->callback([&] { tolk::convertPicture(options); });
}

void addViewCommand(CLI::App& app, tolk::ViewOptions& options) {
  auto* view = app.add_subcommand("view", "Write the three channels of a space as pictures side by side");
  view->footer(tolk::kViewText);
  addFiles(view, options.in, options.out, "an image file, a .y4m file or raw bytes", "the image file to write");
  view->add_option("--space", options.space, "to convert to first, such as hls or xyzf; 'tolk formats' lists all")
      ->type_name("FORMAT");
  view->add_option("--from", options.from, "of IN, where the file or its name does not tell")->type_name("FORMAT");
  view->add_option("--size", options.size, "of raw bytes, in pixels")->type_name("WIDTHxHEIGHT");
  view->add_flag("--linear", options.linear, tolk::kLinearText);
  view->callback([&] { tolk::viewPicture(options); });
}

void addGammaCommand(CLI::App& app, tolk::GammaOptions& options) {
  auto* gamma = app.add_subcommand("gamma", "Lay the transfer curve of ITU-R BT.709 on a picture, or take it off");
  gamma->footer(tolk::kGammaText);
  addFiles(gamma, options.in, options.out, "an image file", "the image file to write");
  gamma->add_flag("--inverse", options.inverse, "take the curve off");
  gamma->add_option("--vmin", options.vMin, "of floating point, what stands for 0 (default 0)");
  gamma->add_option("--vmax", options.vMax, "likewise for 1 (default 1)");
  gamma->callback([&] { tolk::bendPicture(options); });
}

void addTwistCommand(CLI::App& app, tolk::TwistOptions& options) {
  auto* twist = app.add_subcommand("twist", "Map the colours of a picture by a matrix");
  twist->footer(tolk::kTwistText);
  addFiles(twist, options.in, options.out, "an image file", "the image file to write");
  twist->add_option("--matrix", options.matrix, "a text file of 3 or 4 rows of 4 numbers")
      ->required()
      ->type_name("FILE");
  twist->callback([&] { tolk::twistPicture(options); });
}

void addDitherCommand(CLI::App& app, tolk::DitherOptions& options) {
  auto* dither = app.add_subcommand("dither", "Reduce a picture to few levels, with or without dithering");
  dither->footer(tolk::kDitherText);
  addFiles(dither, options.in, options.out, "an image file", "the image file to write");
  dither->add_option("--method", options.method, "one of the methods below (default fs)")
      ->check(CLI::IsMember({"none", "fs", "jjn", "stucki", "bayer", "stucki1", "none1"}))
      ->type_name("METHOD");
  dither
      ->add_option("--levels", options.levels,
                   "of each channel (default 2; all that OUT holds if it has fewer bits than IN)")
      ->type_name("N");
  dither->add_option("--noise", options.noise, "jitter of the thresholds, 0 to 100 percent (default 0)")
      ->check(CLI::Range(0, 100))
      ->type_name("P");
  dither->add_option("--depth", options.depth, "bits of OUT, 8 or 16 (default those of IN if OUT holds them, else 8)")
      ->check(CLI::IsMember({8, 16}))
      ->type_name("BITS");
  dither->add_option("--threshold", options.threshold, "of stucki1 and none1, 0 to 255 (default 127)")
      ->check(CLI::Range(0, 255))
      ->type_name("N");
  dither->callback([&] { tolk::ditherPicture(options); });
}

void addTonemapCommand(CLI::App& app, tolk::TonemapOptions& options) {
  auto* tonemap = app.add_subcommand("tonemap", "Bring floating point of any range to 8 bits");
  tonemap->footer(tolk::kTonemapText);
  addFiles(tonemap, options.in, options.out, "an image file in floating point", "the image file to write");
  tonemap->add_option("--mode", options.mode, "linear (default) or mean")
      ->check(CLI::IsMember({"linear", "mean"}))
      ->type_name("MODE");
  tonemap->callback([&] { tolk::mapTones(options); });
}

void addPackCommands(CLI::App& app, tolk::PackOptions& pack, tolk::PackOptions& unpack) {
  unpack.unpacks = true;
  for (tolk::PackOptions* options : {&pack, &unpack}) {
    const bool unpacks = options->unpacks;
    const char* words = unpacks ? "Packed raw bytes to gray of 12 bits" : "Gray of 12 bits to packed raw bytes";
    auto* command = app.add_subcommand(unpacks ? "unpack12" : "pack12", words)->footer(tolk::kPackText);
    addFiles(command, options->in, options->out, unpacks ? "packed bytes" : "an image file or raw bytes",
             unpacks ? "an image file or raw bytes" : "packed bytes");
    command->add_option("--size", options->size, "of raw bytes, in pixels")->type_name("WIDTHxHEIGHT");
    command->callback([options] { tolk::packSamples(*options); });
  }
}

void addDemosaicCommand(CLI::App& app, tolk::DemosaicOptions& options) {
  auto* demosaic = app.add_subcommand("demosaic", "Make a picture of a Bayer mosaic, a sensor's samples");
  demosaic->footer(tolk::kDemosaicText);
  addFiles(demosaic, options.in, options.out, "an image file of gray, raw bytes or a camera's file",
           "the image file to write");
  addGrid(demosaic, options.grid, "colours of the first two sites and those below; a camera's file tells them itself");
  demosaic->add_option("--method", options.method, "one of the methods below (default ahd)")
      ->check(CLI::IsMember({"linear", "vng", "ahd"}))
      ->type_name("METHOD");
  addBits(demosaic, options.bits, "of a sample of IN (default: those of an image file; of raw bytes 8)");
  demosaic->add_option("--size", options.size, "of raw bytes, in sites")->type_name("WIDTHxHEIGHT");
  addGains(demosaic, options.gains, "B,G,R: factors of the colours (default 1,1,1)");
  demosaic->callback([&] { tolk::demosaicPicture(options); });
}

void addMosaicCommand(CLI::App& app, tolk::MosaicOptions& options) {
  auto* mosaic = app.add_subcommand("mosaic", "Keep one colour of each pixel, as a Bayer sensor does");
  mosaic->footer(tolk::kMosaicText);
  addFiles(mosaic, options.in, options.out, "an image file", "an image file of gray, or raw bytes");
  addGrid(mosaic, options.grid, "colours of the first two sites and those below")->required();
  addBits(mosaic, options.bits, "of a sample of OUT (default: those of IN, but at most 16)");
  mosaic->callback([&] { tolk::makeMosaic(options); });
}

struct ComparedPictures {
  std::string first, second;
};

void addPictureCommands(CLI::App& app, tolk::PanelOptions& options, ComparedPictures& pictures) {
  auto* panel = app.add_subcommand("panel", "Put pictures side by side: 8 bits, without alpha, tops aligned");
  panel->add_option("OUT", options.out, "the image file to write")->required();
  panel->add_option("IMAGE", options.images, "the image files, from left to right")->required();
  panel->add_option("--gap", options.gap, "white columns between two pictures")->check(CLI::Range(0, 1000));
  panel->add_option("--crop", options.crop, "of each picture only this part, in pixels")->type_name("WxH+X+Y");
  panel->add_option("--zoom", options.zoom, "each pixel as a square of N by N (default 1)")
      ->check(CLI::Range(1, 64))
      ->type_name("N");
  panel->callback([&] { tolk::makePanel(options); });
  auto* compare = app.add_subcommand("compare", "Print the difference of two pictures by channel, alpha aside");
  compare->add_option("A", pictures.first, "an image file")->required();
  compare->add_option("B", pictures.second, "an image file of the same size")->required();
  compare->callback([&] { tolk::comparePictures(pictures.first, pictures.second); });
}

int parse(int count, char** words) {
  CLI::App app("Colour conversion of pictures with TolkColor", "tolk");
  app.require_subcommand(1);
  std::string name;
  tolk::SelftestOptions selftestOptions;
  tolk::RunOptions runOptions;
  tolk::ConvertOptions convertOptions;
  tolk::ViewOptions viewOptions;
  tolk::GammaOptions gammaOptions;
  tolk::TwistOptions twistOptions;
  tolk::DitherOptions ditherOptions;
  tolk::TonemapOptions tonemapOptions;
  tolk::PackOptions packOptions, unpackOptions;
  tolk::DemosaicOptions demosaicOptions;
  tolk::MosaicOptions mosaicOptions;
  tolk::PanelOptions panelOptions;
  ComparedPictures compared;
  addCatalogueCommands(app, name);
  addSelftestCommand(app, selftestOptions);
  addRunCommand(app, runOptions);
  addConvertCommand(app, convertOptions);
  addViewCommand(app, viewOptions);
  addGammaCommand(app, gammaOptions);
  addTwistCommand(app, twistOptions);
  addDitherCommand(app, ditherOptions);
  addTonemapCommand(app, tonemapOptions);
  addPackCommands(app, packOptions, unpackOptions);
  addDemosaicCommand(app, demosaicOptions);
  addMosaicCommand(app, mosaicOptions);
  addPictureCommands(app, panelOptions, compared);
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
