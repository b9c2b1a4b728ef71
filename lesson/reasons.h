// Why this pivot: the column and the row that the method chooses in the tableau that stands, and the reason
// for each.
//
//   const Reasons reasons = reasons_for(model);
//   for (const std::string& each : sentences_of(model, reasons)) tell(each);
//   // "Kies kolom x 2: daar staat in rij F het meest negatieve getal, -5 (de andere: x 1 -3)."
//   // "Rij 1: in kolom x 2 staat 0, dus deze rij telt niet mee."
//   // "Rij 2: 12 : 2 = 6, het kleinste quotiënt."
//   // "Rij 3: 18 : 2 = 9, groter."
//   // "De pivot staat in kolom x 2, rij 2."
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"

namespace tabulon::lesson {

// Why a row is the pivot row or not.
enum class RowReason : std::uint8_t {
  Smallest,       // the pivot row
  Larger,         // its quotient is larger
  EqualButLower,  // its quotient is the same, but the row above is taken
  EntryZero,      // nothing to divide by
  RightZero,      // a quotient of 0 does not count
  Negative,       // a quotient below 0 does not count
};

struct RowQuotient {
  int row = 0;
  RowReason reason = RowReason::EntryZero;
  double entry = 0, right = 0, quotient = 0;
};

struct Reasons {
  std::vector<int>
      rows_to_bring_in_order;  // whose basic variables have no unit column yet; then nothing follows
  PivotChoice choice;
  int column = 0;                      // also where no row was found; 0 in an optimal tableau
  std::vector<int> other_columns;      // those with a negative number in row F too
  std::vector<RowQuotient> quotients;  // of every row, top to bottom; empty without a column
};

// Whether the column of a row's basic variable is 1 in that row and 0 elsewhere, row F included.
bool is_in_order(const basSafeCtl& model, int row);

// Error 9 as for the model's shape.
Result<Reasons> reasons_for(const basSafeCtl& model);

std::vector<std::string> sentences_of(const basSafeCtl& model, const Reasons& reasons);

}  // namespace tabulon::lesson
