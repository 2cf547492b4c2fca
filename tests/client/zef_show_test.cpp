#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "platform/recordset.h"
#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// ---- files

class ZefFileTest : public ZefTest, public testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(ZefFileTest, MissingFileIsRefusedAndNotMade) {
  std::vector<std::string> arguments = GetParam();
  *std::find(arguments.begin(), arguments.end(), "FILE") = "missing.db";
  EXPECT_EQ(Complaint(1, arguments), "zef: The database file 'missing.db' does not exist.\n");
  EXPECT_FALSE(std::filesystem::exists(File("missing.db")));
}

TEST_P(ZefFileTest, FileOfAnotherKindIsRefused) {
  std::ofstream(File("junk.db")) << "hello";
  std::vector<std::string> arguments = GetParam();
  *std::find(arguments.begin(), arguments.end(), "FILE") = "junk.db";
  EXPECT_EQ(Complaint(1, arguments), "zef: The file 'junk.db' is not a database.\n");
}

using Words = std::vector<std::string>;
INSTANTIATE_TEST_SUITE_P(
    EveryCommand, ZefFileTest,
    testing::Values(Words{"info", "FILE"}, Words{"folders", "FILE"}, Words{"add", "folder", "FILE", "x"},
                    Words{"add", "task", "FILE", "x"}, Words{"add", "event", "FILE", "x", "--start", "2024-05-17"},
                    Words{"tasks", "FILE"}, Words{"agenda", "FILE"}, Words{"seen", "FILE", "1", "2024-05-17"},
                    Words{"users", "FILE"}, Words{"add", "user", "FILE", "ann"}, Words{"login", "FILE", "ann"},
                    Words{"lists", "FILE"}, Words{"export", "note", "FILE", "1", "n.txt"}, Words{"upgrade", "FILE"}));

TEST_F(ZefTest, WrongUseIsToldOnStandardErrorWithStatusTwo) {
  EXPECT_THAT(Complaint(2, {"bogus"}), StartsWith("zef: 'zef' has no command 'bogus'"));
}

TEST_F(ZefTest, ControlCharactersInAComplaintAreReplaced) {
  EXPECT_THAT(Complaint(1, {"info", "\x1b[31m.db"}), Not(HasSubstr("\x1b")));
}

TEST_F(ZefTest, HelpIsPrintedWithStatusZero) { EXPECT_THAT(Printed({"agenda", "--help"}), HasSubstr("--month MONTH")); }

TEST_F(ZefTest, VersionIsPrintedWithStatusZero) { EXPECT_THAT(Printed({"--version"}), StartsWith("zef 9.")); }

// ---- width

class ZefWidthTest : public ZefTest {
 protected:
  ZefWidthTest() { Zef({"add", "task", "people.db", kName}); }
  static constexpr char kName[] = "Water all the plants of the garden behind the house";
};

TEST_F(ZefWidthTest, LongNameIsCutOnANarrowTerminal) {
  EXPECT_THAT(ShownOnTerminal(folder(), {"tasks", "people.db"}, 40), HasSubstr("Water al…"));
}

TEST_F(ZefWidthTest, LongNameIsWholeOnATerminalOfUnknownWidth) {
  EXPECT_THAT(ShownOnTerminal(folder(), {"tasks", "people.db"}), HasSubstr(kName));
}

TEST_F(ZefWidthTest, LongNameIsWholeInAPipe) { EXPECT_THAT(Printed({"tasks", "people.db"}), HasSubstr(kName)); }

// ---- colour

class ZefColourTest : public ZefTest {
 protected:
  void TearDown() override { unsetenv("NO_COLOR"); }
  std::string Shown(const std::vector<std::string>& arguments) const { return ShownOnTerminal(folder(), arguments); }
};

TEST_F(ZefColourTest, IsShownOnATerminal) {
  unsetenv("NO_COLOR");
  EXPECT_THAT(Shown({"folders", "people.db"}), StartsWith("\x1b[1mFOLDER"));
}

TEST_F(ZefColourTest, IsNotShownIfTheEnvironmentAsksForNone) {
  setenv("NO_COLOR", "1", 1);
  EXPECT_THAT(Shown({"folders", "people.db"}), StartsWith("FOLDER"));
}

TEST_F(ZefColourTest, IsNotShownIfTheOptionAsksForNone) {
  unsetenv("NO_COLOR");
  EXPECT_THAT(Shown({"folders", "people.db", "--no-colour"}), StartsWith("FOLDER"));
}

TEST_F(ZefColourTest, IsNotWrittenIntoAFile) { EXPECT_THAT(Printed({"folders", "people.db"}), StartsWith("FOLDER")); }

// ---- folders

using ZefFoldersTest = ZefTest;

