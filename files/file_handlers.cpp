// The commands and methods that save a tableau and open one.
#include "control/LPctrl.h"
#include "files/tableau_file.h"

namespace tabulon {

using platform::FileDialog;
using platform::Task;
using platform::TextFile;

namespace {

constexpr std::string_view filter = "Simplex tableau|*.tbl", any_tableau = "*.tbl";

constexpr FileDialog save_dialog{FileDialog::Purpose::Save, "Simplex tableau opslaan als...", filter,
                                 any_tableau};
constexpr FileDialog open_dialog{FileDialog::Purpose::Open, "Simplex tableau openen", filter, any_tableau};

RunTimeError about(RunTimeError error, std::string_view file) {
  error.subject = file;
  return error;
}

}  // namespace

Result<> LPctrl::SchrijfTableau(std::string_view strFile) {
  auto file = TextFile::open(desk().host().files(), strFile, TextFile::Mode::Output);
  if (!file) return std::unexpected(about(file.error(), strFile));
  auto written = write_tableau(model_, *file);
  if (!written) return std::unexpected(about(written.error(), strFile));
  return {};
}

// A file of another kind is no error that is raised: it is noted, and every open file is closed.
Result<> LPctrl::LeesTableau(std::string_view strFile) {
  auto file = TextFile::open(desk().host().files(), strFile, TextFile::Mode::Input);
  if (!file) return std::unexpected(about(file.error(), strFile));
  TextFile& opened = model_.open_files.emplace_back(*std::move(file));
  const auto read = read_tableau(model_, opened);
  if (!read) return std::unexpected(about(read.error(), strFile));
  if (*read == TableauRead::Read) {
    model_.open_files.pop_back();
  } else {
    model_.open_files.clear();
    model_.error_number = ErrorNumber::BadFileMode;
  }
  return {};
}

// Whatever goes wrong ends the command without a word; cancelling leaves a name that no file can have.
Task<> LPctrl::mnu_Tableau_Opslaan_Als_Click() {
  const std::string name = co_await desk().show_file_dialog(*this, save_dialog);
  static_cast<void>(SchrijfTableau(name));
  co_await set_focus(txtFocus);
}

Task<> LPctrl::mnu_Openen_Click() {
  const std::string name = co_await desk().show_file_dialog(*this, open_dialog);
  const auto read = LeesTableau(name);
  co_await set_focus(txtFocus);
  if (read) co_await show_opened_tableau();
}

Task<> LPctrl::show_opened_tableau() {
  model_.PivotRij = 0;
  model_.PivotKolom = 0;
  redraw();
  mnu_Breuken.set_checked(model_.Breuken);
  const bool to_fill_in = model_.NrTableau == 1;
  mnu_Tableau_Invullen.set_checked(!to_fill_in);
  co_await mnu_Tableau_Invullen_Click();
  enable_fill_in(to_fill_in);
  set_scroll_ranges();
  follow_grid();
  offer_graph();
}

}  // namespace tabulon
