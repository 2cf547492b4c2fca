#include <limits>

#include "tests/calendar/alarm_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

using AlarmSave = AlarmTest;

// ---- the empty notification

TEST_F(AlarmSave, UntouchedNewAlarmGetsANotificationAndARow) {
  const Ref<CAlarm> alarm = NewAlarm();
  ASSERT_TRUE(alarm->Save());
  EXPECT_EQ(Sent(), (Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_Type,NTF_Status) VALUES "
                           "(1,'5/1/2024 9:00:00 AM',3,0)",
                           "INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_CategoryID,ALA_NotificationID,"
                           "ALA_RecurrenceID,ALA_AttachementID,ALA_StartDate,ALA_Reminder,ALA_DateLastUpdate) VALUES "
                           "(1,0,0,1,0,0,'5/1/2024 9:00:00 AM',0,'5/1/2024 9:00:00 AM')"}));
  EXPECT_EQ(RowsOfChildren(), 1);
}

TEST_F(AlarmSave, SecondSaveDeletesTheEmptyNotificationAgain) {
  const Ref<CAlarm> alarm = NewAlarm();
  ASSERT_TRUE(alarm->Save());
  Forget();
  ASSERT_TRUE(alarm->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre("DELETE * FROM Notifications WHERE NTF_ID=1",
                                           testing::StartsWith("UPDATE Alarms SET ALA_ID=1,")));
  EXPECT_EQ(Rows("Notifications"), 0);
  EXPECT_EQ(Stored("SELECT ALA_NotificationID FROM Alarms"), "-1");
}

TEST_F(AlarmSave, AlarmReadBackWithoutANotificationStoresItAnew) {
  const Ref<CAlarm> alarm = NewAlarm();
  ASSERT_TRUE(alarm->Save());
  ASSERT_TRUE(alarm->Save());
  ASSERT_TRUE(session->GetAlarm(alarm->ID)->Save());
  EXPECT_EQ(Rows("Notifications"), 1);
  EXPECT_EQ(Stored("SELECT ALA_NotificationID FROM Alarms"), "2");
}

// ---- first children

TEST_F(AlarmSave, AttachementAndRuleGivenToALoadedAlarmAreInserted) {
  Run("INSERT INTO Alarms (ALA_ID,ALA_AttachementID,ALA_RecurrenceID) VALUES (91,-1,0)");
  const Ref<CAlarm> alarm = session->GetAlarm(91);
  alarm->Attachement->FileName = Source();
  alarm->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(alarm->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Alarms INNER JOIN Attachements ON ALA_AttachementID=ATC_ID"), 1);
  EXPECT_EQ(Rows("Alarms INNER JOIN Recurrences ON ALA_RecurrenceID=REC_ID"), 1);
}

TEST_F(AlarmSave, AttachementGivenToASavedAlarmIsInserted) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Text = "Choir";
  ASSERT_TRUE(alarm->Save());
  alarm->Attachement->FileName = Source();
  ASSERT_TRUE(alarm->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Alarms INNER JOIN Attachements ON ALA_AttachementID=ATC_ID"), 1);
}

// ---- the row

TEST_F(AlarmSave, UpdateWritesAllColumnsInTheirOrder) {
  Run("INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (5,'s')");
  Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_CategoryID,ALA_NotificationID,ALA_RecurrenceID,ALA_AttachementID,"
      "ALA_StartDate,ALA_Reminder) VALUES (91,92,93,5,-1,-1,'2/29/2024 1:00:00 PM',97)");
  const Ref<CAlarm> alarm = session->GetAlarm(91);
  alarm->Text = "O'Neill's";
  Forget();
  ASSERT_TRUE(alarm->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Alarms SET ALA_ID=91,ALA_FolderID=92,ALA_CategoryID=93,ALA_NotificationID=5,"
                          "ALA_RecurrenceID=-1,ALA_AttachementID=-1,ALA_Text='O''Neill''s',"
                          "ALA_StartDate='2/29/2024 1:00:00 PM',ALA_Reminder=97,"
                          "ALA_DateLastUpdate='5/1/2024 9:00:00 AM' WHERE ALA_ID=91"});
}

