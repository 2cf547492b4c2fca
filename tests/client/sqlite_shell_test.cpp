#include <gmock/gmock.h>

#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

/// A database of the client's that the stock sqlite3 shell and the library use in turn.
class SqliteShell : public ZefTest {
 protected:
  void SetUp() override {
    if (RunProgram(folder(), "sqlite3", {"--version"}).status != 0) GTEST_SKIP() << "no sqlite3 shell here";
  }
  /// What the shell prints for some statements.
  std::string Shell(const std::string& statements) const {
    const Ended run = RunProgram(folder(), "sqlite3", {"people.db", statements});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    return run.out;
  }
  Ref<CSession> Session() const {
    auto session = MakeRef<CSession>();
    session->Connect2DatabaseCS("Provider=SQLite;Data Source=" + File("people.db").string());
    return session;
  }
  Ref<CTask> SavedTask() const {
    Ref<CTask> task = Session()->CreateTask();
    task->FolderID = 3;
    task->Name = "Water O'Neill's plants 🌱";
    task->DueDate = ParseDate("5/17/2024 9:30:00 AM").value();
    task->Recurrence->RType = REC_WEEKLY;
    task->Recurrence->Friday = true;
    EXPECT_TRUE(task->Save());
    return task;
  }
};

// ---- the shell writes, the library reads

TEST_F(SqliteShell, InsertsAFolderThatTheLibraryReads) {
  Shell("INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Name, FLD_Type, FLD_Protected) VALUES (50, 3, 'Jardín', 2, 0)");
  const Ref<CFolder> folder = Session()->GetFolder(50);
  ASSERT_TRUE(folder);
  EXPECT_EQ(folder->Name.get(), "Jardín");
  EXPECT_EQ(folder->ParentID.get(), 3);
  EXPECT_FALSE(folder->Protected.get());
}

TEST_F(SqliteShell, UpdatesAFolderThatTheLibraryFindsByItsNewName) {
  Shell("UPDATE Folders SET FLD_Name = 'Feasts' WHERE FLD_Name = 'birthdays'");
  EXPECT_EQ(Session()->GetFolderIDByCriteria("FLD_Name='FEASTS'"), 8);
}

TEST_F(SqliteShell, DeletesAFolderThatTheLibraryMisses) {
  Shell("DELETE FROM Folders WHERE FLD_ID = 12");
  const Ref<CSession> session = Session();
  EXPECT_FALSE(session->GetFolder(12));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(SqliteShell, InsertsATaskWhoseDatesTheLibraryReads) {
  Shell(
      "INSERT INTO Tasks (TSK_ID, TSK_FolderID, TSK_Name, TSK_DueDate, TSK_StartDate) VALUES "
      "(7, 3, 'Pay', julianday('2024-05-17 09:30:00') - 2415018.5, 45413)");
  const Ref<CTask> task = Session()->GetTask(7);
  ASSERT_TRUE(task);
  EXPECT_EQ(ToText(task->DueDate), "5/17/2024 9:30:00 AM");
  EXPECT_EQ(ToText(task->StartDate), "5/1/2024");
}

TEST_F(SqliteShell, InsertsATaskThatTheLibraryFindsByItsDate) {
  Shell("INSERT INTO Tasks (TSK_ID, TSK_DueDate) VALUES (7, 45429), (8, 45430)");
  const auto tasks = MakeRef<CTasks>();
  EXPECT_TRUE(Session()->LoadTasksWithCriteria(tasks, "TSK_DueDate=#5/17/2024#"));
  ASSERT_EQ(tasks->Count(), 1);
  EXPECT_EQ(tasks->ItemByIdx(1)->ID, 7);
}

TEST_F(SqliteShell, InsertsAnEventWithNothingButItsKeyThatTheLibraryReads) {
  Shell("INSERT INTO Events (EVE_ID) VALUES (7)");
  const Ref<CEvent> event = Session()->GetEvent(7);
  ASSERT_TRUE(event);
  EXPECT_EQ(event->EType.get(), "E");
  EXPECT_EQ(event->LinkID.get(), -1);
  EXPECT_TRUE(event->StartDate->IsZero());
}

TEST_F(SqliteShell, UpdatesAnEventThatAnOpenSessionReadsAgain) {
  Shell("INSERT INTO Events (EVE_ID, EVE_Text) VALUES (7, 'Dentist')");
  const Ref<CSession> session = Session();
  const Ref<CEvent> event = session->GetEvent(7);
  Shell("UPDATE Events SET EVE_Text = 'Doctor', EVE_StartDate = 45429.5 WHERE EVE_ID = 7");
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(event->Text.get(), "Doctor");
  EXPECT_EQ(ToText(event->StartDate), "5/17/2024 12:00:00 PM");
}

TEST_F(SqliteShell, DeletesAnEventThatAnOpenSessionMisses) {
  Shell("INSERT INTO Events (EVE_ID) VALUES (7)");
  const Ref<CEvent> event = Session()->GetEvent(7);
  Shell("DELETE FROM Events WHERE EVE_ID = 7");
  EXPECT_FALSE(event->Refresh());
}

// ---- the library writes, the shell reads

TEST_F(SqliteShell, ReadsATaskOfTheLibrary) {
  SavedTask();
  EXPECT_EQ(Shell("SELECT TSK_Name, datetime(TSK_DueDate + 2415018.5), typeof(TSK_DueDate) FROM Tasks"),
            "Water O'Neill's plants 🌱|2024-05-17 09:30:00|real\n");
}

TEST_F(SqliteShell, ReadsTheEventOfATaskAndItsRule) {
  SavedTask();
  EXPECT_EQ(Shell("SELECT EVE_Type, date(EVE_StartDate + 2415018.5), REC_Type, REC_Day FROM Events "
                  "JOIN Recurrences ON REC_ID = EVE_RecurrenceID"),
            "T|2024-05-17|2|16\n");
}

TEST_F(SqliteShell, FindsAFolderOfTheLibraryInAnyCase) {
  EXPECT_EQ(Shell("SELECT FLD_ID FROM Folders WHERE FLD_Name = 'tasks due dates'"), "9\n");
}

TEST_F(SqliteShell, SeesThatATaskWasDeletedByTheLibrary) {
  SavedTask();
  const Ref<CSession> session = Session();
  session->conDBConnection->Execute("DELETE * FROM Tasks");
  EXPECT_EQ(Shell("SELECT count(*) FROM Tasks"), "0\n");
}

TEST_F(SqliteShell, FindsTheFileSound) {
  SavedTask();
  Shell("UPDATE Tasks SET TSK_Name = 'x'; DELETE FROM Events");
  EXPECT_TRUE(Session()->GetTask(1)->Save());
  EXPECT_EQ(Shell("PRAGMA integrity_check"), "ok\n");
}

}  // namespace
}  // namespace zef::test
