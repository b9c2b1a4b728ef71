#include "lesson/judgement.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "lesson/course.h"
#include "lesson/reasons.h"
#include "lesson/twin.h"
#include "lesson/words.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {

namespace {

class Judge {
 public:
  Judge(const basSafeCtl& before, Pivot pivot) : before_(before), pivot_(pivot) {}

  Judgement judge() {
    if (!is_inside() || std::fabs(entry(pivot_.row)) <= largest_negligible_entry)
      return wrong("Het pivot-element is 0: er is niets veranderd, alleen het nummer van het tableau.");
    if (before_.current.basis(pivot_.row) == pivot_.column && !is_in_order(before_, pivot_.row))
      return right("Dat klopt: " + name() + " is een basisvariabele, en haar kolom moest nog in orde komen.");
    if (before_.current.basis(pivot_.row) == pivot_.column)
      return wrong("Kolom " + name() + " was al de basiskolom van " + row_name(pivot_.row) +
                   ": deze stap brengt niets verder.");
    sweep();
    judge_column();
    judge_row();
    tell_consequences();
    judgement_.right = blame_.empty();
    if (judgement_.right) say("Dat klopt: " + praise());
    for (std::string& each : blame_) say(std::move(each));
    for (std::string& each : consequences_) say(std::move(each));
    return std::move(judgement_);
  }

 private:
  bool is_inside() const {
    return pivot_.row >= 1 && pivot_.row <= before_.rows() && pivot_.column >= 1 &&
           pivot_.column <= before_.columns();
  }
  double entry(int row) const { return before_.current.row(row).value(pivot_.column); }
  double quotient(int row) const { return before_.current.row(row).right() / entry(row); }
  double in_row_F() const { return before_.current.row_F().value(pivot_.column); }
  std::string name() const { return column_name(before_, pivot_.column); }
  std::string number(double value) const { return shown(value, before_.Breuken); }
  void say(std::string sentence) { judgement_.sentences.push_back(std::move(sentence)); }

  Judgement wrong(std::string sentence) { return judged(false, std::move(sentence)); }
  Judgement right(std::string sentence) { return judged(true, std::move(sentence)); }
  Judgement judged(bool is_right, std::string sentence) {
    say(std::move(sentence));
    judgement_.right = is_right;
    return std::move(judgement_);
  }

  void sweep() {
    after_ = twin_of(before_);
    after_.PivotRij = static_cast<std::int16_t>(pivot_.row);
    after_.PivotKolom = static_cast<std::int16_t>(pivot_.column);
    swept_ = sweep_column(after_).has_value();
  }

  // ---- The column

  int most_negative_column() const {
    int chosen = pivot_.column;
    for (int column = 1; column <= before_.columns(); ++column)
      if (before_.current.row_F().value(column) < before_.current.row_F().value(chosen)) chosen = column;
    return chosen;
  }

  void judge_column() {
    const auto found = find_pivot(before_, before_.shape().value_or(Shape{}));
    if (found.search == PivotSearch::Optimal) {
      blame_.emplace_back("Het tableau was al optimaal: in rij F stond geen negatief getal meer.");
    } else if (already_basic()) {
      blame_.push_back("Kolom " + name() + " hoorde al bij de basis.");
    } else if (!(in_row_F() < least_objective_entry)) {
      blame_.push_back("In rij F stond in kolom " + name() + " geen negatief getal maar " +
                       number(in_row_F()) + ".");
    } else if (const int best = most_negative_column(); best != pivot_.column) {
      remark_ = "kolom " + name() + " mag, al is " + number(in_row_F()) +
                " in rij F niet het meest negatieve getal: dat staat in kolom " + column_name(before_, best) +
                ".";
    }
  }

  bool already_basic() const {
    for (int row = 1; row <= before_.rows(); ++row)
      if (before_.current.basis(row) == pivot_.column) return true;
    return false;
  }

  // ---- The row

  bool takes_part(int row) const {
    return std::fabs(entry(row)) > largest_skipped_entry && quotient(row) > 0;
  }

  void judge_row() {
    if (!takes_part(pivot_.row)) return judge_row_that_does_not_count();
    int smallest = pivot_.row;
    for (int row = 1; row <= before_.rows(); ++row)
      if (takes_part(row) && quotient(row) < quotient(smallest)) smallest = row;
    if (smallest == pivot_.row) return;
    if (is_negligible(quotient(smallest) - quotient(pivot_.row), quotient(pivot_.row))) return;
    blame_.push_back("Het quotiënt van " + row_name(smallest) + " was kleiner (" +
                     number(quotient(smallest)) + ") dan dat van " + row_name(pivot_.row) + " (" +
                     number(quotient(pivot_.row)) + ").");
  }

  // A row with 0 at the right keeps all right-hand sides as they are, though the control would not choose it.
  void judge_row_that_does_not_count() {
    if (quotient(pivot_.row) != 0) {
      blame_.push_back("Het quotiënt van " + row_name(pivot_.row) + " was negatief (" +
                       number(quotient(pivot_.row)) + ") en telt niet mee.");
    } else if (entry(pivot_.row) > 0) {
      remark_ = "rechts in " + row_name(pivot_.row) +
                " stond 0, en zo blijven alle rechterleden wat ze waren. Het control zelf slaat een quotiënt "
                "0 over.";
    } else {
      blame_.push_back("In " + row_name(pivot_.row) + " stond rechts 0 en in kolom " + name() +
                       " een negatief getal: die rij telt niet mee.");
    }
  }

  // ---- What came of it

  void tell_consequences() {
    if (!swept_)
      return consequences_.emplace_back("Een getal zou te groot worden: er is niets veranderd."), void();
    for (int row = 1; row <= before_.rows(); ++row) {
      const double was = before_.current.row(row).right(), is = after_.current.row(row).right();
      if (is < 0 && !is_negligible(is, was) && !(was < 0))
        consequences_.push_back("Nu staat rechts in " + row_name(row) + " een negatief getal: " + number(is) +
                                ".");
    }
    const double was = before_.current.row_F().right(), is = after_.current.row_F().right();
    if (is < was && !is_negligible(is - was, was))
      consequences_.push_back("F ging omlaag, van " + number(was) + " naar " + number(is) + ".");
  }

  std::string praise() const {
    return remark_.empty() ? "het meest negatieve getal van rij F, en daarin het kleinste positieve quotiënt."
                           : remark_;
  }

  const basSafeCtl& before_;
  Pivot pivot_;
  basSafeCtl after_;
  bool swept_ = false;
  std::string remark_;
  std::vector<std::string> blame_, consequences_;
  Judgement judgement_;
};

}  // namespace

Judgement judge_sweep(const basSafeCtl& before, Pivot pivot) {
  return Judge(before, pivot).judge();
}

}  // namespace tabulon::lesson
