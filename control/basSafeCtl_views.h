// Those who show the model, as those who change it see them.
//
//   restore_first_tableau(model);
//   tableau.redraw();
//   graph.rebuild();
#pragma once

#include <string>

#include "platform/run_time_error.h"
#include "platform/task.h"

namespace tabulon {

// The grid.
class TableauView {
 public:
  // Draws the tableau from column StartKolom and row StartRij on; an error goes to the host.
  virtual void redraw() = 0;
  // Gives the scroll bars the ranges of the tableau, and puts them at its beginning.
  virtual void reset_scroll_bars() = 0;
  // Puts the scroll bars where the grid is, without drawing it again.
  virtual void follow_grid() = 0;
  // Moves StartRij and StartKolom as little as brings the cell into view; draws nothing.
  virtual void scroll_to(int row, int column) = 0;

 protected:
  ~TableauView() = default;
};

// The graph of a problem with two decision variables.
class GraphView {
 public:
  // After a command that may have changed what it shows; does nothing while it is closed.
  virtual void rebuild() = 0;
  // The same after the problem itself has changed, and after numbers are written in another way.
  virtual void problem_changed() = 0;
  virtual void numbers_rewritten() = 0;

 protected:
  ~GraphView() = default;
};

// The control as a whole, which shows another problem.
class ProblemView {
 public:
  // Lays out a new tableau of the model's counts. Errors 6 and 9.
  virtual Result<> start_problem() = 0;
  virtual platform::Task<> show_problem() = 0;
  // The model holds a tableau that was read from a file.
  virtual void show_opened_tableau() = 0;

 protected:
  ~ProblemView() = default;
};

// The form that tells the person what went wrong.
class FailureView {
 public:
  virtual platform::Task<> show_failure(std::string words) = 0;

 protected:
  ~FailureView() = default;
};

}  // namespace tabulon
