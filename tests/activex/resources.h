// What this process holds of the system, so that two moments can be compared.
//
//   const Resources before = resources_now();
//   ...
//   EXPECT_LE(resources_now().window, before.window + 100);
#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulon::client {

struct Resources {
  std::uintptr_t drawing_object, window, handle;  // the highest number among new ones
  std::size_t bytes;
};

Resources resources_now();

}  // namespace tabulon::client
