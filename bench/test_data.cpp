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

/// People with a private address and a company; about half of the columns are filled, as in most address books.
void FillContacts(const HandDatabase& db, std::int32_t count) {
  Repeat(db,
         "INSERT INTO Contacts (CNT_ID, CNT_FolderID, CNT_CategoryID, CNT_FirstName, CNT_LastName, CNT_MI, CNT_Dear, "
         "CNT_Address, CNT_City, CNT_State, CNT_Country, CNT_PostalCode, CNT_Phone, CNT_MobilePhone, CNT_Email, "
         "CNT_JobTitle, CNT_BirthDate, CNT_Anniversary, CNT_Company, CNT_WorkCity, CNT_WorkPhone, CNT_WorkFax, "
         "CNT_WorkEmail, CNT_LastMeetingDate, CNT_Notes, CNT_DateLastUpdate) VALUES (?1, 2, ?1 % 7, "
         "printf('Person %d', ?1 % 1000), printf('Family %07d', ?1 * 7919 % 1000003), 'J', 'Dear friend', "
         "printf('%d Long Street', ?1 % 300), 'Springfield', 'Somewhere', 'Far away', printf('%05d', ?1 % 100000), "
         "printf('555-1%07d', ?1), printf('555-2%07d', ?1), printf('person%d@example.org', ?1), 'Engineer', 0, 0, "
         "printf('Company %d and Sons', ?1 % 500), 'Springfield', printf('555-3%07d', ?1), printf('555-4%07d', ?1), "
         "printf('person%d@work.example.org', ?1), 45000.375 + ?1 % 1000, "
         "printf('Met person %d at the fair of the year before the last.', ?1), 45000.25)",
         count);
}

void SetSequences(const HandDatabase& db, const Sizes& sizes) {
  const std::string text = fmt::format(
      "UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID=1; UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID IN (4, 7, 8); "
      "UPDATE Sequences SET SEQ_Value={} WHERE SEQ_ID=12",
      sizes.contacts, sizes.events, kSystemFolders + sizes.folders);
  db.Execute(text.c_str());
}

}  // namespace

std::string MobilePhone(std::int32_t contact) { return fmt::format("555-2{:07}", contact); }

void MakeDatabase(const std::string& path, const Sizes& sizes) {
  MakeTables(path);
  const HandDatabase db(path);
  db.Execute("BEGIN IMMEDIATE");
  FillFolders(db, sizes.folders);
  FillEvents(db, sizes.events);
  FillContacts(db, sizes.contacts);
  SetSequences(db, sizes);
  db.Execute("COMMIT");
  db.Checkpoint();
}

}  // namespace zef::bench
