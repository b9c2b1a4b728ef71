// The files of this machine, over the C library.
//
//   DiskFiles files;
//   auto file = TextFile::open(files, "oefening.tbl", TextFile::Mode::Output);
#pragma once

#include <memory>
#include <string_view>

#include "platform/text_file.h"

namespace tabulon::platform {

// Errors 52 (a name with "*" or "?", an empty one, one that the system cannot hold), 53, 61, 70 (also a
// folder in place of a file) and 76 (a folder on the way that is missing or is no folder).
class DiskFiles : public FileStore {
 public:
  Result<std::unique_ptr<FileBytes>> open_for_input(std::string_view name) override;
  Result<std::unique_ptr<FileBytes>> open_for_output(std::string_view name) override;
  std::size_t most_open() const override { return file_numbers; }
};

}  // namespace tabulon::platform
