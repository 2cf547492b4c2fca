#include <gtest/gtest.h>

#include <limits>

#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

using NumberLimit = SessionTest;

TEST_F(NumberLimit, LargestComesBack) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Options = std::numeric_limits<std::int32_t>::max();
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8)->Options.get(), std::numeric_limits<std::int32_t>::max());
}

TEST_F(NumberLimit, SmallestComesBack) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Options = std::numeric_limits<std::int32_t>::min();
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8)->Options.get(), std::numeric_limits<std::int32_t>::min());
}

TEST_F(NumberLimit, SmallestIDCanBeSavedAndFound) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->ID = std::numeric_limits<std::int32_t>::min();
  folder->Name = "Smallest";
  EXPECT_TRUE(folder->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(session->GetFolder(folder->ID)->Name.get(), "Smallest");
}

TEST_F(NumberLimit, LargestIDOfNoRowGivesNothing) {
  EXPECT_EQ(session->GetFolder(std::numeric_limits<std::int32_t>::max()), nullptr);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NumberLimit, SmallestParentOfNoRowHasNoChildren) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(session->LoadChildFolders(folders, std::numeric_limits<std::int32_t>::min()));
  EXPECT_EQ(folders->Count(), 0);
}

/// An event whose start lies where no calendar reaches.
class DateOutOfRange : public SessionTest, public testing::WithParamInterface<double> {
 protected:
  DateOutOfRange() {
    event->FolderID = 1;
    event->StartDate = Date(GetParam());
  }
  Ref<CEvent> event = session->CreateEvent();
};

TEST_P(DateOutOfRange, MakesSaveReturnFalse) { EXPECT_FALSE(event->Save()); }

TEST_P(DateOutOfRange, IsRecordedWhereTheRowsAreMade) {
  event->Save();
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.GetFieldsArray");
  EXPECT_EQ(session->GetErrorCode(), 5);
}

TEST_P(DateOutOfRange, WritesNothing) {
  event->Save();
  EXPECT_EQ(Count(connection(), "Events"), 0);
}

TEST_P(DateOutOfRange, KeepsTheFlagsAndLeavesNoTransactionOpen) {
  event->Save();
  EXPECT_TRUE(event->IsNew() && event->IsModified());
  EXPECT_FALSE(session->TransactionStarted());
}

INSTANTIATE_TEST_SUITE_P(Values, DateOutOfRange,
                         testing::Values(1e9, -1e9, 2958466.0, -657435.0, 1e308,
                                         std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::quiet_NaN()));

TEST_F(NumberLimit, ClockOutOfRangeMakesSaveReturnFalse) {
  const ClockOverride clock{Date(1e9)};
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Options = 5;
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CFolder.Save] Error: 5 - The date in the column 'FLD_DateLastUpdate' lies outside of the years 100 to "
            "9999.");
}

}  // namespace
}  // namespace zef::test
