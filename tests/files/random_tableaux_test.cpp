// Random tableaux, written and read again: nothing may be lost but digits behind the fifteenth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "files/tableau_file.h"
#include "hosts/headless/memory_files.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon {
namespace {

using platform::TextFile;

constexpr std::int16_t basSafeCtl::* const counts[] = {
    &basSafeCtl::NrTableau,
    &basSafeCtl::NrBeslisVar,
    &basSafeCtl::NrSpelingsVar,
    &basSafeCtl::NrSurplusVar,
    &basSafeCtl::NrKunstmatigeVar,
    &basSafeCtl::NrKleinerGelijkVglen,
    &basSafeCtl::NrGroterGelijkVglen,
    &basSafeCtl::NrGelijkVglen,
    &basSafeCtl::BigM,
    &basSafeCtl::StartRij,
    &basSafeCtl::StartKolom,
};

class RandomTableaux : public testing::Test {
 protected:
  std::int16_t any_whole() { return static_cast<std::int16_t>(random.between(-32768, 32767)); }

  double any_real() {
    const int kind = random.between(0, 9);
    if (kind == 0) return 0;
    return kind == 1 ? random.any_finite() : random.tableau_number();
  }

  // What a line can hold: everything in Latin but line ends and NUL, blanks at both ends too.
  std::string any_text() {
    static const std::string letters[] = {" ", "0", "1", "9", "-", "+",  "/", "(",      ")",
                                          "p", "i", ".", ",", "E", "\"", "'", "\u00E9", "\u00FF"};
    std::string text;
    for (int left = random.between(0, 10); left > 0; --left)
      text += letters[static_cast<std::size_t>(random.between(0, std::size(letters) - 1))];
    return text;
  }

  void fill(CellRow& row, int column) {
    if (random.between(0, 3) == 0)
      row.write(column, any_real());
    else
      row.write(column, any_real(), any_text());
  }

  void fill(TableauState& tableau, Shape shape) {
    for (int row = 0; row <= shape.rows; ++row) {
      CellRow& cells = row == 0 ? tableau.row_F() : tableau.row(row);
      for (int column = 1; column <= shape.columns; ++column) fill(cells, column);
      fill(cells, CellRow::right_hand_side);
      if (row > 0) tableau.set_basis(row, any_whole());
    }
  }

  void count_at_random(basSafeCtl& model) {
    const int rows = random.between(0, random.between(1, most_rows));
    const int greater = random.between(0, rows), equal = random.between(0, rows - greater);
    const int others = rows + greater;
    model.NrGroterGelijkVglen = static_cast<std::int16_t>(greater);
    model.NrGelijkVglen = static_cast<std::int16_t>(equal);
    model.NrKleinerGelijkVglen = static_cast<std::int16_t>(rows - greater - equal);
    model.NrBeslisVar =
        static_cast<std::int16_t>(random.between(0, random.between(1, most_columns - others)));
    ASSERT_TRUE(model.set_derived_counts());
  }

  basSafeCtl any_tableau() {
    basSafeCtl model;
    count_at_random(model);
    model.NrTableau = any_whole(), model.BigM = any_whole();
    model.StartRij = any_whole(), model.StartKolom = any_whole();
    model.Breuken = random.between(0, 1) == 1;
    const Shape shape = model.shape().value_or(Shape{});
    fill(model.current, shape);
    fill(model.first, shape);
    return model;
  }

  const std::string& write(basSafeCtl& model) {
    auto file = TextFile::open(files, "a.tbl", TextFile::Mode::Output);
    EXPECT_TRUE(file && write_tableau(model, *file));
    return files.contents["a.tbl"];
  }

  void read(basSafeCtl& model) {
    auto file = TextFile::open(files, "a.tbl", TextFile::Mode::Input);
    ASSERT_TRUE(file);
    const std::string header = file->read_line().value_or("");
    EXPECT_EQ(read_after_header(model, header, *file), TableauRead::Read);
    EXPECT_FALSE(file->read_line()) << "something stands behind the last line";
  }

  // Half a unit of the fifteenth digit is at most 5E-15 of a number, and half a unit of a Double 1.2E-16.
  static bool equal_to_15_digits(double one, double other) {
    return std::fabs(one - other) <= std::fabs(one) * 5.12e-15;
  }

  static void expect_same(const CellRow& one, const CellRow& other, int column) {
    ASSERT_EQ(one.text(column), other.text(column));
    ASSERT_PRED2(equal_to_15_digits, one.value(column), other.value(column));
  }

  static void expect_same(const TableauState& one, const TableauState& other, Shape shape) {
    for (int row = 0; row <= shape.rows; ++row) {
      const CellRow& cells = row == 0 ? one.row_F() : one.row(row);
      const CellRow& others = row == 0 ? other.row_F() : other.row(row);
      for (int column = 1; column <= shape.columns; ++column) expect_same(cells, others, column);
      expect_same(cells, others, CellRow::right_hand_side);
      if (row > 0) ASSERT_EQ(one.basis(row), other.basis(row));
    }
  }

  static void expect_same(const basSafeCtl& one, const basSafeCtl& other) {
    for (const auto count : counts) ASSERT_EQ(one.*count, other.*count);
    ASSERT_EQ(one.Breuken, other.Breuken);
    const Shape shape = one.shape().value_or(Shape{});
    expect_same(one.current, other.current, shape);
    expect_same(one.first, other.first, shape);
  }

  numbers::RandomNumbers random;
  platform::MemoryFiles files;
};

TEST_F(RandomTableaux, HoldOneItemALineWhateverTheirTextsHold) {
  SCOPED_TRACE(random.seed_text());
  for (int number = 1; number <= numbers::rounds(1'000) && !HasFailure(); ++number) {
    SCOPED_TRACE("tableau " + std::to_string(number));
    basSafeCtl model = any_tableau(), back;
    const auto broken = [&](CellRow& row) {
      row.write(CellRow::right_hand_side, 0,
                "\r\n" + any_text() + "\n" + any_text() + std::string("\0\r", 2));
    };
    broken(model.current.row_F());
    broken(model.first.row_F());
    const std::string bytes = write(model);
    const Shape shape = model.shape().value_or(Shape{});
    EXPECT_EQ(std::ranges::count(bytes, '\n'),
              15 + 4 * shape.columns + 2 * shape.rows * (2 * shape.columns + 3));
    EXPECT_EQ(std::ranges::count(bytes, '\r'), std::ranges::count(bytes, '\n'));
    read(back);
    EXPECT_EQ(write(back), bytes);
  }
}

TEST_F(RandomTableaux, AreReadAsTheyWereWritten) {
  SCOPED_TRACE(random.seed_text());
  for (int number = 1; number <= numbers::rounds(10'000) && !HasFailure(); ++number) {
    SCOPED_TRACE("tableau " + std::to_string(number));
    basSafeCtl model = any_tableau(), back;
    const std::string bytes = write(model);
    read(back);
    expect_same(model, back);
    EXPECT_EQ(write(back), bytes);
  }
}

}  // namespace
}  // namespace tabulon
