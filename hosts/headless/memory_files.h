// Files that live in memory, and that refuse when a test says so.
//
//   MemoryFiles files;
//   files.contents["oefening.tbl"] = "Tabloria op Internet\r\n";
//   files.full_after = 100;                                   // error 61 at the 101st byte
//   files.refusals["les.tbl"] = ErrorNumber::PermissionDenied;  // error 70 when it is opened
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text_file.h"

namespace tabulon::platform {

class MemoryFiles : public FileStore {
 public:
  std::map<std::string, std::string, std::less<>> contents;
  // What opening the file answers instead of the file.
  std::map<std::string, ErrorNumber, std::less<>> refusals;
  // How many bytes may still be written, to all files together, before error 61.
  std::size_t full_after = std::numeric_limits<std::size_t>::max();
  // What reading answers once a file is open; nothing when it goes well.
  std::optional<ErrorNumber> reading_fails;
  // Files that are open now; a command that has ended leaves none.
  int open_files = 0;

  // Errors 52 (a name with "*" or "?"), 53 (no such file), or the file's refusal.
  Result<std::unique_ptr<FileBytes>> open_for_input(std::string_view name) override;
  Result<std::unique_ptr<FileBytes>> open_for_output(std::string_view name) override;

 private:
  Result<> refusal(std::string_view name) const;
};

}  // namespace tabulon::platform
