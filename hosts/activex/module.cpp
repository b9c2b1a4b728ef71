#include "hosts/activex/module.h"

// Defined by the linker at the module's base address.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tabulon::activex {

HINSTANCE this_module() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::wstring module_path() {
  wchar_t text[MAX_PATH]{};
  return {text, GetModuleFileNameW(this_module(), text, MAX_PATH)};
}

}  // namespace tabulon::activex
