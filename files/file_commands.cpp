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

// A file gets its number before its name is looked at.
Result<TextFile> FileCommands::open(std::string_view name, TextFile::Mode mode) {
  platform::FileStore& files = surface_.desk().host().files();
  if (model_.open_files.size() >= files.most_open())
    return fail(ErrorNumber::TooManyFiles, std::string(name));
  return TextFile::open(files, name, mode).about(name);
}

Result<> FileCommands::SchrijfTableau(std::string_view strFile) {
  TextFile file = TRY(open(strFile, TextFile::Mode::Output));
  return write_tableau(model_, file).about(strFile);
}

// A file of another kind is no error that is raised: it is noted, and every open file is closed.
Result<> FileCommands::LeesTableau(std::string_view strFile) {
  TextFile& opened = model_.open_files.emplace_back(TRY(open(strFile, TextFile::Mode::Input)));
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
