#ifdef ZEF_TEST_SERVER_PROGRAMS

#include <gmock/gmock.h>

#include <fstream>
#include <regex>

#include "platform/recordset.h"
#include "tests/client/run_zef.h"
#include "tests/support/dump.h"
#include "tests/support/filled_database.h"
#include "tests/support/server.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A new file "people.db", and empty databases on the server.
class ZefPostgreSQL : public ZefTest {
 protected:
  static Ref<Connection> Connect(const std::string& connection_string) {
    auto connection = MakeRef<Connection>();
    connection->Open(connection_string);
    return connection;
  }
  std::string ConnectionTo(const char* file) const { return "Provider=SQLite;Data Source=" + File(file).string(); }

  const ServerDatabase server_{""};
  const std::string connection_ = server_.ConnectionString();
};

TEST_F(ZefPostgreSQL, CreateMakesTheTables) {
  EXPECT_EQ(Printed({"create", "--connect", connection_}), "Made the database with the tables of version 9.2.4.\n");
  for (const char* const shown : {"folders", "lists", "users"}) {  // the moments of their making differ
    EXPECT_EQ(Printed({shown, "--connect", connection_}), Printed({shown, "people.db"}));
  }
}

TEST_F(ZefPostgreSQL, CreateRefusesADatabaseWithTables) {
  Printed({"create", "--connect", connection_});
  EXPECT_EQ(Complaint(1, {"create", "--connect", connection_}),
            "zef: The database is not empty: it has a table 'Sequences'.\n");
}

TEST_F(ZefPostgreSQL, CreateRefusesADatabaseWithTablesOfOthersAndWritesNothing) {
  server_.Ask("CREATE TABLE invoices (number integer)");
  EXPECT_EQ(Complaint(1, {"create", "--connect", connection_}),
            "zef: The database is not empty: it has a table 'invoices'.\n");
  EXPECT_EQ(server_.Ask("SELECT string_agg(relname, ',') FROM pg_class WHERE relkind = 'r'"
                        " AND relnamespace = to_regnamespace(quote_ident(current_schema()))"),
            "invoices");
}

TEST_F(ZefPostgreSQL, ServesTheCommands) {
  Printed({"create", "--connect", connection_});
  Printed({"add", "task", "Pay", "--due", "2024-05-17", "--every", "week", "--connect", connection_});
  EXPECT_THAT(Printed({"agenda", "--month", "2024-05", "--connect", connection_}), HasSubstr("Pay Due Date"));
  Printed({"done", "1", "--connect", connection_});
  EXPECT_THAT(Printed({"tasks", "--where", "TSK_Name LIKE 'pay'", "--connect", connection_}), HasSubstr("2024-05-24"));
}

const std::vector<std::vector<std::string>> kCommands = {
    {"info"},
    {"lists"},
    {"users"},
    {"login", "Admin"},
    {"add", "folder", "Garden", "--in", "Tasks"},
    {"add", "task", "Pay", "--due", "2024-05-17", "--every", "week"},
    {"add", "event", "Dentist", "--start", "2024-05-14 09:30"},
    {"add", "contact", "--last-name", "O'Neill Ω😀"},
    {"add", "note", "Ideas"},
    {"add", "alarm", "Go", "--start", "2024-05-14", "--attach", "plan.txt"},
    {"add", "call", "555"},
    {"add", "category", "Red"},
    {"set", "contact", "1", "Phone=555-1"},
    {"find", "555-1"},
    {"tasks"},
    {"done", "1", "--today", "2024-05-04 12:00"},
    {"seen", "1", "2024-05-10"},
    {"copy", "folder", "Garden", "Notes"},
    {"folders"},
    {"agenda", "--month", "2024-05", "--today", "2024-05-01"},
    {"contacts"},
    {"notes"},
    {"alarms"},
    {"categories"},
    {"tasks", "--where", "TSK_Name LIKE 'P%' ORDER BY TSK_ID"},
    {"tasks", "--where", "TSK_Nothing=1"},
    {"attachment", "save", "1", "back.txt"},
    {"export", "task", "1", "x.txt"},
    {"delete", "task", "1"},
    {"delete", "folder", "13", "--yes"},
    {"show", "task", "1"},
    {"upgrade"},
};

