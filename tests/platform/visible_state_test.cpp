#include "hosts/headless/visible_state.h"

#include <gtest/gtest.h>

#include "noting.h"

namespace tabulon::platform {
namespace {

TEST(VisibleState, OpenMenusShowTheirVisibleItemsAndTheFirstWhereItLies) {
  HeadlessHost host;
  Sheet sheet(host.desk());
  Menu menu(sheet, "menu", "&Menu");
  Menu further(sheet, "further", "&Nieuw", &menu), item(sheet, "item", "&Leeg", &further);
  Menu hidden(sheet, "hidden", "&Sluiten", &menu);
  hidden.set_visible(false);
  sheet.when_clicked = [&](Control&) -> Task<> { co_await host.desk().show_menu(menu, 120, 285); };
  host.desk().click(sheet.go);
  host.desk().menu_point_at(further);
  const std::string seen = visible_state(host, sheet);
  host.desk().menu_dismiss();
  EXPECT_TRUE(
      seen.ends_with("menu menu at 8,19\n  further \"Nieuw\" submenu highlighted\n"
                     "menu further\n  item \"Leeg\"\n"))
      << seen;
}

TEST(VisibleState, ALineIsSeenUnlessItBeginsWhereItEnds) {
  HeadlessHost host;
  Sheet sheet(host.desk());
  Line line(sheet, "flat"), point(sheet, "point");
  for (Line* const each : {&line, &point}) each->set_visible(true);
  line.set_ends({15, 30}, {60, 30});
  point.set_ends({15, 30}, {15, 30});
  const std::string seen = visible_state(host, sheet);
  EXPECT_TRUE(seen.contains("flat line")) << seen;
  EXPECT_FALSE(seen.contains("point")) << seen;
}

}  // namespace
}  // namespace tabulon::platform
