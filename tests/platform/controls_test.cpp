#include "platform/controls.h"

#include <gtest/gtest.h>

#include "noting.h"
#include "platform/captions.h"

namespace tabulon::platform {
namespace {

class Marking : public testing::Test {
 protected:
  template <class Change>
  void expect_marked_once(Control& control, Property property, Change change) {
    expect_marked_once(control, {property}, change);
  }
  // Makes the change twice: the first time marks `properties` alone, the second nothing.
  template <class Change>
  void expect_marked_once(Control& control, std::initializer_list<Property> properties, Change change) {
    control.take_changes();
    sheet.take_changed();
    change();
    Properties only;
    for (const Property each : properties) only.add(each);
    EXPECT_EQ(control.take_changes().bits(), only.bits());
    EXPECT_TRUE(sheet.take_changed());
    change();
    EXPECT_TRUE(control.take_changes().none());
    EXPECT_FALSE(sheet.take_changed());
  }

  HeadlessHost host;
  Sheet sheet{host.desk()};
};

TEST_F(Marking, BesideTheSurfaceStandsOnlyWhatTakesTheFocus) {
  Label label(sheet, "label");
  for (Control* const control : {static_cast<Control*>(&sheet.first), static_cast<Control*>(&label)}) {
    control->set_visible(true);
    control->set_bounds({sheet.width() + 15, 0, 300, 300});
  }
  EXPECT_EQ(sheet.first.rendering(), Rendering::Aside);
  EXPECT_EQ(label.rendering(), Rendering::None);
  sheet.first.set_visible(false);
  EXPECT_EQ(sheet.first.rendering(), Rendering::None);
}

TEST_F(Marking, AControlThatComesOrGoesByMovingIsMarkedAsSeenOrNot) {
  TextBox& box = sheet.first;
  box.set_visible(true);
  box.set_bounds({15, 30, 45, 60});
  box.take_changes();
  const auto marked_by = [&](Twips left) {
    box.set_left(left);
    return box.take_changes();
  };
  EXPECT_FALSE(marked_by(30).has(Property::Visible));
  EXPECT_TRUE(marked_by(sheet.width() + 15).has(Property::Visible));
  EXPECT_FALSE(marked_by(sheet.width() + 30).has(Property::Visible));
  EXPECT_TRUE(marked_by(15).has(Property::Visible));
}

TEST_F(Marking, ANewControlIsMarkedWhole) {
  Label label(sheet, "label");
  EXPECT_EQ(label.take_changes().bits(), Properties::all().bits());
  EXPECT_TRUE(label.take_changes().none());
}

TEST_F(Marking, EveryPropertyIsMarkedWhenItChangesAndNotWhenItStays) {
  TextBox& box = sheet.first;
  expect_marked_once(box, Property::Text, [&] { box.set_text(" 1"); });
  expect_marked_once(box, Property::Bounds, [&] { box.set_bounds({15, 30, 45, 60}); });
  expect_marked_once(box, Property::Bounds, [&] { box.set_left(75); });
  expect_marked_once(box, Property::Colours, [&] { box.set_back_colour(rgb(1, 2, 3)); });
  expect_marked_once(box, Property::Colours, [&] { box.set_fore_colour(rgb(4, 5, 6)); });
  expect_marked_once(box, Property::ToolTip, [&] { box.set_tool_tip(" Pivotelement "); });
  expect_marked_once(box, Property::SpokenName, [&] { box.set_spoken_name("rij 1"); });
  expect_marked_once(box, Property::Font, [&] { box.set_font({.points = 8, .bold = true}); });
  expect_marked_once(box, Property::Visible, [&] { box.set_visible(false); });
  expect_marked_once(box, Property::Enabled, [&] { box.set_enabled(false); });
  expect_marked_once(box, Property::Locked, [&] { box.set_locked(true); });
}

TEST_F(Marking, AFormIsMarkedWhenItsCaptionChangesAndNotWhenItStays) {
  Question question(sheet);
  question.set_caption(" Vraag");
  EXPECT_TRUE(question.take_changed());
  question.set_caption(" Vraag");
  EXPECT_FALSE(question.take_changed());
}

TEST_F(Marking, SelectingAllIsAskedForEachTimeAnew) {
  sheet.first.take_changes();
  for (int turn = 0; turn < 2; ++turn) {
    sheet.first.select_all();
    EXPECT_TRUE(sheet.first.take_changes().has(Property::Selection));
  }
}

TEST_F(Marking, PicturesBarsAndMenusMarkTheirOwn) {
  Image image(sheet, "image");
  expect_marked_once(image, Property::Picture, [&] { image.set_picture(Picture::Warning); });
  HScrollBar bar(sheet, "bar");
  expect_marked_once(bar, Property::Range, [&] { bar.set_range(1, 7); });
  expect_marked_once(bar, Property::Range, [&] { bar.set_steps(1, 5); });
  expect_marked_once(bar, Property::Range, [&] { bar.set_value(3); });
  Menu menu(sheet, "menu", "&Menu");
  expect_marked_once(menu, Property::Checked, [&] { menu.set_checkable(); });
  expect_marked_once(menu, Property::Checked, [&] { menu.set_checked(true); });
}

TEST_F(Marking, ALineStandsWhereItsEndsAre) {
  Line line(sheet, "line");
  line.set_ends({15, 15}, {45, 60});
  expect_marked_once(line, {Property::Ends, Property::Bounds}, [&] { line.set_ends({330, 90}, {30, 45}); });
  EXPECT_EQ(line.bounds(), (Bounds{30, 45, 300, 45}));
}

TEST_F(Marking, ADrawingIsMarkedWhenItsStrokesDiffer) {
  PictureBox box(sheet, "box");
  const auto drawing = [](double x) {
    DisplayList list;
    list.line({0, 0}, {x, 3000}, rgb(0, 0, 255));
    return list;
  };
  expect_marked_once(box, Property::Drawing, [&] { box.set_drawing(drawing(10)); });
  expect_marked_once(box, Property::Drawing, [&] { box.set_drawing(drawing(11)); });
  expect_marked_once(box, Property::Drawing, [&] { box.set_scale({{0, 3000}, {3000, 0}}); });
}

TEST_F(Marking, OnlyATextBoxTellsOfItsNewText) {
  sheet.go.set_text("&Verder");
  EXPECT_EQ(sheet.take_log(), Log{});
  sheet.first.set_text(" 4");
  sheet.first.set_text(" 4");
  EXPECT_EQ(sheet.take_log(), Log{"Change first"});
}

TEST_F(Marking, ABoxMayEmptyItselfWhenItChanges) {
  sheet.when_changed = [](Control& control) { control.set_text(""); };
  sheet.first.set_text("x");
  EXPECT_EQ(sheet.first.text(), "");
}

// ---- Surfaces

TEST(SurfaceControls, AreFoundByNameAndIndex) {
  HeadlessHost host;
  Sheet sheet(host.desk());
  ControlArray<TextBox, 3> cells(sheet, "cells");
  EXPECT_EQ(sheet.find("first"), &sheet.first);
  EXPECT_EQ(sheet.find("cells", 1), &cells(1));
  EXPECT_EQ(sheet.find("cells", 3), &cells(3));
  EXPECT_EQ(sheet.find("cells"), nullptr);
  EXPECT_EQ(sheet.find("cells", 4), nullptr);
  EXPECT_EQ(sheet.find("nothing"), nullptr);
  EXPECT_EQ(cells(2).index(), 2);
  EXPECT_EQ(sheet.controls()[static_cast<std::size_t>(cells(2).id())], &cells(2));
}

TEST(SurfaceControls, AreShownWhenVisibleAndPartlyOnTheSurface) {
  HeadlessHost host;
  Sheet sheet(host.desk());
  Frame frame(sheet, "frame");
  frame.set_bounds({0, 0, 900, 900});
  Label inside(sheet, "inside", 0, &frame);
  inside.set_bounds({0, 750, 150, 150});
  TextBox& box = sheet.first;
  box.set_bounds({0, 0, 150, 150});
  EXPECT_TRUE(box.shown());
  for (const Bounds& outside : {Bounds{-150, 0, 150, 150},
                                {0, -150, 150, 150},
                                {9000, 0, 150, 150},
                                {0, 4440, 150, 150},
                                {0, 0, 0, 0}}) {
    box.set_bounds(outside);
    EXPECT_FALSE(box.shown()) << outside.left << ' ' << outside.top;
  }
  box.set_bounds({-149, -149, 150, 150});
  EXPECT_TRUE(box.shown());
  box.set_visible(false);
  EXPECT_FALSE(box.shown());
  EXPECT_TRUE(inside.shown());
  frame.set_bounds({0, 3690, 900, 900});
  EXPECT_TRUE(frame.shown());
  EXPECT_FALSE(inside.shown());
  frame.set_bounds({0, 0, 900, 900});
  frame.set_visible(false);
  EXPECT_FALSE(inside.shown());
}

// ---- Scroll bars

class Bars : public testing::Test {
 protected:
  void set(int min, int max, int value) {
    bar.set_range(min, max);
    bar.set_value(value);
    sheet.take_log();
  }

