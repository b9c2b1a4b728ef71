// Run-time errors as COM tells them: a number, words, and who says it.
//
//   if (!result) return raise(result.error(), exception);
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "platform/run_time_error.h"

namespace tabulon::activex {

// 0x800A0000 + the error's number.
HRESULT result_of(const RunTimeError& error);
// What a script's author reads.
std::string description_of(const RunTimeError& error);

// Leaves the error in `exception` where there is one (then the answer is DISP_E_EXCEPTION), else as the
// thread's error object (then it is the error's own result).
HRESULT raise(const RunTimeError& error, EXCEPINFO* exception);
inline HRESULT answer(const Result<>& result, EXCEPINFO* exception) {
  return result ? S_OK : raise(result.error(), exception);
}

}  // namespace tabulon::activex
