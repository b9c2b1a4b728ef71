#include "graph/panel.h"

#include <algorithm>

#include "graph/drawing.h"
#include "platform/layout.h"

namespace tabulon::graph {

using platform::Align;
using platform::Bounds;
using platform::Control;
using platform::Font;
using platform::Placement;
using platform::Surface;
using platform::Twips;

namespace {

constexpr Font plain{.points = 9};
constexpr Font small{.points = 8};
constexpr Font centred{.points = 9, .align = Align::Centre};

constexpr Twips surface_width = 9000, panel_width = 5805;
constexpr Twips highest = 10, lowest = 4240;

// The picture, a column beside it, and a row of buttons below. In the picture one user unit is one twip.
constexpr Twips picture_top = 225, picture_height = 3600, buttons_top = 3840, button_height = 285;
constexpr Twips column = 3840, samples_end = 4095, legend = 4170, values = 4380;

constexpr Placement placements[] = {
    // Just under the menu buttons, at the right.
    {"frmGrafiek", {surface_width - panel_width, 285, panel_width, 4155}, "Tabloria", small},
    {"cmdFrame", {930, 15, 4845, handle_height}, "Handvat", {.points = 7, .align = Align::Centre}},
    {"PictureLN", {60, picture_top, 3690, picture_height}, "", small},
    {"lblRestricties", {legend, 240, 1590, 225}, "Restricties", small},
    {"lblNiveaulijn", {legend, 480, 1590, 225}, "Niveaulijn", small},
    {"lblNiveauVanF", {legend, 675, 1590, 225}, "Doelfunctie F", small},
    {"lblGebiedKleur", {column, 960, 255, 135}},
    {"lblGebied", {legend, 915, 1590, 225}, "Toegestane gebied", small},
    {"lblX1", {column, 1260, 525, 240}, "x 1 =", plain},
    {"lblValX1", {values, 1260, 1380, 240}, "", plain},
    {"lblX2", {column, 1515, 525, 240}, "x 2 =", plain},
    {"lblValX2", {values, 1515, 1380, 240}, "", plain},
    {"lblF", {column, 1770, 525, 240}, "F =", plain},
    {"lblDoelfunctie", {values, 1770, 1380, 240}, "", plain},
    {"lblLetOp",
     {column, 2115, 1935, 1665},
     "Let op!                       Alleen LP-problemen met twee beslissingsvariabelen zijn grafisch "
     "oplosbaar.",
     {.points = 8, .wraps = true}},
    {"cmdKopieren", {60, buttons_top, 3510, button_height}, "Afbeelding kopiëren naar klembord", centred},
    {"cmdReset", {3645, buttons_top, 1035, button_height}, "Reset", centred},
    {"cmdSluiten", {4740, buttons_top, 1035, button_height}, "Sluiten", centred},
};

// The legend's samples of lines.
struct Sample {
  std::string_view name;
  Twips height;  // of the line
  platform::Colour colour;
};

constexpr Sample samples[] = {
    {"lineRestricties", 352, colour::constraint},
    {"lineNiveaulijn", 690, colour::level},  // between the two lines of its words
};

// After the grid, whose cells and traps have the places before.
constexpr std::string_view tab_order[] = {"PictureLN", "cmdReset", "cmdKopieren", "cmdSluiten", "cmdFrame"};
constexpr int first_tab_place = 4;

Control& control(Surface& surface, std::string_view name) {
  return *surface.find(name);
}

void colour_line(Surface& surface, const Sample& sample) {
  auto& line = static_cast<platform::Line&>(control(surface, sample.name));
  line.set_ends({column, sample.height}, {samples_end, sample.height});
  line.set_fore_colour(sample.colour);
}

void style_picture(Surface& surface) {
  auto& picture = static_cast<platform::PictureBox&>(control(surface, "PictureLN"));
  picture.set_scale(scale);
  picture.set_back_colour(platform::rgb(255, 255, 255));
  control(surface, "lineNiveau").set_fore_colour(colour::level);
  control(surface, "lineNiveau").set_visible(false);
  auto& cross = static_cast<platform::Image&>(control(surface, "imgCross"));
  cross.set_picture(platform::Picture::Cross);
  cross.set_tool_tip("Beweeg mij!");
  cross.set_visible(false);
}

}  // namespace

void lay_out_panel(Surface& surface) {
  platform::place(surface, placements);
  for (const Sample& sample : samples) colour_line(surface, sample);
  style_picture(surface);
  control(surface, "lblGebiedKleur").set_back_colour(colour::region);
  control(surface, "frmGrafiek").set_back_colour(platform::system_colour::button_face);
  control(surface, "frmGrafiek").set_visible(false);
  control(surface, "cmdFrame").set_spoken_name("Handvat, verplaatsen met de pijltjestoetsen");
  int place = first_tab_place;
  for (const std::string_view name : tab_order) control(surface, name).set_tab(place++, true);
}

Bounds panel_moved(Bounds panel, Twips right, Twips down) {
  panel.top = std::clamp(panel.top + down, highest, lowest);
  panel.left = std::clamp(panel.left + right, 0.0, surface_width - panel_width);
  return panel;
}

}  // namespace tabulon::graph
