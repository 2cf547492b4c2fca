#include "calendar/event.h"

#include "tests/calendar/event_fixture.h"
#include "tests/support/item_expectations.h"

namespace zef::test {
namespace {

using EventSave = EventTest;

// ---- the row

TEST_F(EventSave, InsertWritesAllColumnsInTheirOrder) {
  ASSERT_TRUE(FullEvent()->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_NotificationID,EVE_RecurrenceID,"
                          "EVE_ContactID,EVE_Text,EVE_StartDate,EVE_Reminder,EVE_DateLastUpdate,EVE_Location,"
                          "EVE_EndDate,EVE_Type,EVE_LinkID) VALUES (1,21,22,23,24,25,'Dinner at O''Neill''s',"
                          "'3/4/2024 5:06:07 PM',26,'5/1/2024 9:00:00 AM','Room ''A''','3/4/2024 8:00:00 PM','E',27)"});
}

TEST_F(EventSave, InsertLeavesEmptyTextsOutAndWritesZeroDates) {
  const Ref<CEvent> event = NewEvent();
  event->StartDate = Date();
  event->EndDate = Date();
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_NotificationID,EVE_RecurrenceID,"
                          "EVE_ContactID,EVE_StartDate,EVE_Reminder,EVE_DateLastUpdate,EVE_EndDate,EVE_LinkID) VALUES "
                          "(1,0,0,0,0,0,'12:00:00 AM',-1,'5/1/2024 9:00:00 AM','12:00:00 AM',0)"});
}

TEST_F(EventSave, UpdateWritesAllColumnsInTheirOrder) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  event->Reminder = 28;
  Forget();
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Events SET EVE_ID=1,EVE_FolderID=21,EVE_CategoryID=22,EVE_NotificationID=23,"
                          "EVE_RecurrenceID=24,EVE_ContactID=25,EVE_Text='Dinner at O''Neill''s',"
                          "EVE_StartDate='3/4/2024 5:06:07 PM',EVE_Reminder=28,"
                          "EVE_DateLastUpdate='5/1/2024 9:00:00 AM',EVE_Location='Room ''A''',"
                          "EVE_EndDate='3/4/2024 8:00:00 PM',EVE_Type='E',EVE_LinkID=27 WHERE EVE_ID=1"});
}

TEST_F(EventSave, UpdateBlanksEmptyTextsAndWritesZeroDates) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  event->Text = "";
  event->Location = "";
  event->EType = "";
  event->StartDate = Date();
  event->EndDate = On("3/4/2024");
  Forget();
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Events SET EVE_ID=1,EVE_FolderID=21,EVE_CategoryID=22,EVE_NotificationID=23,"
                          "EVE_RecurrenceID=24,EVE_ContactID=25,EVE_Text='',EVE_StartDate='12:00:00 AM',"
                          "EVE_Reminder=26,EVE_DateLastUpdate='5/1/2024 9:00:00 AM',EVE_Location='',"
                          "EVE_EndDate='3/4/2024',EVE_Type='',EVE_LinkID=27 WHERE EVE_ID=1"});
}

TEST_F(EventSave, ValuesComeBackAsTheyWereSaved) {
  const Ref<CEvent> saved = FullEvent();
  ASSERT_TRUE(saved->Save());
  const Ref<CEvent> loaded = session->GetEvent(saved->ID);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->FolderID, 21);
  EXPECT_EQ(loaded->CategoryID, 22);
  EXPECT_EQ(loaded->NotificationID, 23);
  EXPECT_EQ(loaded->RecurrenceID, 24);
  EXPECT_EQ(loaded->ContactID, 25);
  EXPECT_EQ(loaded->Text, "Dinner at O'Neill's");
  EXPECT_EQ(loaded->Location, "Room 'A'");
  EXPECT_EQ(loaded->StartDate, On("3/4/2024 5:06:07 PM"));
  EXPECT_EQ(loaded->EndDate, On("3/4/2024 8:00:00 PM"));
  EXPECT_EQ(loaded->Reminder, 26);
  EXPECT_EQ(loaded->DateLastUpdate, now_);
  EXPECT_EQ(loaded->EType, "E");
  EXPECT_EQ(loaded->LinkID, 27);
}

TEST_F(EventSave, NewEventWithoutATypeReadsBackAsTypeEWithLinkZero) {
  const Ref<CEvent> event = NewEvent();
  event->Text = "a";
  ASSERT_TRUE(event->Save());
  const Ref<CEvent> loaded = session->GetEvent(event->ID);
  EXPECT_EQ(loaded->EType, "E");
  EXPECT_EQ(loaded->LinkID, 0);
}

TEST_F(EventSave, EmptiedTypeReadsBackEmptyAndNotAsE) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  event->EType = "";
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(session->GetEvent(event->ID)->EType, "");
}

TEST_F(EventSave, TextOf255CharactersFits) {
  const Ref<CEvent> event = NewEvent();
  event->Text = std::string(255, 't');
  EXPECT_TRUE(event->Save());
}

TEST_F(EventSave, TextOf256CharactersFails) {
  const Ref<CEvent> event = NewEvent();
  event->Text = std::string(256, 't');
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
}

