// The elementary operations on a tableau: normalising a column, sweeping a column with a row, the canonical
// form of the current basis, and the method itself.
//
//   model.PivotKolom = 1, model.PivotRij = 2;
//   if (auto done = sweep_column(model); !done) return done;   // column 1 enters the basis in row 2
//
// Every changed number gets its display text in the model's mode; with fractions that also makes the number
// exactly the fraction that is shown.
//
// Errors, always before anything is changed: 9 when the counts exceed the storage, or when a column to
// normalise lies outside 0..30; 6 when a result would be too large for a Double. Column and row 0 hold
// nothing but zeros, and so does what lies beyond the problem's own rows and columns.
#pragma once

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"

namespace tabulon {

// Entries and row multipliers up to this magnitude count as 0.
inline constexpr double largest_negligible_entry = 1e-9;

// Divides every row with an entry in column NormeerKolom by that entry. Row F keeps its numbers.
Result<> normalise_column(basSafeCtl& model);

// Sweeps column PivotKolom with row PivotRij, puts the column into the basis of that row and normalises the
// columns of the basis. A pivot entry that counts as 0, or a place outside the tableau, changes no number;
// it counts as a new tableau all the same. NrTableau goes no further than 32767, so that a problem on which
// the method cycles can go on for ever. Leaves PivotKolom and PivotRij 0.
Result<> sweep_column(basSafeCtl& model);

// Sweeps the column of each basic variable with its own row, so that the right-hand sides become the values
// of the basic variables. NrTableau stays. Leaves PivotKolom and PivotRij 0 and DialoogOK off. Error 6 may
// leave the rows before the one that fails swept, which is a tableau of the same problem.
Result<> canonicalise(basSafeCtl& model);

// Searches the pivot element and sweeps with it, again and again, until there is none or `most_sweeps` are
// made; Found tells that there is more to do. The same as calling find_pivot and sweep_column in turn, but
// what one sweep knows of the basis need not be found out again by the next. Leaves DialoogOK off.
Result<PivotSearch> optimise(basSafeCtl& model, int most_sweeps);

}  // namespace tabulon
