#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/connection.h"
#include "session/session.h"
#include "tests/support/server.h"

namespace zef::test {

/// A folder of its own that goes away with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A new database with the tables and first rows of a schema version: a file, or, if the tests run on the server's
/// engine and no password is asked for, one there.
class Database {
 public:
  explicit Database(std::string_view version = "9.2.4", const std::string& password = {});

  std::string path() const { return (folder_.path() / "test.db").string(); }
  std::string ConnectionString() const;
  /// A connection of its own.
  Ref<Connection> Connect() const;
  /// A session of its own, connected.
  Ref<CSession> OpenSession() const;

 private:
  TemporaryFolder folder_;
  std::string password_;
  std::shared_ptr<ServerDatabase> on_server_;  ///< where the tests were asked to run there
};

/// The first value of a select's first row, as text; "Null" for Null and "no row" for no row.
std::string Scalar(Connection& connection, const std::string& select);
/// The same for a select of one number.
std::int32_t Count(Connection& connection, const std::string& table_and_condition);

}  // namespace zef::test
