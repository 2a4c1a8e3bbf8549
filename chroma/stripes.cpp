// 4:2:0 smoothed by three rows of luma and two of chroma, for a whole picture or stripe by stripe.
#include "frame/checks.h"
#include "frame/planes.h"
#include "frame/rows.h"
#include "lanes/terms.h"

using namespace tolk;

namespace {

// ---- Terms of the rows above (a), own (c) and below (b), or of two chroma rows; on bytes of lanes or plain integers
// ----

template <int L>
LANE_OP U8<L> quarterSum(U8<L> a, U8<L> c, U8<L> b, int half) {
  auto sum = [&](I16<L> above, I16<L> own, I16<L> below) __attribute__((always_inline)) {
    return shiftRight(above + own + own + below + I16<L>::splat(static_cast<int16_t>(half)), 2);
  };
  return narrow(sum(widenLow(a), widenLow(c), widenLow(b)), sum(widenHigh(a), widenHigh(c), widenHigh(b)));
}
constexpr int quarterSum(int a, int c, int b, int half) { return std::min(255, (a + 2 * c + b + half) >> 2); }

struct Tri {
  LANE_OP static auto of(auto a, auto c, auto b) { return quarterSum(a, c, b, 0); }
};
struct TriPlus {  // four before the division by four: one more, required
  LANE_OP static auto of(auto a, auto c, auto b) { return quarterSum(a, c, b, 4); }
};
struct TriAvg {
  LANE_OP static auto of(auto a, auto c, auto b) { return average(average(c, b), average(c, a)); }
};
struct TriCross {
  LANE_OP static auto of(auto a, auto c, auto b) { return average(average(a, b), c); }
};
struct Avg {
  LANE_OP static auto of(auto u, auto v) { return average(u, v); }
};
struct Mean {
  LANE_OP static auto of(auto u, auto v) { return mean(u, v); }
};

// ---- Rows ----

struct LumaRow {  // at the edges of a picture the own row stands in for the missing one
  const uint8_t *above, *own, *below;

  template <class Term, int L>
  LANE_OP U8<L> load(ptrdiff_t x, auto n) const {
    return Term::of(loadBytes<16, uint8_t, L>(above + x, n), loadBytes<16, uint8_t, L>(own + x, n),
                    loadBytes<16, uint8_t, L>(below + x, n));
  }
  template <class Term>
  int at(ptrdiff_t x) const {
    return Term::of(int{above[x]}, int{own[x]}, int{below[x]});
  }
};
struct ChromaRow {  // of pairs; columns count their bytes
  const uint8_t *first, *second;

  template <class Term, int L, int Stride = 16>
  LANE_OP U8<L> load(ptrdiff_t x, auto n) const {
    return Term::of(loadBytes<Stride, uint8_t, L>(first + x, n), loadBytes<Stride, uint8_t, L>(second + x, n));
  }
  template <class Term>
  int at(ptrdiff_t x) const {
    return Term::of(int{first[x]}, int{second[x]});
  }
};

// vector(x, n) stores the n columns from x on, pixel(x) one.
LANE_OP void eachColumn(ptrdiff_t x, ptrdiff_t end, auto vector, auto pixel) {
  if constexpr (kLanes > 0) {
    eachVector<kLanes>(x, end, Whole{}, vector);
  } else {
    for (; x < end; ++x) pixel(x);
  }
}
inline constexpr int kWidth = kLanes > 0 ? kLanes : 1;

template <class LumaTerm, class ChromaTerm>
void packedColumns(LumaRow luma, ChromaRow chroma, uint8_t* to, ptrdiff_t x, ptrdiff_t end) {
  constexpr int L = kWidth;
  eachColumn(
      x, end,
      [&](ptrdiff_t i, auto n) __attribute__((always_inline)) {
        const auto y = luma.load<LumaTerm, L>(i, n), c = chroma.load<ChromaTerm, L>(i, n);
        storeBytes<32>(to + 2 * i, interleaveLow<1>(y, c), n * 2);
        storeBytes<32>(to + 2 * i + 16, interleaveHigh<1>(y, c), n * 2 - 16);
      },
      [&](ptrdiff_t i) {
        to[2 * i] = static_cast<uint8_t>(luma.at<LumaTerm>(i));
        to[2 * i + 1] = static_cast<uint8_t>(chroma.at<ChromaTerm>(i));
      });
}
template <class Term>
void lumaColumns(LumaRow luma, uint8_t* to, ptrdiff_t x, ptrdiff_t end) {
  constexpr int L = kWidth;
  eachColumn(
      x, end,
      [&](ptrdiff_t i, auto n) __attribute__((always_inline)) { storeBytes<16>(to + i, luma.load<Term, L>(i, n), n); },
      [&](ptrdiff_t i) { to[i] = static_cast<uint8_t>(luma.at<Term>(i)); });
}
// Columns count the pairs.
template <class Term>
void splitColumns(ChromaRow chroma, uint8_t* first, uint8_t* second, ptrdiff_t x, ptrdiff_t end) {
  constexpr int L = kWidth;
  eachColumn(
      x, end,
      [&](ptrdiff_t i, auto n) __attribute__((always_inline)) {
        const auto a = chroma.load<Term, L, 32>(2 * i, n * 2), b = chroma.load<Term, L, 32>(2 * i + 16, n * 2 - 16);
        storeBytes<16>(first + i, evenOf(a, b), n);
        storeBytes<16>(second + i, oddOf(a, b), n);
      },
      [&](ptrdiff_t i) {
        first[i] = static_cast<uint8_t>(chroma.at<Term>(2 * i));
        second[i] = static_cast<uint8_t>(chroma.at<Term>(2 * i + 1));
      });
}

enum Stripe { kFirst = 1, kMiddle = 4, kLast = 16, kWhole = 21, kNone = 0 };
Stripe stripeOf(uint32_t stripe) {
  if (stripe == kLast || stripe == kMiddle || stripe == kFirst) return static_cast<Stripe>(stripe);
  return (stripe & kWhole) == kWhole ? kWhole : kNone;
}

struct Picture {
  const uint8_t *luma, *pairs;
  ptrdiff_t lumaStep, pairStep, width, height;
  ptrdiff_t split = width & -32, split8 = width & -8;

