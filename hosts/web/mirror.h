// Controls, menus and drawings as records for the page.
#pragma once

#include <vector>

#include "hosts/web/record.h"
#include "platform/host.h"

namespace tabulon::web {

// What the page has been told of a control. One that is not seen is introduced by its name alone, with its
// other properties when it is seen for the first time: most of a large grid never is.
enum class Known : std::uint8_t { Not, ByName, Wholly };

// Writes the marked properties of the surface's controls, and forgets the marks. Record: surface, active
// control or -1, caption; then for each control its id, its property bits (and whether it is introduced
// here), and the values in the order of the bits.
void write_surface(Record& record, int id, platform::Surface& surface, std::vector<Known>& known);

// The open menus with their items, outermost first.
void write_menu(Record& record, int surface, const platform::MenuSession& menu);

// A scale and what is drawn in it.
void write_drawing(Record& record, const platform::Scale& scale, const platform::DisplayList& drawing);

}  // namespace tabulon::web
