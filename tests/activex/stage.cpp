#include "stage.h"

namespace tabulon::activex {

namespace {

struct Performance {
  Container container;
  Person person{container.thread()};
  const std::function<void(Container&, Person&)>& play;
};

DWORD WINAPI perform(void* data) {
  auto& performance = *static_cast<Performance*>(data);
  performance.play(performance.container, performance.person);
  performance.container.close();
  return 0;
}

}  // namespace

void on_stage(const Container::Options& options, const std::function<void(Container&, Person&)>& play) {
  Performance performance{.container = Container(options), .play = play};
  HANDLE const thread = CreateThread(nullptr, 0, perform, &performance, 0, nullptr);
  performance.container.run();
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

}  // namespace tabulon::activex
