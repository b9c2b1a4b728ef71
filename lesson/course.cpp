#include "lesson/course.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "simplex/sweep.h"

namespace tabulon::lesson {

namespace {

constexpr int most_steps = 500;

class Walk {
 public:
  explicit Walk(basSafeCtl model) { course_.last = std::move(model); }

  Course run() {
    if (!canonicalise(model()) || !model().shape()) return ended(CourseEnd::TooLarge);
    shape_ = *model().shape();
    while (std::ssize(course_.steps) < most_steps) {
      const PivotChoice choice = find_pivot(model(), shape_);
      if (choice.search == PivotSearch::Optimal) return ended(CourseEnd::Optimal);
      if (choice.search == PivotSearch::Unbounded) return ended_without_row();
      if (!take(choice.pivot)) return ended(CourseEnd::TooLarge);
    }
    return ended(CourseEnd::NoEnd);
  }

 private:
  basSafeCtl& model() { return course_.last; }
  const CellRow& row(int number) const { return course_.last.current.row(number); }

  Course ended(CourseEnd end) {
    course_.end = end;
    return std::move(course_);
  }

  Course ended_without_row() {
    const CellRow& row_F = model().current.row_F();
    int column = 1;
    for (int each = 2; each <= shape_.columns; ++each)
      if (row_F.value(each) < row_F.value(column)) column = each;
    course_.column_without_row = column;
    for (int each = 1; each <= shape_.rows; ++each)
      if (is_passed_over(each, column)) course_.rows_with_zero.push_back(each);
    return ended(CourseEnd::Modelfout);
  }

  double size() const {
    double largest = 1;
    for (int each = 1; each <= shape_.rows; ++each) largest = std::max(largest, std::fabs(row(each).right()));
    return largest;
  }

  bool is_passed_over(int number, int column) const {
    const double entry = row(number).value(column), right = row(number).right();
    return entry > largest_skipped_entry && right <= 0 && is_negligible(right, size());
  }

  bool take(Pivot pivot) {
    const double quotient = row(pivot.row).right() / row(pivot.row).value(pivot.column);
    CourseStep step{pivot, quotient, {}};
    for (int each = 1; each <= shape_.rows; ++each)
      if (each != pivot.row && is_passed_over(each, pivot.column))
        step.passed_over.push_back(passed_over(each, pivot.column));
    const auto ties = ties_of(pivot, quotient);
    model().PivotRij = static_cast<std::int16_t>(pivot.row);
    model().PivotKolom = static_cast<std::int16_t>(pivot.column);
    if (!sweep_column(model())) return false;
    for (PassedOver& each : step.passed_over) each.right_after = row(each.row).right();
    course_.steps.push_back(std::move(step));
    remember(ties, pivot.row);
    return true;
  }

  PassedOver passed_over(int number, int column) const {
    const Tie& tie = ties_[static_cast<std::size_t>(number)];
    return {number, row(number).value(column), 0, tie.step, tie.with};
  }

  // Which rows have the quotient of the pivot row.
  std::array<bool, most_rows + 1> ties_of(Pivot pivot, double quotient) const {
    std::array<bool, most_rows + 1> ties{};
    for (int each = 1; each <= shape_.rows; ++each) {
      const double entry = row(each).value(pivot.column);
      ties[static_cast<std::size_t>(each)] = each != pivot.row && std::fabs(entry) > largest_skipped_entry &&
                                             is_negligible(row(each).right() / entry - quotient, quotient);
    }
    return ties;
  }

  void remember(const std::array<bool, most_rows + 1>& ties, int pivot_row) {
    for (std::size_t each = 1; each < ties.size(); ++each)
      if (ties[each]) ties_[each] = {static_cast<int>(course_.steps.size()), pivot_row};
  }

  struct Tie {
    int step = 0, with = 0;
  };

  Course course_;
  Shape shape_;
  std::array<Tie, most_rows + 1> ties_{};  // by row: the last step that made its right-hand side 0
};

}  // namespace

Course follow_method(basSafeCtl model) {
  return Walk(std::move(model)).run();
}

bool is_negligible(double number, double size) {
  constexpr double relative = 1e-9;
  return std::fabs(number) <= relative * std::max(1.0, std::fabs(size));
}

}  // namespace tabulon::lesson
