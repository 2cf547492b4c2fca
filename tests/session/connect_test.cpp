#include <gtest/gtest.h>

#include "platform/recordset.h"
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

TEST_F(Connecting, PutsTheAccountBehindTheFileName) {
  const auto failure = Refusal("\"" + database.path());
  EXPECT_EQ(NumberOf(failure), kMalformed) << "the quote reaches to the end of the string";
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
