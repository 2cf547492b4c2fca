#include "tests/users/user_fixture.h"

namespace zef::test {
namespace {

/// Users of all kinds of passwords: "ann" has none, "bob" an empty one, "eve" one of three blanks, "o'neill" one with
/// apostrophes.
class CheckUser : public UserTest {
 protected:
  CheckUser() {
    InsertUser("1", "'ann'", "Null");
    InsertUser("2", "'bob'", "''");
    InsertUser("3", "'eve'", "'   '");
    InsertUser("4", "'o''neill'", "'it''s ''me'''");
    InsertUser("5", "'Zo\xC3\xAB'", "' Secret'");
  }
  /// The identifier that is found; 0 for Nothing.
  std::int32_t Found(const std::string& name, const std::string& password) {
    const Ref<CUser> user = session->CheckUser(name, password);
    return user ? user->ID : 0;
  }
};

TEST_F(CheckUser, WithAPasswordSendsBothInQuotes) {
  session->CheckUser("o'neill", "it's 'me'");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_Name='o''neill' AND USR_Password='it''s ''me'''"});
}

TEST_F(CheckUser, WithoutAPasswordAsksForNullOrEmpty) {
  session->CheckUser("o'neill", "");
  EXPECT_EQ(SentInAll(),
            Texts{"SELECT * FROM Users WHERE USR_Name='o''neill' AND (IsNull(USR_Password) OR USR_Password='')"});
}

TEST_F(CheckUser, WithAPasswordOfBlanksAsksForNullOrEmpty) {
  session->CheckUser("ann", "   ");
  EXPECT_EQ(SentInAll(),
            Texts{"SELECT * FROM Users WHERE USR_Name='ann' AND (IsNull(USR_Password) OR USR_Password='')"});
}

TEST_F(CheckUser, WithBlanksAroundThePasswordSendsThem) {
  session->CheckUser("ann", "  x ");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_Name='ann' AND USR_Password='  x '"});
}

TEST_F(CheckUser, WithATabForAPasswordSendsIt) {
  session->CheckUser("ann", "\t");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_Name='ann' AND USR_Password='\t'"});
}

TEST_F(CheckUser, WithoutAPasswordFindsTheUserWhoseIsNull) { EXPECT_EQ(Found("ann", ""), 1); }

TEST_F(CheckUser, WithoutAPasswordFindsTheUserWhoseIsEmpty) { EXPECT_EQ(Found("bob", ""), 2); }

TEST_F(CheckUser, WithBlanksFindsTheUserWhosePasswordIsNull) { EXPECT_EQ(Found("ann", "   "), 1); }

TEST_F(CheckUser, WithBlanksFindsTheUserWhosePasswordIsEmpty) { EXPECT_EQ(Found("bob", " "), 2); }

TEST_F(CheckUser, WithBlanksDoesNotFindTheUserWhosePasswordIsThoseBlanks) { EXPECT_EQ(Found("eve", "   "), 0); }

TEST_F(CheckUser, WithoutAPasswordDoesNotFindTheUserWhoHasOne) { EXPECT_EQ(Found("o'neill", ""), 0); }

TEST_F(CheckUser, WithApostrophesFindsTheLiteralText) { EXPECT_EQ(Found("o'neill", "it's 'me'"), 4); }

TEST_F(CheckUser, WithAStatementForAPasswordFindsNobody) {
  EXPECT_EQ(Found("o'neill", "x' OR '1'='1"), 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CheckUser, WithAStatementForANameFindsNobody) {
  EXPECT_EQ(Found("o'neill' OR '1'='1", ""), 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CheckUser, WithMarksOfPatternsFindsNobody) { EXPECT_EQ(Found("%", "%"), 0); }

TEST_F(CheckUser, ComparesLettersAsTheDatabaseDoes) { EXPECT_EQ(Found("ZO\xC3\x8B", " sECRET"), 5); }

TEST_F(CheckUser, ComparesBlanksBeforeThePassword) { EXPECT_EQ(Found("Zo\xC3\xAB", "Secret"), 0); }

TEST_F(CheckUser, ComparesBlanksAroundTheName) { EXPECT_EQ(Found(" ann", ""), 0); }

TEST_F(CheckUser, WithAWrongPasswordGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->CheckUser("o'neill", "wrong"));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(CheckUser, WithAnUnknownNameGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->CheckUser("nobody", "wrong"));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(CheckUser, WithAnEmptyNameDoesNotFindTheUserWithoutOne) {
  Run("INSERT INTO Users (USR_ID) VALUES (9)");
  EXPECT_EQ(Found("", ""), 0);
}

TEST_F(CheckUser, GivesTheWholeUserWithTheSessionAndClearFlags) {
  StoredUser();
  const Ref<CUser> user = session->CheckUser("a name", "a password");
  ASSERT_TRUE(user);
  ExpectAllValues(*user, kUserColumns);
  EXPECT_EQ(user->Session(), session);
  EXPECT_EQ(Flags(*user), "old clear");
}

TEST_F(CheckUser, LeavesRightsAndIdentifierOfTheSession) {
  StoredUser();
  session->UserRights = 3;
  session->UserID = 17;
  ASSERT_TRUE(session->CheckUser("a name", "a password"));
  EXPECT_EQ(session->UserRights, 3);
  EXPECT_EQ(session->UserID, 17);
}

TEST_F(CheckUser, ThatFailsIsRecordedWithoutThePassword) {
  Run("DROP TABLE Users");
  EXPECT_FALSE(session->CheckUser("ann", "secret"));
  EXPECT_EQ(session->GetErrorProcedure(), "CheckUser");
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchTable));
  EXPECT_THAT(session->GetErrorDescription(), testing::Not(testing::HasSubstr("secret")));
}

TEST_F(CheckUser, OfARowThatCannotBeReadGivesNothing) {
  AllowNullInTheKey();
  Run("INSERT INTO Users (USR_Name) VALUES ('ann')");
  EXPECT_FALSE(session->CheckUser("ann", ""));
  EXPECT_EQ(session->GetErrorProcedure(), "CheckUser");
  EXPECT_EQ(session->GetErrorCode(), 94);
}

}  // namespace
}  // namespace zef::test
