#include <gmock/gmock.h>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// ---- folders

using ZefAddFolderTest = ZefTest;

TEST_F(ZefAddFolderTest, RootFolderIsTold) {
  EXPECT_EQ(Printed({"add", "folder", "people.db", "Garden"}), "Added folder 13, 'Garden'.\n");
}

TEST_F(ZefAddFolderTest, FolderBelowAnotherHoldsTheSameKind) {
  EXPECT_EQ(Printed({"add", "folder", "people.db", "Ideas", "--parent", "notes", "--description", "d", "--json"}),
            "{\"id\": 13, \"parent\": 4, \"name\": \"Ideas\", \"description\": \"d\", \"kind\": \"notes\", "
            "\"protected\": false}\n");
}

TEST_F(ZefAddFolderTest, KindCanBeChosen) {
  EXPECT_THAT(Printed({"add", "folder", "people.db", "Wake up", "--kind", "alarms", "--json"}),
              HasSubstr("\"alarms\""));
}

TEST_F(ZefAddFolderTest, ParentCanBeGivenByItsIdentifier) {
  EXPECT_THAT(Printed({"add", "folder", "people.db", "Garden", "--parent", "3"}), EndsWith("to the folder 'Tasks'.\n"));
}

TEST_F(ZefAddFolderTest, NameTakenIsRefusedInTheLibrarysWords) {
  EXPECT_EQ(Complaint(1, {"add", "folder", "people.db", "Notes"}), "zef: A folder with this name already exists\n");
}

TEST_F(ZefAddFolderTest, UnknownParentIsRefused) {
  EXPECT_EQ(Complaint(1, {"add", "folder", "people.db", "x", "--parent", "it's"}), "zef: There is no folder 'it's'.\n");
}

TEST_F(ZefAddFolderTest, EmptyNameIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"add", "folder", "people.db", ""}), "zef: NAME: it is empty.\n");
}

// ---- tasks

using ZefAddTaskTest = ZefTest;

TEST_F(ZefAddTaskTest, GoesToTheRootFolderOfTasks) {
  EXPECT_EQ(Printed({"add", "task", "people.db", "Pay"}), "Added task 1, 'Pay', to the folder 'Tasks'.\n");
}

TEST_F(ZefAddTaskTest, KeepsAllThatIsGiven) {
  EXPECT_EQ(Printed({"add", "task", "people.db", "Pay", "--start", "2024-05-16 08:00", "--due", "2024-05-17",
                     "--assigned-to", "Ann", "--priority", "high", "--description", "All of it", "--json"}),
            "{\"id\": 1, \"folder\": 3, \"name\": \"Pay\", \"description\": \"All of it\", \"assigned_to\": \"Ann\", "
            "\"priority\": \"High\", \"start\": \"2024-05-16 08:00\", \"due\": \"2024-05-17\", \"done\": false, "
            "\"rule\": null}\n");
}

TEST_F(ZefAddTaskTest, DueDateMakesAnEventInTheCalendar) {
  Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17"});
  EXPECT_EQ(Stored("SELECT EVE_Text FROM Events WHERE EVE_Type='T' AND EVE_LinkID=1"), "Pay Due Date");
}

TEST_F(ZefAddTaskTest, TaskWithoutARuleWritesNone) {
  Zef({"add", "task", "people.db", "Pay"});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Recurrences"), "0");
}

TEST_F(ZefAddTaskTest, RuleWithoutAnEndIsWrittenWithoutOne) {
  Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17", "--every", "2", "weeks"});
  EXPECT_EQ(
      Stored("SELECT REC_Type & ' ' & REC_Options1 & ' ' & REC_Day & ' ' & REC_OccurencesNo & ' ' & REC_EndDate FROM "
             "Recurrences WHERE REC_ID=1"),
      "2 2 16 0 12:00:00 AM");
}

TEST_F(ZefAddTaskTest, NameWithAnApostropheIsKept) {
  Zef({"add", "task", "people.db", "Ann's '; DELETE * FROM Tasks"});
  EXPECT_EQ(Stored("SELECT TSK_Name FROM Tasks"), "Ann's '; DELETE * FROM Tasks");
}

