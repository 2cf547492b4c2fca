#include "tests/support/database.h"

#include <random>

#include "platform/engine.h"
#include "platform/recordset.h"
#include "platform/transaction_guard.h"
#include "platform/value.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::test {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("zef-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

Database::Database(std::string_view version, const std::string& password) : password_(password) {
#ifdef ZEF_TEST_SERVER_PROGRAMS
  if (OnServer() && password.empty()) {
    on_server_ = std::make_shared<ServerDatabase>(std::string(version));
    return;
  }
#endif
  CreateDatabase(ConnectionString());
  const Ref<Connection> connection = Connect();
  TransactionGuard<Connection> guard(*connection);
  for (const std::string& statement : schema::Statements(schema::Text(version))) connection->Execute(statement);
  guard.Commit();
}

std::string Database::ConnectionString() const {
#ifdef ZEF_TEST_SERVER_PROGRAMS
  if (on_server_) return on_server_->ConnectionString();
#endif
  const std::string password = password_.empty() ? "" : ";Password=" + password_;
  return "Provider=SQLite;Data Source=" + path() + password;
}

Ref<Connection> Database::Connect() const {
  auto connection = MakeRef<Connection>();
  connection->Open(ConnectionString());
  return connection;
}

Ref<CSession> Database::OpenSession() const {
  auto session = MakeRef<CSession>();
  session->Connect2DatabaseCS(ConnectionString());
  return session;
}

std::string Scalar(Connection& connection, const std::string& select) {
  const Ref<Recordset> rs = connection.Execute(select);
  if (rs->EndOfFile()) return "no row";
  const Value value = rs->ValueAt(0);
  return IsNull(value) ? "Null" : ToText(value);
}

std::int32_t Count(Connection& connection, const std::string& table_and_condition) {
  return ToLong(connection.Execute("SELECT Count(*) FROM " + table_and_condition)->ValueAt(0));
}

}  // namespace zef::test
