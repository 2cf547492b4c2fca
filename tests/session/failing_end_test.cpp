#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "calendar/alarm.h"
#include "calendar/event.h"
#include "folders/folder.h"
#include "tasks/task.h"
#include "tests/support/dump.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr char kMadeToFail[] = "Error: -2147217900 - made to fail";

/// A session whose commits and rollbacks can be made to fail.
class FailingEnd : public SessionTest {
 protected:
  int Depth() { return connection().OpenedEngine().TransactionDepth(); }
  void AddCategory() { connection().Execute("INSERT INTO Categories (CAT_ID, CAT_Name) VALUES (1, 'Red')"); }
  std::int32_t Committed(const std::string& table_and_condition) {
    return Count(*database.Connect(), table_and_condition);
  }

  std::shared_ptr<EngineLog> log = Watch(connection());
};

TEST_F(FailingEnd, OfARollbackReturnsFalse) {
  session->BeginTransaction();
  log->refused = {"ROLLBACK"};
  EXPECT_FALSE(session->RollbackTransaction());
}

TEST_F(FailingEnd, OfARollbackLeavesTheFlagAndTheTransaction) {
  session->BeginTransaction();
  log->refused = {"ROLLBACK"};
  session->RollbackTransaction();
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FailingEnd, OfARollbackIsRecordedWithTheProvidersWords) {
  session->BeginTransaction();
  log->refused = {"ROLLBACK"};
  session->RollbackTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[RollbackTransaction] ") + kMadeToFail);
}

TEST_F(FailingEnd, OfARollbackCanBeRepeated) {
  session->BeginTransaction();
  AddCategory();
  log->refused = {"ROLLBACK"};
  session->RollbackTransaction();
  log->refused.clear();
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Committed("Categories"), 0);
}

TEST_F(FailingEnd, OfACommitCanBeFollowedByARollback) {
  session->BeginTransaction();
  AddCategory();
  log->refused = {"COMMIT"};
  session->CommitTransaction();
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Committed("Categories"), 0);
}

// ---- sequences

class FailingEndOfASequence : public FailingEnd {
 protected:
  std::int32_t Draw() { return session->GetUniqueIDFromSeq(3, id); }
  std::int32_t id = 0;
};

TEST_F(FailingEndOfASequence, OfACommitIssuesNothing) {
  log->refused = {"COMMIT"};
  EXPECT_EQ(Draw(), 0);
  EXPECT_EQ(Committed("Sequences WHERE SEQ_ID=3 AND SEQ_Value=0"), 1);
}

TEST_F(FailingEndOfASequence, OfACommitLeavesNothingOpen) {
  log->refused = {"COMMIT"};
  Draw();
  EXPECT_EQ(Depth(), 0);
}

TEST_F(FailingEndOfASequence, OfACommitInsideATransactionUndoesTheNumberOnly) {
  session->BeginTransaction();
  AddCategory();
  log->refused = {"COMMIT"};
  Draw();
  log->refused.clear();
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Committed("Categories"), 1);
  EXPECT_EQ(Committed("Sequences WHERE SEQ_ID=3 AND SEQ_Value=0"), 1);
}

TEST_F(FailingEndOfASequence, OfBothKeepsTheFirstFailureOnRecord) {
  log->failure = RunTimeError(FailureNumber::FileUnusable, "first");
  log->rollback_failure = RunTimeError(FailureNumber::FileUnusable, "second");
  log->refused = {"COMMIT", "ROLLBACK"};
  EXPECT_EQ(Draw(), 0);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetUniqueIDFromSeq] Error: -2147467259 - first");
}

