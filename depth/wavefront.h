// Error diffusion of several rows at once: each row runs a few pixels behind the one above it, one row to a number of
// the registers. Every sum is that of the plain loop, term by term.
#pragma once

#include "depth/diffusion.h"

namespace tolk {

template <class Form, class Rows, int L>
class Wavefront {
 public:
  Wavefront(const Form& form, const Rows& rows, const Threshold& threshold, uint8_t* memory)
      : form_(form),
        rows_(rows),
        threshold_(threshold),
        width_(rows.roi.width),
        period_(std::max<ptrdiff_t>(width_ + Method::kReach, kRows * kBehind + kSteps)),
        above_(memory, width_) {
    for (int i = 0; i < kRows; ++i) cursor_[i] = {-i * ptrdiff_t{kBehind}, i, rowAt(i)};
    std::fill_n(thresholds_, kSteps * kRows, typename Form::Error(threshold.constant));
  }

  void run() {
    const ptrdiff_t rounds = (rows_.count() + kRows - 1) / kRows;
    const ptrdiff_t steps = rounds * period_ + (kRows - 1) * kBehind;
    for (ptrdiff_t step = 0; step < steps; step += kSteps) {
      gather();
      gatherAbove(step);
      advance();
      scatter();
    }
  }

 private:
  using Method = typename Form::Method;
  using Error = typename Form::Error;
  using Errors = Reg<Error, L>;
  // The fewer terms a sum has, the more registers it takes to fill the time of its dependent steps.
  static constexpr int kRegisters = Method::kRows == 1 ? 4 : 2;
  static constexpr int kPerRegister = 4 * L, kRows = kRegisters * kPerRegister;
  static constexpr int kBehind = Method::kReach + 2;  // one more than need be, off the chain of dependent steps
  static constexpr int kSteps = 16;                   // between two exchanges with the image: a lane of bytes
  static constexpr int kKept = Method::kRows * kBehind + Method::kReach;

  // Where a row's number of the registers is: column x, which is outside the row from its width to the period.
  struct Cursor {
    ptrdiff_t x, index;
    typename Rows::Row row;
  };
  typename Rows::Row rowAt(ptrdiff_t index) const { return rows_.row(std::min(index, rows_.count() - 1)); }

  // inside(row, x, step, count) and outside(step, count) for the runs of columns of the next steps.
  void eachRun(Cursor& at, auto inside, auto outside) const {
    for (ptrdiff_t step = 0; step < kSteps;) {
      const bool isInside = at.x >= 0 && at.x < width_ && at.index < rows_.count();
      const ptrdiff_t end = at.x < 0 ? 0 : at.x < width_ ? width_ : period_;
      const ptrdiff_t count = std::min(kSteps - step, end - at.x);
      if (isInside) {
        inside(at.row, at.x, step, count);
      } else {
        outside(step, count);
      }
      step += count;
      at.x += count;
      if (at.x == period_) {
        at.x = 0;
        at.index += kRows;
        at.row = rowAt(at.index);
      }
    }
  }

  // Four rows whose next steps are all inside, by vectors.
  bool areInside(int first) const {
    if (!rows_.isPlane()) return false;
    return std::all_of(cursor_ + first, cursor_ + first + 4, [&](const Cursor& at) {
      return at.x >= 0 && at.x + kSteps <= width_ && at.index < rows_.count();
    });
  }

  void gather() {
    for (int i = 0; i < kRows; i += 4) {
      if (areInside(i)) {
        gatherFour(i);
      } else {
        for (int k = i; k < i + 4; ++k) gatherRow(k);
      }
    }
    if (threshold_.noise == nullptr) return;
    for (int i = 0; i < kRows; ++i) gatherNoise(i);
  }
  void gatherFour(int first) {
    Registers<Error, 1, 4> row[4];
    unrolled<4>([&](auto i) __attribute__((always_inline)) {
      const Cursor& at = cursor_[first + i];
      row[i] = at.row.numbers(at.x);
    });
    unrolled<4>([&](auto quarter) __attribute__((always_inline)) {
      const auto steps =
          detail::transposed<Error, 1>({row[0][quarter], row[1][quarter], row[2][quarter], row[3][quarter]});
      unrolled<4>([&](auto k) __attribute__((always_inline)) {
        storeLanes<16>(numbers_ + (4 * quarter + k) * kRows + first, steps[k]);
      });
    });
  }
  void gatherRow(int i) {
    Cursor at = cursor_[i];
    Error* numbers = numbers_ + i;
    eachRun(
        at,
        [&](const auto& row, ptrdiff_t x, ptrdiff_t step, ptrdiff_t count) {
          for (ptrdiff_t k = 0; k < count; ++k) numbers[(step + k) * kRows] = static_cast<Error>(row.number(x + k));
        },
        [&](ptrdiff_t step, ptrdiff_t count) {
          for (ptrdiff_t k = 0; k < count; ++k) numbers[(step + k) * kRows] = Form::kOutside;
        });
  }
  void gatherNoise(int i) {
    Cursor at = cursor_[i];
    eachRun(
        at,
        [&](const auto& row, ptrdiff_t x, ptrdiff_t step, ptrdiff_t count) {
          for (ptrdiff_t k = 0; k < count; ++k) {
            const float noise = threshold_.noise->at(row.y, static_cast<int32_t>(x + k));
            thresholds_[(step + k) * kRows + i] = static_cast<Error>(noise);
          }
        },
        [](ptrdiff_t, ptrdiff_t) {});
  }

  // The errors of the rows above the first one, as far ahead as rows run behind.
  void gatherAbove(ptrdiff_t step) {
    for (int down = 0; down < Method::kRows; ++down) {
      ptrdiff_t x = (step + (down + 1) * kBehind) % period_;
      for (int k = 0; k < kSteps; ++k) {
        aboveFirst_[down][k] = x < width_ ? above_.row[down][x] : Error{0};
        x = x + 1 == period_ ? 0 : x + 1;
      }
    }
  }

