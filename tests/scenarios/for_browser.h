// Scenarios as the browser's player takes them: what was understood here, as JSON. It reads no scenario by
// itself.
//
//   steps_for_browser(read_scenario("press Ctrl+Left"))
//     == R"([{"line":1,"says":"press KEY...","given":[[{"key":"ArrowLeft","held":["Control"]}]]}])"
#pragma once

#include <string>
#include <vector>

#include "scenario.h"

namespace tabulon::scenarios {

// What cannot be understood is left out; whoever plays it here has told of it.
std::string steps_for_browser(const std::vector<Command>& commands);

// {"sentences": the form of each, "seen": the names by which sentences ask for what is seen of a control}
std::string language_for_browser();

}  // namespace tabulon::scenarios