TEST_F(FailingEndOfASequence, OfBothLeavesTheSessionsFlagAlone) {
  log->refused = {"COMMIT", "ROLLBACK"};
  Draw();
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(FailingEndOfASequence, DrawnAgainGivesTheSameNumber) {
  log->refused = {"COMMIT"};
  Draw();
  log->refused.clear();
  EXPECT_EQ(Draw(), 1);
  EXPECT_EQ(id, 1);
}

// ---- Save

/// A changed record and what saves it.
struct Saving {
  const char* name;
  const char* procedure;
  std::function<std::function<bool()>(CSession&)> change;

  friend void PrintTo(const Saving& saving, std::ostream* out) { *out << saving.name; }
};

template <class R>
std::function<bool()> SaveOf(Ref<R> record) {
  return [record] { return record->Save(); };
}

class FailingEndOfASave : public FailingEnd, public testing::WithParamInterface<Saving> {
 protected:
  FailingEndOfASave() {
    connection().Execute("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (8,3)");
    connection().Execute("INSERT INTO Events (EVE_ID,EVE_FolderID) VALUES (8,1)");
    connection().Execute("INSERT INTO Alarms (ALA_ID,ALA_NotificationID) VALUES (8,8)");
    connection().Execute("INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (8,'Sing')");
    save = GetParam().change(*session);
    before = Dump(connection());
  }
  std::function<bool()> save;
  std::string before;
};

TEST_P(FailingEndOfASave, OfACommitReturnsFalse) {
  log->refused = {"COMMIT"};
  EXPECT_FALSE(save());
}

TEST_P(FailingEndOfASave, OfACommitIsRecordedUnderTheClass) {
  log->refused = {"COMMIT"};
  save();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[" + std::string(GetParam().procedure) + "] " + kMadeToFail);
}

TEST_P(FailingEndOfASave, OfACommitUndoesTheRow) {
  log->refused = {"COMMIT"};
  save();
  EXPECT_EQ(Dump(*database.Connect()), before);
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
}

TEST_P(FailingEndOfASave, OfACommitCanBeRepeated) {
  log->refused = {"COMMIT"};
  save();
  log->refused.clear();
  EXPECT_TRUE(save());
  EXPECT_NE(Dump(*database.Connect()), before);
}

TEST_P(FailingEndOfASave, OfBothReturnsFalse) {
  log->refused = {"COMMIT", "ROLLBACK"};
  EXPECT_FALSE(save());
}

TEST_P(FailingEndOfASave, OfBothEndsWithTheRecordOfTheRollback) {
  log->refused = {"COMMIT", "ROLLBACK"};
  save();
  EXPECT_EQ(session->GetErrorProcedure(), "RollbackTransaction");
}

TEST_P(FailingEndOfASave, OfBothLeavesTheTransactionToTheClient) {
  log->refused = {"COMMIT", "ROLLBACK"};
  save();
  EXPECT_TRUE(session->TransactionStarted());
  log->refused.clear();
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Dump(*database.Connect()), before);
}

TEST_P(FailingEndOfASave, OfARollbackAfterAFailedStatementLeavesTheTransactionToTheClient) {
  log->refused = {"UPDATE", "ROLLBACK"};
  EXPECT_FALSE(save());
  EXPECT_TRUE(session->TransactionStarted());
  log->refused.clear();
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_TRUE(save());
}

const Saving kSavings[] = {
    {"Folder", "CFolder.Save",
     [](CSession& session) {
       const Ref<CFolder> folder = session.GetFolder(8);
       folder->Name = "Feasts";
       return SaveOf(folder);
     }},
    {"Task", "CTask.Save",
     [](CSession& session) {
       const Ref<CTask> task = session.GetTask(8);
       task->Name = "Practise";
       return SaveOf(task);
     }},
    {"Event", "CEvent.Save",
     [](CSession& session) {
       const Ref<CEvent> event = session.GetEvent(8);
       event->Text = "Choir";
       return SaveOf(event);
     }},
    {"Alarm", "CAlarm.Save",
     [](CSession& session) {
       const Ref<CAlarm> alarm = session.GetAlarm(8);
       alarm->Text = "Choir";
       return SaveOf(alarm);
     }},
};
INSTANTIATE_TEST_SUITE_P(Records, FailingEndOfASave, testing::ValuesIn(kSavings),
                         [](const auto& saving) { return std::string(saving.param.name); });

}  // namespace
}  // namespace zef::test
