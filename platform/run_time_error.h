// The numbered run-time errors, and the result type that carries them.
//
//   Result<std::int16_t> count = numbers::to_int16("drie");
//   if (!count) page.report(count.error());   // error 13
//   const std::int16_t rows = TRY(numbers::to_int16(text));   // or its error, to whoever called
//
// The numbers are those that a host's script knows: a script gets an Error whose `number` is this
// number, COM gets the HRESULT 0x800A0000 + number.
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

// What each is about stands in the table.
enum class ErrorNumber : std::int16_t {
#define RUN_TIME_ERROR(name, number, about, given, words) name = number,
#include "platform/run_time_errors.def"
};

// What went wrong, and with what: `subject` is the parameter, property or file that the caller named,
// or empty where the number says enough.
struct RunTimeError {
  ErrorNumber number{};
  std::string subject{};

  friend bool operator==(const RunTimeError&, const RunTimeError&) = default;
};

// A value, or why there is none. Nobody drops it unseen: the compiler asks for a look at it.
template <class T = void>
class [[nodiscard]] Result : public std::expected<T, RunTimeError> {
  using Base = std::expected<T, RunTimeError>;

 public:
  using Base::Base;

  // The same, an error that names nothing yet naming what it is about.
  Result about(std::string_view subject) && {
    if (!*this && this->error().subject.empty()) this->error().subject = subject;
    return std::move(*this);
  }
};

inline std::unexpected<RunTimeError> fail(ErrorNumber number, std::string subject = {}) {
  return std::unexpected(RunTimeError{number, std::move(subject)});
}

}  // namespace tabulon

// The value of a Result; an error is passed on to whoever called the function that this stands in.
//
//   const Shape shape = TRY(model.shape());
#define TRY(...)                                                                \
  __extension__({                                                               \
    auto tried_result = (__VA_ARGS__);                                          \
    if (!tried_result) return std::unexpected(std::move(tried_result).error()); \
    *std::move(tried_result);                                                   \
  })
