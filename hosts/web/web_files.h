// The files that this page has written or the person has picked. They live as long as the page; what is
// written is also handed to the page, which saves or downloads it.
//
//   WebFiles files;
//   files.put("oefening.tbl", bytes);                     // the person picked it
//   files.open_for_input("oefening.tbl");
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_file.h"

namespace tabulon::web {

class WebFiles : public platform::FileStore {
 public:
  void put(std::string_view name, std::string content);

  // Errors 52 (a name with "*" or "?") and 53 (neither written nor picked here).
  Result<std::unique_ptr<platform::FileBytes>> open_for_input(std::string_view name) override;
  Result<std::unique_ptr<platform::FileBytes>> open_for_output(std::string_view name) override;

 private:
  struct File {
    std::string name, content;
  };
  std::vector<File> files_;
};

}  // namespace tabulon::web
