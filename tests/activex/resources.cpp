#include "tests/activex/resources.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace tabulon::client {

namespace {

// The system numbers what it makes by its place in a table, and takes free places first. So the numbers of
// new things grow where old ones are not given back. Not every system counts them for us.
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

// Of this process alone, in use.
std::size_t private_bytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
  return bytes;
}

}  // namespace

Resources resources_now() {
  return {
      .drawing_object =
          highest([] { return CreateSolidBrush(RGB(1, 2, 3)); }, [](HANDLE brush) { DeleteObject(brush); }),
      .window = highest(
          [] {
            return CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr,
                                   nullptr);
          },
          [](HANDLE window) { DestroyWindow(static_cast<HWND>(window)); }),
      .handle = highest([] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); }, CloseHandle),
      .bytes = private_bytes(),
  };
}

}  // namespace tabulon::client
