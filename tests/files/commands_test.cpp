// The menu's Openen and Opslaan als, as the person meets them.
#include "tests/files/files_fixture.h"

namespace tabulon {
namespace {

using platform::FileDialog;

class FileCommands : public FilesTest {
 protected:
  void SetUp() override {
    open(row_of_each_kind);
    contents["goed.tbl"] = golden("default-problem.tbl");
    contents["fout.tbl"] = "iets anders";
  }
  void choose_file(std::string_view item, const std::string& name) {
    ASSERT_TRUE(choose(item));
    ASSERT_TRUE(host.file_dialog());
    host.answer_file_dialog(name);
    host.answer_all();
  }
};

TEST_F(FileCommands, SavingAsksWhere) {
  choose("mnu_Tableau_Opslaan_Als");
  ASSERT_TRUE(host.file_dialog());
  EXPECT_EQ(host.file_dialog()->purpose, FileDialog::Purpose::Save);
  EXPECT_EQ(host.file_dialog()->title, "Simplex tableau opslaan als...");
  EXPECT_EQ(host.file_dialog()->filter, "Simplex tableau|*.tbl");
  EXPECT_EQ(host.file_dialog()->file_name, "*.tbl");
}

TEST_F(FileCommands, OpeningAsksWhat) {
  choose("mnu_Openen");
  ASSERT_TRUE(host.file_dialog());
  EXPECT_EQ(host.file_dialog()->purpose, FileDialog::Purpose::Open);
  EXPECT_EQ(host.file_dialog()->title, "Simplex tableau openen");
  EXPECT_EQ(host.file_dialog()->filter, "Simplex tableau|*.tbl");
  EXPECT_EQ(host.file_dialog()->file_name, "*.tbl");
}

TEST_F(FileCommands, SavingWritesTheFileAndSaysNothing) {
  const std::string before = everything();
  choose_file("mnu_Tableau_Opslaan_Als", "les.tbl");
  EXPECT_EQ(contents["les.tbl"], written(model));
  EXPECT_EQ(everything(), before);
  expect_nothing_was_said();
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(FileCommands, WhatWasTypedInACellIsSavedWithTheRest) {
  enter_text("txtTableau", 1, "5");
  choose_file("mnu_Tableau_Opslaan_Als", "les.tbl");
  EXPECT_EQ(model.current.row(1).value(1), 5);
  EXPECT_EQ(contents["les.tbl"], written(model));
  expect_nothing_was_said();
}

TEST_F(FileCommands, CancellingWritesNoFileAndSaysNothing) {
  const std::string before = everything();
  const auto files = contents;
  for (const char* item : {"mnu_Tableau_Opslaan_Als", "mnu_Openen"}) {
    choose(item);
    host.cancel_file_dialog();
    host.answer_all();
    EXPECT_EQ(contents, files) << item;
    EXPECT_EQ(everything(), before) << item;
    expect_nothing_was_said();
  }
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(FileCommands, EveryRefusalOfSavingIsSilent) {
  const std::string before = everything();
  for (const ErrorNumber refusal :
       {ErrorNumber::BadFileName, ErrorNumber::FileNotFound, ErrorNumber::DiskFull,
        ErrorNumber::PermissionDenied, ErrorNumber::PathNotFound}) {
    host.memory_files.refusals["les.tbl"] = refusal;
    choose_file("mnu_Tableau_Opslaan_Als", "les.tbl");
    EXPECT_FALSE(contents.contains("les.tbl"));
    EXPECT_EQ(everything(), before);
    expect_nothing_was_said();
  }
}

TEST_F(FileCommands, ADiskThatGetsFullIsSilentAndThePartThatFittedStays) {
  const std::string whole = written(model);
  model.NrKunstmatigeVar = 5;
  host.memory_files.full_after = 200;
  choose_file("mnu_Tableau_Opslaan_Als", "les.tbl");
  EXPECT_TRUE(!contents["les.tbl"].empty() && whole.starts_with(contents["les.tbl"]));
  EXPECT_EQ(model.NrKunstmatigeVar, 2);
  EXPECT_EQ(written(model), whole);
  expect_nothing_was_said();
}

TEST_F(FileCommands, CountsThatExceedTheStorageAreSilent) {
  model.NrBeslisVar = 40;
  choose_file("mnu_Tableau_Opslaan_Als", "les.tbl");
  EXPECT_EQ(count_lines(contents["les.tbl"]), 11 + 30 * 4);
  expect_nothing_was_said();
}

TEST_F(FileCommands, OpeningAnyFileChangesNothingSaysNothingAndLeavesItOpen) {
  const std::string before = everything();
  const auto files = contents;
  int opened = 0;
  for (const char* name : {"goed.tbl", "fout.tbl"}) {
    choose_file("mnu_Openen", name);
    EXPECT_EQ(everything(), before) << name;
    EXPECT_EQ(contents, files) << name;
    EXPECT_EQ(host.memory_files.open_files, ++opened) << name;
    expect_nothing_was_said();
  }
  EXPECT_EQ(model.error_number, ErrorNumber{});
}

TEST_F(FileCommands, OpeningAfterAStepKeepsTheStepAndItsMenus) {
  choose("mnu_optimaliseren");
  press("Enter");
  choose("mnu_Breuken");
  const std::string before = everything();
  choose_file("mnu_Openen", "goed.tbl");
  EXPECT_EQ(everything(), before);
  EXPECT_TRUE(checked("mnu_Breuken"));
  EXPECT_EQ(text("lblFRL"), " 67+3/7");
}

TEST_F(FileCommands, EveryRefusalOfOpeningIsSilent) {
  const std::string before = everything();
  for (const ErrorNumber refusal : {ErrorNumber::BadFileName, ErrorNumber::FileNotFound,
                                    ErrorNumber::PermissionDenied, ErrorNumber::PathNotFound}) {
    host.memory_files.refusals["goed.tbl"] = refusal;
    choose_file("mnu_Openen", "goed.tbl");
    EXPECT_EQ(everything(), before);
    expect_nothing_was_said();
  }
  choose_file("mnu_Openen", "weg.tbl");
  EXPECT_EQ(everything(), before);
  expect_nothing_was_said();
  EXPECT_EQ(host.memory_files.open_files, 0);
}

TEST_F(FileCommands, NothingElseHappensWhileTheQuestionIsOpen) {
  const std::string before = everything();
  choose("mnu_Openen");
  EXPECT_FALSE(click("cmd_Bewerken") && host.open_menu());
  EXPECT_FALSE(press("Alt+W") && host.open_menu());
  host.cancel_file_dialog();
  host.answer_all();
  EXPECT_EQ(everything(), before);
}

}  // namespace
}  // namespace tabulon
