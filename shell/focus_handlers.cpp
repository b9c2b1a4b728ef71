// The focus inside the control, and the title bar that shows it.
#include <algorithm>
#include <array>

#include "control/LPctrl.h"

namespace tabulon {

using platform::Colour;
using platform::Task;

namespace {

constexpr Colour head_with_focus{0xC0C000}, head_without_focus{0xC0C0C0};

// What keeps the focus when the control is clicked; the scroll bars besides when the focus comes in.
constexpr std::array<std::string_view, 10> keepers{"txtRij_F",     "txtTableau", "txtRL",    "cmd_Bestand",
                                                   "cmd_Bewerken", "cmd_Opties", "cmd_Help", "cmdSluiten",
                                                   "cmdReset",     "cmdKopieren"};

bool keeps_focus(const platform::Control* active) {
  return active && std::ranges::find(keepers, active->name()) != keepers.end();
}

bool is_scroll_bar(const platform::Control* active) {
  return active && (active->name() == "HScroll" || active->name() == "VScroll");
}

}  // namespace

void LPctrl::KleurFrameHead(std::int16_t Aan) {
  if (Aan == -1) FrameHead.set_back_colour(head_with_focus);
  if (Aan == 0) FrameHead.set_back_colour(head_without_focus);
}

Task<> LPctrl::on_got_focus(platform::Control& control) {
  if (&control == &txtTab) co_return co_await txtTab_GotFocus();
  if (&control == &txtShiftTab) co_return co_await txtShiftTab_GotFocus();
  if (const auto box = grid_box(&control)) co_return cell_GotFocus(box_of(*box));
  if (&control == &HScroll || &control == &VScroll) co_await set_focus(txtFocus);
  if (&control == &txtFocus) txtFocus_GotFocus();
}

void LPctrl::txtFocus_GotFocus() {
  txtFocus.set_text("");
  KleurFrameHead(-1);
  forget_tab_cell(-1);
}

Task<> LPctrl::UserControl_Click() {
  if (keeps_focus(active())) co_return;
  co_await set_focus(txtFocus);
  KleurFrameHead(-1);
}

Task<> LPctrl::UserControl_EnterFocus() {
  if (!keeps_focus(active()) && !is_scroll_bar(active())) co_await set_focus(txtFocus);
  KleurFrameHead(-1);
  co_await UserControl_Click();
}

Task<> LPctrl::on_exit() {
  KleurFrameHead(0);
  co_return;
}

}  // namespace tabulon
