// A control may go at any moment: while it waits for the person, and while its host tells somebody something.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "control/LPctrl.h"
#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

// A host whose listener may do anything whenever the host is told something.
class ListenedHost : public platform::HeadlessHost {
 public:
  std::function<void(std::string_view)> listener;

  void mirror(platform::Surface& surface) override {
    const std::string name = "mirror " + std::string(surface.name());
    HeadlessHost::mirror(surface);
    tell(name);
  }
  void open_form(platform::Form& form) override {
    HeadlessHost::open_form(form);
    tell("open_form");
  }
  void close_form(platform::Form& form) override {
    HeadlessHost::close_form(form);
    tell("close_form");
  }
  using HeadlessHost::open_menu;
  void open_menu(const platform::MenuSession& menu) override {
    HeadlessHost::open_menu(menu);
    tell("open_menu");
  }
  void set_busy(platform::Surface& surface, bool busy) override {
    HeadlessHost::set_busy(surface, busy);
    tell("set_busy");
  }
  void copy_picture(const platform::ClipboardPicture& picture, platform::Ticket ticket) override {
    HeadlessHost::copy_picture(picture, ticket);
    tell("copy_picture");
  }
  void call_ended(platform::Ticket call) override {
    HeadlessHost::call_ended(call);
    tell("call_ended");
  }

 private:
  void tell(std::string_view what) const {
    if (listener) listener(what);
  }
};

struct Waiting {
  const char* name;
  std::function<void(ListenedHost&, LPctrl&, Person&)> begin;
};

void PrintTo(const Waiting& waiting, std::ostream* out) {
  *out << waiting.name;
}

Waiting chosen(const char* name, const char* item) {
  return {name, [item](ListenedHost&, LPctrl&, Person& person) { person.choose(item); }};
}

Waiting called(const char* name, platform::Task<> (LPctrl::*method)()) {
  return {name, [method](ListenedHost& host, LPctrl& control, Person&) {
            host.desk().call(control, (control.*method)());
          }};
}

const Waiting everything_that_waits[] = {
    {"Menu", [](ListenedHost&, LPctrl&, Person& person) { person.click("cmd_Bestand"); }},
    {"PendingEvents",
     [](ListenedHost& host, LPctrl& control, Person&) { host.desk().click(*control.find("cmd_Help")); }},
    {"OneSecond",
     [](ListenedHost&, LPctrl&, Person& person) {
       person.choose("mnu_Automatisch_vegen");
       person.press("Enter");
     }},
    {"Clipboard",
     [](ListenedHost& host, LPctrl& control, Person& person) {
       person.choose("mnu_Grafiek");
       host.desk().click(*control.find("cmdKopieren"));
     }},
    {"RefusedInput",
     [](ListenedHost&, LPctrl&, Person& person) {
       person.enter_text("txtTableau", 1, "1/0");
       person.press("Enter");
     }},
    {"ClickOnAForm",
     [](ListenedHost& host, LPctrl& control, Person& person) {
       person.choose("mnu_Kolommen_vegen");
       host.desk().call(control, control.ShowfrmMelding());
     }},
    chosen("SaveDialog", "mnu_Tableau_Opslaan_Als"),
    chosen("OpenDialog", "mnu_Openen"),
    chosen("NewSimplex", "mnu_Nieuw_Simplex"),
    chosen("NewBigM", "mnu_Nieuw_Big_M"),
    chosen("Normalise", "mnu_Kolommen_Normeren"),
    chosen("Sweep", "mnu_Kolommen_vegen"),
    chosen("BasicSolution", "mnu_Basisoplossing"),
    chosen("PivotElement", "mnu_Pivot_element"),
    chosen("Optimum", "mnu_optimaliseren"),
    called("Message", &LPctrl::ShowfrmMelding),
    called("Failure", &LPctrl::ShowfrmFoutmelding),
    called("About", &LPctrl::ShowAboutBox),
};

class ThatWaits : public testing::TestWithParam<Waiting> {
 protected:
  ThatWaits() {
    EXPECT_TRUE(open_control(host, *control, two_products));
    EXPECT_TRUE(open_control(host, other, two_products));
  }
  void begin() { GetParam().begin(host, *control, person); }
  void expect_all_closed() {
    EXPECT_TRUE(host.open_forms().empty());
    EXPECT_EQ(host.open_menu(), nullptr);
    // Answers that come too late are for nobody.
    if (host.file_dialog()) host.cancel_file_dialog();
    host.answer_all();
    host.advance(2.0);
    EXPECT_TRUE(host.desk().accepts(other));
    EXPECT_TRUE(host.desk().click(*other.find("txtFocus")));
  }

  ListenedHost host;
  basSafeCtl model;
  LPctrl other{host.desk(), model};
  std::unique_ptr<LPctrl> control = std::make_unique<LPctrl>(host.desk(), model);
  Person person{host, *control};
};

using AControl = ThatWaits;

TEST_P(AControl, CanBeDestroyed) {
  begin();
  ASSERT_TRUE(host.is_busy(*control) || !host.desk().accepts(*control)) << "it waits for nothing";
  control.reset();
  expect_all_closed();
}

TEST_P(AControl, CanBeDestroyedByAListenerOfAnother) {
  begin();
  host.listener = [this](std::string_view what) {
    if (what == "mirror LPctrl") control.reset();
  };
  other.find("lblNRTableau")->set_text("changed");
  host.desk().flush();
  EXPECT_EQ(control, nullptr);
  host.listener = nullptr;
  expect_all_closed();
}

// The listener hears it while a handler of the control runs, or just after; then the handler ends where it
// next waits.
TEST_P(AControl, CanBeGivenUpByAListenerOfItsOwn) {
  for (const std::string_view moment :
       {"mirror LPctrl", "open_form", "open_menu", "set_busy", "copy_picture", "close_form", "call_ended"}) {
    host.listener = [this, moment](std::string_view what) {
      if (what != moment) return;
      host.listener = nullptr;
      host.desk().abandon(*control);
    };
    begin();
    host.listener = nullptr;
    host.desk().abandon(*control);
    expect_all_closed();
    EXPECT_FALSE(host.is_busy(*control)) << moment;
    if (person.shown("frmGrafiek")) person.choose("mnu_Grafiek");
    person.press("Escape");
  }
}

INSTANTIATE_TEST_SUITE_P(ThatWaitsFor, AControl, testing::ValuesIn(everything_that_waits),
                         [](const auto& info) { return info.param.name; });

// The next step of the handler would touch what is gone.
TEST(AControlInAHandlerOfItsOwn, IsNotDestroyed) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  ListenedHost host;
  basSafeCtl model;
  auto control = std::make_unique<LPctrl>(host.desk(), model);
  ASSERT_TRUE(open_control(host, *control, two_products));
  host.listener = [&](std::string_view what) {
    if (what == "open_menu") control.reset();
  };
  EXPECT_DEATH(host.desk().click(*control->find("cmd_Bestand")), "");
}

}  // namespace
}  // namespace tabulon
