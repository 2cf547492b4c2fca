#include "bench/test_data.h"

#include <fmt/format.h>

#include <string_view>

#include "bench/by_hand.h"
#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/recordset.h"
#include "platform/transaction_guard.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::bench {
namespace {

void MakeTables(const std::string& path) {
  const std::string database = "Provider=SQLite;Data Source=" + path;
  CreateDatabase(database);
  const auto connection = MakeRef<Connection>();
  connection->Open(database);
  TransactionGuard guard(*connection);
  for (const std::string& statement : schema::Statements(schema::Text("9.2.4"))) connection->Execute(statement);
  guard.Commit();
}

/// Runs a statement for the numbers from 1 to `count`, each bound to its first parameter.
void Repeat(const HandDatabase& db, std::string_view text, std::int32_t count) {
  const HandStatement statement = db.Prepare(text);
  for (std::int32_t i = 1; i <= count; ++i) {
    sqlite3_bind_int(statement.get(), 1, i);
    db.Run(statement);
  }
}

/// Names run through the numbers in another order than the identifiers, so that sorting has work to do.
void FillFolders(const HandDatabase& db, std::int32_t count) {
  Repeat(db,
         fmt::format("INSERT INTO Folders VALUES ({} + ?1, 1, 0, printf('Project %07d of the year', ?1 * 7919 % {}), "
                     "printf('All that belongs to project %d', ?1), 4, 45000.5 + ?1 % 300, 0)",
                     kSystemFolders, count + 1),
         count);
}

void FillEvents(const HandDatabase& db, std::int32_t count) {
  Repeat(db, "INSERT INTO Recurrences VALUES (?1, 2, 0, 1 + ?1 % 3, 0, 0, 1 + ?1 % 127, 0, 0, 47000 + ?1 % 900)",
         count);
  Repeat(db,
         "INSERT INTO Notifications VALUES (?1, printf('Meeting %d is due', ?1), printf('Please do not forget that "
         "meeting %d takes place soon, in the room that you know.', ?1), printf('guest%d@example.org', ?1), NULL, "
         "NULL, 1, 0, 45000.375 + ?1 % 1000)",
         count);
  Repeat(db,
         "INSERT INTO Events VALUES (?1, 1, ?1 % 7, ?1, ?1, ?1 % 11, printf('Meeting %07d with the team', ?1), "
         "printf('Room %d', ?1 % 50), 45000.375 + ?1 % 1000, 45000.5 + ?1 % 1000, 15, 45000.25, 'E', NULL)",
         count);
}

void SetSequences(const HandDatabase& db, std::int32_t folders, std::int32_t events) {
  const std::string text = fmt::format(
      "UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID IN (4, 7, 8); UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID=12",
      events, kSystemFolders + folders);
  db.Execute(text.c_str());
}

}  // namespace

void MakeDatabase(const std::string& path, std::int32_t folders, std::int32_t events) {
  MakeTables(path);
  const HandDatabase db(path);
  db.Execute("BEGIN IMMEDIATE");
  FillFolders(db, folders);
  FillEvents(db, events);
  SetSequences(db, folders, events);
  db.Execute("COMMIT");
  db.Checkpoint();
}

}  // namespace zef::bench
