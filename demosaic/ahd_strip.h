// Homogeneity-directed demosaicing of a strip of columns: the rows of each step of the calculation, a few at a time.
#pragma once

#include "demosaic/ahd_forms.h"
#include "frame/images.h"

namespace tolk::ahd {

// Rows that are needed together: row y replaces row y - N.
template <class Row, int N>
struct Ring {
  Row& operator[](ptrdiff_t y) { return row[y % N]; }
  Row row[N] = {};
};

// Numbers of a strip's columns; some more on both sides are read or written with the first and the last register.
template <class T, int Columns>
struct StripRow {
  static constexpr int kBeside = 32;
  T* at(ptrdiff_t x) { return number + kBeside + x; }
  alignas(32) T number[kBeside + Columns + kBeside] = {};
};

struct Rectangle {
  ptrdiff_t x, y, width, height;
  bool isEmpty() const { return width < 1 || height < 1; }
  Rectangle from(ptrdiff_t originX, ptrdiff_t originY) const { return {x - originX, y - originY, width, height}; }
};

// Of every second row: which columns have the colour sites, and whether these are red.
struct RowKind {
  int firstColour;
  bool red;
};

// Each step goes along a row of the strip as soon as the rows are there that it takes from the steps before it. All go
// over the same columns, kMargin more on both sides than there are pixels, in whole registers: what is made of columns
// without sites stays in the margins. The rows fit the nearest cache.
template <class T, int L = kLanes>
class Strip {
 public:
  static constexpr int kColumns = 320 / int{sizeof(T)}, kMargin = 4, kPixels = kColumns - 2 * kMargin;
  static constexpr int kReach = 5;  // sites that a pixel depends on, in every direction

  // Coordinates begin with the strip's pixels, of which `kinds` are those of the first two rows. At the sides of
  // `inner` decisions start anew.
  struct Extent {
    ptrdiff_t width, height;
    RowKind kinds[2];
    Rectangle inner;
  };
  // mosaicRow(y, x, count, to) copies sites x to x + count - 1 of row y, pixelRow(y) is where the pixels of row y go.
  // decision[y] is that of the pixel left of row y, then of its last one.
  void run(const Extent& extent, Decision* decision, auto mosaicRow, auto pixelRow) {
    const auto& [width, height, kinds, inner] = extent;
    end_ = width + 2 * kMargin;
    kind_[kReach % 2] = kinds[0];
    kind_[1 - kReach % 2] = kinds[1];
    setLinks(inner, width);
    // From here on row 0 is the first one that the first pixels depend on.
    for (ptrdiff_t y = 0; y < height + 2 * kReach; ++y) {
      mosaicRow(y - kReach, -kReach, width + 2 * kReach, mosaic_[y].at(kMargin - kReach));
      if (y >= 4) findGreens(y - 2);       // from the mosaic two rows up and down
      if (y >= 6) findColours(y - 3);      // from the greens one row up and down
      if (y >= 7) findHomogeneity(y - 4);  // from the colours up to one row down, and what is kept of the row above
      if (y < 2 * kReach) continue;
      const ptrdiff_t pixels = y - 2 * kReach;
      const bool isInner = pixels >= inner.y && pixels < inner.y + inner.height;
      choosePixels(y - kReach, width, links_[isInner], decision[pixels], pixelRow(pixels));
    }
  }

 private:
  using Wide = WideOf<T>;
  using Tone = ToneOf<T>;
  using Score = std::make_signed_t<T>;
  template <class Number>
  using Row = StripRow<Number, kColumns>;
  enum { kH, kV };  // the row candidate and the column candidate

  static constexpr ptrdiff_t kStep = L > 0 ? 16 * L / int{sizeof(T)} : 1, kPairs = L > 0 ? kStep / 2 : 1;
  static_assert(kColumns % kStep == 0);
  void eachStep(auto f) const {
    for (ptrdiff_t x = 0; x < end_; x += kStep) f(x);
  }
  void eachPair(auto f) const {
    for (ptrdiff_t k = 0; 2 * k < end_; k += kPairs) f(k);
  }

