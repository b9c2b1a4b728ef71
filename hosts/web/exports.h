// What the page calls, from wire/exports.def: the module's exports, by their names.
//
// They are members so that each that is written must stand in the table, with its types. The packaging
// refuses a module in which one of the table is missing.
#pragma once

#include "hosts/web/wire.h"

namespace tabulon::web {

using namespace wire;

struct Exports {
#define EXPORT(result, name, parameters) [[clang::export_name(#name)]] static result name parameters;
#include "hosts/web/wire/exports.def"
};

}  // namespace tabulon::web