TEST_F(AlarmSave, UpdateBlanksAnEmptyTextAndWritesAZeroDate) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Text = "";
  alarm->StartDate = Date();
  ASSERT_TRUE(alarm->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre(testing::HasSubstr("ALA_Text='',ALA_StartDate='12:00:00 AM'")));
}

TEST_F(AlarmSave, ReminderAndDatesAtTheirLimitsComeBack) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Reminder = std::numeric_limits<std::int32_t>::min();
  alarm->StartDate = On("2/29/1896 6:00:00 AM");
  alarm->Text = "⏰ 'now'";
  ASSERT_TRUE(alarm->Save());
  const Ref<CAlarm> loaded = session->GetAlarm(alarm->ID);
  EXPECT_EQ(loaded->Reminder, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(loaded->StartDate, On("2/29/1896 6:00:00 AM"));
  EXPECT_EQ(loaded->Text, "⏰ 'now'");
}

TEST_F(AlarmSave, TextOf256CharactersFailsAndUndoesTheChildren) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Text = std::string(256, 't');
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_EQ(RowsOfChildren(), 0);
}

TEST_F(AlarmSave, LastUpdateReadsZeroAfterASaveThatWroteNothing) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  ASSERT_EQ(alarm->DateLastUpdate, now_);
  ASSERT_TRUE(alarm->Save());
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "COMMIT"}));
  EXPECT_EQ(alarm->DateLastUpdate, Date());
}

// ---- children

TEST_F(AlarmSave, ChildrenAreSavedBeforeTheAlarmAttachementNotificationRule) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->ResetFlags();
  alarm->ID = 5;
  ASSERT_TRUE(alarm->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre(
                          "SELECT * FROM [Attachements]", testing::StartsWith("INSERT INTO [Attachements]"),
                          testing::StartsWith("INSERT INTO Notifications"),
                          testing::StartsWith("INSERT INTO Recurrences"), testing::StartsWith("INSERT INTO Alarms")));
}

TEST_F(AlarmSave, NewChildrenMakeTheReferencesTakeTheirIdentifiers) {
  SetSequences({{7, 70}, {8, 80}, {10, 100}});
  const Ref<CAlarm> alarm = AlarmWithChildren();
  EXPECT_EQ(alarm->NotificationID, 71);
  EXPECT_EQ(alarm->RecurrenceID, 81);
  EXPECT_EQ(alarm->AttachementID, 101);
  EXPECT_EQ(Stored("SELECT ALA_AttachementID FROM Alarms"), "101");
}

TEST_F(AlarmSave, EmptiedAttachementLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Attachement->Name = "";
  alarm->Attachement->FileName = "";
  ASSERT_TRUE(alarm->Save());
  EXPECT_EQ(Rows("Attachements"), 0);
  EXPECT_EQ(Stored("SELECT ALA_AttachementID FROM Alarms"), "-1");
}

TEST_F(AlarmSave, EmptiedRuleLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(alarm->Save());
  EXPECT_EQ(Rows("Recurrences"), 0);
  EXPECT_EQ(alarm->RecurrenceID, -1);
  EXPECT_EQ(Stored("SELECT ALA_RecurrenceID FROM Alarms"), "-1");
}

TEST_F(AlarmSave, ChangeOfAStoredChildAloneLeavesTheAlarmsRow) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Notification->Subject = "Play";
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  ASSERT_TRUE(alarm->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre(testing::StartsWith("UPDATE Notifications SET NTF_ID=1,")));
  EXPECT_EQ(Stored("SELECT ALA_DateLastUpdate FROM Alarms"), "5/1/2024 9:00:00 AM");
}

TEST_F(AlarmSave, AttachementThatCannotBeDeletedDoesNotStopTheSave) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Attachement->Name = "";
  alarm->Attachement->FileName = "";
  Refuse("DELETE * FROM Attachements");
  EXPECT_TRUE(alarm->Save());
  EXPECT_EQ(alarm->AttachementID, -1);
}