  void findGreens(ptrdiff_t y) {
    const int first = kind_[y % 2].firstColour;
    const T *row = mosaic_[y].at(first), *up = mosaic_[y - 1].at(first), *down = mosaic_[y + 1].at(first),
            *up2 = mosaic_[y - 2].at(first), *down2 = mosaic_[y + 2].at(first);
    Wide *h = differences_[kH][y].at(0), *v = differences_[kV][y].at(0);
    eachPair([&](ptrdiff_t k) __attribute__((always_inline)) {
      const ptrdiff_t x = 2 * k;
      const auto left = pairsAt<L>(row + x - 2), here = pairsAt<L>(row + x), right = pairsAt<L>(row + x + 2);
      setNumbers(h + k, here.colour - green(left.green, here.green, here.colour, left.colour, right.colour));
      const auto a = pairsAt<L>(up + x).colour, b = pairsAt<L>(down + x).colour;
      const auto d = pairsAt<L>(up2 + x).colour, e = pairsAt<L>(down2 + x).colour;
      setNumbers(v + k, here.colour - green(a, b, here.colour, d, e));
    });
  }

  struct ColourRows {
    Row<T> red, green, blue;
  };
  struct ToneRows {
    Row<Tone> luma, u, v;
    LANE_OP auto at(ptrdiff_t x) {
      return Tones{numbersAt<L>(luma.at(x)), numbersAt<L>(u.at(x)), numbersAt<L>(v.at(x))};
    }
  };
  void findColours(ptrdiff_t y) {
    for (int candidate : {kH, kV}) {
      findColours(y, differences_[candidate], colours_[candidate][y]);
      findTones(colours_[candidate][y], tones_[candidate][y]);
    }
  }
  void findColours(ptrdiff_t y, Ring<StripRow<Wide, kColumns / 2>, 3>& differences, ColourRows& to) {
    const auto [first, red] = kind_[y % 2];
    const T* mosaic = mosaic_[y].at(first);
    const Wide *row = differences[y].at(0), *up = differences[y - 1].at(first), *down = differences[y + 1].at(first);
    T *own = (red ? to.red : to.blue).at(first), *other = (red ? to.blue : to.red).at(first),
      *green = to.green.at(first);
    eachPair([&](ptrdiff_t k) __attribute__((always_inline)) {
      const auto sum = [&](ptrdiff_t at) __attribute__((always_inline)) {
        return numbersAt<L>(up + at) + numbersAt<L>(down + at);
      };
      const auto found = colours(pairsAt<L>(mosaic + 2 * k), Pair{numbersAt<L>(row + k), numbersAt<L>(row + k + 1)},
                                 Pair{sum(k - 1), sum(k)});
      setPairs(own + 2 * k, found.own);
      setPairs(green + 2 * k, found.green);
      setPairs(other + 2 * k, found.other);
    });
  }
  void findTones(ColourRows& colours, ToneRows& to) {
    eachStep([&](ptrdiff_t x) __attribute__((always_inline)) {
      const auto found = tonesOf<T>(numbersAt<L>(colours.red.at(x)), numbersAt<L>(colours.green.at(x)),
                                    numbersAt<L>(colours.blue.at(x)));
      setNumbers(to.luma.at(x), found.luma);
      setNumbers(to.u.at(x), found.u);
      setNumbers(to.v.at(x), found.v);
    });
  }

