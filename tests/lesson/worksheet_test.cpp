#include "lesson/worksheet.h"

#include <gtest/gtest.h>

#include <string>

#include "lesson/reader.h"

namespace tabulon::lesson {
namespace {

std::vector<WorkedTableau> worked(std::string_view words) {
  return work_out(*read_problem(words).problem).tableaus;
}

// "1: F 0, pivot 2 1": its number, F, and the pivot's column and row.
std::string summary(const WorkedTableau& each) {
  const std::string pivot = std::to_string(each.pivot.column) + " " + std::to_string(each.pivot.row);
  const CellRow& row_F = each.tableau.row_F();
  return std::to_string(each.number) + ": F" + row_F.text(CellRow::right_hand_side) + ", pivot " + pivot;
}

TEST(WorkedOut, HasATableauForEachStepAndTheFirst) {
  const auto tableaus = worked("max F = 3x + 5y; x <= 4; 2y <= 12; 3x + 2y <= 18");
  ASSERT_EQ(tableaus.size(), 3U);
  EXPECT_EQ(summary(tableaus[0]), "1: F 0, pivot 2 2");
  EXPECT_EQ(summary(tableaus[1]), "2: F 30, pivot 1 3");
  EXPECT_EQ(summary(tableaus[2]), "3: F 36, pivot 0 0");
}

TEST(WorkedOut, ShowsTheFirstTableauBeforeAndAfterItsArtificialColumnsAreSwept) {
  const auto tableaus = worked("min K = 2x + 3y; x + y >= 4");
  ASSERT_EQ(tableaus.size(), 3U);
  EXPECT_EQ(summary(tableaus[0]), "1: F 0, pivot 0 0");
  EXPECT_EQ(summary(tableaus[1]), "1: F-400, pivot 1 1");
  EXPECT_EQ(summary(tableaus[2]), "2: F-8, pivot 0 0");
}

TEST(WorkedOut, IsTheFirstTableauAloneWhereThereIsNothingToDo) {
  EXPECT_EQ(worked("max F = -x; x <= 4").size(), 1U);
}

TEST(WorkedOut, EndsWhereASheetIsFull) {
  // A cube that makes the method go round most of its 16 corners.
  const auto tableaus = worked(
      "max F = 1000a + 100b + 10c + d; a <= 1; 20a + b <= 100; 200a + 20b + c <= 10000; "
      "2000a + 200b + 20c + d <= 1000000");
  EXPECT_EQ(std::ssize(tableaus), most_worked_tableaus);
}

}  // namespace
}  // namespace tabulon::lesson
