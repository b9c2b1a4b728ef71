// A person and a script who do anything at any moment. After every event what is seen must be right.
//
// TABULON_SEED in the environment takes another walk, TABULON_EVENTS makes it longer or shorter.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <deque>
#include <iterator>

#include "tests/control/control_fixture.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon {
namespace {

using platform::Control;
using platform::Kind;
using platform::Menu;
using platform::TextBox;

constexpr int default_events = 100000;
constexpr double huge = 1e60;  // from here on a step may become too large for a Double

constexpr std::string_view keys[] = {"Tab",       "Tab",   "Tab",        "Shift+Tab", "Enter",  "Enter",
                                     "Escape",    "Up",    "Down",       "Left",      "Right",  "Ctrl+Enter",
                                     "Ctrl+Left", "Home",  "End",        "Space",     "PageUp", "Alt+B",
                                     "Alt+W",     "Alt+O", "Alt+H",      "Alt+A",     "A",      "N",
                                     "PageDown",  "O",     "Ctrl+Right", "Shift+Left"};

constexpr std::string_view entries[] = {"1",  "-2",     " 3",  "2/3",     "4pi",   "sqrt(2)",
                                        "0",  "-1.5E1", "7",   "(1+2)^2", "",      "  ",
                                        "1/", "x",      "1/0", ")",       "hallo", "1E300"};

constexpr std::string_view lists[] = {"",
                                      " 1, 2, 3, 4, 5, 6",
                                      "-3, -5",
                                      " 4, 12, 18",
                                      ",,",
                                      " 1,, 3",
                                      " 7",
                                      "1/2, hallo, -.5",
                                      " 1, 0, 2, 5, 3, 3, 0, 1, 1, 1, 4, 2, 9, 1, 1, 2, 3, 1, 2, 1"};

constexpr std::string_view commands[] = {"mnu_Nieuw_Simplex",
                                         "mnu_Nieuw_Big_M",
                                         "mnu_Tableau_Invullen",
                                         "mnu_Tableau_Invullen_Afsluiten",
                                         "mnu_Pivot_element",
                                         "mnu_Basisoplossing",
                                         "mnu_Kolommen_Normeren",
                                         "mnu_Kolommen_vegen",
                                         "mnu_Automatisch_vegen",
                                         "mnu_optimaliseren",
                                         "mnu_Reset",
                                         "mnu_Breuken",
                                         "mnu_Grafiek",
                                         "mnu_About",
                                         "mnu_Openen",
                                         "mnu_Tableau_Opslaan_Als"};

class RandomWalk : public ControlTest {
 protected:
  void walk(int events);

  template <class Range>
  const auto& any_of(const Range& range) {
    return *std::next(std::begin(range), random.between(0, static_cast<int>(std::size(range)) - 1));
  }
  bool one_in(int times) { return random.between(1, times) == 1; }

