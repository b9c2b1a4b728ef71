#include "hosts/activex/library.h"

#include <windows.h>

namespace tabulon::activex {

namespace {

Library* loaded = nullptr;

}  // namespace

// Made when it is first asked for: while the system loads the file, windows and their classes are not to be
// touched.
Library& library() {
  if (!loaded) loaded = new Library;
  return *loaded;
}

}  // namespace tabulon::activex

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID process_ends) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
  // A process that ends takes its windows and its memory with it, and what they would need may be gone
  // already.
  if (reason == DLL_PROCESS_DETACH && !process_ends) delete tabulon::activex::loaded;
  return TRUE;
}