  const uint8_t* lumaAt(ptrdiff_t y) const { return luma + y * lumaStep; }
  LumaRow inner(ptrdiff_t y) const { return {lumaAt(y - 1), lumaAt(y), lumaAt(y + 1)}; }
  LumaRow top(ptrdiff_t y) const { return {lumaAt(y), lumaAt(y), lumaAt(y + 1)}; }
  LumaRow bottom(ptrdiff_t y) const { return {lumaAt(y - 1), lumaAt(y), lumaAt(y)}; }
  ChromaRow chroma(ptrdiff_t j, ptrdiff_t other) const { return {pairs + j * pairStep, pairs + other * pairStep}; }
  ChromaRow next(ptrdiff_t j) const { return chroma(j, j + 1); }
  ChromaRow previous(ptrdiff_t j) const { return chroma(j - 1, j); }
};

// ---- To packed 4:2:2 ----

struct PackedPicture : Picture {
  uint8_t* dst;
  ptrdiff_t dstStep;

  uint8_t* to(ptrdiff_t y) const { return dst + y * dstStep; }
  // A row of smooth terms up to a column, and of plain ones from there on.
  void smooth(ptrdiff_t y, LumaRow row, ChromaRow pair, ptrdiff_t column) const {
    packedColumns<TriAvg, Avg>(row, pair, to(y), 0, column);
    packedColumns<Tri, Mean>(row, pair, to(y), column, width);
  }
  void raised(ptrdiff_t y, LumaRow row, ChromaRow pair, ptrdiff_t from = 0) const {
    packedColumns<TriPlus, Mean>(row, pair, to(y), from, width);
  }

  void whole() const {
    const ptrdiff_t h = height, lastChroma = h / 2 - 1;
    if (h == 2) {
      raised(0, top(0), chroma(0, 0));
      raised(1, bottom(1), chroma(0, 0));
      return;
    }
    raised(0, top(0), next(0));
    raised(1, inner(1), next(0));
    for (ptrdiff_t y = 2; y <= h - 3; ++y) {
      packedColumns<TriAvg, Avg>(inner(y), next(y >> 1), to(y), 0, split);
      raised(y, inner(y), next(y >> 1), split);
    }
    raised(h - 2, inner(h - 2), previous(lastChroma));
    raised(h - 1, bottom(h - 1), previous(lastChroma));
  }
  void stripe(Stripe which) const {
    const ptrdiff_t h = height;
    if (which == kFirst) {
      smooth(0, top(0), next(0), split8);
      smooth(1, inner(1), next(0), split8);
    }
    for (ptrdiff_t y = which == kFirst ? 2 : -2; y <= h - 3; ++y) smooth(y, inner(y), next(y >> 1), split);
    if (which == kLast) {
      smooth(h - 2, inner(h - 2), previous(h / 2 - 1), split8);
      smooth(h - 1, bottom(h - 1), previous(h / 2 - 1), split8);
    }
  }
};

// ---- To planes of 4:2:0 ----

struct PlanarPicture : Picture {
  uint8_t* dst[3];
  ptrdiff_t dstStep[3];

