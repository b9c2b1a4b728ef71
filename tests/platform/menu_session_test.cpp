#include "platform/menu_session.h"

#include <gtest/gtest.h>

#include "noting.h"

namespace tabulon::platform {
namespace {

class MenuSessionTest : public testing::Test {
 protected:
  void press(std::initializer_list<int> codes) {
    for (const int code : codes) session.key({code});
  }
  void expect_highlighted(const Menu* item) {
    EXPECT_EQ(session.highlighted(), item)
        << (session.highlighted() ? session.highlighted()->name() : "none");
  }
  void expect_open(std::vector<Menu*> menus) { EXPECT_EQ(session.open(), menus); }
  void expect_chosen(const Menu* item) {
    EXPECT_TRUE(session.over());
    EXPECT_EQ(session.chosen(), item);
  }
  void expect_still_open() {
    EXPECT_FALSE(session.over());
    EXPECT_EQ(session.chosen(), nullptr);
  }

  HeadlessHost host;
  Sheet sheet{host.desk()};
  Menu file{sheet, "file", "&Bestand"};
  Menu fresh{sheet, "fresh", "&Nieuw", &file};
  Menu standard{sheet, "standard", "De &Standaard Simplex-methode", &fresh};
  Menu big_m{sheet, "big_m", "De '&Big-M'-methode", &fresh};
  Menu line{sheet, "line", "-", &file};
  Menu open{sheet, "open", "&Openen", &file};
  Menu save{sheet, "save", "Opslaan &als ...", &file};
  Menu plain{sheet, "plain", "Plain", &file};
  Menu elsewhere{sheet, "elsewhere", "&Help"};
  Menu info{sheet, "info", "&Info", &elsewhere};
  MenuSession session{file, 60, 285};
};

TEST_F(MenuSessionTest, StartsWithoutAHighlight) {
  expect_open({&file});
  expect_highlighted(nullptr);
  expect_still_open();
  EXPECT_EQ(session.x(), 60);
  EXPECT_EQ(session.y(), 285);
  EXPECT_EQ(&session.surface(), &sheet);
}

TEST_F(MenuSessionTest, DownAndUpGoAroundAndPassSeparators) {
  press({key::down});
  expect_highlighted(&fresh);
  press({key::down});
  expect_highlighted(&open);
  press({key::down, key::down});
  expect_highlighted(&plain);
  press({key::down});
  expect_highlighted(&fresh);
  press({key::up});
  expect_highlighted(&plain);
  press({key::up, key::up, key::up});
  expect_highlighted(&fresh);
}

TEST_F(MenuSessionTest, UpBeginsAtTheBottom) {
  press({key::up});
  expect_highlighted(&plain);
}

TEST_F(MenuSessionTest, HomeAndEndGoToTheEnds) {
  press({key::end});
  expect_highlighted(&plain);
  press({key::home});
  expect_highlighted(&fresh);
}

TEST_F(MenuSessionTest, EnterAndSpaceChooseTheHighlightedItem) {
  for (const int code : {key::enter, key::space}) {
    MenuSession fresh_session(file, 0, 0);
    fresh_session.key({key::end});
    fresh_session.key({code});
    EXPECT_TRUE(fresh_session.over());
    EXPECT_EQ(fresh_session.chosen(), &plain);
  }
}

TEST_F(MenuSessionTest, EnterWithoutAHighlightDoesNothing) {
  press({key::enter, key::space, key::right, key::left});
  expect_still_open();
  expect_open({&file});
}

TEST_F(MenuSessionTest, EscapeTabAndF10DismissIt) {
  for (const int code : {key::escape, key::tab, key::f10}) {
    MenuSession fresh_session(file, 0, 0);
    fresh_session.key({key::down});
    fresh_session.key({code});
    EXPECT_TRUE(fresh_session.over());
    EXPECT_EQ(fresh_session.chosen(), nullptr);
  }
}

TEST_F(MenuSessionTest, AnAccessKeyChooses) {
  press({'A'});
  expect_chosen(&save);
}

TEST_F(MenuSessionTest, AnAccessKeyOfASubmenuOpensItAtItsFirstItem) {
  press({'N'});
  expect_open({&file, &fresh});
  expect_highlighted(&standard);
  press({'B'});
  expect_chosen(&big_m);
}

TEST_F(MenuSessionTest, AFirstLetterHighlights) {
  press({'P'});
  expect_highlighted(&plain);
  expect_still_open();
}

TEST_F(MenuSessionTest, AFirstLetterThatTwoItemsShareGoesFromOneToTheNext) {
  Menu another(sheet, "another", "Plainer", &file);
  press({'P'});
  expect_highlighted(&plain);
  press({'P'});
  expect_highlighted(&another);
  press({'P'});
  expect_highlighted(&plain);
}

TEST_F(MenuSessionTest, AKeyWithoutACharacterOrWithControlHeldDoesNothing) {
  press({0, 16, 'Z'});
  session.key({'A', modifier::ctrl});
  expect_highlighted(nullptr);
  expect_still_open();
}

TEST_F(MenuSessionTest, AnAccessKeyWorksWithAltHeldToo) {
  session.key({'A', modifier::alt});
  expect_chosen(&save);
}

TEST_F(MenuSessionTest, RightOpensASubmenuAndLeftClosesIt) {
  press({key::down, key::right});
  expect_open({&file, &fresh});
  expect_highlighted(&standard);
  press({key::down});
  expect_highlighted(&big_m);
  press({key::left});
  expect_open({&file});
  expect_highlighted(&fresh);
  press({key::left});
  expect_open({&file});
  expect_still_open();
}

TEST_F(MenuSessionTest, RightOnAPlainItemDoesNothing) {
  press({key::end, key::right});
  expect_highlighted(&plain);
  expect_still_open();
}

TEST_F(MenuSessionTest, EnterOnASubmenuOpensIt) {
  press({key::down, key::enter});
  expect_open({&file, &fresh});
  press({key::enter});
  expect_chosen(&standard);
}

TEST_F(MenuSessionTest, EscapeClosesTheSubmenuFirst) {
  press({'N', key::escape});
  expect_open({&file});
  expect_highlighted(&fresh);
  expect_still_open();
  press({key::escape});
  expect_chosen(nullptr);
}

TEST_F(MenuSessionTest, DisabledItemsAreHighlightedButNotChosen) {
  open.set_enabled(false);
  press({key::down, key::down});
  expect_highlighted(&open);
  press({key::enter, 'O'});
  session.choose(open);
  expect_still_open();
}

TEST_F(MenuSessionTest, ADisabledSubmenuStaysClosed) {
  fresh.set_enabled(false);
  press({'N', key::down, key::right});
  session.point_at(fresh);
  expect_open({&file});
}

TEST_F(MenuSessionTest, SeparatorsAreNeitherPointedAtNorChosen) {
  session.point_at(line);
  session.choose(line);
  expect_highlighted(nullptr);
  expect_still_open();
}

TEST_F(MenuSessionTest, PointingHighlightsAndOpensASubmenu) {
  session.point_at(open);
  expect_highlighted(&open);
  session.point_at(fresh);
  expect_open({&file, &fresh});
  expect_highlighted(&fresh);
  session.point_at(big_m);
  expect_highlighted(&big_m);
  session.point_at(save);
  expect_open({&file});
  expect_highlighted(&save);
}

TEST_F(MenuSessionTest, TheKeyboardGoesIntoASubmenuThatThePointerOpened) {
  session.point_at(fresh);
  press({key::right});
  expect_open({&file, &fresh});
  expect_highlighted(&standard);
}

TEST_F(MenuSessionTest, ATapOnASubmenuOpensItAndATapOnAnItemChooses) {
  session.choose(fresh);
  expect_open({&file, &fresh});
  session.choose(fresh);
  expect_open({&file, &fresh});
  session.choose(big_m);
  expect_chosen(&big_m);
}

TEST_F(MenuSessionTest, ItemsOfMenusThatAreNotOpenAreIgnored) {
  session.choose(info);
  session.point_at(info);
  session.choose(big_m);
  session.choose(file);
  expect_still_open();
  expect_highlighted(nullptr);
}

TEST_F(MenuSessionTest, AMenuOfSeparatorsAloneHighlightsNothing) {
  Menu lines(sheet, "lines", "&Lines");
  Menu one(sheet, "one", "-", &lines);
  MenuSession alone(lines, 0, 0);
  alone.key({key::down});
  alone.key({key::up});
  alone.key({key::end});
  EXPECT_EQ(alone.highlighted(), nullptr);
  EXPECT_FALSE(alone.over());
}

}  // namespace
}  // namespace tabulon::platform
