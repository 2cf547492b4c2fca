#include <gmock/gmock.h>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// ---- show

TEST_F(ZefTest, ShownFolderTellsWhatItHolds) {
  EXPECT_THAT(Printed({"show", "folder", "people.db", "8"}),
              AllOf(HasSubstr("Name            Birthdays\n"), HasSubstr("Protected       yes\n")));
}

TEST_F(ZefTest, ShownTaskIsToldAsJson) {
  Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17", "--every", "week"});
  EXPECT_THAT(Printed({"show", "task", "people.db", "1", "--json"}),
              AllOf(StartsWith("{\"id\": 1, \"folder\": 3, "), HasSubstr("\"due\": \"2024-05-17\""),
                    HasSubstr("\"rule\": {\"words\": \"every week on Friday\"")));
}

// ---- set

class ZefSetTest : public ZefTest {
 protected:
  ZefSetTest() { Zef({"add", "task", "people.db", "Pay", "--due", "2024-05-17"}); }
};

TEST_F(ZefSetTest, ChangesSeveralPropertiesAtOnce) {
  EXPECT_EQ(Printed({"set", "task", "people.db", "1", "Name=It's paid", "AssignedTo=Ann"}),
            "Changed task 1, 'It's paid'.\n");
  EXPECT_EQ(Stored("SELECT TSK_Name & ' ' & TSK_AssignedTo FROM Tasks"), "It's paid Ann");
}

TEST_F(ZefSetTest, IsToldAsJson) {
  EXPECT_THAT(Printed({"set", "task", "people.db", "1", "Completed=1", "--json"}), HasSubstr("\"completed\": 1"));
}

TEST_F(ZefSetTest, DueDateMovesInTheCalendarToo) {
  Zef({"set", "task", "people.db", "1", "DueDate=2024-05-20"});
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events"), "5/20/2024");
}

TEST_F(ZefSetTest, EmptyDueDateLeavesTheCalendar) {
  Zef({"set", "task", "people.db", "1", "DueDate="});
  EXPECT_EQ(Stored("SELECT Count(*) FROM Events"), "0");
}

TEST_F(ZefSetTest, AllOfItIsRefusedIfOneValueDoesNotFit) {
  Complaint(1, {"set", "task", "people.db", "1", "Description=d", "Name=" + std::string(256, 'x')});
  EXPECT_EQ(Stored("SELECT TSK_Name & TSK_Description FROM Tasks"), "Pay");
}

TEST_F(ZefSetTest, UnknownPropertyIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"set", "task", "people.db", "1", "Colour=1"}), HasSubstr("FolderID, CategoryID, Name"));
}

TEST_F(ZefSetTest, IdentifierIsRefused) {
  EXPECT_EQ(Complaint(1, {"set", "task", "people.db", "1", "ID=2"}), "zef: The property ID cannot be set.\n");
}

TEST_F(ZefSetTest, EmptyNameIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"set", "task", "people.db", "1", "Name="}), "zef: Name: it is empty.\n");
}

TEST_F(ZefSetTest, MissingRecordIsRefused) {
  EXPECT_EQ(Complaint(1, {"set", "task", "people.db", "9", "Name=x"}), "zef: There is no task 9.\n");
}

TEST_F(ZefSetTest, MissingCategoryIsRefused) {
  EXPECT_EQ(Complaint(1, {"set", "task", "people.db", "1", "CategoryID=9"}), "zef: There is no category 9.\n");
}

TEST_F(ZefSetTest, CategoryCanBeTakenAway) {
  Zef({"add", "category", "people.db", "Red"});
  Zef({"set", "task", "people.db", "1", "CategoryID=1"});
  Printed({"set", "task", "people.db", "1", "CategoryID=-1"});
  EXPECT_EQ(Stored("SELECT TSK_CategoryID FROM Tasks"), "-1");
}

TEST_F(ZefSetTest, UnknownPriorityIsRefused) {
  EXPECT_THAT(Complaint(1, {"set", "task", "people.db", "1", "Priority=urgent"}), HasSubstr("Low, Normal, High"));
}

TEST_F(ZefSetTest, TaskCanBeMovedToAnotherFolder) {
  Printed({"set", "task", "people.db", "1", "FolderID=10"});
  EXPECT_EQ(Stored("SELECT TSK_FolderID FROM Tasks"), "10");
}

TEST_F(ZefSetTest, FolderOfAnotherKindIsRefused) {
  EXPECT_EQ(Complaint(1, {"set", "task", "people.db", "1", "FolderID=4"}),
            "zef: The folder 'Notes' does not hold tasks.\n");
}

TEST_F(ZefSetTest, FolderCannotBeMovedBelowItself) {
  Zef({"add", "folder", "people.db", "Above", "--parent", "Tasks"});
  Zef({"add", "folder", "people.db", "Below", "--parent", "Above"});
  EXPECT_EQ(Complaint(1, {"set", "folder", "people.db", "13", "ParentID=14"}),
            "zef: A folder cannot lie in itself or in a folder below it.\n");
}

