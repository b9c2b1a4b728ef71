// The shared model: one Simplex tableau with its counts, the first tableau that Reset restores, and what
// commands and dialogs hand to each other.
//
//   basSafeCtl model;                        // the start-up defaults: 2 variables, 2 "<=" rows, M = 100
//   if (auto done = InitTableau(model); !done) return done;
//   model.current.row(1).write(1, 3.0, " 3");
//
// One model serves all controls of a process; everything happens on the one user-interface thread.
// Rows are numbered 1..10 and columns 1..30. Columns stand in the order of the variables' kinds:
// decision, slack, surplus, artificial of ">=" rows, artificial of "=" rows. The rows stand in the order
// "<=", ">=", "=".
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "control/basSafeCtl_changes.h"
#include "platform/run_time_error.h"
#include "platform/text_file.h"

namespace tabulon {

inline constexpr int most_rows = 10;
inline constexpr int most_columns = 30;

// A row of numbers with their display texts, columns 1..30 and the right-hand side. Value and text are
// written together. The text of a number that an operation has computed is made when somebody asks for it:
// it then follows from the value, so most texts of a long run never exist.
class CellRow {
 public:
  // The place of the right-hand side, usable wherever a column is.
  static constexpr int right_hand_side = most_columns + 1;

  double value(int column) const { return values_[place(column)]; }
  std::string text(int column) const;
  void write(int column, double value, std::string_view text);
  // Writes a number with its own decimal text.
  void write(int column, double value) {
    values_[place(column)] = value;
    decimal_ |= bit(column);
  }
  // Writes 0 in columns 1..columns and in the right-hand side.
  void clear(int columns);
  // Replaces the text alone; the value is written by whoever writes the text.
  void write_text(int column, std::string_view text);
  void write_value(int column, double value);

  // Gives the numbers of columns 1..columns, or one of them, the display text that belongs to their value:
  // a decimal, or with `fractions` a fraction, which also makes the value exactly that fraction.
  void rewrite_columns(int columns, bool fractions);
  void rewrite(int column, bool fractions);
  // The same for columns 1..columns and the right-hand side.
  void rewrite_row(int columns, bool fractions);

  // ---- Arithmetic on columns 1..columns and the right-hand side, which are rewritten with it.
  // Adds a multiple of another row.
  void add_multiple(double factor, const CellRow& other, int columns, bool fractions) {
    if (fractions) return add_multiple_in_fractions(factor, other, columns);
    add_values(factor, other, columns);
    decimal_ |= row_bits(columns);
  }
  void divide(double divisor, int columns, bool fractions);
  // Of finite values.
  double largest_magnitude(int columns) const;
  bool all_finite(int columns) const;

  // The values of columns 1..30, to read.
  const double* values() const { return values_.data(); }
  double right() const { return values_[most_columns]; }

 private:
  using Mask = std::uint32_t;
  static constexpr std::size_t place(int column) { return static_cast<std::size_t>(column - 1); }
  static constexpr Mask bit(int column) { return Mask{1} << static_cast<unsigned>(column - 1); }
  static constexpr Mask bits(int columns) { return (Mask{1} << static_cast<unsigned>(columns)) - 1; }
  static constexpr Mask row_bits(int columns) { return bits(columns) | bit(right_hand_side); }

  void rewrite_cells(Mask cells, bool fractions);
  void rewrite_in_fractions(Mask cells);
  void add_multiple_in_fractions(double factor, const CellRow& other, int columns);
  template <class Operation>
  void change_in_fractions(int columns, Operation operation);

  // Inline, and in pairs as every processor has them: nearly all of the time of a sweep is spent here. The
  // page's module is made without the compiler's own change of counting into pointers (cmake/web.cmake), so
  // they stand here.
  [[gnu::always_inline]] void add_values(double factor, const CellRow& other, int columns) {
    const double* __restrict from = other.values_.data();
    double* __restrict to = values_.data();
    for (const double* const end = from + (columns - columns % 2); from != end; from += 2, to += 2) {
      to[0] += factor * from[0];
      to[1] += factor * from[1];
    }
    if (columns % 2 != 0) to[0] += factor * from[0];
    values_[most_columns] += factor * other.values_[most_columns];
  }

