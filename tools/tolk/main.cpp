// The command line of tolk: converts pictures with the library's functions, and tells about them.
#include <CLI/CLI.hpp>
#include <exception>
#include <iomanip>
#include <iostream>
#include <new>

#include "commands.h"
#include "formats.h"

namespace {

constexpr char kRunText[] = R"(
Sides of RGB, BGR, gray, XYZ, Lab, LUV, HLS, HSV and YCC take image files, by the file's extension, and
planes of YCbCr in 4:2:0, 4:2:2, 4:1:1 and 4:4:4 video files (y4m), of which the first frame is read.
Every other name is raw bytes: the planes of the side one after another without padding. A raw IN needs
--size. The name - is raw standard input or output.

Of image files 8u takes png, tiff, jpg, ppm, pgm and pnm, 16u the same but jpg, 32f tiff and pfm, and
64f tiff. 16s takes what 16u does, its samples with 32768 added. A file's three channels are those of
the side in its own order: X, Y and Z, or hue, lightness and saturation. The file does not tell which.
Gamma functions take any channels. A function in place reads IN and writes OUT.

Channels of RGB are swapped or split as the side wants them. A gray picture goes into all three, a
missing alpha is opaque, a superfluous one is dropped. The destination starts as zero, for functions
that leave some of it as it was; in an image file the fourth channel of AC4 starts as opaque, and is
dropped where the file holds no alpha. JPEG files are written at quality 95 without chroma
subsampling.

Exit status: 0 also for a warning (a positive status: the result is written), unless --strict; not 0
for an error, and then OUT is as it was.)";

constexpr char kConvertText[] = R"(
  tolk convert photo.png photo.nv12
  tolk convert photo.nv12 photo.png --size 640x480
  tolk convert camera.raw video.y4m --from yuyv --to i420 --size 640x480
  tolk convert photo.png hls.tiff --to hlsf
  tolk convert hls.tiff photo.png --from hlsf
  tolk convert photo.png lab.tiff --to labf --linear

Image files (png, jpg, ppm, pgm, pnm, tiff, pfm) hold RGB, or whatever --from or --to says of RGB, gray,
XYZ, Lab, LUV, HLS, HSV and PhotoYCC: 8 bits and 16 as in png and tiff, floating point in tiff and, with
32 bits, in pfm. Without --to OUT has the depth of IN where such a file holds it. A .y4m file holds i420, i422,
i411 or ycbcr444p; its first frame is read. Every other name is raw bytes, in the format that its
extension names or the option does; - is raw standard input or output. A raw IN needs --size.

RGB and gray are brought to another depth where a function wants it, each sample to the nearest of the
same part of full scale: 255, 65535, and 1 in floating point, which is limited to 0 and 1 for it.

One function is called or, where none leads from the one format to the other, two; standard error
tells which. Those that filter, resample within fields or apply a gamma curve are left to tolk run.

XYZ, Lab and LUV are of linear light, but the samples of most pictures are bent by a transfer curve.
Without --linear RGB is taken as it is. With it the curve of ITU-R BT.709 is taken off (tolkGammaInv)
before RGB becomes one of them, and laid on (tolkGammaFwd) what comes from one of them, in the depth of
that function or of the RGB beside it, the deeper one, but at most 32 bits. Linear light of 8 bits is
coarse in the dark: xyz16, luv16 or floating point is better. lab16 goes from and to RGB of 8 bits
alone. In floating point L of Lab and LUV is 0 to 100, and a, b, u and v are as they come.

The YCbCr formats have studio range, with the matrix hdtv full range. The -fullscale formats are YUV
with U and V at 0.492 and 0.877 of a difference, other than YCbCr of full range.

An odd size is completed to whole chroma groups by repeating the last column and row, and cut again.
In raw files rows of packed 4:2:2 have whole pairs, and rows of v210 are as long as for a multiple of
48 pixels. tolk run calls a function on the size as it is.

Formats: i420 and the like, and names with a p at the end, are three planes; nv12 and the like are a
plane of luma and one of chroma pairs. Cb comes before Cr except in yv12, yv16, yvyu and nv21. i1620 has
one chroma pair for 4 by 4 pixels. The first letter of rgb565 and bgr565 has the lowest bits. rgb48,
rgba64 and names with 16 at the end have samples of 16 bits in the machine's byte order, those with f
and d at the end of floating point in 32 and 64 bits.)";

constexpr char kLinearText[] = "XYZ, Lab, LUV: take the curve of BT.709 off before, lay it on after";

constexpr char kGammaText[] = R"(
  tolk gamma linear.tiff photo.tiff
  tolk gamma photo.png linear.png --inverse

The curve of ITU-R BT.709 bends linear light so that dark shades get more steps, and --inverse makes it
straight again. It is laid on each colour channel or gray, whatever their space; alpha stays. OUT has the
samples of IN: 8 or 16 bits or floating point, whose 64 bits are calculated in 32. tolk convert changes
the depth: linear light of 8 bits is coarse in the dark.)";

