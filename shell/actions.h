// The menus: each action is one row of a table, with its caption and access key, when it is enabled, when it
// carries its mark, and what it does.
#pragma once

#include <span>
#include <string_view>

#include "platform/task.h"

namespace tabulon {

struct basSafeCtl;
struct FillIn;
class FileCommands;
class GraphPanel;
class Messages;
class NewProblemCommands;
class RestingFocus;
class TableauCommands;

// What the actions do their work with.
struct Commands {
  const basSafeCtl& model;
  const FillIn& fill_in;
  TableauCommands& tableau;
  NewProblemCommands& new_problem;
  FileCommands& files;
  GraphPanel& graph;
  Messages& messages;
  RestingFocus& resting;
};

struct MenuAction {
  struct State {
    bool (*is_enabled)(const Commands&) = nullptr;  // none: always
    bool (*is_marked)(const Commands&) = nullptr;   // none: it never carries a mark
  };
  struct Work {  // none for a menu and a separator
    void (*at_once)(const Commands&) = nullptr;
    platform::Task<> (*task)(const Commands&) = nullptr;  // it may wait for the person
  };

  int depth;  // 0: a pop-up menu; 1: an item of the menu before it; 2: of the submenu before it
  std::string_view name;
  std::string_view caption;  // "&" stands before the access key; "-" is a separator
  State state = {};
  Work work = {};
};

// In the order in which they stand; the pop-up menus in the order of the buttons.
std::span<const MenuAction> actions();

}  // namespace tabulon
