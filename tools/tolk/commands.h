// The subcommands; a failure is an exception with a message for the user.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tolk {

void listFunctions(const std::string& pattern);
void showFunction(const std::string& name);
void showVersion();

struct SelftestOptions {
  std::string pattern;
  std::string library;  // a file, or empty for that which the loader chose
  bool verbose = false;
};
void testLibrary(const SelftestOptions& options);

inline const std::map<std::string, uint32_t> kDitherTypes = {
    {"none", 0}, {"fs", 1}, {"jjn", 2}, {"stucki", 3}, {"bayer", 4}};

struct RunOptions {
  std::string function, in, out;
  std::string size;             // "640x480", or empty
  std::optional<double> alpha;  // opaque if missing
  std::vector<double> coeffs;   // three weights; the function's own if empty
  std::string twist;            // a file with a matrix
  std::string dither;           // a name of kDitherTypes
  // If missing, what a call has by itself.
  std::optional<float> vMin, vMax;
  std::optional<uint32_t> noise;
  std::optional<int32_t> levels;
  std::optional<int> threshold;
  int32_t bitOffset = 0;
  std::string grid;  // a name of kGrids
  std::vector<float> gains;
  int repeat = 0;       // 0: do not measure
  bool strict = false;  // a warning is an error
};
void runFunction(const RunOptions& options);

struct ConvertOptions {
  std::string in, out;
  std::string from, to;               // names of formats, or empty where the files tell
  std::optional<std::string> matrix;  // 601 where there is a choice
  std::string size;
  std::optional<int> alpha;
  bool linear = false;  // XYZ, Lab and LUV are of light behind the transfer curve
};
void convertPicture(const ConvertOptions& options);

struct ViewOptions {
  std::string in, out;
  std::string space;  // a format's name; what IN holds if empty
  std::string from;   // RGB if empty
  std::string size;
  bool linear = false;
};
void viewPicture(const ViewOptions& options);

struct GammaOptions {
  std::string in, out;
  bool inverse = false;
  std::optional<float> vMin, vMax;  // 0 and 1 if missing
};
void bendPicture(const GammaOptions& options);

struct TwistOptions {
  std::string in, out, matrix;
};
void twistPicture(const TwistOptions& options);

struct DitherOptions {
  std::string in, out;
  std::string method = "fs";  // a name of kDitherTypes, or with a 1 behind it for one bit a pixel
  std::optional<int32_t> levels;
  std::optional<uint32_t> noise;
  std::optional<int> threshold;
  std::optional<int> depth;  // bits of OUT: those of IN where OUT holds them, else 8
};
void ditherPicture(const DitherOptions& options);

struct TonemapOptions {
  std::string in, out;
  std::string mode = "linear";
};
void mapTones(const TonemapOptions& options);

struct PackOptions {
  std::string in, out, size;
  bool unpacks = false;
};
void packSamples(const PackOptions& options);

struct DemosaicOptions {
  std::string in, out;
  std::string grid;  // a name of kGrids, or empty where the file tells
  std::string method = "ahd";
  std::optional<int> bits;  // those of the file; raw bytes have 8
  std::string size;
  std::vector<float> gains;  // of blue, green and red, or none
};
void demosaicPicture(const DemosaicOptions& options);
std::optional<std::array<float, 3>> parseGains(const std::vector<float>& words);

struct MosaicOptions {
  std::string in, out;
  std::string grid;
  std::optional<int> bits;  // those of the picture, but at most 16
};
void makeMosaic(const MosaicOptions& options);

struct PanelOptions {
  std::string out;
  std::vector<std::string> images;
  int gap = 4;
  std::string crop;  // "WxH+X+Y", or empty
  int zoom = 1;
};
void makePanel(const PanelOptions& options);
void comparePictures(const std::string& first, const std::string& second);

}  // namespace tolk