  // ---- Events
  using Event = void (RandomWalk::*)();
  void press_a_key() {
    const std::string_view key = any_of(keys);
    note("press " + std::string(key));
    host.desk().key(front(), key_named(key));
  }
  void focus_a_control() {
    Control& control_here = a_control();
    note("focus " + std::string(control_here.name()) + " " + std::to_string(control_here.index()));
    host.desk().focus(control_here);
  }
  void type_something() {
    Control* box = one_in(4) ? &a_control() : front().active();
    if (!box || box->kind() != Kind::TextBox) return focus_a_control();
    const std::string_view words = any_of(entries);
    note("type " + std::string(words) + " in " + std::string(box->name()) + " " +
         std::to_string(box->index()));
    host.desk().type(static_cast<TextBox&>(*box), std::string(words));
  }
  void click_a_control() {
    Control& control_here = a_control();
    note("click " + std::string(control_here.name()));
    one_in(10) ? host.desk().click(front()) : host.desk().click(control_here);
  }
  void scroll_a_bar() {
    Control& control_here = a_control();
    if (control_here.kind() != Kind::HScrollBar && control_here.kind() != Kind::VScrollBar)
      return press_a_key();
    const int value = random.between(-2, 30);
    note("scroll " + std::string(control_here.name()) + " to " + std::to_string(value));
    host.desk().scroll(static_cast<platform::ScrollBar&>(control_here), value, one_in(3));
  }
  void point_somewhere() {
    Control& control_here = a_control();
    note("point at " + std::string(control_here.name()));
    host.desk().pointer(control_here,
                        {static_cast<platform::Pointer::Action>(random.between(0, 3)), one_in(2),
                         random.between(-200, 5000) * 1.0, random.between(-200, 5000) * 1.0});
  }
  void choose_a_command() {
    const std::string_view command = any_of(commands);
    note("choose " + std::string(command));
    if (!host.top_form()) choose(command);
  }
  void use_the_menu() {
    const platform::MenuSession* const open = host.open_menu();
    if (!open) return press_a_key();
    note("use the menu");
    Menu& item = *any_of(open->open().back()->items());
    one_in(2) ? host.desk().menu_choose(item) : host.desk().menu_point_at(item);
    if (one_in(3)) host.desk().menu_dismiss();
  }
  void answer_what_is_asked() {
    note("answer");
    if (host.file_dialog() && one_in(2)) return host.cancel_file_dialog();
    if (host.file_dialog()) return host.answer_file_dialog(one_in(3) ? "niet*goed" : "les.tbl");
    if (!host.answer_one()) host.advance(random.between(0, 12) / 10.0);
  }
  void leave_or_enter() {
    note("leave or enter");
    one_in(2) ? host.desk().leave(control) : host.desk().enter(control);
  }
  void set_a_count();
  void set_a_list();
  void show_anew();
  // A list lays out the counts that were set before it, as prmShow does: more than there is room for, or than
  // 16 bits can count.
  static void expect_too_much(const RunTimeError& error) {
    EXPECT_TRUE(error.number == ErrorNumber::SubscriptOutOfRange || error.number == ErrorNumber::Overflow);
  }
  void call_a_method();
  Control& a_control() { return *any_of(front().controls()); }

  // ---- What must be right
  void check_all();
  void check_reports();
  void check_numbers();
  void check_grid();
  void check_focus();
  void check_waiting();

  double largest() const;
  // Counts below zero can put a basic variable before the first column.
  bool basis_below_zero() const {
    for (int row = 1; row <= most_rows; ++row)
      if (model.current.basis(row) < 0) return true;
    return false;
  }
  bool counts_below_zero() const {
    return std::min({model.NrBeslisVar, model.NrKleinerGelijkVglen, model.NrGroterGelijkVglen,
                     model.NrGelijkVglen}) < 0;
  }
  // A dialog that opened on such counts offers columns that are not there, whatever the counts are when it
  // closes.
  bool asked_for_no_column() const { return model.NormeerKolom < 0 || model.NormeerKolom > most_columns; }
  // A count that a script sets alone can show a scroll bar, which then has the range of the tableau
  // before: 1..0.
  bool scrolled_before_the_first() const { return !drawn && (model.StartKolom < 1 || model.StartRij < 1); }
  void give_up_long_runs();
  void note(std::string event) {
    event = (host.is_busy(control) ? "busy " : "") + form() + menu() + "> " + event;
    trail.push_back(std::move(event));
    if (trail.size() > 25) trail.pop_front();
  }
  std::string told() const {
    std::string story = random.seed_text() + " after:";
    for (const std::string& event : trail) story += "\n  " + event;
    return story;
  }

