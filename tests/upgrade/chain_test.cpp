#include <map>
#include <set>

#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/text.h"
#include "tests/support/dump.h"
#include "tests/upgrade/filled_database.h"
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

/// What a file declares: each column with its type and collation, and each index with its columns.
std::map<std::string, std::set<std::string>> Layout(const std::string& path) {
  const DatabaseHandle db = OpenDatabaseFile(path, "");
  const StatementHandle columns = PrepareOwn(
      db.get(),
      "SELECT t.name, lower(c.name) || ' ' || c.type || ' ' || c.\"notnull\" || ' ' || c.pk FROM sqlite_schema AS t, "
      "pragma_table_info(t.name) AS c WHERE t.type='table' UNION ALL SELECT t.name, i.name || ' ' || i.\"unique\" || "
      "' ' || i.partial || ' ' || (SELECT group_concat(lower(c.name) || ' ' || c.coll) FROM pragma_index_xinfo(i.name) "
      "AS c) FROM sqlite_schema AS t, pragma_index_list(t.name) AS i WHERE t.type='table' UNION ALL SELECT t.name, "
      "'refers to ' || f.\"table\" FROM sqlite_schema AS t, pragma_foreign_key_list(t.name) AS f WHERE t.type='table'");
  std::map<std::string, std::set<std::string>> layout;
  const auto text = [&](int column) {
    return std::string(reinterpret_cast<const char*>(sqlite3_column_text(columns.get(), column)));
  };
  while (sqlite3_step(columns.get()) == SQLITE_ROW) {
    std::string name = text(0);
    std::set<std::string>& table = layout[std::move(name)];
    std::string item = text(1);
    if (sqlite3_table_column_metadata(db.get(), nullptr, text(0).c_str(), item.substr(0, item.find(' ')).c_str(),
                                      nullptr, nullptr, nullptr, nullptr, nullptr) == SQLITE_OK) {
      const char* collation = nullptr;
      sqlite3_table_column_metadata(db.get(), nullptr, text(0).c_str(), item.substr(0, item.find(' ')).c_str(), nullptr,
                                    &collation, nullptr, nullptr, nullptr);
      item += " " + std::string(collation);
    }
    table.insert(std::move(item));
  }
  return layout;
}

TEST_F(Chain, MakesTheTablesAndIndexesOfANewDatabase) {
  const Database fresh;
  std::map<std::string, std::set<std::string>> wanted = Layout(fresh.path());
  ASSERT_GT(wanted.at("Contacts").size(), 50u);
  // No step makes this index.
  ASSERT_EQ(
      std::erase_if(wanted.at("Events"), [](const std::string& item) { return item.starts_with("IX_Events_LinkID "); }),
      1u);
  ASSERT_TRUE(WholeChain());
  EXPECT_EQ(Layout(database.path()), wanted);
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
