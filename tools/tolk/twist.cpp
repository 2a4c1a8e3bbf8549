// The twist command, and its matrix from a text file.
#include "twist.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "samples.h"

namespace tolk {

namespace {

float parseWeight(const std::string& word, const std::string& place) {
  float weight = 0;
  const char *first = word.data() + (word.starts_with('+') ? 1 : 0), *last = word.data() + word.size();
  const auto got = std::from_chars(first, last, weight);
  if (got.ec == std::errc() && got.ptr == last && std::isfinite(weight)) return weight;
  throw std::runtime_error(place + ": " + word + " is no number that a float holds");
}

// Of the matrix that it takes; 0 if it takes none.
int rowsOf(const Function& function) { return function.has("twist[4][4]") ? 4 : function.has("twist[3][4]") ? 3 : 0; }

}  // namespace

TwistMatrix readTwist(const std::string& path) {
  const Bytes file = readFile(path);
  std::istringstream lines(std::string(file.begin(), file.end()));
  std::vector<float> weights;
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::string place = path + ", line " + std::to_string(++number);
    std::istringstream words(line.substr(0, line.find('#')));
    const size_t before = weights.size();
    for (std::string word; words >> word;) weights.push_back(parseWeight(word, place));
    const size_t count = weights.size() - before;
    if (count != 0 && count != 4) {
      throw std::runtime_error(place + ": a row has 4 numbers, not " + std::to_string(count));
    }
  }
  if (weights.size() != 12 && weights.size() != 16) {
    throw std::runtime_error(path + ": a matrix has 3 or 4 rows, not " + std::to_string(weights.size() / 4));
  }
  TwistMatrix matrix = {{}, static_cast<int>(weights.size() / 4)};
  std::copy(weights.begin(), weights.end(), matrix.weights.begin());
  return matrix;
}

std::array<float, 16> readTwist(const std::string& path, const Function& function) {
  const int rows = rowsOf(function);
  if (rows == 0) throw std::runtime_error(std::string(function.name) + " takes no twist");
  const TwistMatrix matrix = readTwist(path);
  if (matrix.rows == rows) return matrix.weights;
  throw std::runtime_error(path + ": the matrix has " + std::to_string(matrix.rows) + " rows, but " +
                           std::string(function.name) + " takes " + std::to_string(rows));
}

void twistPicture(const TwistOptions& options) {
  const TwistMatrix matrix = readTwist(options.matrix);
  const Image picture = readImage(options.in);
  const bool four = matrix.rows == 4;
  if (four && picture.channels != 4) {
    throw std::runtime_error(options.in + " has no four channels for the 4 rows of " + options.matrix +
                             " ('tolk convert --to rgba' adds alpha)");
  }
  requireHolds(options.out, picture.hasAlpha() ? 4 : 3, picture.bits);
  const Image source = four ? withBits(picture, 32) : withoutDoubles(picture);
  const std::string prefix = source.bits == 32 ? "tolkColorTwist_" : "tolkColorTwist32f_";
  const Function& function = requireFunction(prefix + std::string(sampleType(source.bits)) + (four ? "_C4R" : "_C3R"));
  Image result = onColours(function, source, matrix.rows, {.twist = matrix.weights});
  result = withBits(std::move(result), picture.bits);
  writeImage(options.out, four ? result : withAlphaOf(picture, std::move(result)));
  tellCall({picture.width, picture.height}, function);
}

}  // namespace tolk
