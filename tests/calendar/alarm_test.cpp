#include "calendar/alarm.h"

#include "tests/calendar/alarm_fixture.h"
#include "tests/support/item_expectations.h"

namespace zef::test {
namespace {

const ColumnCases<CAlarm> kColumns = {
    {"ALA_ID", "91", "91", "", [](auto& a) { return Shown(a.ID); }},
    {"ALA_FolderID", "92", "92", "0", [](auto& a) { return Shown(a.FolderID); }},
    {"ALA_CategoryID", "93", "93", "0", [](auto& a) { return Shown(a.CategoryID); }},
    {"ALA_NotificationID", "94", "94", "0", [](auto& a) { return Shown(a.NotificationID); }},
    {"ALA_RecurrenceID", "95", "95", "0", [](auto& a) { return Shown(a.RecurrenceID); }},
    {"ALA_AttachementID", "96", "96", "0", [](auto& a) { return Shown(a.AttachementID); }},
    {"ALA_Text", "'a text'", "a text", "", [](auto& a) { return Shown(a.Text); }},
    {"ALA_StartDate", "'2/29/2024 1:00:00 PM'", "2/29/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& a) { return Shown(a.StartDate); }},
    {"ALA_Reminder", "97", "97", "0", [](auto& a) { return Shown(a.Reminder); }},
    {"ALA_DateLastUpdate", "'2/5/2024 3:00:00 PM'", "2/5/2024 3:00:00 PM", "12:00:00 AM",
     [](auto& a) { return Shown(a.DateLastUpdate); }},
};

const std::vector<Setter<CAlarm>> kSetters = {
    {"FolderID", [](auto& a) { a.FolderID = 5; }, [](auto& a) { a.FolderID = 6; }},
    {"CategoryID", [](auto& a) { a.CategoryID = 5; }, [](auto& a) { a.CategoryID = 6; }},
    {"NotificationID", [](auto& a) { a.NotificationID = 5; }, [](auto& a) { a.NotificationID = 6; }},
    {"RecurrenceID", [](auto& a) { a.RecurrenceID = 5; }, [](auto& a) { a.RecurrenceID = 6; }},
    {"AttachementID", [](auto& a) { a.AttachementID = 5; }, [](auto& a) { a.AttachementID = 6; }},
    {"Text", [](auto& a) { a.Text = "a"; }, [](auto& a) { a.Text = "A"; }},
    {"StartDate", [](auto& a) { a.StartDate = Date(1); }, [](auto& a) { a.StartDate = Date(); }},
    {"Reminder", [](auto& a) { a.Reminder = 5; }, [](auto& a) { a.Reminder = 6; }},
    {"DateLastUpdate", [](auto& a) { a.DateLastUpdate = Date(1); }, [](auto& a) { a.DateLastUpdate = Date(2); }},
};

using AlarmRecord = AlarmTest;

/// The numbers that count for `IsEmpty`.
constexpr Property<std::int32_t> CAlarm::*kNumbers[] = {
    &CAlarm::CategoryID, &CAlarm::RecurrenceID, &CAlarm::NotificationID, &CAlarm::AttachementID, &CAlarm::Reminder};

/// An alarm that carries nothing.
Ref<CAlarm> EmptyAlarm() {
  auto alarm = MakeRef<CAlarm>();
  alarm->StartDate = Date();
  return alarm;
}

// ---- a new alarm

TEST_F(AlarmRecord, NewAlarmIsNewAndModifiedThroughItsNotification) {
  const auto alarm = MakeRef<CAlarm>();
  EXPECT_EQ(Flags(*alarm), "new modified");
  EXPECT_EQ(Flags(*alarm->Notification), "new modified");
  alarm->Notification->ResetFlagsX(false, false);
  EXPECT_EQ(Flags(*alarm), "new clear");
}

TEST_F(AlarmRecord, NewAlarmStartsAtTheMomentOfItsCreation) { EXPECT_EQ(MakeRef<CAlarm>()->StartDate, now_); }

TEST_F(AlarmRecord, NotificationOfANewAlarmIsUnsentAndOfAlarmsAtTheStart) {
  const auto alarm = MakeRef<CAlarm>();
  EXPECT_EQ(alarm->Notification->NType, NT_ALARMS);
  EXPECT_EQ(alarm->Notification->Status, NS_NOTSENT);
  EXPECT_EQ(alarm->Notification->SendingDate, alarm->StartDate.get());
  EXPECT_TRUE(alarm->Notification->IsEmpty());
}

TEST_F(AlarmRecord, NotificationOfANewAlarmIsDatedFromTheAlarmsStart) {
  int days = 0;
  const ClockOverride moving([&] { return AddDays(now_, ++days); });
  const auto alarm = MakeRef<CAlarm>();
  EXPECT_EQ(alarm->Notification->SendingDate, alarm->StartDate.get());
}

TEST_F(AlarmRecord, NewAlarmHasZeroOrNothingInEverythingElse) {
  const auto alarm = MakeRef<CAlarm>();
  EXPECT_EQ(alarm->ID + alarm->FolderID + alarm->CategoryID + alarm->Reminder, 0);
  EXPECT_EQ(alarm->NotificationID + alarm->RecurrenceID + alarm->AttachementID, 0);
  EXPECT_EQ(alarm->Text, "");
  EXPECT_EQ(alarm->DateLastUpdate, Date());
  EXPECT_TRUE(alarm->Attachement->IsEmpty());
  EXPECT_TRUE(alarm->Recurrence->IsEmpty());
}

TEST_F(AlarmRecord, NewStartDateDoesNotReachTheNotification) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->StartDate = On("6/1/2024");
  EXPECT_EQ(alarm->Notification->SendingDate, now_);
}

// ---- IsEmpty

TEST_F(AlarmRecord, NewAlarmIsNotEmptyForItsStartDate) { EXPECT_FALSE(MakeRef<CAlarm>()->IsEmpty()); }

TEST_F(AlarmRecord, AlarmWithAFolderAndNothingElseIsEmpty) {
  const Ref<CAlarm> alarm = EmptyAlarm();
  alarm->FolderID = 7;
  EXPECT_TRUE(alarm->IsEmpty());
}

TEST_F(AlarmRecord, NumbersBelowOneDoNotKeepAnAlarmFromBeingEmpty) {
  for (const auto number : kNumbers) {
    const Ref<CAlarm> alarm = EmptyAlarm();
    (*alarm).*number = -1;
    EXPECT_TRUE(alarm->IsEmpty());
  }
}

TEST_F(AlarmRecord, AnyOneNumberAboveZeroMakesAnAlarmNotEmpty) {
  for (const auto number : kNumbers) {
    const Ref<CAlarm> alarm = EmptyAlarm();
    (*alarm).*number = 1;
    EXPECT_FALSE(alarm->IsEmpty());
  }
}

TEST_F(AlarmRecord, TextMakesAnAlarmNotEmpty) {
  const Ref<CAlarm> alarm = EmptyAlarm();
  alarm->Text = "x";
  EXPECT_FALSE(alarm->IsEmpty());
}

// ---- flags and children

TEST_F(AlarmRecord, EverySetterMarksOnlyAChange) {
  for (const Setter<CAlarm>& setter : kSetters) ExpectMarksOnlyChanges(*MakeRef<CAlarm>(), setter);
}

TEST_F(AlarmRecord, SettingTheSessionReachesAllChildren) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->SetSession(session);
  EXPECT_EQ(alarm->Session(), session);
  EXPECT_EQ(alarm->Attachement->Session(), session);
  EXPECT_EQ(alarm->Notification->Session(), session);
  EXPECT_EQ(alarm->Recurrence->Session(), session);
}

TEST_F(AlarmRecord, ReplacingAnAttachementChangesNoFlag) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Attachement = MakeRef<CAttachement>();
  EXPECT_EQ(Flags(*alarm), "old clear");
}

