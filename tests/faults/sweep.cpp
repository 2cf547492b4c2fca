#include "tests/faults/sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "tests/support/dump.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;

constexpr int kMostRuns = 12;  ///< of a short sweep

struct FilledDatabase : Database {
  FilledDatabase() { AddRecords(*Connect()); }
};

const Database& Pattern() {
  static const FilledDatabase pattern;
  return pattern;
}

/// What operations change. Identifiers that a failed one has drawn stay drawn.
std::vector<std::string> Tables() {
  std::vector<std::string> tables = TableNames();
  std::erase_if(tables, [](const std::string& name) { return name.starts_with("lst") || name == "Sequences"; });
  return tables;
}

std::string Contents(const std::string& connection_string) {
  const auto connection = MakeRef<Connection>();
  connection->Open(connection_string);
  return Dump(*connection, Tables());
}

std::string Soundness(const std::string& path) {
  const DatabaseHandle db = OpenDatabaseFile(path, "");
  const StatementHandle check = PrepareOwn(db.get(), "PRAGMA integrity_check");
  if (sqlite3_step(check.get()) != SQLITE_ROW) return "no answer";
  return reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
}

/// A copy of the pattern with a session on it.
class World {
 public:
  World() {
    fs::copy_file(Pattern().path(), path());
    session_->Connect2DatabaseCS(connection_string());
  }

  std::string path() const { return (folder_.path() / "world.db").string(); }
  std::string connection_string() const { return "Provider=SQLite;Data Source=" + path(); }
  CSession& session() { return *session_; }

 private:
  TemporaryFolder folder_;
  Ref<CSession> session_ = MakeRef<CSession>();
};

enum class End { Done, Refused, Raised };

End Run(const Operation& operation, CSession& session) {
  try {
    return operation.run(session) ? End::Done : End::Refused;
  } catch (const RunTimeError&) {
    return End::Raised;
  } catch (const std::bad_alloc&) {
    return End::Raised;
  }
}

void ExpectNothingLost(const Operation& operation, World& world, End end) {
  CSession& session = world.session();
  EXPECT_TRUE(end == End::Raised || session.GetErrorFlag()) << "refused without a word";
  EXPECT_FALSE(session.TransactionStarted());
  EXPECT_EQ(session.conDBConnection->OpenedEngine().TransactionDepth(), 0);
  static const std::string before = Contents(Pattern().ConnectionString());
  EXPECT_EQ(Contents(world.connection_string()), before);
  session.ClearError();
  EXPECT_EQ(Run(operation, session), End::Done) << "repeated: " << session.GetEntireErrorDesc();
}

/// How many calls the operation makes.
int CallsOf(const Operation& operation, Faults& faults) {
  World world;
  faults.Arm(0);
  const End end = Run(operation, world.session());
  const int calls = faults.Disarm();
  EXPECT_EQ(end, End::Done) << world.session().GetEntireErrorDesc();
  return calls;
}

}  // namespace

void FailEachCallOf(const Operation& operation, Faults& faults) {
  const int calls = CallsOf(operation, faults);
  const bool all = std::getenv("ZEF_LONG") != nullptr;
  const int step = all ? 1 : calls / kMostRuns + 1;
  for (int number = 1; number <= calls && !testing::Test::HasFailure(); number += step) {
    SCOPED_TRACE("call " + std::to_string(number) + " of " + std::to_string(calls));
    World world;
    faults.Arm(number);
    const End end = Run(operation, world.session());
    faults.Disarm();
    if (end != End::Done) ExpectNothingLost(operation, world, end);
    EXPECT_EQ(Soundness(world.path()), "ok");
  }
}

}  // namespace zef::test
