#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include "platform/postgresql/server_options.h"
#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

class ConnectionStringPostgreSQL : public ServerTest {
 protected:
  static std::optional<RunTimeError> Refusal(const std::string& connection_string) {
    return Raised([&] { Connection().Open(connection_string); });
  }
  std::string With(const std::string& more) const { return database_.ConnectionString() + ";" + more; }
};

TEST_F(ConnectionStringPostgreSQL, WithAnUnknownKeyIsRefused) {
  const auto failure = Refusal(With("Colour=red"));
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), FailureNumber::StatementError);
  EXPECT_EQ(failure->description(), "The connection string is refused: the key 'Colour' is not known.");
}

TEST_F(ConnectionStringPostgreSQL, WithAKeyTwiceIsRefused) {
  for (const char* again : {"host=x", "Database=x", "USER ID=zef", "Provider=PostgreSQL"}) {
    EXPECT_EQ(Refusal(With(again))->code(), FailureNumber::StatementError) << again;
  }
}

TEST_F(ConnectionStringPostgreSQL, WithoutAHostOrDatabaseIsRefused) {
  EXPECT_EQ(Refusal("Provider=PostgreSQL;Database=x")->code(), FailureNumber::StatementError);
  EXPECT_EQ(Refusal("Provider=PostgreSQL;Host=/tmp")->code(), FailureNumber::StatementError);
}

TEST_F(ConnectionStringPostgreSQL, TakesTheEncryptionInAnySpelling) {
  for (const char* mode : {"SSL Mode=Prefer", "ssl mode=disable"}) EXPECT_FALSE(Refusal(With(mode))) << mode;
  EXPECT_EQ(Refusal(With("SSL Mode=perhaps"))->code(), FailureNumber::StatementError);
}

TEST_F(ConnectionStringPostgreSQL, OfAServerThatIsNotThereIsUnusableAndKeepsThePassword) {
  const auto failure = Refusal("Provider=PostgreSQL;Host=/nowhere;Database=x;User ID=u;Password=sesame");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), FailureNumber::FileUnusable);
  EXPECT_EQ(failure->description().find("sesame"), std::string::npos);
}

TEST_F(ConnectionStringPostgreSQL, OfADatabaseThatIsNotThereIsUnusable) {
  std::string other = database_.ConnectionString();
  other.replace(other.find("Database=") + 9, 8, "nowhere_");
  EXPECT_EQ(Refusal(other)->code(), FailureNumber::FileUnusable);
}

TEST_F(ConnectionStringPostgreSQL, MakesNoDatabaseWhereTablesAre) {
  Execute("CREATE TABLE Numbers (N Long)");
  EXPECT_EQ(NumberRaised([&] { CreateDatabase(database_.ConnectionString()); }), 75);
}

TEST_F(ConnectionStringPostgreSQL, OverTheNetworkNoticesWithinAMinuteThatItIsCut) {
  const ConnectionHandle connection =
      ConnectToServer(ParseConnectionString(database_.NetworkConnectionString("127.0.0.1")));
  const auto option = [&](int name) {
    int value = 0;
    socklen_t size = sizeof value;
    getsockopt(PQsocket(connection.get()), IPPROTO_TCP, name, &value, &size);
    return value;
  };
  EXPECT_LE(option(TCP_KEEPIDLE) + option(TCP_KEEPINTVL) * option(TCP_KEEPCNT), 60);
  EXPECT_EQ(option(TCP_USER_TIMEOUT), 30000);
}

TEST_F(ConnectionStringPostgreSQL, ToADatabaseOfAnotherIsolationSeesWhatOthersCommitAllTheSame) {
  database_.Ask("ALTER DATABASE " + database_.Ask("SELECT current_database()") +
                " SET default_transaction_isolation = 'repeatable read'");
  Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY)");
  const Ref<Connection> other = Connect();
  other->BeginTrans();
  EXPECT_EQ(Scalar(*other, "SELECT Count(*) FROM Numbers"), "0");
  Execute("INSERT INTO Numbers (N) VALUES (1)");
  EXPECT_EQ(Scalar(*other, "SELECT Count(*) FROM Numbers"), "1");
  other->RollbackTrans();
}

}  // namespace
}  // namespace zef::test
