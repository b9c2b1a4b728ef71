#include "stage.h"

namespace tabulon::activex {

namespace {

struct Stage {
  Container container;
  Person person{container.thread()};
  const std::function<void(Container&, Person&)>& play;
};

DWORD WINAPI operate(void* data) {
  auto& stage = *static_cast<Stage*>(data);
  stage.play(stage.container, stage.person);
  stage.container.close();
  return 0;
}

}  // namespace

void on_stage(const Container::Options& options, const std::function<void(Container&, Person&)>& play) {
  Stage stage{.container = Container(options), .play = play};
  HANDLE const thread = CreateThread(nullptr, 0, operate, &stage, 0, nullptr);
  stage.container.run();
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

}  // namespace tabulon::activex
