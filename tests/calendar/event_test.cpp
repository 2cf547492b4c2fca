#include "calendar/event.h"

#include "tests/calendar/event_fixture.h"
#include "tests/support/item_expectations.h"

namespace zef::test {
namespace {

const ColumnCases<CEvent> kColumns = {
    {"EVE_ID", "51", "51", "", [](auto& e) { return Shown(e.ID); }},
    {"EVE_FolderID", "52", "52", "0", [](auto& e) { return Shown(e.FolderID); }},
    {"EVE_CategoryID", "53", "53", "0", [](auto& e) { return Shown(e.CategoryID); }},
    {"EVE_NotificationID", "54", "54", "0", [](auto& e) { return Shown(e.NotificationID); }},
    {"EVE_RecurrenceID", "55", "55", "0", [](auto& e) { return Shown(e.RecurrenceID); }},
    {"EVE_ContactID", "56", "56", "0", [](auto& e) { return Shown(e.ContactID); }},
    {"EVE_Text", "'a text'", "a text", "", [](auto& e) { return Shown(e.Text); }},
    {"EVE_Location", "'a place'", "a place", "", [](auto& e) { return Shown(e.Location); }},
    {"EVE_StartDate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& e) { return Shown(e.StartDate); }},
    {"EVE_EndDate", "'2/4/2024 2:00:00 PM'", "2/4/2024 2:00:00 PM", "12:00:00 AM",
     [](auto& e) { return Shown(e.EndDate); }},
    {"EVE_Reminder", "57", "57", "0", [](auto& e) { return Shown(e.Reminder); }},
    {"EVE_DateLastUpdate", "'2/5/2024 3:00:00 PM'", "2/5/2024 3:00:00 PM", "12:00:00 AM",
     [](auto& e) { return Shown(e.DateLastUpdate); }},
    {"EVE_Type", "'B'", "B", "E", [](auto& e) { return Shown(e.EType); }},
    {"EVE_LinkID", "58", "58", "-1", [](auto& e) { return Shown(e.LinkID); }},
};

const std::vector<Setter<CEvent>> kSetters = {
    {"FolderID", [](auto& e) { e.FolderID = 5; }, [](auto& e) { e.FolderID = 6; }},
    {"LinkID", [](auto& e) { e.LinkID = 5; }, [](auto& e) { e.LinkID = 6; }},
    {"ContactID", [](auto& e) { e.ContactID = 5; }, [](auto& e) { e.ContactID = 6; }},
    {"CategoryID", [](auto& e) { e.CategoryID = 5; }, [](auto& e) { e.CategoryID = 6; }},
    {"NotificationID", [](auto& e) { e.NotificationID = 5; }, [](auto& e) { e.NotificationID = 6; }},
    {"RecurrenceID", [](auto& e) { e.RecurrenceID = 5; }, [](auto& e) { e.RecurrenceID = 6; }},
    {"Text", [](auto& e) { e.Text = "a"; }, [](auto& e) { e.Text = "A"; }},
    {"EType", [](auto& e) { e.EType = "e"; }, [](auto& e) { e.EType = "E"; }},
    {"Location", [](auto& e) { e.Location = "a"; }, [](auto& e) { e.Location = "A"; }},
    {"StartDate", [](auto& e) { e.StartDate = Date(1); }, [](auto& e) { e.StartDate = Date(); }},
    {"EndDate", [](auto& e) { e.EndDate = Date(1); }, [](auto& e) { e.EndDate = Date(); }},
    {"Reminder", [](auto& e) { e.Reminder = 5; }, [](auto& e) { e.Reminder = 6; }},
    {"DateLastUpdate", [](auto& e) { e.DateLastUpdate = Date(1); }, [](auto& e) { e.DateLastUpdate = Date(2); }},
};

using EventRecord = EventTest;

// ---- a new event

TEST_F(EventRecord, NewEventHasNoReminder) { EXPECT_EQ(MakeRef<CEvent>()->Reminder, -1); }

TEST_F(EventRecord, NewEventStartsAndEndsAtTheMomentOfItsCreation) {
  const auto event = MakeRef<CEvent>();
  EXPECT_EQ(event->StartDate, now_);
  EXPECT_EQ(event->EndDate, now_);
}

TEST_F(EventRecord, NewEventEndsAtTheVeryMomentItStarts) {
  int days = 0;
  const ClockOverride moving([&] { return AddDays(now_, ++days); });
  const auto event = MakeRef<CEvent>();
  EXPECT_EQ(event->EndDate, event->StartDate.get());
}

TEST_F(EventRecord, NewEventHasNeitherTypeNorLink) {
  const auto event = MakeRef<CEvent>();
  EXPECT_EQ(event->EType, "");
  EXPECT_EQ(event->LinkID, 0);
}

TEST_F(EventRecord, NewEventHasZeroOrNothingInEverythingElse) {
  const auto event = MakeRef<CEvent>();
  EXPECT_EQ(event->ID, 0);
  EXPECT_EQ(event->FolderID, 0);
  EXPECT_EQ(event->CategoryID, 0);
  EXPECT_EQ(event->NotificationID, 0);
  EXPECT_EQ(event->RecurrenceID, 0);
  EXPECT_EQ(event->ContactID, 0);
  EXPECT_EQ(event->Text.get() + event->Location.get(), "");
  EXPECT_EQ(event->DateLastUpdate, Date());
  EXPECT_EQ(event->DisplayCol + event->DisplayRow1 + event->DisplayRow2, 0);
}

TEST_F(EventRecord, NewEventIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CEvent>()), "new clear"); }

TEST_F(EventRecord, NewEventHasBothChildrenAndTheyAreEmpty) {
  const auto event = MakeRef<CEvent>();
  ASSERT_TRUE(event->Notification && event->Recurrence);
  EXPECT_TRUE(event->Notification->IsEmpty());
  EXPECT_TRUE(event->Recurrence->IsEmpty());
}

TEST_F(EventRecord, EventsDoNotShareTheirChildren) {
  const auto one = MakeRef<CEvent>();
  const auto other = MakeRef<CEvent>();
  EXPECT_NE(one->Notification, other->Notification);
  EXPECT_NE(one->Recurrence, other->Recurrence);
}

TEST_F(EventRecord, IsEmptyIsFalseEvenForANewEvent) { EXPECT_FALSE(MakeRef<CEvent>()->IsEmpty()); }

TEST_F(EventRecord, IsEmptyIsFalseForAFullEvent) { EXPECT_FALSE(FullEvent()->IsEmpty()); }

// ---- properties and children

TEST_F(EventRecord, EverySetterMarksOnlyAChange) {
  const auto event = MakeRef<CEvent>();
  for (const Setter<CEvent>& setter : kSetters) ExpectMarksOnlyChanges(*event, setter);
}

TEST_F(EventRecord, IdentifierAndScratchFieldsDoNotMarkTheEvent) {
  const auto event = MakeRef<CEvent>();
  event->ID = event->DisplayCol = event->DisplayRow1 = event->DisplayRow2 = 5;
  EXPECT_FALSE(event->IsModified());
}

TEST_F(EventRecord, SettingTheSessionReachesBothChildren) {
  const auto event = MakeRef<CEvent>();
  event->SetSession(session);
  EXPECT_EQ(event->Session(), session);
  EXPECT_EQ(event->Notification->Session(), session);
  EXPECT_EQ(event->Recurrence->Session(), session);
}

TEST_F(EventRecord, ReplacingAChildChangesNoFlag) {
  const Ref<CEvent> event = EventWithChildren();
  event->Recurrence = MakeRef<CRecurrence>();
  event->Notification = MakeRef<CNotification>();
  EXPECT_EQ(Flags(*event), "old clear");
}

TEST_F(EventRecord, ChangedNotificationMakesTheEventModified) {
  const Ref<CEvent> event = EventWithChildren();
  event->Notification->Subject = "Sing louder";
  EXPECT_EQ(Flags(*event), "old modified");
}

TEST_F(EventRecord, ChangedRuleMakesTheEventModified) {
  const Ref<CEvent> event = EventWithChildren();
  event->Recurrence->RType = REC_DAILY;
  EXPECT_EQ(Flags(*event), "old modified");
}

TEST_F(EventRecord, EventWithoutChildrenCanBeAskedWhetherItIsModified) {
  const auto event = MakeRef<CEvent>();
  event->Notification.reset();
  event->Recurrence.reset();
  EXPECT_FALSE(event->IsModified());
}

TEST_F(EventRecord, SessionReachesTheNotificationBeforeAMissingRule) {
  ExpectSessionToReachTheNotificationBeforeTheRule<CEvent>(session);
}

TEST_F(EventRecord, ResetFlagsReachesTheRuleBeforeAMissingNotification) {
  ExpectFlagsToReachTheRuleBeforeTheNotification<CEvent>();
}

TEST_F(EventRecord, ResetFlagsReachesBothChildren) {
  const Ref<CEvent> event = EventWithChildren();
  event->ResetFlags();
  EXPECT_EQ(Flags(*event), "new modified");
  EXPECT_EQ(Flags(*event->Recurrence), "new modified");
  EXPECT_EQ(Flags(*event->Notification), "new modified");
}

TEST_F(EventRecord, ResetFlagsXReachesBothChildren) {
  const Ref<CEvent> event = NewEvent();
  event->Recurrence->RType = REC_DAILY;
  event->ResetFlagsX(false, true);
  EXPECT_EQ(Flags(*event), "new clear");
  EXPECT_EQ(Flags(*event->Recurrence), "new clear");
  event->ResetFlagsX(true, false);
  EXPECT_EQ(Flags(*event), "old modified");
  EXPECT_EQ(Flags(*event->Notification), "old modified");
}

// ---- reading a row

TEST_F(EventRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Events", kColumns));
  ExpectAllValues(*session->GetEvent(51), kColumns);
}

TEST_F(EventRecord, NullTypeReadsAsEAndNullLinkAsMinusOneAndOtherNullsAsEmptyOrZero) {
  Run("INSERT INTO Events (EVE_ID) VALUES (51)");
  ExpectAllNullValues(*session->GetEvent(51), kColumns);
}

TEST_F(EventRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Events", kColumns));
  ExpectReadInOrder(connection(), "Events", kColumns, [this] {
    auto event = MakeRef<CEvent>();
    event->SetSession(session);
    return event;
  });
}

TEST_F(EventRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Events (EVE_ID) VALUES (51)");
  const Ref<Recordset> rs = Run("SELECT Null AS EVE_ID," + ColumnList(kColumns, "EVE_ID") + " FROM Events");
  EXPECT_EQ(NumberRaised([&] { NewEvent()->GetValuesFromRS(rs); }), 94);
}

TEST_F(EventRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Events")));
  EXPECT_THAT(ColumnsWritten(*NewEvent(), "EVE_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Events")));
}

