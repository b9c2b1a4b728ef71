#include "hosts/web/web_files.h"

#include <algorithm>
#include <utility>

#include "hosts/web/page.h"

namespace tabulon::web {

namespace {

class Reading : public platform::FileBytes {
 public:
  Reading(std::string_view name, std::string content) : name_(name), content_(std::move(content)) {}

  Result<> append(std::string_view) override { return fail(ErrorNumber::BadFileMode, name_); }
  Result<std::string> read(std::size_t most) override {
    std::string part = content_.substr(at_, most);
    at_ += part.size();
    return part;
  }
  Result<> close() override { return {}; }

 private:
  std::string name_, content_;
  std::size_t at_ = 0;
};

class Writing : public platform::FileBytes {
 public:
  Writing(WebFiles& files, std::string_view name) : files_(files), name_(name) {}

  Result<> append(std::string_view bytes) override {
    content_ += bytes;
    return {};
  }
  Result<std::string> read(std::size_t) override { return fail(ErrorNumber::BadFileMode, name_); }
  Result<> close() override {
    Record record;
    wire::write(record, wire::WrittenFile{.name = name_, .content = content_});
    page::write_file(record.data(), record.size());
    files_.put(name_, std::move(content_));
    return {};
  }

 private:
  WebFiles& files_;
  std::string name_, content_;
};

}  // namespace

void WebFiles::put(std::string_view name, std::string content) {
  std::erase_if(files_, [&](const File& file) { return file.name == name; });
  files_.push_back({std::string(name), std::move(content)});
}

Result<std::unique_ptr<platform::FileBytes>> WebFiles::open_for_input(std::string_view name) {
  const auto found = std::ranges::find(files_, name, &File::name);
  if (found == files_.end()) return fail(ErrorNumber::FileNotFound, std::string(name));
  return std::make_unique<Reading>(name, found->content);
}

Result<std::unique_ptr<platform::FileBytes>> WebFiles::open_for_output(std::string_view name) {
  return std::make_unique<Writing>(*this, name);
}

}  // namespace tabulon::web
