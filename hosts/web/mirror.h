// Controls and menus as records for the page.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "hosts/web/record.h"
#include "platform/host.h"
#include "platform/menu_session.h"
#include "platform/surface.h"

namespace tabulon::web {

// What the page has been told of a control. One that is not seen is introduced by its name alone, with its
// other properties when it is seen for the first time: most of a large grid never is.
enum class Known : std::uint8_t { Not, ByName, Wholly };

// What the person is typing: the page shows it already, and is not told of it again.
struct Typed {
  const platform::Control* box = nullptr;
  std::string_view text{};
};

// A SurfaceChange: the marked properties of the surface's controls. Their marks are forgotten.
void write_surface(Record& record, int id, platform::Surface& surface, std::vector<Known>& known,
                   const Typed& typed);

// A MenuChange: the open menus with their items.
void write_menu(Record& record, int surface, const platform::MenuSession& menu);

}  // namespace tabulon::web