TEST_F(ZefSetTest, FolderCanBeMovedToTheRoot) {
  Zef({"add", "folder", "people.db", "Garden", "--parent", "Tasks"});
  Printed({"set", "folder", "people.db", "13", "ParentID=0"});
  EXPECT_EQ(Stored("SELECT FLD_ParentID FROM Folders WHERE FLD_ID=13"), "0");
}

TEST_F(ZefSetTest, MissingParentIsRefused) {
  Zef({"add", "folder", "people.db", "Garden"});
  EXPECT_EQ(Complaint(1, {"set", "folder", "people.db", "13", "ParentID=99"}), "zef: There is no folder 99.\n");
}

TEST_F(ZefSetTest, FolderOfTheSystemIsRefused) {
  EXPECT_EQ(Complaint(1, {"set", "folder", "people.db", "8", "Name=x"}),
            "zef: Folder 8, 'Birthdays', belongs to the system and stays as it is.\n");
}

// ---- done

class ZefDoneTest : public ZefTest {
 protected:
  void AddTask(std::vector<std::string> options) const {
    options.insert(options.begin(), {"add", "task", "people.db", "Water"});
    Zef(options);
  }
  std::string Done() const { return Printed({"done", "people.db", "1", "--today", "2024-05-04 12:00"}); }
};

TEST_F(ZefDoneTest, IsNotedWithTheDay) {
  AddTask({});
  EXPECT_EQ(Done(), "Done: task 1, 'Water'.\n");
  EXPECT_EQ(Stored("SELECT TSK_Completed & ' ' & TSK_DateCompleted FROM Tasks"), "1 5/4/2024");
}

TEST_F(ZefDoneTest, SeriesGoesOnFromTheStart) {
  AddTask({"--start", "2024-05-01", "--due", "2024-05-03", "--every", "2 weeks", "--on", "wed"});
  EXPECT_EQ(Done(), "Done: task 1, 'Water'.\nIt goes on as task 2, which is due on 2024-05-17.\n");
  EXPECT_EQ(Stored("SELECT TSK_StartDate FROM Tasks WHERE TSK_ID=2"), "5/15/2024");
}

TEST_F(ZefDoneTest, SeriesWithoutAStartGoesOnFromItsDueDate) {
  AddTask({"--due", "2024-05-03", "--every", "week", "--on", "fri"});
  Done();
  EXPECT_EQ(Stored("SELECT TSK_DueDate & ' ' & TSK_StartDate FROM Tasks WHERE TSK_ID=2"), "5/10/2024 12:00:00 AM");
}

TEST_F(ZefDoneTest, SeriesWithoutDatesGoesOnFromToday) {
  AddTask({"--every", "day"});
  EXPECT_EQ(Done(), "Done: task 1, 'Water'.\nIt goes on as task 2, which starts on 2024-05-05.\n");
}

TEST_F(ZefDoneTest, EachInstanceIsOnceInTheCalendar) {
  AddTask({"--due", "2024-05-03", "--every", "week", "--on", "fri"});
  Done();
  EXPECT_THAT(Printed({"agenda", "people.db", "--today", "2024-05-01", "--days", "12"}),
              EndsWith("Fri 2024-05-03            1  Water Due Date  due date\n"
                       "Fri 2024-05-10            2  Water Due Date  due date         every week on Friday\n"));
}

TEST_F(ZefDoneTest, IsToldAsJsonWithTheNextInstance) {
  AddTask({"--due", "2024-05-03", "--every", "week"});
  EXPECT_THAT(Printed({"done", "people.db", "1", "--json"}),
              AllOf(StartsWith("{\"done\": {\"id\": 1, "), HasSubstr("\"next\": {\"id\": 2, ")));
}

TEST_F(ZefDoneTest, TaskThatDoesNotRepeatHasNoNextInstanceInJson) {
  AddTask({});
  EXPECT_THAT(Printed({"done", "people.db", "1", "--json"}), HasSubstr("\"next\": null}"));
}

TEST_F(ZefDoneTest, SeriesTakesPlaceAsManyTimesAsItWasMadeFor) {
  AddTask({"--due", "2024-05-03", "--every", "week", "--times", "2"});
  Done();
  EXPECT_EQ(Printed({"done", "people.db", "2"}), "Done: task 2, 'Water'.\n");
}

TEST_F(ZefDoneTest, SeriesEndsAfterItsLastDay) {
  AddTask({"--due", "2024-05-03", "--every", "week", "--until", "2024-05-09"});
  EXPECT_EQ(Done(), "Done: task 1, 'Water'.\n");
}

