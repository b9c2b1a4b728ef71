#include "hosts/activex/dispatcher.h"

namespace tabulon::activex {

Dispatcher::Handling::Handling(Dispatcher& on) : dispatcher_(on) {
  if (dispatcher_.depth_++ == 0) dispatcher_.entered_ = GetTickCount64();
}

Dispatcher::Handling::~Handling() {
  if (--dispatcher_.depth_ != 0) return;
  const OnStack on_stack(dispatcher_);
  for (const auto& act : std::exchange(dispatcher_.acts_, {})) act();
  dispatcher_.when_handled_();
}

void Dispatcher::after_event(std::function<void()> act) {
  acts_.push_back(std::move(act));
  if (depth_ == 0) handle([] {});
}

Dispatcher::OnStack::~OnStack() {
  --dispatcher_.on_stack_;
  dispatcher_.release_what_is_gone();
}

void Dispatcher::release_later(std::shared_ptr<void> gone) {
  deferred_.push_back(std::move(gone));
  release_what_is_gone();
}

void Dispatcher::release_what_is_gone() {
  if (on_stack_ == 0 && depth_ == 0) std::exchange(deferred_, {}).clear();
}

}  // namespace tabulon::activex
