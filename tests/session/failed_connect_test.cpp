#include <gtest/gtest.h>

#include <iterator>
#include <ostream>
#include <vector>

#include "session/connecting.h"
#include "tests/session/connect_fixture.h"

namespace zef::test {
namespace {

/// Why a connect fails: the password that the file has and the one that is given.
struct Cause {
  const char* name;
  const char* password;
  const char* given;
  std::int32_t number;
  const char* suffix = "";  ///< makes another name of the file's
  bool by_string = false;   ///< connects by a connection string
};

void PrintTo(const Cause& cause, std::ostream* out) { *out << cause.name; }

class FailedConnect : public testing::TestWithParam<Cause> {
 protected:
  void Connect() {
    const std::string path = file.path() + GetParam().suffix;
    const auto connect = [&] {
      GetParam().by_string ? session->Connect2DatabaseCS(FileConnectionString(path, GetParam().given))
                           : session->Connect2Database(path, "", GetParam().given);
    };
    EXPECT_EQ(NumberRaised(connect), GetParam().number);
  }
  Database file{"9.2.4", GetParam().password};
  Database other;
  Ref<CSession> session = MakeRef<CSession>();
};

TEST_P(FailedConnect, LeavesAFreshSessionUnconnected) {
  Connect();
  EXPECT_FALSE(session->IsConnected());
}

TEST_P(FailedConnect, LeavesAConnectedSessionMarkedAsConnected) {
  session->Connect2DatabaseCS(other.ConnectionString());
  Connect();
  EXPECT_TRUE(session->IsConnected());
}

TEST_P(FailedConnect, ReplacesTheConnectionByTheNewOne) {
  session->Connect2DatabaseCS(other.ConnectionString());
  const Ref<Connection> first = session->conDBConnection;
  Connect();
  EXPECT_NE(session->conDBConnection, first);
}

TEST_P(FailedConnect, KeepsTheNewConnectionUnopened) {
  Connect();
  ASSERT_TRUE(session->conDBConnection);
  EXPECT_FALSE(session->conDBConnection->IsOpen());
}

TEST_P(FailedConnect, LeavesTheErrorRecordUnwritten) {
  Connect();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error:  - ");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_P(FailedConnect, EntersTheProvidersList) {
  Connect();
  ASSERT_EQ(session->conDBConnection->Errors().Count(), 1);
  EXPECT_EQ(session->conDBConnection->Errors().Item(0).Number, GetParam().number);
}

TEST_P(FailedConnect, CanBeFollowedByOneThatSucceeds) {
  Connect();
  EXPECT_TRUE(session->Connect2Database(other.path(), "", ""));
  EXPECT_TRUE(session->IsConnected());
}

TEST_P(FailedConnect, IsWhatLaterOperationsReport) {
  Connect();
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_EQ(session->GetErrorCode(), GetParam().number);
}

const Cause kCauses[] = {
    {"MissingFile", "", "", kUnusable, ".not"},
#ifndef ZEF_SYSTEM_SQLITE
    {"WrongPassword", kSecret, "guess", kPassword},
    {"MissingPassword", kSecret, "", kPassword},
    {"SuperfluousPassword", "", "guess", kPassword},
#endif
};
/// Each cause, met by both ways to connect.
std::vector<Cause> Causes() {
  std::vector<Cause> causes(std::begin(kCauses), std::end(kCauses));
  for (Cause cause : kCauses) {
    cause.by_string = true;
    causes.push_back(cause);
  }
  return causes;
}
INSTANTIATE_TEST_SUITE_P(Causes, FailedConnect, testing::ValuesIn(Causes()), [](const auto& test) {
  return std::string(test.param.name) + (test.param.by_string ? "ByString" : "");
});

TEST(ConnectToUnknownProvider, LeavesTheNewConnectionUnopened) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS("Provider=Abacus"); }), 3706);
  EXPECT_FALSE(session->conDBConnection->IsOpen());
  EXPECT_FALSE(session->IsConnected());
}

TEST(ConnectToUnknownProvider, DoesNotEnterTheProvidersList) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->Connect2DatabaseCS("Provider=Abacus"); }), 3706);
  EXPECT_EQ(session->conDBConnection->Errors().Count(), 0);
}

}  // namespace
}  // namespace zef::test
