// Captions with an access key: "&" stands before the key's letter, "&&" is a plain "&".
//
//   access_key("Be&werken") == 'W';   plain_caption("Be&werken") == "Bewerken";
#pragma once

#include <string>
#include <string_view>

namespace tabulon::platform {

// The access key as a key code (a capital letter or a digit), 0 when there is none.
int access_key(std::string_view caption);

// The caption as the person sees it.
std::string plain_caption(std::string_view caption);

}  // namespace tabulon::platform
