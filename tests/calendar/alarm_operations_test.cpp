#include "session/collections.h"
#include "tests/calendar/alarm_fixture.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/item_expectations.h"

namespace zef::test {
namespace {

class AlarmOperations : public AlarmTest {
 protected:
  static Texts TextsOf(const Ref<CAlarms>& alarms) {
    Texts texts;
    for (const Ref<CAlarm>& alarm : *alarms) texts.push_back(alarm->Text);
    return texts;
  }
  /// Rows with the texts b, A and c in folder 5, and z in folder 6.
  void InsertFour() {
    Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (1,5,'b')");
    Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (2,6,'z')");
    Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (3,5,'A')");
    Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (4,5,'c')");
  }
};

// ---- getting and loading

TEST_F(AlarmOperations, GetAlarmWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetAlarm(91));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AlarmOperations, GetAlarmThatFailsAtAChildIsRecordedAndGivesNothing) {
  const std::int32_t id = AlarmWithChildren()->ID;
  Refuse("SELECT * FROM Attachements");
  EXPECT_FALSE(session->GetAlarm(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetAlarm] Error: -2147217900 - made to fail");
}

TEST_F(AlarmOperations, LoadingWithoutCriteriaSelectsTheWholeTableUnsorted) {
  const auto alarms = Loaded(&CSession::LoadAlarmsWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Alarms"});
}

TEST_F(AlarmOperations, AlarmsOfAFolderComeInTheOrderOfTheirTexts) {
  InsertFour();
  const auto alarms = Loaded(&CSession::LoadAlarms4Folder, 5);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Alarms WHERE ALA_FolderID=5 ORDER BY ALA_Text ASC"});
  EXPECT_EQ(TextsOf(alarms), (Texts{"A", "b", "c"}));
}

TEST_F(AlarmOperations, LoadingFetchesTheChildrenOfEachAlarm) {
  AlarmWithChildren();
  const auto alarms = Loaded(&CSession::LoadAlarmsWithCriteria, "");
  EXPECT_EQ(alarms->ItemByIdx(1)->Attachement->Name, "score");
  EXPECT_EQ(alarms->ItemByIdx(1)->Notification->Subject, "Sing");
}

TEST_F(AlarmOperations, FolderThatCannotBeLoadedIsRecordedByTheLoading) {
  Refuse("SELECT * FROM Alarms");
  EXPECT_FALSE(session->LoadAlarms4Folder(MakeRef<CAlarms>(), 5));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadAlarmsWithCriteria");
}

// ---- CreateAlarm

TEST_F(AlarmOperations, CreateAlarmDrawsFromSequenceFive) {
  SetSequences({{5, 41}});
  EXPECT_EQ(session->CreateAlarm()->ID, 42);
}

TEST_F(AlarmOperations, CreateAlarmGivesAllChildrenTheSession) {
  const Ref<CAlarm> alarm = NewAlarm();
  EXPECT_EQ(alarm->Attachement->Session(), session);
  EXPECT_EQ(alarm->Notification->Session(), session);
}

TEST_F(AlarmOperations, CreateAlarmIsRefusedToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreateAlarm());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CreateAlarm] Error: 105 - You don't have rights to insert/edit data");
}

// ---- DuplicateAlarm

TEST_F(AlarmOperations, DuplicateTakesItsNumbersInOrder) {
  const std::int32_t id = AlarmWithChildren()->ID;
  SetSequences({{5, 50}, {7, 70}, {8, 80}, {10, 100}});
  const Ref<CAlarm> copy = session->DuplicateAlarm(id);
  ASSERT_TRUE(copy);
  EXPECT_EQ(SequencesDrawn(), (Texts{"5", "10", "8", "7"}));
  ExpectNumbers(*copy, 51, 81, 71);
  EXPECT_EQ(copy->Attachement->ID, 101);
  EXPECT_EQ(copy->AttachementID, 101);
}

TEST_F(AlarmOperations, DuplicateIsNewAndModifiedWithAllChildren) {
  const Ref<CAlarm> copy = session->DuplicateAlarm(AlarmWithChildren()->ID);
  ExpectNewWithChildren(*copy);
  EXPECT_EQ(Flags(*copy->Attachement), "new modified");
}

TEST_F(AlarmOperations, SavedDuplicateStoresTheAttachementsFileAgain) {
  const std::int32_t id = AlarmWithChildren()->ID;
  const Ref<CAlarm> copy = session->DuplicateAlarm(id);
  ASSERT_TRUE(copy->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Alarms"), 2);
  EXPECT_EQ(Rows("Attachements"), 2);
  EXPECT_EQ(copy->AttachementID, 3) << "2 was the placeholder";
}

TEST_F(AlarmOperations, SavedDuplicateWithoutChildrenDeletesThemUnderTheirPlaceholders) {
  SetSequences({{7, 70}, {8, 80}, {10, 100}});
  Run("INSERT INTO Alarms (ALA_ID) VALUES (99)");
  const Ref<CAlarm> copy = session->DuplicateAlarm(99);
  Forget();
  ASSERT_TRUE(copy->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre("DELETE * FROM Attachements WHERE ATC_ID=101",
                                           "DELETE * FROM Notifications WHERE NTF_ID=71",
                                           "DELETE * FROM Recurrences WHERE REC_ID=81",
                                           testing::StartsWith("INSERT INTO Alarms (ALA_ID,")));
  EXPECT_EQ(Rows("Alarms WHERE ALA_ID=1 AND ALA_AttachementID=-1 AND ALA_NotificationID=-1 AND ALA_RecurrenceID=-1"),
            1);
}

TEST_F(AlarmOperations, DuplicateOfAnUnknownAlarmGivesNothingAndNoError) {
  EXPECT_FALSE(session->DuplicateAlarm(91));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AlarmOperations, DuplicateIsRefusedToASessionThatMayOnlyRead) {
  const std::int32_t id = AlarmWithChildren()->ID;
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DuplicateAlarm(id));
  EXPECT_EQ(session->GetErrorProcedure(), "CSession.DuplicateAlarm");
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_F(AlarmOperations, DuplicateWithoutOneOfItsSequencesGivesNothing) {
  const std::int32_t id = AlarmWithChildren()->ID;
  for (const char* sequence : {"5", "7", "8", "10"}) {
    Run(std::string("UPDATE Sequences SET SEQ_ID=99 WHERE SEQ_ID=") + sequence);
    EXPECT_FALSE(session->DuplicateAlarm(id)) << sequence;
    Run(std::string("UPDATE Sequences SET SEQ_ID=") + sequence + " WHERE SEQ_ID=99");
  }
}

TEST_F(AlarmOperations, EveryFailureOfADuplicateGivesNothingAndIsRecorded) {
  const std::int32_t id = AlarmWithChildren()->ID;
  const auto duplicate = [&] { return session->DuplicateAlarm(id) != nullptr; };
  EXPECT_EQ(FailEachCall(database, *session, duplicate, {}, Unchanged::AllButSequences).size(), 20u);
}

// ---- DeleteAlarm

TEST_F(AlarmOperations, DeleteRemovesRuleNotificationAttachementAndAlarmInOneTransaction) {
  const std::int32_t id = AlarmWithChildren()->ID;
  EXPECT_TRUE(session->DeleteAlarm(id));
  EXPECT_EQ(SentInAll(),
            (Texts{"BEGIN", "SELECT * FROM Alarms WHERE ALA_ID=1", "DELETE * FROM Recurrences WHERE REC_ID=1",
                   "DELETE * FROM Notifications WHERE NTF_ID=1", "DELETE * FROM Attachements WHERE ATC_ID=1",
                   "DELETE * FROM Alarms WHERE ALA_ID=1", "COMMIT"}));
  EXPECT_EQ(Rows("Alarms") + RowsOfChildren(), 0);
}

TEST_F(AlarmOperations, DeleteReadsNullReferencesAsZero) {
  Run("INSERT INTO Alarms (ALA_ID) VALUES (91)");
  EXPECT_TRUE(session->DeleteAlarm(91));
  EXPECT_EQ(Sent()[3], "DELETE * FROM Attachements WHERE ATC_ID=0");
}

TEST_F(AlarmOperations, DeleteWithoutARowCommitsAnEmptyTransaction) {
  EXPECT_TRUE(session->DeleteAlarm(91));
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "SELECT * FROM Alarms WHERE ALA_ID=91", "COMMIT"}));
}

