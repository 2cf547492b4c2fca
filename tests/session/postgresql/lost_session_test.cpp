#include <gtest/gtest.h>

#include "folders/folder.h"
#include "tests/support/server.h"

namespace zef::test {
namespace {

/// A session whose connection the server ends.
class LostSessionPostgreSQL : public testing::Test {
 protected:
  LostSessionPostgreSQL() { session_->Connect2DatabaseCS(database_.ConnectionString()); }

  Ref<CFolder> Renamed(const char* name) {
    Ref<CFolder> folder = session_->GetFolder(8);
    folder->Name = name;
    return folder;
  }

  ServerDatabase database_{"9.2.4"};
  Ref<CSession> session_ = MakeRef<CSession>();
};

TEST_F(LostSessionPostgreSQL, IsRecordedByASave) {
  const Ref<CFolder> folder = Renamed("Feasts");
  database_.EndConnections();
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session_->GetEntireErrorDesc(),
            "[CFolder.Save] Error: -2147467259 - The connection to the server was lost; connect again.");
  EXPECT_FALSE(session_->TransactionStarted());
}

TEST_F(LostSessionPostgreSQL, IsRecordedByALookUp) {
  database_.EndConnections();
  EXPECT_FALSE(session_->GetFolder(8));
  EXPECT_EQ(session_->GetErrorDescription(), "The connection to the server was lost; connect again.");
}

TEST_F(LostSessionPostgreSQL, CanConnectAgainAndSaveWhatWasNotSaved) {
  const Ref<CFolder> folder = Renamed("Feasts");
  database_.EndConnections();
  EXPECT_FALSE(folder->Save());
  EXPECT_TRUE(session_->DisconnectFromDatabase());
  EXPECT_TRUE(session_->Connect2DatabaseCS(database_.ConnectionString()));
  EXPECT_TRUE(folder->Save()) << session_->GetEntireErrorDesc();
  EXPECT_EQ(database_.Ask("SELECT \"FLD_Name\" FROM \"Folders\" WHERE \"FLD_ID\" = 8"), "Feasts");
}

TEST_F(LostSessionPostgreSQL, InATransactionLeavesNothingOfItAndCanBeRolledBack) {
  EXPECT_TRUE(session_->BeginTransaction());
  EXPECT_TRUE(Renamed("Feasts")->Save());
  database_.EndConnections();
  EXPECT_FALSE(session_->CommitTransaction());
  EXPECT_TRUE(session_->RollbackTransaction());
  EXPECT_EQ(database_.Ask("SELECT \"FLD_Name\" FROM \"Folders\" WHERE \"FLD_ID\" = 8"), "Birthdays");
}

}  // namespace
}  // namespace zef::test
