#include "graph/panel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/drawing.h"
#include "graph/panel_places.h"
#include "numbers/display.h"
#include "platform/desk.h"
#include "platform/texts.h"

namespace tabulon {

using platform::Control;
using platform::KeyPress;
using platform::Pointer;
using platform::Task;
using platform::Twips;
namespace key = platform::key;
namespace modifier = platform::modifier;

namespace {

constexpr std::int32_t no_drag = 500;  // taller than anything that can be dragged
constexpr Twips key_step = 150;        // by which an arrow key moves the panel
constexpr int long_step = 10;          // how many steps an arrow key goes with Shift

constexpr std::string_view copy_refused =
    "De afbeelding kon niet naar het klembord worden gekopieerd. Probeer het nog eens.";
constexpr std::string_view saved_instead =
    "Deze pagina is niet beveiligd (https) en mag niet bij het klembord. De afbeelding is gedownload.";

// To the nearest whole number, halves to the even one.
std::int32_t whole(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::nearbyint(std::clamp<double>(number, Limits::min(), Limits::max())));
}

struct Direction {
  int right = 0, up = 0;
};

std::optional<Direction> direction_of(KeyPress press) {
  if (press.shift != modifier::none && press.shift != modifier::shift) return {};
  const int steps = press.shift == modifier::shift ? long_step : 1;
  switch (press.code) {
    case key::left:
      return Direction{-steps, 0};
    case key::right:
      return Direction{steps, 0};
    case key::up:
      return Direction{0, steps};
    case key::down:
      return Direction{0, -steps};
    default:
      return {};
  }
}

}  // namespace

GraphPanel::GraphPanel(const Surroundings& around) : around_(around) {
  lay_out();
}

// ---- Opening and closing

void GraphPanel::mnu_Grafiek_Click() {
  show(!open_);
}

void GraphPanel::rebuild() {
  if (open_) show(true);
}

void GraphPanel::show(bool open) {
  if (around_.model.NrTableau == 1) hide_point();
  open_ = open;
  frmGrafiek.set_visible(open);
  m_blnGrafiek = m_blnGrafiek || open;
  if (open && around_.model.NrTableau > 0) draw();
}

// A level line that the next problem does not reach would else be that of the problem before.
void GraphPanel::close() {
  hide_point();
  open_ = false;
  frmGrafiek.set_visible(false);
}

void GraphPanel::problem_changed() {
  hide_point();
  rebuild();
}

// The cross stays where the person has dragged it.
void GraphPanel::numbers_rewritten() {
  if (!open_ || !draw_problem() || !imgCross.visible()) return;
  show_point(shown_point_);
  name_point();
}

// ---- Drawing

// The first tableau has no point yet: its basic solution is where nothing is made.
void GraphPanel::hide_point() {
  lineNiveau.set_visible(false);
  imgCross.set_visible(false);
  PictureLN.set_drawing({});
  for (platform::Label* value : {&lblValX1, &lblValX2, &lblDoelfunctie}) value->set_text("");
  PictureLN.set_spoken_name("Grafiek");
  PictureLN.set_tab(PictureLN.tab_index(), false);
}

void GraphPanel::draw() {
  const auto point = graph::basic_point(around_.model);
  if (!draw_problem() || !point || around_.model.NrTableau == 1) return;
  place_cross(graph::cross_place(*point, m_dblMaxX1));
  imgCross.set_visible(true);
  PictureLN.set_tab(PictureLN.tab_index(), true);
  show_point(*point);
  name_point();
}

bool GraphPanel::draw_problem() {
  const auto constraints = graph::constraints_of(around_.model);
  around_.surface.report(constraints);
  if (!constraints) return false;
  m_dblMaxX1 = graph::axis_range(*constraints);
  m_strMaxX1 = numbers::strSoortGetal(number_mode(), m_dblMaxX1);
  m_dblMaxX2 = m_dblMaxX1;
  m_strMaxX2 = m_strMaxX1;
  PictureLN.set_drawing(graph::problem_drawing(*constraints, m_dblMaxX1, {m_strMaxX1, m_strMaxX2}));
  return true;
}

std::int16_t GraphPanel::number_mode() const {
  return around_.model.Breuken ? numbers::kFractions : numbers::kDecimals;
}

void GraphPanel::place_cross(platform::Point place) {
  imgCross.set_bounds({place.x, place.y, graph::cross_size, graph::cross_size});
}

// The values of a point, and the level line through it.
void GraphPanel::show_point(graph::PlanePoint point) {
  shown_point_ = point;
  const graph::Objective objective = graph::objective_of(around_.model);
  const auto shown = [this](double value) { return numbers::strSoortGetal(number_mode(), value); };
  lblDoelfunctie.set_text(shown(graph::objective_value(objective, point)));
  lblValX1.set_text(shown(point.x1));
  lblValX2.set_text(shown(point.x2));
  const auto line = graph::level_line(objective, point, m_dblMaxX1);
  if (!line) return;
  lineNiveau.set_ends(line->segment.from, line->segment.to);
  lineNiveau.set_visible(line->visible);
}

