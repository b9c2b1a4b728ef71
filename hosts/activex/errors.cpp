#include "hosts/activex/errors.h"

#include <Tabulon_idl.h>

#include <algorithm>
#include <iterator>

#include "hosts/activex/com.h"

namespace tabulon::activex {

namespace {

constexpr std::string_view source = "Tabulon.LPctrl";

struct Words {
  ErrorNumber number;
  std::string_view text;
};

constexpr Words words[] = {
    {ErrorNumber::Overflow, "het getal past niet; het moet tussen -32768 en 32767 liggen"},
    {ErrorNumber::SubscriptOutOfRange,
     "dit past niet in een tableau van hoogstens 10 rijen en 30 kolommen, of een lijst van 300 getallen"},
    {ErrorNumber::TypeMismatch, "de tekst is geen getal"},
    {ErrorNumber::BadFileName, "dit is geen geldige bestandsnaam"},
    {ErrorNumber::FileNotFound, "het bestand is er niet"},
    {ErrorNumber::BadFileMode, "het bestand is niet hiervoor geopend"},
    {ErrorNumber::DiskFull, "er is geen ruimte meer voor het bestand"},
    {ErrorNumber::InputPastEnd, "het bestand houdt te vroeg op"},
    {ErrorNumber::PermissionDenied, "het bestand mag niet worden geopend"},
    {ErrorNumber::PathNotFound, "de map van het bestand is er niet"},
};

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
  const auto found = std::ranges::find(words, error.number, &Words::number);
  const std::string text(found != std::end(words) ? found->text : "dit kan niet");
  return (error.subject.empty() ? "" : error.subject + ": ") + text;
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
