#include <gmock/gmock.h>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A database with the user "ann", who has a password, beside that of every database.
class ZefUserTest : public ZefTest {
 protected:
  ZefUserTest() {
    Zef({"add", "user", "people.db", "ann", "--full-name", "Ann O'Hara", "--rights", "editor", "--password",
         "o'p \"w"});
  }
};

// ---- users

TEST_F(ZefUserTest, IsAdded) { EXPECT_EQ(Printed({"add", "user", "people.db", "bob"}), "Added user 3, 'bob'.\n"); }

TEST_F(ZefUserTest, AreListedByNameWithTheirRightsInWords) {
  Zef({"add", "user", "people.db", "zoe", "--rights", "editor,viewer", "--email", "z@x"});
  EXPECT_EQ(Printed({"users", "people.db"}),
            "ID  NAME   FULL NAME      RIGHTS          EMAIL\n"
            " 1  Admin  Administrator  administrator\n"
            " 2  ann    Ann O'Hara     editor\n"
            " 3  zoe                   editor, viewer  z@x\n");
}

TEST_F(ZefUserTest, AreListedAsJson) {
  EXPECT_THAT(Printed({"users", "people.db", "--json"}),
              AllOf(StartsWith("[{\"id\": 1, \"name\": \"Admin\", \"full_name\": \"Administrator\", \"rights\": 1, "),
                    HasSubstr("\"name\": \"ann\"")));
}

TEST_F(ZefUserTest, WithoutRightsGivenIsAViewer) {
  Zef({"add", "user", "people.db", "bob"});
  EXPECT_EQ(Stored("SELECT USR_Rights FROM Users WHERE USR_Name='bob'"), "4");
}

TEST_F(ZefUserTest, UnknownRightsAreWrongUseAndNoUserIsWritten) {
  EXPECT_THAT(Complaint(2, {"add", "user", "people.db", "bob", "--rights", "boss"}),
              StartsWith("zef: --rights: 'boss' is none of administrator, editor, viewer, none"));
  EXPECT_EQ(Stored("SELECT Count(*) FROM Users"), "2");
}

TEST_F(ZefUserTest, WithoutANameIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"add", "user", "people.db", ""}), "zef: NAME: it is empty.\n");
}

TEST_F(ZefUserTest, NameOfAnotherIsRefusedInAnyLetterCase) {
  EXPECT_EQ(Complaint(1, {"add", "user", "people.db", "ANN"}), "zef: There is a user 'ANN' already.\n");
  EXPECT_EQ(Complaint(1, {"set", "user", "people.db", "2", "Name=admin"}), "zef: There is a user 'admin' already.\n");
}

TEST_F(ZefUserTest, OwnNameCanBeWrittenAnew) {
  EXPECT_EQ(Printed({"set", "user", "people.db", "2", "Name=Ann"}), "Changed user 2, 'Ann'.\n");
}

TEST_F(ZefUserTest, IsShownWithoutThePassword) {
  EXPECT_THAT(
      Printed({"show", "user", "people.db", "2"}),
      AllOf(HasSubstr("Rights          editor\n"), HasSubstr("UserType        Read/Write\n"), Not(HasSubstr("o'p"))));
  EXPECT_THAT(Printed({"show", "user", "people.db", "2", "--json"}), Not(HasSubstr("o'p")));
}

TEST_F(ZefUserTest, RightsAreChangedByTheirWords) {
  Printed({"set", "user", "people.db", "2", "Rights=administrator, editor"});
  EXPECT_EQ(Stored("SELECT USR_Rights FROM Users WHERE USR_ID=2"), "3");
}

TEST_F(ZefUserTest, ChangeOfAnotherPropertyKeepsThePassword) {
  Printed({"set", "user", "people.db", "2", "Email=a@x"});
  EXPECT_EQ(Stored("SELECT USR_Password FROM Users WHERE USR_ID=2"), "o'p \"w");
}

TEST_F(ZefUserTest, IsDeleted) {
  EXPECT_EQ(Printed({"delete", "user", "people.db", "2"}), "Deleted user 2, 'ann'.\n");
  EXPECT_EQ(Stored("SELECT Count(*) FROM Users"), "1");
}

TEST_F(ZefUserTest, MissingOneIsRefused) {
  EXPECT_EQ(Complaint(1, {"show", "user", "people.db", "9"}), "zef: There is no user 9.\n");
  EXPECT_EQ(Complaint(1, {"delete", "user", "people.db", "9"}), "zef: There is no user 9.\n");
}

TEST_F(ZefUserTest, NameTooLongIsRefusedAndNothingIsWritten) {
  Complaint(1, {"add", "user", "people.db", std::string(256, 'x')});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Users"), "2");
}

// ---- login

TEST_F(ZefUserTest, LoginShowsTheRights) {
  EXPECT_THAT(Printed({"login", "people.db", "ann", "--password", "o'p \"w"}),
              AllOf(HasSubstr("Name            ann\n"), HasSubstr("Rights          editor\n"), Not(HasSubstr("o'p"))));
}

TEST_F(ZefUserTest, LoginIsToldAsJson) {
  EXPECT_THAT(
      Printed({"login", "people.db", "ann", "--password", "o'p \"w", "--json"}),
      AllOf(StartsWith("{\"id\": 2, \"name\": \"ann\""), HasSubstr("\"rights\": 2, \"user_type\": \"Read/Write\"")));
}

TEST_F(ZefUserTest, LoginWithoutAPasswordIsForAccountsThatHaveNone) {
  EXPECT_THAT(Printed({"login", "people.db", "Admin"}), HasSubstr("administrator"));
  Complaint(1, {"login", "people.db", "ann"});
}

TEST_F(ZefUserTest, LoginWithAWrongPasswordAndAnUnknownNameAreRefusedAlike) {
  const std::string refusal = "zef: No user has this name and this password.\n";
  EXPECT_EQ(Complaint(1, {"login", "people.db", "ann", "--password", "x"}), refusal);
  EXPECT_EQ(Complaint(1, {"login", "people.db", "nobody", "--password", "x"}), refusal);
  EXPECT_EQ(Complaint(1, {"login", "people.db", "x' OR 'a'='a", "--password", "x' OR 'a'='a"}), refusal);
}

TEST_F(ZefUserTest, LoginWithoutANameIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"login", "people.db"}), StartsWith("zef: NAME is missing."));
}

TEST_F(ZefUserTest, LoginWithAChangedPasswordTakesTheNewOne) {
  Printed({"set", "user", "people.db", "2", "Password=new"});
  Printed({"login", "people.db", "ann", "--password", "new"});
}

#ifndef ZEF_SYSTEM_SQLITE

TEST_F(ZefTest, LoginToAnEncryptedDatabaseTakesBothPasswords) {
  Zef({"create", "secret.db", "--password", "door"});
  Zef({"add", "user", "secret.db", "ann", "--password", "own", "--database-password", "door"});
  EXPECT_THAT(Printed({"login", "secret.db", "ann", "--password", "own", "--database-password", "door"}),
              HasSubstr("viewer"));
  EXPECT_THAT(Printed({"--password", "door", "login", "secret.db", "ann", "--password", "own"}), HasSubstr("viewer"));
  EXPECT_THAT(Complaint(1, {"login", "secret.db", "ann", "--password", "own"}), HasSubstr("The database is protected"));
}

#endif

}  // namespace
}  // namespace zef::test
