#include "platform/desk.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "noting.h"

namespace tabulon::platform {
namespace {

class DeskTest : public testing::Test {
 protected:
  // A handler that waits a second.
  Task<> second() { co_await desk.wait_milliseconds(1000); }
  // A handler that asks in a form, and notes the form's life.
  Task<> ask(Surface& owner) {
    Question question(owner);
    open = &question;
    co_await desk.show_modal(question);
    asked = question.take_log();
    open = nullptr;
  }
  void asks_when_clicked() {
    sheet.when_clicked = [this](Control&) { return ask(sheet); };
  }
  void waits_when_clicked() {
    sheet.when_clicked = [this](Control&) { return second(); };
  }

  HeadlessHost host;
  Desk& desk = host.desk();
  Sheet sheet{desk};
  Sheet other{desk, "Other"};
  Question* open = nullptr;
  Log asked;
};

// ---- What the host is handed

TEST_F(DeskTest, TheHostIsHandedTheChangesOnceWhenTheHandlerIsDone) {
  desk.flush();
  host.forget_mirrored();
  int during = -1;
  sheet.when_clicked = [&](Control&) -> Task<> {
    sheet.first.set_text(" 1");
    sheet.first.set_text(" 2");
    sheet.second.set_text(" 3");
    during = host.mirrors(sheet);
    co_return;
  };
  desk.click(sheet.go);
  EXPECT_EQ(during, 0);
  EXPECT_EQ(host.mirrors(sheet), 1);
  ASSERT_EQ(host.mirrored().size(), 2U);
  EXPECT_EQ(host.mirrored()[0].control, &sheet.first);
  EXPECT_EQ(host.mirrored()[1].control, &sheet.second);
  EXPECT_EQ(host.mirrors(other), 0);
}

TEST_F(DeskTest, WhatNoHandlerChangedIsHandedOverWhenAsked) {
  desk.flush();
  host.forget_mirrored();
  sheet.first.set_text(" 5");
  EXPECT_EQ(host.mirrors(sheet), 0);
  desk.flush();
  EXPECT_EQ(host.mirrors(sheet), 1);
}

TEST_F(DeskTest, PendingEventsShowWhatWasChangedBeforeTheyHappen) {
  bool went_on = false;
  sheet.when_clicked = [&](Control&) -> Task<> {
    sheet.first.set_text(" 1");
    co_await desk.pending_events();
    went_on = true;
  };
  host.forget_mirrored();
  desk.click(sheet.go);
  EXPECT_FALSE(went_on);
  EXPECT_GE(host.mirrors(sheet), 1);
  EXPECT_EQ(host.mirrored().front().surface, &sheet);
  host.answer_all();
  EXPECT_TRUE(went_on);
}

// ---- One thing at a time

TEST_F(DeskTest, EventsAreDroppedWhileAHandlerWaits) {
  waits_when_clicked();
  EXPECT_TRUE(desk.click(sheet.go));
  sheet.take_log();
  HScrollBar bar(sheet, "bar");
  EXPECT_FALSE(desk.click(sheet.stop));
  EXPECT_FALSE(desk.click(sheet));
  EXPECT_FALSE(desk.focus(sheet.second));
  EXPECT_FALSE(desk.type(sheet.second, " 1"));
  EXPECT_FALSE(desk.scroll(bar, 4, true));
  EXPECT_FALSE(desk.pointer(sheet.first, {}));
  EXPECT_TRUE(desk.key(sheet, {'X'})) << "the host must not let a dropped key do something else";
  EXPECT_EQ(sheet.take_log(), Log{});
  EXPECT_EQ(sheet.second.text(), "");
  host.advance(1);
  EXPECT_TRUE(desk.focus(sheet.second));
}

TEST_F(DeskTest, EventsOfOtherSurfacesAreDroppedTooWhileAHandlerWaits) {
  waits_when_clicked();
  desk.click(sheet.go);
  EXPECT_FALSE(desk.accepts(other));
  EXPECT_FALSE(desk.click(other.go));
  EXPECT_EQ(other.take_log(), Log{});
  host.advance(1);
  EXPECT_TRUE(desk.click(other.go));
}

TEST_F(DeskTest, EnteringAndLeavingAreNotedWhileAHandlerWaits) {
  waits_when_clicked();
  desk.click(sheet.go);
  desk.leave(sheet);
  desk.enter(other);
  EXPECT_FALSE(sheet.has_focus());
  EXPECT_TRUE(other.has_focus());
  EXPECT_EQ(other.take_log(), Log{"Enter"});
}

TEST_F(DeskTest, AWaitEndsWhenItsTimeHasCome) {
  bool went_on = false;
  sheet.when_clicked = [&](Control&) -> Task<> {
    co_await second();
    went_on = true;
  };
  desk.click(sheet.go);
  host.advance(0.999);
  EXPECT_FALSE(went_on);
  host.advance(0.001);
  EXPECT_TRUE(went_on);
}

TEST_F(DeskTest, AnAnswerNobodyWaitsForIsIgnored) {
  Ticket ticket = 0;
  bool went_on = false;
  struct Asking : HeadlessHost {
    Ticket* asked = nullptr;
    void wake_after(double, Ticket ticket_of_wait) override { *asked = ticket_of_wait; }
  } asking;
  asking.asked = &ticket;
  Sheet alone(asking.desk());
  alone.when_clicked = [&](Control&) -> Task<> {
    co_await asking.desk().wait_milliseconds(1);
    went_on = true;
  };
  asking.desk().click(alone.go);
  asking.desk().wake(ticket + 1);
  EXPECT_FALSE(went_on);
  asking.desk().wake(ticket);
  EXPECT_TRUE(went_on);
  asking.desk().wake(ticket);
}

// ---- Busy

TEST_F(DeskTest, BusyIsSetOnlyWhileAHandlerWaitsWithoutAForm) {
  sheet.when_clicked = [&](Control&) -> Task<> {
    co_await second();
    co_await ask(sheet);
    co_await second();
  };
  EXPECT_FALSE(host.is_busy(sheet));
  desk.click(sheet.go);
  EXPECT_TRUE(host.is_busy(sheet));
  host.advance(1);
  EXPECT_FALSE(host.is_busy(sheet));
  desk.click(open->ok);
  EXPECT_TRUE(host.is_busy(sheet));
  host.advance(1);
  EXPECT_FALSE(host.is_busy(sheet));
  EXPECT_EQ(host.history,
            (Log{"busy Sheet", "+Question", "idle Sheet", "-Question", "busy Sheet", "idle Sheet"}));
}

TEST_F(DeskTest, AHandlerThatEndsAtOnceIsNeverBusy) {
  desk.click(sheet.go);
  EXPECT_EQ(host.history, Log{});
}

TEST_F(DeskTest, AFormThatGoesWhileItWasBusyLeavesNothingBehind) {
  asks_when_clicked();
  desk.click(sheet.go);
  open->when_clicked = [this](Control&) { return second(); };
  desk.click(open->ok);
  EXPECT_TRUE(host.is_busy(*open));
  host.advance(1);
  ASSERT_EQ(open, nullptr);
  host.history.clear();
  desk.click(sheet.go);  // another form, perhaps in the same place
  EXPECT_EQ(host.history, Log{"+Question"});
  desk.click(open->ok);
}

// ---- Forms

TEST_F(DeskTest, AFormIsLoadedEnteredActivatedAndGetsTheFocus) {
  asks_when_clicked();
  desk.click(sheet.go);
  ASSERT_EQ(host.top_form(), open);
  EXPECT_EQ(open->active(), &open->answer);
  desk.click(open->ok);
  EXPECT_EQ(host.top_form(), nullptr);
  EXPECT_EQ(asked, (Log{"Load", "Enter", "Activate", "GotFocus answer", "Validate answer", "LostFocus answer",
                        "GotFocus ok", "Click ok"}));
}

TEST_F(DeskTest, AFormThatPlacesTheFocusItselfKeepsIt) {
  sheet.when_clicked = [&](Control&) -> Task<> {
    Question question(sheet);
    open = &question;
    question.when_activated = [&]() -> Task<> { co_await question.set_focus(question.cancel); };
    co_await desk.show_modal(question);
    open = nullptr;
  };
  desk.click(sheet.go);
  EXPECT_EQ(open->active(), &open->cancel);
  desk.click(open->cancel);
  EXPECT_EQ(open, nullptr);
}

TEST_F(DeskTest, WhileAFormIsOpenOnlyItTakesEvents) {
  asks_when_clicked();
  desk.click(sheet.go);
  sheet.take_log();
  EXPECT_FALSE(desk.click(sheet.stop));
  EXPECT_FALSE(desk.click(other.go));
  EXPECT_FALSE(desk.type(sheet.first, "x"));
  EXPECT_TRUE(desk.accepts(*open));
  EXPECT_TRUE(desk.type(open->answer, "ja"));
  EXPECT_EQ(open->answer.text(), "ja");
  EXPECT_EQ(sheet.take_log(), Log{});
  desk.click(open->ok);
  EXPECT_TRUE(desk.click(other.go));
}

TEST_F(DeskTest, AFormThatIsNotOpenTakesNoEvents) {
  Question question(sheet);
  EXPECT_FALSE(desk.accepts(question));
  EXPECT_FALSE(desk.click(question.ok));
}

TEST_F(DeskTest, TheHandlerGoesOnWhenTheFormHasClosed) {
  Log order;
  sheet.when_clicked = [&](Control&) -> Task<> {
    co_await ask(sheet);
    order.emplace_back("after");
  };
  desk.click(sheet.go);
  EXPECT_EQ(order, Log{});
  desk.click(open->ok);
  EXPECT_EQ(order, Log{"after"});
}

TEST_F(DeskTest, FormsMayOpenForms) {
  Question* inner = nullptr;
  asks_when_clicked();
  desk.click(sheet.go);
  Question& outer = *open;
  outer.when_clicked = [&](Control& control) -> Task<> {
    if (&control != &outer.ok) co_return;
    Question question(outer, "Inner");
    inner = &question;
    co_await desk.show_modal(question);
    inner = nullptr;
  };
  desk.click(outer.ok);
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(host.open_forms(), (std::vector<Form*>{&outer, inner}));
  EXPECT_FALSE(desk.click(outer.cancel));
  EXPECT_FALSE(desk.click(sheet.go));
  desk.click(inner->ok);
  EXPECT_TRUE(host.open_forms().empty());
  EXPECT_EQ(host.history, (Log{"+Question", "+Inner", "-Inner", "-Question"}));
}

TEST_F(DeskTest, AFormStaysUntilItsOwnHandlerIsDone) {
  asks_when_clicked();
  desk.click(sheet.go);
  open->when_clicked = [this](Control& control) -> Task<> {
    static_cast<Question&>(control.surface()).unload();
    co_await second();
  };
  desk.click(open->ok);
  EXPECT_EQ(host.top_form(), open);
  EXPECT_FALSE(desk.click(open->cancel));
  host.advance(1);
  EXPECT_EQ(host.top_form(), nullptr);
}

TEST_F(DeskTest, AFormMayCloseWhileItIsStillBeingActivated) {
  sheet.when_clicked = [&](Control&) -> Task<> {
    Question question(sheet);
    open = &question;
    question.when_activated = [&]() -> Task<> { co_await desk.pending_events(); };
    co_await desk.show_modal(question);
    open = nullptr;
  };
  desk.click(sheet.go);
  ASSERT_NE(open, nullptr);
  desk.click(open->ok);
  host.answer_all();
  EXPECT_EQ(open, nullptr);
  EXPECT_EQ(host.top_form(), nullptr);
}

TEST_F(DeskTest, AFormMayCloseItselfWhenItIsActivated) {
  sheet.when_clicked = [&](Control&) -> Task<> {
    Question question(sheet);
    question.when_activated = [&]() -> Task<> {
      question.unload();
      co_return;
    };
    co_await desk.show_modal(question);
  };
  desk.click(sheet.go);
  EXPECT_EQ(host.history, (Log{"+Question", "-Question"}));
  EXPECT_TRUE(desk.accepts(sheet));
}

TEST_F(DeskTest, TabGoesAroundOnAForm) {
  asks_when_clicked();
  desk.click(sheet.go);
  Log met;
  for (int turn = 0; turn < 4; ++turn) {
    EXPECT_TRUE(desk.key(*open, {key::tab}));
    met.emplace_back(open->active()->name());
  }
  EXPECT_EQ(met, (Log{"ok", "cancel", "answer", "ok"}));
  desk.key(*open, {key::tab, modifier::shift});
  desk.key(*open, {key::tab, modifier::shift});
  EXPECT_EQ(open->active(), &open->cancel);
}

TEST_F(DeskTest, EnterAndEscapePressAFormsButtonsFromAnywhere) {
  asks_when_clicked();
  desk.click(sheet.go);
  EXPECT_TRUE(desk.key(*open, {key::enter}));
  EXPECT_EQ(asked.back(), "Click ok");
  desk.click(sheet.go);
  EXPECT_TRUE(desk.key(*open, {key::escape}));
  EXPECT_EQ(asked.back(), "Click cancel");
  desk.click(sheet.go);
  desk.focus(open->cancel);
  EXPECT_TRUE(desk.key(*open, {key::enter}));
  EXPECT_EQ(asked.back(), "Click cancel") << "a button that has the focus comes before the default one";
}

TEST_F(DeskTest, AFormsAccessKeyPressesItsButton) {
  asks_when_clicked();
  desk.click(sheet.go);
  EXPECT_TRUE(desk.key(*open, {'A', modifier::alt}));
  EXPECT_EQ(asked.back(), "Click cancel");
}

// ---- Menus on the desk

class DeskMenu : public DeskTest {
 protected:
  DeskMenu() {
    sheet.when_clicked = [this](Control&) -> Task<> {
      chosen = co_await desk.show_menu(menu, 60, 285);
      closed = true;
    };
    desk.click(sheet.go);
  }