  numbers::RandomNumbers random;
  std::deque<std::string> trail;
  bool drawn = true;  // the grid was drawn since a script changed what it should show
  bool beyond = false, too_large = false;
  int answers_in_a_row = 0, undrawn_events = 0, grids_checked = 0;
};

void RandomWalk::set_a_count() {
  static constexpr std::string_view counts[] = {"prmNrBeslisVar", "prmNrKleinerGelijkVglen",
                                                "prmNrGroterGelijkVglen", "prmNrGelijkVglen"};
  if (one_in(3)) return static_cast<void>(control.set_property("prmBigM", random.between(-200, 1000) * 1.0));
  const std::string_view count = any_of(counts);
  const double number = one_in(50) ? 32767 : random.between(one_in(10) ? -2 : 0, one_in(10) ? 14 : 4);
  note("set " + std::string(count) + " to " + std::to_string(number));
  EXPECT_TRUE(control.set_property(count, number).value());
  drawn = false;
}

void RandomWalk::set_a_list() {
  static constexpr std::string_view properties[] = {"prmDLfunctie", "prmKleinerGelijkVglen",
                                                    "prmGroterGelijkVglen", "prmGelijkVglen", "prmRL"};
  const std::string_view property = any_of(properties);
  const std::string_view list = any_of(lists);
  note("set " + std::string(property) + " to " + std::string(list));
  const auto done = control.set_property(property, std::string(list)).value();
  if (!done) {
    expect_too_much(done.error());
    EXPECT_TRUE(!model.shape() || !drawn || counts_below_zero());
  }
  drawn = drawn || done.has_value();
}

void RandomWalk::show_anew() {
  if (one_in(2) || !model.shape()) {  // a problem of a moderate size
    for (const auto& [count, most] :
         {std::pair{"prmNrBeslisVar", 8}, std::pair{"prmNrKleinerGelijkVglen", 6},
          std::pair{"prmNrGroterGelijkVglen", 2}, std::pair{"prmNrGelijkVglen", 2}})
      EXPECT_TRUE(control.set_property(count, random.between(0, most) * 1.0).value());
  }
  note("prmShow");
  const auto done = control.set_property("prmShow", true).value();
  drawn = done.has_value();
  if (!done) expect_too_much(done.error());
}

void RandomWalk::call_a_method() {
  const int method = random.between(1, 7);
  note("call method " + std::to_string(method));
  if (host.open_forms().size() >= 4) return;
  model.strMelding = "Tekst";
  switch (method) {
    case 1:
      return static_cast<void>(host.desk().call(control, control.ShowAboutBox()));
    case 2:
      model.MeldingNr = static_cast<std::int16_t>(random.between(-1, 6));
      return static_cast<void>(host.desk().call(control, control.ShowfrmMelding()));
    case 3:
      return static_cast<void>(host.desk().call(control, control.ShowfrmFoutmelding()));
    case 4:
      return static_cast<void>(host.desk().call(control, control.ShowfrmPivotelement()));
    case 5:
      drawn = false;
      return static_cast<void>(control.InitTableau());
    case 6:
      return static_cast<void>(control.SchrijfTableau("les.tbl"));
    default:
      drawn = control.LeesTableau("les.tbl").has_value() && drawn;
      host.desk().flush();
  }
}

// ---- The checks

void RandomWalk::check_reports() {
  const bool beyond_now = !model.shape() || counts_below_zero() || basis_below_zero() ||
                          asked_for_no_column() || scrolled_before_the_first();
  const bool too_large_now = largest() > huge;
  for (const auto& report : host.reports) {
    const ErrorNumber number = report.error.number;
    if (number == ErrorNumber::SubscriptOutOfRange)
      EXPECT_TRUE(beyond || beyond_now);
    else if (number == ErrorNumber::Overflow)
      EXPECT_TRUE(too_large || too_large_now || beyond || beyond_now);
    else
      ADD_FAILURE() << "error " << static_cast<int>(number) << " " << report.error.subject;
  }
  host.reports.clear();
  beyond = beyond_now;
  too_large = too_large_now;
}

double RandomWalk::largest() const {
  double found = model.current.row_F().largest_magnitude(most_columns);
  for (int row = 1; row <= most_rows; ++row)
    found = std::max(found, model.current.row(row).largest_magnitude(most_columns));
  return found;
}

void RandomWalk::check_numbers() {
  EXPECT_GE(model.NrTableau, 1);
  for (const TableauState* tableau : {&model.current, &model.first}) {
    EXPECT_TRUE(tableau->row_F().all_finite(most_columns));
    for (int row = 1; row <= most_rows; ++row) EXPECT_TRUE(tableau->row(row).all_finite(most_columns));
  }
}

void RandomWalk::check_grid() {
  const auto shape = model.shape();
  if (!drawn || !shape || !host.desk().accepts(control)) return;
  ++grids_checked;
  const auto as_stored = [&](const Control& box, const CellRow& row, int column) {
    if (&box != control.active()) EXPECT_EQ(box.text(), row.text(column)) << box.name() << " " << box.index();
  };
  const bool filling_in = checked("mnu_Tableau_Invullen");
  EXPECT_EQ(text("lblNRTableau"), std::to_string(model.NrTableau) + "-e Simplex-tableau");
  EXPECT_EQ(text("lblFRL"), model.current.row_F().text(CellRow::right_hand_side));
  EXPECT_EQ(control.find("HScroll")->visible(), shape->columns > 5);
  EXPECT_EQ(control.find("VScroll")->visible(), shape->rows > 7);
  for (int at = 1; at <= 5; ++at) {
    const int column = model.StartKolom + at - 1;
    const auto& box_F = static_cast<const TextBox&>(*control.find("txtRij_F", at));
    EXPECT_EQ(box_F.visible(), column <= shape->columns) << "column " << at;
    EXPECT_EQ(control.find("lblKolom", at)->visible(), column <= shape->columns);
    if (column > shape->columns) continue;
    as_stored(box_F, model.current.row_F(), column);
    EXPECT_EQ(box_F.locked(), !filling_in || column > model.NrBeslisVar);
    EXPECT_EQ(text("lblKolom", at), model.variable_name(column));
  }
  for (int at = 1; at <= 7; ++at) {
    const int row = model.StartRij + at - 1;
    const auto& right = static_cast<const TextBox&>(*control.find("txtRL", at));
    EXPECT_EQ(right.visible(), row <= shape->rows) << "row " << at;
    for (int of = 1; of <= 5; ++of) {
      const int column = model.StartKolom + of - 1;
      const auto& box_here = static_cast<const TextBox&>(*control.find("txtTableau", box(at, of)));
      EXPECT_EQ(box_here.visible(), row <= shape->rows && column <= shape->columns);
      if (box_here.visible()) as_stored(box_here, model.current.row(row), column);
      if (box_here.visible()) EXPECT_EQ(box_here.locked(), !filling_in || column > model.NrBeslisVar);
    }
    if (row > shape->rows) continue;
    as_stored(right, model.current.row(row), CellRow::right_hand_side);
    EXPECT_EQ(right.locked(), !filling_in);
  }
}

void RandomWalk::check_focus() {
  if (!host.desk().accepts(control)) return;
  ASSERT_NE(control.active(), nullptr);
  EXPECT_TRUE(control.active()->can_take_focus()) << focus();
}

// Who is busy waits for something that can come.
void RandomWalk::check_waiting() {
  if (host.is_busy(control))
    EXPECT_TRUE(host.has_pending() || host.sleeps() || host.file_dialog()) << form() << menu();
}

void RandomWalk::check_all() {
  check_reports();
  check_numbers();
  check_focus();
  check_grid();
  check_waiting();
}

// ---- The walk

// A problem on which the method goes round in circles would keep the control busy for ever.
void RandomWalk::give_up_long_runs() {
  answers_in_a_row = host.is_busy(control) ? answers_in_a_row + 1 : 0;
  if (answers_in_a_row > 40) {
    note("abandon");
    host.desk().abandon(control);
    drawn = false;
    EXPECT_TRUE(host.open_forms().empty());
    EXPECT_FALSE(host.is_busy(control));
  }
  undrawn_events = drawn ? 0 : undrawn_events + 1;
  if (undrawn_events > 20) show_anew();
}

void RandomWalk::walk(int events) {
  static constexpr std::pair<int, Event> weighted[] = {
      {24, &RandomWalk::press_a_key},
      {12, &RandomWalk::type_something},
      {8, &RandomWalk::focus_a_control},
      {8, &RandomWalk::click_a_control},
      {6, &RandomWalk::scroll_a_bar},
      {4, &RandomWalk::point_somewhere},
      {6, &RandomWalk::choose_a_command},
      {8, &RandomWalk::use_the_menu},
      {14, &RandomWalk::answer_what_is_asked},
      {1, &RandomWalk::leave_or_enter},
      {1, &RandomWalk::set_a_count},
      {3, &RandomWalk::set_a_list},
      {1, &RandomWalk::show_anew},
      {1, &RandomWalk::call_a_method},
  };
  int total = 0;
  for (const auto& [weight, event] : weighted) total += weight;
  for (int count = 0; count < events && !HasFailure(); ++count) {
    int at = random.between(1, total);
    for (const auto& [weight, event] : weighted)
      if ((at -= weight) <= 0) {
        (this->*event)();
        break;
      }
    give_up_long_runs();
    check_all();
    host.forget_mirrored();
    host.history.clear();
    host.ended_calls.clear();
  }
  if (HasFailure()) ADD_FAILURE() << told();
  EXPECT_GT(grids_checked, events / 5);  // else the walk hangs in a form
}

TEST_F(RandomWalk, LeavesTheControlSoundWhateverHappens) {
  host.yield_every = 1;
  open(two_products);
  const char* const wanted = std::getenv("TABULON_EVENTS");
  walk(wanted ? std::atoi(wanted) : default_events);
}

}  // namespace
}  // namespace tabulon
