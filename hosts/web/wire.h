// What passes between the module and its page, in C++: the enums and records of wire/*.def and
// platform/*.def. tools/make-contract.mjs makes the TypeScript of the same tables.
//
//   wire::write(record, wire::MenuChange{.surface = 1, .x = 60, .y = 285, .open = 1});
//   wire::write(record, stroke);                              // with its kind in front
//   wire::write_Bounds(record, control.bounds());             // the value of a property
//   wire::write_Text(record, wire::TextValue{control.text()});
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "hosts/web/record.h"
#include "platform/controls.h"

namespace tabulon::web::wire {

// ---- The types in the tables

using platform::Align, platform::FilePurpose, platform::Kind, platform::Picture, platform::PointerAction,
    platform::Role, platform::TablePart, platform::Raster, platform::Rendering;
using platform::Colour, platform::Scale, platform::Stroke;

using none = void;
using flag = bool;
using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using i32 = std::int32_t;
using f32 = double;  // in single precision on its way
using f64 = double;
using text = std::string_view;   // UTF-8
using bytes = std::string_view;  // of any kind
using size = std::size_t;
using address = const std::uint8_t*;
using Place = platform::Point;

#define ENUM(name, ...) enum class name : std::uint8_t { __VA_ARGS__ };
#include "hosts/web/wire/enums.def"

// ---- How each is written

inline void write_flag(Record& record, flag value) {
  record.flag(value);
}
inline void write_u8(Record& record, u8 value) {
  record.u8(value);
}
inline void write_u16(Record& record, u16 value) {
  record.u16(value);
}
inline void write_u32(Record& record, u32 value) {
  record.u32(value);
}
inline void write_i32(Record& record, i32 value) {
  record.i32(value);
}
inline void write_f32(Record& record, f32 value) {
  record.f32(value);
}
inline void write_f64(Record& record, f64 value) {
  record.f64(value);
}
inline void write_text(Record& record, text value) {
  record.text(value);
}
inline void write_bytes(Record& record, bytes value) {
  record.text(value);
}
inline void write_Colour(Record& record, Colour value) {
  record.u32(value.value);
}
void write_Stroke(Record& record, const Stroke& stroke);

#define WRITE_ENUM(name)                                 \
  inline void write_##name(Record& record, name value) { \
    record.u8(static_cast<u8>(value));                   \
  }
#define ENUM(name, ...) WRITE_ENUM(name)
#include "platform/enums.def"
#define ENUM(name, ...) WRITE_ENUM(name)
#include "hosts/web/wire/enums.def"
WRITE_ENUM(Picture)
#undef WRITE_ENUM

// ---- Records, and the values of properties, which are written from any struct that has these fields

#define FIELD(type, name) type name;
#define LIST(type, name) const std::vector<type>& name;
#define RECORD(name, fields) \
  struct name {              \
    fields                   \
  };
#include "hosts/web/wire/records.def"
#define MENU_PROPERTY(name)
#define PROPERTY(name, fields) \
  struct name##Value {         \
    fields                     \
  };
#include "platform/properties.def"
#undef FIELD
#undef LIST

#define FIELD(type, name) write_##type(record, each.name);
#define LIST(type, name)                          \
  record.u32(static_cast<u32>(each.name.size())); \
  for (const auto& one : each.name) write_##type(record, one);
#define SHARED(name, fields)                            \
  template <class Each>                                 \
  void write_##name(Record& record, const Each& each) { \
    fields                                              \
  }
#define STROKE(name, fields)                                              \
  inline void write(Record& record, const platform::stroke::name& each) { \
    fields                                                                \
  }
#define RECORD(name, fields)                            \
  inline void write(Record& record, const name& each) { \
    fields                                              \
  }
#include "hosts/web/wire/records.def"
#define MENU_PROPERTY(name)
#define PROPERTY(name, fields)                                                            \
  template <class Each>                                                                   \
  void write_##name([[maybe_unused]] Record& record, [[maybe_unused]] const Each& each) { \
    fields                                                                                \
  }
#include "platform/properties.def"
#undef FIELD
#undef LIST

}  // namespace tabulon::web::wire
