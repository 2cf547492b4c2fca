#include <fmt/format.h>

#include <cstdlib>
#include <map>

#include "bench/postgresql/server_side.h"
#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/recordset.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::bench {
namespace {

constexpr char kFolders[] =
    "INSERT INTO Folders SELECT {1} + n, 1, 0, 'Project ' || lpad((n * 7919 % ({0} + 1))::text, 7, '0') || "
    "' of the year', 'All that belongs to project ' || n, 4, pg_temp.day(45000.5 + n % 300), 0 "
    "FROM generate_series(1::bigint, {0}) AS n";
constexpr char kRules[] =
    "INSERT INTO Recurrences SELECT n, 2, 0, 1 + n % 3, 0, 0, 1 + n % 127, 0, 0, pg_temp.day(47000 + n % 900) "
    "FROM generate_series(1, {0}) AS n";
constexpr char kNotifications[] =
    "INSERT INTO Notifications SELECT n, 'Meeting ' || n || ' is due', 'Please do not forget that meeting ' || n || "
    "' takes place soon, in the room that you know.', 'guest' || n || '@example.org', NULL, NULL, 1, 0, "
    "pg_temp.day(45000.375 + n % 1000) FROM generate_series(1, {0}) AS n";
constexpr char kEvents[] =
    "INSERT INTO Events SELECT n, 1, n % 7, n, n, n % 11, 'Meeting ' || lpad(n::text, 7, '0') || ' with the team', "
    "'Room ' || n % 50, pg_temp.day(45000.375 + n % 1000), pg_temp.day(45000.5 + n % 1000), 15, pg_temp.day(45000.25), "
    "'E', NULL "
    "FROM generate_series(1, {0}) AS n";
constexpr char kContacts[] =
    "INSERT INTO Contacts (CNT_ID, CNT_FolderID, CNT_CategoryID, CNT_FirstName, CNT_LastName, CNT_MI, CNT_Dear, "
    "CNT_Address, CNT_City, CNT_State, CNT_Country, CNT_PostalCode, CNT_Phone, CNT_MobilePhone, CNT_Email, "
    "CNT_JobTitle, CNT_BirthDate, CNT_Anniversary, CNT_Company, CNT_WorkCity, CNT_WorkPhone, CNT_WorkFax, "
    "CNT_WorkEmail, CNT_LastMeetingDate, CNT_Notes, CNT_DateLastUpdate) SELECT n, 2, n % 7, 'Person ' || n % 1000, "
    "'Family ' || lpad((n * 7919 % 1000003)::text, 7, '0'), 'J', 'Dear friend', n % 300 || ' Long Street', "
    "'Springfield', 'Somewhere', 'Far away', lpad((n % 100000)::text, 5, '0'), '555-1' || lpad(n::text, 7, '0'), "
    "'555-2' || lpad(n::text, 7, '0'), 'person' || n || '@example.org', 'Engineer', pg_temp.day(0), pg_temp.day(0), "
    "'Company ' || n % 500 || ' and Sons', 'Springfield', '555-3' || lpad(n::text, 7, '0'), "
    "'555-4' || lpad(n::text, 7, '0'), 'person' || n || '@work.example.org', pg_temp.day(45000.375 + n % 1000), "
    "'Met person ' || n || ' at the fair of the year before the last.', pg_temp.day(45000.25) "
    "FROM generate_series(1::bigint, {0}) AS n";
constexpr char kSequences[] =
    "UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID=1; UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID IN (4, 7, 8); "
    "UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID=12";

std::string ConnectionTo(const std::string& database) {
  return "Provider=PostgreSQL;Host=" + ServerFolder() + ";Database=" + database + ";User ID=tester";
}

void MakeTables(const std::string& place) {
  CreateDatabase(place);
  const auto connection = MakeRef<Connection>();
  connection->Open(place);
  for (const std::string& statement : schema::Statements(schema::Text("9.2.4"))) connection->Execute(statement);
}

void Fill(const HandServer& server, const char* text, std::int32_t count) {
  server.Execute(OnServer(fmt::format(fmt::runtime(text), count, kSystemFolders)));
}

}  // namespace

std::string ServerFolder() {
  const char* const folder = std::getenv("ZEF_BENCH_SERVER");
  return folder == nullptr ? "" : folder;
}

const std::string& ServerDatabase(const std::string& name, const Sizes& sizes) {
  static std::map<std::string, std::string> places;
  const auto [entry, fresh] = places.try_emplace(name, ConnectionTo(name));
  if (!fresh) return entry->second;
  HandServer(ConnectionTo("postgres")).Execute("CREATE DATABASE " + name);
  MakeTables(entry->second);
  const HandServer server(entry->second);
  server.Execute(
      "CREATE FUNCTION pg_temp.day(double precision) RETURNS timestamp LANGUAGE sql AS "
      "$$ SELECT timestamp '1899-12-30' + $1 * interval '1 day' $$");
  Fill(server, kFolders, sizes.folders);
  for (const char* text : {kRules, kNotifications, kEvents}) Fill(server, text, sizes.events);
  Fill(server, kContacts, sizes.contacts);
  server.Execute(OnServer(fmt::format(kSequences, sizes.contacts, sizes.events, kSystemFolders + sizes.folders)));
  server.Execute("VACUUM ANALYZE");
  return entry->second;
}

}  // namespace zef::bench