TEST_F(ZefFoldersTest, AreShownAsATree) {
  Zef({"add", "folder", "people.db", "Garden", "--parent", "Tasks"});
  EXPECT_EQ(Printed({"folders", "people.db"}),
            "FOLDER                ID  HOLDS\n"
            "Alarms                 5  alarms    protected\n"
            "Calendar               1  events    protected\n"
            "├── All Events         6  events    protected\n"
            "├── Anniversaries      7  events    protected\n"
            "├── Birthdays          8  events    protected\n"
            "└── Tasks Due Dates    9  events    protected\n"
            "Contacts               2  contacts  protected\n"
            "Notes                  4  notes     protected\n"
            "└── Phone Call Notes  12  notes     protected\n"
            "Tasks                  3  tasks     protected\n"
            "├── All Tasks         11  tasks     protected\n"
            "├── Completed Tasks   10  tasks     protected\n"
            "└── Garden            13  tasks\n");
}

TEST_F(ZefFoldersTest, AreToldAsJson) {
  EXPECT_THAT(
      Printed({"folders", "people.db", "--json"}),
      StartsWith("[{\"id\": 5, \"parent\": 0, \"name\": \"Alarms\", \"description\": \"Alarms\", \"kind\": \"alarms\", "
                 "\"protected\": true}, "));
}

TEST_F(ZefFoldersTest, ControlCharactersInANameAreReplaced) {
  Zef({"add", "folder", "people.db", "\x1b[31mred"});
  EXPECT_THAT(Printed({"folders", "people.db"}), AllOf(HasSubstr("\uFFFD[31mred"), Not(HasSubstr("\x1b"))));
}

// ---- tasks

class ZefTasksTest : public ZefTest {
 protected:
  ZefTasksTest() {
    Zef({"add", "folder", "people.db", "Garden", "--parent", "Tasks"});
    Zef({"add", "task", "people.db", "Water", "--folder", "Garden", "--due", "2024-05-17", "--every", "week"});
    Zef({"add", "task", "people.db", "Pay", "--start", "2024-05-01 08:00"});
  }
};

TEST_F(ZefTasksTest, AreShownInColumns) {
  EXPECT_EQ(Printed({"tasks", "people.db"}),
            "ID  NAME   START             DUE         REPEATS               DONE\n"
            " 1  Water                    2024-05-17  every week on Friday  no\n"
            " 2  Pay    2024-05-01 08:00                                    no\n");
}

TEST_F(ZefTasksTest, OfAFolderAreShown) {
  EXPECT_THAT(Printed({"tasks", "people.db", "--folder", "garden"}), AllOf(HasSubstr("Water"), Not(HasSubstr("Pay"))));
}

TEST_F(ZefTasksTest, OfAllFoldersAreShownForTheFolderThatStandsForThem) {
  EXPECT_THAT(Printed({"tasks", "people.db", "--folder", "All Tasks"}), AllOf(HasSubstr("Water"), HasSubstr("Pay")));
}

TEST_F(ZefTasksTest, ThatMeetAConditionAreShown) {
  EXPECT_THAT(Printed({"tasks", "people.db", "--where", "TSK_Name='pay'"}),
              AllOf(HasSubstr("Pay"), Not(HasSubstr("Water"))));
}

TEST_F(ZefTasksTest, MustMeetTheWholeConditionInTheirFolder) {
  EXPECT_EQ(Printed({"tasks", "people.db", "--folder", "garden", "--where", "TSK_ID=2 OR TSK_ID=3"}), "No tasks.\n");
}

TEST_F(ZefTasksTest, ConditionInErrorIsRefusedInTheLibrarysWords) {
  EXPECT_THAT(Complaint(1, {"tasks", "people.db", "--where", "TSK_Name ="}), StartsWith("zef: Syntax error"));
}

TEST_F(ZefTasksTest, ConditionCannotHoldASecondStatement) {
  Complaint(1, {"tasks", "people.db", "--where", "1=1; DELETE * FROM Tasks"});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Tasks"), "2");
}

TEST_F(ZefTasksTest, DoneIsShown) {
  auto connection = MakeRef<Connection>();
  connection->Open("Provider=SQLite;Data Source=" + File("people.db").string());
  connection->Execute("UPDATE Tasks SET TSK_Completed=1 WHERE TSK_ID=2");
  connection->Close();
  EXPECT_THAT(Printed({"tasks", "people.db", "--where", "TSK_ID=2"}), HasSubstr("  yes\n"));
}

TEST_F(ZefTasksTest, AreToldAsJson) {
  EXPECT_THAT(Printed({"tasks", "people.db", "--json"}),
              AllOf(StartsWith("[{\"id\": 1, "), HasSubstr("}, {\"id\": 2, ")));
}

TEST_F(ZefTasksTest, NoneAreAnEmptyListInJson) {
  EXPECT_EQ(Printed({"tasks", "people.db", "--where", "TSK_ID=9", "--json"}), "[]\n");
}

// ---- agenda

