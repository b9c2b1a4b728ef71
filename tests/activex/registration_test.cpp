// The control in the registry: what regsvr32 writes, and that it removes all of it again.
#include <optional>

#include "hosts/activex/text.h"
#include "tests/activex/com.h"

namespace tabulon::client {
namespace {

const wchar_t class_id[] = L"{7B0E9C1A-4D52-4C7E-9E0F-5A9D3C61B8F4}";
const wchar_t library_text[] = L"{B4A6D0F3-21C8-4B0B-8E57-6C1F0A94D2E7}";

std::optional<std::wstring> value(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[512];
  DWORD bytes = sizeof text;
  if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes) != ERROR_SUCCESS) return {};
  return text;
}

bool has_key(HKEY root, const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
  RegCloseKey(opened);
  return true;
}

class Registration : public ComTest {
 protected:
  using Register = HRESULT(STDAPICALLTYPE*)();
  using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

  Registration() {
    library_ =
        LoadLibraryW(value(HKEY_CLASSES_ROOT, class_key() + L"\\InprocServer32").value_or(L"").c_str());
    EXPECT_TRUE(library_) << "Tabulon.ocx is not registered";
  }
  // Later tests find the control registered, whatever this one did.
  ~Registration() override {
    if (library_) EXPECT_EQ(code(run("DllRegisterServer")), code(S_OK));
    if (library_) FreeLibrary(library_);
  }
  static std::wstring class_key() { return std::wstring(L"CLSID\\") + class_id; }
  static std::wstring library_key() { return std::wstring(L"TypeLib\\") + library_text; }
  template <class Function>
  Function function(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }
  HRESULT run(const char* name) {
    const auto found = function<Register>(name);
    return found ? found() : E_NOTIMPL;
  }

  HMODULE library_ = nullptr;
};

TEST_F(Registration, NamesTheClassBothWays) {
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl\\CLSID"), class_id);
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl.1\\CLSID"), class_id);
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl\\CurVer"), L"Tabulon.LPctrl.1");
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, class_key() + L"\\ProgID"), L"Tabulon.LPctrl.1");
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, class_key() + L"\\VersionIndependentProgID"), L"Tabulon.LPctrl");
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, class_key() + L"\\TypeLib"), library_text);
}

TEST_F(Registration, SaysThatItIsAControlAndHowItIsShown) {
  EXPECT_TRUE(has_key(HKEY_CLASSES_ROOT, class_key() + L"\\Control"));
  EXPECT_TRUE(has_key(HKEY_CLASSES_ROOT, class_key() + L"\\MiscStatus"));
  const auto path = value(HKEY_CLASSES_ROOT, class_key() + L"\\InprocServer32");
  ASSERT_TRUE(path);
  EXPECT_TRUE(path->ends_with(L"Tabulon.ocx")) << activex::narrow(*path);
  // All controls live on the process's first thread, which owns their windows.
  EXPECT_FALSE(value(HKEY_CLASSES_ROOT, class_key() + L"\\InprocServer32", L"ThreadingModel"));
}

TEST_F(Registration, HasTheTypeLibrary) {
  EXPECT_TRUE(has_key(HKEY_CLASSES_ROOT, library_key() + L"\\1.0\\0\\win64"));
}

TEST_F(Registration, IsSafeInTheWordsOfTheRegistryToo) {
  for (const wchar_t* category : {L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",   // for scripting
                                  L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"})  // for initialising
    EXPECT_TRUE(has_key(HKEY_CLASSES_ROOT, class_key() + L"\\Implemented Categories\\" + category));
}

TEST_F(Registration, CanBeDoneTwice) {
  EXPECT_EQ(code(run("DllRegisterServer")), code(S_OK));
  EXPECT_EQ(code(run("DllRegisterServer")), code(S_OK));
  EXPECT_EQ(value(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl\\CLSID"), class_id);
}

TEST_F(Registration, GoesWithoutATrace) {
  EXPECT_EQ(code(run("DllUnregisterServer")), code(S_OK));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, class_key()));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, library_key()));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl"));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, L"Tabulon.LPctrl.1"));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, L"Interface\\{2C95E1B8-6F3A-4E0D-A1C4-93D7B52F8E06}"));
  CLSID id{};
  EXPECT_HRESULT_FAILED(CLSIDFromProgID(L"Tabulon.LPctrl", &id));
  EXPECT_EQ(code(run("DllUnregisterServer")), code(S_OK));
}

TEST_F(Registration, CanBeForOnePersonAlone) {
  const auto install = function<Install>("DllInstall");
  ASSERT_TRUE(install);
  EXPECT_EQ(code(run("DllUnregisterServer")), code(S_OK));
  EXPECT_EQ(code(install(TRUE, L"user")), code(S_OK));
  const std::wstring own = L"Software\\Classes\\";
  EXPECT_EQ(value(HKEY_CURRENT_USER, own + L"Tabulon.LPctrl\\CLSID"), class_id);
  EXPECT_TRUE(has_key(HKEY_CURRENT_USER, own + class_key() + L"\\InprocServer32"));
  EXPECT_TRUE(has_key(HKEY_CURRENT_USER, own + library_key()));
  EXPECT_FALSE(has_key(HKEY_LOCAL_MACHINE, own + class_key()));
  EXPECT_FALSE(has_key(HKEY_LOCAL_MACHINE, own + library_key()));

  EXPECT_EQ(code(install(FALSE, L"user")), code(S_OK));
  EXPECT_FALSE(has_key(HKEY_CURRENT_USER, own + class_key()));
  EXPECT_FALSE(has_key(HKEY_CURRENT_USER, own + library_key()));
  EXPECT_FALSE(has_key(HKEY_CURRENT_USER, own + L"Tabulon.LPctrl"));
  EXPECT_FALSE(has_key(HKEY_CURRENT_USER, own + L"Tabulon.LPctrl.1"));
}

TEST_F(Registration, ByAWordThatItDoesNotKnowIsRefused) {
  const auto install = function<Install>("DllInstall");
  ASSERT_TRUE(install);
  EXPECT_EQ(code(run("DllUnregisterServer")), code(S_OK));
  for (const wchar_t* const word : {L"users", L"machine", L"User"}) {
    EXPECT_EQ(code(install(TRUE, word)), code(E_INVALIDARG));
    EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, class_key()));
  }
  EXPECT_EQ(code(install(TRUE, L"")), code(S_OK));
  EXPECT_EQ(code(install(FALSE, L"users")), code(E_INVALIDARG));
  EXPECT_TRUE(has_key(HKEY_CLASSES_ROOT, class_key()));
  EXPECT_EQ(code(install(FALSE, nullptr)), code(S_OK));
  EXPECT_FALSE(has_key(HKEY_CLASSES_ROOT, class_key()));
}

}  // namespace
}  // namespace tabulon::client
