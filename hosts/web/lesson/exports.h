// What the page calls, from wire/exports.def: the exports of the lesson's module, by their names.
#pragma once

#include "hosts/web/lesson/wire.h"

namespace tabulon::web {

using namespace wire;

struct LessonExports {
#define EXPORT(result, name, parameters) [[clang::export_name(#name)]] static result name parameters;
#include "hosts/web/lesson/wire/exports.def"
};

}  // namespace tabulon::web
