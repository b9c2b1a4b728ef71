// What a container or a listener is told, written down; and what it does at once when it is told so.
//
//   Notes notes;
//   notes.when("OnFocus", [&] { object->Close(OLECLOSE_NOSAVE); });
//   notes.add("OnFocus(true)");
//   notes.take();   // {"OnFocus(true)"}
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::client {

using Calls = std::vector<std::string>;

class Notes {
 public:
  using Act = std::function<void()>;

  const Calls& calls() const { return calls_; }
  Calls take() { return std::exchange(calls_, {}); }

  // Each time that this call comes; without its arguments, whatever they are. Nothing to do no more.
  void when(std::string call, Act act) { acts_[std::move(call)] = std::move(act); }

  void add(std::string call) {
    const std::string name = call.substr(0, call.find('('));
    for (const std::string& key : {call, name})
      if (const auto found = acts_.find(key); found != acts_.end() && found->second) {
        calls_.push_back(std::move(call));
        return Act(found->second)();  // which may say what is to be done next
      }
    calls_.push_back(std::move(call));
  }

 private:
  Calls calls_;
  std::map<std::string, Act> acts_;
};

}  // namespace tabulon::client
