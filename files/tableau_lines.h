// Items of a tableau file, one a line. The first failure stops the rest: later items are not tried.
#pragma once

#include <string>
#include <string_view>

#include "control/basSafeCtl.h"
#include "platform/text_file.h"

namespace tabulon {

class TableauWriter {
 public:
  explicit TableauWriter(platform::TextFile& file) : file_(file) {}

  void text(std::string_view text);
  void whole(std::int16_t number);
  void real(double number);
  // The four lines of a cell, as it is and as it was first.
  void cell(const CellRow& current, const CellRow& first, int column);
  const Result<>& result() const { return result_; }

 private:
  platform::TextFile& file_;
  Result<> result_;
};

class TableauReader {
 public:
  explicit TableauReader(platform::TextFile& file) : file_(file) {}

  std::string text();
  // Leaves `number` alone when there is none to be read.
  void whole(std::int16_t& number);
  double real();
  void cell(CellRow& current, CellRow& first, int column);
  const Result<>& result() const { return result_; }

 private:
  platform::TextFile& file_;
  Result<> result_;
};

}  // namespace tabulon