TEST_F(ZefAddTaskTest, UnknownPriorityIsRefusedWithTheKnownOnes) {
  EXPECT_EQ(Complaint(1, {"add", "task", "people.db", "Pay", "--priority", "urgent"}),
            "zef: There is no priority 'urgent'; known are Low, Normal, High.\n");
}

TEST_F(ZefAddTaskTest, FolderOfAnotherKindIsRefused) {
  EXPECT_EQ(Complaint(1, {"add", "task", "people.db", "Pay", "--folder", "notes"}),
            "zef: The folder 'Notes' does not hold tasks.\n");
}

TEST_F(ZefAddTaskTest, FolderThatShowsAllTasksIsRefused) {
  EXPECT_THAT(Complaint(1, {"add", "task", "people.db", "Pay", "--folder", "all tasks"}),
              HasSubstr("holds nothing itself"));
}

TEST_F(ZefAddTaskTest, DueBeforeTheStartIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"add", "task", "people.db", "Pay", "--start", "2024-05-17", "--due", "2024-05-16"}),
            "zef: --due lies before --start.\n");
}

TEST_F(ZefAddTaskTest, WrongRuleIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"add", "task", "people.db", "Pay", "--every", "blue moon"}),
              StartsWith("zef: --every 'blue moon' is"));
}

TEST_F(ZefAddTaskTest, WrongUseWritesNothing) {
  Zef({"add", "task", "people.db", "Pay", "--every", "blue moon"});
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=2"), "0");
}

TEST_F(ZefAddTaskTest, NameTooLongIsRefusedAndNothingIsWritten) {
  Complaint(1, {"add", "task", "people.db", std::string(256, 'x'), "--due", "2024-05-17", "--every", "day"});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Recurrences"), "0");
}

// ---- events

using ZefAddEventTest = ZefTest;

TEST_F(ZefAddEventTest, GoesToTheRootFolderOfTheCalendar) {
  EXPECT_EQ(Printed({"add", "event", "people.db", "Dentist", "--start", "2024-05-14 09:30"}),
            "Added event 1, 'Dentist', to the folder 'Calendar'.\n");
}

TEST_F(ZefAddEventTest, KeepsAllThatIsGiven) {
  EXPECT_EQ(Printed({"add", "event", "people.db", "Dentist", "--start", "2024-05-14 09:30", "--end", "2024-05-14 10:00",
                     "--location", "Main Street", "--reminder", "15", "--every", "year", "--times", "3", "--json"}),
            "{\"id\": 1, \"folder\": 1, \"text\": \"Dentist\", \"location\": \"Main Street\", \"start\": \"2024-05-14 "
            "09:30\", "
            "\"end\": \"2024-05-14 10:00\", \"reminder\": 15, \"type\": \"E\", \"link\": -1, \"rule\": {\"words\": "
            "\"every year on "
            "14 May, 3 times\", \"type\": 4, \"sub_type\": 0, \"options1\": 4, \"options2\": 14, \"week_number\": 0, "
            "\"days\": 0, "
            "\"until\": null, \"times\": 3}}\n");
}

TEST_F(ZefAddEventTest, WithoutAnEndEndsWhenItBegins) {
  EXPECT_THAT(Printed({"add", "event", "people.db", "x", "--start", "2024-05-14 09:30", "--json"}),
              HasSubstr("\"end\": \"2024-05-14 09:30\""));
}

TEST_F(ZefAddEventTest, EndBeforeTheStartIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"add", "event", "people.db", "x", "--start", "2024-05-14", "--end", "2024-05-13"}),
            "zef: --end lies before --start.\n");
}

TEST_F(ZefAddEventTest, FolderOfTasksIsRefused) {
  EXPECT_EQ(Complaint(1, {"add", "event", "people.db", "x", "--start", "2024-05-14", "--folder", "tasks"}),
            "zef: The folder 'Tasks' does not hold events.\n");
}

}  // namespace
}  // namespace zef::test
