#include "simplex/sweep.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tabulon {

namespace {

bool counts(double entry) {
  return std::fabs(entry) > largest_negligible_entry;
}
bool in_storage(int column) {
  return column >= 0 && column <= most_columns;
}

// A tableau while it is operated on, with what every step needs.
struct Work {
  TableauState& tableau;
  Shape shape;
  bool fractions;

  bool has_row(int row) const { return row >= 1 && row <= shape.rows; }
  bool has_column(int column) const { return column >= 1 && column <= shape.columns; }
  // 0 outside the problem, as in row and column 0.
  double entry(int row, int column) const {
    return has_row(row) && has_column(column) ? tableau.row(row).value(column) : 0.0;
  }
  void add_multiple(CellRow& row, double factor, const CellRow& pivot_row) const {
    row.add_multiple(factor, pivot_row, shape.columns, fractions);
  }
};

// ---- Step by step: what the operations mean

void normalise(const Work& work, int column) {
  for (int i = 1; i <= work.shape.rows; ++i) {
    CellRow& row = work.tableau.row(i);
    const double divisor = work.entry(i, column);
    if (counts(divisor)) {
      row.divide(divisor, work.shape.columns, work.fractions);
    } else {
      row.rewrite(CellRow::right_hand_side, work.fractions);
    }
  }
  work.tableau.row_F().rewrite_columns(work.shape.columns, work.fractions);
}

void sweep_row_by_row(const Work& work, Pivot pivot) {
  TableauState& tableau = work.tableau;
  const CellRow& pivot_row = tableau.row(pivot.row);
  const double entry = pivot_row.value(pivot.column);
  work.add_multiple(tableau.row_F(), -tableau.row_F().value(pivot.column) / entry, pivot_row);
  for (int i = 1; i <= work.shape.rows; ++i) {
    const double multiplier = -tableau.row(i).value(pivot.column) / entry;
    if (i != pivot.row && counts(multiplier)) work.add_multiple(tableau.row(i), multiplier, pivot_row);
  }
  tableau.set_basis(pivot.row, static_cast<std::int16_t>(pivot.column));
  for (int i = 1; i <= work.shape.rows; ++i) normalise(work, tableau.basis(i));
}

// ---- No result is to become infinite

// From numbers up to this magnitude a sweep cannot get beyond the Doubles: its multipliers stay below 1e99,
// its products below 1e189, and the at most ten divisions of a row are by more than 1e-9 each.
constexpr double harmless_magnitude = 1e90;

double largest_magnitude(const Work& work) {
  double largest = work.tableau.row_F().largest_magnitude(work.shape.columns);
  for (int i = 1; i <= work.shape.rows; ++i)
    largest = std::max(largest, work.tableau.row(i).largest_magnitude(work.shape.columns));
  return largest;
}

bool all_finite(const Work& work) {
  for (int i = 1; i <= work.shape.rows; ++i)
    if (!work.tableau.row(i).all_finite(work.shape.columns)) return false;
  return work.tableau.row_F().all_finite(work.shape.columns);
}

// Sweeps, or leaves everything as it is when a number would become infinite.
Result<> guarded_sweep(const Work& work, Pivot pivot) {
  if (largest_magnitude(work) <= harmless_magnitude) {
    sweep_row_by_row(work, pivot);
    return {};
  }
  const TableauState before = work.tableau;
  sweep_row_by_row(work, pivot);
  if (all_finite(work)) return {};
  work.tableau = before;
  return fail(ErrorNumber::Overflow);
}

bool normalises_to_finite(const Work& work, int column) {
  for (int i = 1; i <= work.shape.rows; ++i) {
    const double divisor = work.entry(i, column);
    if (!counts(divisor)) continue;
    if (!std::isfinite(work.tableau.row(i).largest_magnitude(work.shape.columns) / divisor)) return false;
  }
  return true;
}

// ---- The same with less work, from one unit basis to the next
//
// When every column of the basis is a unit column (1 in its own row, negligible elsewhere) and stays one,
// normalising the basis only divides the pivot row and rewrites texts: no row is gone through more than
// once. Of the up to 100 entries of the basis no more than 20 are looked at in one sweep, because the
// largest of those that are negligible is known from the sweep before. Decimals only: with fractions the
// texts change the numbers.

constexpr double unknown_remainder = std::numeric_limits<double>::infinity();
// Well within what is negligible, to leave room for the rounding of the remainder itself.
constexpr double largest_remainder = largest_negligible_entry / 2;

// A bound of what a basic column holds outside its own row; unknown when the basis is not one of unit
// columns. The sum of a column less its 1 is such a bound, and unlike the largest magnitude it needs no
// exception, hence no branch, for the own row.
double remainder_of_basis(const Work& work) {
  constexpr double rounding = 1e-14;  // of a sum of ten numbers up to 1
  double largest = 1.0;
  for (int own_row = 1; own_row <= work.shape.rows; ++own_row) {
    const int column = work.tableau.basis(own_row);
    if (work.entry(own_row, column) != 1.0) return unknown_remainder;
    double sum = 0.0;
    for (int i = 1; i <= work.shape.rows; ++i) sum += std::fabs(work.tableau.row(i).value(column));
    largest = std::max(largest, sum);
  }
  return largest - 1.0 + rounding;
}

class UnitBasisSweep {
 public:
  UnitBasisSweep(const Work& work, Pivot pivot)
      : work_(work),
        pivot_(pivot),
        pivot_row_(work.tableau.row(pivot.row)),
        entry_(pivot_row_.value(pivot.column)),
        objective_(-work.tableau.row_F().value(pivot.column) / entry_) {
    for (int i = 1; i <= work.shape.rows; ++i) {
      const double quotient = -work.tableau.row(i).value(pivot.column) / entry_;
      const bool changes = (i != pivot.row) & counts(quotient);
      multiplier(i) = changes ? quotient : 0.0;
      largest_multiplier_ = std::max(largest_multiplier_, std::fabs(multiplier(i)));
    }
  }

