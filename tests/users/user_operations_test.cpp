#include <limits>

#include "tests/support/collection_with_one.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/tags.h"
#include "tests/users/user_fixture.h"

namespace zef::test {
namespace {

constexpr auto kNoSuchTable = static_cast<std::int32_t>(FailureNumber::NoSuchTable);
constexpr auto kNoSuchColumn = static_cast<std::int32_t>(FailureNumber::NoSuchColumn);

class UserOperations : public UserTest {
 protected:
  /// Users 1 to 3, who came in another order.
  void InsertThree() {
    for (const char* values : {"3,'eve','Eve Adams'", "1,'ann','Ann Clark'", "2,'o''b','Pat O''Brien'"}) {
      Run(std::string("INSERT INTO Users (USR_ID,USR_Name,USR_FullName) VALUES (") + values + ")");
    }
  }
  static Texts NamesOf(const Ref<CUsers>& users) {
    Texts names;
    for (const Ref<CUser>& user : *users) names.push_back(user->Name);
    return names;
  }
};

// ---- GetUser

TEST_F(UserOperations, GetUserSendsItsSelectAndGivesTheSession) {
  InsertThree();
  EXPECT_EQ(session->GetUser(2)->Session(), session);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_ID=2"});
}

TEST_F(UserOperations, GetUserWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetUser(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(UserOperations, GetUserOfMinusOneGivesNothing) {
  EXPECT_FALSE(session->GetUser(-1));
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_ID=-1"});
}

TEST_F(UserOperations, GetUserOfTheSmallestIdentifierGivesNothing) {
  EXPECT_FALSE(session->GetUser(std::numeric_limits<std::int32_t>::min()));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserOperations, GetUserThatFailsIsRecorded) {
  Run("DROP TABLE Users");
  EXPECT_FALSE(session->GetUser(1));
  EXPECT_EQ(session->GetErrorProcedure(), "GetUser");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchTable);
}

TEST_F(UserOperations, GetUserOfARowThatCannotBeReadIsRecorded) {
  Run("INSERT INTO Users (USR_ID,USR_Rights) VALUES (1,1)");
  Run("ALTER TABLE Users DROP COLUMN USR_CreationDate");
  EXPECT_FALSE(session->GetUser(1));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetUser] Error: 3265 - The column 'USR_CreationDate' is missing.");
}

// ---- GetUsersNo

TEST_F(UserOperations, GetUsersNoCountsTheRowsOfTheWholeTable) {
  InsertThree();
  EXPECT_EQ(session->GetUsersNo(), 3);
  EXPECT_EQ(SentInAll().front(), "SELECT * FROM Users");
}

TEST_F(UserOperations, GetUsersNoOfAnEmptyTableIsZero) {
  LeaveAnOldError();
  EXPECT_EQ(session->GetUsersNo(), 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserOperations, GetUsersNoCountsWhatTheRunningTransactionWrote) {
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(NewUser("ann")->Save());
  EXPECT_EQ(session->GetUsersNo(), 1);
}

TEST_F(UserOperations, GetUsersNoThatFailsIsMinusOneAndRecorded) {
  Run("DROP TABLE Users");
  EXPECT_EQ(session->GetUsersNo(), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetUsersNo");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchTable);
}

// ---- GetUserID4Name

TEST_F(UserOperations, NameWithAnApostropheIsFound) {
  InsertThree();
  EXPECT_EQ(session->GetUserID4Name("o'b"), 2);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_Name='o''b'"});
}

TEST_F(UserOperations, NameIsNotTrimmed) {
  InsertThree();
  EXPECT_EQ(session->GetUserID4Name(" ann"), -1);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_Name=' ann'"});
}

TEST_F(UserOperations, NameIsComparedAsTheDatabaseDoes) {
  InsertThree();
  EXPECT_EQ(session->GetUserID4Name("ANN"), 1);
}

TEST_F(UserOperations, UnknownNameGivesMinusOneAndNoError) {
  LeaveAnOldError();
  EXPECT_EQ(session->GetUserID4Name("nobody"), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserOperations, EmptyNameIsNotThatOfAUserWithoutOne) {
  Run("INSERT INTO Users (USR_ID) VALUES (5)");
  EXPECT_EQ(session->GetUserID4Name(""), -1);
}

TEST_F(UserOperations, NameOfARowWithoutAnIdentifierGivesMinusOneAndNoError) {
  AllowNullInTheKey();
  Run("INSERT INTO Users (USR_Name) VALUES ('ann')");
  EXPECT_EQ(session->GetUserID4Name("ann"), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserOperations, LookUpOfANameThatFailsGivesMinusOneAndIsRecorded) {
  Run("DROP TABLE Users");
  EXPECT_EQ(session->GetUserID4Name("ann"), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetUserID4Name");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchTable);
}

// ---- DeleteUser

TEST_F(UserOperations, DeleteUserSendsOneDelete) {
  InsertThree();
  EXPECT_TRUE(session->DeleteUser(2));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM Users WHERE USR_ID=2"});
  EXPECT_EQ(Rows("Users WHERE USR_ID<>2"), 2);
}

TEST_F(UserOperations, DeleteUserWithoutARowSucceedsAndClearsAnOldError) {
  InsertThree();
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteUser(99));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Users"), 3);
}

TEST_F(UserOperations, DeleteUserTouchesNoOtherTable) {
  InsertThree();
  Run("INSERT INTO ViewedEvents (VE_EventID,VE_UserID) VALUES (4,2)");
  EXPECT_TRUE(session->DeleteUser(2));
  EXPECT_EQ(Rows("ViewedEvents WHERE VE_UserID=2"), 1);
}

TEST_F(UserOperations, DeleteUserIsRefusedToASessionThatMayOnlyRead) {
  InsertThree();
  LeaveAnOldError();
  session->UserRights = DataViewer | Administrator;
  EXPECT_FALSE(session->DeleteUser(2));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeleteUser] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Rows("Users"), 3);
}

TEST_F(UserOperations, DeleteUserJoinsTheClientsTransaction) {
  InsertThree();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteUser(2));
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Users"), 3);
}

TEST_F(UserOperations, EveryFailureOfADeleteIsRecordedAndLeavesTheRow) {
  InsertThree();
  const auto failures = FailEachCall(database, *session, [&] { return session->DeleteUser(2); });
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "DeleteUser");
}

// ---- LoadUserTags

TEST_F(UserOperations, TagsHaveIdentifierAndFullNameOfEachRow) {
  InsertThree();
  const auto tags = Loaded(&CSession::LoadUserTags, "USR_ID>1 ORDER BY USR_ID DESC");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_ID>1 ORDER BY USR_ID DESC"});
  EXPECT_EQ(TextsOf(tags), (Texts{"3 Eve Adams", "2 Pat O'Brien"}));
}

TEST_F(UserOperations, TagsWithoutCriteriaAreOfTheWholeTable) {
  InsertThree();
  const auto tags = Loaded(&CSession::LoadUserTags, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users"});
  EXPECT_EQ(tags->Count(), 3);
}

TEST_F(UserOperations, TagsOfNoRowEmptyTheCollectionAndClearAnOldError) {
  ExpectTagsEmptied(*session, &CSession::LoadUserTags, "USR_ID=99");
}

TEST_F(UserOperations, TagsThatCannotBeOpenedLeaveTheCollection) {
  ExpectTagsKept(*session, &CSession::LoadUserTags, "NoSuchColumn=1", "LoadUserTags");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchColumn);
}

TEST_F(UserOperations, TagsStopAtANullInTheFullNameAndKeepWhatWasAdded) {
  InsertThree();
  Run("UPDATE Users SET USR_FullName=Null WHERE USR_ID=2");
  const Ref<CTags> tags = CollectionWithOne(&CTag::Text);
  EXPECT_FALSE(session->LoadUserTags(tags, "USR_ID>0 ORDER BY USR_ID"));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[LoadUserTags] Error: 94 - Invalid use of Null in the column 'USR_FullName'");
  EXPECT_EQ(TextsOf(tags), Texts{"1 Ann Clark"});
}

TEST_F(UserOperations, TagsStopAtANullInTheIdentifier) {
  AllowNullInTheKey();
  Run("INSERT INTO Users (USR_FullName) VALUES ('Ann Clark')");
  const auto tags = MakeRef<CTags>();
  EXPECT_FALSE(session->LoadUserTags(tags, ""));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[LoadUserTags] Error: 94 - Invalid use of Null in the column 'USR_ID'");
  EXPECT_EQ(tags->Count(), 0);
}

TEST_F(UserOperations, TagsOfATableWithoutFullNamesAreRecorded) {
  InsertThree();
  Run("ALTER TABLE Users DROP COLUMN USR_FullName");
  EXPECT_FALSE(session->LoadUserTags(MakeRef<CTags>(), ""));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[LoadUserTags] Error: 3265 - The column 'USR_FullName' is missing.");
}

TEST_F(UserOperations, TagsDoNotNeedTheOtherColumns) {
  InsertThree();
  Run("ALTER TABLE Users DROP COLUMN USR_Email");
  const auto tags = Loaded(&CSession::LoadUserTags, "");
  EXPECT_EQ(tags->Count(), 3);
}

TEST_F(UserOperations, TagsOfOneIdentifierTwiceAreLoadedOnce) {
  AllowNullInTheKey();
  InsertThree();
  Run("INSERT INTO Users (USR_ID,USR_FullName) VALUES (1,'Another')");
  const auto tags = MakeRef<CTags>();
  EXPECT_TRUE(session->LoadUserTags(tags, "USR_ID<3"));
  EXPECT_EQ(TextsOf(tags), (Texts{"1 Ann Clark", "2 Pat O'Brien"}));
}

TEST_F(UserOperations, TagsHaveAnEmptyFullName) {
  Run("INSERT INTO Users (USR_ID,USR_FullName) VALUES (5,'')");
  const auto tags = Loaded(&CSession::LoadUserTags, "");
  EXPECT_EQ(TextsOf(tags), Texts{"5 "});
}

TEST_F(UserOperations, TagsIntoNothingAreRecorded) {
  ExpectTagsIntoNothingRefused(*session, &CSession::LoadUserTags, "LoadUserTags");
}

// ---- LoadUsersWithCriteria

TEST_F(UserOperations, LoadingWithoutCriteriaSelectsTheWholeTableUnsorted) {
  InsertThree();
  const auto users = Loaded(&CSession::LoadUsersWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users"});
  EXPECT_EQ(users->Count(), 3);
}

TEST_F(UserOperations, CriteriaStandInTheStatementAsTheyCome) {
  InsertThree();
  const auto users = Loaded(&CSession::LoadUsersWithCriteria, "USR_ID<3 ORDER BY USR_Name DESC");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Users WHERE USR_ID<3 ORDER BY USR_Name DESC"});
  EXPECT_EQ(NamesOf(users), (Texts{"o'b", "ann"}));
}

TEST_F(UserOperations, LoadedUsersHaveTheirKeysTheSessionAndClearFlags) {
  InsertThree();
  const auto users = Loaded(&CSession::LoadUsersWithCriteria, "");
  EXPECT_EQ(users->ItemByKey("2")->Session(), session);
  EXPECT_EQ(Flags(*users->ItemByKey("2")), "old clear");
}

TEST_F(UserOperations, LoadingNoRowEmptiesTheCollection) {
  const Ref<CUsers> users = CollectionWithOne(&CUser::Name);
  LeaveAnOldError();
  EXPECT_TRUE(session->LoadUsersWithCriteria(users, "USR_ID=5"));
  EXPECT_EQ(users->Count(), 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(UserOperations, LoadingWithABadCriterionIsRecordedAndLeavesTheCollection) {
  const Ref<CUsers> users = CollectionWithOne(&CUser::Name);
  EXPECT_FALSE(session->LoadUsersWithCriteria(users, "NoSuchColumn=1"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadUsersWithCriteria");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchColumn);
  EXPECT_EQ(NamesOf(users), Texts{"from before"});
}

TEST_F(UserOperations, LoadingWithASecondStatementRunsNeither) {
  InsertThree();
  EXPECT_FALSE(session->LoadUsersWithCriteria(MakeRef<CUsers>(), "USR_ID=1; DELETE * FROM Users"));
  EXPECT_EQ(Rows("Users"), 3);
}

TEST_F(UserOperations, LoadingThatStopsOnTheWayKeepsWhatWasAdded) {
  AllowNullInTheKey();
  InsertThree();
  Run("UPDATE Users SET USR_ID=Null WHERE USR_ID=2");
  const Ref<CUsers> users = CollectionWithOne(&CUser::Name);
  EXPECT_FALSE(session->LoadUsersWithCriteria(users, "USR_Name<>'' ORDER BY USR_FullName DESC"));
  EXPECT_EQ(session->GetErrorCode(), 94);
  EXPECT_EQ(users->Count(), 0);
  EXPECT_FALSE(session->LoadUsersWithCriteria(users, "USR_Name<>'' ORDER BY USR_FullName"));
  EXPECT_EQ(NamesOf(users), (Texts{"ann", "eve"}));
}

TEST_F(UserOperations, LoadingIntoNothingIsRecorded) {
  EXPECT_FALSE(session->LoadUsersWithCriteria(nullptr, ""));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadUsersWithCriteria");
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(UserOperations, ReadingComesToASessionThatMayOnlyRead) {
  InsertThree();
  session->UserRights = DataViewer;
  const auto users = MakeRef<CUsers>();
  EXPECT_TRUE(session->GetUser(1));
  EXPECT_TRUE(session->LoadUsersWithCriteria(users, ""));
  EXPECT_EQ(session->GetUsersNo(), users->Count());
}

}  // namespace
}  // namespace zef::test