TEST_F(EventRecord, ReadingClearsTheOwnFlags) {
  Run(InsertOfAll("Events", kColumns));
  EXPECT_EQ(Flags(*session->GetEvent(51)), "old clear");
}

TEST_F(EventRecord, ChildrenAreReadByTheReferencesNotificationFirst) {
  Run("INSERT INTO Events (EVE_ID,EVE_NotificationID,EVE_RecurrenceID) VALUES (51,54,55)");
  session->GetEvent(51);
  EXPECT_EQ(Sent(), (Texts{"SELECT * FROM Events WHERE EVE_ID=51", "SELECT * FROM Notifications WHERE NTF_ID=54",
                           "SELECT * FROM Recurrences WHERE REC_ID=55"}));
}

TEST_F(EventRecord, ReferencesBelowOneAreNotLookedUp) {
  Run("INSERT INTO Events (EVE_ID,EVE_NotificationID,EVE_RecurrenceID) VALUES (51,0,-1)");
  session->GetEvent(51);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Events WHERE EVE_ID=51"});
}

TEST_F(EventRecord, LoadedChildrenHoldTheirRows) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  EXPECT_EQ(event->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(event->Recurrence->ID, 1);
  EXPECT_EQ(event->Notification->Subject, "Sing");
  EXPECT_EQ(event->Notification->ID, 1);
}

