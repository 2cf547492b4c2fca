#include <gtest/gtest.h>

#include "platform/recordset.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

using Disconnecting = SessionTest;

TEST_F(Disconnecting, ReturnsTrue) { EXPECT_TRUE(session->DisconnectFromDatabase()); }

TEST_F(Disconnecting, MarksTheSessionAsUnconnected) {
  session->DisconnectFromDatabase();
  EXPECT_FALSE(session->IsConnected());
}

TEST_F(Disconnecting, LetsTheConnectionGo) {
  session->DisconnectFromDatabase();
  EXPECT_EQ(session->conDBConnection, nullptr);
}

TEST_F(Disconnecting, ClosesTheConnection) {
  const Ref<Connection> held = session->conDBConnection;
  session->DisconnectFromDatabase();
  EXPECT_FALSE(held->IsOpen());
}

TEST_F(Disconnecting, ClosesItsRecordSets) {
  const Ref<Recordset> rs = connection().Execute("SELECT * FROM Folders");
  session->DisconnectFromDatabase();
  EXPECT_EQ(NumberRaised([&] { rs->EndOfFile(); }), 3704);
}

TEST_F(Disconnecting, LeavesTheErrorRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->DisconnectFromDatabase();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Disconnecting, TwiceRaises) {
  session->DisconnectFromDatabase();
  EXPECT_EQ(NumberRaised([&] { session->DisconnectFromDatabase(); }), 91);
}

TEST_F(Disconnecting, CanBeFollowedByAConnect) {
  session->DisconnectFromDatabase();
  EXPECT_TRUE(session->Connect2DatabaseCS(database.ConnectionString()));
}

TEST_F(Disconnecting, OfAClosedConnectionRaisesAndChangesNothing) {
  connection().Close();
  EXPECT_EQ(NumberRaised([&] { session->DisconnectFromDatabase(); }), 3704);
  EXPECT_TRUE(session->IsConnected());
  EXPECT_TRUE(session->conDBConnection);
}

TEST(DisconnectingWithoutConnection, Raises) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->DisconnectFromDatabase(); }), 91);
}

TEST(DisconnectingWithoutConnection, LeavesTheErrorRecordUnwritten) {
  const auto session = MakeRef<CSession>();
  EXPECT_TRUE(Raised([&] { session->DisconnectFromDatabase(); }));
  EXPECT_FALSE(session->GetErrorFlag());
}

}  // namespace
}  // namespace zef::test
