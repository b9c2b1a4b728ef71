#include "platform/text_file.h"

#include <utility>

namespace tabulon::platform {

namespace {

constexpr std::size_t chunk = 4096;

// The next character of a UTF-8 text as a code point; a byte that begins none counts as U+FFFD.
char32_t next_character(std::string_view& text) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char first = byte(0);
  const std::size_t length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 0;
  char32_t code = length == 1 ? first : first & (0x7FU >> length);
  for (std::size_t at = 1; at < length; ++at) {
    if (at >= text.size() || (byte(at) & 0xC0U) != 0x80) return text.remove_prefix(1), 0xFFFD;
    code = code << 6U | (byte(at) & 0x3FU);
  }
  text.remove_prefix(length == 0 ? 1 : length);
  return length == 0 ? 0xFFFD : code;
}

// What a line cannot hold: letters outside Latin, and what would end the line or the text for who reads it.
bool fits_a_line(char32_t code) {
  return code <= 0xFF && code != '\r' && code != '\n' && code != '\0';
}

std::string to_latin(std::string_view text) {
  std::string latin;
  latin.reserve(text.size() + 2);
  while (!text.empty()) {
    const char32_t code = next_character(text);
    latin += fits_a_line(code) ? static_cast<char>(code) : '?';
  }
  return latin;
}

std::string from_latin(std::string_view latin) {
  std::string text;
  text.reserve(latin.size());
  for (const char letter : latin) {
    const auto code = static_cast<unsigned char>(letter);
    if (code < 0x80) {
      text += letter;
    } else {
      text += static_cast<char>(0xC0U | code >> 6U);
      text += static_cast<char>(0x80U | (code & 0x3FU));
    }
  }
  return text;
}

}  // namespace

Result<TextFile> TextFile::open(FileStore& store, std::string_view name, Mode mode) {
  if (name.empty() || name.find_first_of(std::string_view("*?\0", 3)) != std::string_view::npos)
    return fail(ErrorNumber::BadFileName, std::string(name));
  return TextFile(TRY(mode == Mode::Input ? store.open_for_input(name) : store.open_for_output(name)), mode);
}

Result<> TextFile::write_line(std::string_view text) {
  if (mode_ == Mode::Input) return fail(ErrorNumber::BadFileMode);
  return bytes_->append(to_latin(text) + "\r\n");
}

Result<std::string> TextFile::read_line() {
  if (mode_ == Mode::Output) return fail(ErrorNumber::BadFileMode);
  std::size_t end = 0;
  while ((end = ahead_.find('\n')) == std::string::npos) {
    const std::string more = TRY(bytes_->read(chunk));
    if (more.empty()) break;
    ahead_ += more;
  }
  if (end == std::string::npos && ahead_.empty()) return fail(ErrorNumber::InputPastEnd);
  std::string line = ahead_.substr(0, end);
  ahead_.erase(0, end == std::string::npos ? end : end + 1);
  if (line.ends_with('\r')) line.pop_back();
  return from_latin(line);
}

Result<> TextFile::close() {
  return bytes_->close();
}

}  // namespace tabulon::platform
