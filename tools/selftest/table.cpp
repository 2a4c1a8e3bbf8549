// Reads and writes lines of the table, and judges by them.
#include "table.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <sstream>

namespace tolk::selftest {

static constexpr std::string_view kLines[] = {
#include "digests.inc"
};

static std::string hex(uint64_t number, int digits) {
  char text[17];
  std::snprintf(text, sizeof text, "%0*llx", digits, static_cast<unsigned long long>(number));
  return text;
}

template <class Number>
static Number fromHex(std::string_view text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number, 16);
  return number;
}

static std::string toText(const Digest& digest) {
  std::string text = hex(digest.all, 16) + " ";
  for (const uint16_t part : digest.parts) text += hex(part, 4);
  return text;
}

static std::string toText(const Rows& rows) {
  std::string text;
  for (const uint8_t byte : rows) text += hex(byte, 2);
  return text;
}

static Digest readDigest(std::istream& in) {
  std::string all, parts;
  in >> all >> parts;
  Digest digest{fromHex<uint64_t>(all), {}};
  for (size_t i = 0; i < digest.parts.size() && 4 * i < parts.size(); ++i)
    digest.parts[i] = fromHex<uint16_t>(std::string_view(parts).substr(4 * i, 4));
  return digest;
}

static Rows readRows(std::istream& in) {
  std::string text;
  in >> text;
  Rows rows;
  for (size_t i = 0; i + 1 < text.size(); i += 2) rows.push_back(fromHex<uint8_t>(std::string_view(text).substr(i, 2)));
  return rows;
}

std::string toLine(const Entry& entry) {
  std::string line = entry.name;
  if (entry.exact) line += " = " + toText(*entry.exact);
  if (entry.bounded) line += " ~ " + toText(*entry.bounded) + " " + toText(entry.least);
  if (entry.greatest != entry.least) line += " " + toText(entry.greatest);
  return line;
}

Entry fromLine(std::string_view line) {
  std::istringstream in{std::string(line)};
  Entry entry;
  std::string kind;
  in >> entry.name;
  while (in >> kind) {
    if (kind == "=") {
      entry.exact = readDigest(in);
    } else {
      entry.bounded = readDigest(in);
      entry.least = readRows(in), entry.greatest = readRows(in);
      if (entry.greatest.empty()) entry.greatest = entry.least;
    }
  }
  return entry;
}

std::optional<Entry> findEntry(std::string_view name) {
  auto nameOf = [](std::string_view line) { return line.substr(0, line.find(' ')); };
  const auto found = std::ranges::find(kLines, name, nameOf);
  return found == std::end(kLines) ? std::nullopt : std::optional(fromLine(*found));
}

static std::string differences(const Digest& got, const Digest& want) {
  std::string text;
  for (size_t i = 0; i < kParts.size(); ++i)
    if (got.parts[i] != want.parts[i]) text += (text.empty() ? "differs in " : ", ") + std::string(kParts[i]);
  return text.empty() ? "differs" : text;
}

Verdict judge(Runner& runner, const Subject& subject) {
  const auto entry = findEntry(subject.name);
  if (!entry || (!entry->exact && !entry->bounded)) return {"is not in the table"};
  if (entry->exact) {
    const Digest got = runner.digest(subject, false);
    if (got.all == entry->exact->all) return {};
    if (!entry->bounded) return {differences(got, *entry->exact)};
  }
  Verdict verdict{.fault = {}, .byBound = true, .unusual = entry->exact.has_value()};
  const Digest got = runner.digest(subject, true);
  verdict.fault = got.all != entry->bounded->all
                      ? differences(got, *entry->bounded)
                      : outOfBounds(*subject.function, runner.results(subject), entry->least, entry->greatest);
  return verdict;
}

}  // namespace tolk::selftest
