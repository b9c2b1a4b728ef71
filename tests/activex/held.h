// What this process holds of the system, so that two moments can be compared.
//
//   const Held before = held_now();
//   ...
//   EXPECT_LE(held_now().window, before.window + 100);
#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulon::client {

struct Held {
  std::uintptr_t drawing_object, window, handle;  // the highest number among new ones
  std::size_t bytes;
};

Held held_now();

}  // namespace tabulon::client
