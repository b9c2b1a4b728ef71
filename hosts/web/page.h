// What the page does for the module, from wire/imports.def.
//
//   page::take_focus(surface);
#pragma once

#include "hosts/web/wire.h"

namespace tabulon::web::page {

using namespace wire;

#define IMPORT(result, name, parameters) \
  [[clang::import_module("tabulon"), clang::import_name(#name)]] result name parameters;
#include "hosts/web/wire/imports.def"

}  // namespace tabulon::web::page