TEST_F(ZefPostgreSQL, EveryCommandPrintsWhatItPrintsForAFile) {
  std::ofstream(File("plan.txt")) << "a plan";
  Printed({"create", "--connect", connection_});
  const auto run = [&](std::vector<std::string> command, const std::string& connection) {
    for (const char* const written : {"back.txt", "x.txt"}) std::filesystem::remove(File(written));
    command.insert(command.end(), {"--connect", connection});
    const Ended ended = Zef(command);
    const std::regex moment("[0-9-]{10} [0-9]{2}:[0-9]{2}:[0-9]{2}");  // of the last change, to the second
    return std::to_string(ended.status) + "\n" + std::regex_replace(ended.out + ended.err, moment, "moment");
  };
  for (const std::vector<std::string>& command : kCommands) {
    EXPECT_EQ(run(command, connection_), run(command, ConnectionTo("people.db"))) << command.front();
  }
}

TEST_F(ZefPostgreSQL, CopyFromAFileHoldsEveryValue) {
  Zef({"add", "contact", "people.db", "--last-name", "O'Neill Ω😀"});
  Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17", "--every", "week"});
  EXPECT_THAT(Printed({"copy-database", "people.db", connection_}),
              EndsWith("Copied to the database; every value was compared and is the same.\n"));
  EXPECT_EQ(Dump(*Connect(connection_)), Dump(*Connect(ConnectionTo("people.db"))));
}

TEST_F(ZefPostgreSQL, CopyToAFileHoldsEveryValue) {
  Printed({"create", "--connect", connection_});
  Printed({"add", "contact", "--last-name", "O'Neill Ω😀", "--connect", connection_});
  Printed({"copy-database", connection_, "back.db"});
  EXPECT_EQ(Dump(*Connect(ConnectionTo("back.db"))), Dump(*Connect(connection_)));
}

TEST_F(ZefPostgreSQL, OlderDatabaseIsCopiedAndUpgradedThere) {
  Zef({"create", "old.db", "--schema", "9.1"});
  FillOlderDatabase(*Connect(ConnectionTo("old.db")));
  const std::string rows = KeptRows(*Connect(ConnectionTo("old.db")));
  Printed({"copy-database", "old.db", connection_});
  EXPECT_THAT(Printed({"upgrade", "--connect", connection_}),
              StartsWith("Upgraded the database from version 9.1.0 to 9.2.4."));
  EXPECT_EQ(KeptRows(*Connect(connection_)), rows);
}

TEST_F(ZefPostgreSQL, CopyRefusesADatabaseWithTablesAndKeepsIt) {
  Printed({"create", "--connect", connection_});
  Printed({"add", "task", "Precious", "--connect", connection_});
  const std::string before = Dump(*Connect(connection_));
  EXPECT_THAT(Complaint(1, {"copy-database", "people.db", connection_}), HasSubstr("is not empty"));
  EXPECT_EQ(Dump(*Connect(connection_)), before);
}

TEST_F(ZefPostgreSQL, CopyRefusesADatabaseWithTablesOfOthers) {
  server_.Ask("CREATE TABLE invoices (number integer)");
  EXPECT_THAT(Complaint(1, {"copy-database", "people.db", connection_}), HasSubstr("it has a table 'invoices'"));
}

TEST_F(ZefPostgreSQL, CopyThatFailsLeavesTheDatabaseEmpty) {
  Connect(ConnectionTo("people.db"))->Execute("ALTER TABLE Contacts ADD COLUMN CNT_Shoes Long");
  EXPECT_THAT(Complaint(1, {"copy-database", "people.db", connection_}), HasSubstr("CNT_Shoes"));
  EXPECT_THAT(Printed({"create", "--connect", connection_}), StartsWith("Made"));
}

TEST_F(ZefPostgreSQL, ComplaintNeverShowsThePassword) {
  const std::string complaint =
      Complaint(1, {"info", "--connect", "Provider=PostgreSQL;Host=/nowhere;Database=x;User ID=u;Password=sesame"});
  EXPECT_THAT(complaint, Not(HasSubstr("sesame")));
  EXPECT_THAT(complaint, HasSubstr("/nowhere"));
}

}  // namespace
}  // namespace zef::test

#endif
