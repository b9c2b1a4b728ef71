// What the C and C++ libraries ask of an operating system, for a module that has none.
//
// The libraries write a last message to standard error and abort when a promise of theirs is broken. In a
// page there is no standard error: the message is dropped and the abort is a trap, which the page sees as a
// WebAssembly.RuntimeError. So the module imports no system calls, and the packaging checks that.
#include <__verbose_abort>
#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" {

void abort() {
  __builtin_trap();
}

void _Exit(int) {
  __builtin_trap();
}

// The C++ library words a last message before it aborts, with printf; without these it would bring printf
// along.
void abort_message(const char*, ...) {
  __builtin_trap();
}
[[noreturn]] void __abort_message(const char*, ...) {
  __builtin_trap();
}

// The three ways in which a FILE reaches the system.
std::size_t __stdio_write(FILE*, const unsigned char*, std::size_t length) {
  return length;
}

off_t __stdio_seek(FILE*, off_t, int) {
  return -1;
}

int __stdio_close(FILE*) {
  return 0;
}

// Libraries that were built with stack protection compare a copy of the guard at the end of a function.
std::uintptr_t __stack_chk_guard = 0x00000aff;

[[noreturn]] void __stack_chk_fail() {
  __builtin_trap();
}

}  // extern "C"

_LIBCPP_BEGIN_NAMESPACE_STD
[[noreturn]] void __libcpp_verbose_abort(const char*, ...) {
  __builtin_trap();
}
_LIBCPP_END_NAMESPACE_STD
