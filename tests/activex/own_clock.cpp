#include "own_clock.h"

#include <cstddef>

namespace tabulon::activex {

namespace {

using LocalTime = OwnClock::LocalTime;

LocalTime machines_clock() {
  return reinterpret_cast<LocalTime>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetLocalTime")));
}

// The place where a library keeps the address of a function of another that it calls.
LocalTime* imported(HMODULE library, LocalTime function) {
  if (!library) return nullptr;
  auto* const base = reinterpret_cast<std::byte*>(library);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
  const DWORD table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table); from->Name != 0; ++from)
    for (auto* place = reinterpret_cast<LocalTime*>(base + from->FirstThunk); *place; ++place)
      if (*place == function) return place;
  return nullptr;
}

}  // namespace

OwnClock::OwnClock(LocalTime tell) : place_(imported(GetModuleHandleW(L"Tabulon.ocx"), machines_clock())) {
  write(tell);
}

OwnClock::~OwnClock() {
  write(machines_clock());
}

void OwnClock::write(LocalTime function) {
  if (!place_) return;
  DWORD before = 0;
  VirtualProtect(static_cast<void*>(place_), sizeof *place_, PAGE_READWRITE, &before);
  *place_ = function;
  VirtualProtect(static_cast<void*>(place_), sizeof *place_, before, &before);
}

void WINAPI noon_clock(LPSYSTEMTIME now) {
  static const ULONGLONG began = GetTickCount64();
  const ULONGLONG since_noon = GetTickCount64() - began;
  GetLocalTime(now);
  now->wHour = static_cast<WORD>(12 + since_noon / 3'600'000);
  now->wMinute = static_cast<WORD>(since_noon / 60'000 % 60);
  now->wSecond = static_cast<WORD>(since_noon / 1000 % 60);
  now->wMilliseconds = static_cast<WORD>(since_noon % 1000);
}

}  // namespace tabulon::activex
