#include "tests/platform/conformance/backend.h"
#include "tests/platform/dialect_cases.h"

namespace zef::test {
namespace {

class Dialects : public Conformance {
 protected:
  Dialects() {
    Execute(
        "CREATE TABLE Folders (FLD_ID Long NOT NULL PRIMARY KEY, FLD_ParentID Long, FLD_Name Text(20), FLD_Note Memo, "
        "FLD_Type Byte, FLD_Open Bit)");
    Execute("CREATE INDEX ByName ON Folders (FLD_Name)");
    Execute(
        "CREATE TABLE Events (EVE_ID Long NOT NULL PRIMARY KEY, EVE_FolderID Long, EVE_Text Text(10), EVE_Start "
        "DateTime, EVE_Cost Double, EVE_Rank Short, EVE_Data LongBinary)");
    Execute("CREATE TABLE Seen (SEE_User Long NOT NULL, SEE_Date DateTime)");
  }
  void NameFolders() {
    int id = 0;
    for (const char* name : kFolderNames) {
      Execute("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (" + std::to_string(++id) + ", " + name + ")");
    }
  }
  void FillEvents() {
    Execute("INSERT INTO Folders (FLD_ID, FLD_Name, FLD_Type) VALUES (1, 'one', 7)");
    Execute("INSERT INTO Folders (FLD_ID, FLD_Name, FLD_Type) VALUES (2, 'two', 8)");
    for (const char* values :
         {"(10, 1, '5/1/2024')", "(11, 1, '5/2/2024')", "(12, 2, '5/3/2024')", "(13, 9, '5/4/2024')"}) {
      Execute(std::string("INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_Start) VALUES ") + values);
    }
  }
  /// Values behind commas, rows behind semicolons.
  std::string Table(const std::string& select) {
    std::string rows;
    for (const Ref<Recordset> rs = Execute(select); !rs->EndOfFile(); rs->MoveNext()) {
      rows += rows.empty() ? "" : "; ";
      for (int i = 0; i < rs->Fields().Count(); ++i) {
        const Value value = rs->ValueAt(i);
        rows += (i == 0 ? "" : ", ") + (IsNull(value) ? "Null" : ToText(value));
      }
    }
    return rows;
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, Dialects, testing::ValuesIn(Backends()), BackendName);

TEST_P(Dialects, FindTextsByTheirOwnRules) {
  NameFolders();
  for (const auto& [condition, ids] : kNameSearches) {
    EXPECT_EQ(Table(std::string("SELECT FLD_ID FROM Folders WHERE ") + condition + " ORDER BY FLD_ID"), ids)
        << condition;
  }
}

TEST_P(Dialects, GiveTheRowsOfQueries) {
  NameFolders();
  for (const auto& [name, statement, rows] : kQueries) EXPECT_EQ(Table(statement), rows) << name;
}

TEST_P(Dialects, ChangeJoinedTables) {
  for (const auto& [name, statement, select, rows] : kJoinedChanges) {
    connection_->BeginTrans();
    FillEvents();
    if (*statement != '\0') Execute(statement);
    EXPECT_EQ(Table(select), rows) << name;
    connection_->RollbackTrans();
  }
}

TEST_P(Dialects, FindTextsWithAnotherCharacterForTheSameLetter) {
  NameFolders();
  Execute("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (12, '\u212Aelvin')");
  EXPECT_EQ(Table("SELECT FLD_ID FROM Folders WHERE FLD_Name IN ('x','kelvin')"), "12");
  EXPECT_EQ(Table("SELECT FLD_ID FROM Folders WHERE FLD_Name LIKE 'KEL%'"), "12");
}

TEST_P(Dialects, CompareDatesWithNumbers) {
  FillEvents();
  EXPECT_EQ(Table("SELECT EVE_ID FROM Events WHERE EVE_Start>45414"), "12; 13");
  EXPECT_EQ(Table("SELECT EVE_ID FROM Events WHERE 45414=EVE_Start"), "11");
  EXPECT_EQ(Table("SELECT EVE_ID FROM Events WHERE EVE_Start IN (45413, #5/4/2024#)"), "10; 13");
  EXPECT_EQ(Table("SELECT EVE_ID FROM Events WHERE EVE_Start BETWEEN 45413.5 AND 45414"), "11");
  EXPECT_EQ(Table("SELECT EVE_ID FROM Events WHERE 45413 IN (SELECT EVE_Start FROM Events) AND EVE_ID=10"), "10");
}

TEST_P(Dialects, UniteValuesOfSeveralKinds) {
  EXPECT_EQ(Table("SELECT 1 UNION ALL SELECT 'x' UNION ALL SELECT Null UNION ALL SELECT 2.5"), "1; x; Null; 2.5");
  EXPECT_EQ(Table("SELECT Null UNION ALL SELECT Null UNION ALL SELECT 2"), "Null; Null; 2");
}

}  // namespace
}  // namespace zef::test