  // Whether all numbers stay finite.
  bool stays_finite() const {
    // A product below half a unit in the last place of the largest Double carries no sum beyond it.
    constexpr double largest_product = 1e291, largest_dividend = 1e298;
    const double largest = pivot_row_.largest_magnitude(work_.shape.columns);
    return largest <= largest_dividend &&
           std::max(largest_multiplier_, std::fabs(objective_)) * largest <= largest_product;
  }

  // A bound of the basis' remainder after the sweep; unknown when a 1 of the basis would change.
  double remainder_after(double remainder) const {
    double in_pivot_row = 0.0;
    bool ones_stay = true;
    for (int i = 1; i <= work_.shape.rows; ++i) {
      const double entry = i == pivot_.row ? 0.0 : pivot_row_.value(work_.tableau.basis(i));
      ones_stay &= 1.0 + multiplier(i) * entry == 1.0;
      in_pivot_row = std::max(in_pivot_row, std::fabs(entry));
    }
    if (!ones_stay) return unknown_remainder;
    return std::max({remainder + largest_multiplier_ * in_pivot_row, in_pivot_row / std::fabs(entry_),
                     remainder_of_pivot_column()});
  }

  void run() {
    TableauState& tableau = work_.tableau;
    work_.add_multiple(tableau.row_F(), objective_, pivot_row_);
    // A row with multiplier 0 stays what it is; passing it over would cost a branch that nobody can predict.
    for (int i = 1; i <= work_.shape.rows; ++i)
      if (i != pivot_.row) work_.add_multiple(tableau.row(i), multiplier(i), pivot_row_);
    pivot_row_.divide(entry_, work_.shape.columns, work_.fractions);
    tableau.set_basis(pivot_.row, static_cast<std::int16_t>(pivot_.column));
  }

 private:
  double& multiplier(int row) { return multipliers_[static_cast<std::size_t>(row - 1)]; }
  double multiplier(int row) const { return multipliers_[static_cast<std::size_t>(row - 1)]; }

  double remainder_of_pivot_column() const {
    double largest = 0.0;
    for (int i = 1; i <= work_.shape.rows; ++i) {
      const double left = work_.tableau.row(i).value(pivot_.column) + multiplier(i) * entry_;
      largest = std::max(largest, i == pivot_.row ? 0.0 : std::fabs(left));
    }
    return largest;
  }

