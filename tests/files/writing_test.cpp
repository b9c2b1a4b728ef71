// What is written, to the byte.
#include <array>

#include "simplex/sweep.h"
#include "tests/files/files_fixture.h"

namespace tabulon {
namespace {

class Writing : public FilesTest {
 protected:
  // What a script that saves finds in the file.
  const std::string& saved() {
    EXPECT_TRUE(control.SchrijfTableau("a.tbl"));
    return contents["a.tbl"];
  }
  int error_of_saving() { return number_of(control.SchrijfTableau("a.tbl")); }
  void sweep(int row, int column) {
    model.PivotRij = static_cast<std::int16_t>(row), model.PivotKolom = static_cast<std::int16_t>(column);
    ASSERT_TRUE(sweep_column(model));
  }
};

TEST_F(Writing, TheDefaultProblemIs75Lines) {
  open();
  EXPECT_EQ(saved(), golden("default-problem.tbl"));
  EXPECT_EQ(count_lines(saved()), 75);
}

TEST_F(Writing, TheSmallestProblem) {
  open({{"prmNrBeslisVar", "1"}, {"prmNrKleinerGelijkVglen", "1"}});
  EXPECT_EQ(saved(), golden("one-variable.tbl"));
}

TEST_F(Writing, TheFractionsOptionIsLine9) {
  open();
  choose("mnu_Breuken");
  EXPECT_EQ(saved(), with_line(golden("default-problem.tbl"), 9, "1"));
}

TEST_F(Writing, ABigMProblemInFractionsAfterTwoSweeps) {
  open(row_of_each_kind);
  choose("mnu_Breuken");
  sweep(2, 3);
  sweep(3, 2);
  EXPECT_EQ(saved(), golden("big-m-in-fractions.tbl"));
}

// Ten numbers in turn, so that reals of every form are written.
Parameters thirty_columns() {
  constexpr std::array kinds = {" 0.5",   "-0.25",  " 100", " .333333333333333333", "-0.66666666666666667",
                                " 1E+20", " 1E-20", "7",    " 12345.678",           "-1E15"};
  const auto kind = [&](int number) { return kinds[static_cast<std::size_t>(number % 10)]; };
  std::string objective, rows, right;
  const auto add = [](std::string& list, const char* text) { (list += list.empty() ? "" : ",") += text; };
  for (int column = 1; column <= 20; ++column) add(objective, kind(column));
  for (int row = 1; row <= 10; ++row) {
    for (int column = 1; column <= 20; ++column) add(rows, kind(3 * row + column));
    add(right, kind(row));
  }
  return {{"prmNrBeslisVar", "20"},
          {"prmNrKleinerGelijkVglen", "10"},
          {"prmSTR_DLfunctie", objective},
          {"prmSTR_KleinerGelijkVglen", rows},
          {"prmSTR_RL", right}};
}

TEST_F(Writing, ThirtyColumnsByTenRowsAre1395Lines) {
  open(thirty_columns());
  EXPECT_EQ(saved(), golden("thirty-columns.tbl"));
  EXPECT_EQ(count_lines(saved()), 1395);
}

TEST_F(Writing, WhereTheGridStandsIsLines10And11) {
  open(thirty_columns());
  scroll("HScroll", 7);
  scroll("VScroll", 3);
  EXPECT_EQ(saved(), with_line(with_line(golden("thirty-columns.tbl"), 10, " 3 "), 11, " 7 "));
}

TEST_F(Writing, ATypedTextIsKeptAsItWasTyped) {
  open();
  enter_text("txtTableau", 1, "3/4");
  press("Tab");
  EXPECT_EQ(model.current.row(1).value(1), 0.75);
  const std::string bytes = saved();
  EXPECT_NE(bytes.find("\r\n3/4\r\n"), bytes.npos) << bytes;
  EXPECT_NE(bytes.find("\r\n .75\r\n"), bytes.npos) << bytes;
}

TEST_F(Writing, ATextWithLineEndsPlantsNoLinesOfItsOwn) {
  open();
  model.current.row_F().write(1, 0, "\r\nstart x.exe\r\n");
  model.first.row(1).write(CellRow::right_hand_side, 0, std::string("4\0\n5", 4));
  std::string expected = with_line(golden("default-problem.tbl"), 12, "??start x.exe??");
  expected = with_line(expected, count_lines(expected) - 6, "4??5");
  EXPECT_EQ(saved(), expected);
}

TEST_F(Writing, AFileThatIsThereIsReplaced) {
  open();
  contents["a.tbl"] = std::string(100'000, 'x');
  EXPECT_EQ(saved(), golden("default-problem.tbl"));
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(Writing, SetsTheCountsThatAreNotStored) {
  open(row_of_each_kind);
  const std::string before = saved();
  model.NrSpelingsVar = 4;
  model.NrKunstmatigeVar = 0;
  EXPECT_EQ(saved(), before);
  EXPECT_EQ(model.NrSpelingsVar, 1);
  EXPECT_EQ(model.NrKunstmatigeVar, 2);
}

TEST_F(Writing, TheSurplusCountIsWrittenAndLeftAsItIs) {
  open();
  model.NrSurplusVar = 1;
  EXPECT_EQ(first_lines(saved(), 4), "Tabloria op Internet\r\n 1 \r\n 2 \r\n 1 \r\n");
  EXPECT_EQ(count_lines(saved()), 11 + 4 * 5 + 4 + 2 * 2 + 4 * 2 * 5 + 4 * 2);
  EXPECT_EQ(model.NrSurplusVar, 1);
}

TEST_F(Writing, NegativeNumbersStandWithoutABlankBeforeThem) {
  open();
  model.BigM = -32768;
  EXPECT_EQ(saved(), with_line(golden("default-problem.tbl"), 8, "-32768 "));
}

// ---- Where it stops

TEST_F(Writing, AColumnBeyondTheThirtiethIsError9AndTheLinesBeforeItStay) {
  open(thirty_columns());
  model.NrBeslisVar = 21;
  EXPECT_EQ(error_of_saving(), 9);
  EXPECT_EQ(contents["a.tbl"], with_line(first_lines(golden("thirty-columns.tbl"), 11 + 30 * 4), 3, " 21 "));
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(Writing, ARowBeyondTheTenthIsError9AndTheLinesBeforeItStay) {
  open({{"prmNrBeslisVar", "1"}, {"prmNrKleinerGelijkVglen", "10"}});
  model.NrKleinerGelijkVglen = 11;
  EXPECT_EQ(error_of_saving(), 9);
  EXPECT_EQ(count_lines(contents["a.tbl"]), 11 + 12 * 4 + 4 + 10 * 2);
}

TEST_F(Writing, MoreArtificialVariablesThan16BitsHoldIsError6) {
  open();
  model.NrGroterGelijkVglen = 1;
  model.NrGelijkVglen = 32767;
  EXPECT_EQ(error_of_saving(), 6);
  EXPECT_EQ(count_lines(contents["a.tbl"]), 8);
}

TEST_F(Writing, TheLargestCountsEndAtOnce) {
  open();
  model.NrBeslisVar = model.NrKleinerGelijkVglen = model.NrGelijkVglen = 32767;
  EXPECT_EQ(error_of_saving(), 9);
}

TEST_F(Writing, CountsBelowZeroWriteNoCells) {
  open();
  model.NrBeslisVar = model.NrKleinerGelijkVglen = -32768;
  EXPECT_EQ(error_of_saving(), 0);
  EXPECT_EQ(count_lines(contents["a.tbl"]), 11 + 4);
}

TEST_F(Writing, AFullDiskIsError61WhereverItIsFullAndTheLinesThatFittedStay) {
  open(row_of_each_kind);
  const std::string whole = saved(), before = everything();
  for (std::size_t room = 0; room < whole.size(); ++room) {
    host.memory_files.full_after = room;
    ASSERT_EQ(error_of_saving(), 61) << room;
    const std::string& part = contents["a.tbl"];
    ASSERT_TRUE(whole.starts_with(part) && part.size() <= room) << room;
    ASSERT_TRUE(part.empty() || part.ends_with("\r\n")) << room;
    ASSERT_EQ(everything(), before) << room;
  }
  EXPECT_EQ(host.memory_files.open_files, 0);
  host.memory_files.full_after = whole.size();
  EXPECT_EQ(saved(), whole);
}

TEST_F(Writing, TheCountsAreSetWhenTheFirstEightLinesAreWritten) {
  open();
  model.NrKunstmatigeVar = 9;
  const std::size_t eight_lines = first_lines(golden("default-problem.tbl"), 8).size();
  host.memory_files.full_after = eight_lines - 1;
  EXPECT_EQ(error_of_saving(), 61);
  EXPECT_EQ(model.NrKunstmatigeVar, 9);
  host.memory_files.full_after = eight_lines;
  EXPECT_EQ(error_of_saving(), 61);
  EXPECT_EQ(model.NrKunstmatigeVar, 0);
}

}  // namespace
}  // namespace tabulon
