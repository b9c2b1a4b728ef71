// Any bytes as a tableau file, and the operations on whatever model that leaves. What must hold is checked by
// require(); the first failure stops the run.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "files/tableau_file.h"
#include "hosts/headless/memory_files.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace {

using namespace tabulon;
using platform::MemoryFiles;
using platform::TextFile;

void require(bool holds) {
  if (!holds) std::abort();
}

template <class T>
bool ended_in(const Result<T>& result, ErrorNumber number) {
  return !result && result.error().number == number;
}

Result<TableauRead> read(basSafeCtl& model, MemoryFiles& files) {
  auto file = TextFile::open(files, "a.tbl", TextFile::Mode::Input);
  require(file.has_value());
  const std::string header = TRY(file->read_line());
  return read_after_header(model, header, *file);
}

Result<> write(basSafeCtl& model, MemoryFiles& files) {
  auto file = TextFile::open(files, "a.tbl", TextFile::Mode::Output);
  require(file.has_value());
  return write_tableau(model, *file);
}

void check_outcome(const Result<TableauRead>& outcome, const basSafeCtl& model) {
  if (!outcome)
    require(ended_in(outcome, ErrorNumber::InputPastEnd) || ended_in(outcome, ErrorNumber::Overflow) ||
            ended_in(outcome, ErrorNumber::SubscriptOutOfRange));
  else if (*outcome == TableauRead::Read)
    require(model.shape().has_value());
  else
    require(model.NrTableau == basSafeCtl{}.NrTableau);
}

void check_finite(const basSafeCtl& model, Shape shape) {
  for (const TableauState* const tableau : {&model.current, &model.first}) {
    require(tableau->row_F().all_finite(shape.columns));
    for (int row = 1; row <= shape.rows; ++row) require(tableau->row(row).all_finite(shape.columns));
  }
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
  const std::string bytes = files.contents["a.tbl"];
  if (const auto shape = model.shape()) check_lines(bytes, *shape);
  basSafeCtl back;
  const auto done = read(back, files);
  require(done && *done == TableauRead::Read);
  require(write(back, files) && files.contents["a.tbl"] == bytes);
}

template <class T>
void check_operation(const basSafeCtl& model, const Result<T>& done) {
  require(done || ended_in(done, ErrorNumber::SubscriptOutOfRange) || ended_in(done, ErrorNumber::Overflow));
  if (const auto shape = model.shape()) check_finite(model, *shape);
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
  files.contents["a.tbl"] = std::string(reinterpret_cast<const char*>(data), size);
  basSafeCtl model;
  check_outcome(read(model, files), model);
  check_written(model);
  work(model);
  model.Breuken = !model.Breuken;
  work(model);
  return 0;
}
