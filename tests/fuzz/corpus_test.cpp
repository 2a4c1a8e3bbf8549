// Replays the inputs that the fuzzer has kept.
#include <charconv>
#include <fstream>

#include "fuzz/input.h"

static std::vector<uint8_t> bytesOf(const std::string& digits) {
  std::vector<uint8_t> bytes(digits.size() / 2);
  for (size_t i = 0; i < bytes.size(); ++i) std::from_chars(&digits[2 * i], &digits[2 * i] + 2, bytes[i], 16);
  return bytes;
}

TEST(Corpus, EveryInput) {
  std::ifstream corpus(TOLK_CORPUS);
  int count = 0;
  for (std::string line; std::getline(corpus, line); ++count) EXPECT_TRUE(fuzz::runInput(bytesOf(line))) << line;
  EXPECT_GT(count, 100);
}
