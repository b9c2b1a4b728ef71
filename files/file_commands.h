// The commands and methods that save a tableau and open one.
#pragma once

#include <string_view>

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "platform/surface.h"
#include "platform/text_file.h"

namespace tabulon {

class FileCommands {
 public:
  FileCommands(platform::Surface& surface, basSafeCtl& model, platform::Control& txtFocus,
               ProblemView& problem)
      : surface_(surface), model_(model), txtFocus_(txtFocus), problem_(problem) {}

  // Saves the tableau under that name, replacing what is there. Errors 9, 52, 61, 67, 70, 76.
  Result<> SchrijfTableau(std::string_view strFile);
  // Error 54 for every file that is there, and nothing is read, and it stays open; 52, 53, 67, 70,
  // 76 for the others.
  Result<> LeesTableau(std::string_view strFile);

  // Whatever goes wrong ends these without a word; cancelling leaves a name that no file can have.
  platform::Task<> mnu_Tableau_Opslaan_Als_Click();
  platform::Task<> mnu_Openen_Click();

 private:
  Result<platform::TextFile> open(std::string_view name, platform::TextFile::Mode mode);

  platform::Surface& surface_;
  basSafeCtl& model_;
  platform::Control& txtFocus_;
  ProblemView& problem_;
};

}  // namespace tabulon
