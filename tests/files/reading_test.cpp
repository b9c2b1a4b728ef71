// The reader, on files whose header was read already; and the method that never comes so far.
#include "tests/files/files_fixture.h"

namespace tabulon {
namespace {

class Reading : public FilesTest {
 protected:
  Result<TableauRead> read(const std::string& bytes) {
    contents["a.tbl"] = bytes;
    auto file = platform::TextFile::open(host.memory_files, "a.tbl", platform::TextFile::Mode::Input);
    const std::string header = file->read_line().value_or("");
    return read_after_header(model, header, *file);
  }
};

TEST_F(Reading, EveryGoldenFileIsReadAsItWasWritten) {
  for (const char* name : {"default-problem.tbl", "half-typed-in.tbl", "one-variable.tbl",
                           "big-m-in-fractions.tbl", "thirty-columns.tbl"}) {
    EXPECT_EQ(read(golden(name)), TableauRead::Read) << name;
    EXPECT_EQ(written(model), golden(name));
  }
}

TEST_F(Reading, FindsEachNumberInItsPlace) {
  ASSERT_EQ(read(golden("big-m-in-fractions.tbl")), TableauRead::Read);
  EXPECT_EQ(model.NrTableau, 3);
  EXPECT_EQ(model.NrBeslisVar, 3);
  EXPECT_EQ(model.NrSpelingsVar, 1);
  EXPECT_EQ(model.NrSurplusVar, 1);
  EXPECT_EQ(model.NrKunstmatigeVar, 2);
  EXPECT_EQ(model.BigM, 100);
  EXPECT_TRUE(model.Breuken);
  EXPECT_EQ(model.current.basis(2), 3);
  EXPECT_EQ(model.first.basis(2), 6);
  EXPECT_EQ(model.current.row_F().text(7), " 107");
  EXPECT_EQ(model.first.row_F().value(7), 100);
  EXPECT_EQ(model.current.row(2).text(1), " 2/3");
  EXPECT_EQ(model.first.row(2).text(1), " 2");
  EXPECT_EQ(model.current.row(2).text(CellRow::right_hand_side), " 1+2/3");
  EXPECT_EQ(model.first.row(2).right(), 5);
}

TEST_F(Reading, LinesOfAnotherSystemAreReadToo) {
  std::string bytes = golden("big-m-in-fractions.tbl");
  std::erase(bytes, '\r');
  EXPECT_EQ(read(bytes), TableauRead::Read);
  EXPECT_EQ(written(model), golden("big-m-in-fractions.tbl"));
}

TEST_F(Reading, AnyOtherHeaderReadsNothing) {
  open(row_of_each_kind);
  const std::string before = everything();
  for (const char* header : {"", " ", "tabloria op Internet", "Tabloria op Internet ", "Tabloria op internet",
                             "Tabloria op Interne", "%PDF-1.4"}) {
    EXPECT_EQ(read(with_line(golden("default-problem.tbl"), 1, header)), TableauRead::OtherHeader) << header;
    EXPECT_EQ(everything(), before) << header;
  }
}

TEST_F(Reading, AFileThatEndsTooSoonIsError62WhereverItEnds) {
  const std::string whole = golden("big-m-in-fractions.tbl");
  for (int lines = 1; lines < count_lines(whole); ++lines) {
    ASSERT_EQ(number_of(read(first_lines(whole, lines))), 62) << lines;
    EXPECT_TRUE(model.shape()) << lines;
  }
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(Reading, AWholeNumberOutside16BitsIsError6AndStaysAsItWas) {
  open();
  for (int line : {2, 3, 4, 5, 6, 7, 8, 10, 11})
    for (const char* number : {" 32768 ", "-32769 ", " 1E+20"})
      EXPECT_EQ(number_of(read(with_line(golden("default-problem.tbl"), line, number))), 6) << line;
  EXPECT_EQ(read(with_line(golden("default-problem.tbl"), 8, "-32768 ")), TableauRead::Read);
  EXPECT_EQ(model.BigM, -32768);
}

TEST_F(Reading, ALineThatIsNoNumberIs0) {
  EXPECT_EQ(read(with_line(golden("default-problem.tbl"), 8, "honderd")), TableauRead::Read);
  EXPECT_EQ(model.BigM, 0);
  EXPECT_EQ(read(with_line(golden("default-problem.tbl"), 8, "  1 0 0 bv")), TableauRead::Read);
  EXPECT_EQ(model.BigM, 100);
}

TEST_F(Reading, AnotherTextThan0Or1LeavesTheFractionsOption) {
  for (const bool fractions : {false, true})
    for (const char* text : {"", " 1", "True", "-1", "2"}) {
      model.Breuken = fractions;
      EXPECT_EQ(read(with_line(golden("default-problem.tbl"), 9, text)), TableauRead::Read);
      EXPECT_EQ(model.Breuken, fractions) << text;
    }
}

TEST_F(Reading, AColumnBeyondTheThirtiethIsError9WithTheColumnsBeforeItRead) {
  EXPECT_EQ(number_of(read(with_line(golden("thirty-columns.tbl"), 3, " 21 "))), 9);
  EXPECT_EQ(model.NrBeslisVar, 21);
  EXPECT_EQ(model.current.row_F().text(8), " 12345.678");
  EXPECT_EQ(model.current.row_F().text(30), " 0");
  EXPECT_EQ(model.current.row(1).text(1), "");
}

TEST_F(Reading, ARowBeyondTheTenthIsError9) {
  EXPECT_EQ(number_of(read(with_line(with_line(golden("thirty-columns.tbl"), 3, " 19 "), 5, " 11 "))), 9);
}

// ---- LeesTableau

TEST_F(Reading, EveryFileIsError54ByScriptAndChangesNothing) {
  open(row_of_each_kind);
  const std::string before = everything();
  int opened = 0;
  for (const std::string& bytes :
       {golden("default-problem.tbl"), golden("big-m-in-fractions.tbl"),
        std::string("Tabloria op Internet\r\n"), std::string("other"), std::string()}) {
    contents["a.tbl"] = bytes;
    const auto done = control.LeesTableau("a.tbl");
    EXPECT_EQ(number_of(done), 54);
    EXPECT_EQ(done.error().subject, "a.tbl");
    EXPECT_EQ(contents["a.tbl"], bytes);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(host.memory_files.open_files, ++opened);
  }
}

TEST_F(Reading, AFileThatIsNotThereIsError53AndOpensNone) {
  open();
  EXPECT_EQ(number_of(control.LeesTableau("weg.tbl")), 53);
  EXPECT_EQ(number_of(control.LeesTableau("*.tbl")), 52);
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(Reading, AFileThatWasLeftOpenCanBeSavedToAgain) {
  open();
  ASSERT_TRUE(control.SchrijfTableau("a.tbl"));
  EXPECT_EQ(number_of(control.LeesTableau("a.tbl")), 54);
  ASSERT_TRUE(control.SchrijfTableau("a.tbl"));
  EXPECT_EQ(contents["a.tbl"], golden("default-problem.tbl"));
}

}  // namespace
}  // namespace tabulon
