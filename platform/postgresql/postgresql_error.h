#pragma once

#include <libpq-fe.h>

#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace zef {

/// The failure that a result tells, as clients know it. The server's own sentence is kept where it names tables and
/// columns only. `connection` tells of a server that went away.
RunTimeError PostgresqlFailure(PGconn* connection, const PGresult* result);
/// The failure of a connection that is gone.
RunTimeError ConnectionLost();
/// A sentence of the server's in one line, with a capital letter at its beginning and a full stop behind it.
std::string ReadableSentence(std::string_view sentence);

}  // namespace zef
