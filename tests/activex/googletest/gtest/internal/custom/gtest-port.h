// What GoogleTest is given here instead of its own.
//
// The distribution's C++ library for Windows has no std::mutex, which GoogleTest's Notification would take. It
// is for threads that GoogleTest starts, of which there are none in these tests.
#pragma once

#include <atomic>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
  void Notify() { notified_ = true; }
  void WaitForNotification() {
    while (!notified_) {
    }
  }

 private:
  std::atomic<bool> notified_ = false;
};

}  // namespace testing::internal
