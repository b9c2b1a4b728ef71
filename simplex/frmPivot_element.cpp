#include "simplex/frmPivot_element.h"

#include "numbers/conversions.h"
#include "platform/layout.h"

namespace tabulon {

namespace font = platform::font;

namespace {

constexpr platform::Placement pivot_labels[] = {
    {"imgPivot", {240, 270, 480, 480}},
    {"lblKolom", {930, 255, 1350, 255}, "Pivot-kolom...:", font::plain},
    {"lblPivot_kolom", {2310, 255, 450, 255}, "", font::bold},
    {"lblRij", {930, 525, 1350, 255}, "Pivot-rij..........:", font::plain},
    {"lblPivot_rij", {2310, 525, 450, 255}, "", font::bold},
    {"OKButton", {900, 1020, 1230, 375}, "OK", {.points = 9, .align = platform::Align::Centre}},
};

}  // namespace

frmPivot_element::frmPivot_element(Surface& owner, const basSafeCtl& model)
    : FocusForm(owner, "frmPivot_element", 3030, 1590, " Pivot-element"), model_(model) {
  platform::place(*this, pivot_labels);
  imgPivot.set_picture(platform::Picture::Pivot);
}

void frmPivot_element::on_load() {
  lblPivot_kolom.set_text(numbers::digits(model_.PivotKolom));
  lblPivot_rij.set_text(numbers::digits(model_.PivotRij));
}

}  // namespace tabulon