  uint8_t* to(int c, ptrdiff_t y) const { return dst[c] + y * dstStep[c]; }
  template <class Block, class Rest = Block>
  void lumaRow(ptrdiff_t y, LumaRow row) const {
    lumaColumns<Block>(row, to(0, y), 0, split);
    lumaColumns<Rest>(row, to(0, y), split, width);
  }
  template <class Block, class Rest = Block>
  void chromaRow(ptrdiff_t r, ChromaRow row) const {
    splitColumns<Block>(row, to(1, r), to(2, r), 0, split / 2);
    splitColumns<Rest>(row, to(1, r), to(2, r), split / 2, width / 2);
  }

  void whole() const {
    const ptrdiff_t h = height;
    if (h == 2) {
      lumaRow<TriPlus>(0, top(0));
      lumaRow<TriPlus>(1, bottom(1));
      chromaRow<Mean>(0, chroma(0, 0));
      return;
    }
    lumaRow<Tri>(0, top(0));
    for (ptrdiff_t y = 1; y <= h - 2; ++y) lumaRow<TriAvg, Tri>(y, inner(y));
    lumaRow<Tri>(h - 1, bottom(h - 1));
    for (ptrdiff_t r = 0; r <= h / 2 - 2; ++r) chromaRow<Avg, Mean>(r, next(r));
    chromaRow<Mean>(h / 2 - 1, previous(h / 2 - 1));
  }
  // The rows inside of an aligned picture take other terms: both are defined.
  template <class Inner, class InnerRest>
  void first() const {
    lumaRow<TriAvg, Tri>(0, top(0));
    for (ptrdiff_t y = 1; y <= height - 3; ++y) lumaRow<Inner, InnerRest>(y, inner(y));
    for (ptrdiff_t r = 0; r <= height / 2 - 2; ++r) chromaRow<Avg, Mean>(r, next(r));
  }
  void middle() const {
    for (ptrdiff_t y = -2; y <= height - 3; ++y) lumaRow<TriAvg, Tri>(y, inner(y));
    for (ptrdiff_t r = -1; r <= height / 2 - 2; ++r) chromaRow<Avg, Mean>(r, next(r));
  }
  template <class LumaTerm, class ChromaTerm>
  void last() const {
    for (ptrdiff_t y = -2; y <= height - 2; ++y) lumaRow<LumaTerm>(y, inner(y));
    lumaRow<LumaTerm>(height - 1, bottom(height - 1));
    for (ptrdiff_t r = -1; r <= height / 2 - 2; ++r) chromaRow<ChromaTerm>(r, next(r));
    chromaRow<ChromaTerm>(height / 2 - 1, previous(height / 2 - 1));
  }

  bool aligned() const {
    const auto pointerBits = reinterpret_cast<uintptr_t>(luma) | reinterpret_cast<uintptr_t>(pairs) |
                             reinterpret_cast<uintptr_t>(dst[0]) | reinterpret_cast<uintptr_t>(dst[1]) |
                             reinterpret_cast<uintptr_t>(dst[2]);
    return (pointerBits & 15) == 0 && (lumaStep & 15) == 0 &&
           ((pairStep | dstStep[0] | dstStep[1] | dstStep[2]) & 31) == 0 && (height & 15) == 0 && (width & 63) == 0;
  }
};

}  // namespace

TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                  int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                                  uint32_t stripe) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi, {2, 2}))) return fault;
  const TolkSize size = wholeGroups<2, 2>(roi);
  const PackedPicture picture{{srcY, srcCbCr, srcYStep, srcCbCrStep, size.width, size.height}, dst, dstStep};
  const Stripe which = stripeOf(stripe);
  if (which == kWhole) {
    picture.whole();
  } else if (which != kNone) {
    picture.stripe(which);
  }
  return tolkStatusOk;
}

// Whatever its name says, the chroma is not exchanged.
TolkStatus tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                  int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                                  TolkSize roi, uint32_t stripe) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi), planes(dst), size(roi, {2, 2}))) return fault;
  const TolkSize size = wholeGroups<2, 2>(roi);
  const PlanarPicture picture{{srcY, srcCbCr, srcYStep, srcCbCrStep, size.width, size.height},
                              {dst[0], dst[1], dst[2]},
                              {dstStep[0], dstStep[1], dstStep[2]}};
  switch (stripeOf(stripe)) {
    case kWhole:
      picture.whole();
      break;
    case kFirst:
      picture.aligned() ? picture.first<TriAvg, TriAvg>() : picture.first<TriCross, Tri>();
      break;
    case kMiddle:
      picture.middle();
      break;
    case kLast:
      picture.aligned() ? picture.last<TriAvg, Avg>() : picture.last<Tri, Mean>();
      break;
    case kNone:
      break;
  }
  return tolkStatusOk;
}
