// What was done to a tableau, in sentences: the log of a lesson.
//
//   const Pivot pivot{.row = 2, .column = 2};
//   for (const std::string& each : sentences_of_sweep(before, pivot)) log(each);
//   // "x 2 komt in de basis, x 4 gaat eruit."
//   // "rij F := rij F + 2.5 × rij 2"
//   // "rij 3 := rij 3 − 1 × rij 2"
//   // "rij 2 := rij 2 : 2"
//
// `before` is the model as it was. Numbers are shown in its mode, fractions or decimals. The operations stand
// in the order in which the control does them: the multiples are of the pivot row as it was, and then it is
// divided.
#pragma once

#include <string>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"

namespace tabulon::lesson {

// Of one row: row := (row + multiple × other) : divisor. Row 0 is row F, which is never divided.
struct RowOperation {
  int row = 0;
  int other = 0;  // 0: nothing is added
  double multiple = 0;
  double divisor = 1;
};

// What sweep_column does to the rows; empty where the pivot counts as 0.
std::vector<RowOperation> operations_of_sweep(const basSafeCtl& before, Pivot pivot);
// What normalise_column does to them.
std::vector<RowOperation> operations_of_normalising(const basSafeCtl& before, int column);

// "rij 3 := rij 3 − 1 × rij 2", "rij 2 := rij 2 : 2".
std::string sentence_of(const RowOperation& operation, bool fractions);

std::vector<std::string> sentences_of_sweep(const basSafeCtl& before, Pivot pivot);
std::vector<std::string> sentences_of_normalising(const basSafeCtl& before, int column);
// "In rij 2, kolom x 1, is 3 ingevuld; er stond 0." `column` may be the place of the right-hand side; row 0
// is row F.
std::string sentence_of_cell(const basSafeCtl& before, const basSafeCtl& after, int row, int column);

}  // namespace tabulon::lesson