class ZefAgendaTest : public ZefTest {
 protected:
  ZefAgendaTest() {
    Zef({"add", "task", "people.db", "Water", "--due", "2024-05-03", "--every", "2 weeks", "--on", "fri"});
    Zef({"add", "event", "people.db", "Dentist", "--start", "2024-05-14 09:30", "--end", "2024-05-14 10:00"});
    Zef({"add", "event", "people.db", "Course", "--start", "2024-05-06", "--every", "day", "--times", "2"});
  }
};

TEST_F(ZefAgendaTest, ShowsTheMonthAndWhatIsComing) {
  EXPECT_EQ(Printed({"agenda", "people.db", "--month", "2024-05", "--today", "2024-05-07"}),
            "          May 2024\n"
            " Mo  Tu  We  Th  Fr  Sa  Su\n"
            "          1   2   3*  4   5\n"
            "  6* >7*  8   9  10  11  12\n"
            " 13  14* 15  16  17* 18  19\n"
            " 20  21  22  23  24  25  26\n"
            " 27  28  29  30  31*\n"
            "\n"
            "From 2024-05-07 to 2024-05-31:\n"
            "\n"
            "DAY             TIME         EVENT  WHAT            KIND      WHERE  REPEATS\n"
            "Tue 2024-05-07                   3  Course                           every day, 2 times\n"
            "Tue 2024-05-14  09:30-10:00      2  Dentist\n"
            "Fri 2024-05-17                   1  Water Due Date  due date         every 2 weeks on Friday\n"
            "Fri 2024-05-31                   1  Water Due Date  due date         every 2 weeks on Friday\n");
}

TEST_F(ZefAgendaTest, DaysLimitTheList) {
  EXPECT_THAT(Printed({"agenda", "people.db", "--today", "2024-05-07", "--days", "1"}),
              AllOf(HasSubstr("Course"), Not(HasSubstr("Dentist"))));
}

TEST_F(ZefAgendaTest, IsToldAsJson) {
  EXPECT_THAT(Printed({"agenda", "people.db", "--month", "2024-05", "--today", "2024-05-31", "--json"}),
              AllOf(StartsWith("{\"month\": \"2024-05\", \"days\": [3, 6, 7, 14, 17, 31], \"today\": \"2024-05-31\", "),
                    HasSubstr("\"start\": \"2024-05-31\", "), HasSubstr("\"type\": \"T\", \"link\": 1")));
}

// ---- seen

class ZefSeenTest : public ZefTest {
 protected:
  ZefSeenTest() { Zef({"add", "event", "people.db", "Tea", "--start", "2024-05-03 16:20", "--every", "week"}); }
};

TEST_F(ZefSeenTest, OccurrenceIsNotSeenAtFirst) {
  EXPECT_EQ(Printed({"seen", "people.db", "1", "2024-05-10"}),
            "User 1 has not seen event 1, 'Tea', of 2024-05-10 16:20.\n");
}

TEST_F(ZefSeenTest, MarkedOccurrenceIsSeen) {
  Zef({"seen", "people.db", "1", "2024-05-10", "--mark"});
  EXPECT_EQ(Printed({"seen", "people.db", "1", "2024-05-10 16:20"}),
            "User 1 has seen event 1, 'Tea', of 2024-05-10 16:20.\n");
}

TEST_F(ZefSeenTest, OtherOccurrenceIsNotSeen) {
  Zef({"seen", "people.db", "1", "2024-05-10", "--mark"});
  EXPECT_THAT(Printed({"seen", "people.db", "1", "2024-05-17"}), HasSubstr("has not seen"));
}

TEST_F(ZefSeenTest, OtherUserHasNotSeenIt) {
  Zef({"seen", "people.db", "1", "2024-05-10", "--mark"});
  EXPECT_THAT(Printed({"seen", "people.db", "1", "2024-05-10", "--user", "2"}), HasSubstr("User 2 has not seen"));
}

TEST_F(ZefSeenTest, MarkingTwiceWritesOneRow) {
  Zef({"seen", "people.db", "1", "2024-05-10", "--mark"});
  Zef({"seen", "people.db", "1", "2024-05-10", "--mark"});
  EXPECT_EQ(Stored("SELECT Count(*) FROM ViewedEvents"), "1");
}

TEST_F(ZefSeenTest, IsToldAsJson) {
  EXPECT_EQ(Printed({"seen", "people.db", "1", "2024-05-10", "--mark", "--json"}),
            "{\"event\": 1, \"date\": \"2024-05-10 16:20\", \"user\": 1, \"seen\": true}\n");
}

TEST_F(ZefSeenTest, DayWithoutAnOccurrenceIsRefused) {
  EXPECT_EQ(Complaint(1, {"seen", "people.db", "1", "2024-05-11", "--mark"}),
            "zef: Event 1 does not take place on 2024-05-11.\n");
}

TEST_F(ZefSeenTest, UnknownEventIsRefused) {
  EXPECT_EQ(Complaint(1, {"seen", "people.db", "9", "2024-05-10"}), "zef: There is no event 9.\n");
}

}  // namespace
}  // namespace zef::test
