// The system resources that this process holds, for comparison between two moments.
//
//   const Resources before = resources_now();
//   ...
//   EXPECT_LE(resources_now().windows, before.windows);
#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulon::client {

struct Resources {
  std::size_t windows;                    // of any kind
  std::uintptr_t drawing_object, handle;  // the highest number among new ones
  std::size_t bytes;
};

Resources resources_now();

}  // namespace tabulon::client