TEST_F(AlarmRecord, ChangeOfAnyChildMakesTheAlarmModified) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Attachement->Name = "b";
  EXPECT_TRUE(alarm->IsModified());
  alarm->ResetFlagsX(false, false);
  alarm->Notification->Subject = "b";
  EXPECT_TRUE(alarm->IsModified());
  alarm->ResetFlagsX(false, false);
  alarm->Recurrence->RType = REC_DAILY;
  EXPECT_TRUE(alarm->IsModified());
}

TEST_F(AlarmRecord, AlarmWithoutChildrenCanBeAskedWhetherItIsModified) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->Attachement.reset();
  alarm->Notification.reset();
  alarm->Recurrence.reset();
  EXPECT_FALSE(alarm->IsModified());
}

TEST_F(AlarmRecord, SessionReachesTheNotificationBeforeAMissingRule) {
  ExpectSessionToReachTheNotificationBeforeTheRule<CAlarm>(session);
}

TEST_F(AlarmRecord, SessionReachesTheAttachementBeforeAMissingNotificationAndNotTheRule) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->Notification.reset();
  EXPECT_EQ(NumberRaised([&] { alarm->SetSession(session); }), 91);
  EXPECT_EQ(alarm->Attachement->Session(), session);
  EXPECT_FALSE(alarm->Recurrence->Session());
}

