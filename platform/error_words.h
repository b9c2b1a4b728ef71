// What a script's author reads of a run-time error, from platform/run_time_errors.def.
#pragma once

#include <string_view>

#include "platform/run_time_error.h"

namespace tabulon::platform {

constexpr std::string_view words_of(ErrorNumber error) {
  switch (error) {
#define RUN_TIME_ERROR(name, number, about, given, words) \
  case ErrorNumber::name:                                 \
    return about " " words;
#include "platform/run_time_errors.def"
  }
#define UNKNOWN_ERROR(words) return words;
#include "platform/run_time_errors.def"
}

}  // namespace tabulon::platform
