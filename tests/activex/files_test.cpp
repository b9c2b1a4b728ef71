// Files on Windows, and the errors of those that are refused.
#include "hosts/activex/windows_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "hosts/activex/text.h"

namespace tabulon::activex {
namespace {

namespace fs = std::filesystem;
using platform::TextFile;

template <class T>
int number_of(const Result<T>& result) {
  return result ? 0 : static_cast<int>(result.error().number);
}

class FilesOnWindows : public testing::Test {
 protected:
  void SetUp() override { fs::create_directories(folder); }
  void TearDown() override { fs::remove_all(folder); }

  std::string in_folder(std::string_view name) const { return narrow((folder / wide(name)).wstring()); }
  std::string put(std::string_view name, std::string_view bytes) const {
    std::ofstream(folder / wide(name), std::ios::binary) << bytes;
    return in_folder(name);
  }
  static std::string contents_of(const std::string& name) {
    std::ifstream file(fs::path(wide(name)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  using Mode = platform::TextFile::Mode;
  Result<platform::TextFile> opened(const std::string& name, Mode mode) {
    return platform::TextFile::open(files, name, mode);
  }
  int error_of_writing(const std::string& name) { return number_of(opened(name, Mode::Output)); }
  int error_of_reading(const std::string& name) { return number_of(opened(name, Mode::Input)); }
  void expect_refused(const std::string& name, int number) {
    EXPECT_EQ(error_of_writing(name), number) << name.substr(0, 100);
    EXPECT_EQ(error_of_reading(name), number) << name.substr(0, 100);
  }
  Result<> save(const std::string& name, const std::vector<std::string>& lines) {
    auto file = TextFile::open(files, name, TextFile::Mode::Output);
    if (!file) return std::unexpected(file.error());
    for (const std::string& line : lines)
      if (auto written = file->write_line(line); !written) return written;
    return file->close();
  }

  const fs::path folder =
      fs::temp_directory_path() / ("tabulon-bestanden-" + std::to_string(GetCurrentProcessId()));
  WindowsFiles files;
};

TEST_F(FilesOnWindows, WhatIsWrittenIsReadBack) {
  std::vector<std::string> lines;
  for (int line = 0; line < 20'000; ++line) lines.push_back("regel " + std::to_string(line));
  const std::string name = in_folder("lang.tbl");
  ASSERT_EQ(number_of(save(name, lines)), 0);
  auto file = TextFile::open(files, name, TextFile::Mode::Input);
  ASSERT_TRUE(file);
  for (const std::string& line : lines) ASSERT_EQ(file->read_line().value_or("?"), line);
  EXPECT_EQ(number_of(file->read_line()), 62);
}

TEST_F(FilesOnWindows, BytesAreWrittenAsTheyAre) {
  const std::string name = in_folder("bytes.tbl"), bytes("een\r\ntwee\n\x1a\0drie\r", 16);
  auto file = files.open_for_output(name);
  ASSERT_TRUE(file);
  ASSERT_TRUE((*file)->append(bytes.substr(0, 5)));
  ASSERT_TRUE((*file)->append(bytes.substr(5)));
  ASSERT_TRUE((*file)->close());
  EXPECT_EQ(contents_of(name), bytes);
}

TEST_F(FilesOnWindows, BytesAreReadAsTheyAre) {
  const std::string bytes("een\r\ntwee\n\x1a\0drie\r", 16);
  auto file = files.open_for_input(put("bytes.tbl", bytes));
  ASSERT_TRUE(file);
  EXPECT_EQ((*file)->read(6).value_or("?"), bytes.substr(0, 6));
  EXPECT_EQ((*file)->read(100).value_or("?"), bytes.substr(6));
  EXPECT_EQ((*file)->read(100).value_or("?"), "");
}

TEST_F(FilesOnWindows, AFileThatIsDroppedIsWrittenToo) {
  const std::string name = in_folder("los.tbl");
  ASSERT_TRUE(files.open_for_output(name).value()->append("toch"));
  EXPECT_EQ(contents_of(name), "toch");
}

TEST_F(FilesOnWindows, SavingEmptiesWhatWasThere) {
  const std::string name = put("a.tbl", std::string(100'000, 'x'));
  ASSERT_EQ(number_of(save(name, {"kort"})), 0);
  EXPECT_EQ(contents_of(name), "kort\r\n");
}

TEST_F(FilesOnWindows, NamesAreOfAnyScript) {
  const std::string name = in_folder("les één – Ω.tbl");
  ASSERT_EQ(number_of(save(name, {"x"})), 0);
  EXPECT_TRUE(fs::exists(folder / L"les \u00E9\u00E9n \u2013 \u03A9.tbl"));
  EXPECT_EQ(error_of_reading(name), 0);
}

TEST_F(FilesOnWindows, ANameThatNoFileCanHaveIsError52) {
  for (const std::string& name :
       {std::string("*.tbl"), in_folder("a?.tbl"), in_folder("a<b.tbl"), in_folder("a|b.tbl"), std::string(),
        std::string(10'000, 'x'), in_folder(std::string(256, 'x')), in_folder(std::string("a\0b", 3))})
    expect_refused(name, 52);
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(FilesOnWindows, AFileThatIsNotThereIsError53) {
  EXPECT_EQ(error_of_reading(in_folder("weg.tbl")), 53);
  EXPECT_FALSE(fs::exists(folder / "weg.tbl"));
}

TEST_F(FilesOnWindows, AFullDiskIsError61) {
  const std::string name = R"(devices\full)";  // beside the tests, a link to a device that is always full
  if (!fs::exists("devices")) GTEST_SKIP() << "this machine has no device that is always full";
  EXPECT_EQ(number_of(save(name, {"kort"})), 61);
  EXPECT_EQ(number_of(save(name, std::vector<std::string>(5'000, "een lange regel van een tableau"))), 61);
}

TEST_F(FilesOnWindows, AFolderInPlaceOfAFileIsError70) {
  expect_refused(in_folder(""), 70);
  expect_refused(narrow(folder.wstring()), 70);
  expect_refused(narrow(folder.root_path().wstring()), 70);
}

TEST_F(FilesOnWindows, AFileThatAnotherKeepsToItselfIsError70) {
  const std::string name = put("dicht.tbl", "van een ander");
  const HANDLE other = CreateFileW(wide(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  expect_refused(name, 70);
  CloseHandle(other);
  EXPECT_EQ(contents_of(name), "van een ander");
}

TEST_F(FilesOnWindows, AFileThatStaysOpenStopsNobody) {
  const std::string name = put("open.tbl", "een\r\n");
  auto open = TextFile::open(files, name, TextFile::Mode::Input);
  ASSERT_TRUE(open);
  EXPECT_EQ(number_of(save(name, {"twee"})), 0);
  EXPECT_EQ(error_of_reading(name), 0);
  EXPECT_EQ(open->read_line().value_or("?"), "twee");
}

TEST_F(FilesOnWindows, AFolderThatIsMissingIsError76) {
  expect_refused(in_folder("weg\\a.tbl"), 76);
  expect_refused(in_folder("weg/a.tbl"), 76);
  expect_refused(put("bestand", "x") + "\\a.tbl", 76);
}

TEST_F(FilesOnWindows, TheRefusalSaysWhichFile) {
  const std::string name = in_folder("weg\\a.tbl");
  EXPECT_EQ(opened(name, Mode::Input).error().subject, name);
  EXPECT_EQ(opened("*", Mode::Output).error().subject, "*");
}

}  // namespace
}  // namespace tabulon::activex
