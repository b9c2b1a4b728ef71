// A problem worked out, as a record for the page.
#pragma once

#include "hosts/web/record.h"
#include "lesson/problem.h"

namespace tabulon::web {

void write_worked_out(Record& record, const lesson::Problem& problem);

}  // namespace tabulon::web
