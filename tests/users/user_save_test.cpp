#include <limits>

#include "tests/support/fault_sweep.h"
#include "tests/support/raised.h"
#include "tests/users/user_fixture.h"

namespace zef::test {
namespace {

using UserSave = UserTest;

TEST_F(UserSave, OfANewOneInsertsAllInOrder) {
  ASSERT_TRUE(FullUser()->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Users (USR_ID,USR_Rights,USR_Name,USR_FullName,USR_Password,USR_Email,"
                          "USR_DateLastUpdated,USR_CreationDate) VALUES (2,2,'o''brien','Pat O''Brien',"
                          "'it''s ''me''','o''b@example.org','5/1/2024 9:00:00 AM','2/29/2020 6:30:15 PM')"});
}

TEST_F(UserSave, OfANewOneLeavesOutEmptyTexts) {
  const Ref<CUser> user = NewUser();
  user->Rights = 1;
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Users (USR_ID,USR_Rights,USR_DateLastUpdated,USR_CreationDate) VALUES "
                          "(2,1,'5/1/2024 9:00:00 AM','5/1/2024 9:00:00 AM')"});
  EXPECT_EQ(Stored("SELECT USR_Password FROM Users"), "Null");
}

TEST_F(UserSave, OfALoadedOneUpdatesAllAndBlanksEmptyTexts) {
  const Ref<CUser> user = StoredUser();
  user->Name = user->FullName = user->Password = user->Email = std::string();
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Users SET USR_ID=61,USR_Rights=62,USR_Name='',USR_FullName='',USR_Password='',"
                          "USR_Email='',USR_DateLastUpdated='5/1/2024 9:00:00 AM',USR_CreationDate="
                          "'2/29/2020 6:30:15 PM' WHERE USR_ID=61"});
}

TEST_F(UserSave, OfALoadedOneDoublesApostrophes) {
  const Ref<CUser> user = StoredUser();
  user->Password = "'";
  ASSERT_TRUE(user->Save());
  EXPECT_THAT(Sent().front(), testing::HasSubstr(",USR_Password='''',"));
  EXPECT_EQ(Stored("SELECT USR_Password FROM Users"), "'");
}

TEST_F(UserSave, WritesEveryColumnOfTheTable) {
  ASSERT_TRUE(FullUser()->Save());
  for (const std::string& column : ColumnsOf(connection(), "Users")) {
    EXPECT_NE(Stored("SELECT " + column + " FROM Users"), "Null") << column;
  }
}

