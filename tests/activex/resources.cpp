#include "tests/activex/resources.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace tabulon::client {

namespace {

// Handle numbers are positions in a table whose free positions are reused first, so the numbers of new
// handles grow if old ones leak. Not every system offers a count.
std::uintptr_t highest(const std::function<HANDLE()>& make, const std::function<void(HANDLE)>& destroy) {
  std::vector<HANDLE> made(50);
  std::ranges::generate(made, make);
  std::uintptr_t highest = 0;
  for (const HANDLE each : made) {
    EXPECT_TRUE(each);
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(each) & 0xFFFF);
    destroy(each);
  }
  return highest;
}

// Committed private memory of this process.
std::size_t private_bytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
  return bytes;
}

bool is_ours(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId();
}

// Counted, because their numbers are shared by all processes.
std::size_t windows() {
  std::size_t count = 0;
  const auto add = [](HWND window, LPARAM sum) -> BOOL {
    if (!is_ours(window)) return TRUE;
    ++*reinterpret_cast<std::size_t*>(sum);
    const auto add_child = [](HWND, LPARAM children) -> BOOL {
      return ++*reinterpret_cast<std::size_t*>(children) != 0;
    };
    EnumChildWindows(window, add_child, sum);
    return TRUE;
  };
  EnumWindows(add, reinterpret_cast<LPARAM>(&count));
  for (HWND hidden = nullptr; (hidden = FindWindowExW(HWND_MESSAGE, hidden, nullptr, nullptr));)
    if (is_ours(hidden)) ++count;
  return count;
}

}  // namespace

Resources resources_now() {
  return {
      .windows = windows(),
      .drawing_object =
          highest([] { return CreateSolidBrush(RGB(1, 2, 3)); }, [](HANDLE brush) { DeleteObject(brush); }),
      .handle = highest([] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); }, CloseHandle),
      .bytes = private_bytes(),
  };
}

}  // namespace tabulon::client
