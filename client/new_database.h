#pragma once

#include <functional>

#include "client/components.h"
#include "client/database_place.h"
#include "client/held_signals.h"

namespace zef::client {

/// Makes a new database and has it filled, all in one transaction of `fill`'s connection. A file takes its name whole
/// and only if nothing has that name; behind a connection string the database must be there and have none of our
/// tables, on a server none at all. On any failure, Ctrl-C among them, nothing is left behind and a `Failure` is
/// raised. Names and passwords that `Connect2Database` could not open again are refused.
void MakeNewDatabase(const DatabasePlace& place,
                     const std::function<void(const Connection&, const HeldSignals&)>& fill);

}  // namespace zef::client
