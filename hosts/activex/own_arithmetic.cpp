#include "hosts/activex/own_arithmetic.h"

#include <xmmintrin.h>

namespace tabulon::activex {

namespace {

// No traps, nearest; 64 bits of precision, for which the C library is written.
constexpr std::uint16_t old_control_word = 0x037F;
constexpr std::uint32_t vector_control = 0x1F80;

}  // namespace

OwnArithmetic::OwnArithmetic() : vector_state_(_mm_getcsr()) {
  __asm__ volatile("fnstenv %0" : "=m"(old_environment_));
  __asm__ volatile("fldcw %0" : : "m"(old_control_word));
  _mm_setcsr(vector_control);
}

// The whole environment, because a flag that a computation has left would trap in a program that wants traps.
OwnArithmetic::~OwnArithmetic() {
  _mm_setcsr(vector_state_);
  __asm__ volatile("fldenv %0" : : "m"(old_environment_));
}

}  // namespace tabulon::activex
