#include <gtest/gtest.h>

#include "folders/folder.h"
#include "platform/recordset.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

/// Reads folder 2 after one of its columns was changed.
class Reading : public SessionTest {
 protected:
  Ref<CFolder> FolderWith(const std::string& assignment) {
    connection().Execute("UPDATE Folders SET " + assignment + " WHERE FLD_ID=2");
    return session->GetFolder(2);
  }
  /// A select of all columns of folder 2 with `id` in the key's place.
  Ref<Recordset> RowWithKey(const std::string& id) {
    return connection().Execute("SELECT " + id +
                                " AS FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, "
                                "FLD_DateLastUpdate, FLD_Protected FROM Folders WHERE FLD_ID=2");
  }
};

TEST_F(Reading, NullInATextIsEmpty) { EXPECT_EQ(FolderWith("FLD_Name=Null")->Name.get(), ""); }
TEST_F(Reading, NullInALongTextIsEmpty) { EXPECT_EQ(FolderWith("FLD_Description=Null")->Description.get(), ""); }
TEST_F(Reading, NullInANumberIsZero) { EXPECT_EQ(FolderWith("FLD_Options=Null")->Options.get(), 0); }
TEST_F(Reading, NullInTheParentIsZero) { EXPECT_EQ(FolderWith("FLD_ParentID=Null")->ParentID.get(), 0); }
TEST_F(Reading, NullInTheTypeIsZero) { EXPECT_EQ(FolderWith("FLD_Type=Null")->ItemsType.get(), 0); }
TEST_F(Reading, NullInADateIsTheEmptyDate) {
  EXPECT_EQ(FolderWith("FLD_DateLastUpdate=Null")->DateLastUpdate.get(), Date(0.0));
}
TEST_F(Reading, NullInABooleanIsFalse) { EXPECT_FALSE(FolderWith("FLD_Protected=Null")->Protected.get()); }
TEST_F(Reading, OneIsTrue) { EXPECT_TRUE(FolderWith("FLD_Protected=1")->Protected.get()); }
TEST_F(Reading, TwoIsFalse) { EXPECT_FALSE(FolderWith("FLD_Protected=2")->Protected.get()); }
TEST_F(Reading, LargestByteIsFalse) { EXPECT_FALSE(FolderWith("FLD_Protected=255")->Protected.get()); }
TEST_F(Reading, NumbersComeWhole) { EXPECT_EQ(FolderWith("FLD_Options=-2147483648")->Options.get(), -2147483647 - 1); }
TEST_F(Reading, DatesComeWhole) {
  EXPECT_EQ(FolderWith("FLD_DateLastUpdate=#5/1/2024 9:00:00 AM#")->DateLastUpdate.get(), Date(45413.375));
}

TEST_F(Reading, NullInTheKeyRaises) {
  const auto folder = MakeRef<CFolder>();
  const Ref<Recordset> row = RowWithKey("Null");
  EXPECT_EQ(NumberRaised([&] { folder->GetValuesFromRS(row); }), 94);
}

TEST_F(Reading, NullInTheKeyLeavesTheFlags) {
  const auto folder = MakeRef<CFolder>();
  const Ref<Recordset> row = RowWithKey("Null");
  EXPECT_TRUE(Raised([&] { folder->GetValuesFromRS(row); }));
  EXPECT_TRUE(folder->IsNew());
}

TEST_F(Reading, TakesTheKeyOfTheRow) {
  const auto folder = MakeRef<CFolder>();
  folder->GetValuesFromRS(RowWithKey("4711"));
  EXPECT_EQ(folder->ID, 4711);
}

TEST_F(Reading, ClearsBothFlags) {
  const auto folder = MakeRef<CFolder>();
  folder->ResetFlags();
  folder->GetValuesFromRS(RowWithKey("FLD_ID"));
  EXPECT_FALSE(folder->IsNew());
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Reading, MissingColumnRaises3265) {
  const Ref<Recordset> row = connection().Execute("SELECT FLD_ID, FLD_ParentID FROM Folders");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CFolder>()->GetValuesFromRS(row); }), 3265);
}

