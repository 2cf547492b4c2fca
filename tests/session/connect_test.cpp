#include <gtest/gtest.h>

#include "platform/recordset.h"
#include "session/connecting.h"
#include "tests/session/connect_fixture.h"

namespace zef::test {
namespace {

TEST(FreshSession, IsNotConnected) { EXPECT_FALSE(MakeRef<CSession>()->IsConnected()); }

TEST(FreshSession, HasNoConnection) { EXPECT_EQ(MakeRef<CSession>()->conDBConnection, nullptr); }

class Connecting : public testing::Test {
 protected:
  Database database;
  Ref<CSession> session = MakeRef<CSession>();
};

TEST_F(Connecting, ReturnsTrue) { EXPECT_TRUE(session->Connect2Database(database.path(), "", "")); }

TEST_F(Connecting, MarksTheSessionAsConnected) {
  session->Connect2Database(database.path(), "", "");
  EXPECT_TRUE(session->IsConnected());
}

TEST_F(Connecting, OpensTheConnection) {
  session->Connect2Database(database.path(), "", "");
  EXPECT_EQ(Count(*session->conDBConnection, "Folders"), 12);
}

TEST_F(Connecting, AsksForReadingAndWriting) {
  session->Connect2Database(database.path(), "", "");
  EXPECT_EQ(session->conDBConnection->Mode, 3);
}

TEST_F(Connecting, LeavesTheErrorRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->Connect2Database(database.path(), "", "");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Connecting, TakesAnyUserName) { EXPECT_TRUE(session->Connect2Database(database.path(), "nobody", "")); }

TEST_F(Connecting, KeepsTheUserNameOutOfTheConnectionString) {
  EXPECT_TRUE(session->Connect2Database(database.path(), "x;Password=wrong;Data Source=nowhere", ""));
}

TEST_F(Connecting, PutsTheFileNameIntoTheConnectionStringAsItStands) {
  EXPECT_TRUE(session->Connect2Database(database.path() + ";Mode=3", "", ""));
}

TEST_F(Connecting, ConnectionThatAClientAssignsIsUsed) {
  session->conDBConnection = database.Connect();
  EXPECT_GT(session->GetFolderIDByCriteria("FLD_Name='Tasks'"), 0);
  EXPECT_FALSE(session->IsConnected());
  EXPECT_TRUE(session->DisconnectFromDatabase());
}

TEST(FileConnectionString, WithoutAPasswordEndsInTheAccount) {
  EXPECT_EQ(FileConnectionString("people.db", ""),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=people.db;User ID=Admin");
}

TEST(FileConnectionString, WithAPasswordEndsInItAndNoSemicolon) {
  EXPECT_EQ(FileConnectionString("people.db", "secret"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=people.db;User ID=Admin;Jet OLEDB:Database Password=secret");
}

TEST_F(Connecting, WithAMalformedStringEntersTheErrorList) {
  EXPECT_TRUE(Raised([&] { session->Connect2DatabaseCS("Provider=SQLite;nonsense"); }));
  EXPECT_EQ(session->conDBConnection->Errors().Count(), 1);
}

TEST_F(Connecting, WithTheUsualKeysOfOtherClientsOpens) {
  EXPECT_TRUE(session->Connect2DatabaseCS(database.ConnectionString() +
                                          ";Persist Security Info=False;Jet OLEDB:Engine Type=5;Mode=Share Deny None"));
}

TEST_F(Connecting, WithAnUnknownModeIsRefused) {
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS(database.ConnectionString() + ";Mode=Everything"); }),
            kMalformed);
}

TEST_F(Connecting, WithModeReadRefusesToWrite) {
  session->Connect2DatabaseCS(database.ConnectionString() + ";Mode=Read");
  EXPECT_EQ(NumberRaised([&] { session->conDBConnection->Execute("DELETE * FROM Folders"); }), kUnusable);
}

TEST_F(Connecting, WithModeReadReads) {
  session->Connect2DatabaseCS(database.ConnectionString() + ";Mode=Read");
  EXPECT_GT(session->GetFolderIDByCriteria("FLD_Name='Tasks'"), 0);
}

TEST_F(Connecting, OfAnOpenConnectionIsRefusedAsOpen) {
  session->Connect2DatabaseCS(database.ConnectionString());
  EXPECT_EQ(NumberRaised([&] { session->conDBConnection->Open(database.ConnectionString()); }), 3705);
}

TEST_F(Connecting, PutsAPasswordWithASemicolonIntoTheConnectionStringAsItStands) {
  EXPECT_EQ(NumberOf(Refusal(database.path(), "a;b")), kMalformed);
}

TEST_F(Connecting, ByStringReturnsTrue) { EXPECT_TRUE(session->Connect2DatabaseCS(database.ConnectionString())); }

TEST_F(Connecting, ByStringMarksTheSessionAsConnected) {
  session->Connect2DatabaseCS(database.ConnectionString());
  EXPECT_TRUE(session->IsConnected());
}

TEST_F(Connecting, ByStringAsksForReadingAndWriting) {
  session->Connect2DatabaseCS(database.ConnectionString());
  EXPECT_EQ(session->conDBConnection->Mode, 3);
}

TEST_F(Connecting, ByStringTakesTheNameThatFilesAreOpenedWith) {
  EXPECT_TRUE(session->Connect2DatabaseCS("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + database.path() +
                                          ";User ID=Admin"));
}

TEST_F(Connecting, ByStringWithUnknownProviderRaises3706) {
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS("Provider=Abacus;Data Source=" + database.path()); }), 3706);
}

TEST_F(Connecting, ByStringWithoutProviderRaises3706) {
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS("Data Source=" + database.path()); }), 3706);
}

TEST_F(Connecting, ByEmptyStringRaises3706) {
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS(""); }), 3706);
}

TEST_F(Connecting, ByStringWithUnclosedQuoteRaises) {
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS("Provider=\"SQLite"); }), kMalformed);
}

TEST_F(Connecting, TwiceUsesTheSecondDatabase) {
  const Database second;
  second.Connect()->Execute("DELETE * FROM Folders");
  session->Connect2Database(database.path(), "", "");
  session->Connect2Database(second.path(), "", "");
  EXPECT_EQ(Count(*session->conDBConnection, "Folders"), 0);
}

TEST_F(Connecting, TwiceDoesNotCloseTheFirstConnection) {
  session->Connect2Database(database.path(), "", "");
  const Ref<Connection> first = session->conDBConnection;
  session->Connect2Database(database.path(), "", "");
  EXPECT_TRUE(first->IsOpen());
  EXPECT_NE(first, session->conDBConnection);
}

}  // namespace
}  // namespace zef::test
