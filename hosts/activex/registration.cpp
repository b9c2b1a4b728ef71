#include "hosts/activex/registration.h"

#include <olectl.h>

#include <Tabulon_idl.h>

#include <string>
#include <vector>

#include "hosts/activex/com.h"
#include "hosts/activex/lpctrl_object.h"
#include "hosts/activex/module.h"

namespace tabulon::activex {

namespace {

constexpr wchar_t program[] = L"Tabulon.LPctrl", program_with_version[] = L"Tabulon.LPctrl.1";
constexpr wchar_t control_name[] = L"Tabulon LPctrl";
constexpr wchar_t library_name[] = L"Tabulon: linear programming by the Simplex method";
// The system's marshalers, for a dual interface and for one that is an IDispatch only.
constexpr wchar_t dual_marshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t dispatch_marshaler[] = L"{00020420-0000-0000-C000-000000000046}";
// Component categories: control, safe for scripting, safe for initialising.
constexpr const wchar_t* categories[] = {L"{40FC6ED4-2438-11CF-A3DB-080036F12502}",
                                         L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
                                         L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"};
constexpr bool is_64_bit = sizeof(void*) == 8;
constexpr const wchar_t* own_size = is_64_bit ? L"win64" : L"win32";
constexpr const wchar_t* other_size = is_64_bit ? L"win32" : L"win64";

std::wstring class_key() {
  return L"CLSID\\" + text_of(CLSID_LPctrl);
}
std::wstring interface_key(REFIID id) {
  return L"Interface\\" + text_of(id);
}
std::wstring library_key() {
  return L"TypeLib\\" + text_of(LIBID_Tabulon);
}
std::wstring library_place(const wchar_t* size) {
  return library_key() + L"\\1.0\\0\\" + size;
}

// A key and one of its values; without a name, the default value.
struct Entry {
  std::wstring key;
  std::wstring text;
  const wchar_t* name = nullptr;
};

void add_interface(std::vector<Entry>& entries, REFIID id, const wchar_t* name, const wchar_t* marshaler) {
  const std::wstring key = interface_key(id);
  entries.push_back({key, name});
  entries.push_back({key + L"\\ProxyStubClsid32", marshaler});
  entries.push_back({key + L"\\TypeLib", text_of(LIBID_Tabulon)});
  entries.push_back({key + L"\\TypeLib", L"1.0", L"Version"});
}

std::vector<Entry> all_entries() {
  const std::wstring path = module_path();
  const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  const std::wstring of_class = class_key(), class_id = text_of(CLSID_LPctrl);
  // No threading model: all controls live on the program's first thread, because they share one model.
  std::vector<Entry> entries{
      {of_class, control_name},
      {of_class + L"\\InprocServer32", path},
      {of_class + L"\\ProgID", program_with_version},
      {of_class + L"\\VersionIndependentProgID", program},
      {of_class + L"\\TypeLib", text_of(LIBID_Tabulon)},
      {of_class + L"\\Version", L"1.0"},
      {of_class + L"\\Control", L""},
      {of_class + L"\\MiscStatus", L"0"},
      {of_class + L"\\MiscStatus\\1", std::to_wstring(misc_status)},
      {of_class + L"\\Verb\\0", L"&Bewerken,0,2"},
      {program, control_name},
      {std::wstring(program) + L"\\CLSID", class_id},
      {std::wstring(program) + L"\\CurVer", program_with_version},
      {program_with_version, control_name},
      {std::wstring(program_with_version) + L"\\CLSID", class_id},
      {library_key() + L"\\1.0", library_name},
      {library_key() + L"\\1.0\\FLAGS", L"0"},
      {library_key() + L"\\1.0\\HELPDIR", folder},
      {library_place(own_size), path},
  };
  for (const wchar_t* const category : categories)
    entries.push_back({of_class + L"\\Implemented Categories\\" + category, L""});
  add_interface(entries, IID_ILPctrl, L"ILPctrl", dual_marshaler);
  add_interface(entries, DIID__LPctrlEvents, L"_LPctrlEvents", dispatch_marshaler);
  return entries;
}

// The branch of the registry for classes.
class Classes {
 public:
  explicit Classes(Whose whose) : root_(whose == Whose::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

  LSTATUS write(const Entry& entry) const {
    HKEY key = nullptr;
    const LSTATUS opened =
        RegCreateKeyExW(root_, full(entry.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
    if (opened != ERROR_SUCCESS) return opened;
    const auto bytes = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
    const LSTATUS written =
        RegSetValueExW(key, entry.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(entry.text.c_str()), bytes);
    RegCloseKey(key);
    return written;
  }
  bool has(const std::wstring& name) const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root_, full(name).c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
  LSTATUS remove(const std::wstring& name) const {
    const LSTATUS removed = RegDeleteTreeW(root_, full(name).c_str());
    return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
  }

 private:
  static std::wstring full(const std::wstring& key) { return L"Software\\Classes\\" + key; }
  HKEY root_;
};

}  // namespace

HRESULT register_library(Whose whose) {
  const Classes classes(whose);
  for (const Entry& entry : all_entries())
    if (const LSTATUS written = classes.write(entry); written != ERROR_SUCCESS)
      return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
  return S_OK;
}

HRESULT unregister_library(Whose whose) {
  const Classes classes(whose);
  std::vector<std::wstring> keys{class_key(), interface_key(IID_ILPctrl), interface_key(DIID__LPctrlEvents)};
  if (classes.has(library_place(other_size)))
    keys.push_back(library_place(own_size));
  else
    keys.insert(keys.end(), {library_key(), program, program_with_version});
  LSTATUS result = ERROR_SUCCESS;
  for (const std::wstring& key : keys)
    if (const LSTATUS removed = classes.remove(key); removed != ERROR_SUCCESS) result = removed;
  return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

}  // namespace tabulon::activex
