#include "platform/text_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "hosts/headless/disk_files.h"
#include "hosts/headless/memory_files.h"

namespace tabulon::platform {
namespace {

class TextFiles : public testing::Test {
 protected:
  static TextFile open(FileStore& store, std::string_view name, TextFile::Mode mode) {
    Result<TextFile> file = TextFile::open(store, name, mode);
    EXPECT_TRUE(file) << name;
    return std::move(*file);
  }
  TextFile write(std::string_view name = "a.tbl") { return open(files, name, TextFile::Mode::Output); }
  TextFile read(std::string_view name = "a.tbl") { return open(files, name, TextFile::Mode::Input); }
  std::vector<std::string> lines(int count) {
    TextFile file = read();
    std::vector<std::string> all;
    for (int line = 0; line < count; ++line) all.push_back(file.read_line().value());
    return all;
  }

  MemoryFiles files;
};

TEST_F(TextFiles, LinesEndWithCarriageReturnAndLineFeed) {
  TextFile file = write();
  ASSERT_TRUE(file.write_line("Tabloria op Internet"));
  ASSERT_TRUE(file.write_line(""));
  ASSERT_TRUE(file.write_line(" 3"));
  ASSERT_TRUE(file.close());
  EXPECT_EQ(files.contents["a.tbl"], "Tabloria op Internet\r\n\r\n 3\r\n");
  EXPECT_EQ(lines(3), (std::vector<std::string>{"Tabloria op Internet", "", " 3"}));
}

TEST_F(TextFiles, LinesThatEndWithALineFeedAreReadToo) {
  files.contents["a.tbl"] = "one\ntwo\r\nthree";
  EXPECT_EQ(lines(3), (std::vector<std::string>{"one", "two", "three"}));
}

TEST_F(TextFiles, AReadPastTheEndIsError62) {
  files.contents["a.tbl"] = "one\r\n\r\n";
  TextFile file = read();
  EXPECT_EQ(file.read_line().value(), "one");
  EXPECT_EQ(file.read_line().value(), "");
  const auto line = file.read_line();
  ASSERT_FALSE(line);
  EXPECT_EQ(line.error().number, ErrorNumber::InputPastEnd);
}

TEST_F(TextFiles, LongFilesAreReadInParts) {
  std::string text;
  for (int line = 0; line < 3000; ++line) text += std::to_string(line) + "\r\n";
  files.contents["a.tbl"] = text;
  const std::vector<std::string> all = lines(3000);
  EXPECT_EQ(all.front(), "0");
  EXPECT_EQ(all.back(), "2999");
}

TEST_F(TextFiles, ALineEndAcrossTwoPartsIsOneLineEnd) {
  files.contents["a.tbl"] = std::string(4095, 'x') + "\r\nafter\r\n";
  const std::vector<std::string> all = lines(2);
  EXPECT_EQ(all[0].size(), 4095U);
  EXPECT_EQ(all[1], "after");
}

TEST_F(TextFiles, AWriteToAFileOpenedForInputIsError54) {
  files.contents["a.tbl"] = "x";
  const auto written = read().write_line("y");
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().number, ErrorNumber::BadFileMode);
  EXPECT_EQ(files.contents["a.tbl"], "x");
}

TEST_F(TextFiles, AReadFromAFileOpenedForOutputIsError54) {
  const auto line = write().read_line();
  ASSERT_FALSE(line);
  EXPECT_EQ(line.error().number, ErrorNumber::BadFileMode);
}

TEST_F(TextFiles, TextsAreLatinInTheFile) {
  TextFile file = write();
  ASSERT_TRUE(file.write_line("caf\u00E9 \u00FF"));
  EXPECT_EQ(files.contents["a.tbl"], "caf\xE9 \xFF\r\n");
  EXPECT_EQ(lines(1).front(), "caf\u00E9 \u00FF");
}

TEST_F(TextFiles, ACharacterOutsideLatinIsWrittenAsAQuestionMark) {
  TextFile file = write();
  ASSERT_TRUE(file.write_line("2 \u2264 3 \u20AC \u0915 \U0001F600."));
  EXPECT_EQ(files.contents["a.tbl"], "2 ? 3 ? ? ?.\r\n");
}

TEST_F(TextFiles, BytesThatAreNoTextAreWrittenAsQuestionMarksAndSwallowNothing) {
  TextFile file = write();
  ASSERT_TRUE(
      file.write_line("a\xC3"
                      "b\x80"
                      "c\xE2\x82"));
  EXPECT_EQ(files.contents["a.tbl"], "a?b?c??\r\n");
}

TEST_F(TextFiles, ATextIsOneLineWhateverItHolds) {
  TextFile file = write();
  ASSERT_TRUE(file.write_line(std::string_view("a\r\nb\nc\rd\0e\t.", 12)));
  ASSERT_TRUE(file.write_line("\r"));
  ASSERT_TRUE(file.write_line("\n"));
  EXPECT_EQ(files.contents["a.tbl"], "a??b?c?d?e\t.\r\n?\r\n?\r\n");
  EXPECT_EQ(lines(3), (std::vector<std::string>{"a??b?c?d?e\t.", "?", "?"}));
}

TEST_F(TextFiles, EveryRefusalKeepsItsNumber) {
  for (const ErrorNumber number : {ErrorNumber::BadFileName, ErrorNumber::FileNotFound, ErrorNumber::DiskFull,
                                   ErrorNumber::PermissionDenied, ErrorNumber::PathNotFound}) {
    files.refusals["no.tbl"] = number;
    for (const auto mode : {TextFile::Mode::Input, TextFile::Mode::Output}) {
      const auto file = TextFile::open(files, "no.tbl", mode);
      ASSERT_FALSE(file);
      EXPECT_EQ(file.error().number, number);
      EXPECT_EQ(file.error().subject, "no.tbl");
    }
  }
}

TEST_F(TextFiles, AFullDiskRefusesTheLineThatDoesNotFit) {
  files.full_after = 10;
  TextFile file = write();
  EXPECT_TRUE(file.write_line("12345678"));
  const auto more = file.write_line("");
  ASSERT_FALSE(more);
  EXPECT_EQ(more.error().number, ErrorNumber::DiskFull);
}

TEST_F(TextFiles, AReadThatFailsKeepsItsNumber) {
  files.contents["a.tbl"] = "one\r\n";
  files.reading_fails = ErrorNumber::PermissionDenied;
  TextFile file = read();
  const auto line = file.read_line();
  ASSERT_FALSE(line);
  EXPECT_EQ(line.error().number, ErrorNumber::PermissionDenied);
}

TEST_F(TextFiles, AFileIsClosedWithItsScope) {
  {
    TextFile file = write();
    EXPECT_EQ(files.open_files, 1);
  }
  EXPECT_EQ(files.open_files, 0);
}

TEST_F(TextFiles, OpeningForOutputEmptiesTheFile) {
  files.contents["a.tbl"] = "old";
  ASSERT_TRUE(write().close());
  EXPECT_EQ(files.contents["a.tbl"], "");
}

// ---- The files of this machine

class MachineFiles : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string in_folder(std::string_view name) const { return (folder / name).string(); }
  void expect_refused(const std::string& name, TextFile::Mode mode, ErrorNumber number) {
    const auto file = TextFile::open(files, name, mode);
    ASSERT_FALSE(file) << name;
    EXPECT_EQ(file.error().number, number) << name;
  }

