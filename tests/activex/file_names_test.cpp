// Names that stand for something else than a file here. No file is opened by any of them.
#include "hosts/activex/file_names.h"

#include <gtest/gtest.h>

#include <string>

#include "hosts/activex/text.h"
#include "hosts/activex/windows_files.h"

namespace tabulon::activex {
namespace {

class FileNames : public testing::TestWithParam<const wchar_t*> {};

class NamesOfNoFile : public FileNames {};
INSTANTIATE_TEST_SUITE_P(Devices, NamesOfNoFile,
                         testing::Values(L"NUL", L"nul.tbl", L"Nul .tbl", L"nul. . .", L"  nul", L"con",
                                         L"PRN.a.b", L"aux ", L"COM1", L"com9.tbl", L"com0", L"LPT1",
                                         L"lpt\u00B9.tbl", L"COM\u00B2", L"com\u00B3 .x", L"CONIN$",
                                         L"conout$", L"clock$", L"C:\\Lessen\\nul.tbl", L"C:/Lessen/aux",
                                         L"C:con", L"nul\\a.tbl", L"..\\com3\\a.tbl",
                                         L"\\\\server\\les\\prn.tbl"));
INSTANTIATE_TEST_SUITE_P(FoldersOfDevices, NamesOfNoFile,
                         testing::Values(L"\\\\.\\C:\\a.tbl", L"\\\\.\\pipe\\x", L"//./C:/a.tbl", L"\\/.\\a",
                                         L"\\\\.", L"\\\\?\\C:\\a.tbl", L"//?/C:/a", L"\\??\\C:\\a",
                                         L"\\\\.\\unix\\a", L"\\\\server\\pipe\\x", L"//SERVER/mailslot/x"));
INSTANTIATE_TEST_SUITE_P(Streams, NamesOfNoFile,
                         testing::Values(L"a.tbl:b", L"a.tbl::$DATA", L"C:\\a.tbl:b", L"C:a:b", L"C::",
                                         L"ab:c", L":a", L"\\\\server\\les\\a:b", L"1:\\a.tbl"));

// Whoever opens files refuses the name before the system is asked for anything.
TEST_P(NamesOfNoFile, AreError52) {
  ASSERT_TRUE(is_no_file(GetParam()));
  WindowsFiles files;
  const std::string name = narrow(GetParam());
  using platform::TextFile;
  for (const auto mode : {TextFile::Mode::Input, TextFile::Mode::Output}) {
    const auto file = TextFile::open(files, name, mode);
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().number, ErrorNumber::BadFileName);
  }
}

class NamesOfFiles : public FileNames {};
INSTANTIATE_TEST_SUITE_P(ThatLookLikeThem, NamesOfFiles,
                         testing::Values(L"null.tbl", L"annul", L"a.nul", L"C:\\console\\com.tbl", L"com10",
                                         L"comx.tbl", L"lpt", L"conin", L"c:a.tbl", L"C:\\.nul", L"\\a.tbl",
                                         L"a b. .tbl", L"com\u2074", L"C:\\Lessen\\pipe\\a.tbl", L"..\\a.tbl",
                                         L".tbl", L"\\\\server\\les\\a.tbl"));

TEST_P(NamesOfFiles, AreNot) {
  EXPECT_FALSE(is_no_file(GetParam()));
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
