#include "simplex/frmBasis_Oplossing.h"

#include <algorithm>

#include "control/basSafeCtl_style.h"
#include "platform/layout.h"
#include "platform/look.h"

namespace tabulon {

using platform::Align;
using platform::Twips;

namespace font = platform::font;

namespace {

constexpr Twips lines_top = 210, line_pitch = 360, line_height = 330;
// Names, equals signs and values stand in columns, in which F has its line too.
constexpr Twips equals = 1560, equals_width = 240, values = 1860;
constexpr Twips text_margin = platform::measure::text_margin * platform::measure::twips_per_pixel;

constexpr platform::ArrayPlacement solution_lines[] = {
    {"lblBasisVar", {240, lines_top, 1260, line_height}, 1, 0, line_pitch, "basisvar", font::centred},
    {"lblGelijk", {equals, lines_top, equals_width, line_height}, 1, 0, line_pitch, "=", font::centred},
    {"txtRL", {values, lines_top, 1410, line_height}, 1, 0, line_pitch, "", {.points = 9}},
};

// What stands below the lines, measured from the last one's end.
constexpr platform::Placement below[] = {
    {"lblDoelfunctie",
     {240, 150, equals + equals_width - 60 - 240, 285},
     "Doelfunctie F =",
     {.points = 9, .bold = true, .align = Align::Right}},
    {"lblFRL", {values + text_margin, 150, 1410 - text_margin, 285}, "", {.points = 9, .bold = true}},
    {"OKButton", {1140, 600, 1230, 375}, "OK", font::centred},
};

constexpr Twips height_below = 1155;

}  // namespace

frmBasis_Oplossing::frmBasis_Oplossing(Surface& owner, basSafeCtl& model)
    : Dialog(owner, "frmBasis_Oplossing", 3510, lines_top + most_rows * line_pitch + height_below,
             " Basis oplossing", model) {
  platform::place(*this, solution_lines);
  platform::place(*this, below);
  lblFRL.set_tool_tip(" Waarde van de doelfunctie F");
  for (platform::TextBox& value : txtRL) value.set_locked(true);
}

void frmBasis_Oplossing::on_load() {
  Dialog::on_load();
  const int rows = std::clamp(model().rows(), 0, most_rows);
  lblFRL.set_text(model().current.row_F().text(CellRow::right_hand_side));
  for (int line = 1; line <= most_rows; ++line) {
    lblBasisVar(line).set_visible(line <= rows);
    lblGelijk(line).set_visible(line <= rows);
    txtRL(line).set_visible(line <= rows);
    format_line(line);
  }
  const Twips end_of_lines = lines_top + rows * line_pitch;
  for (const platform::Placement& placement : below) {
    platform::Bounds bounds = placement.bounds;
    bounds.top += end_of_lines;
    find(placement.name)->set_bounds(bounds);
  }
  set_height(end_of_lines + height_below);
}

void frmBasis_Oplossing::format_line(int line) {
  txtRL(line).set_text(model().current.row(line).text(CellRow::right_hand_side));
  const int basic = model().current.basis(line);
  const VariableKind kind = model().kind_of_column(basic);
  if (kind == VariableKind::None) return;
  lblBasisVar(line).set_text(model().variable_name(basic));
  txtRL(line).set_spoken_name(model().variable_name(basic));
  lblBasisVar(line).set_back_colour(style_of(kind).body);
  lblBasisVar(line).set_tool_tip(style_of(kind).tip);
  txtRL(line).set_back_colour(style_of(kind).body);
}

}  // namespace tabulon