TEST_F(EventSave, PropertyOfTheLastUpdateIsNotWritten) {
  const Ref<CEvent> event = NewEvent();
  event->DateLastUpdate = On("1/1/2000");
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Stored("SELECT EVE_DateLastUpdate FROM Events"), "5/1/2024 9:00:00 AM");
}

TEST_F(EventSave, LastUpdateReadsZeroAfterASaveAndTheMomentAfterARefresh) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Text = "b";
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(event->DateLastUpdate, Date());
  ASSERT_TRUE(event->Refresh());
  EXPECT_EQ(event->DateLastUpdate, On("5/2/2024 10:00:00 AM"));
}

TEST_F(EventSave, LastUpdateReadsZeroEvenAfterASaveThatWroteNothing) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  ASSERT_EQ(event->DateLastUpdate, now_);
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(event->DateLastUpdate, Date());
}

TEST_F(EventSave, SavingClearsTheFlags) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Flags(*event), "old clear");
}

TEST_F(EventSave, UnchangedNewEventGetsNoRowAndIsNoLongerNew) {
  const Ref<CEvent> event = NewEvent();
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Flags(*event), "old clear");
}

TEST_F(EventSave, UnchangedLoadedEventSendsNoStatement) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  Forget();
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(EventSave, SaveClearsAnOldError) {
  const Ref<CEvent> event = NewEvent();
  LeaveAnOldError();
  EXPECT_TRUE(event->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(EventSave, SavedEventAfterResetFlagsViolatesItsKeyAndKeepsItsFlags) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  event->ResetFlags();
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217873);
  EXPECT_EQ(Flags(*event), "new modified");
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(EventSave, SavedEventThatIsNewAgainIsInsertedUnderTheIdentifierThatItWasGiven) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  event->ResetFlagsX(true, true);
  event->Recurrence->ResetFlagsX(false, true);
  event->Notification->ResetFlagsX(false, true);
  event->ID = 99;
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=27"), 2);
}

// ---- children

TEST_F(EventSave, ChangedChildrenAreInsertedBeforeTheEventsRowNotificationFirst) {
  const Ref<CEvent> event = NewEvent();
  event->Notification->BCC = "b";
  event->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Sent(), (Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_BCC,NTF_Type,NTF_Status) VALUES "
                           "(1,'5/1/2024 9:00:00 AM','b',0,0)",
                           "INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,"
                           "REC_Type,REC_EndDate,REC_Day,REC_Month,REC_WeekNumber) VALUES "
                           "(1,1,0,0,0,1,'5/1/2024 9:00:00 AM',0,0,0)",
                           "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_NotificationID,EVE_RecurrenceID,"
                           "EVE_ContactID,EVE_StartDate,EVE_Reminder,EVE_DateLastUpdate,EVE_EndDate,EVE_LinkID) VALUES "
                           "(1,0,0,1,1,0,'5/1/2024 9:00:00 AM',-1,'5/1/2024 9:00:00 AM','5/1/2024 9:00:00 AM',0)"}));
}

TEST_F(EventSave, NewChildrenMakeTheReferencesTakeTheirIdentifiers) {
  SetSequences({{7, 70}});
  SetSequences({{8, 80}});
  const Ref<CEvent> event = EventWithChildren();
  EXPECT_EQ(event->NotificationID, 71);
  EXPECT_EQ(event->RecurrenceID, 81);
}

TEST_F(EventSave, RuleGivenToALoadedEventUpdatesItsRowWithTheNewReference) {
  Run("INSERT INTO Events (EVE_ID,EVE_RecurrenceID) VALUES (51,-1)");
  const Ref<CEvent> event = session->GetEvent(51);
  event->Recurrence->RType = REC_YEARLY;
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(event->RecurrenceID, 1);
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "1");
}

TEST_F(EventSave, ChangeOfAStoredChildAloneLeavesTheEventsRow) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Recurrence->RType = REC_DAILY;
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  Forget();
  ASSERT_TRUE(event->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre(testing::StartsWith("UPDATE Recurrences SET REC_ID=1,")));
  EXPECT_EQ(Stored("SELECT EVE_DateLastUpdate FROM Events"), "5/1/2024 9:00:00 AM");
}

TEST_F(EventSave, UnchangedStoredChildrenLeaveDifferentReferences) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  Forget();
  ExpectUnchangedChildrenToLeaveTheirReferences(*event);
  EXPECT_THAT(Sent(), testing::ElementsAre(testing::StartsWith("UPDATE Events")));
  EXPECT_EQ(Rows("Events WHERE EVE_RecurrenceID=77 AND EVE_NotificationID=78"), 1);
}

TEST_F(EventSave, ChildWithANegativeIdentifierIsInsertedUnderADrawnOne) {
  const Ref<CEvent> event = NewEvent();
  event->Notification->ID = -5;
  event->Notification->Status = NS_SENTOK;
  ASSERT_TRUE(event->Save());
  EXPECT_THAT(Sent().front(), testing::StartsWith("INSERT INTO Notifications"));
  EXPECT_EQ(event->NotificationID, 1);
}