constexpr char kViewText[] = R"(
  tolk view photo.jpg channels.png --space hls
  tolk view hls.tiff channels.png --from hlsf

IN is RGB, or what --from says, and is converted as tolk convert does it. The channels are gray
pictures of 8 bits from black, which is 0, to white, which is 255, 65535 or 1; Lab and LUV of floating
point are shown as their bytes would be. Hue is shown in
colour, and gray where a pixel has no saturation.)";

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

void addRunCommand(CLI::App& app, tolk::RunOptions& options) {
  auto* run = app.add_subcommand("run", "Convert a picture or raw bytes with one function")->footer(kRunText);
  run->add_option("FUNCTION", options.function, "a name that list shows")->required();
  run->add_option("IN", options.in, "the source: an image file or raw bytes")->required();
  run->add_option("OUT", options.out, "the destination: an image file or raw bytes")->required();
  run->add_option("--size", options.size, "WIDTHxHEIGHT in pixels; for an image file it is only checked");
  run->add_option("--alpha", options.alpha, "for functions that set alpha, as they take it (default opaque)");
  run->add_option("--coeffs", options.coeffs, "W0,W1,W2: for functions that take weights (default their own)")
      ->delimiter(',')
      ->expected(3)
      ->type_name("");
  run->add_option("--vmin", options.vMin, "for gamma in floating point, what stands for 0");
  run->add_option("--vmax", options.vMax, "likewise for 1");
  run->add_option("--repeat", options.repeat, "call N times and print the speed")->check(CLI::Range(1, 1'000'000));
  run->add_flag("--strict", options.strict, "a warning of the function is an error");
  run->callback([&] { tolk::runFunction(options); });
}

void addConvertCommand(CLI::App& app, tolk::ConvertOptions& options) {
  auto* convert = app.add_subcommand("convert", "Convert a file to another format with the functions that fit");
  convert->footer(kConvertText + tolk::formatTable());
  convert->add_option("IN", options.in, "an image file, a .y4m file or raw bytes")->required()->type_name("");
  convert->add_option("OUT", options.out, "likewise")->required()->type_name("");
  convert->add_option("--from", options.from, "of IN, where the file or its name does not tell")->type_name("FORMAT");
  convert->add_option("--to", options.to, "of OUT, likewise")->type_name("FORMAT");
  convert->add_option("--matrix", options.matrix, "601 (the default) or 709 of ITU-R, or 709 with luma at full scale")
      ->check(CLI::IsMember({"601", "709", "hdtv"}))
      ->type_name("MATRIX");
  convert->add_option("--size", options.size, "in pixels; for an image or .y4m file it is only checked")
      ->type_name("WIDTHxHEIGHT");
  convert->add_option("--alpha", options.alpha, "of OUT with alpha; at every depth 255 is opaque (default)")
      ->check(CLI::Range(0, 255));
  convert->add_flag("--linear", options.linear, kLinearText);
  convert->callback([&] { tolk::convertPicture(options); });
}

void addViewCommand(CLI::App& app, tolk::ViewOptions& options) {
  auto* view = app.add_subcommand("view", "Write the three channels of a space as pictures side by side");
  view->footer(kViewText);
  view->add_option("IN", options.in, "an image file, a .y4m file or raw bytes")->required()->type_name("");
  view->add_option("OUT", options.out, "the image file to write")->required()->type_name("");
  view->add_option("--space", options.space, "to convert to first, such as hls or xyzf; 'tolk formats' lists all")
      ->type_name("FORMAT");
  view->add_option("--from", options.from, "of IN, where the file or its name does not tell")->type_name("FORMAT");
  view->add_option("--size", options.size, "of raw bytes, in pixels")->type_name("WIDTHxHEIGHT");
  view->add_flag("--linear", options.linear, kLinearText);
  view->callback([&] { tolk::viewPicture(options); });
}

void addGammaCommand(CLI::App& app, tolk::GammaOptions& options) {
  auto* gamma = app.add_subcommand("gamma", "Lay the transfer curve of ITU-R BT.709 on a picture, or take it off");
  gamma->footer(kGammaText);
  gamma->add_option("IN", options.in, "an image file")->required()->type_name("");
  gamma->add_option("OUT", options.out, "the image file to write")->required()->type_name("");
  gamma->add_flag("--inverse", options.inverse, "take the curve off");
  gamma->add_option("--vmin", options.vMin, "of floating point, what stands for 0 (default 0)");
  gamma->add_option("--vmax", options.vMax, "likewise for 1 (default 1)");
  gamma->callback([&] { tolk::bendPicture(options); });
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
  tolk::ConvertOptions convertOptions;
  tolk::ViewOptions viewOptions;
  tolk::GammaOptions gammaOptions;
  PictureOptions pictureOptions;
  addCatalogueCommands(app, name);
  addRunCommand(app, runOptions);
  addConvertCommand(app, convertOptions);
  addViewCommand(app, viewOptions);
  addGammaCommand(app, gammaOptions);
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
