// The enums of platform/enums.def in C++.
//
//   Kind::TextBox   Align::Left   Raster::And
#pragma once

#include <cstdint>

namespace tabulon::platform {

#define ENUM(name, ...) enum class name : std::uint8_t { __VA_ARGS__ };
#include "platform/enums.def"

}  // namespace tabulon::platform
