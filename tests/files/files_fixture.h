// A control with files, and the golden files that it must write to the byte.
//
//   TEST_F(FilesTest, SavingWritesTheDefaultProblem) {
//     open();
//     ASSERT_TRUE(control.SchrijfTableau("a.tbl"));
//     EXPECT_EQ(host.memory_files.contents["a.tbl"], golden("default-problem.tbl"));
//   }
//
// The golden files were not written by this program. A script in another language laid them out from the list
// of lines alone (11 about the problem, four a column of row F, four for its right-hand side, two a row for
// the basis, four a cell, four a right-hand side), worked the Big-M problem out in exact fractions, and wrote
// reals from their 15-digit decimal form.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "files/tableau_file.h"
#include "hosts/headless/visible_state.h"
#include "tests/control/control_fixture.h"

namespace tabulon {

inline std::string contents_of(const std::filesystem::path& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

inline std::string golden(std::string_view name) {
  const std::string bytes =
      contents_of(std::filesystem::path(TABULON_SOURCE_DIR "/tests/files/golden") / name);
  EXPECT_FALSE(bytes.empty()) << name;
  return bytes;
}

// The number of an error, 0 when there is none.
template <class T>
int number_of(const Result<T>& result) {
  return result ? 0 : static_cast<int>(result.error().number);
}

// The bytes with another text in one of their lines, counted from 1.
inline std::string with_line(std::string bytes, int line, std::string_view text) {
  std::size_t begin = 0;
  for (; line > 1; --line) begin = bytes.find("\r\n", begin) + 2;
  return bytes.replace(begin, bytes.find("\r\n", begin) - begin, text);
}

inline std::string first_lines(const std::string& bytes, int lines) {
  std::size_t end = 0;
  for (; lines > 0; --lines) end = bytes.find("\r\n", end) + 2;
  return bytes.substr(0, end);
}

inline int count_lines(std::string_view bytes) {
  int lines = 0;
  for (std::size_t at = bytes.find("\r\n"); at != bytes.npos; at = bytes.find("\r\n", at + 2)) ++lines;
  return lines;
}

// All that a file would hold of the model, for comparison. Writing works on a copy, because it sets counts.
inline std::string written(const basSafeCtl& model) {
  platform::MemoryFiles files;
  basSafeCtl copy;
  copy.current = model.current, copy.first = model.first, copy.Breuken = model.Breuken;
  for (const auto count :
       {&basSafeCtl::NrTableau, &basSafeCtl::NrBeslisVar, &basSafeCtl::NrSurplusVar,
        &basSafeCtl::NrKleinerGelijkVglen, &basSafeCtl::NrGroterGelijkVglen, &basSafeCtl::NrGelijkVglen,
        &basSafeCtl::BigM, &basSafeCtl::StartRij, &basSafeCtl::StartKolom})
    copy.*count = model.*count;
  auto file = platform::TextFile::open(files, "a", platform::TextFile::Mode::Output);
  EXPECT_TRUE(file && write_tableau(copy, *file));
  return files.contents["a"];
}

// 3 variables and a row of each kind; its optimum is at 67+3/7.
inline const Parameters row_of_each_kind{
    {"prmNrBeslisVar", "3"},
    {"prmNrKleinerGelijkVglen", "1"},
    {"prmNrGroterGelijkVglen", "1"},
    {"prmNrGelijkVglen", "1"},
    {"prmSTR_DLfunctie", " -2, -7, -9"},
    {"prmSTR_KleinerGelijkVglen", " 2, 4, 1"},
    {"prmSTR_GroterGelijkVglen", " 2, 0, 3"},
    {"prmSTR_GelijkVglen", " 1, 1, 2"},
    {"prmSTR_RL", " 19, 5, 13"},
};

class FilesTest : public ControlTest {
 protected:
  std::map<std::string, std::string, std::less<>>& contents = host.memory_files.contents;

  // What a person and a page's script could see, and what the model holds.
  std::string everything() const {
    return platform::visible_state(host, control) + written(model) + "pivot " +
           std::to_string(model.PivotRij) + " " + std::to_string(model.PivotKolom);
  }
  void expect_nothing_was_said() const {
    EXPECT_EQ(form(), "");
    EXPECT_EQ(focus(), "txtFocus");
    EXPECT_TRUE(host.reports.empty());
    EXPECT_FALSE(host.is_busy(control));
  }
};

}  // namespace tabulon