// To be spoken; while the cross is dragged nobody could follow it.
void GraphPanel::name_point() {
  PictureLN.set_spoken_name("Grafiek, x 1 = " + std::string(trimmed(lblValX1.text())) +
                            ", x 2 = " + std::string(trimmed(lblValX2.text())) +
                            ", F = " + std::string(trimmed(lblDoelfunctie.text())));
}

// ---- The pointer. Both drags share the place at which the pointer was pressed.

Task<> GraphPanel::pointer_moved(Control& control, Pointer pointer) {
  const bool handle = &control == &cmdFrame;
  if (!handle && &control != &imgCross) co_return;
  switch (pointer.action) {
    case Pointer::Action::Down:
      grab(pointer, handle ? graph::handle_height : graph::cross_size);
      break;
    case Pointer::Action::Move:
      if (!pointer.left_button) let_go();
      handle ? cmdFrame_MouseMove(pointer) : imgCross_MouseMove(pointer);
      break;
    case Pointer::Action::Up:
      let_go();
      if (handle) co_await around_.surface.set_focus(around_.txtFocus);
      break;
    case Pointer::Action::Lost:
      let_go();
      break;
  }
}

void GraphPanel::grab(Pointer pointer, Twips height) {
  let_go();
  if (!pointer.left_button || pointer.y <= 0 || pointer.y >= height) return;
  m_lngGrabY = whole(pointer.y);
  m_lngGrabX = whole(pointer.x);
}

void GraphPanel::let_go() {
  m_lngGrabY = no_drag;
  if (imgCross.visible()) name_point();
}

void GraphPanel::cmdFrame_MouseMove(Pointer pointer) {
  if (m_lngGrabY <= 0 || m_lngGrabY >= graph::handle_height) return;
  move_panel(pointer.x - m_lngGrabX, pointer.y - m_lngGrabY);
}

// The pointer's y grows downwards, as on every control; the drawing's grows upwards.
void GraphPanel::imgCross_MouseMove(Pointer pointer) {
  if (m_lngGrabY < 1 || m_lngGrabY >= graph::cross_size) return;
  const platform::Point cross = cross_place();
  move_cross({cross.x + pointer.x - m_lngGrabX, cross.y - (pointer.y - m_lngGrabY)});
}

void GraphPanel::move_panel(Twips right, Twips down) {
  frmGrafiek.set_bounds(graph::panel_moved(frmGrafiek.bounds(), right, down));
}

void GraphPanel::move_cross(platform::Point place) {
  const platform::Point kept = graph::kept_in_square(place);
  place_cross(kept);
  show_point(graph::point_under_cross(kept, m_dblMaxX1));
}

// ---- The keyboard: the picture stands for its cross, the handle for the panel.

bool GraphPanel::key_pressed(KeyPress press) {
  const auto direction = direction_of(press);
  if (!direction) return false;
  if (around_.surface.active() == &cmdFrame) {
    move_panel(key_step * direction->right, -key_step * direction->up);
    return true;
  }
  if (around_.surface.active() != &PictureLN || !imgCross.visible()) return false;
  const auto now = graph::point_under_cross(cross_place(), m_dblMaxX1);
  const auto next = graph::stepped(now, direction->right, direction->up, m_dblMaxX1);
  move_cross(graph::cross_place(next, m_dblMaxX1));
  name_point();
  return true;
}

// ---- Clicks

bool GraphPanel::keeps_focus(const Control* control) const {
  return control == &cmdReset || control == &cmdKopieren || control == &cmdSluiten;
}

Task<bool> GraphPanel::clicked(Control& control) {
  if (&control == &cmdReset)
    show(true);
  else if (&control == &cmdSluiten)
    show(false);
  else if (&control == &cmdKopieren)
    co_await cmdKopieren_Click();
  else if (&control != &cmdFrame)
    co_return co_await PictureLN_Click(control);
  co_await around_.surface.set_focus(around_.txtFocus);
  co_return true;
}

// The picture takes the focus for its cross.
Task<bool> GraphPanel::PictureLN_Click(const Control& control) {
  if (&control != &PictureLN && control.container() != &PictureLN) co_return false;
  if (!imgCross.visible()) co_return false;
  co_await around_.surface.set_focus(PictureLN);
  co_return true;
}

Task<> GraphPanel::cmdKopieren_Click() {
  std::optional<graph::Segment> level;
  if (lineNiveau.visible()) level = {lineNiveau.from(), lineNiveau.to()};
  std::optional<platform::Point> cross;
  if (imgCross.visible()) cross = cross_place();
  platform::Desk& desk = around_.surface.desk();
  desk.host().clear_clipboard();
  const std::string refusal =
      co_await desk.copy_picture({graph::copied_drawing(PictureLN.drawing(), level, cross), PictureLN.scale(),
                                  PictureLN.bounds().width, PictureLN.bounds().height});
  if (refusal.empty()) co_return;
  co_await around_.failures.show_failure(
      std::string(refusal == platform::saved_instead ? saved_instead : copy_refused));
}

}  // namespace tabulon
