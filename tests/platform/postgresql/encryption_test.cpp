#include <gmock/gmock.h>

#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

using testing::HasSubstr;

/// Connections over the network to a server that talks encrypted only.
class EncryptionPostgreSQL : public ServerTest {
 protected:
  std::string Over(const std::string& host, const std::string& more) const {
    return database_.NetworkConnectionString(host) + ";" + more;
  }
  static std::string Verifying(const std::string& root) {
    return "SSL Mode=Verify-Full;Root Certificate=" + ServerDatabase::Certificate(root);
  }
  /// Whether the server has an encrypted connection of a program's own, besides that which asks.
  std::string Encrypted() const {
    return database_.Ask(
        "SELECT ssl FROM pg_stat_ssl JOIN pg_stat_activity USING (pid) WHERE client_addr IS NOT NULL"
        " AND datname = current_database()");
  }
  static std::string Refusal(const std::string& connection_string) {
    const auto failure = Raised([&] { Connection().Open(connection_string); });
    if (!failure) return "connected";
    EXPECT_EQ(failure->code(), FailureNumber::FileUnusable);
    return failure->description();
  }
};

TEST_F(EncryptionPostgreSQL, ThatIsRequiredIsThere) {
  auto connection = MakeRef<Connection>();
  connection->Open(Over("127.0.0.1", "SSL Mode=Require"));
  EXPECT_EQ(Encrypted(), "t");
}

TEST_F(EncryptionPostgreSQL, OfAServerThatProvesItsNameIsThere) {
  auto connection = MakeRef<Connection>();
  connection->Open(Over("localhost", Verifying("root.crt")));
  EXPECT_EQ(Encrypted(), "t");
}

TEST_F(EncryptionPostgreSQL, OfAServerUnderAnotherNameIsRefused) {
  EXPECT_THAT(Refusal(Over("127.0.0.1", Verifying("root.crt"))), HasSubstr("does not match host name \"127.0.0.1\""));
}

TEST_F(EncryptionPostgreSQL, OfAServerThatAStrangerHasSignedIsRefused) {
  EXPECT_THAT(Refusal(Over("localhost", Verifying("stranger.crt"))),
              HasSubstr("comes from nobody whom 'Root Certificate' names"));
}

TEST_F(EncryptionPostgreSQL, WithoutTheRootCertificateIsRefused) {
  EXPECT_THAT(Refusal(Over("localhost", "SSL Mode=Verify-CA;Root Certificate=/nowhere/root.crt")),
              HasSubstr("root certificate file \"/nowhere/root.crt\" does not exist"));
}

TEST_F(EncryptionPostgreSQL, ThatTheServerDemandsCannotBeLeftOut) {
  EXPECT_THAT(Refusal(Over("127.0.0.1", "SSL Mode=Disable")),
              HasSubstr("no encryption. The server may demand encryption"));
}

}  // namespace
}  // namespace zef::test
