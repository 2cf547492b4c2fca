#pragma once

#include <sqlite3.h>

#include <functional>

#include "platform/run_time_error.h"

namespace zef {

/// Gives a connection the functions of the dialect (named zef_...) and the collation ZEF. A function that fails hands
/// its failure to `report`, and the running statement ends with an error; what `report` refers to must outlive the
/// connection. Raises the failure of the connection if it cannot take a function.
void RegisterFunctions(sqlite3* db, std::function<void(RunTimeError)> report);

}  // namespace zef