  const Work& work_;
  Pivot pivot_;
  CellRow& pivot_row_;
  double entry_;
  double objective_;
  double largest_multiplier_ = 0.0;
  std::array<double, most_rows> multipliers_;  // 0 for the pivot row and for rows that stay
};

// With a unit basis, and row F 0 in its columns as well, sweeping its columns only rewrites texts.
bool row_F_is_canonical(const Work& work) {
  for (int i = 1; i <= work.shape.rows; ++i)
    if (work.tableau.row_F().value(work.tableau.basis(i)) != 0) return false;
  return true;
}

void rewrite_tableau(const Work& work) {
  work.tableau.row_F().rewrite_row(work.shape.columns, work.fractions);
  for (int i = 1; i <= work.shape.rows; ++i)
    work.tableau.row(i).rewrite_row(work.shape.columns, work.fractions);
}

// ---- The operations on the model

Result<Work> work_on(basSafeCtl& model) {
  return Work{model.current, TRY(model.shape()), model.Breuken};
}

void forget_pivot(basSafeCtl& model) {
  model.PivotRij = 0;
  model.PivotKolom = 0;
}

bool basis_in_storage(const Work& work) {
  for (int i = 1; i <= work.shape.rows; ++i)
    if (!in_storage(work.tableau.basis(i))) return false;
  return true;
}

// A run of sweeps during which nobody else writes the model.
class Sweeping {
 public:
  Sweeping(basSafeCtl& model, const Work& work) : model_(model), work_(work) { look_at_basis(); }

  // Sweeps the column of every basic variable with its own row.
  Result<> sweep_basis() {
    if (has_unit_basis() && row_F_is_canonical(work_)) {
      rewrite_tableau(work_);
      model_.NormeerKolom = work_.tableau.basis(work_.shape.rows);
      forget_pivot(model_);
      return {};
    }
    for (int row = 1; row <= work_.shape.rows; ++row)
      if (auto swept = sweep({row, work_.tableau.basis(row)}); !swept) return swept;
    return {};
  }

  Result<> sweep(Pivot pivot) {
    if (counts(work_.entry(pivot.row, pivot.column))) {
      if (!basis_in_storage(work_)) return fail(ErrorNumber::SubscriptOutOfRange);
      if (!sweep_unit_basis(pivot)) {
        if (auto swept = guarded_sweep(work_, pivot); !swept) return swept;
        look_at_basis();
      }
      model_.NormeerKolom = work_.tableau.basis(work_.shape.rows);
    }
    if (model_.NrTableau < std::numeric_limits<std::int16_t>::max()) ++model_.NrTableau;
    forget_pivot(model_);
    return {};
  }

 private:
  void look_at_basis() { remainder_ = work_.fractions ? unknown_remainder : remainder_of_basis(work_); }

  bool has_unit_basis() const { return remainder_ <= largest_remainder; }

  bool sweep_unit_basis(Pivot pivot) {
    if (!has_unit_basis()) return false;
    UnitBasisSweep sweep(work_, pivot);
    if (!sweep.stays_finite()) return false;
    const double remainder = sweep.remainder_after(remainder_);
    if (!(remainder <= largest_remainder)) return false;
    sweep.run();
    remainder_ = remainder;
    return true;
  }

  basSafeCtl& model_;
  const Work& work_;
  double remainder_ = unknown_remainder;
};

}  // namespace

Result<> normalise_column(basSafeCtl& model) {
  const Work work = TRY(work_on(model));
  if (work.shape.rows > 0 && !in_storage(model.NormeerKolom)) return fail(ErrorNumber::SubscriptOutOfRange);
  if (!normalises_to_finite(work, model.NormeerKolom)) return fail(ErrorNumber::Overflow);
  normalise(work, model.NormeerKolom);
  return {};
}

Result<> sweep_column(basSafeCtl& model) {
  const Work work = TRY(work_on(model));
  return Sweeping(model, work).sweep({model.PivotRij, model.PivotKolom});
}

Result<> canonicalise(basSafeCtl& model) {
  const Work work = TRY(work_on(model));
  if (work.shape.rows == 0) return {};
  const std::int16_t tableau_number = model.NrTableau;
  const auto done = Sweeping(model, work).sweep_basis();
  model.NrTableau = tableau_number;
  if (done) model.DialoogOK = false;
  return done;
}

Result<PivotSearch> optimise(basSafeCtl& model, int most_sweeps) {
  const Work work = TRY(work_on(model));
  Sweeping sweeping(model, work);
  for (;; --most_sweeps) {
    const PivotChoice choice = find_pivot(model, work.shape);
    forget_pivot(model);
    if (choice.search != PivotSearch::Found || most_sweeps <= 0) return choice.search;
    TRY(sweeping.sweep(choice.pivot));
    model.DialoogOK = false;
  }
}

}  // namespace tabulon
