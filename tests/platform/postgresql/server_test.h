#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/postgresql/postgresql_engine.h"
#include "platform/recordset.h"
#include "tests/support/database.h"
#include "tests/support/raised.h"
#include "tests/support/server.h"

namespace zef::test {

/// An empty database on the server and a connection to it.
class ServerTest : public testing::Test {
 protected:
  ServerTest() { connection_ = Connect(); }

  Ref<Connection> Connect() {
    auto connection = MakeRef<Connection>();
    connection->Open(database_.ConnectionString());
    return connection;
  }
  Ref<Recordset> Execute(const std::string& text) { return connection_->Execute(text); }
  std::string Text(const std::string& select) { return Scalar(*connection_, select); }
  std::int64_t RoundTrips() { return dynamic_cast<const PostgresqlEngine&>(connection_->OpenedEngine()).RoundTrips(); }
  /// The round trips that an action takes.
  template <class Action>
  std::int64_t TripsOf(Action&& action) {
    const std::int64_t before = RoundTrips();
    action();
    return RoundTrips() - before;
  }

  ServerDatabase database_{""};
  Ref<Connection> connection_;
};

}  // namespace zef::test
