// Saved tableaus as texts: made, and put back whole or not at all.
#include "files/tableau_text.h"

#include "tests/files/files_fixture.h"

namespace tabulon {
namespace {

using SavedText = FilesTest;

TEST_F(SavedText, IsWhatSaveWrites) {
  for (const char* name :
       {"default-problem.tbl", "one-variable.tbl", "big-m-in-fractions.tbl", "thirty-columns.tbl"}) {
    ASSERT_TRUE(restore_tableau(model, golden(name))) << name;
    EXPECT_EQ(saved_text(model), golden(name));
  }
}

TEST_F(SavedText, ChangesNoCountOfTheModel) {
  open();
  model.NrKleinerGelijkVglen = 1;  // a script's, not shown yet
  ASSERT_TRUE(saved_text(model).has_value());
  EXPECT_EQ(model.NrSpelingsVar, 2);
}

TEST_F(SavedText, ThatCannotBePutBackChangesNothing) {
  open(row_of_each_kind);
  const std::string before = everything();
  const std::string good = golden("big-m-in-fractions.tbl");
  const auto number_for = [this](const std::string& text) { return number_of(restore_tableau(model, text)); };
  EXPECT_EQ(number_for(""), 62);
  EXPECT_EQ(number_for("iets anders\r\n"), 54);
  EXPECT_EQ(number_for(with_line(good, 1, "tabloria op Internet")), 54);
  EXPECT_EQ(number_for(with_line(good, 3, " 40000 ")), 6);
  EXPECT_EQ(number_for(with_line(good, 3, " 31 ")), 9);
  EXPECT_EQ(number_for(with_line(good, 5, " 11 ")), 9);
  for (int lines = 1; lines < count_lines(good); ++lines) {
    EXPECT_EQ(number_for(first_lines(good, lines)), 62) << lines;
    ASSERT_EQ(everything(), before) << lines;
  }
  EXPECT_EQ(everything(), before);
}

TEST_F(SavedText, OfCountsThatMakeNoTableauIsNotPutBack) {
  open(row_of_each_kind);
  for (int line = 3; line <= 7; ++line)
    for (const char* count : {" 31 ", "-1 ", "-32768 "}) {
      static_cast<void>(restore_tableau(model, with_line(golden("big-m-in-fractions.tbl"), line, count)));
      EXPECT_TRUE(model.shape().has_value()) << line << count;
    }
}

TEST_F(SavedText, ShowsItsBeginningWhereItsPlaceLiesOutside) {
  const std::string good = golden("big-m-in-fractions.tbl");
  ASSERT_TRUE(restore_tableau(model, with_line(with_line(good, 10, "-4 "), 11, " 30 ")));
  EXPECT_EQ(model.StartRij, 1);
  EXPECT_EQ(model.StartKolom, 1);
}

}  // namespace
}  // namespace tabulon