  std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("tabulon-files-" + std::to_string(getpid()));
  DiskFiles files;
};

constexpr auto input = TextFile::Mode::Input;
constexpr auto output = TextFile::Mode::Output;

TEST_F(MachineFiles, WhatWasWrittenIsRead) {
  const std::string name = in_folder("les.tbl");
  {
    auto file = TextFile::open(files, name, output);
    ASSERT_TRUE(file);
    ASSERT_TRUE(file->write_line("Tabloria op Internet"));
    ASSERT_TRUE(file->write_line("\u00E9\u00E9n"));
    ASSERT_TRUE(file->close());
  }
  std::ifstream stream(name, std::ios::binary);
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  EXPECT_EQ(bytes.str(), "Tabloria op Internet\r\n\xE9\xE9n\r\n");
  auto file = TextFile::open(files, name, input);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->read_line(), "Tabloria op Internet");
  EXPECT_EQ(file->read_line(), "\u00E9\u00E9n");
  EXPECT_FALSE(file->read_line());
}

TEST_F(MachineFiles, NamesThatAreNoneAreError52) {
  const std::string cut("a\0b", 3);
  for (const std::string& name :
       {std::string(), in_folder("*.tbl"), in_folder("a?.tbl"), cut, in_folder(std::string(300, 'x'))}) {
    expect_refused(name, input, ErrorNumber::BadFileName);
    expect_refused(name, output, ErrorNumber::BadFileName);
  }
}

TEST_F(MachineFiles, AMissingFileIsError53) {
  expect_refused(in_folder("none.tbl"), input, ErrorNumber::FileNotFound);
}

TEST_F(MachineFiles, AMissingFolderIsError76) {
  expect_refused(in_folder("none/a.tbl"), input, ErrorNumber::PathNotFound);
  expect_refused(in_folder("none/a.tbl"), output, ErrorNumber::PathNotFound);
  std::ofstream(in_folder("file")) << "x";
  expect_refused(in_folder("file/a.tbl"), output, ErrorNumber::PathNotFound);
}

TEST_F(MachineFiles, AFolderIsNoFile) {
  expect_refused(folder.string(), input, ErrorNumber::PermissionDenied);
  expect_refused(folder.string(), output, ErrorNumber::PermissionDenied);
}

TEST_F(MachineFiles, AFullDiskIsError61) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this machine has no device that is always full";
  auto file = TextFile::open(files, "/dev/full", output);
  ASSERT_TRUE(file);
  ASSERT_TRUE(file->write_line("kept until the end"));
  const auto closed = file->close();
  ASSERT_FALSE(closed);
  EXPECT_EQ(closed.error().number, ErrorNumber::DiskFull);
}

TEST_F(MachineFiles, AFileThatMayNotBeReadIsError70) {
  const std::string name = in_folder("shut.tbl");
  std::ofstream(name) << "x";
  std::filesystem::permissions(name, std::filesystem::perms::none);
  if (access(name.c_str(), R_OK) == 0) GTEST_SKIP() << "this person may read everything";
  expect_refused(name, input, ErrorNumber::PermissionDenied);
}

}  // namespace
}  // namespace tabulon::platform