TEST_F(AlarmRecord, ResetFlagsReachesTheRuleBeforeAMissingNotification) {
  ExpectFlagsToReachTheRuleBeforeTheNotification<CAlarm>();
}

TEST_F(AlarmRecord, ResetFlagsReachesTheAttachementBeforeAMissingRule) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->Recurrence.reset();
  EXPECT_EQ(NumberRaised([&] { alarm->ResetFlags(); }), 91);
  EXPECT_EQ(Flags(*alarm->Attachement), "new modified");
}

TEST_F(AlarmRecord, ResetFlagsReachesAllChildren) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->ResetFlags();
  EXPECT_EQ(Flags(*alarm), "new modified");
  EXPECT_EQ(Flags(*alarm->Attachement), "new modified");
  EXPECT_EQ(Flags(*alarm->Recurrence), "new modified");
  EXPECT_EQ(Flags(*alarm->Notification), "new modified");
}

TEST_F(AlarmRecord, ResetFlagsXReachesAllChildren) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->ResetFlagsX(false, false);
  EXPECT_EQ(Flags(*alarm), "old clear");
  EXPECT_EQ(Flags(*alarm->Attachement), "old clear");
}

// ---- reading

TEST_F(AlarmRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Alarms", kColumns));
  ExpectAllValues(*session->GetAlarm(91), kColumns);
}

TEST_F(AlarmRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO Alarms (ALA_ID) VALUES (91)");
  ExpectAllNullValues(*session->GetAlarm(91), kColumns);
}

TEST_F(AlarmRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Alarms", kColumns));
  ExpectReadInOrder(connection(), "Alarms", kColumns, [this] {
    auto alarm = MakeRef<CAlarm>();
    alarm->SetSession(session);
    return alarm;
  });
}

TEST_F(AlarmRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Alarms (ALA_ID) VALUES (91)");
  const Ref<Recordset> rs = Run("SELECT Null AS ALA_ID," + ColumnList(kColumns, "ALA_ID") + " FROM Alarms");
  EXPECT_EQ(NumberRaised([&] { NewAlarm()->GetValuesFromRS(rs); }), 94);
}

TEST_F(AlarmRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Alarms")));
  EXPECT_THAT(ColumnsWritten(*NewAlarm(), "ALA_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Alarms")));
}

TEST_F(AlarmRecord, ChildrenAreReadByTheReferencesAttachementNotificationRule) {
  Run(InsertOfAll("Alarms", kColumns));
  session->GetAlarm(91);
  EXPECT_EQ(SentInAll(),
            (Texts{"SELECT * FROM Alarms WHERE ALA_ID=91", "SELECT * FROM Attachements WHERE ATC_ID=96",
                   "SELECT * FROM Notifications WHERE NTF_ID=94", "SELECT * FROM Recurrences WHERE REC_ID=95"}));
}

TEST_F(AlarmRecord, ReferencesBelowOneAreNotLookedUp) {
  Run("INSERT INTO Alarms (ALA_ID,ALA_AttachementID,ALA_NotificationID) VALUES (91,-1,0)");
  session->GetAlarm(91);
  EXPECT_EQ(SentInAll().size(), 1u);
}

TEST_F(AlarmRecord, LoadedChildrenHoldTheirRowsAndClearFlags) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  EXPECT_EQ(alarm->Attachement->Name, "score");
  EXPECT_EQ(alarm->Notification->Subject, "Sing");
  EXPECT_EQ(alarm->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(Flags(*alarm), "old clear");
}

TEST_F(AlarmRecord, AlarmReadWithoutANotificationIsModifiedThroughTheFreshOne) {
  Run("INSERT INTO Alarms (ALA_ID,ALA_NotificationID) VALUES (91,-1)");
  EXPECT_EQ(Flags(*session->GetAlarm(91)), "old modified");
}

TEST_F(AlarmRecord, ReferenceWithoutARowLeavesTheFreshModifiedNotification) {
  Run("INSERT INTO Alarms (ALA_ID,ALA_NotificationID) VALUES (91,55)");
  const Ref<CAlarm> alarm = session->GetAlarm(91);
  EXPECT_EQ(alarm->NotificationID, 55);
  EXPECT_EQ(Flags(*alarm->Notification), "new modified");
}

