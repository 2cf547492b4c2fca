#include <gmock/gmock.h>

#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

/// A user of whom the server asks a password.
class PasswordPostgreSQL : public ServerTest {
 protected:
  std::optional<RunTimeError> RefusalWith(const std::string& password) const {
    std::string connection_string = database_.NetworkConnectionString("127.0.0.1");
    connection_string.replace(connection_string.find("User ID=tester"), 14, "User ID=guarded") += password;
    return Raised([&] { Connection().Open(connection_string); });
  }
};

TEST_F(PasswordPostgreSQL, ThatIsRightConnects) { EXPECT_FALSE(RefusalWith(";Password=open sesame")); }

TEST_F(PasswordPostgreSQL, ThatIsWrongIsRefusedAndNotShown) {
  const auto failure = RefusalWith(";Password=open barley");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), FailureNumber::PasswordRefused);
  EXPECT_EQ(failure->description(), "The server refused the user or the password.");
}

TEST_F(PasswordPostgreSQL, ThatIsMissingIsRefused) {
  const auto failure = RefusalWith("");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), FailureNumber::PasswordRefused);
}

}  // namespace
}  // namespace zef::test
