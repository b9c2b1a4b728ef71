// A container whose windows are on this thread, and a user who operates it from another.
//
//   on_stage({}, [](Container& container, Person& person) {
//     container.thread().run([&] { container.show({}); });
//     person.click(...);
//     person.wait_until_idle();
//   });
#pragma once

#include <functional>

#include "container.h"
#include "person.h"

namespace tabulon::activex {

// Returns when `play` has returned and the container has closed.
void on_stage(const Container::Options& options, const std::function<void(Container&, Person&)>& play);

}  // namespace tabulon::activex
