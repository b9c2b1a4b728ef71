// Any tableau and any change of it, done as the control does it: the log, the reasons and the judgement. What
// must hold is checked by require(); the first failure stops the run. An input is a byte for each of these:
//
//   the cause, its column and row; whether in fractions; the counts of the problem; the basis of each row
//   and then the numbers of row F and of each row, as number() reads them; behind the end all are 0

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "lesson/changes.h"
#include "lesson/reasons.h"
#include "lesson/steps.h"
#include "lesson/twin.h"
#include "simplex/sweep.h"

namespace {

using namespace tabulon;
using namespace tabulon::lesson;
using fuzz::require;

class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  std::uint8_t byte() {
    const std::uint8_t first = rest_.empty() ? 0 : rest_.front();
    rest_ = rest_.subspan(rest_.empty() ? 0 : 1);
    return first;
  }
  int below(int count) { return byte() % count; }

  // Quarters, thirds, and for 127 the bytes of a Double.
  double number() {
    const auto first = static_cast<std::int8_t>(byte());
    if (first == 127) return whole_double();
    return first % 2 == 0 ? first / 4.0 : first / 3.0;
  }

 private:
  double whole_double() {
    double number = 0;
    std::uint8_t bytes[sizeof number];
    for (std::uint8_t& each : bytes) each = byte();
    std::memcpy(&number, bytes, sizeof number);
    return std::isfinite(number) ? number : 0;
  }

  std::span<const std::uint8_t> rest_;
};

TableauChange read_change(Input& input) {
  const auto cause = static_cast<ChangeCause>(input.below(static_cast<int>(ChangeCause::Restore) + 1));
  const int column = input.below(most_columns + 2);
  return {cause, column, input.below(most_rows + 2)};
}

void read_row(Input& input, CellRow& row, int columns) {
  for (int column = 1; column <= columns; ++column) row.write(column, input.number());
  row.write(CellRow::right_hand_side, input.number());
}

// False where the counts make no tableau.
bool read_tableau(Input& input, basSafeCtl& model) {
  model.Breuken = input.below(2) == 1;
  model.NrBeslisVar = static_cast<std::int16_t>(input.below(most_columns));
  model.NrKleinerGelijkVglen = static_cast<std::int16_t>(input.below(most_rows + 1));
  model.NrGroterGelijkVglen = static_cast<std::int16_t>(input.below(most_rows + 1));
  model.NrGelijkVglen = static_cast<std::int16_t>(input.below(most_rows + 1));
  if (!model.set_derived_counts() || !InitTableau(model)) return false;
  for (int row = 1; row <= model.rows(); ++row)
    model.current.set_basis(row, static_cast<std::int16_t>(input.below(most_columns + 2)));
  read_row(input, model.current.row_F(), model.columns());
  for (int row = 1; row <= model.rows(); ++row) read_row(input, model.current.row(row), model.columns());
  return rewrite_texts(model).has_value();
}

bool is_inside(const basSafeCtl& model, const TableauChange& change) {
  return change.column <= model.columns() && change.row <= model.rows();
}

// As the control does it; false where it tells of nothing, because nothing was done.
bool happens(const TableauChange& change, basSafeCtl& model, Input& input) {
  model.PivotKolom = model.NormeerKolom = static_cast<std::int16_t>(change.column);
  model.PivotRij = static_cast<std::int16_t>(change.row);
  const bool is_pivot = is_inside(model, change) && change.column >= 1 && change.row >= 1;
  switch (change.cause) {
    case ChangeCause::Cell: {
      if (!is_inside(model, change)) return false;
      CellRow& row = change.row == 0 ? model.current.row_F() : model.current.row(change.row);
      row.write(change.column == 0 ? CellRow::right_hand_side : change.column, input.number());
      return true;
    }
    case ChangeCause::Sweep:
    case ChangeCause::AutomaticSweep:
      return is_pivot && sweep_column(model);
    case ChangeCause::Normalise:
      return change.column >= 1 && change.column <= model.columns() && normalise_column(model);
    case ChangeCause::BasicSolution:
      return canonicalise(model).has_value();
    case ChangeCause::Optimise:
      return optimise(model, 3).has_value();
    case ChangeCause::Fractions:
      model.Breuken = !model.Breuken;
      return rewrite_texts(model).has_value();
    default:
      return true;
  }
}

// ---- What must hold

void check_sentences(const std::vector<std::string>& sentences) {
  require(!sentences.empty());
  for (const std::string& each : sentences) {
    require(!each.empty() && !each.contains("Inf") && !each.contains("NaN"));
    require(std::ranges::none_of(each, [](unsigned char c) { return c < ' '; }));
  }
}

// Each row once, the pivot row last, and nothing but its multiples is added.
void check_operations(const basSafeCtl& before, Pivot pivot) {
  std::vector<int> rows;
  const auto operations = operations_of_sweep(before, pivot);
  for (const RowOperation& each : operations) {
    require(each.row >= 0 && each.row <= before.rows() && std::ranges::count(rows, each.row) == 0);
    require(each.other == 0 || (each.other == pivot.row && each.row != pivot.row));
    require(each.row != pivot.row || &each == &operations.back());
    rows.push_back(each.row);
  }
}

void check_quotients(const basSafeCtl& model, const Reasons& reasons) {
  require(std::ssize(reasons.quotients) == model.rows());
  for (const RowQuotient& each : reasons.quotients)
    require((each.reason == RowReason::Smallest) == (each.row == reasons.choice.pivot.row));
}

// A remainder in row F can be too small to be swept away and large enough to be chosen: then the column that
// is found is its row's own, and sweeping it brings nothing.
bool is_own_column(const basSafeCtl& model, Pivot pivot) {
  return model.current.basis(pivot.row) == pivot.column;
}

// The reasons are those of the pivot that the control finds, and that one the judge praises.
void check_reasons(const basSafeCtl& model) {
  const auto reasons = reasons_for(model);
  require(reasons.has_value());
  check_sentences(sentences_of(model, *reasons));
  const PivotChoice choice = find_pivot(model, *model.shape());
  require(reasons->choice.search == choice.search && reasons->choice.pivot == choice.pivot);
  require((reasons->column == 0) == (choice.search == PivotSearch::Optimal));
  require(std::ranges::count(reasons->other_columns, reasons->column) == 0);
  if (reasons->column == 0 || !reasons->rows_to_bring_in_order.empty())
    return require(reasons->quotients.empty());
  check_quotients(model, *reasons);
  if (choice.search != PivotSearch::Found) return;
  require(reasons->column == choice.pivot.column);
  const TableauChange sweep{ChangeCause::Sweep, choice.pivot.column, choice.pivot.row};
  require(judge_change(model, model, sweep).right == !is_own_column(model, choice.pivot));
}

void check_change(const basSafeCtl& before, const basSafeCtl& after, const TableauChange& change) {
  const bool is_sweep = change.cause == ChangeCause::Sweep || change.cause == ChangeCause::AutomaticSweep;
  check_sentences(sentences_of_change(before, after, change));
  const StepJudgement judgement = judge_change(before, after, change);
  check_sentences(judgement.sentences);
  require(judgement.right.has_value() == is_sweep);
  if (is_sweep) check_operations(before, {.row = change.row, .column = change.column});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const TableauChange change = read_change(input);
  basSafeCtl before;
  if (!read_tableau(input, before)) return -1;
  check_reasons(before);
  basSafeCtl after = twin_of(before);
  if (!happens(change, after, input)) return 0;
  check_change(before, after, change);
  check_reasons(after);
  return 0;
}
