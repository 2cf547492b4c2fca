#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/planner.h"
#include "tests/support/session_test.h"
#include "users/user.h"

namespace zef::test {
namespace {

/// The statements by which the record classes find rows, with any values.
constexpr const char* kLookups[] = {
    // by key
    "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=4",
    "SELECT * FROM Folders WHERE FLD_ID=7",
    "SELECT * FROM Categories WHERE CAT_ID=7",
    "SELECT * FROM Recurrences WHERE REC_ID=7",
    "SELECT * FROM Notifications WHERE NTF_ID=7",
    "SELECT * FROM Attachements WHERE ATC_ID=7",
    "SELECT * FROM Events WHERE EVE_ID=7",
    "SELECT * FROM Alarms WHERE ALA_ID=7",
    "SELECT * FROM Tasks WHERE TSK_ID=7",
    "SELECT * FROM Contacts WHERE CNT_ID=7",
    "SELECT * FROM PhoneLogs WHERE PL_ID=7",
    "SELECT * FROM Notes WHERE NOT_ID=7",
    "SELECT * FROM Users WHERE USR_ID=7",
    "SELECT TS_Name FROM lstTaskStatus WHERE TS_ID=7",
    "SELECT TP_Name FROM lstTaskPriority WHERE TP_ID=7",
    "SELECT ST_Name FROM lstStates WHERE ST_ID=7",
    "SELECT COU_Name FROM lstCountries WHERE COU_ID=7",
    "UPDATE Contacts SET CNT_ID=7,CNT_LastName='x' WHERE CNT_ID=7",
    "DELETE * FROM Notes WHERE NOT_ID=7",
    // by folder
    "SELECT * FROM Folders WHERE FLD_ParentID=7 ORDER BY FLD_NAME ",
    "SELECT * FROM Folders WHERE FLD_ID<>7 AND FLD_ParentID=3 AND FLD_Name='O''Brien'",
    "SELECT * FROM Folders WHERE FLD_ID<>7 AND FLD_ParentID=3 AND FLD_Name='Übung'",
    "SELECT * FROM Events WHERE EVE_FolderID=7 ORDER BY EVE_Text ASC",
    "SELECT * FROM Alarms WHERE ALA_FolderID=7 ORDER BY ALA_Text ASC",
    "SELECT * FROM Tasks WHERE TSK_FolderID=7 ORDER BY TSK_Name ASC",
    "SELECT * FROM Contacts WHERE CNT_FolderID=7 ORDER BY CNT_LastName, CNT_FirstName, CNT_MI ASC",
    "SELECT * FROM Notes WHERE NOT_FolderID=7 ORDER BY NOT_Title ASC",
    "SELECT * FROM PhoneLogs WHERE PL_ContactID=7",
    // by category
    "UPDATE Events SET EVE_CategoryID=-1 WHERE EVE_CategoryID=7",
    "UPDATE Alarms SET ALA_CategoryID=-1 WHERE ALA_CategoryID=7",
    "UPDATE Tasks SET TSK_CategoryID=-1 WHERE TSK_CategoryID=7",
    "UPDATE Contacts SET CNT_CategoryID=-1 WHERE CNT_CategoryID=7",
    "UPDATE Notes SET NOT_CategoryID=-1 WHERE NOT_CategoryID=7",
    // generated events, and what users have seen
    "SELECT EVE_ID FROM Events WHERE EVE_Type='T' and EVE_LinkID=7 AND EVE_FolderID=9",
    "DELETE FROM Events WHERE EVE_Type='B' and EVE_LinkID=7 AND EVE_FolderID=8",
    "SELECT * FROM ViewedEvents WHERE VE_EventID=7 AND VE_UserID=1",
    "SELECT * FROM ViewedAlarms WHERE VA_AlarmID=7 AND VA_UserID=1",
    // by name or number
    "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Tasks Due Dates'",
    "SELECT FLD_ID FROM Folders WHERE FLD_Type=3 AND FLD_Protected=1 AND FLD_Name='Phone Calls Notes'",
    "SELECT * FROM Categories WHERE CAT_Name='Red'",
    "SELECT * FROM Users WHERE USR_Name='Admin' AND (IsNull(USR_Password) OR USR_Password='')",
    "SELECT * FROM Users WHERE USR_Name='Admin' AND USR_Password='secret'",
    "SELECT * FROM Contacts WHERE CNT_PHONE='5550100' or CNT_MobilePhone='5550100' or CNT_WorkPhone='5550100' or "
    "CNT_WorkFax='5550100'",
};

class Lookup : public testing::TestWithParam<const char*> {
 protected:
  Database database_;
  Planner planner_{database_.path()};
};

TEST_P(Lookup, ScansNoTable) { EXPECT_EQ(planner_.Scans(GetParam()), ""); }

INSTANTIATE_TEST_SUITE_P(Statements, Lookup, testing::ValuesIn(kLookups));

TEST_F(Lookup, ByAColumnWithoutAnIndexIsToldToScan) {
  EXPECT_EQ(planner_.Scans("SELECT * FROM Tasks WHERE TSK_StatusID=1"), "SCAN Tasks\n");
}

TEST_F(Lookup, OfANameBelowAParentGoesThroughTheIndexOverBoth) {
  const std::vector<std::string> steps =
      planner_.Steps("SELECT * FROM Folders WHERE FLD_Name='Source' AND FLD_ParentID=300");
  EXPECT_THAT(steps,
              testing::ElementsAre(
                  "MULTI-INDEX OR", "INDEX 1",
                  "SEARCH Folders USING INDEX IX_Folders_ParentID_Name (FLD_ParentID=? AND FLD_Name=?)", "INDEX 2",
                  "SEARCH Folders USING INDEX IX_Folders_ParentID_Name (other characters) (FLD_ParentID=? AND "
                  "FLD_Name>?)"));
  EXPECT_EQ(planner_.Steps("SELECT * FROM Folders WHERE FLD_ID<>7 AND FLD_ParentID=3 AND FLD_Name='x'"), steps);
}

/// The statements that operations send.
class SentStatements : public SessionTest {
 protected:
  void ExpectNoScans() {
    ASSERT_FALSE(log_->texts.empty());
    Planner planner(database.path());
    for (const std::string& text : log_->texts) {
      if (text == "BEGIN" || text == "COMMIT" || text == "ROLLBACK") continue;
      const bool by_row_id = std::ranges::count(log_->by_row_id, text) > 0;
      EXPECT_EQ(planner.Scans(text, {.by_row_id = by_row_id}), "") << text;
    }
  }
  Ref<CTask> RepeatedTask() {
    Ref<CTask> task = session->CreateTask();
    task->Name = "Practise";
    task->FolderID = 3;
    task->DueDate = ParseDate("6/7/2024").value();
    task->Recurrence->RType = REC_WEEKLY;
    task->Notification->Subject = "Sing";
    EXPECT_TRUE(task->Save()) << session->GetEntireErrorDesc();
    return task;
  }

