// The processor's arithmetic as the control wants it, whatever the program around it has set: rounding to the
// nearest Double, all digits in the functions of the C library, nothing flushed to zero, and no traps. The
// program's own way comes back afterwards.
//
//   const OwnArithmetic arithmetic;
//   return control.strSoortGetal(kind, number);
#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulon::activex {

class OwnArithmetic {
 public:
  OwnArithmetic();
  OwnArithmetic(const OwnArithmetic&) = delete;
  OwnArithmetic& operator=(const OwnArithmetic&) = delete;
  ~OwnArithmetic();

 private:
  // Of the old arithmetic, in which the C library computes: its control word and what else belongs to it.
  std::byte old_environment_[28];
  std::uint32_t vector_state_;
};

}  // namespace tabulon::activex
