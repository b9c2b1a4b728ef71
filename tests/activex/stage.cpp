#include "stage.h"

namespace tabulon::activex {

namespace {

struct Session {
  Container container;
  Person person{container.thread()};
  const std::function<void(Container&, Person&)>& play;
};

DWORD WINAPI operate(void* data) {
  auto& session = *static_cast<Session*>(data);
  session.play(session.container, session.person);
  session.container.close();
  return 0;
}

}  // namespace

void on_stage(const Container::Options& options, const std::function<void(Container&, Person&)>& play) {
  Session session{.container = Container(options), .play = play};
  HANDLE const thread = CreateThread(nullptr, 0, operate, &session, 0, nullptr);
  session.container.run();
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

}  // namespace tabulon::activex
