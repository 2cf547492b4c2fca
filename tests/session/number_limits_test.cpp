#include <gtest/gtest.h>

#include <cmath>
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

struct DateAtAnEnd {
  double value;
  const char* comes_back_as;
};

/// An event whose start is one of the first or last moments of the calendar.
class DateAtAnEndOfTheRange : public SessionTest, public testing::WithParamInterface<DateAtAnEnd> {};

TEST_P(DateAtAnEndOfTheRange, IsSavedToTheSecond) {
  const Ref<CEvent> event = session->CreateEvent();
  event->FolderID = 1;
  event->StartDate = Date(GetParam().value);
  ASSERT_TRUE(event->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(ToText(session->GetEvent(event->ID)->StartDate), GetParam().comes_back_as);
}

INSTANTIATE_TEST_SUITE_P(Values, DateAtAnEndOfTheRange,
                         testing::Values(DateAtAnEnd{-657434.0, "1/1/100"},
                                         DateAtAnEnd{std::nextafter(-657435.0, 0), "1/2/100"},
                                         DateAtAnEnd{2958465.0, "12/31/9999"},
                                         DateAtAnEnd{2958465 + 86399.4 / 86400, "12/31/9999 11:59:59 PM"},
                                         DateAtAnEnd{2958465 + 86399.6 / 86400, "12/31/9999 11:59:59 PM"},
                                         DateAtAnEnd{std::nextafter(2958466.0, 0), "12/31/9999 11:59:59 PM"}));

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
