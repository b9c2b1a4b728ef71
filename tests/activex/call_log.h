// The calls that a container or an event listener receives, in order; and what it does in return.
//
//   CallLog log;
//   log.when("OnFocus", [&] { object->Close(OLECLOSE_NOSAVE); });
//   log.add("OnFocus(true)");
//   log.take();   // {"OnFocus(true)"}
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::client {

using Calls = std::vector<std::string>;

class CallLog {
 public:
  using Action = std::function<void()>;

  const Calls& calls() const { return calls_; }
  Calls take() { return std::exchange(calls_, {}); }

  // Runs the action on every such call; a name without arguments matches any. An empty action removes it.
  void when(std::string call, Action action) { actions_[std::move(call)] = std::move(action); }

  void add(std::string call) {
    const std::string name = call.substr(0, call.find('('));
    for (const std::string& key : {call, name})
      if (const auto found = actions_.find(key); found != actions_.end() && found->second) {
        calls_.push_back(std::move(call));
        return Action(found->second)();  // a copy: it may replace itself
      }
    calls_.push_back(std::move(call));
  }

 private:
  Calls calls_;
  std::map<std::string, Action> actions_;
};

}  // namespace tabulon::client
