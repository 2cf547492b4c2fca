#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

/// A tree with a folder of each kind of item, from 100 down; 200 is the destination.
class FolderTreeFault : public FolderTreeTest {
 protected:
  FolderTreeFault() {
    InsertFolder(200, 0, 5);
    InsertFolder(100, 0, FT_TASKS);
    InsertFolder(101, 100, FT_EVENTS);
    InsertFolder(102, 101, FT_CONTACTS);
    InsertTasks(100, 1, 2);
    Run("UPDATE Tasks SET TSK_DueDate='6/7/2024' WHERE TSK_ID=1");
    InsertEvents(101, 11, 1);
    InsertContact(102, 1);
    InsertFolder(103, 102, FT_Notes);
    InsertNotes(103, 1, 1);
    InsertFolder(104, 103, FT_ALARMS);
    InsertAlarms(104, 21, 1);
  }
};

TEST_F(FolderTreeFault, EveryFailureOfACopyLeavesAllRows) {
  const auto copy = [&] { return session->CopyFolder(100, 200); };
  // A copy's empty attachment is deleted under its placeholder; that this fails is no failure of the alarm's Save.
  const auto failures = FailEachCall(database, *session, copy, {}, Unchanged::AllTables, "DELETE * FROM Attachements");
  EXPECT_GT(failures.size(), 100u);
  EXPECT_EQ(Rows("Tasks"), 4);
  EXPECT_EQ(Rows("Contacts") + Rows("Notes") + Rows("Alarms"), 6);
}

TEST_F(FolderTreeFault, EveryFailureOfADeleteLeavesAllRows) {
  const auto remove = [&] { return session->DeleteFolder(100); };
  const auto failures = FailEachCall(database, *session, remove, {}, Unchanged::AllTables, "SELECT FLD_ID");
  EXPECT_GT(failures.size(), 40u);
  EXPECT_EQ(Rows("Tasks") + Rows("Contacts") + Rows("Notes") + Rows("Alarms") +
                Rows("Folders WHERE FLD_ID>=100 AND FLD_ID<200"),
            0);
}

}  // namespace
}  // namespace zef::test
