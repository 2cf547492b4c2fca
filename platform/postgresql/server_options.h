#pragma once

#include <libpq-fe.h>

#include <memory>

#include "platform/connection_string.h"

namespace zef {

struct FinishConnection {
  void operator()(PGconn* connection) const { PQfinish(connection); }
};
using ConnectionHandle = std::unique_ptr<PGconn, FinishConnection>;

/// True if the connection string says `Transaction Pooling=Yes`: what stands between here and the server may give each
/// transaction another connection. Raises -2147217900 for a value that is neither Yes nor No.
bool PoolsTransactions(const ConnectionString& connection);

/// Connects to the server and database that a connection string names by `Host` (a name, an address or the folder of a
/// socket), `Port`, `Database`, `User ID`, `Password`, `SSL Mode` (disable, allow, prefer, require, verify-ca or
/// verify-full) and `Root Certificate` (a file). Raises -2147217900 for another key, a key that stands twice and a
/// missing `Host` or `Database`, -2147217843 for a wrong or missing password, -2147467259 for a server or database that
/// cannot be reached. Waits at most ten seconds.
ConnectionHandle ConnectToServer(const ConnectionString& connection);

}  // namespace zef