// ---- Refresh

TEST_F(AlarmRecord, RefreshTakesTheRowsValues) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  Run("UPDATE Alarms SET ALA_Text='new'");
  ASSERT_TRUE(alarm->Refresh());
  EXPECT_EQ(SentInAll().front(), "SELECT * FROM Alarms WHERE ALA_ID=1");
  EXPECT_EQ(alarm->Text, "new");
}

TEST_F(AlarmRecord, RefreshOfADeletedAlarmRecords100AndLeavesTheAlarm) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  Run("DELETE * FROM Alarms");
  EXPECT_FALSE(alarm->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CAlarm.Refresh] Error: 100 - No alarm found");
  EXPECT_EQ(alarm->Text, "Choir");
}

TEST_F(AlarmRecord, RefreshThatFailsIsRecorded) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  Refuse("SELECT * FROM Alarms");
  EXPECT_FALSE(alarm->Refresh());
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.Refresh");
}

TEST_F(AlarmRecord, RefreshThatFailsAtAChildLeavesTheFlags) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  alarm->Text = "b";
  Refuse("SELECT * FROM Recurrences");
  EXPECT_FALSE(alarm->Refresh());
  EXPECT_EQ(Flags(*alarm), "old modified");
}

TEST_F(AlarmRecord, RefreshThatFindsNoReferenceLeavesTheOldAttachement) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  Run("UPDATE Alarms SET ALA_AttachementID=-1");
  ASSERT_TRUE(alarm->Refresh());
  EXPECT_EQ(alarm->AttachementID, -1);
  EXPECT_EQ(alarm->Attachement->Name, "score");
}

TEST_F(AlarmRecord, RefreshDoesNotClearAnOldError) {
  const Ref<CAlarm> alarm = LoadedAlarm();
  LeaveAnOldError();
  ASSERT_TRUE(alarm->Refresh());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(AlarmRecord, FieldsHaveFifteenRowsThreeColumnsAndAreEmptyBehindTheLast) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(NewAlarm()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 15);
  EXPECT_EQ(fields.LastRow(), 15);
  EXPECT_EQ(fields.LastColumn(), 2);
  EXPECT_EQ(fields(8, 0), "ALA_DateLastUpdate");
  EXPECT_EQ(fields(9, 0), "");
}

TEST_F(AlarmRecord, FieldsOfADateOutOfRangeAreRecorded) {
  const Ref<CAlarm> alarm = NewAlarm();
  alarm->StartDate = Date(3e6);
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_FALSE(alarm->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.GetFieldsArray");
}

// ---- seen by users

TEST_F(AlarmRecord, MarkedOccurrenceIsNotToBeShown) {
  session->UserID = 3;
  const Ref<CAlarm> alarm = NewAlarm();
  bool show = false;
  ASSERT_TRUE(alarm->SeenByUser(now_, show));
  EXPECT_TRUE(show);
  ASSERT_TRUE(alarm->MarkSeenByUser(now_));
  ASSERT_TRUE(alarm->SeenByUser(now_, show));
  EXPECT_FALSE(show);
}

TEST_F(AlarmRecord, SeenTrackingSendsItsTwoStatements) {
  session->UserID = 3;
  const Ref<CAlarm> alarm = NewAlarm();
  bool show = false;
  ASSERT_TRUE(alarm->SeenByUser(now_, show));
  ASSERT_TRUE(alarm->MarkSeenByUser(now_));
  EXPECT_EQ(SentInAll(), (Texts{"SELECT * FROM ViewedAlarms WHERE VA_AlarmID=1 AND VA_UserID=3",
                                "INSERT INTO ViewedAlarms (VA_AlarmID,VA_UserID,VA_Date) VALUES "
                                "(1,3,'5/1/2024 9:00:00 AM')"}));
}

TEST_F(AlarmRecord, SeenTrackingThatFailsIsRecorded) {
  const Ref<CAlarm> alarm = NewAlarm();
  bool show = false;
  Refuse("SELECT * FROM ViewedAlarms");
  EXPECT_FALSE(alarm->SeenByUser(now_, show));
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.SeenByUser");
  Refuse("INSERT INTO ViewedAlarms");
  EXPECT_FALSE(alarm->MarkSeenByUser(now_));
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.MarkSeenByUser");
}

}  // namespace
}  // namespace zef::test
