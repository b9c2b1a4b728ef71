#include "files/tableau_text.h"

#include <memory>
#include <utility>

#include "files/tableau_file.h"
#include "platform/text_file.h"

namespace tabulon {

namespace {

using platform::FileBytes;
using platform::TextFile;

class OpenText : public FileBytes {
 public:
  explicit OpenText(std::string& text) : text_(text) {}

  Result<> append(std::string_view bytes) override {
    text_ += bytes;
    return {};
  }
  Result<std::string> read(std::size_t most) override {
    std::string part = text_.substr(at_, most);
    at_ += part.size();
    return part;
  }
  Result<> close() override { return {}; }

 private:
  std::string& text_;
  std::size_t at_ = 0;
};

// A store of one file, which is a text.
class TextStore : public platform::FileStore {
 public:
  explicit TextStore(std::string text = {}) : text(std::move(text)) {}

  Result<std::unique_ptr<FileBytes>> open_for_input(std::string_view) override {
    return std::make_unique<OpenText>(text);
  }
  Result<std::unique_ptr<FileBytes>> open_for_output(std::string_view) override {
    return std::make_unique<OpenText>(text);
  }

  std::string text;
};

constexpr std::string_view any_name = "tableau";

// What the grid shows first lies within the tableau.
void keep_in_sight(basSafeCtl& model, Shape shape) {
  if (model.StartKolom < 1 || model.StartKolom > shape.columns) model.StartKolom = 1;
  if (model.StartRij < 1 || model.StartRij > shape.rows) model.StartRij = 1;
}

}  // namespace

Result<std::string> saved_text(const basSafeCtl& model) {
  basSafeCtl written;  // writing sets counts
  copy_tableau(written, model);
  TextStore store;
  TextFile file = TRY(TextFile::open(store, any_name, TextFile::Mode::Output));
  TRY(write_tableau(written, file));
  return std::move(store.text);
}

Result<> restore_tableau(basSafeCtl& model, std::string_view text) {
  basSafeCtl read;
  read.Breuken = model.Breuken;
  TextStore store{std::string(text)};
  TextFile file = TRY(TextFile::open(store, any_name, TextFile::Mode::Input));
  const std::string header = TRY(file.read_line());
  if (TRY(read_after_header(read, header, file)) != TableauRead::Read) return fail(ErrorNumber::BadFileMode);
  const Shape shape = TRY(read.shape());
  keep_in_sight(read, shape);
  copy_tableau(model, read);
  return {};
}

}  // namespace tabulon
