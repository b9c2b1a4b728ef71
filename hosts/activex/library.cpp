#include "hosts/activex/library.h"

#include <windows.h>

namespace tabulon::activex {

namespace {

Library* loaded = nullptr;

}  // namespace

std::wstring Library::path() const {
  wchar_t text[MAX_PATH]{};
  return {text, GetModuleFileNameW(module, text, MAX_PATH)};
}

Library& library() {
  return *loaded;
}

}  // namespace tabulon::activex

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID process_ends) {
  using tabulon::activex::Library;
  using tabulon::activex::loaded;
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(module);
    loaded = new Library(module);
  }
  // A process that ends takes its windows and its memory with it, and what they would need may be gone
  // already.
  if (reason == DLL_PROCESS_DETACH && !process_ends) delete loaded;
  return TRUE;
}