  // Of each site with the one below.
  struct ContrastRows {
    Row<T> luma;
    Row<DistanceOf<T>> chroma;
    LANE_OP void set(ptrdiff_t x, const auto& contrast) {
      setNumbers(luma.at(x), contrast.luma);
      setDistances(chroma.at(x), contrast.chroma);
    }
    LANE_OP auto at(ptrdiff_t x) { return Contrast{numbersAt<L>(luma.at(x)), distancesAt<L>(chroma.at(x))}; }
  };
  void findHomogeneity(ptrdiff_t y) {
    ToneRows &h = tones_[kH][y], &v = tones_[kV][y], &belowH = tones_[kH][y + 1], &belowV = tones_[kV][y + 1];
    Row<Score>&scores = scores_[y], &scores1 = scores_[y + 2], &scores2 = scores_[y + 1];
    auto beforeH = contrast<T>(h.at(-kStep), h.at(1 - kStep)), beforeV = contrast<T>(v.at(-kStep), v.at(1 - kStep));
    for (ptrdiff_t x = 0; x < end_; x += kStep) {
      const auto rightH = contrast<T>(h.at(x), h.at(x + 1)), leftH = shiftIn(beforeH, rightH);
      beforeH = rightH;
      const auto upV = down_[kV].at(x), downV = contrast<T>(v.at(x), belowV.at(x));
      down_[kV].set(x, downV);
      const auto limit = smaller(larger(leftH, rightH), larger(upV, downV));
      auto score = within(upV, limit) + within(downV, limit) - within(leftH, limit) - within(rightH, limit);
      const auto upH = down_[kH].at(x), downH = contrast<T>(h.at(x), belowH.at(x));
      down_[kH].set(x, downH);
      score = score - within(upH, limit) - within(downH, limit);
      const auto rightV = contrast<T>(v.at(x), v.at(x + 1)), leftV = shiftIn(beforeV, rightV);
      beforeV = rightV;
      score = score + within(leftV, limit) + within(rightV, limit);
      setNumbers(scores.at(x), score);
      setNumbers(sums_.at(x), score + numbersAt<L>(scores1.at(x)) + numbersAt<L>(scores2.at(x)));
    }
  }

  // Whether a pixel without a preference takes over the decision of the one to its left: outside the inner rows and
  // in them.
  void setLinks(const Rectangle& inner, ptrdiff_t width) {
    for (auto& links : links_) std::fill_n(links.at(0), kColumns, Score{-1});
    for (const ptrdiff_t x : {inner.x, inner.x + inner.width}) {
      if (x >= 0 && x < width) *links_[1].at(kMargin + x) = 0;
    }
  }
  void choosePixels(ptrdiff_t y, ptrdiff_t width, Row<Score>& links, Decision& decision, auto to) {
    ColourRows &h = colours_[kH][y], &v = colours_[kV][y];
    for (ptrdiff_t x = 0; x < width; x += kStep) {
      const ptrdiff_t at = kMargin + x, count = std::min(kStep, width - x);
      const auto sum = numbersAt<L>(sums_.at(at - 1)) + numbersAt<L>(sums_.at(at)) + numbersAt<L>(sums_.at(at + 1));
      const auto takesV = decision(sum, numbersAt<L>(links.at(at)), count);
      auto chosen = [&](Row<T> ColourRows::*colour) __attribute__((always_inline)) {
        return choose(takesV, numbersAt<L>((v.*colour).at(at)), numbersAt<L>((h.*colour).at(at)));
      };
      const std::array pixel = {chosen(&ColourRows::red), chosen(&ColourRows::green), chosen(&ColourRows::blue)};
      if constexpr (L == 0) {
        to.storePixel(x, pixel);
      } else if (count == kStep) {
        to.template store<L>(x, pixel);
      } else {
        to.template storeSome<L>(x, count, pixel);
      }
    }
  }

  ptrdiff_t end_;
  RowKind kind_[2];
  Ring<Row<T>, 5> mosaic_;
  Ring<StripRow<Wide, kColumns / 2>, 3> differences_[2];
  Ring<ColourRows, 3> colours_[2];
  Ring<ToneRows, 2> tones_[2];
  ContrastRows down_[2];
  Ring<Row<Score>, 3> scores_;
  Row<Score> sums_;  // of three rows of scores
  Row<Score> links_[2];
};

}  // namespace tolk::ahd