TEST_F(AlarmSave, AttachementWithoutItsFileEndsTheSaveWithItsOwnRecord) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Attachement->FileName = "/no-such-file";
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAttachement.Save");
  EXPECT_EQ(session->GetErrorCode(), 3002);
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Alarms") + RowsOfChildren(), 0);
}

TEST_F(AlarmSave, SaveWithoutAChildObjectFails) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Attachement.reset();
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.Save");
  EXPECT_EQ(session->GetErrorCode(), 91);
}

// ---- transactions and failures

TEST_F(AlarmSave, SaveJoinsARunningTransactionAndDoesNotCommitIt) {
  const Ref<CAlarm> alarm = NewAlarm();
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(alarm->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Rows("Alarms"), 0);
}

TEST_F(AlarmSave, FailedSaveLeavesTheClientsTransactionRunning) {
  const Ref<CAlarm> alarm = NewAlarm();
  ASSERT_TRUE(session->BeginTransaction());
  Refuse("INSERT INTO Alarms");
  EXPECT_FALSE(alarm->Save());
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(AlarmSave, SessionThatMayOnlyReadIsRefusedAndSendsNothing) {
  const Ref<CAlarm> alarm = NewAlarm();
  session->UserRights = DataViewer;
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CAlarm.Save] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*alarm), "new modified");
}

TEST_F(AlarmSave, BeginThatFailsIsRecordedInTheNameOfTheSave) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Text = "b";
  Refuse("BEGIN");
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CAlarm.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Flags(*alarm), "old modified");
}

TEST_F(AlarmSave, CommitThatFailsIsRecordedInTheNameOfTheSaveAndUndone) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Text = "b";
  Refuse("COMMIT");
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CAlarm.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Stored("SELECT ALA_Text FROM Alarms"), "Choir");
  EXPECT_EQ(Flags(*alarm), "old modified");
}

TEST_F(AlarmSave, DateOutOfRangeIsRecordedByTheFieldsAndUndoesTheChildren) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->StartDate = Date(3e6);
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.GetFieldsArray");
  EXPECT_EQ(RowsOfChildren(), 0);
}

TEST_F(AlarmSave, EveryFailureOfANewAlarmsSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CAlarm> alarm = session->CreateAlarm();
    if (!alarm) return alarm;
    alarm->Recurrence->RType = REC_WEEKLY;
    alarm->Notification->Subject = "Sing";
    alarm->Attachement->FileName = Source();
    return alarm;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 23u) << "four identifiers of four calls each, and seven of the save itself";
}

TEST_F(AlarmSave, NewAlarmWithChildrenCanBeSavedAfterAnyFailure) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Recurrence->RType = REC_WEEKLY;
  alarm->Notification->Subject = "Sing";
  alarm->Attachement->FileName = Source();
  const auto state = [&] {
    return FlagsOf(*alarm) + ", " + FlagsOf(*alarm->Attachement) + ", " + FlagsOf(*alarm->Notification) + ", " +
           FlagsOf(*alarm->Recurrence) + ", " + std::to_string(alarm->AttachementID);
  };
  FailEachCall(
      database, *session, [&] { return alarm->Save(); }, state);
  EXPECT_EQ(Rows("Alarms INNER JOIN Attachements ON ALA_AttachementID=ATC_ID"), 1);
  EXPECT_EQ(Rows("Alarms INNER JOIN Notifications ON ALA_NotificationID=NTF_ID"), 1);
  EXPECT_EQ(Rows("Alarms INNER JOIN Recurrences ON ALA_RecurrenceID=REC_ID"), 1);
}

TEST_F(AlarmSave, AttachementWhoseAlarmFailedIsStoredByTheNextSave) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->Attachement->FileName = Source();
  Refuse("INSERT INTO Alarms");
  EXPECT_FALSE(alarm->Save());
  EXPECT_EQ(alarm->AttachementID, 0);
  RefuseNothing();
  EXPECT_TRUE(alarm->Save());
  EXPECT_EQ(Stored("SELECT ATC_FileName FROM Attachements"), Source());
}

}  // namespace
}  // namespace zef::test
