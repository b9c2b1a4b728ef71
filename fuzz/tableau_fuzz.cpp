// Any bytes as a tableau file, and the operations on whatever model that leaves. What must hold is checked by
// require(); the first failure stops the run.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/reading.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace {

using namespace tabulon;
using namespace tabulon::fuzz;
using platform::MemoryFiles;
using platform::TextFile;

Result<> write(basSafeCtl& model, MemoryFiles& files) {
  auto file = TextFile::open(files, file_name, TextFile::Mode::Output);
  require(file.has_value());
  return write_tableau(model, *file);
}

// One item a line, whatever the texts hold.
void check_lines(const std::string& bytes, Shape shape) {
  const std::ptrdiff_t lines = 15 + 4 * shape.columns + 2 * shape.rows * (2 * shape.columns + 3);
  require(std::ranges::count(bytes, '\n') == lines && std::ranges::count(bytes, '\r') == lines);
  require(!bytes.contains('\0'));
}

// A written tableau is read, and written again it is the same file.
void check_written(basSafeCtl& model) {
  MemoryFiles files;
  if (const auto written = write(model, files); !written) {
    require(ended_in(written, ErrorNumber::SubscriptOutOfRange) || ended_in(written, ErrorNumber::Overflow));
    return;
  }
  const std::string bytes = files.contents[file_name];
  if (const auto shape = model.shape()) check_lines(bytes, *shape);
  basSafeCtl back;
  const auto done = read(back, files);
  require(done && *done == TableauRead::Read);
  require(write(back, files) && files.contents[file_name] == bytes);
}

template <class T>
void check_operation(const basSafeCtl& model, const Result<T>& done) {
  require(done || ended_in(done, ErrorNumber::SubscriptOutOfRange) || ended_in(done, ErrorNumber::Overflow));
  if (const auto shape = model.shape()) require_finite(model, shape->rows, shape->columns);
}

void sweep_at_found_pivot(basSafeCtl& model) {
  const auto shape = model.shape();
  if (!shape) return;
  const PivotChoice choice = find_pivot(model, *shape);
  require((choice.search == PivotSearch::Found) == (choice.pivot.row != 0 && choice.pivot.column != 0));
  require(choice.pivot.row <= shape->rows && choice.pivot.column <= shape->columns);
  model.PivotRij = static_cast<std::int16_t>(choice.pivot.row);
  model.PivotKolom = static_cast<std::int16_t>(choice.pivot.column);
  check_operation(model, sweep_column(model));
}

void work(basSafeCtl& model) {
  check_operation(model, rewrite_texts(model));
  sweep_at_found_pivot(model);
  model.NormeerKolom = model.StartKolom;
  check_operation(model, normalise_column(model));
  check_operation(model, canonicalise(model));
  check_operation(model, optimise(model, 3));
  check_written(model);
  check_operation(model, restore_first_tableau(model));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryFiles files;
  files.contents[file_name] = std::string(reinterpret_cast<const char*>(data), size);
  basSafeCtl model;
  check_reading(read(model, files), model);
  check_written(model);
  work(model);
  model.Breuken = !model.Breuken;
  work(model);
  return 0;
}
