// A record for the page: values one after another, little-endian, without gaps. Texts are UTF-8 with their
// length in bytes in front. What is written here is read in the same order by record.ts.
//
//   Record record;
//   record.u32(surface);
//   record.text("lblNRTableau");
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tabulon::web {

class Record {
 public:
  void u8(std::uint8_t value) { bytes_.push_back(value); }
  void flag(bool value) { u8(value ? 1 : 0); }
  void u16(std::uint16_t value) { append(value); }
  void u32(std::uint32_t value) { append(value); }
  void i32(std::int32_t value) { append(value); }
  void f32(double value) { append(static_cast<float>(value)); }
  void f64(double value) { append(value); }
  void text(std::string_view words) {
    u32(static_cast<std::uint32_t>(words.size()));
    bytes_.insert(bytes_.end(), words.begin(), words.end());
  }

  const std::uint8_t* data() const { return bytes_.data(); }
  std::size_t size() const { return bytes_.size(); }
  void clear() { bytes_.clear(); }

 private:
  template <class T>
  void append(T value) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(&value);
    bytes_.insert(bytes_.end(), first, first + sizeof value);
  }

  std::vector<std::uint8_t> bytes_;
};

}  // namespace tabulon::web
