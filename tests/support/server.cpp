#include "tests/support/server.h"

#ifdef ZEF_TEST_SERVER_PROGRAMS

#include <libpq-fe.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/transaction_guard.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::test {
namespace {

using Handle = std::unique_ptr<PGconn, decltype(&PQfinish)>;

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// A server for this process, which ends with it, however it ends.
class OwnServer {
 public:
  OwnServer() : folder_("/tmp/zef-server-" + std::to_string(getpid())) {
    const std::string process = std::to_string(getpid());
    if (std::system((Script() + " start " + folder_ + " " + process).c_str()) != 0) {
      throw std::runtime_error("the server does not start");
    }
  }
  ~OwnServer() { [[maybe_unused]] const int status = std::system((Script() + " stop " + folder_).c_str()); }
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  const std::string& folder() const { return folder_; }

 private:
  static std::string Script() { return "ZEF_POSTGRESQL_BIN=" ZEF_TEST_SERVER_PROGRAMS " " ZEF_TEST_SERVER_SCRIPT; }

  std::string folder_;
};

const std::string& Folder() {
  static const std::string given = OnServer() ? Environment("ZEF_TEST_ON_SERVER") : Environment("ZEF_TEST_SERVER");
  if (!given.empty() && given != "own") return given;
  static const OwnServer own;
  return own.folder();
}

const std::string& Port() {
  static const std::string port = [] {
    std::string line;
    std::getline(std::ifstream(Folder() + "/port"), line);
    return line;
  }();
  return port;
}

std::string ConnectionTo(const std::string& database, const std::string& host = Folder()) {
  return "Provider=PostgreSQL;Host=" + host + ";Port=" + Port() + ";Database=" + database + ";User ID=tester";
}

/// The first value of what a command gives, or the empty text.
std::string Answer(PGconn* connection, const std::string& text) {
  const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection, text.c_str()), &PQclear);
  const ExecStatusType status = PQresultStatus(result.get());
  const bool done = status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
  if (!done) throw std::runtime_error(PQerrorMessage(connection));
  return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

Handle ConnectTo(const std::string& database) {
  const std::string options = " user=tester options=-cclient_min_messages=error";
  return {PQconnectdb(("host=" + Folder() + " port=" + Port() + " dbname=" + database + options).c_str()), &PQfinish};
}

/// Runs a command for the server itself; true if it gives a row. One connection serves all tests of the process.
bool Run(const std::string& text) {
  static const Handle connection = ConnectTo("postgres");
  return !Answer(connection.get(), text).empty();
}

void Fill(const std::string& database, const std::string& version) {
  CreateDatabase(ConnectionTo(database));
  if (version.empty()) return;
  Connection connection;
  connection.Open(ConnectionTo(database));
  TransactionGuard<Connection> guard(connection);
  for (const std::string& statement : schema::Statements(schema::Text(version))) {
    connection.OpenedEngine().Execute({.text = statement});
  }
  guard.Commit();
}

/// Keeps the other processes of the tests waiting for as long as it lives.
struct Turn {
  Turn() { Run("SELECT pg_advisory_lock(1)"); }
  ~Turn() { Run("SELECT pg_advisory_unlock(1)"); }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
};

/// The database that those of a version are copied from; the first test that needs it makes it.
std::string Pattern(const std::string& version) {
  std::string name = "zef_pattern_" + version;
  for (char& c : name) c = c == '.' ? '_' : c;
  const std::string is_there = "SELECT 1 FROM pg_database WHERE datname = '" + name + "'";
  if (Run(is_there)) return name;
  const Turn turn;
  if (Run(is_there)) return name;
  const std::string unfinished = name + "_unfinished";
  Run("DROP DATABASE IF EXISTS " + unfinished + " WITH (FORCE)");
  Run("CREATE DATABASE " + unfinished);
  Fill(unfinished, version);
  Run("ALTER DATABASE " + unfinished + " RENAME TO " + name);
  return name;
}

}  // namespace

bool OnServer() { return !Environment("ZEF_TEST_ON_SERVER").empty(); }

ServerDatabase::ServerDatabase(const std::string& version) {
  static int count = 0;
  name_ = "zef_test_" + std::to_string(getpid()) + "_" + std::to_string(++count);
  const std::string pattern = Pattern(version);
  // The other strategy writes every page of the copy to the log as well.
  Run("CREATE DATABASE " + name_ + " TEMPLATE " + pattern + " STRATEGY file_copy");
}

ServerDatabase::~ServerDatabase() {
  try {
    Run("DROP DATABASE " + name_ + " WITH (FORCE)");
  } catch (const std::exception&) {  // the server goes away with all it holds
  }
}

std::string ServerDatabase::ConnectionString() const {
  const std::string pooler = Environment("ZEF_TEST_POOLER");
  if (pooler.empty()) return ConnectionTo(name_);
  return "Provider=PostgreSQL;Host=" + pooler + ";Database=" + name_ + ";User ID=tester;Transaction Pooling=Yes";
}

std::string ServerDatabase::NetworkConnectionString(const std::string& host) const { return ConnectionTo(name_, host); }

std::string ServerDatabase::Certificate(const std::string& name) { return Folder() + "/" + name; }

std::string ServerDatabase::Ask(const std::string& text) const { return Answer(ConnectTo(name_).get(), text); }

void ServerDatabase::EndConnections() const {
  Run("SELECT count(pg_terminate_backend(pid, 5000)) FROM pg_stat_activity WHERE datname = '" + name_ + "'");
}

}  // namespace zef::test

#else

#include <cstdlib>
#include <stdexcept>

namespace zef::test {

bool OnServer() {
  if (std::getenv("ZEF_TEST_ON_SERVER") == nullptr) return false;
  throw std::runtime_error("the tests were built without the server's programs");
}

}  // namespace zef::test

#endif
