// A form for scripts: a program that the script host runs has no window of its own, so this library gives it
// one with the control on it, and a person who sits at it.
//
//   Set form = CreateObject("TabulonTests.Form")
//   form.Control.prmBigM = 50                      ' the control on it
//   form.Play "press Alt+W O" & vbLf & "see form frmMelding" & vbLf & "press Enter"
//   form.Text("txtRL", 1)                          ' what a window shows
//   form.Close
//
// Play takes the commands of a scenario and answers with what was not as they say, or nothing. It returns
// when they have all been played, so they must end with no form or menu open.
#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/activex/text.h"
#include "tests/activex/com_player.h"
#include "tests/activex/container.h"
#include "tests/activex/eyes.h"
#include "tests/activex/person.h"

namespace tabulon::activex {
namespace {

constexpr GUID form_id{0x4D0C2F7B, 0x93A5, 0x4E61, {0xB0, 0x2E, 0x7A, 0x15, 0xC8, 0x64, 0xD9, 0x3F}};
constexpr wchar_t form_id_text[] = L"{4D0C2F7B-93A5-4E61-B02E-7A15C864D93F}";
constexpr wchar_t form_name[] = L"TabulonTests.Form";

LONG objects = 0;
HINSTANCE module = nullptr;

BSTR new_text(const std::string& text) {
  return SysAllocString(wide(text).c_str());
}

// A text that is given, also one in a variable.
std::string text_of(VARIANT& given) {
  VARIANT text;
  VariantInit(&text);
  std::string found;
  if (SUCCEEDED(VariantChangeType(&text, &given, 0, VT_BSTR)))
    found = narrow({text.bstrVal, SysStringLen(text.bstrVal)});
  VariantClear(&text);
  return found;
}

// The window's thread works on until the other has ended.
void handle_messages_until(HANDLE ended) {
  while (MsgWaitForMultipleObjects(1, &ended, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
}

class Form final : public IDispatch {
 public:
  Form() {
    InterlockedIncrement(&objects);
    play("show");
  }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    if (*out) AddRef();
    return *out ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    for (ids[0] = 0; ids[0] < member_count; ++ids[0])
      if (lstrcmpiW(names[0], members[ids[0]].name) == 0) return S_OK;
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    if (member < 0 || member >= member_count) return DISP_E_MEMBERNOTFOUND;
    std::vector<VARIANT> arguments(given->rgvarg, given->rgvarg + given->cArgs);
    VARIANT unwanted;
    VariantInit(&unwanted);
    const HRESULT answer = (this->*members[member].run)(arguments, result ? *result : unwanted);
    VariantClear(&unwanted);
    return answer;
  }

 private:
  // The arguments come last first, as they are given.
  using Arguments = std::vector<VARIANT>;
  struct Member {
    const wchar_t* name;
    HRESULT (Form::*run)(Arguments& arguments, VARIANT& result);
  };
  static constexpr DISPID member_count = 4;
  static const Member members[member_count];

  ~Form() { InterlockedDecrement(&objects); }

  HRESULT control(Arguments& arguments, VARIANT& result) {
    if (!arguments.empty()) return DISP_E_BADPARAMCOUNT;
    if (!container_ || !container_->control()) return E_FAIL;
    result.vt = VT_DISPATCH;
    return container_->control()->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&result.pdispVal));
  }
  HRESULT play(Arguments& arguments, VARIANT& result) {
    if (arguments.size() != 1) return DISP_E_BADPARAMCOUNT;
    if (!container_) return E_FAIL;
    result.vt = VT_BSTR;
    result.bstrVal = new_text(play(text_of(arguments[0])));
    return S_OK;
  }
  HRESULT text(Arguments& arguments, VARIANT& result) {
    if (arguments.empty() || arguments.size() > 2) return DISP_E_BADPARAMCOUNT;
    if (!container_) return E_FAIL;
    const int index = arguments.size() == 2 ? std::atoi(text_of(arguments.front()).c_str()) : 0;
    const std::optional<Seen> seen = Eyes(container_->surface()).find(text_of(arguments.back()), index);
    if (!seen || !seen->shown) return DISP_E_BADINDEX;
    result.vt = VT_BSTR;
    result.bstrVal = new_text(seen->text);
    return S_OK;
  }
  HRESULT close(Arguments& arguments, VARIANT&) {
    if (!arguments.empty()) return DISP_E_BADPARAMCOUNT;
    player_.reset();
    person_.reset();
    container_.reset();
    return S_OK;
  }

  struct Play {
    ComPlayer& player;
    std::string script;
  };
  static DWORD WINAPI play_all(void* data) {
    const auto& play = *static_cast<Play*>(data);
    for (const scenarios::Command& command : scenarios::read_scenario(play.script)) play.player.play(command);
    return 0;
  }
  // What was not as the script says.
  std::string play(const std::string& script) {
    const std::size_t before = player_->failures().size();
    Play play{*player_, script};
    HANDLE const thread = CreateThread(nullptr, 0, play_all, &play, 0, nullptr);
    handle_messages_until(thread);
    CloseHandle(thread);
    std::string failures;
    for (std::size_t at = before; at < player_->failures().size(); ++at)
      failures += player_->failures()[at] + "\n";
    return failures;
  }

  ULONG references_ = 1;
  std::unique_ptr<Container> container_ = std::make_unique<Container>(Container::Options{});
  std::unique_ptr<Person> person_ = std::make_unique<Person>(container_->thread());
  std::unique_ptr<ComPlayer> player_ =
      std::make_unique<ComPlayer>(*container_, *person_, ComPlayer::Options{});
};

const Form::Member Form::members[member_count] = {
    {L"Control", &Form::control}, {L"Play", &Form::play}, {L"Text", &Form::text}, {L"Close", &Form::close}};

class Factory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    *out = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    auto* const form = new Form;
    const HRESULT answer = form->QueryInterface(id, out);
    form->Release();
    return answer;
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

Factory factory;

// ---- The registry

bool write_key(const std::wstring& key, const std::wstring& text) {
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace
}  // namespace tabulon::activex

using namespace tabulon::activex;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) module = instance;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID of, REFIID id, void** out) {
  *out = nullptr;
  return of == form_id ? factory.QueryInterface(id, out) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return objects == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(module, path, MAX_PATH);
  const bool written = write_key(std::wstring(form_name) + L"\\CLSID", form_id_text) &&
                       write_key(std::wstring(L"CLSID\\") + form_id_text + L"\\InprocServer32", path);
  return written ? S_OK : SELFREG_E_CLASS;
}

STDAPI DllUnregisterServer() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, form_name);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, (std::wstring(L"CLSID\\") + form_id_text).c_str());
  return S_OK;
}
}