  HeadlessHost host;
  Sheet sheet{host.desk()};
  VScrollBar bar{sheet, "bar"};
};

TEST_F(Bars, TellOfEachNewValueWhoeverSetsIt) {
  set(1, 4, 1);
  bar.set_value(2);
  bar.set_value(2);
  bar.set_value(3);
  EXPECT_EQ(sheet.take_log(), (Log{"Change bar", "Change bar"}));
}

TEST_F(Bars, StopAtTheirEnds) {
  set(1, 4, 9);
  EXPECT_EQ(bar.value(), 4);
  bar.set_value(-3);
  EXPECT_EQ(bar.value(), 1);
  EXPECT_EQ(bar.stepped(-1), 1);
  EXPECT_EQ(bar.stepped(+1), 2);
  EXPECT_EQ(bar.stepped(+9), 4);
}

TEST_F(Bars, WithTheLargestAtTheTopTheUpArrowRaisesTheNumber) {
  set(10, 2, 3);
  EXPECT_EQ(bar.stepped(-1), 4);
  EXPECT_EQ(bar.stepped(+1), 2);
  EXPECT_EQ(bar.stepped(+5), 2);
  EXPECT_EQ(bar.stepped(-50), 10);
  bar.set_value(11);
  EXPECT_EQ(bar.value(), 10);
  bar.set_value(1);
  EXPECT_EQ(bar.value(), 2);
}

TEST_F(Bars, AnEndBeyondTheStartOfATableauKeepsTheValue) {
  set(1, -2, 1);
  EXPECT_EQ(bar.value(), 1);
  EXPECT_EQ(bar.max(), -2);
}

TEST_F(Bars, ARangeOfOneValueStands) {
  set(1, 1, 1);
  EXPECT_EQ(bar.stepped(+1), 1);
  EXPECT_EQ(bar.stepped(-1), 1);
  bar.set_value(7);
  EXPECT_EQ(bar.value(), 1);
  EXPECT_EQ(sheet.take_log(), Log{});
}

// ---- Captions

TEST(Captions, AnAccessKeyIsTheLetterAfterTheSign) {
  EXPECT_EQ(access_key("&Bestand"), 'B');
  EXPECT_EQ(access_key("Be&werken"), 'W');
  EXPECT_EQ(access_key("Invullen a&fsluiten"), 'F');
  EXPECT_EQ(access_key("De '&Big-M'-methode"), 'B');
  EXPECT_EQ(access_key("Keuze &1"), '1');
  EXPECT_EQ(access_key("OK"), 0);
  EXPECT_EQ(access_key(""), 0);
  EXPECT_EQ(access_key("&"), 0);
  EXPECT_EQ(access_key("A&"), 0);
  EXPECT_EQ(access_key("A && &B"), 'B');
  EXPECT_EQ(access_key("A && B"), 0);
}

TEST(Captions, ThePlainCaptionIsWhatThePersonSees) {
  EXPECT_EQ(plain_caption("Be&werken"), "Bewerken");
  EXPECT_EQ(plain_caption("A && B"), "A & B");
  EXPECT_EQ(plain_caption("  blanks  "), "  blanks  ");
  EXPECT_EQ(plain_caption("A&"), "A&");
  EXPECT_EQ(plain_caption(""), "");
}

// ---- Colours and display lists

TEST(Colours, KeepTheirPartsInThePlatformsOrder) {
  constexpr Colour colour = rgb(218, 220, 254);
  EXPECT_EQ(colour.value, 0xFEDCDAU);
  EXPECT_EQ(colour.red(), 218);
  EXPECT_EQ(colour.green(), 220);
  EXPECT_EQ(colour.blue(), 254);
  EXPECT_FALSE(colour.is_system());
  EXPECT_TRUE(system_colour::window.is_system());
}

TEST(DisplayLists, KeepTheirStrokesInOrder) {
  DisplayList list;
  list.dots({{1, 2}, {3, 4}}, rgb(255, 0, 0));
  list.line({0, 0}, {5, 6}, rgb(0, 255, 0));
  list.text({7, 8}, "x1", rgb(0, 0, 255));
  list.stamp({9, 10}, {11, 12}, Picture::Cross, Raster::And);
  ASSERT_EQ(list.strokes().size(), 4U);
  EXPECT_EQ(std::get<stroke::Dots>(list.strokes()[0]).points[1], (Point{3, 4}));
  EXPECT_EQ(std::get<stroke::Segment>(list.strokes()[1]).to, (Point{5, 6}));
  EXPECT_EQ(std::get<stroke::Text>(list.strokes()[2]).text, "x1");
  EXPECT_EQ(std::get<stroke::Stamp>(list.strokes()[3]).raster, Raster::And);
  list.clear();
  EXPECT_TRUE(list.strokes().empty());
}

TEST(DisplayLists, AreEqualWhenEveryStrokeIs) {
  const auto make = [](Raster raster, std::string words) {
    DisplayList list;
    list.stamp({0, 0}, {1, 1}, Picture::Cross, raster);
    list.text({0, 0}, std::move(words), {});
    return list;
  };
  EXPECT_EQ(make(Raster::Copy, "a"), make(Raster::Copy, "a"));
  EXPECT_NE(make(Raster::Copy, "a"), make(Raster::And, "a"));
  EXPECT_NE(make(Raster::Copy, "a"), make(Raster::Copy, "b"));
  EXPECT_NE(make(Raster::Copy, "a"), DisplayList());
}

}  // namespace
}  // namespace tabulon::platform
