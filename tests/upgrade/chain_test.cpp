#include <map>
#include <set>

#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/text.h"
#include "tests/support/dump.h"
#include "tests/support/filled_database.h"
#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

class Chain : public UpgradeTest {
 protected:
  Chain() { FillOlderDatabase(*database.Connect()); }
};

TEST_F(Chain, EndsAtTheCurrentVersion) {
  ASSERT_TRUE(WholeChain()) << session->GetEntireErrorDesc();
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.4 9.2.4");
}

TEST_F(Chain, KeepsEveryRow) {
  const std::string before = KeptRows(connection());
  EXPECT_NE(before.find("'High'"), std::string::npos);
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(KeptRows(connection()), before);
}

TEST_F(Chain, KeepsTheFoldersThatWereThere) {
  InsertFolder(50, 1, "It''s mine");
  const std::string old =
      "SELECT FLD_ID,FLD_ParentID,FLD_Options,FLD_Name,FLD_Description,FLD_Type,FLD_DateLastUpdate "
      "FROM Folders WHERE FLD_ID<=5 OR FLD_ID=50 ORDER BY 1";
  const std::string before = DumpRows(connection(), old);
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(DumpRows(connection(), old), before);
}

TEST_F(Chain, KeepsSequencesButThatOfFolders) {
  const std::string others = "SELECT * FROM Sequences WHERE SEQ_ID<>12 ORDER BY 1";
  const std::string before = DumpRows(connection(), others);
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(DumpRows(connection(), others), before);
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=12"), "12");
}

TEST_F(Chain, MakesTheSystemFoldersOfANewDatabase) {
  const Database fresh;
  const std::string folders =
      "SELECT F.FLD_Name,F.FLD_Type,F.FLD_Description,F.FLD_Protected,P.FLD_Name FROM Folders AS F LEFT JOIN Folders "
      "AS P ON F.FLD_ParentID=P.FLD_ID ORDER BY 1";
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(DumpRows(connection(), folders), DumpRows(*fresh.Connect(), folders));
}

using Layout = std::map<std::string, std::set<std::string>>;

/// Adds to each table what a query tells of it: the table's name and a text.
void AddTo(Layout& layout, sqlite3* db, std::string_view query) {
  const StatementHandle rows = PrepareOwn(db, query);
  const auto text = [&](int column) {
    return std::string(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), column)));
  };
  while (sqlite3_step(rows.get()) == SQLITE_ROW) layout[text(0)].insert(text(1));
}

/// What a file declares: each table's columns with their types, indexes with their columns and collations, and
/// relationships. Letter case does not count, nor does the order of columns.
Layout LayoutOf(const std::string& path) {
  const DatabaseHandle db = OpenDatabaseFile(path, "");
  Layout layout;
  AddTo(layout, db.get(),
        "SELECT t.name, lower(c.name) || ' ' || c.type || ' ' || c.\"notnull\" || ' ' || c.pk FROM sqlite_schema AS t, "
        "pragma_table_info(t.name) AS c WHERE t.type='table'");
  AddTo(layout, db.get(),
        "SELECT t.name, i.name || ' ' || i.\"unique\" || ' ' || i.partial || ' ' || (SELECT group_concat(lower(c.name) "
        "|| ' ' || c.coll) FROM pragma_index_xinfo(i.name) AS c WHERE c.key) FROM sqlite_schema AS t, "
        "pragma_index_list(t.name) AS i WHERE t.type='table'");
  AddTo(
      layout, db.get(),
      "SELECT t.name, 'refers to ' || f.\"table\" FROM sqlite_schema AS t, pragma_foreign_key_list(t.name) AS f WHERE "
      "t.type='table'");
  return layout;
}

TEST_F(Chain, MakesTheTablesAndIndexesOfANewDatabase) {
  const Database fresh;
  Layout wanted = LayoutOf(fresh.path());
  ASSERT_GT(wanted.at("Contacts").size(), 50u);
  // No step makes this index.
  ASSERT_EQ(
      std::erase_if(wanted.at("Events"), [](const std::string& item) { return item.starts_with("IX_Events_LinkID "); }),
      1u);
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(LayoutOf(database.path()), wanted);
}

TEST_F(Chain, AddsTextsThatCompareWithoutRegardToLetterCase) {
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(Rows("Tasks WHERE TSK_Priority='hIGH'"), 1);
  EXPECT_EQ(Rows("Contacts WHERE CNT_WorkState='aRIZONA'"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='e'"), 2);
}

TEST_F(Chain, LeavesASoundFile) {
  ASSERT_TRUE(WholeChain());
  const DatabaseHandle db = OpenDatabaseFile(database.path(), "");
  const StatementHandle check = PrepareOwn(db.get(), "PRAGMA integrity_check");
  ASSERT_EQ(sqlite3_step(check.get()), SQLITE_ROW);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0)), "ok");
}

TEST_F(Chain, IsSeenByAnotherClientThatHasReadBefore) {
  EXPECT_EQ(Stored("SELECT TSK_PriorityID FROM Tasks WHERE TSK_ID=1"), "3");
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks WHERE TSK_ID=1"), "High");
}

TEST_F(Chain, TwiceChangesNoRow) {
  ASSERT_TRUE(WholeChain());
  const std::string once = Dump(connection());
  version = "9.1.0";
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(Dump(connection()), once);
}

TEST(ChainOfAnEncryptedDatabase, KeepsEveryRow) {
#ifdef ZEF_SYSTEM_SQLITE
  GTEST_SKIP() << "no passwords in this build";
#endif
  const Database database("9.1", "secret");
  const Ref<CSession> session = database.OpenSession();
  FillOlderDatabase(*session->conDBConnection);
  const std::string before = KeptRows(*session->conDBConnection);
  std::string version = "9.1.0";
  std::string message;
  ASSERT_TRUE(session->UpgradeDBToVersion9_2_1(version, message)) << session->GetEntireErrorDesc();
  EXPECT_EQ(KeptRows(*session->conDBConnection), before);
}

}  // namespace
}  // namespace zef::test