TEST_F(EventSave, SavedChildBringsADifferentReferenceBack) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->RecurrenceID = 77;
  event->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(event->RecurrenceID, 1);
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "1");
}

TEST_F(EventSave, EmptiedNotificationLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Notification->Subject = "";
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Rows("Notifications"), 0);
  EXPECT_EQ(event->NotificationID, -1);
  EXPECT_EQ(Stored("SELECT EVE_NotificationID FROM Events"), "-1");
}

TEST_F(EventSave, EmptiedRuleLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Rows("Recurrences"), 0);
  EXPECT_EQ(event->RecurrenceID, -1);
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "-1");
}

TEST_F(EventSave, EmptiedChildrenAreDeletedByTheirOwnIdentifiersBeforeTheUpdate) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Notification->Subject = "";
  event->Recurrence->RType = REC_EMPTY;
  event->RecurrenceID = 77;
  Forget();
  ASSERT_TRUE(event->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre("DELETE * FROM Notifications WHERE NTF_ID=1",
                                           "DELETE * FROM Recurrences WHERE REC_ID=1",
                                           testing::StartsWith("UPDATE Events SET EVE_ID=1,")));
}

TEST_F(EventSave, EmptiedNotificationKeepsItsIdentifierAndIsDeletedAgain) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Notification->Subject = "";
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(event->Notification->ID, 1);
  Forget();
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Sent(), Texts{"DELETE * FROM Notifications WHERE NTF_ID=1"});
}

TEST_F(EventSave, NotificationThatCannotBeDeletedDoesNotStopTheSave) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Notification->Subject = "";
  Refuse("DELETE * FROM Notifications");
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Stored("SELECT EVE_NotificationID FROM Events"), "-1");
  EXPECT_EQ(Rows("Notifications"), 1);
}

TEST_F(EventSave, ChildThatCannotBeDeletedStaysOnRecordAfterTheSave) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Notification->Subject = "";
  Refuse("DELETE * FROM Notifications");
  EXPECT_TRUE(event->Save());
  EXPECT_TRUE(session->GetErrorFlag());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteNotification] Error: -2147217900 - made to fail");
}

TEST_F(EventSave, RuleThatCannotBeDeletedDoesNotStopTheSave) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Recurrence->RType = REC_EMPTY;
  Refuse("DELETE * FROM Recurrences");
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "-1");
  EXPECT_EQ(Rows("Recurrences"), 1);
}

TEST_F(EventSave, UnchangedNewChildrenCauseNothing) {
  const Ref<CEvent> event = NewEvent();
  event->Text = "a";
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Rows("Notifications") + Rows("Recurrences"), 0);
  EXPECT_EQ(event->NotificationID, 0);
}

TEST_F(EventSave, RuleChangedAndChangedBackBeforeTheFirstSaveIsInsertedAsAnEmptyRule) {
  const Ref<CEvent> event = NewEvent();
  event->Recurrence->RType = REC_DAILY;
  event->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(Stored("SELECT REC_Type FROM Recurrences"), "0");
  EXPECT_EQ(event->RecurrenceID, 1);
}

TEST_F(EventSave, SaveWithoutAChildObjectFails) {
  const Ref<CEvent> event = FullEvent();
  event->Notification.reset();
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_FALSE(session->TransactionStarted());
}

// ---- transactions

TEST_F(EventSave, SaveRunsInATransactionOfItsOwn) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(event->Save());
  EXPECT_THAT(SentInAll(), testing::ElementsAre("BEGIN", testing::StartsWith("INSERT INTO Events"), "COMMIT"));
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(EventSave, SaveWithNothingToWriteStillOpensAndCommitsATransaction) {
  const Ref<CEvent> event = NewEvent();
  ASSERT_TRUE(event->Save());
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "COMMIT"}));
}

TEST_F(EventSave, SaveJoinsARunningTransactionAndDoesNotCommitIt) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(session->BeginTransaction());
  Forget();
  ASSERT_TRUE(event->Save());
  EXPECT_THAT(SentInAll(), testing::ElementsAre(testing::StartsWith("INSERT INTO Events")));
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(EventSave, FailedSaveDoesNotUndoARunningTransaction) {
  const Ref<CEvent> event = FullEvent();
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (99,'the client''s')");
  Refuse("INSERT INTO Events (EVE_ID,EVE_FolderID");
  EXPECT_FALSE(event->Save());
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(EventSave, BeginThatFailsIsRecordedInTheNameOfTheSave) {
  const Ref<CEvent> event = FullEvent();
  Refuse("BEGIN");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Flags(*event), "new modified");
}

TEST_F(EventSave, ClosedConnectionIsRecordedInTheNameOfTheSave) {
  const Ref<CEvent> event = FullEvent();
  connection().Close();
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), 3704);
}

TEST_F(EventSave, CommitThatFailsIsRecordedInTheNameOfTheSaveAndUndone) {
  const Ref<CEvent> event = FullEvent();
  Refuse("COMMIT");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Flags(*event), "new modified");
  EXPECT_EQ(Rows("Events"), 0);
}

}  // namespace
}  // namespace zef::test
