// Names that stand for something else than a file here. No file is opened by any of them.
#include "hosts/activex/file_names.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "hosts/activex/text.h"
#include "hosts/activex/windows_files.h"

namespace tabulon::activex {
namespace {

// Whoever opens files refuses the name before the system is asked for anything.
void expect_no_file(std::initializer_list<const wchar_t*> names) {
  using platform::TextFile;
  WindowsFiles files;
  for (const wchar_t* const each : names) {
    const std::string name = narrow(each);
    SCOPED_TRACE(name);
    ASSERT_TRUE(is_no_file(each));
    for (const auto mode : {TextFile::Mode::Input, TextFile::Mode::Output}) {
      const auto file = TextFile::open(files, name, mode);
      ASSERT_FALSE(file);
      EXPECT_EQ(file.error().number, ErrorNumber::BadFileName);
    }
  }
}

TEST(FileNames, OfDevicesAreError52) {
  expect_no_file({L"NUL",
                  L"nul.tbl",
                  L"Nul .tbl",
                  L"nul. . .",
                  L"  nul",
                  L"con",
                  L"PRN.a.b",
                  L"aux ",
                  L"COM1",
                  L"com9.tbl",
                  L"com0",
                  L"LPT1",
                  L"lpt\u00B9.tbl",
                  L"COM\u00B2",
                  L"com\u00B3 .x",
                  L"CONIN$",
                  L"conout$",
                  L"clock$",
                  LR"(C:\Lessen\nul.tbl)",
                  L"C:/Lessen/aux",
                  L"C:con",
                  LR"(nul\a.tbl)",
                  LR"(..\com3\a.tbl)",
                  LR"(\\server\les\prn.tbl)"});
}

TEST(FileNames, InFoldersOfDevicesAreError52) {
  expect_no_file({LR"(\\.\C:\a.tbl)", LR"(\\.\pipe\x)", L"//./C:/a.tbl", LR"(\/.\a)", LR"(\\.)",
                  LR"(\\?\C:\a.tbl)", L"//?/C:/a", LR"(\??\C:\a)", LR"(\\.\unix\a)", LR"(\\server\pipe\x)",
                  L"//SERVER/mailslot/x"});
}

TEST(FileNames, OfStreamsBesideAFileAreError52) {
  expect_no_file({L"a.tbl:b", L"a.tbl::$DATA", LR"(C:\a.tbl:b)", L"C:a:b", L"C::", L"ab:c", L":a",
                  LR"(\\server\les\a:b)", LR"(1:\a.tbl)"});
}

TEST(FileNames, ThatLookLikeThemAreFiles) {
  for (const wchar_t* const name :
       {L"null.tbl", L"annul", L"a.nul", LR"(C:\console\com.tbl)", L"com10", L"comx.tbl", L"lpt", L"conin",
        L"c:a.tbl", LR"(C:\.nul)", LR"(\a.tbl)", L"a b. .tbl", L"com\u2074", LR"(C:\Lessen\pipe\a.tbl)",
        LR"(..\a.tbl)", L".tbl", LR"(\\server\les\a.tbl)"})
    EXPECT_FALSE(is_no_file(name)) << narrow(name);
}

TEST(OtherHosts, AreToldByTheFullName) {
  for (const wchar_t* const name :
       {L"\\\\server\\les\\a.tbl", L"//server/les/a.tbl", L"\\/server/les\\a.tbl"})
    EXPECT_TRUE(is_on_another_host(name)) << narrow(name);
  for (const wchar_t* const name : {L"C:\\a.tbl", L"a.tbl", L"\\a.tbl", L"C:a.tbl", L"C:\\\\server\\a.tbl"})
    EXPECT_FALSE(is_on_another_host(name)) << narrow(name);
}

}  // namespace
}  // namespace tabulon::activex
