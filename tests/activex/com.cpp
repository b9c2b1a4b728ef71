#include "tests/activex/com.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <utility>

#include "hosts/activex/text.h"

namespace tabulon::client {

using activex::narrow;

std::string code(HRESULT result) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(result));
  return text;
}

ComTest::ComTest() {
  EXPECT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
}

ComTest::~ComTest() {
  OleUninitialize();
}

ComPtr<IUnknown> ComTest::make() {
  CLSID id{};
  EXPECT_EQ(code(CLSIDFromProgID(L"Tabulon.LPctrl", &id)), code(S_OK));
  ComPtr<IUnknown> control;
  EXPECT_EQ(code(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(control.GetAddressOf()))),
            code(S_OK));
  return control;
}

std::vector<std::string> saved_lines(ILPctrl* control) {
  wchar_t folder[MAX_PATH], name[MAX_PATH];
  GetTempPathW(MAX_PATH, folder);
  GetTempFileNameW(folder, L"tbl", 0, name);
  BSTR file = SysAllocString(name);
  EXPECT_EQ(code(control->SchrijfTableau(&file)), code(S_OK));
  SysFreeString(file);
  std::ifstream stream(narrow(name), std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    EXPECT_TRUE(line.ends_with('\r'));
    lines.push_back(line.substr(0, line.size() - 1));
  }
  stream.close();
  DeleteFileW(name);
  return lines;
}

std::string saved_line(ILPctrl* control, std::size_t number) {
  const std::vector<std::string> lines = saved_lines(control);
  return number < lines.size() ? lines[number] : "the file is too short";
}

DISPID dispid_of(IDispatch* object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  std::wstring writable = name;
  LPOLESTR names[] = {writable.data()};
  EXPECT_EQ(code(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)), code(S_OK))
      << narrow(name);
  return id;
}

ScriptError invoke(IDispatch* object, const wchar_t* name, WORD flags, std::vector<_variant_t> arguments,
                   _variant_t* value) {
  const DISPID id = dispid_of(object, name);
  std::ranges::reverse(arguments);
  DISPID put_argument = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  if (flags & DISPATCH_PROPERTYPUT) parameters.rgdispidNamedArgs = &put_argument, parameters.cNamedArgs = 1;
  ScriptError error;
  error.result =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, value, &error.info, nullptr);
  if (error.info.pfnDeferredFillIn) error.info.pfnDeferredFillIn(&error.info);
  error.description = error.info.bstrDescription ? error.info.bstrDescription : L"";
  error.source = error.info.bstrSource ? error.info.bstrSource : L"";
  for (BSTR text : {error.info.bstrDescription, error.info.bstrSource, error.info.bstrHelpFile})
    SysFreeString(text);
  return error;
}

}  // namespace tabulon::client
