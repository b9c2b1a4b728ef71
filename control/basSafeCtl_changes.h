// What is done to the tableau, for who stands around the controls: one observer, which a host may give the
// model and which most hosts leave out.
//
//   struct Log : TableauObserver {
//     void tableau_changed(const TableauChange& change) override { write(words_of(change.cause)); }
//   };
//   model.observer = &log;
//
// It is told when the model has changed, in the midst of what a control is doing: it may look, and is to do
// nothing else before the control is done.
#pragma once

#include <cstdint>
#include <string_view>

namespace tabulon {

enum class ChangeCause : std::uint8_t {
  Cell,            // one was typed in: its row (0 for row F) and column (0 for the right-hand side)
  Sweep,           // with its pivot, whether that changed a number or not
  AutomaticSweep,  // the same, by the control itself, step by step
  Normalise,       // with its column
  BasicSolution,   // the basis was brought into canonical form
  Optimise,        // to the end, with however many sweeps
  Reset,
  Fractions,   // on or off
  Parameters,  // those of the page, or one that a script has set
  Problem,     // a new one
  Restore,     // a saved tableau was put back
};

struct TableauChange {
  ChangeCause cause{};
  int column = 0;  // 0 where the cause has none
  int row = 0;
};

// As pages know it: "automatic-sweep".
std::string_view words_of(ChangeCause cause);

class TableauObserver {
 public:
  virtual void tableau_changed(const TableauChange& change) = 0;

 protected:
  ~TableauObserver() = default;
};

}  // namespace tabulon