  void advance() {
    Errors last[2][kRegisters];  // of the row's own pixels, newest first
    unrolled<kRegisters>([&](auto g) __attribute__((always_inline)) {
      last[0][g] = last_[0][g];
      last[1][g] = last_[1][g];
    });
    for (ptrdiff_t step = 0; step < kSteps; ++step) {
      unrolled<kRegisters>([&](auto g) __attribute__((always_inline)) {
        const ptrdiff_t at = step * kRows + g * kPerRegister;
        const auto sum = weightedErrors<Method>([&](auto down, auto right) __attribute__((always_inline)) {
          if constexpr (down == 0) {
            return last[-right - 1][g];
          } else {
            constexpr ptrdiff_t kBefore = (kKept + right - down * kBehind) * kRows;
            return loadLanes<16, Error, L>(higher_[down - 1] + kBefore + at);
          }
        });
        const auto [integer, error] =
            form_(loadLanes<16, Error, L>(numbers_ + at), sum, loadLanes<16, Error, L>(thresholds_ + at));
        storeLanes<16>(integers_ + at, integer);
        last[1][g] = last[0][g];
        last[0][g] = error;
      });
      shiftDown<0>(step, last[0]);
      storeLanes<16>(lastRows_ + step * kPerRegister, last[0][kRegisters - 1]);
    }
    unrolled<kRegisters>([&](auto g) __attribute__((always_inline)) {
      last_[0][g] = last[0][g];
      last_[1][g] = last[1][g];
    });
    for (auto& errors : higher_) std::copy_n(errors + kSteps * kRows, kKept * kRows, errors);
  }

  // The errors as the rows below need them.
  template <int Down>
  LANE_OP void shiftDown(ptrdiff_t step, const Errors (&errors)[kRegisters]) {
    if constexpr (Down < Method::kRows) {
      Errors shifted[kRegisters];
      unrolled<kRegisters>([&](auto g) __attribute__((always_inline)) {
        const Errors before = g == 0 ? Errors::splat(aboveFirst_[Down][step]) : errors[g == 0 ? 0 : g - 1];
        shifted[g] = shiftIn(before, errors[g]);
        storeLanes<16>(higher_[Down] + (kKept + step) * kRows + g * kPerRegister, shifted[g]);
      });
      shiftDown<Down + 1>(step, shifted);
    }
  }

  void scatter() {
    for (int i = 0; i < kRows; i += 4) {
      if (areInside(i)) {
        scatterFour(i);
      } else {
        for (int k = i; k < i + 4; ++k) scatterRow(k);
      }
    }
    for (int down = 0; down < Method::kRows; ++down) scatterErrors(down);
    for (Cursor& at : cursor_) {
      at.x += kSteps;
      if (at.x < period_) continue;
      at = {at.x - period_, at.index + kRows, rowAt(at.index + kRows)};
    }
  }
  // The errors of the last rows, which the first ones need next time.
  void scatterErrors(int down) {
    Cursor at = cursor_[kRows - 1 - down];
    eachRun(
        at,
        [&](const auto&, ptrdiff_t x, ptrdiff_t step, ptrdiff_t count) {
          const Error* errors = lastRows_ + step * kPerRegister + kPerRegister - 1 - down;
          for (ptrdiff_t k = 0; k < count; ++k) above_.row[down][x + k] = errors[k * kPerRegister];
        },
        [](ptrdiff_t, ptrdiff_t) {});
  }
  void scatterFour(int first) {
    Registers<int32_t, 1, 4> row[4];
    unrolled<4>([&](auto quarter) __attribute__((always_inline)) {
      Registers<int32_t, 1, 4> steps;
      unrolled<4>([&](auto k) __attribute__((always_inline)) {
        steps[k] = loadLanes<16, int32_t, 1>(integers_ + (4 * quarter + k) * kRows + first);
      });
      const auto byRow = detail::transposed<int32_t, 1>(steps);
      unrolled<4>([&](auto i) __attribute__((always_inline)) { row[i][quarter] = byRow[i]; });
    });
    unrolled<4>([&](auto i) __attribute__((always_inline)) {
      const Cursor& at = cursor_[first + i];
      at.row.setSixteen(at.x, row[i]);
    });
  }
  void scatterRow(int i) {
    Cursor at = cursor_[i];
    eachRun(
        at,
        [&](const auto& row, ptrdiff_t x, ptrdiff_t step, ptrdiff_t count) {
          row.set(x, count, integers_ + step * kRows + i, kRows);
        },
        [](ptrdiff_t, ptrdiff_t) {});
  }

  const Form& form_;
  const Rows& rows_;
  const Threshold& threshold_;
  const ptrdiff_t width_, period_;
  ErrorRows<Method, Error> above_;
  Cursor cursor_[kRows];
  Errors last_[2][kRegisters] = {};
  alignas(32) Error numbers_[kSteps * kRows];
  alignas(32) Error thresholds_[kSteps * kRows];
  alignas(32) int integers_[kSteps * kRows];
  alignas(32) Error higher_[Method::kRows][(kKept + kSteps) * kRows] = {};
  Error lastRows_[kSteps * kPerRegister];
  Error aboveFirst_[Method::kRows][kSteps];
};

template <class Form, class Rows>
void diffuse(const Form& form, const Rows& rows, const Threshold& threshold, uint8_t* memory) {
  if constexpr (kLanes > 0) {
    Wavefront<Form, Rows, kLanes>(form, rows, threshold, memory).run();
  } else {
    diffusePlainly(form, rows, threshold, memory);
  }
}

}  // namespace tolk
