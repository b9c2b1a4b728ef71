// The file commands by themselves.
#include <gtest/gtest.h>

#include "files/file_commands.h"
#include "hosts/headless/headless_host.h"
#include "tests/support/part_surface.h"

namespace tabulon {
namespace {

struct Problem : ProblemView {
  int opened = 0;
  Result<> start_problem() override { return {}; }
  platform::Task<> show_problem() override { co_return; }
  void show_opened_tableau() override { ++opened; }
};

class FileCommandsAlone : public testing::Test {
 protected:
  FileCommandsAlone() { EXPECT_TRUE(InitTableau(model)); }

  platform::HeadlessHost host;
  basSafeCtl model;
  Problem problem;
  PartSurface surface{host.desk()};
  platform::TextBox rest{surface, "txtFocus"};
  FileCommands commands{surface, model, rest, problem};
};

TEST_F(FileCommandsAlone, TheDialogsNameIsWrittenAndTheFocusRests) {
  host.desk().call(surface, commands.mnu_Tableau_Opslaan_Als_Click());
  ASSERT_TRUE(host.file_dialog());
  host.answer_file_dialog("les.tbl");
  EXPECT_TRUE(host.memory_files.contents.at("les.tbl").starts_with("Tabloria op Internet\r\n"));
  EXPECT_EQ(surface.active(), &rest);
}

TEST_F(FileCommandsAlone, AnErrorNamesTheFile) {
  const auto read = commands.LeesTableau("weg.tbl");
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error(), (RunTimeError{ErrorNumber::FileNotFound, "weg.tbl"}));
}

TEST_F(FileCommandsAlone, WhatCannotBeReadIsNotShown) {
  ASSERT_TRUE(commands.SchrijfTableau("les.tbl"));
  host.desk().call(surface, commands.mnu_Openen_Click());
  host.answer_file_dialog("les.tbl");
  EXPECT_EQ(problem.opened, 0);
  EXPECT_EQ(surface.active(), &rest);
}

}  // namespace
}  // namespace tabulon
