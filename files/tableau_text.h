// A tableau as the text that Save writes, without a file.
//
//   const std::string kept = saved_text(model);
//   if (auto done = restore_tableau(model, kept); !done) return done;
//
// The texts are the bytes of a ".tbl" file: Latin text of 8 bits, lines that end with CR LF.
#pragma once

#include <string>
#include <string_view>

#include "control/basSafeCtl.h"

namespace tabulon {

// Error 6 or 9 as for write_tableau.
Result<std::string> saved_text(const basSafeCtl& model);

// Puts a saved tableau into the model, and changes nothing when that fails: error 54 for a text with another
// header; 6, 9 and 62 as for read_after_header, and 9 for counts that make no tableau.
Result<> restore_tableau(basSafeCtl& model, std::string_view text);

}  // namespace tabulon