TEST_F(ZefDoneTest, TaskThatIsDoneIsRefused) {
  AddTask({"--every", "day"});
  Done();
  EXPECT_EQ(Complaint(1, {"done", "people.db", "1"}), "zef: Task 1 is done already.\n");
  EXPECT_EQ(Stored("SELECT Count(*) FROM Tasks"), "2");
}

TEST_F(ZefDoneTest, MissingTaskIsRefused) {
  EXPECT_EQ(Complaint(1, {"done", "people.db", "9"}), "zef: There is no task 9.\n");
}

TEST_F(ZefDoneTest, NothingIsDoneIfTheNextInstanceCannotBeMade) {
  AddTask({"--due", "9999-12-30", "--start", "9999-12-20", "--every", "week"});
  Complaint(1, {"done", "people.db", "1"});
  EXPECT_EQ(Stored("SELECT TSK_Completed FROM Tasks"), "0");
}

// ---- copies and deletion of folders

class ZefFolderTreeTest : public ZefTest {
 protected:
  ZefFolderTreeTest() {
    Zef({"add", "folder", "people.db", "Garden", "--parent", "Tasks"});
    Zef({"add", "folder", "people.db", "Beds", "--parent", "Garden"});
    Zef({"add", "folder", "people.db", "Archive", "--parent", "Tasks"});
    Zef({"add", "task", "people.db", "Dig", "--folder", "Beds", "--due", "2024-05-17"});
  }
};

TEST_F(ZefFolderTreeTest, IsCopiedWithAllThatIsInIt) {
  EXPECT_EQ(Printed({"copy", "folder", "people.db", "Garden", "Archive"}),
            "Copied folder 13, 'Garden', to the folder 'Archive' as folder 16.\n");
  EXPECT_EQ(Stored("SELECT Count(*) FROM Tasks WHERE TSK_Name='Dig'"), "2");
}

TEST_F(ZefFolderTreeTest, CopyIsToldAsJson) {
  EXPECT_THAT(Printed({"copy", "folder", "people.db", "13", "15", "--json"}),
              StartsWith("{\"id\": 16, \"parent\": 15, \"name\": \"Garden\""));
}

TEST_F(ZefFolderTreeTest, CopyBesideOneOfItsNameIsRefused) {
  EXPECT_EQ(Complaint(1, {"copy", "folder", "people.db", "Garden", "Tasks"}),
            "zef: The destination folder contains a folder with the same name\n");
}

TEST_F(ZefFolderTreeTest, CopyBelowItselfIsRefused) {
  EXPECT_EQ(Complaint(1, {"copy", "folder", "people.db", "Garden", "Beds"}),
            "zef: The destination folder is a child of source folder\n");
}

TEST_F(ZefFolderTreeTest, CopyIntoItselfIsRefused) {
  EXPECT_EQ(Complaint(1, {"copy", "folder", "people.db", "Garden", "Garden"}),
            "zef: A folder cannot be copied into itself.\n");
}

TEST_F(ZefFolderTreeTest, CopyToAMissingFolderIsRefused) {
  EXPECT_EQ(Complaint(1, {"copy", "folder", "people.db", "Garden", "Nowhere"}), "zef: There is no folder 'Nowhere'.\n");
}

TEST_F(ZefFolderTreeTest, IsDeletedOnlyWithConsent) {
  EXPECT_EQ(Complaint(1, {"delete", "folder", "people.db", "13"}),
            "zef: Folder 13, 'Garden', goes with all that is in and below it only with --yes.\n");
  EXPECT_EQ(Stored("SELECT Count(*) FROM Tasks"), "1");
}

TEST_F(ZefFolderTreeTest, IsDeletedWithAllThatIsInIt) {
  EXPECT_EQ(Printed({"delete", "folder", "people.db", "13", "--yes"}), "Deleted folder 13, 'Garden'.\n");
  EXPECT_EQ(Stored("SELECT Count(*) FROM Tasks") + Stored("SELECT Count(*) FROM Events"), "00");
}

TEST_F(ZefFolderTreeTest, DeletionIsToldAsJson) {
  EXPECT_THAT(Printed({"delete", "folder", "people.db", "13", "--yes", "--json"}), StartsWith("{\"id\": 13, "));
}

TEST_F(ZefFolderTreeTest, FolderOfTheSystemIsDeletedOnlyWithConsent) {
  EXPECT_EQ(Complaint(1, {"delete", "folder", "people.db", "8"}),
            "zef: Folder 8, 'Birthdays', belongs to the system, which looks for it by its name; it goes with all that "
            "is in and below it only with --yes.\n");
  EXPECT_THAT(Printed({"folders", "people.db"}), HasSubstr("Birthdays"));
}

TEST_F(ZefFolderTreeTest, FolderOfTheSystemIsDeletedWithConsent) {
  Printed({"delete", "folder", "people.db", "8", "--yes"});
  EXPECT_THAT(Printed({"folders", "people.db"}), Not(HasSubstr("Birthdays")));
}

}  // namespace
}  // namespace zef::test
