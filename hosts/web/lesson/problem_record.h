// What was read of a problem in words, as a record for the page.
#pragma once

#include "hosts/web/record.h"
#include "lesson/reader.h"

namespace tabulon::web {

void write_reading(Record& record, const lesson::Reading& reading);

}  // namespace tabulon::web
