// The menu bar and the keyboard by themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "files/file_commands.h"
#include "graph/panel.h"
#include "hosts/headless/headless_host.h"
#include "platform/captions.h"
#include "shell/actions.h"
#include "shell/keyboard.h"
#include "shell/menu_bar.h"
#include "simplex/new_problem_commands.h"
#include "tests/support/part_surface.h"

namespace tabulon {
namespace {

using platform::Task;

// ---- The table of actions

TEST(MenuActions, EachItemDoesOneThingAndAMenuNothing) {
  const auto all = actions();
  for (std::size_t at = 0; at < all.size(); ++at) {
    const bool is_menu = at + 1 < all.size() && all[at + 1].depth > all[at].depth;
    const bool works = all[at].work.at_once || all[at].work.task;
    EXPECT_EQ(works, !is_menu && all[at].caption != "-") << all[at].name;
    EXPECT_FALSE(all[at].work.at_once && all[at].work.task) << all[at].name;
  }
}

TEST(MenuActions, TheItemsOfAMenuHaveAccessKeysOfTheirOwn) {
  std::set<int> keys;
  int depth = 0;
  for (const MenuAction& action : actions()) {
    if (action.depth != depth || action.depth == 0) keys.clear();
    depth = action.depth;
    if (action.caption != "-") {
      EXPECT_TRUE(keys.insert(platform::access_key(action.caption)).second) << action.name;
    }
  }
}

// ---- The menu bar, with all that its actions need and no control around it

struct Views : TableauView, ProblemView {
  int redraws = 0;
  void redraw() override { ++redraws; }
  void reset_scroll_bars() override {}
  void follow_grid() override {}
  void scroll_to(int, int) override {}
  Result<> start_problem() override { return {}; }
  Task<> show_problem() override { co_return; }
  void show_opened_tableau() override {}
};

class MenuBarAlone : public testing::Test {
 protected:
  MenuBarAlone() {
    EXPECT_TRUE(InitTableau(model));
    menu_bar.update();
    surface.when_clicked = [this](platform::Control& control) -> Task<> {
      co_await menu_bar.clicked(control);
    };
    surface.when_key_down = [this](platform::KeyPress press, bool& used) -> Task<> {
      if (press.shift == platform::modifier::alt) co_await menu_bar.alt_pressed(press.code, used);
    };
  }
  platform::Menu& item(const char* name) { return static_cast<platform::Menu&>(*surface.find(name)); }
  void choose(const char* button, const char* name) {
    host.desk().click(*surface.find(button));
    host.answer_all();
    host.desk().menu_choose(item(name));
    host.answer_all();
    menu_bar.update();
  }

  platform::HeadlessHost host;
  basSafeCtl model;
  FillIn fill_in;
  Views views;
  PartSurface surface{host.desk()};
  RestingFocus resting{surface};
  Messages messages{surface, model};
  GraphPanel graph{{surface, model, resting.txtFocus, messages}};
  TableauCommands tableau{{surface, model, fill_in, messages, resting.txtFocus, views, graph}};
  NewProblemCommands new_problem{surface, model, resting.txtFocus, tableau, views};
  tabulon::FileCommands files{surface, model, resting.txtFocus, views};
  MenuBar menu_bar{surface, resting, {model, fill_in, tableau, new_problem, files, graph, messages, resting}};
};

TEST_F(MenuBarAlone, AMarkFollowsFromTheStateThatItShows) {
  EXPECT_FALSE(item("mnu_Breuken").checked());
  choose("cmd_Opties", "mnu_Breuken");
  EXPECT_TRUE(model.Breuken);
  EXPECT_TRUE(item("mnu_Breuken").checked());
  model.Breuken = false;  // by another control of the page
  menu_bar.update();
  EXPECT_FALSE(item("mnu_Breuken").checked());
}

TEST_F(MenuBarAlone, AnItemIsEnabledByTheStateOfTheModel) {
  EXPECT_TRUE(item("mnu_Grafiek").enabled());
  model.NrBeslisVar = 3;
  menu_bar.update();
  EXPECT_FALSE(item("mnu_Grafiek").enabled());
  fill_in.offered = false;
  menu_bar.update();
  EXPECT_FALSE(item("mnu_Tableau_Invullen").enabled());
  EXPECT_FALSE(item("mnu_Tableau_Invullen_Afsluiten").enabled());
}

TEST_F(MenuBarAlone, AltAndTheLetterOfAButtonOpenItsMenu) {
  for (const auto& [letter, menu] : {std::pair{'B', "mnu_Bestand"}, std::pair{'W', "mnu_Bewerken"},
                                     std::pair{'O', "mnu_Opties"}, std::pair{'H', "mnu_Help"}}) {
    EXPECT_TRUE(host.desk().key(surface, {letter, platform::modifier::alt}));
    ASSERT_NE(host.open_menu(), nullptr) << letter;
    EXPECT_EQ(host.open_menu()->open().front()->name(), menu);
    host.desk().menu_dismiss();
  }
  EXPECT_FALSE(host.desk().key(surface, {'X', platform::modifier::alt}));
}

// ---- The keyboard, over boxes that accept everything or nothing

class Boxes : public WalkedCells {
 public:
  explicit Boxes(PartSurface& surface) : cells_(surface, "txtRij_F") {}
  bool accepts = true;
  int first_column = 0;

  std::optional<GridBox> cell_of(const platform::Control* control) const override {
    if (!cells_.has(control)) return {};
    return GridBox{CellArray::RowF, control->index()};
  }
  platform::TextBox& box_of(GridBox cell) override { return cells_(cell.index); }
  Task<bool> accept(GridBox) override { co_return accepts; }
  void show_from(int column, int) override { first_column = column; }

 private:
  platform::ControlArray<platform::TextBox, 5> cells_;
};

class KeyboardAlone : public testing::Test {
 protected:
  KeyboardAlone() {
    model.NrBeslisVar = 7;
    surface.when_key_down = [this](platform::KeyPress press, bool& used) -> Task<> {
      co_await keyboard.key_pressed(press, used);
    };
    host.desk().focus(boxes.box_of({CellArray::RowF, 1}));
  }
  bool press(int code, int shift = platform::modifier::none) {
    return host.desk().key(surface, {code, shift});
  }
  int active() const { return surface.active()->index(); }

  platform::HeadlessHost host;
  basSafeCtl model;
  PartSurface surface{host.desk()};
  RestingFocus resting{surface};
  Boxes boxes{surface};
  tabulon::Keyboard keyboard{surface, model, resting, boxes};
};

TEST_F(KeyboardAlone, EnterGoesToTheNextCell) {
  EXPECT_TRUE(press(platform::key::enter));
  EXPECT_EQ(active(), 2);
}

TEST_F(KeyboardAlone, BadInputKeepsTheCell) {
  boxes.accepts = false;
  model.CelFout = true;
  EXPECT_TRUE(press(platform::key::enter));
  EXPECT_EQ(active(), 1);
  EXPECT_FALSE(model.CelFout);
}

TEST_F(KeyboardAlone, TheGridIsScrolledBehindItsLastColumn) {
  for (int times = 0; times < 5; ++times) press(platform::key::enter);
  EXPECT_EQ(boxes.first_column, 2);
  EXPECT_EQ(active(), 5);
}

TEST_F(KeyboardAlone, EscapeCountsOnceAndLeavesTheCells) {
  EXPECT_TRUE(press(platform::key::escape));
  EXPECT_EQ(surface.active(), &resting.txtFocus);
  EXPECT_FALSE(keyboard.take_escape());
  EXPECT_FALSE(press(platform::key::tab));
}

}  // namespace
}  // namespace tabulon
