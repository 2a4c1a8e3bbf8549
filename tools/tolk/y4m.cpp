// One frame of planar YCbCr as a Y4M video file.
#include "y4m.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

#include "raw_files.h"

namespace tolk {

namespace {

struct Chroma {
  std::string_view tag, space;
};

// Written is the first of a space: a chroma sample is the mean of its group, which lies in the group's middle.
constexpr Chroma kChroma[] = {{"420jpeg", "YCbCr420"}, {"420mpeg2", "YCbCr420"}, {"420", "YCbCr420"},
                              {"422", "YCbCr422"},     {"411", "YCbCr411"},      {"444", "YCbCr"}};
constexpr std::string_view kMagic = "YUV4MPEG2";

std::string_view takeLine(std::string_view& bytes) {
  const size_t end = bytes.find('\n');
  if (end == std::string_view::npos) throw std::runtime_error("the file ends early");
  const std::string_view line = bytes.substr(0, end);
  bytes.remove_prefix(end + 1);
  return line;
}

int32_t number(std::string_view word) {
  int32_t value = 0;
  const auto got = std::from_chars(word.data(), word.data() + word.size(), value);
  if (got.ec != std::errc() || got.ptr != word.data() + word.size() || value < 1) {
    throw std::runtime_error("a bad number in the header: " + std::string(word));
  }
  return value;
}

struct Header {
  TolkSize size{};
  std::string_view chroma = "420jpeg";
  SampleRange range = SampleRange::Unknown;
};

Header parseHeader(std::string_view line) {
  Header header;
  if (!line.starts_with(kMagic)) throw std::runtime_error("not a Y4M file");
  while (!line.empty()) {
    const size_t end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    if (word.empty()) continue;
    const std::string_view value = word.substr(1);
    if (word[0] == 'W') header.size.width = number(value);
    if (word[0] == 'H') header.size.height = number(value);
    if (word[0] == 'C') header.chroma = value;
    if (value == "COLORRANGE=FULL") header.range = SampleRange::Full;
    if (value == "COLORRANGE=LIMITED") header.range = SampleRange::Studio;
  }
  const int64_t pixels = int64_t{header.size.width} * header.size.height;
  if (pixels == 0 || pixels > kMaxPixels) throw std::runtime_error("the header gives no possible size");
  return header;
}

Y4mFrame decode(std::string_view bytes) {
  const Header header = parseHeader(takeLine(bytes));
  auto chroma = std::find_if(std::begin(kChroma), std::end(kChroma), [&](auto& c) { return c.tag == header.chroma; });
  if (chroma == std::end(kChroma)) {
    throw std::runtime_error("chroma " + std::string(header.chroma) + " is not read, only 420, 422, 411 and 444");
  }
  if (!takeLine(bytes).starts_with("FRAME")) throw std::runtime_error("no frame follows the header");
  const SideInfo side = {chroma->space, "P3", "8u"};
  if (static_cast<int64_t>(bytes.size()) < rawBytes(side, header.size)) {
    throw std::runtime_error("the file ends early: expected " + std::to_string(rawBytes(side, header.size)) +
                             " bytes of samples, got " + std::to_string(bytes.size()));
  }
  Y4mFrame frame = {RawImage(side, header.size), header.range};
  std::copy_n(bytes.begin(), frame.image.bytes.size(), frame.image.bytes.begin());
  return frame;
}

}  // namespace

bool isY4mFile(const std::string& path) { return extensionOf(path) == ".y4m"; }

bool servesY4m(const SideInfo& info) {
  return info.layout == "P3" && info.sample == "8u" &&
         std::any_of(std::begin(kChroma), std::end(kChroma), [&](auto& chroma) { return chroma.space == info.space; });
}

Y4mFrame readY4m(const std::string& path) {
  const Bytes file = readFile(path);
  try {
    return decode({reinterpret_cast<const char*>(file.data()), file.size()});
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(path + ": " + fault.what());
  }
}

void writeY4m(const std::string& path, const RawImage& image, SampleRange range) {
  auto chroma =
      std::find_if(std::begin(kChroma), std::end(kChroma), [&](auto& c) { return c.space == image.info.space; });
  std::string header = std::string(kMagic) + " W" + std::to_string(image.size.width) + " H" +
                       std::to_string(image.size.height) + " F25:1 Ip A1:1 C" + std::string(chroma->tag);
  if (range != SampleRange::Unknown)
    header += range == SampleRange::Full ? " XCOLORRANGE=FULL" : " XCOLORRANGE=LIMITED";
  header += "\nFRAME\n";
  Bytes file(header.begin(), header.end());
  file.insert(file.end(), image.bytes.begin(), image.bytes.end());
  writeFile(path, file);
}

}  // namespace tolk
