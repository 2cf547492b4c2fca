#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/schema/lookups.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/planner.h"
#include "tests/support/session_test.h"
#include "users/user.h"

namespace zef::test {
namespace {

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