 private:
  std::shared_ptr<EngineLog> log_ = Watch(connection());
};

TEST_F(SentStatements, OfFoldersScanNoTable) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "Recipes";
  folder->ParentID = 4;
  EXPECT_TRUE(folder->Save());
  folder->Name = "Feasts";
  EXPECT_TRUE(folder->Save());
  EXPECT_TRUE(session->GetFolder(folder->ID));
  EXPECT_TRUE(session->LoadRootFolders(MakeRef<CFolders>()));
  EXPECT_TRUE(session->LoadChildFolders(MakeRef<CFolders>(), 4));
  EXPECT_EQ(session->GetFolderID4Completedtasks(), 10);
  EXPECT_EQ(session->GetFolderID4PhoneCallNotes(), -1);
  ExpectNoScans();
}

TEST_F(SentStatements, OfUsersScanNoTable) {
  EXPECT_EQ(session->GetUserID4Name("Admin"), 1);
  const Ref<CUser> user = session->CheckUser("Admin", "");
  ASSERT_TRUE(user);
  user->Password = "secret";
  EXPECT_TRUE(user->Save());
  EXPECT_TRUE(session->CheckUser("Admin", "secret"));
  EXPECT_TRUE(session->DeleteUser(user->ID));
  ExpectNoScans();
}

TEST_F(SentStatements, OfEntriesInListsScanNoTable) {
  EXPECT_TRUE(session->GetTaskStatus(1));
  EXPECT_TRUE(session->GetTaskPriority(1));
  EXPECT_TRUE(session->GetStateTag(1));
  EXPECT_TRUE(session->GetCountryTag(1));
  ExpectNoScans();
}

TEST_F(SentStatements, OfTasksScanNoTable) {
  const Ref<CTask> task = RepeatedTask();
  task->Name = "Perform";
  EXPECT_TRUE(task->Save());
  EXPECT_TRUE(task->Refresh());
  EXPECT_TRUE(session->LoadTasks4Folder(MakeRef<CTasks>(), 3));
  task->DueDate = Date();
  task->Recurrence->RType = REC_EMPTY;
  task->Notification->Subject = std::string();
  EXPECT_TRUE(task->Save());
  ExpectNoScans();
}

TEST_F(SentStatements, OfEventsScanNoTable) {
  RepeatedTask();
  const Ref<CEvent> copy = session->DuplicateEvent(1);
  ASSERT_TRUE(copy);
  EXPECT_TRUE(copy->Save());
  EXPECT_TRUE(copy->MarkSeenByUser(copy->StartDate));
  bool show = true;
  EXPECT_TRUE(copy->SeenByUser(copy->StartDate, show));
  EXPECT_TRUE(session->LoadEvents4Folder(MakeRef<CEvents>(), 9));
  EXPECT_TRUE(session->DeleteEvent(copy->ID));
  ExpectNoScans();
}

}  // namespace
}  // namespace zef::test
