// A tableau file that is read, whatever its bytes.
//
//   basSafeCtl model;
//   check_reading(read(model, files), model);
#pragma once

#include <string>

#include "files/tableau_file.h"
#include "fuzz/require.h"
#include "hosts/headless/memory_files.h"

namespace tabulon::fuzz {

inline constexpr const char* file_name = "a.tbl";

inline Result<TableauRead> read(basSafeCtl& model, platform::MemoryFiles& files) {
  auto file = platform::TextFile::open(files, file_name, platform::TextFile::Mode::Input);
  require(file.has_value());
  const std::string header = TRY(file->read_line());
  return read_after_header(model, header, *file);
}

// Only what the reader names goes wrong, and a file that was read has a shape that the model can hold.
inline void check_reading(const Result<TableauRead>& outcome, const basSafeCtl& model) {
  if (!outcome)
    require(ended_in(outcome, ErrorNumber::InputPastEnd) || ended_in(outcome, ErrorNumber::Overflow) ||
            ended_in(outcome, ErrorNumber::SubscriptOutOfRange));
  else if (*outcome == TableauRead::Read)
    require(model.shape().has_value());
  else
    require(model.NrTableau == basSafeCtl{}.NrTableau);
}

}  // namespace tabulon::fuzz
