// Where the panel's parts stand and what they look like.
#include "graph/drawing.h"
#include "graph/panel.h"
#include "graph/panel_places.h"
#include "platform/layout.h"

namespace tabulon {

using graph::handle_height, graph::panel_width, graph::surface_width;
using platform::Align;
using platform::Font;
using platform::Placement;
using platform::Twips;

namespace font = platform::font;

namespace {

// The picture, a column beside it, and a row of buttons below. In the picture one user unit is one twip.
constexpr Twips picture_top = 225, picture_height = 3600, buttons_top = 3840, button_height = 285;
constexpr Twips beside_picture = 3840, samples_end = 4095, legend = 4170, legend_values = 4380;

constexpr Placement panel_placements[] = {
    // Just under the menu buttons, at the right.
    {"frmGrafiek", {surface_width - panel_width, 285, panel_width, 4155}, "Tabloria", font::small},
    {"cmdFrame", {930, 15, 4845, handle_height}, "Handvat", {.points = 7, .align = Align::Centre}},
    {"PictureLN", {60, picture_top, 3690, picture_height}, "", font::small},
    {"lblRestricties", {legend, 240, 1590, 225}, "Restricties", font::small},
    {"lblNiveaulijn", {legend, 480, 1590, 225}, "Niveaulijn", font::small},
    {"lblNiveauVanF", {legend, 675, 1590, 225}, "Doelfunctie F", font::small},
    {"lblGebiedKleur", {beside_picture, 960, 255, 135}},
    {"lblGebied", {legend, 915, 1590, 225}, "Toegestane gebied", font::small},
    {"lblX1", {beside_picture, 1260, 525, 240}, "x 1 =", font::plain},
    {"lblValX1", {legend_values, 1260, 1380, 240}, "", font::plain},
    {"lblX2", {beside_picture, 1515, 525, 240}, "x 2 =", font::plain},
    {"lblValX2", {legend_values, 1515, 1380, 240}, "", font::plain},
    {"lblF", {beside_picture, 1770, 525, 240}, "F =", font::plain},
    {"lblDoelfunctie", {legend_values, 1770, 1380, 240}, "", font::plain},
    {"lblLetOp",
     {beside_picture, 2115, 1935, 1665},
     "Let op!                       Alleen LP-problemen met twee beslissingsvariabelen zijn grafisch "
     "oplosbaar.",
     {.points = 8, .wraps = true}},
    {"cmdKopieren",
     {60, buttons_top, 3510, button_height},
     "Afbeelding kopiëren naar klembord",
     font::centred},
    {"cmdReset", {3645, buttons_top, 1035, button_height}, "Reset", font::centred},
    {"cmdSluiten", {4740, buttons_top, 1035, button_height}, "Sluiten", font::centred},
};

// The legend's samples of lines, by their height; the level line's is between the two lines of its words.
constexpr Twips constraint_sample = 352, level_sample = 690;

void show_sample(platform::Line& line, Twips height, platform::Colour colour) {
  line.set_ends({beside_picture, height}, {samples_end, height});
  line.set_fore_colour(colour);
}

// After the grid, whose cells and traps have the places before.
constexpr int first_tab_place = 4;

}  // namespace

void GraphPanel::lay_out() {
  platform::place(around_.surface, panel_placements);
  show_sample(lineRestricties, constraint_sample, graph::colour::constraint);
  show_sample(lineNiveaulijn, level_sample, graph::colour::level);
  PictureLN.set_scale(graph::scale);
  PictureLN.set_back_colour(platform::rgb(255, 255, 255));
  lineNiveau.set_fore_colour(graph::colour::level);
  lineNiveau.set_visible(false);
  imgCross.set_picture(platform::Picture::Cross);
  imgCross.set_tool_tip("Beweeg mij!");
  imgCross.set_visible(false);
  lblGebiedKleur.set_back_colour(graph::colour::region);
  frmGrafiek.set_back_colour(platform::system_colour::button_face);
  frmGrafiek.set_visible(false);
  cmdFrame.set_spoken_name("Handvat, verplaatsen met de pijltjestoetsen");
  int place = first_tab_place;
  for (platform::Control* stop :
       std::initializer_list<platform::Control*>{&PictureLN, &cmdReset, &cmdKopieren, &cmdSluiten, &cmdFrame})
    stop->set_tab(place++, true);
}

}  // namespace tabulon
