// The convert command: finds the function between two formats by itself.
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "call.h"
#include "commands.h"
#include "matrices.h"
#include "raw_files.h"
#include "route.h"

namespace tolk {

namespace {

const Format& formatOf(const std::string& path, const std::string& name, const char* option) {
  if (!name.empty()) return requireFormat(name);
  if (const Format* format = formatOfExtension(path)) return *format;
  throw std::runtime_error(path + ": the name does not tell the format; " + option + " takes one of" + formatTable());
}

struct Source {
  const Format& format;
  RawImage image;  // of the format's side, in the size that the file is laid out for
  TolkSize size;
  SampleRange range = SampleRange::Unknown;
};

Source readPicture(const ConvertOptions& options) {
  Image image = readImage(options.in);
  const TolkSize size = {image.width, image.height};
  const Format& format = requireFormat(!options.from.empty() ? options.from : image.channels == 4 ? "rgba" : "rgb24");
  if (!holdsPixels(format.side)) throw std::runtime_error(options.in + " is an image file, not " + options.from);
  try {
    return {format, fromImage(std::move(image), format.side), size};
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(options.in + ": " + fault.what());
  }
}

Source readVideo(const ConvertOptions& options) {
  Y4mFrame frame = readY4m(options.in);
  const Format& format = *findFormat(frame.image.info);
  if (!options.from.empty() && options.from != format.name) {
    throw std::runtime_error(options.in + " holds " + std::string(format.name) + ", not " + options.from);
  }
  const TolkSize size = frame.image.size;
  return {format, std::move(frame.image), size, frame.range};
}

Source readSource(const ConvertOptions& options) {
  if (isImageFile(options.in) || isY4mFile(options.in)) {
    Source source = isImageFile(options.in) ? readPicture(options) : readVideo(options);
    requireSize(options.in, source.size, options.size);
    return source;
  }
  const Format& format = formatOf(options.in, options.from, "--from");
  if (options.size.empty()) throw std::runtime_error("raw input needs --size WIDTHxHEIGHT");
  const TolkSize size = parseSize(options.size);
  return {format, readRaw(options.in, format.side, fileSize(format.side, size)), size};
}

const Format& targetFormat(const ConvertOptions& options, const Format& from) {
  const bool picture = isImageFile(options.out), video = isY4mFile(options.out);
  std::string name = options.to;
  if (name.empty() && picture) name = servesImages(from.side) && !holdsPixels(from.side) ? from.name : "rgb24";
  if (name.empty() && video) name = servesY4m(from.side) ? from.name : "i420";
  const Format& format = formatOf(options.out, name, "--to");
  if ((picture && !servesImages(format.side)) || (video && !servesY4m(format.side))) {
    throw std::runtime_error(options.out + ": such a file cannot hold " + std::string(format.name));
  }
  if (picture) requireHolds(options.out, imageChannels(format.side), sampleBits(format.side.sample));
  if (options.alpha && format.side.layout != "C4") throw std::runtime_error(std::string(format.name) + " has no alpha");
  return format;
}

std::string callOf(const Step& step) {
  std::string words = " by " + std::string(step.function->name);
  if (hasMatrix(*step.function)) words += ", matrix " + std::string(matrixName(*matrixOf(*step.function)));
  if (step.exchanged()) words += ", Cr in the place of Cb";
  return words;
}

void report(const Route& route, TolkSize size) {
  auto names = [&](size_t first, size_t last) {
    return std::string(route.formats[first]->name) + " -> " + std::string(route.formats[last]->name);
  };
  std::cerr << "tolk: " << text(size) << ' ' << names(0, route.formats.size() - 1);
  if (route.steps.empty()) std::cerr << ", no function needed";
  if (route.steps.size() == 1) std::cerr << callOf(route.steps[0]);
  for (size_t i = 0; route.steps.size() > 1 && i < route.steps.size(); ++i) {
    std::cerr << (i == 0 ? " in two steps:" : ";") << "\n  " << names(i, i + 1) << callOf(route.steps[i]);
  }
  std::cerr << '\n';
}

// A format's image of whole chroma groups, through all steps.
RawImage convert(RawImage image, const Route& route, uint8_t alpha) {
  for (const Step& step : route.steps) {
    image = repacked(std::move(image), step.src, alpha);
    RawImage dst(step.dst, image.size);
    if (step.dst.layout == "AC4") std::fill(dst.bytes.begin(), dst.bytes.end(), alpha);
    callFunction(*step.function, image, dst, alpha);
    image = std::move(dst);
  }
  return repacked(std::move(image), route.formats.back()->side, alpha);
}

// The range of the result's samples, as far as it is known.
SampleRange followRange(const Route& route, const std::string& path, SampleRange range) {
  for (const Step& step : route.steps) {
    if (!hasMatrix(*step.function)) continue;
    checkRange(path, range, *step.function);
    range = holdsPixels(step.dst) ? SampleRange::Unknown : rangeOf(*step.function);
  }
  return range;
}

}  // namespace

void convertPicture(const ConvertOptions& options) {
  Source source = readSource(options);
  const Format& to = targetFormat(options, source.format);
  if (source.size.width < 1 || source.size.height < 1) throw std::runtime_error("the picture has no pixels");
  const Route route = requireRoute(source.format, to, options.matrix);
  report(route, source.size);
  const SampleRange range = followRange(route, options.in, source.range);
  if (options.alpha && holdsPixels(source.format.side)) {  // else the source's own would stay
    source.image = repacked(std::move(source.image), requireFormat("rgb24").side, 0);
  }
  RawImage result = convert(resized(std::move(source.image), wholeSize(route, source.size)), route,
                            static_cast<uint8_t>(options.alpha.value_or(255)));
  result = resized(std::move(result), fileSize(to.side, source.size));

  if (isImageFile(options.out)) {
    writeImage(options.out, toImage(result));
  } else if (isY4mFile(options.out)) {
    writeY4m(options.out, result, range);
  } else {
    writeFile(options.out, result.bytes);
  }
}

}  // namespace tolk
