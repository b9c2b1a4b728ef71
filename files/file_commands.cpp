#include "files/file_commands.h"

#include "files/tableau_file.h"
#include "platform/desk.h"

namespace tabulon {

using platform::FileDialog;
using platform::Task;
using platform::TextFile;

namespace {

constexpr std::string_view filter = "Simplex tableau|*.tbl", any_tableau = "*.tbl";

constexpr FileDialog save_dialog{FileDialog::Purpose::Save, "Simplex tableau opslaan als...", filter,
                                 any_tableau};
constexpr FileDialog open_dialog{FileDialog::Purpose::Open, "Simplex tableau openen", filter, any_tableau};

}  // namespace

Result<> FileCommands::SchrijfTableau(std::string_view strFile) {
  platform::FileStore& files = surface_.desk().host().files();
  TextFile file = TRY(TextFile::open(files, strFile, TextFile::Mode::Output).about(strFile));
  return write_tableau(model_, file).about(strFile);
}

// A file of another kind is no error that is raised: it is noted, and every open file is closed.
Result<> FileCommands::LeesTableau(std::string_view strFile) {
  platform::FileStore& files = surface_.desk().host().files();
  TextFile& opened = model_.open_files.emplace_back(
      TRY(TextFile::open(files, strFile, TextFile::Mode::Input).about(strFile)));
  if (TRY(read_tableau(model_, opened).about(strFile)) == TableauRead::Read) {
    model_.open_files.pop_back();
  } else {
    model_.open_files.clear();
    model_.error_number = ErrorNumber::BadFileMode;
  }
  return {};
}

Task<> FileCommands::mnu_Tableau_Opslaan_Als_Click() {
  const std::string name = co_await surface_.desk().show_file_dialog(surface_, save_dialog);
  static_cast<void>(SchrijfTableau(name));
  co_await surface_.set_focus(txtFocus_);
}

Task<> FileCommands::mnu_Openen_Click() {
  const std::string name = co_await surface_.desk().show_file_dialog(surface_, open_dialog);
  const auto read = LeesTableau(name);
  co_await surface_.set_focus(txtFocus_);
  if (read) problem_.show_opened_tableau();
}

}  // namespace tabulon
