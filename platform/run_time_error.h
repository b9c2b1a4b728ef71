// The numbered run-time errors, and the result type that carries them.
//
//   Result<std::int16_t> count = numbers::to_int16("drie");
//   if (!count) page.report(count.error());   // error 13
//
// The numbers are those that a host's script knows: a script gets an Error whose `number` is this
// number, COM gets the HRESULT 0x800A0000 + number.
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <utility>

namespace tabulon {

enum class ErrorNumber : std::int16_t {
  Overflow = 6,             // a number outside 16 bits
  SubscriptOutOfRange = 9,  // a row outside 1..10, a column outside 1..30, a list item outside 1..300
  TypeMismatch = 13,        // a text that is no number
  BadFileName = 52,         // a file name with "*" or "?"
  FileNotFound = 53,        // no such file
  BadFileMode = 54,         // a write to a file opened for input, or a read from one opened for output
  DiskFull = 61,            // the file system has no room
  InputPastEnd = 62,        // a line asked for when the file has no more
  PermissionDenied = 70,    // the file system refuses the file
  PathNotFound = 76,        // a folder on the way does not exist
};

// What went wrong, and with what: `subject` is the parameter, property or file that the caller named,
// or empty where the number says enough.
struct RunTimeError {
  ErrorNumber number{};
  std::string subject{};

  friend bool operator==(const RunTimeError&, const RunTimeError&) = default;
};

template <class T = void>
using Result = std::expected<T, RunTimeError>;

inline std::unexpected<RunTimeError> fail(ErrorNumber number, std::string subject = {}) {
  return std::unexpected(RunTimeError{number, std::move(subject)});
}

}  // namespace tabulon