TEST_F(UserSave, OfAnUntouchedNewOneDrawsNothingAddsNoRowAndMakesItOld) {
  const Ref<CUser> user = NewUser();
  EXPECT_TRUE(user->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(user->ID, 0);
  EXPECT_EQ(Flags(*user), "old clear");
}

TEST_F(UserSave, AfterResetFlagsInsertsUnderANewIdentifier) {
  const Ref<CUser> user = StoredUser();
  user->ResetFlags();
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(user->ID, 2);
  EXPECT_EQ(Rows("Users"), 2);
}

TEST_F(UserSave, AfterOneOfAnUntouchedNewOneUpdatesNoRow) {
  const Ref<CUser> user = NewUser();
  ASSERT_TRUE(user->Save());
  user->Name = "late";
  EXPECT_TRUE(user->Save());
  EXPECT_THAT(Sent().front(), testing::EndsWith(" WHERE USR_ID=0"));
  EXPECT_EQ(Rows("Users"), 0);
}

TEST_F(UserSave, OfAnUntouchedLoadedOneSendsNothing) {
  EXPECT_TRUE(StoredUser()->Save());
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(UserSave, OfAnUntouchedOneClearsAnOldError) {
  const Ref<CUser> user = StoredUser();
  LeaveAnOldError();
  EXPECT_TRUE(user->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(UserSave, ForTheFirstTimeDrawsFromSequenceSix) {
  SetSequences({{6, 41}});
  const Ref<CUser> user = NewUser("ann");
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(user->ID, 42);
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=6"), "42");
}

TEST_F(UserSave, ForTheSecondTimeDrawsNothing) {
  const Ref<CUser> user = NewUser("ann");
  ASSERT_TRUE(user->Save());
  user->Name = "bob";
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=6"), "2");
  EXPECT_EQ(Stored("SELECT USR_Name FROM Users"), "bob");
}

TEST_F(UserSave, WithoutItsSequenceFailsInTheNameOfTheSequence) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=6");
  const Ref<CUser> user = NewUser("ann");
  EXPECT_FALSE(user->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
  EXPECT_EQ(Flags(*user), "new modified");
  EXPECT_EQ(Rows("Users"), 0);
}

TEST_F(UserSave, BehindTheLastIdentifierFails) {
  SetSequences({{6, 2147483647}});
  EXPECT_FALSE(NewUser("ann")->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

TEST_F(UserSave, StampsTheRowAndNotTheObject) {
  const Ref<CUser> user = FullUser();
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(user->DateLastUpdate, On("1/1/1999"));
  EXPECT_EQ(session->GetUser(user->ID)->DateLastUpdate, now_);
}

TEST_F(UserSave, KeepsTheDateOfCreation) {
  const Ref<CUser> user = StoredUser();
  user->Rights = 1;
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(session->GetUser(61)->CreationDate, On("2/29/2020 6:30:15 PM"));
}

TEST_F(UserSave, WritesANullDateOfCreationAsDateZero) {
  Run("INSERT INTO Users (USR_ID) VALUES (5)");
  const Ref<CUser> user = session->GetUser(5);
  user->Name = "ann";
  ASSERT_TRUE(user->Save());
  EXPECT_TRUE(session->GetUser(5)->CreationDate->IsZero());
}

TEST_F(UserSave, ClearsTheFlagsAndAnOldError) {
  LeaveAnOldError();
  const Ref<CUser> user = NewUser("ann");
  EXPECT_TRUE(user->Save());
  EXPECT_EQ(Flags(*user), "old clear");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserSave, ComesToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  const Ref<CUser> user = StoredUser();
  user->Password = "new";
  EXPECT_TRUE(user->Save());
  EXPECT_EQ(Stored("SELECT USR_Password FROM Users"), "new");
}

TEST_F(UserSave, LetsTwoBearOneName) {
  EXPECT_TRUE(NewUser("ann")->Save());
  EXPECT_TRUE(NewUser("ann")->Save());
  EXPECT_EQ(Rows("Users WHERE USR_Name='ann'"), 2);
}

TEST_F(UserSave, KeepsThePasswordInClearWithItsBlanksAndLetterCase) {
  const Ref<CUser> user = NewUser("ann");
  user->Password = "  Secret ";
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(session->GetUser(user->ID)->Password, "  Secret ");
}

TEST_F(UserSave, KeepsTheLimitsOfRights) {
  for (const std::int32_t rights :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    const Ref<CUser> user = NewUser("ann");
    user->Rights = rights;
    ASSERT_TRUE(user->Save());
    EXPECT_EQ(session->GetUser(user->ID)->Rights, rights);
  }
}

TEST_F(UserSave, KeepsLettersOfAllScripts) {
  const Ref<CUser> user = NewUser("Zo\xC3\xAB \xF0\x9F\x8E\xB5");
  ASSERT_TRUE(user->Save());
  EXPECT_EQ(session->GetUser(user->ID)->Name, "Zo\xC3\xAB \xF0\x9F\x8E\xB5");
}

TEST_F(UserSave, OfAPasswordThatIsTooLongFailsWithoutShowingIt) {
  const Ref<CUser> user = NewUser("ann");
  user->Password = std::string(256, 'p');
  EXPECT_FALSE(user->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CUser.Save");
  EXPECT_THAT(session->GetErrorDescription(), testing::HasSubstr("USR_Password"));
  EXPECT_THAT(session->GetErrorDescription(), testing::Not(testing::HasSubstr("ppp")));
  EXPECT_EQ(Flags(*user), "new modified");
}

TEST_F(UserSave, CanBeMendedAfterAFailure) {
  const Ref<CUser> user = NewUser(std::string(256, 'n'));
  ASSERT_FALSE(user->Save());
  user->Name = std::string(255, 'n');
  EXPECT_TRUE(user->Save());
  EXPECT_EQ(Rows("Users"), 1);
}

TEST_F(UserSave, OfADateOutOfRangeFailsBeforeAnIdentifierIsDrawn) {
  const Ref<CUser> user = NewUser("ann");
  user->CreationDate = Date(1e9);
  EXPECT_FALSE(user->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CUser.Save");
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*user), "new modified");
}

TEST_F(UserSave, UnderAnIdentifierThatIsTakenFails) {
  SetSequences({{6, 60}});
  StoredUser();
  EXPECT_FALSE(NewUser("ann")->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CUser.Save");
  EXPECT_EQ(Rows("Users"), 1);
}

TEST_F(UserSave, WithoutTheTableFails) {
  const Ref<CUser> user = StoredUser();
  Run("DROP TABLE Users");
  user->Name = "ann";
  EXPECT_FALSE(user->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CUser.Save");
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchTable));
}

TEST_F(UserSave, JoinsTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(NewUser("ann")->Save());
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Users"), 0);
}

TEST_F(UserSave, WithoutASessionRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CUser>()->Save(); }), 91);
}

TEST_F(UserSave, EachFailureOfANewOnesLeavesFlagsAndRows) {
  const Ref<CUser> user = FullUser();
  const auto failures = FailEachCall(
      database, *session, [&] { return user->Save(); }, [&] { return Flags(*user); }, Unchanged::AllButSequences);
  ASSERT_EQ(failures.size(), 5u);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(failures[i].procedure, "GetUniqueIDFromSeq") << failures[i].call;
  EXPECT_EQ(failures[4].procedure, "CUser.Save");
}

TEST_F(UserSave, FailureOfAnUpdateLeavesFlagsAndRow) {
  const Ref<CUser> user = StoredUser();
  user->Name = "ann";
  const auto failures = FailEachCall(
      database, *session, [&] { return user->Save(); }, [&] { return FlagsOf(*user); });
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "CUser.Save");
}

}  // namespace
}  // namespace zef::test
