// A short text being written, on the stack: every number text is built here and leaves as one string.
//
//   TextBuffer text;
//   text.append("x ");
//   text.append_whole(12);
//   text.view();   // "x 12"
#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon::numbers {

class TextBuffer {
 public:
  // The longest text is a mixed number whose three parts are all written with 15 digits and an exponent.
  static constexpr std::size_t kCapacity = 80;

  TextBuffer() : size_(0) {}  // the characters are left as they are: only written ones are ever read

  std::string_view view() const { return {bytes_.data(), size_}; }
  std::size_t size() const { return size_; }

  void append(char c) {
    assert(size_ < kCapacity);
    if (size_ < kCapacity) bytes_[size_++] = c;
  }

  void append(std::string_view text) {
    assert(text.size() <= kCapacity - size_);
    const std::size_t count = std::min(text.size(), kCapacity - size_);
    std::copy_n(text.data(), count, bytes_.data() + size_);
    size_ += count;
  }

  void append(std::size_t count, char c) {
    for (; count > 0; --count) append(c);
  }

  // The digits of a whole number, with zeros in front up to `width` digits (at most 20).
  void append_whole(std::uint64_t number, std::size_t width = 1) {
    std::array<char, 20> digits;
    std::size_t first = digits.size();
    for (; number >= 10; number /= 100) {  // two digits a division
      const auto pair = static_cast<std::uint32_t>(number % 100);
      digits[--first] = static_cast<char>('0' + pair % 10);
      digits[--first] = static_cast<char>('0' + pair / 10);
    }
    if (number > 0 || first == digits.size()) digits[--first] = static_cast<char>('0' + number);
    while (digits.size() - first < width) digits[--first] = '0';
    append(std::string_view(digits.data() + first, digits.size() - first));
  }

  // Cuts the text to its first `size` characters.
  void cut(std::size_t size) {
    if (size < size_) size_ = size;
  }

 private:
  std::array<char, kCapacity> bytes_;
  std::size_t size_;
};

}  // namespace tabulon::numbers