TEST_F(EventRecord, ReferenceWithoutARowLeavesAFreshChild) {
  Run("INSERT INTO Events (EVE_ID,EVE_NotificationID,EVE_RecurrenceID) VALUES (51,54,55)");
  const Ref<CEvent> event = session->GetEvent(51);
  EXPECT_EQ(event->RecurrenceID, 55);
  EXPECT_EQ(Flags(*event->Recurrence), "new clear");
  EXPECT_EQ(Flags(*event->Notification), "new clear");
}

// ---- refreshing

TEST_F(EventRecord, RefreshSendsTheSelectOfOneEvent) {
  const Ref<CEvent> event = NewEvent();
  event->Text = "a";
  ASSERT_TRUE(event->Save());
  Forget();
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Events WHERE EVE_ID=1"});
}

TEST_F(EventRecord, RefreshTakesTheRowsValues) {
  const Ref<CEvent> event = EventWithChildren();
  Run("UPDATE Events SET EVE_Text='Orchestra'");
  Run("UPDATE Recurrences SET REC_Type=1");
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(event->Text, "Orchestra");
  EXPECT_EQ(event->Recurrence->RType, REC_DAILY);
}

TEST_F(EventRecord, RefreshThatFindsNoReferenceLeavesTheOldChild) {
  const Ref<CEvent> event = EventWithChildren();
  Run("UPDATE Events SET EVE_RecurrenceID=-1,EVE_NotificationID=0");
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(event->RecurrenceID, -1);
  EXPECT_EQ(event->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(event->Notification->Subject, "Sing");
}

TEST_F(EventRecord, RefreshThatFindsTheChildsRowGoneLeavesTheOldChild) {
  const Ref<CEvent> event = EventWithChildren();
  Run("DELETE * FROM Recurrences");
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(event->Recurrence->RType, REC_WEEKLY);
}

TEST_F(EventRecord, RefreshOfADeletedEventRecords103) {
  const Ref<CEvent> event = EventWithChildren();
  Run("DELETE * FROM Events");
  EXPECT_FALSE(event->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Refresh] Error: 103 - No event found");
}

TEST_F(EventRecord, RefreshOfADeletedEventLeavesTheEvent) {
  const Ref<CEvent> event = EventWithChildren();
  event->Text = "changed";
  Run("DELETE * FROM Events");
  EXPECT_FALSE(event->Refresh());
  EXPECT_EQ(event->Text, "changed");
  EXPECT_EQ(Flags(*event), "old modified");
}

TEST_F(EventRecord, RefreshThatFailsIsRecorded) {
  const Ref<CEvent> event = EventWithChildren();
  Refuse("SELECT");
  EXPECT_FALSE(event->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Refresh] Error: -2147217900 - made to fail");
}

TEST_F(EventRecord, RefreshThatFailsAtAChildIsRecorded) {
  const Ref<CEvent> event = EventWithChildren();
  Refuse("SELECT * FROM Recurrences");
  EXPECT_FALSE(event->Refresh());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Refresh");
}

TEST_F(EventRecord, RefreshThatFailsAtAChildLeavesTheFlags) {
  const Ref<CEvent> event = EventWithChildren();
  event->Text = "b";
  Refuse("SELECT * FROM Recurrences");
  EXPECT_FALSE(event->Refresh());
  EXPECT_EQ(Flags(*event), "old modified");
}

TEST_F(EventRecord, RefreshDoesNotClearAnOldError) {
  const Ref<CEvent> event = EventWithChildren();
  LeaveAnOldError();
  EXPECT_TRUE(event->Refresh());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- cloning

TEST_F(EventRecord, CloneWithoutATargetGivesANewObjectWithTheSameIdentifierAndFlags) {
  const Ref<CEvent> event = EventWithChildren();
  const Ref<CEvent> clone = event->Clone();
  EXPECT_NE(clone, event);
  EXPECT_EQ(clone->ID, event->ID);
  EXPECT_EQ(Flags(*clone), "old clear");
}

TEST_F(EventRecord, CloneOfANewEventIsNew) { EXPECT_EQ(Flags(*NewEvent()->Clone()), "new clear"); }

TEST_F(EventRecord, CloneCopiesEveryColumn) {
  Run(InsertOfAll("Events", kColumns));
  ExpectAllValues(*session->GetEvent(51)->Clone(), kColumns);
}

TEST_F(EventRecord, CloneCopiesTheSession) { EXPECT_EQ(NewEvent()->Clone()->Session(), session); }

TEST_F(EventRecord, CloneFillsAndReturnsAGivenTarget) {
  const auto target = MakeRef<CEvent>();
  EXPECT_EQ(FullEvent()->Clone(target), target);
  EXPECT_EQ(target->Text, "Dinner at O'Neill's");
}

TEST_F(EventRecord, CloneCarriesTheOwnFlagAndNotTheChildrens) {
  const Ref<CEvent> event = EventWithChildren();
  event->Recurrence->RType = REC_DAILY;
  EXPECT_EQ(Flags(*event->Clone()), "old clear");
}

TEST_F(EventRecord, CloneResetsTheFlagsOfTheTargetsChildrenToo) {
  const Ref<CEvent> clone = FullEvent()->Clone();
  EXPECT_EQ(Flags(*clone->Recurrence), "new modified");
}

TEST_F(EventRecord, CloneKeepsTheTargetsChildren) {
  const auto target = MakeRef<CEvent>();
  const Ref<CRecurrence> rule = target->Recurrence;
  EventWithChildren()->Clone(target);
  EXPECT_EQ(target->Recurrence, rule);
  EXPECT_EQ(target->Recurrence->RType, REC_EMPTY);
  EXPECT_EQ(target->RecurrenceID, 1);
}

TEST_F(EventRecord, CloneLeavesTheScratchFields) {
  const Ref<CEvent> event = NewEvent();
  event->DisplayCol = 7;
  EXPECT_EQ(event->Clone()->DisplayCol, 0);
}

TEST_F(EventRecord, CloneIntoATargetWithoutChildrenEndsSilentlyWithWhatWasCopied) {
  const auto target = MakeRef<CEvent>();
  target->Recurrence.reset();
  session->ClearError();
  EXPECT_EQ(FullEvent()->Clone(target), target);
  EXPECT_EQ(target->Reminder, 26);
  EXPECT_EQ(target->StartDate, now_) << "which the target had from the start";
  EXPECT_EQ(target->Text.get() + target->EType.get(), "");
  EXPECT_EQ(target->LinkID, 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(EventRecord, CloneThatFailsLeavesTheTargetsFlags) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  const auto target = MakeRef<CEvent>();
  target->Recurrence.reset();
  event->Clone(target);
  EXPECT_EQ(Flags(*target), "new modified");
}

// ---- the fields

TEST_F(EventRecord, FieldsHaveFifteenRowsThreeColumnsAndAreEmptyBehindTheLast) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullEvent()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 15);
  EXPECT_EQ(fields.LastRow(), 15);
  EXPECT_EQ(fields.LastColumn(), 2);
  EXPECT_EQ(fields(12, 0), "EVE_LinkID");
  for (std::int32_t row = 13; row <= 15; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(EventRecord, FieldsOfADateOutOfRangeAreRecordedAndFilledUpToIt) {
  const Ref<CEvent> event = FullEvent();
  event->StartDate = Date(3e6);
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_FALSE(event->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.GetFieldsArray");
  EXPECT_EQ(fields(5, 0), "EVE_Text");
}

}  // namespace
}  // namespace zef::test
