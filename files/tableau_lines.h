// Items of a tableau file, one a line. The first failure stops the rest: later items are not tried.
#pragma once

#include <string>
#include <string_view>

#include "control/basSafeCtl.h"
#include "platform/text_file.h"

namespace tabulon {

// What writing and reading share.
class TableauLines {
 public:
  // Whether to go on with the cell or row of this number: not behind a failure, and not beyond what the
  // storage holds, which is error 9.
  bool goes_on_at(int number, int most);
  const Result<>& result() const { return result_; }

 protected:
  explicit TableauLines(platform::TextFile& file) : file_(file) {}

  platform::TextFile& file_;
  Result<> result_;
};

class TableauWriter : public TableauLines {
 public:
  explicit TableauWriter(platform::TextFile& file) : TableauLines(file) {}

  void text(std::string_view text);
  void whole(std::int16_t number);
  void real(double number);
  // The four lines of a cell, as it is and as it was first.
  void cell(const CellRow& current, const CellRow& first, int column);
  void basis(const TableauState& current, const TableauState& first, int row);
};

class TableauReader : public TableauLines {
 public:
  explicit TableauReader(platform::TextFile& file) : TableauLines(file) {}

  std::string text();
  // Leaves `number` alone when there is none to be read.
  void whole(std::int16_t& number);
  double real();
  void cell(CellRow& current, CellRow& first, int column);
  void basis(TableauState& current, TableauState& first, int row);
};

}  // namespace tabulon
