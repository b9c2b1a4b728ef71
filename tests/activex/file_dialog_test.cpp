// The system's file dialogs, answered by a user who types a name or cancels.
#include "hosts/activex/file_dialog.h"

#include <dlgs.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "hosts/activex/text.h"
#include "tests/activex/patience.h"

namespace tabulon::activex {
namespace {

namespace fs = std::filesystem;
using platform::FileDialog;

constexpr wchar_t title[] = L"Simplex tableau kiezen voor de proef";

// This process's dialog, once it is open; other tests running at the same time may have theirs.
HWND shown_dialog() {
  for (HWND dialog = nullptr; (dialog = FindWindowExW(nullptr, dialog, L"#32770", title));) {
    DWORD process = 0;
    GetWindowThreadProcessId(dialog, &process);
    if (process == GetCurrentProcessId() && IsWindowVisible(dialog)) return dialog;
  }
  return nullptr;
}

// The dialog's file name: an edit box, or a combo box.
HWND name_box(HWND dialog) {
  const HWND list = GetDlgItem(dialog, cmb13);
  return list ? list : GetDlgItem(dialog, edt1);
}

// Answers one dialog from within its message loop.
struct DialogUser {
  int button = 0;
  std::wstring name;

  std::string offered;  // what the dialog had for a name before
  bool read_only_box = true;
  HWND owner_of_dialog = nullptr;
  int looked = 0;
  ULONGLONG answered = 0;

  void look() {
    const HWND dialog = shown_dialog();
    if (!dialog) return;
    if (looked++ == 0) answer(dialog);
    // No test here expects a further question from the dialog.
    if (GetTickCount64() - answered > patience_in_milliseconds)
      PostMessageW(GetLastActivePopup(dialog), WM_COMMAND, IDCANCEL, 0);
  }

 private:
  void answer(HWND dialog) {
    answered = GetTickCount64();
    wchar_t text[100] = L"";
    SendMessageW(name_box(dialog), WM_GETTEXT, 100, reinterpret_cast<LPARAM>(text));
    offered = narrow(text);
    read_only_box = IsWindowVisible(GetDlgItem(dialog, chx1)) != 0;
    owner_of_dialog = GetWindow(dialog, GW_OWNER);
    if (!name.empty()) SendMessageW(name_box(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
  }
};

DialogUser person;

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
  person.look();
}

class FileDialogs : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder);
    owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
  }
  void TearDown() override {
    DestroyWindow(owner);
    fs::remove_all(folder);
  }
  // What comes of it when the person does that.
  std::string answer(FileDialog::Purpose purpose, int button, const fs::path& name = {}) {
    person = {};
    person.button = button;
    person.name = name.wstring();
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, tick);
    const std::string heading = narrow(title);
    std::string chosen = ask_for_file(owner, {purpose, heading, "Simplex tableau|*.tbl", "*.tbl"});
    KillTimer(nullptr, timer);
    EXPECT_GT(person.looked, 0) << "no dialog was shown";
    return chosen;
  }

  const fs::path folder =
      fs::temp_directory_path() / ("tabulon-dialoog-" + std::to_string(GetCurrentProcessId()));
  HWND owner = nullptr;
};

TEST_F(FileDialogs, CancellingLeavesTheNameItStartedWith) {
  EXPECT_EQ(answer(FileDialog::Purpose::Save, IDCANCEL), "*.tbl");
  EXPECT_EQ(person.offered, "*.tbl");
  EXPECT_EQ(person.owner_of_dialog, owner);
  EXPECT_EQ(answer(FileDialog::Purpose::Open, IDCANCEL), "*.tbl");
  EXPECT_EQ(person.offered, "*.tbl");
  EXPECT_FALSE(person.read_only_box);
}

TEST_F(FileDialogs, ANameWithoutAnExtensionGetsTheFiltersOwn) {
  const fs::path file = folder / L"les \u00E9\u00E9n";
  EXPECT_EQ(answer(FileDialog::Purpose::Save, IDOK, file), narrow(file.wstring()) + ".tbl");
}

TEST_F(FileDialogs, AnOldTableauIsChosenWithoutAQuestion) {
  const fs::path file = folder / "oud.tbl";
  std::ofstream(file) << "x";
  EXPECT_EQ(answer(FileDialog::Purpose::Save, IDOK, file), narrow(file.wstring()));
  EXPECT_EQ(answer(FileDialog::Purpose::Open, IDOK, file), narrow(file.wstring()));
}

TEST_F(FileDialogs, ChoosingLeavesTheFolderOfTheProgramAlone) {
  const fs::path before = fs::current_path();
  EXPECT_EQ(answer(FileDialog::Purpose::Save, IDOK, folder / "a.tbl"), narrow((folder / "a.tbl").wstring()));
  EXPECT_EQ(fs::current_path(), before);
}

}  // namespace
}  // namespace tabulon::activex
