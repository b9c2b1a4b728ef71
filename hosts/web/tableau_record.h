// The tableau as a record for the page; how it is laid out stands at the export `tableau`.
#pragma once

#include "control/basSafeCtl.h"
#include "hosts/web/record.h"

namespace tabulon::web {

// Error 6 or 9 for counts that make no tableau.
Result<> write_tableau_record(Record& record, const basSafeCtl& model);

}  // namespace tabulon::web
