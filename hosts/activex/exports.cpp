// The functions that the system calls: for the class object, and for registration.
#include <windows.h>

#include <olectl.h>

#include <string_view>

#include "hosts/activex/com.h"
#include "hosts/activex/library.h"
#include "hosts/activex/lpctrl_object.h"
#include "hosts/activex/registration.h"

namespace tabulon::activex {

namespace {

class ClassFactory final : public Counted<IClassFactory> {
 public:
  static HRESULT create(REFIID id, void** out) {
    auto* const made = new ClassFactory;
    const HRESULT answer = made->QueryInterface(id, out);
    made->Release();
    return answer;
  }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const Offered offered[] = {{&IID_IUnknown, this}, {&IID_IClassFactory, this}};
    return answer_query(offered, id, out);
  }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    return outer ? CLASS_E_NOAGGREGATION : LPctrlObject::create(id, out);
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    if (!lock && library().locks == 0) return E_FAIL;
    const long change = lock ? 1 : -1;
    library().locks += change;
    library().users += change;
    return S_OK;
  }

 private:
  ClassFactory() = default;

  LibraryUser keeps_library_;
};

}  // namespace

}  // namespace tabulon::activex

using namespace tabulon::activex;

STDAPI DllGetClassObject(REFCLSID which, REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return which == CLSID_LPctrl ? ClassFactory::create(id, out) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return library().users == 0 ? S_OK : S_FALSE;
}

// For all users; without the right to do that, for the current user.
STDAPI DllRegisterServer() {
  const HRESULT answer = register_library(Whose::Machine);
  return answer == HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED) ? register_library(Whose::Person) : answer;
}

STDAPI DllUnregisterServer() {
  const HRESULT of_person = unregister_library(Whose::Person),
                of_machine = unregister_library(Whose::Machine);
  return FAILED(of_machine) ? of_machine : of_person;
}

// "user" registers for the current user, no text for all users.
STDAPI DllInstall(BOOL install, LPCWSTR words) {
  const std::wstring_view who = words ? words : L"";
  const bool is_for_person = who == L"user";
  if (!who.empty() && !is_for_person) return E_INVALIDARG;
  const Whose whose = is_for_person ? Whose::Person : Whose::Machine;
  return install ? register_library(whose) : unregister_library(whose);
}
