// Replays the inputs that the fuzzer has kept, and others near them.
#include <charconv>
#include <fstream>
#include <random>

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

// The kept inputs are the shortest that reach their code, so most of their bytes are missing.
TEST(Corpus, LongerInputs) {
  constexpr size_t kLength = 96;
  std::ifstream corpus(TOLK_CORPUS);
  std::mt19937 random(1);
  for (std::string line; std::getline(corpus, line);)
    for (int i = 0; i < 30; ++i) {
      std::vector<uint8_t> bytes = bytesOf(line);
      if (i % 2) bytes.resize(2);  // the function alone
      while (bytes.size() < kLength) bytes.push_back(static_cast<uint8_t>(random()));
      ASSERT_TRUE(fuzz::runInput(bytes)) << line << ", " << i;
    }
}
