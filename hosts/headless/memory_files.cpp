#include "hosts/headless/memory_files.h"

#include <utility>

namespace tabulon::platform {

namespace {

class OpenFile : public FileBytes {
 public:
  OpenFile(MemoryFiles& files, std::string_view name) : files_(files), name_(name) { ++files_.open_files; }
  ~OpenFile() override { --files_.open_files; }

  Result<> append(std::string_view bytes) override {
    if (bytes.size() > files_.full_after) return fail(ErrorNumber::DiskFull, name_);
    files_.full_after -= bytes.size();
    files_.contents[name_] += bytes;
    return {};
  }

  Result<std::string> read(std::size_t most) override {
    if (files_.reading_fails) return fail(*files_.reading_fails, name_);
    const std::string& all = files_.contents[name_];
    std::string part = at_ < all.size() ? all.substr(at_, most) : std::string();
    at_ += part.size();
    return part;
  }

  Result<> close() override { return {}; }

 private:
  MemoryFiles& files_;
  std::string name_;
  std::size_t at_ = 0;
};

}  // namespace

Result<> MemoryFiles::refusal(std::string_view name) const {
  if (const auto found = refusals.find(name); found != refusals.end())
    return fail(found->second, std::string(name));
  return {};
}

Result<std::unique_ptr<FileBytes>> MemoryFiles::open_for_input(std::string_view name) {
  TRY(refusal(name));
  if (!contents.contains(name)) return fail(ErrorNumber::FileNotFound, std::string(name));
  return std::make_unique<OpenFile>(*this, name);
}

Result<std::unique_ptr<FileBytes>> MemoryFiles::open_for_output(std::string_view name) {
  TRY(refusal(name));
  contents.insert_or_assign(std::string(name), std::string());
  return std::make_unique<OpenFile>(*this, name);
}

}  // namespace tabulon::platform
