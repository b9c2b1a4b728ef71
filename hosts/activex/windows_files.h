// Files on the disks of this machine.
//
//   WindowsFiles files;
//   auto file = TextFile::open(files, "C:\\Lessen\\oefening.tbl", TextFile::Mode::Output);
//
// Other programs may read and write a file that is open here.
#pragma once

#include <memory>
#include <string_view>

#include "platform/text_file.h"

namespace tabulon::activex {

// Errors 52 (a name with "*" or "?", an empty one, one that the system cannot hold, one of a device or of a
// stream beside a file), 53, 61, 70 (also a folder in place of a file) and 76 (a folder on the way that is
// missing or is no folder).
class WindowsFiles : public platform::FileStore {
 public:
  Result<std::unique_ptr<platform::FileBytes>> open_for_input(std::string_view name) override;
  Result<std::unique_ptr<platform::FileBytes>> open_for_output(std::string_view name) override;
  std::size_t most_open() const override { return platform::file_numbers; }
};

}  // namespace tabulon::activex
