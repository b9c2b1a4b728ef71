#include "hosts/activex/library.h"

#include <windows.h>

namespace tabulon::activex {

namespace {

Library* the_library = nullptr;

}  // namespace

// Created on first use: windows and window classes must not be touched from within DllMain.
Library& library() {
  if (!the_library) the_library = new Library;
  return *the_library;
}

}  // namespace tabulon::activex

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID process_ends) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
  // When the process ends, its windows and memory end with it, and what their destructors need may already be
  // gone.
  if (reason == DLL_PROCESS_DETACH && !process_ends) delete tabulon::activex::the_library;
  return TRUE;
}
