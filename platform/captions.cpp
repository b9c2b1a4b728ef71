#include "platform/captions.h"

namespace tabulon::platform {

int access_key(std::string_view caption) {
  for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != '&') continue;
    const char letter = caption[++at];
    if (letter == '&') continue;
    return letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : static_cast<unsigned char>(letter);
  }
  return 0;
}

std::string plain_caption(std::string_view caption) {
  std::string plain;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == '&' && at + 1 < caption.size()) ++at;
    plain += caption[at];
  }
  return plain;
}

}  // namespace tabulon::platform