  Menu menu{sheet, "menu", "&Menu"};
  Menu cut{sheet, "cut", "&Knippen", &menu};
  Menu paste{sheet, "paste", "&Plakken", &menu};
  Menu* chosen = nullptr;
  bool closed = false;
};

TEST_F(DeskMenu, StandsOpenUntilAnItemIsChosen) {
  ASSERT_NE(desk.open_menu(), nullptr);
  EXPECT_EQ(desk.open_menu()->x(), 60);
  EXPECT_EQ(desk.open_menu()->y(), 285);
  EXPECT_FALSE(closed);
  desk.menu_choose(paste);
  EXPECT_EQ(chosen, &paste);
  EXPECT_EQ(desk.open_menu(), nullptr);
  EXPECT_EQ(host.history, (Log{"+menu", "-menu"}));
}

TEST_F(DeskMenu, TakesAllKeysAndNoOtherEvents) {
  EXPECT_FALSE(desk.click(sheet.stop));
  EXPECT_FALSE(desk.click(other.go));
  EXPECT_TRUE(desk.key(sheet, {key::down}));
  EXPECT_EQ(host.open_menu()->highlighted(), &cut);
  EXPECT_TRUE(desk.key(other, {'P'}));
  EXPECT_EQ(chosen, &paste);
}

TEST_F(DeskMenu, TheHostSeesEveryStep) {
  desk.menu_point_at(paste);
  EXPECT_EQ(host.open_menu()->highlighted(), &paste);
  desk.menu_key({key::up});
  EXPECT_EQ(host.open_menu()->highlighted(), &cut);
}

TEST_F(DeskMenu, AMenuThatIsDismissedChoosesNothing) {
  desk.menu_dismiss();
  EXPECT_TRUE(closed);
  EXPECT_EQ(chosen, nullptr);
  EXPECT_TRUE(desk.accepts(sheet));
}

TEST_F(DeskMenu, WithoutAMenuNothingHappens) {
  desk.menu_dismiss();
  desk.menu_key({key::down});
  desk.menu_point_at(cut);
  desk.menu_choose(cut);
  desk.menu_dismiss();
  EXPECT_EQ(chosen, nullptr);
}

TEST_F(DeskMenu, AnOpenMenuIsNotBusy) {
  EXPECT_FALSE(host.is_busy(sheet));
}

// ---- Dialogs, clipboard, yield

TEST_F(DeskTest, AFileDialogIsAskedAndAnswered) {
  std::string name;
  sheet.when_clicked = [&](Control&) -> Task<> {
    name = co_await desk.show_file_dialog(
        sheet, {FileDialog::Purpose::Save, "Opslaan als", "Tabellen|*.tbl", "oefening.tbl"});
  };
  desk.click(sheet.go);
  ASSERT_TRUE(host.file_dialog());
  EXPECT_EQ(host.file_dialog()->purpose, FileDialog::Purpose::Save);
  EXPECT_EQ(host.file_dialog()->title, "Opslaan als");
  EXPECT_EQ(host.file_dialog()->filter, "Tabellen|*.tbl");
  EXPECT_FALSE(desk.click(sheet.stop));
  EXPECT_FALSE(host.is_busy(sheet));
  host.answer_file_dialog("les.tbl");
  EXPECT_EQ(name, "les.tbl");
  EXPECT_FALSE(host.file_dialog());
  desk.click(sheet.go);
  host.cancel_file_dialog();
  EXPECT_EQ(name, "oefening.tbl");
}

TEST_F(DeskTest, AClipboardThatRefusesSaysSo) {
  std::optional<std::string> answer;
  sheet.when_clicked = [&](Control&) -> Task<> { answer = co_await desk.copy_picture({{}, {}, 300, 200}); };
  desk.click(sheet.go);
  EXPECT_FALSE(answer);
  host.answer_all();
  EXPECT_EQ(answer, "");
  EXPECT_EQ(host.clipboard->width, 300);
  host.clear_clipboard();
  host.clipboard_refusal = "not allowed";
  desk.click(sheet.go);
  host.answer_all();
  EXPECT_EQ(answer, "not allowed");
  EXPECT_FALSE(host.clipboard);
}

TEST_F(DeskTest, ALongRunGivesTheThreadBackWhenAYieldIsDue) {
  int rounds = 0;
  sheet.when_clicked = [&](Control&) -> Task<> {
    for (; rounds < 10; ++rounds) co_await desk.yield();
  };
  host.yield_every = 4;
  desk.click(sheet.go);
  EXPECT_EQ(rounds, 3);
  EXPECT_TRUE(host.is_busy(sheet));
  EXPECT_FALSE(desk.click(sheet.stop));
  host.answer_one();
  EXPECT_EQ(rounds, 7);
  host.answer_one();
  EXPECT_EQ(rounds, 10);
  EXPECT_FALSE(host.is_busy(sheet));
}

TEST_F(DeskTest, WithoutAYieldDueALongRunEndsAtOnce) {
  int rounds = 0;
  sheet.when_clicked = [&](Control&) -> Task<> {
    for (; rounds < 100'000; ++rounds) co_await desk.yield();
  };
  desk.click(sheet.go);
  EXPECT_EQ(rounds, 100'000);
  EXPECT_FALSE(host.has_pending());
}

// ---- Calls from scripts

TEST_F(DeskTest, ACallThatEndsAtOnceHasNoTicket) {
  bool ran = false;
  const auto work = [](bool& done) -> Task<> {
    done = true;
    co_return;
  };
  EXPECT_EQ(desk.call(sheet, work(ran)), 0);
  EXPECT_TRUE(ran);
}

TEST_F(DeskTest, ACallThatWaitsIsToldToHaveEnded) {
  const Ticket call = desk.call(sheet, ask(sheet));
  EXPECT_NE(call, 0);
  EXPECT_TRUE(host.ended_calls.empty());
  desk.click(open->ok);
  EXPECT_EQ(host.ended_calls, std::vector<Ticket>{call});
}

TEST_F(DeskTest, ACallRunsWhateverIsOpen) {
  asks_when_clicked();
  desk.click(sheet.go);
  const auto work = [](Sheet& on) -> Task<> {
    on.first.set_text(" 9");
    co_return;
  };
  host.forget_mirrored();
  EXPECT_EQ(desk.call(sheet, work(sheet)), 0);
  EXPECT_EQ(sheet.first.text(), " 9");
  EXPECT_EQ(host.mirrors(sheet), 1);
  desk.click(open->ok);
}

TEST_F(DeskTest, ACallRunsWhileAHandlerWaitsAndMayShowAForm) {
  waits_when_clicked();
  desk.click(sheet.go);
  const Ticket call = desk.call(sheet, ask(sheet));
  ASSERT_NE(open, nullptr);
  host.advance(1);  // the handler ends below the form
  EXPECT_EQ(host.top_form(), open);
  EXPECT_TRUE(desk.click(open->ok));
  EXPECT_EQ(host.ended_calls, std::vector<Ticket>{call});
  EXPECT_TRUE(desk.accepts(sheet));
}

TEST_F(DeskTest, FormsOfTwoCallsCloseFromTheTop) {
  const Ticket first = desk.call(sheet, ask(sheet));
  Question* const below = open;
  const Ticket second_call = desk.call(sheet, ask(sheet));
  Question* const above = open;
  EXPECT_FALSE(desk.click(below->ok));
  EXPECT_TRUE(desk.click(above->ok));
  EXPECT_EQ(host.ended_calls, std::vector<Ticket>{second_call});
  EXPECT_TRUE(desk.click(below->ok));
  EXPECT_EQ(host.ended_calls, (std::vector<Ticket>{second_call, first}));
}

TEST_F(DeskTest, ACallBegunOnAFormThatGoesIsWaitedForBelow) {
  asks_when_clicked();
  desk.click(sheet.go);
  const Ticket call = desk.call(other, second());
  desk.abandon(sheet);
  EXPECT_FALSE(desk.accepts(sheet));
  desk.call(sheet, ask(sheet));
  EXPECT_TRUE(desk.click(open->ok));
  host.advance(1);
  EXPECT_EQ(host.ended_calls.back(), call);
  EXPECT_TRUE(desk.accepts(sheet));
}

// ---- Giving up

TEST_F(DeskTest, AbandoningClosesTheFormAndFreesTheDesk) {
  asks_when_clicked();
  desk.click(sheet.go);
  desk.abandon(sheet);
  EXPECT_EQ(host.top_form(), nullptr);
  EXPECT_TRUE(desk.accepts(sheet));
  EXPECT_EQ(host.history, (Log{"+Question", "-Question"}));
}

TEST_F(DeskTest, WhatAbandonsItselfDoesNotGoOnWhenItHasWaited) {
  bool went_on = false;
  sheet.when_clicked = [&](Control&) -> Task<> {
    desk.abandon(sheet);
    co_await second();
    went_on = true;
  };
  desk.click(sheet.go);
  EXPECT_TRUE(desk.accepts(sheet));
  host.advance(1);
  EXPECT_FALSE(went_on);
}

TEST_F(DeskTest, AbandoningClosesNestedFormsWhoseHandlersWait) {
  asks_when_clicked();
  desk.click(sheet.go);
  Question& outer = *open;
  Question* inner = nullptr;
  bool went_on = false;
  outer.when_clicked = [&](Control&) -> Task<> {
    Question question(outer, "Inner");
    inner = &question;
    question.when_clicked = [&](Control&) -> Task<> {
      co_await second();
      went_on = true;
    };
    co_await desk.show_modal(question);
  };
  desk.click(outer.ok);
  desk.click(inner->ok);
  desk.abandon(sheet);
  EXPECT_TRUE(host.open_forms().empty());
  host.advance(2);
  EXPECT_FALSE(went_on);
  EXPECT_TRUE(desk.accepts(sheet));
}

TEST_F(DeskTest, AbandoningClosesTheMenu) {
  Menu menu(sheet, "menu", "&Menu");
  sheet.when_clicked = [&](Control&) -> Task<> { co_await desk.show_menu(menu, 0, 0); };
  desk.click(sheet.go);
  desk.abandon(sheet);
  EXPECT_EQ(desk.open_menu(), nullptr);
  EXPECT_EQ(host.history, (Log{"+menu", "-menu"}));
}

TEST_F(DeskTest, AbandoningALongRunEndsIt) {
  int rounds = 0;
  sheet.when_clicked = [&](Control&) -> Task<> {
    while (true) {
      ++rounds;
      co_await desk.yield();
    }
  };
  host.yield_every = 10;
  desk.click(sheet.go);
  EXPECT_TRUE(host.answer_one());
  EXPECT_EQ(rounds, 20);
  desk.abandon(sheet);
  host.answer_all();
  EXPECT_EQ(rounds, 20);
  EXPECT_FALSE(host.is_busy(sheet));
  EXPECT_TRUE(desk.accepts(sheet));
}

TEST_F(DeskTest, AbandoningOneSurfaceLeavesTheOthers) {
  bool went_on = false;
  other.when_clicked = [&](Control&) -> Task<> {
    co_await second();
    went_on = true;
  };
  desk.click(other.go);
  desk.abandon(sheet);
  host.advance(1);
  EXPECT_TRUE(went_on);
}

// Notes that the scope it stands in was left.
struct Leaving {
  Log& log;
  const char* what;
  ~Leaving() { log.emplace_back(what); }
};

TEST_F(DeskTest, ADeskThatGoesEndsWhatRunsOnItFromTheTop) {
  Log left;
  {
    HeadlessHost going;
    Sheet alone(going.desk());
    alone.when_clicked = [&](Control&) -> Task<> {
      const Leaving below{left, "below"};
      Question question(alone);
      question.when_clicked = [&](Control&) -> Task<> {
        const Leaving above{left, "above"};
        Question inner(question, "Inner");
        co_await going.desk().show_modal(inner);
      };
      co_await going.desk().show_modal(question);
    };
    going.desk().click(alone.go);
    going.desk().click(static_cast<Question*>(going.top_form())->ok);
    ASSERT_EQ(going.open_forms().size(), 2U);
  }
  EXPECT_EQ(left, (Log{"above", "below"}));
}

// ---- Scroll bars and pointers

TEST_F(DeskTest, AScrollBarTellsOfItsChangeAndOfDragging) {
  HScrollBar bar(sheet, "bar");
  bar.set_range(1, 10);
  sheet.take_log();
  desk.scroll(bar, 4, false);
  EXPECT_EQ(bar.value(), 4);
  EXPECT_EQ(sheet.take_log(), (Log{"GotFocus bar", "Change bar"}));
  desk.scroll(bar, 5, true);
  EXPECT_EQ(sheet.take_log(), (Log{"Change bar", "Scroll bar"}));
  desk.scroll(bar, 5, false);
  EXPECT_EQ(sheet.take_log(), Log{});
  desk.focus(sheet.first);
}

TEST_F(DeskTest, PointersReachTheirControl) {
  desk.pointer(sheet.first, {Pointer::Action::Down, true, 1, 2});
  desk.pointer(sheet.first, {Pointer::Action::Up, false, 1, 2});
  desk.pointer(sheet.first, {Pointer::Action::Lost, false, 0, 0});
  EXPECT_EQ(sheet.take_log(), (Log{"Down first", "Up first", "Lost first"}));
}

}  // namespace
}  // namespace tabulon::platform