TEST_F(Reading, ColumnsBeforeAMissingOneAreTaken) {
  const Ref<Recordset> row = connection().Execute("SELECT FLD_ID, FLD_ParentID FROM Folders WHERE FLD_ID=6");
  const auto folder = MakeRef<CFolder>();
  EXPECT_TRUE(Raised([&] { folder->GetValuesFromRS(row); }));
  EXPECT_EQ(folder->ID, 6);
  EXPECT_EQ(folder->ParentID.get(), 1);
}

TEST_F(Reading, FindsColumnsByNameAndNotByPosition) {
  const Ref<Recordset> row = connection().Execute(
      "SELECT FLD_Protected, FLD_DateLastUpdate, fld_type, FLD_Description, FLD_NAME, FLD_Options, FLD_ParentID, "
      "FLD_ID "
      "FROM Folders WHERE FLD_ID=6");
  const auto folder = MakeRef<CFolder>();
  folder->GetValuesFromRS(row);
  EXPECT_EQ(folder->Name.get(), "All Events");
  EXPECT_EQ(folder->ItemsType.get(), 4);
}

TEST_F(Reading, BehindTheLastRowRaises3021) {
  const Ref<Recordset> row = connection().Execute("SELECT * FROM Folders WHERE FLD_ID=99");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CFolder>()->GetValuesFromRS(row); }), 3021);
}

TEST_F(Reading, FromNothingRaises91) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CFolder>()->GetValuesFromRS(nullptr); }), 91);
}

TEST_F(Reading, FromAClosedRecordSetRaises3704) {
  const auto closed = MakeRef<Recordset>();
  EXPECT_EQ(NumberRaised([&] { MakeRef<CFolder>()->GetValuesFromRS(closed); }), 3704);
}

/// The time of last change, with a clock that stands still.
class LastChange : public SessionTest {
 protected:
  void SaveAt(double now, CFolder& folder) {
    const ClockOverride clock{Date(now)};
    EXPECT_TRUE(folder.Save()) << session->GetEntireErrorDesc();
  }
};

TEST_F(LastChange, KeepsTheOldValueInTheObject) {
  const Ref<CFolder> folder = session->GetFolder(1);
  const Date before = folder->DateLastUpdate;
  folder->Options = 1;
  SaveAt(45413.375, *folder);
  EXPECT_EQ(folder->DateLastUpdate.get(), before);
}

TEST_F(LastChange, StandsInTheRow) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->Options = 1;
  SaveAt(45413.375, *folder);
  EXPECT_EQ(session->GetFolder(1)->DateLastUpdate.get(), Date(45413.375));
}

TEST_F(LastChange, IsStampedAtAnInsertToo) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "New";
  SaveAt(45413.375, *folder);
  EXPECT_EQ(folder->DateLastUpdate.get(), Date(0.0));
  EXPECT_EQ(session->GetFolder(folder->ID)->DateLastUpdate.get(), Date(45413.375));
}

TEST_F(LastChange, TakesTheClocksValueAndNotTheClients) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->DateLastUpdate = Date(1000.0);
  SaveAt(45413.375, *folder);
  EXPECT_EQ(session->GetFolder(1)->DateLastUpdate.get(), Date(45413.375));
}

TEST_F(LastChange, OfAnUnchangedRecordStays) {
  const Ref<CFolder> folder = session->GetFolder(1);
  const Date before = folder->DateLastUpdate;
  SaveAt(45413.375, *folder);
  EXPECT_EQ(session->GetFolder(1)->DateLastUpdate.get(), before);
}

TEST_F(LastChange, KeepsEverySecond) {
  const Ref<CFolder> folder = session->GetFolder(1);
  const Date moment(std::chrono::year(2024) / 2 / 29, 86399);
  folder->Options = 1;
  SaveAt(moment.value(), *folder);
  EXPECT_EQ(session->GetFolder(1)->DateLastUpdate.get(), moment);
}

TEST_F(LastChange, AtMidnightIsRead) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->Options = 1;
  SaveAt(45413.0, *folder);
  EXPECT_EQ(session->GetFolder(1)->DateLastUpdate.get(), Date(45413.0));
}

}  // namespace
}  // namespace zef::test
