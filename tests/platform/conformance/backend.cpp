#include "tests/platform/conformance/backend.h"

#include "platform/engine.h"
#include "tests/support/server.h"

namespace zef::test {
namespace {

std::shared_ptr<void> MakeSqlite(std::string& connection_string, const std::string& password) {
  auto folder = std::make_shared<TemporaryFolder>();
  const std::string path = (folder->path() / "empty.db").string();
  connection_string = "Provider=SQLite;Data Source=" + path + (password.empty() ? "" : ";Password=" + password);
  CreateDatabase(connection_string);
  return folder;
}

std::shared_ptr<void> MakePlain(std::string& connection_string) { return MakeSqlite(connection_string, ""); }

#ifndef ZEF_SYSTEM_SQLITE
std::shared_ptr<void> MakeEncrypted(std::string& connection_string) { return MakeSqlite(connection_string, "secret"); }
#endif

#ifdef ZEF_TEST_SERVER_PROGRAMS
std::shared_ptr<void> MakeOnServer(std::string& connection_string) {
  auto database = std::make_shared<ServerDatabase>("");
  connection_string = database->ConnectionString();
  return database;
}
#endif

}  // namespace

std::vector<Backend> Backends() {
  return {
      {.name = "Embedded", .make = &MakePlain},
#ifndef ZEF_SYSTEM_SQLITE
      {.name = "EmbeddedEncrypted", .make = &MakeEncrypted},
#endif
#ifdef ZEF_TEST_SERVER_PROGRAMS
      {.name = "PostgreSQL",
       .make = &MakeOnServer,
       .most_columns = 1600,
       .most_selected = 1664,
       .limits_depth = false,
       .keeps_zero_characters = false,
       .identity_has_names = false,
       .rows_fail_alone = false},
#endif
  };
}

void Conformance::MakeTable() {
  Execute(
      "CREATE TABLE Things (T_ID Long NOT NULL CONSTRAINT PK_Things PRIMARY KEY, T_Byte Byte, T_Double Double, T_Flag "
      "Bit, "
      "T_Date DateTime, T_Text Text(10), T_Memo Memo, T_Bytes LongBinary)");
  Execute(
      "INSERT INTO Things (T_ID,T_Byte,T_Double,T_Flag,T_Date,T_Text,T_Memo) VALUES "
      "(1,200,1.5,True,#5/1/2024 9:00:00 AM#,'ten chars.','a long text')");
}

}  // namespace zef::test
