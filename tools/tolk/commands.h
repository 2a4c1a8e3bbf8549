// The subcommands; a failure is an exception with a message for the user.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tolk {

void listFunctions(const std::string& pattern);
void showFunction(const std::string& name);
void showVersion();

struct RunOptions {
  std::string function, in, out;
  std::string size;                 // "640x480", or empty
  std::optional<double> alpha;      // opaque if missing
  std::vector<double> coeffs;       // three weights; the function's own if empty
  std::optional<float> vMin, vMax;  // 0 and 1 if missing
  int repeat = 0;                   // 0: do not measure
  bool strict = false;              // a warning is an error
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

void makePanel(const std::string& out, const std::vector<std::string>& images, int gap);
void comparePictures(const std::string& first, const std::string& second);

}  // namespace tolk
