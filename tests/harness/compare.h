// One call on the library under test and on the reference, over equally filled memory, compared byte by byte.
#pragma once

#include <gtest/gtest.h>

#include "fault_note.h"
#include "harness/guarded_image.h"

namespace harness {

struct Case {
  const Subject* subject;
  TolkSize roi;
  Layout src, dst;
  Contents contents = Contents::Random;
  uint32_t variant = 0;  // turns to other methods, noise and levels of bit reduction, and rectangles of a mosaic
  std::optional<tolk::Call> settings = {};  // the arguments besides images, in place of those that turn
  uint32_t seed = 0;                        // of the contents; with 0 no two cases have the same
  std::span<const uint8_t> samples = {};    // repeated from byte `seed % row` of each source row to its end
};
std::string describe(const Case& c);

// Source and destination of one implementation; in place, the destination alone. Functions that need none get no
// scratch memory.
struct Images {
  Image src, dst, scratch;
  tolk::Call call(const Case& c) const;
  void layOutScratch(const Case& c);
};

class Rig {
 public:
  void prepare(const Case& c);  // announces it, lays out and fills both implementations' images
  void fillExpected();
  TolkStatus callTested(const tolk::Call& call) const { return function().invoke(case_.subject->tested, call); }
  TolkStatus callExpected(const tolk::Call& call) const;  // on images of `expected`
  testing::AssertionResult run() const;                   // both calls, then the statuses and every byte
  // Every byte: rows, slack and sources. Samples that rest on a power may differ by its accuracy.
  // Any number that is none is as good as another where the case has samples or settings of its own.
  testing::AssertionResult compare() const;

  Images tested, expected;
  Image& input(Images& images) const { return function().inPlace ? images.dst : images.src; }

 private:
  const tolk::Function& function() const { return *case_.subject->function; }
  void fill(Images& images) const;
  void overwrite(const Image& source) const;
  void acceptNans() const;
  void acceptPowers() const;
  void acceptRows() const;

  Images highest_;  // what the greatest powers give, where `expected` has the least
  Case case_{};
  uint32_t seed_ = 0;
};

// One rig for all cases of the program: its memory is mapped once.
Rig& sharedRig();
testing::AssertionResult runCase(const Case& c);

// Of the longest loops one turn in so many is taken, runCase's in between pass: TOLK_SAMPLE, a prime, since cases turn
// through layouts and heights.
int sample();

using tolk::announce, tolk::reportFaults;

}  // namespace harness
