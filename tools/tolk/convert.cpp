// The convert command: finds the functions between two formats by itself.
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "call.h"
#include "conversion.h"
#include "matrices.h"
#include "raw_files.h"
#include "route.h"
#include "samples.h"

namespace tolk {

namespace {

const Format& formatOf(const std::string& path, const std::string& name, const char* option) {
  if (!name.empty()) return requireFormat(name);
  if (const Format* format = formatOfExtension(path)) return *format;
  throw std::runtime_error(path + ": the name does not tell the format; " + option + " takes one of" + formatTable());
}

// A gray picture is RGB of three equal channels, unless OUT is gray, or a picture that may be.
const Format& formatOf(const Image& image, const ConvertOptions& options) {
  const bool stays = options.to.empty() ? isImageFile(options.out) : requireFormat(options.to).side.space == "Gray";
  const bool gray = image.colours() == 1 && stays;
  const std::string_view layout = gray ? "C1" : image.channels == 4 ? "C4" : "C3";
  return *findFormat({gray ? "Gray" : "RGB", layout, sampleType(image.bits)});
}

Source readPicture(const ConvertOptions& options) {
  Image image = readImage(options.in);
  const TolkSize size = {image.width, image.height};
  const Format& format = options.from.empty() ? formatOf(image, options) : requireFormat(options.from);
  const bool served = servesImages(format.side) && format.side.space != "Gray10";
  if (!served) throw std::runtime_error(options.in + " is an image file, not " + options.from);
  try {
    if (isScalable(format.side)) image = withBits(std::move(image), sampleBits(format.side.sample));
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

}  // namespace

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

namespace {

// Where such a file holds it the depth stays; gray stays gray.
std::string_view pictureFormat(const std::string& path, const SideInfo& from) {
  const bool gray = from.space.starts_with("Gray");
  if (gray && holds(path, 1, sampleBits(from.sample))) return findFormat(from)->name;
  for (int channels : {gray ? 1 : 3, gray ? 3 : 1}) {
    for (int bits : {sampleBits(from.sample), 8, 32}) {
      const SideInfo side = {channels == 3 ? "RGB" : "Gray", channels == 3 ? "C3" : "C1", sampleType(bits)};
      if (holds(path, channels, bits)) return findFormat(side)->name;
    }
  }
  return "rgb24";
}

const Format& targetFormat(const ConvertOptions& options, const Format& from) {
  const bool picture = isImageFile(options.out), video = isY4mFile(options.out);
  std::string name = options.to;
  if (name.empty() && picture) name = pictureFormat(options.out, from.side);
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
  static constexpr std::string_view kCounts[] = {"two", "three"};
  for (size_t i = 0; route.steps.size() > 1 && i < route.steps.size(); ++i) {
    std::cerr << (i == 0 ? " in " + std::string(kCounts[route.steps.size() - 2]) + " steps:" : ";") << "\n  "
              << names(i, i + 1) << callOf(route.steps[i]);
  }
  std::cerr << '\n';
}

// A format's image of whole chroma groups, through all steps.
RawImage convert(RawImage image, const Route& route, uint8_t alpha) {
  for (const Step& step : route.steps) {
    image = repacked(std::move(image), step.src, alpha);
    RawImage dst(step.dst, image.size);
    if (step.dst.layout == "AC4") setAlpha(dst, alpha);
    callFunction(*step.function, image, dst, {.alpha = alpha / 255.0 * fullScale(sampleBits(step.dst.sample))});
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

Converted convertSource(Source source, const Format& to, const ConvertOptions& options) {
  if (source.size.width < 1 || source.size.height < 1) throw std::runtime_error("the picture has no pixels");
  Route route = requireRoute(source.format, to, options.matrix);
  if (options.linear) route = withCurve(route);
  report(route, source.size);
  const SampleRange range = followRange(route, options.in, source.range);
  if (options.alpha && holdsPixels(source.format.side)) {  // else the source's own would stay
    source.image = repacked(std::move(source.image), {"RGB", "C3", source.format.side.sample}, 0);
  }
  RawImage result = convert(resized(std::move(source.image), wholeSize(route, source.size)), route,
                            static_cast<uint8_t>(options.alpha.value_or(255)));
  return {resized(std::move(result), fileSize(to.side, source.size)), range};
}

void convertPicture(const ConvertOptions& options) {
  Source source = readSource(options);
  const Format& to = targetFormat(options, source.format);
  Converted result = convertSource(std::move(source), to, options);
  if (isImageFile(options.out)) {
    writeImage(options.out, toImage(result.image));
  } else if (isY4mFile(options.out)) {
    writeY4m(options.out, result.image, result.range);
  } else {
    writeFile(options.out, result.image.bytes);
  }
}

}  // namespace tolk