  alignas(16) std::array<double, most_columns + 2> values_{};
  // Which text a cell has; `texts_` where no mask says so. The first mask goes before the others, so that
  // arithmetic in decimals changes that one alone.
  Mask decimal_ = 0;   // the decimal text of the value
  Mask fraction_ = 0;  // the fraction text of the number that was asked for last
  Mask stable_ = 0;    // that too, and asking again would leave value and text as they are
  std::array<double, most_columns + 1> asked_{};
  std::array<std::string, most_columns + 1> texts_;
};

// A tableau: the objective row F, the rows, and for each row the column of its basic variable.
class TableauState {
 public:
  CellRow& row_F() { return row_F_; }
  const CellRow& row_F() const { return row_F_; }
  // `row` in 1..10.
  CellRow& row(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }
  const CellRow& row(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
  std::int16_t basis(int row) const { return basis_[static_cast<std::size_t>(row - 1)]; }
  void set_basis(int row, std::int16_t column) { basis_[static_cast<std::size_t>(row - 1)] = column; }

 private:
  CellRow row_F_;
  std::array<CellRow, most_rows> rows_;
  std::array<std::int16_t, most_rows> basis_{};
};

enum class VariableKind : std::uint8_t { None, Decision, Slack, Surplus, ArtificialGreater, ArtificialEqual };
enum class RowKind : std::uint8_t { LessEqual, GreaterEqual, Equal };

struct Shape {
  int rows = 0;     // 0..10
  int columns = 0;  // 0..30
};

// What a problem consists of: its decision variables and its constraints of each kind.
struct ProblemSize {
  std::int16_t variables = 0, less_equal = 0, greater_equal = 0, equal = 0;
  friend bool operator==(const ProblemSize&, const ProblemSize&) = default;
};

struct basSafeCtl {
  // ---- Counts
  std::int16_t NrBeslisVar = 2;
  std::int16_t NrKleinerGelijkVglen = 2;
  std::int16_t NrGroterGelijkVglen = 0;
  std::int16_t NrGelijkVglen = 0;
  std::int16_t NrSpelingsVar = 2;     // the "<=" count, once set_derived_counts has run
  std::int16_t NrSurplusVar = 0;      // the ">=" count, likewise
  std::int16_t NrKunstmatigeVar = 0;  // the ">=" and "=" counts together, likewise
  std::int16_t BigM = 100;
  std::int16_t NrTableau = 0;
  std::int16_t TableauGestart = 0;

  // ---- The tableau, and the first one of the problem
  TableauState current;
  TableauState first;
  ProblemSize laid_out_for;

  // ---- Flags and positions
  bool Breuken = false;  // numbers are shown as fractions
  bool DialoogOK = false;
  bool CelFout = false;
  std::int16_t PivotKolom = 0;  // 0 when there is no pivot element
  std::int16_t PivotRij = 0;
  std::int16_t NormeerKolom = 0;
  std::int16_t StartKolom = 1;  // the first column and row that the grid shows
  std::int16_t StartRij = 1;
  std::int16_t MeldingNr = 0;
  std::string strMelding;
  std::string strFoutmelding;
  bool SafeForScripting = true;
  bool SafeForInitializing = true;

  // ---- Files
  std::vector<platform::TextFile> open_files;  // read and not closed
  ErrorNumber error_number{};                  // noted, not raised

  // ---- Who stands around the controls
  TableauObserver* observer = nullptr;
  void tell(const TableauChange& change) const {
    if (observer) observer->tableau_changed(change);
  }

  int rows() const { return NrKleinerGelijkVglen + NrGroterGelijkVglen + NrGelijkVglen; }
  int columns() const { return NrBeslisVar + NrSpelingsVar + NrSurplusVar + NrKunstmatigeVar; }
  ProblemSize size() const { return {NrBeslisVar, NrKleinerGelijkVglen, NrGroterGelijkVglen, NrGelijkVglen}; }
  // Whether the tableau is one of the counts' size; a script may have set others since, and laid it out
  // without the counts that follow from them.
  bool is_laid_out() const {
    return laid_out_for == size() && NrSpelingsVar == NrKleinerGelijkVglen &&
           NrSurplusVar == NrGroterGelijkVglen && NrKunstmatigeVar == NrGelijkVglen + NrGroterGelijkVglen;
  }
  // Rows and columns of the problem; error 9 when the counts ask for more than the storage holds.
  Result<Shape> shape() const;
  // Slack, surplus and artificial counts from the row counts. Error 6, and nothing written, beyond 16 bits.
  Result<> set_derived_counts();

  VariableKind kind_of_column(int column) const;
  RowKind kind_of_row(int row) const;
  // As the grid shows it: "x  3", "s  1"; empty for a column of no kind.
  std::string variable_name(int column) const;
};

// Lays out a new tableau of the counts' size, in the current and the first tableau alike: zero
// coefficients, the unit columns, the basis, and M in row F under the artificial columns. Error 9, and
// nothing written, when the counts ask for more than 10 rows or 30 columns.
Result<> InitTableau(basSafeCtl& model);

// Copies the tableau, the first one, the counts, the mode and what the grid shows first; nothing of what
// commands hand each other.
void copy_tableau(basSafeCtl& to, const basSafeCtl& from);

// Gives every number of the current tableau its display text in the mode of `Breuken`; fractions also make
// each value exactly the fraction that is shown. Error 9 as for InitTableau.
Result<> rewrite_texts(basSafeCtl& model);

// Copies the first tableau back into the current one. Error 9 as for InitTableau.
Result<> restore_first_tableau(basSafeCtl& model);

}  // namespace tabulon
