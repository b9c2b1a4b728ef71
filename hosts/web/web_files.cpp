#include "hosts/web/web_files.h"

#include <utility>

#include "hosts/web/page.h"
#include "hosts/web/record.h"

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
    record.text(name_);
    record.text(content_);
    page::write_file(record.data(), record.size());
    files_.put(name_, std::move(content_));
    return {};
  }

 private:
  WebFiles& files_;
  std::string name_, content_;
};

bool is_bad(std::string_view name) {
  return name.empty() || name.find_first_of("*?") != std::string_view::npos;
}

}  // namespace

Result<std::unique_ptr<platform::FileBytes>> WebFiles::open_for_input(std::string_view name) {
  if (is_bad(name)) return fail(ErrorNumber::BadFileName, std::string(name));
  const auto found = contents_.find(name);
  if (found == contents_.end()) return fail(ErrorNumber::FileNotFound, std::string(name));
  return std::make_unique<Reading>(name, found->second);
}

Result<std::unique_ptr<platform::FileBytes>> WebFiles::open_for_output(std::string_view name) {
  if (is_bad(name)) return fail(ErrorNumber::BadFileName, std::string(name));
  return std::make_unique<Writing>(*this, name);
}

}  // namespace tabulon::web
