#include "simplex/frmMelding.h"

#include <array>

#include "platform/layout.h"

namespace tabulon {

using platform::Align;
using platform::Twips;

namespace {

constexpr Twips form_width = 3600, form_height = 1560, margin = 150;

constexpr platform::Placement placements[] = {
    {"imgWarning", {210, 270, 480, 480}},
    {"lblMelding", {810, 300, form_width - 810 - margin, 420}, "Modelfout!", {.points = 10, .wraps = true}},
    {"cmdOK", {1185, 990, 1230, 375}, "OK", {.points = 9, .align = Align::Centre}},
};

struct Message {
  std::string_view text;
  Twips left;
  bool warns;
};

constexpr std::array<Message, 5> messages{{
    {"", 150, false},
    {"Invoerfout!", 810, true},
    {"Pivotelement niet gevonden!", 210, false},
    {"Optimale oplossing gevonden!", 150, false},
    {"Modelfout!", 840, true},
}};

}  // namespace

frmMelding::frmMelding(Surface& owner, const basSafeCtl& model)
    : Form(owner, "frmMelding", form_width, form_height), model_(model) {
  platform::place(*this, placements);
  imgWarning.set_picture(platform::Picture::Warning);
  cmdOK.set_tab(1, true);
  default_button = &cmdOK;
  cancel_button = &cmdOK;
}

platform::Task<> frmMelding::on_activate() {
  set_caption(" Tabloria");
  if (model_.MeldingNr < 0 || model_.MeldingNr >= static_cast<int>(messages.size())) co_return;
  const Message& message = messages[static_cast<std::size_t>(model_.MeldingNr)];
  lblMelding.set_text(message.text.empty() ? std::string_view(model_.strMelding) : message.text);
  lblMelding.set_bounds({message.left, 300, form_width - message.left - margin, 420});
  imgWarning.set_visible(message.warns);
}

platform::Task<> frmMelding::on_click(platform::Control& control) {
  if (&control == &cmdOK) unload();
  co_return;
}

}  // namespace tabulon
