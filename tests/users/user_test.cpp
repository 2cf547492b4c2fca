#include "tests/support/raised.h"
#include "tests/users/user_fixture.h"

namespace zef::test {
namespace {

using UserRecord = UserTest;

TEST_F(UserRecord, FreshOneIsNewAndUnmodified) { EXPECT_EQ(Flags(*MakeRef<CUser>()), "new clear"); }

TEST_F(UserRecord, FreshOneIsCreatedNow) { EXPECT_EQ(MakeRef<CUser>()->CreationDate, now_); }

TEST_F(UserRecord, FreshOneIsEmptyApartFromItsCreation) {
  const auto user = MakeRef<CUser>();
  for (const ColumnCase<CUser>& one : kUserColumns) {
    if (one.column == "USR_CreationDate") continue;
    EXPECT_EQ(one.property(*user), one.column == "USR_ID" ? "0" : one.null) << one.column;
  }
}

TEST_F(UserRecord, EachSetterMarksOnlyChanges) {
  const Setter<CUser> setters[] = {
      {"Name", [](CUser& u) { u.Name = "x"; }, [](CUser& u) { u.Name = "X"; }},
      {"Password", [](CUser& u) { u.Password = "x"; }, [](CUser& u) { u.Password = "X"; }},
      {"FullName", [](CUser& u) { u.FullName = "x"; }, [](CUser& u) { u.FullName = ""; }},
      {"Rights", [](CUser& u) { u.Rights = 1; }, [](CUser& u) { u.Rights = -1; }},
      {"Email", [](CUser& u) { u.Email = "x"; }, [](CUser& u) { u.Email = "x "; }},
      {"DateLastUpdate", [](CUser& u) { u.DateLastUpdate = On("1/1/2020"); },
       [](CUser& u) { u.DateLastUpdate = On("1/1/2020 1:00:00 AM"); }},
      {"CreationDate", [](CUser& u) { u.CreationDate = On("1/1/2020"); }, [](CUser& u) { u.CreationDate = Date(); }},
  };
  for (const Setter<CUser>& setter : setters) ExpectMarksOnlyChanges(*MakeRef<CUser>(), setter);
}

TEST_F(UserRecord, IdentifierMarksNothing) {
  const auto user = MakeRef<CUser>();
  user->ID = 5;
  EXPECT_FALSE(user->IsModified());
}

TEST_F(UserRecord, ResetFlagsXTakesTheModifiedFlagFirst) {
  const auto user = MakeRef<CUser>();
  user->ResetFlagsX(true, false);
  EXPECT_EQ(Flags(*user), "old modified");
}

TEST_F(UserRecord, ResetFlagsSetsBoth) {
  const Ref<CUser> user = StoredUser();
  user->ResetFlags();
  EXPECT_EQ(Flags(*user), "new modified");
}

// ---- reading

TEST_F(UserRecord, IsReadWithAllItsColumns) { ExpectAllValues(*StoredUser(), kUserColumns); }

TEST_F(UserRecord, NullsReadAsZeroAndEmpty) {
  Run("INSERT INTO Users (USR_ID) VALUES (5)");
  ExpectAllNullValues(*session->GetUser(5), kUserColumns);
}

TEST_F(UserRecord, IsReadInTheOrderOfItsColumns) {
  StoredUser();
  ExpectReadInOrder<CUser>(connection(), "Users", kUserColumns, [] { return MakeRef<CUser>(); });
}

TEST_F(UserRecord, ReadsEveryColumnOfTheTable) {
  EXPECT_THAT(ColumnsRead(kUserColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Users")));
}

TEST_F(UserRecord, ReadingClearsBothFlags) {
  const Ref<Recordset> row = Run(InsertOfAll("Users", kUserColumns)) ? Run("SELECT * FROM Users") : nullptr;
  const Ref<CUser> user = NewUser("x");
  user->GetValuesFromRS(row);
  EXPECT_EQ(Flags(*user), "old clear");
}

TEST_F(UserRecord, NullInTheKeyRaisesAndLeavesTheFlags) {
  Run(InsertOfAll("Users", kUserColumns));
  const Ref<Recordset> row = Run("SELECT Null AS USR_ID," + ColumnList(kUserColumns, "USR_ID") + " FROM Users");
  const Ref<CUser> user = NewUser("x");
  EXPECT_EQ(NumberRaised([&] { user->GetValuesFromRS(row); }), 94);
  EXPECT_EQ(Flags(*user), "new modified");
}

TEST_F(UserRecord, ReadingFromNothingRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CUser>()->GetValuesFromRS(nullptr); }), 91);
}

// ---- rights

struct Mask {
  std::int32_t rights;
  bool administrator, editor, viewer;
  const char* type;

  friend void PrintTo(const Mask& mask, std::ostream* out) { *out << mask.rights; }
};

class UserRights : public testing::TestWithParam<Mask> {
 protected:
  UserRights() { user->Rights = GetParam().rights; }
  Ref<CUser> user = MakeRef<CUser>();
};

TEST_P(UserRights, TellTheAdministrator) { EXPECT_EQ(user->IsAdministrator(), GetParam().administrator); }
TEST_P(UserRights, TellTheEditor) { EXPECT_EQ(user->IsDataEditor(), GetParam().editor); }
TEST_P(UserRights, TellTheViewer) { EXPECT_EQ(user->IsDataViewer(), GetParam().viewer); }
TEST_P(UserRights, HaveTheirWords) { EXPECT_EQ(user->UserType(), GetParam().type); }

constexpr Mask kMasks[] = {
    {0, false, false, false, ""},          {1, true, false, false, "Full/Read/Write"},
    {2, false, true, false, "Read/Write"}, {3, true, true, false, "Full/Read/Write"},
    {4, false, false, true, "Read only"},  {5, true, false, true, "Full/Read/Write"},
    {6, false, true, true, "Read/Write"},  {7, true, true, true, "Full/Read/Write"},
    {8, false, false, false, ""},          {-1, true, true, true, "Full/Read/Write"},
};
INSTANTIATE_TEST_SUITE_P(Masks, UserRights, testing::ValuesIn(kMasks),
                         [](const auto& test) { return "Index" + std::to_string(test.index); });

TEST_F(UserRecord, RightsAreThoseOfTheUserNotOfTheSession) {
  session->UserRights = DataViewer;
  EXPECT_EQ(NewUser()->UserType(), "");
}

}  // namespace
}  // namespace zef::test
