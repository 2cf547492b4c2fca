#include "bench/by_hand_upgrade.h"

#include <fmt/format.h>

namespace zef::bench {
namespace {

/// The engine has no statement that changes the declaration of a table, so its stored text is edited.
void Redeclare(const HandDatabase& db, const char* table, const std::string& from, const std::string& to) {
  db.Execute("BEGIN IMMEDIATE; PRAGMA writable_schema=ON");
  db.Execute(fmt::format("UPDATE sqlite_schema SET sql=replace(sql, '{}', '{}') WHERE type='table' AND name='{}'", from,
                         to, table)
                 .c_str());
  const HandStatement version = db.Prepare("PRAGMA schema_version", false);
  db.Step(version);
  const int next = sqlite3_column_int(version.get(), 0) + 1;
  sqlite3_reset(version.get());
  db.Execute(fmt::format("PRAGMA schema_version={}; PRAGMA writable_schema=RESET; COMMIT", next).c_str());
}

void Widen(const HandDatabase& db, const char* table, const char* column, const char* from, const char* to) {
  Redeclare(db, table, fmt::format("\"{}\" {}", column, from), fmt::format("\"{}\" {}", column, to));
}

void DropRelationship(const HandDatabase& db, const char* table, const char* name, const char* column, const char* list,
                      const char* key) {
  Redeclare(db, table,
            fmt::format(", CONSTRAINT \"{}\" FOREIGN KEY (\"{}\") REFERENCES \"{}\" (\"{}\")", name, column, list, key),
            "");
}

void AddFolder(const HandDatabase& db, const char* name, const char* parent, int type) {
  db.Execute(
      fmt::format("BEGIN IMMEDIATE; UPDATE Sequences SET SEQ_Value=SEQ_Value+1 WHERE SEQ_ID=12; COMMIT; "
                  "INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, "
                  "FLD_DateLastUpdate, FLD_Protected) SELECT SEQ_Value, FLD_ID, 0, '{0}', '{0}', {1}, {2}, 1 FROM "
                  "Sequences, Folders WHERE SEQ_ID=12 AND FLD_Protected=1 AND FLD_Name='{3}'",
                  name, type, NowByHand(), parent)
          .c_str());
}

/// Puts the name in the place of the identifier that refers to it.
void ReplaceByName(const HandDatabase& db, const char* table, const char* column, int length, const char* list,
                   const char* key, const char* name) {
  db.Execute(fmt::format("ALTER TABLE {} ADD COLUMN {} TEXT({}) COLLATE NOCASE", table, column, length).c_str());
  db.Execute(fmt::format("UPDATE {0} SET {1}={2}.{4} FROM {2} WHERE {2}.{3}={0}.{1}ID", table, column, list, key, name)
                 .c_str());
  db.Execute(fmt::format("ALTER TABLE {} DROP COLUMN {}ID", table, column).c_str());
}

void UpgradeEvents(const HandDatabase& db) {
  Widen(db, "Events", "EVE_Text", "TEXT(128)", "TEXT(255)");
  db.Execute("ALTER TABLE Events ADD COLUMN EVE_Type TEXT(1) COLLATE NOCASE");
  db.Execute("UPDATE Events SET EVE_Type='E'");
  db.Execute("ALTER TABLE Events ADD COLUMN EVE_LinkID INTEGER");
  db.Execute("UPDATE Events SET EVE_LinkID=-1");
}

void UpgradeFolders(const HandDatabase& db) {
  db.Execute("ALTER TABLE Folders ADD COLUMN FLD_Protected BYTE");
  db.Execute("UPDATE Folders SET FLD_Protected=0");
  for (const char* const root : {"Alarms", "Notes", "Calendar", "Contacts", "Tasks"}) {
    db.Execute(fmt::format("UPDATE Folders SET FLD_Protected=1 WHERE FLD_Name='{}' AND FLD_ParentID=0", root).c_str());
  }
  AddFolder(db, "All Events", "Calendar", 4);
  AddFolder(db, "Completed Tasks", "Tasks", 2);
  AddFolder(db, "Phone Call Notes", "Notes", 3);
  AddFolder(db, "Tasks Due Dates", "Calendar", 4);
  AddFolder(db, "Anniversaries", "Calendar", 4);
  AddFolder(db, "Birthdays", "Calendar", 4);
}

void UpgradeReferences(const HandDatabase& db) {
  DropRelationship(db, "Tasks", "lstTaskPriorityTasks", "TSK_PriorityID", "lstTaskPriority", "TP_ID");
  DropRelationship(db, "Notes", "CategoriesNotes", "NOT_CategoryID", "Categories", "CAT_ID");
  DropRelationship(db, "Contacts", "lstStatesContacts", "CNT_StateID", "lstStates", "ST_ID");
  DropRelationship(db, "Contacts", "lstStatesContacts1", "CNT_WorkStateID", "lstStates", "ST_ID");
  DropRelationship(db, "Contacts", "lstCountriesContacts", "CNT_CountryID", "lstCountries", "COU_ID");
  DropRelationship(db, "Contacts", "lstCountriesContacts1", "CNT_WorkCountryID", "lstCountries", "COU_ID");
  ReplaceByName(db, "Tasks", "TSK_Priority", 64, "lstTaskPriority", "TP_ID", "TP_Name");
  ReplaceByName(db, "Contacts", "CNT_State", 128, "lstStates", "ST_ID", "ST_Name");
  ReplaceByName(db, "Contacts", "CNT_Country", 128, "lstCountries", "COU_ID", "COU_Name");
  ReplaceByName(db, "Contacts", "CNT_WorkState", 128, "lstStates", "ST_ID", "ST_Name");
  ReplaceByName(db, "Contacts", "CNT_WorkCountry", 128, "lstCountries", "COU_ID", "COU_Name");
}

}  // namespace

void UpgradeByHand(const HandDatabase& db) {
  UpgradeEvents(db);
  UpgradeFolders(db);
  Widen(db, "Notes", "NOT_Title", "TEXT(255)", "TEXT");
  UpgradeReferences(db);
  db.Execute("UPDATE _VersionInfo SET VI_Version='9.2.1'");
  for (const char* const column : {"CNT_Phone", "CNT_MobilePhone", "CNT_WorkPhone", "CNT_WorkFax"}) {
    Widen(db, "Contacts", column, "TEXT(24)", "TEXT(32)");
  }
  AddFolder(db, "All Tasks", "Tasks", 2);
  db.Execute("UPDATE _VersionInfo SET VI_Version='9.2.2'");
  db.Execute("UPDATE _VersionInfo SET VI_Version='9.2.3'");
  db.Execute("UPDATE Folders SET FLD_Protected=0 WHERE FLD_Name='Task Due Dates'");
  db.Execute("UPDATE _VersionInfo SET VI_Version='9.2.4'");
}

}  // namespace zef::bench
