// Shared by the tests of the COM server: the control as clients create it, by its name in the registry.
//
//   class Monikers : public ComTest {};
//   TEST_F(Monikers, AreNotForControls) {
//     const ComPtr<IOleObject> object = make_as<IOleObject>();
//     EXPECT_EQ(code(object->SetMoniker(OLEWHICHMK_OBJFULL, nullptr)), code(E_NOTIMPL));   // "0x80004001"
//   }
#pragma once

#include <windows.h>
// Must come before what follows.
#include <gtest/gtest.h>
#include <objsafe.h>
#include <ole2.h>
#include <olectl.h>
#include <wrl/client.h>

#include <Tabulon_idl.h>
#include <comutil.h>

#include <string>
#include <string_view>
#include <vector>

// The header of IObjectSafety leaves this out.
__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64)

namespace tabulon::client {

using Microsoft::WRL::ComPtr;

// A result code in hexadecimal.
std::string code(HRESULT result);
// The result code of a run-time error.
constexpr HRESULT run_time_error(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

// The control in pixels, at 96 dots to an inch.
inline constexpr LONG full_width = 600, full_height = 296;

class ComTest : public testing::Test {
 protected:
  ComTest();
  ~ComTest() override;

  // A new control; on failure null, and the test has failed.
  static ComPtr<IUnknown> make();
  // The same, as one of its interfaces.
  template <class Interface>
  static ComPtr<Interface> make_as() {
    return as<Interface>(make());
  }
  template <class Interface, class Any>
  static ComPtr<Interface> as(const ComPtr<Any>& object) {
    ComPtr<Interface> found;
    if (object) {
      EXPECT_HRESULT_SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(found.GetAddressOf())));
    }
    return found;
  }
};

// The lines of the file that the control saves: the only way to see the effect of its write-only properties.
std::vector<std::string> saved_lines(ILPctrl* control);
// One of them, from 0.
std::string saved_line(ILPctrl* control, std::size_t number);

// Late-bound calls, as scripts make them, and their errors.
struct ScriptError {
  HRESULT result = S_OK;  // of the call itself
  EXCEPINFO info{};
  std::wstring description, source;
};

DISPID dispid_of(IDispatch* object, const wchar_t* name);
// The arguments are in the order of the declaration. `value` may be null.
ScriptError invoke(IDispatch* object, const wchar_t* name, WORD flags, std::vector<_variant_t> arguments,
                   _variant_t* value = nullptr);
inline ScriptError put(IDispatch* object, const wchar_t* name, const _variant_t& value) {
  return invoke(object, name, DISPATCH_PROPERTYPUT, {value});
}
inline ScriptError call(IDispatch* object, const wchar_t* name, std::vector<_variant_t> arguments = {},
                        _variant_t* value = nullptr) {
  return invoke(object, name, DISPATCH_METHOD, std::move(arguments), value);
}

}  // namespace tabulon::client
