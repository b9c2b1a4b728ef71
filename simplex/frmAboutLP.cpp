#include "simplex/frmAboutLP.h"

#include "platform/layout.h"

namespace tabulon {

using platform::Align;

namespace {

constexpr std::string_view product = "Tabloria op Internet";

constexpr platform::Placement placements[] = {
    {"imgAbout", {240, 240, 480, 480}},
    {"lblTitle", {960, 210, 4950, 285}, "", {.points = 11, .bold = true}},
    {"lblVersion", {960, 510, 4950, 240}, "", {.points = 9}},
    {"lblDescription", {960, 810, 4800, 1215}, "", {.points = 9, .wraps = true}},
    {"lblDisclaimer",
     {240, 2160, 4200, 900},
     "Waarschuwing: dit programma is auteursrechtelijk beschermd. Het is niet toegestaan het geheel of een "
     "deel "
     "ervan te kopiëren of te verspreiden zonder toestemming van de makers.",
     {.points = 8, .wraps = true}},
    {"cmdOK", {4620, 2625, 1140, 375}, "OK", {.points = 9, .align = Align::Centre}},
};

}  // namespace

frmAboutLP::frmAboutLP(Surface& owner) : Form(owner, "frmAboutLP", 6000, 3225) {
  platform::place(*this, placements);
  imgAbout.set_picture(platform::Picture::About);
  lineAbove.set_ends({240, 2040}, {5760, 2040});
  lineAbove.set_fore_colour(platform::rgb(160, 160, 160));
  lineBelow.set_ends({240, 2055}, {5760, 2055});
  lineBelow.set_fore_colour(platform::rgb(255, 255, 255));
  lblDisclaimer.set_fore_colour(platform::system_colour::button_text);
  cmdOK.set_tab(1, true);
  default_button = &cmdOK;
  cancel_button = &cmdOK;
}

void frmAboutLP::on_load() {
  set_caption("Over " + std::string(product));
  lblVersion.set_text("© 2026 Tabulon");
  lblTitle.set_text(std::string(product) + " Versie 2.0.0.75");
  lblDescription.set_text(
      "Tabloria is een programma waarmee je LP-probemen volgens de Simplex-methode kunt oplossen. Het "
      "programma is "
      "geschikt voor de bovenbouw (Tweede Fase) HAVO 5 en VWO 5/6 met Wiskunde A en Economie.");
}

platform::Task<> frmAboutLP::on_click(platform::Control& control) {
  if (&control == &cmdOK) unload();
  co_return;
}

}  // namespace tabulon
