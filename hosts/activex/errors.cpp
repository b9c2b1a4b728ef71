#include "hosts/activex/errors.h"

#include <Tabulon_idl.h>

#include <string_view>

#include "hosts/activex/com.h"
#include "platform/error_words.h"

namespace tabulon::activex {

namespace {

constexpr std::string_view source = "Tabulon.LPctrl";

void leave_for_thread(const std::string& description) {
  ComPtr<ICreateErrorInfo> created;
  if (FAILED(CreateErrorInfo(created.receive()))) return;
  created->SetGUID(IID_ILPctrl);
  created->SetSource(wide(source).data());
  created->SetDescription(wide(description).data());
  if (const auto info = ComPtr<IErrorInfo>::from(created.get(), IID_IErrorInfo)) SetErrorInfo(0, info.get());
}

}  // namespace

HRESULT result_of(const RunTimeError& error) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(error.number));
}

std::string description_of(const RunTimeError& error) {
  return (error.subject.empty() ? "" : error.subject + ": ") + std::string(platform::words_of(error.number));
}

HRESULT raise(const RunTimeError& error, EXCEPINFO* exception) {
  if (!exception) {
    leave_for_thread(description_of(error));
    return result_of(error);
  }
  *exception = {};
  exception->scode = result_of(error);
  exception->bstrSource = new_text(source);
  exception->bstrDescription = new_text(description_of(error));
  return DISP_E_EXCEPTION;
}

}  // namespace tabulon::activex
