#include "bench/older_database.h"

#include <fmt/format.h>

#include "bench/by_hand.h"
#include "platform/connection.h"
#include "platform/recordset.h"
#include "platform/transaction_guard.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::bench {
namespace {

void MakeTables(const std::string& path) {
  const std::string text = "Provider=SQLite;Data Source=" + path;
  CreateDatabase(text);
  const auto connection = MakeRef<Connection>();
  connection->Open(text);
  TransactionGuard<Connection> transaction(*connection);
  for (const std::string& statement : schema::Statements(schema::Text("9.1"))) connection->Execute(statement);
  transaction.Commit();
}

/// An identifier that is Null in every ninth row and dangles where the list is shorter than `spread`.
std::string Reference(int spread) { return fmt::format("CASE WHEN i % 9 = 0 THEN NULL ELSE i % {} END", spread); }

void AddRows(const HandDatabase& db, std::int32_t count, const std::string& insert_select) {
  db.Execute(fmt::format("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) {}", count,
                         insert_select)
                 .c_str());
}

}  // namespace

void MakeOlderDatabase(const std::string& path, std::int32_t contacts) {
  MakeTables(path);
  const HandDatabase db(path);
  AddRows(
      db, contacts,
      fmt::format("INSERT INTO Contacts (CNT_ID, CNT_FolderID, CNT_FirstName, CNT_LastName, CNT_Address, CNT_City, "
                  "CNT_StateID, CNT_CountryID, CNT_WorkStateID, CNT_WorkCountryID, CNT_Phone, CNT_BirthDate) "
                  "SELECT i, 2, 'First ' || i, 'Last ' || i % 977, i % 300 || ' Main Street', 'City ' || i % 50, {}, "
                  "{}, {}, {}, '555 ' || i, 20000 + i % 9000 FROM n",
                  Reference(60), Reference(220), Reference(53), Reference(211)));
  AddRows(db, contacts,
          fmt::format("INSERT INTO Tasks (TSK_ID, TSK_FolderID, TSK_PriorityID, TSK_Name, TSK_DueDate) "
                      "SELECT i, 3, {}, 'Task ' || i, 45000 + i % 700 FROM n",
                      Reference(5)));
  AddRows(db, 2 * contacts,
          "INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_Text, EVE_StartDate, EVE_EndDate) "
          "SELECT i, 1, 'Event ' || i, 45000 + i % 700, 45000.5 + i % 700 FROM n");
  db.Checkpoint();
}

}  // namespace zef::bench
