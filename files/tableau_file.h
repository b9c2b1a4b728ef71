// A tableau as text: the writer and the reader of ".tbl" files.
//
//   auto file = TextFile::open(host.files(), "oefening.tbl", TextFile::Mode::Output);
//   if (file) return write_tableau(model, *file);
//
// One item a line: a text as it stands, a whole number with its sign position and one blank behind it, or a
// real number by the Str rule. The lines are, in this order: the header; NrTableau, NrBeslisVar,
// NrSurplusVar, NrKleinerGelijkVglen, NrGroterGelijkVglen, NrGelijkVglen, BigM; "1" or "0" for Breuken;
// StartRij, StartKolom; then four lines a cell (text, first text, value, first value) for row F by columns,
// for its right-hand side, after two lines a row for the basis, for the rows by columns, and for the
// right-hand sides.
#pragma once

#include <string_view>

#include "control/basSafeCtl.h"
#include "platform/text_file.h"

namespace tabulon {

inline constexpr std::string_view tableau_header = "Tabloria op Internet";

// Writes the model and closes the file. Sets the slack and artificial counts of the model, which the file
// does not store, from its row counts. Error 6 when they are beyond 16 bits, 9 at the first cell that the
// storage does not have; errors of the file as they come. What was written before an error stays.
Result<> write_tableau(basSafeCtl& model, platform::TextFile& file);

enum class TableauRead : std::uint8_t { Read, OtherHeader };

// Begins with a write of the header that it has not read yet, so from a file that was opened for input it
// reads nothing and gives error 54: tableaux are saved, and not opened again.
Result<TableauRead> read_tableau(basSafeCtl& model, platform::TextFile& file);

// What follows the header, which was read as `header`; any other header than a tableau's reads nothing.
// Closes the file. Error 6 for a whole number outside 16 bits, 9 at the first cell that the storage does not
// have, 62 when the file ends too soon: the model then holds what was read so far.
Result<TableauRead> read_after_header(basSafeCtl& model, std::string_view header, platform::TextFile& file);

}  // namespace tabulon