TEST_F(AlarmOperations, DeleteLeavesTheMarksOfTheSeen) {
  const Ref<CAlarm> alarm = AlarmWithChildren();
  ASSERT_TRUE(alarm->MarkSeenByUser(now_));
  EXPECT_TRUE(session->DeleteAlarm(alarm->ID));
  EXPECT_EQ(Rows("ViewedAlarms"), 1);
}

TEST_F(AlarmOperations, DeleteLeavesTheCacheFile) {
  const Ref<CAlarm> alarm = AlarmWithChildren();
  const std::filesystem::path cache = std::filesystem::path(Source()).replace_filename("cached.txt");
  alarm->Attachement->CacheFileName = cache.string();
  ASSERT_TRUE(alarm->Attachement->Cache2File());
  EXPECT_TRUE(session->DeleteAlarm(alarm->ID));
  EXPECT_TRUE(std::filesystem::exists(cache));
}

TEST_F(AlarmOperations, DeleteIsRefusedToASessionThatMayOnlyReadWithTheTextOfTheRollback) {
  const std::int32_t id = AlarmWithChildren()->ID;
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteAlarm(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: 105 - No transaction is started.");
  EXPECT_EQ(Rows("Alarms"), 1);
}

TEST_F(AlarmOperations, RefusedDeleteUndoesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Alarms (ALA_ID) VALUES (99)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteAlarm(99));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeleteAlarm] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(Rows("Alarms"), 0);
}

TEST_F(AlarmOperations, DeleteInTheClientsTransactionFailsAndUndoesThatOne) {
  const std::int32_t id = AlarmWithChildren()->ID;
  ASSERT_TRUE(session->BeginTransaction());
  LeaveAnOldError();
  EXPECT_FALSE(session->DeleteAlarm(id));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[BeginTransaction] Error: 0 - A transaction is already started.");
  EXPECT_EQ(Rows("Alarms"), 1);
}

TEST_F(AlarmOperations, DeleteThatFailsAtTheAttachementKeepsRuleAndNotification) {
  const std::int32_t id = AlarmWithChildren()->ID;
  Refuse("DELETE * FROM Attachements");
  EXPECT_FALSE(session->DeleteAlarm(id));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteAttachement");
  EXPECT_EQ(RowsOfChildren(), 3);
}

TEST_F(AlarmOperations, EveryFailureOfADeleteLeavesAllRows) {
  const std::int32_t id = AlarmWithChildren()->ID;
  Texts procedures;
  for (const InjectedFailure& failure : FailEachCall(database, *session, [&] { return session->DeleteAlarm(id); })) {
    procedures.push_back(failure.procedure);
  }
  EXPECT_EQ(procedures, (Texts{"RollbackTransaction", "DeleteAlarm", "DeleteRecurrence", "DeleteNotification",
                               "DeleteAttachement", "DeleteAlarm", "CommitTransaction"}));
}

}  // namespace
}  // namespace zef::test
