#include "session/collections.h"
#include "tests/calendar/event_fixture.h"
#include "tests/support/collection_with_one.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/item_expectations.h"

namespace zef::test {
namespace {

constexpr char kRefusal[] = "You don't have rights to insert/edit data";

class EventOperations : public EventTest {
 protected:
  /// The texts of the events in a collection, in its order.
  static Texts TextsOf(const Ref<CEvents>& events) {
    Texts texts;
    for (const Ref<CEvent>& event : *events) texts.push_back(event->Text);
    return texts;
  }
  /// Rows with the texts b, A and c in folder 5, and z in folder 6.
  void InsertFour() {
    Run("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (1,5,'b')");
    Run("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (2,6,'z')");
    Run("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (3,5,'A')");
    Run("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (4,5,'c')");
  }
  std::string SequenceValue(int sequence) {
    return Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=" + std::to_string(sequence));
  }
};

// ---- GetEvent

TEST_F(EventOperations, GetEventWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetEvent(51));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(EventOperations, GetEventGivesTheEventAndItsChildrenTheSession) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  EXPECT_EQ(event->Session(), session);
  EXPECT_EQ(event->Recurrence->Session(), session);
}

TEST_F(EventOperations, GetEventThatFailsIsRecorded) {
  Refuse("SELECT * FROM Events");
  EXPECT_FALSE(session->GetEvent(51));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetEvent] Error: -2147217900 - made to fail");
}

TEST_F(EventOperations, GetEventThatFailsAtAChildGivesNothing) {
  const std::int32_t id = EventWithChildren()->ID;
  Refuse("SELECT * FROM Recurrences");
  EXPECT_FALSE(session->GetEvent(id));
  EXPECT_EQ(session->GetErrorProcedure(), "GetEvent");
}

// ---- LoadEventsWithCriteria

TEST_F(EventOperations, LoadingWithoutCriteriaSelectsTheWholeTable) {
  InsertFour();
  const auto events = Loaded(&CSession::LoadEventsWithCriteria, "");
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Events"});
  EXPECT_EQ(events->Count(), 4);
}

TEST_F(EventOperations, CriteriaStandInTheStatementAsTheyCome) {
  InsertFour();
  const auto events = Loaded(&CSession::LoadEventsWithCriteria, "EVE_ID>2 ORDER BY EVE_ID DESC");
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Events WHERE EVE_ID>2 ORDER BY EVE_ID DESC"});
  EXPECT_EQ(TextsOf(events), (Texts{"c", "A"}));
}

TEST_F(EventOperations, LoadingFetchesTheChildrenOfEachEvent) {
  EventWithChildren();
  const auto events = Loaded(&CSession::LoadEventsWithCriteria, "");
  EXPECT_EQ(Sent(), (Texts{"SELECT * FROM Events", "SELECT * FROM Notifications WHERE NTF_ID=1",
                           "SELECT * FROM Recurrences WHERE REC_ID=1"}));
  EXPECT_EQ(events->ItemByIdx(1)->Recurrence->RType, REC_WEEKLY);
}

TEST_F(EventOperations, LoadedEventsHaveTheSessionAndClearFlags) {
  InsertFour();
  const auto events = Loaded(&CSession::LoadEventsWithCriteria, "");
  EXPECT_EQ(events->ItemByIdx(1)->Session(), session);
  EXPECT_EQ(Flags(*events->ItemByIdx(1)), "old clear");
}

TEST_F(EventOperations, LoadingEmptiesTheCollectionFirst) {
  const Ref<CEvents> events = CollectionWithOne(&CEvent::Text);
  EXPECT_TRUE(session->LoadEventsWithCriteria(events, ""));
  EXPECT_EQ(events->Count(), 0);
}

TEST_F(EventOperations, LoadingThatCannotOpenLeavesTheCollection) {
  const Ref<CEvents> events = CollectionWithOne(&CEvent::Text);
  EXPECT_FALSE(session->LoadEventsWithCriteria(events, "no such column = 1"));
  EXPECT_EQ(TextsOf(events), Texts{"from before"});
  EXPECT_EQ(session->GetErrorProcedure(), "LoadEventsWithCriteria");
}

TEST_F(EventOperations, LoadingThatFailsOnTheWayKeepsWhatWasAdded) {
  InsertFour();
  Run("UPDATE Events SET EVE_RecurrenceID=55 WHERE EVE_ID=3");
  Refuse("SELECT * FROM Recurrences");
  const auto events = MakeRef<CEvents>();
  EXPECT_FALSE(session->LoadEventsWithCriteria(events, "EVE_ID>0 ORDER BY EVE_ID"));
  EXPECT_EQ(TextsOf(events), (Texts{"b", "z"}));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[LoadEventsWithCriteria] Error: -2147217900 - made to fail");
}

TEST_F(EventOperations, LoadingClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->LoadEventsWithCriteria(MakeRef<CEvents>(), ""));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(EventOperations, LoadingIntoNothingIsRecorded) {
  EXPECT_FALSE(session->LoadEventsWithCriteria(nullptr, ""));
  EXPECT_EQ(session->GetErrorCode(), 91);
}

// ---- LoadEvents4Folder

TEST_F(EventOperations, EventsOfAFolderComeInTheOrderOfTheirTexts) {
  InsertFour();
  const auto events = Loaded(&CSession::LoadEvents4Folder, 5);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Events WHERE EVE_FolderID=5 ORDER BY EVE_Text ASC"});
  EXPECT_EQ(TextsOf(events), (Texts{"A", "b", "c"}));
}

TEST_F(EventOperations, FolderNamedAllEventsHoldsOnlyItsOwnEvents) {
  InsertFour();
  const std::string all = Stored("SELECT FLD_ID FROM Folders WHERE FLD_Name='All Events'");
  ASSERT_EQ(all, "6");
  const auto events = Loaded(&CSession::LoadEvents4Folder, 6);
  EXPECT_EQ(TextsOf(events), Texts{"z"});
}

TEST_F(EventOperations, FolderThatCannotBeLoadedIsRecordedByTheLoading) {
  Refuse("SELECT * FROM Events");
  EXPECT_FALSE(session->LoadEvents4Folder(MakeRef<CEvents>(), 5));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadEventsWithCriteria");
}

// ---- CreateEvent

TEST_F(EventOperations, CreateEventDrawsFromSequenceFour) {
  SetSequences({{4, 41}});
  EXPECT_EQ(session->CreateEvent()->ID, 42);
  EXPECT_EQ(session->CreateEvent()->ID, 43);
}

TEST_F(EventOperations, CreateEventMakesNoRow) {
  session->CreateEvent();
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(EventOperations, CreatedEventHasASessionAndNothingElseOfItsOwn) {
  const Ref<CEvent> event = session->CreateEvent();
  EXPECT_EQ(event->Session(), session);
  EXPECT_EQ(event->Recurrence->Session(), session);
  EXPECT_EQ(event->EType, "");
  EXPECT_EQ(event->LinkID, 0);
  EXPECT_EQ(Flags(*event), "new clear");
}

TEST_F(EventOperations, CreateEventLeavesAnOldError) {
  LeaveAnOldError();
  ASSERT_TRUE(session->CreateEvent());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(EventOperations, CreateEventIsRefusedToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreateEvent());
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.CreateEvent] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(EventOperations, CreateEventWithoutASequenceGivesNothing) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=4");
  EXPECT_FALSE(session->CreateEvent());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

// ---- DuplicateEvent

TEST_F(EventOperations, DuplicateTakesTheNextNumbersOfEventRuleAndNotificationInThisOrder) {
  SetSequences({{4, 40}, {8, 80}, {7, 70}});
  Run("INSERT INTO Events (EVE_ID) VALUES (1)");
  const Ref<CEvent> copy = session->DuplicateEvent(1);
  EXPECT_EQ(SequencesDrawn(), (Texts{"4", "8", "7"}));
  ExpectNumbers(*copy, 41, 81, 71);
}

TEST_F(EventOperations, DuplicateIsNewAndModifiedWithItsChildren) {
  const Ref<CEvent> copy = session->DuplicateEvent(EventWithChildren()->ID);
  ExpectNewWithChildren(*copy);
}

TEST_F(EventOperations, DuplicateCarriesTheOldValues) {
  const Ref<CEvent> copy = session->DuplicateEvent(EventWithChildren()->ID);
  EXPECT_EQ(copy->Text, "Choir");
  EXPECT_EQ(copy->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(copy->Notification->Subject, "Sing");
}

TEST_F(EventOperations, DuplicateHasNoRowUntilItIsSaved) {
  session->DuplicateEvent(EventWithChildren()->ID);
  EXPECT_EQ(Rows("Events") + Rows("Recurrences") + Rows("Notifications"), 3);
}

TEST_F(EventOperations, SavedDuplicateHasChildrenUnderFurtherNumbers) {
  const Ref<CEvent> copy = session->DuplicateEvent(EventWithChildren()->ID);
  ASSERT_EQ(copy->RecurrenceID, 2) << "the placeholder";
  ASSERT_TRUE(copy->Save());
  EXPECT_EQ(Rows("Events"), 2);
  EXPECT_EQ(Rows("Recurrences"), 2);
  EXPECT_EQ(Rows("Notifications"), 2);
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events WHERE EVE_ID=2"), "3");
  EXPECT_EQ(Stored("SELECT EVE_NotificationID FROM Events WHERE EVE_ID=2"), "3");
}

TEST_F(EventOperations, SavedDuplicateLeavesTheOldRowsAsTheyWere) {
  const Ref<CEvent> copy = session->DuplicateEvent(EventWithChildren()->ID);
  copy->Text = "Orchestra";
  copy->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(copy->Save());
  EXPECT_EQ(Stored("SELECT EVE_Text FROM Events WHERE EVE_ID=1"), "Choir");
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events WHERE EVE_ID=1"), "1");
  EXPECT_EQ(Stored("SELECT REC_Type FROM Recurrences WHERE REC_ID=1"), "2");
}

TEST_F(EventOperations, SavedDuplicateWithoutChildrenHasReferencesOfMinusOne) {
  Run("INSERT INTO Events (EVE_ID,EVE_RecurrenceID,EVE_NotificationID) VALUES (99,0,0)");
  const Ref<CEvent> copy = session->DuplicateEvent(99);
  ASSERT_TRUE(copy->Save());
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events WHERE EVE_ID=1"), "-1");
  EXPECT_EQ(Stored("SELECT EVE_NotificationID FROM Events WHERE EVE_ID=1"), "-1");
}

TEST_F(EventOperations, SavedDuplicateDeletesEmptyChildrenUnderTheirPlaceholders) {
  SetSequences({{7, 70}, {8, 80}});
  Run("INSERT INTO Events (EVE_ID) VALUES (99)");
  const Ref<CEvent> copy = session->DuplicateEvent(99);
  Forget();
  ASSERT_TRUE(copy->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre("DELETE * FROM Notifications WHERE NTF_ID=71",
                                           "DELETE * FROM Recurrences WHERE REC_ID=81",
                                           testing::StartsWith("INSERT INTO Events (EVE_ID,")));
}

TEST_F(EventOperations, DuplicateOfAnUnknownEventGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->DuplicateEvent(99));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(SequenceValue(4), "0");
}

TEST_F(EventOperations, DuplicateIsRefusedToASessionThatMayOnlyRead) {
  const std::int32_t id = EventWithChildren()->ID;
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DuplicateEvent(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DuplicateEvent] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(EventOperations, DuplicateWithoutOneOfItsSequencesGivesNothing) {
  for (const int sequence : {4, 8, 7}) {
    Database other;
    const Ref<CSession> its_session = other.OpenSession();
    its_session->conDBConnection->Execute("INSERT INTO Events (EVE_ID) VALUES (99)");
    its_session->conDBConnection->Execute("DELETE * FROM Sequences WHERE SEQ_ID=" + std::to_string(sequence));
    EXPECT_FALSE(its_session->DuplicateEvent(99)) << sequence;
    EXPECT_EQ(its_session->GetErrorProcedure(), "GetUniqueIDFromSeq") << sequence;
  }
}

TEST_F(EventOperations, EveryFailureOfADuplicateGivesNothingAndIsRecorded) {
  const std::int32_t id = EventWithChildren()->ID;
  const auto duplicate = [&] { return session->DuplicateEvent(id) != nullptr; };
  EXPECT_EQ(FailEachCall(database, *session, duplicate, {}, Unchanged::AllButSequences).size(), 15u)
      << "three selects and three identifiers of four calls";
}

// ---- DeleteEvent

TEST_F(EventOperations, DeleteRemovesRuleNotificationAndEventInThisOrderInOneTransaction) {
  const std::int32_t id = EventWithChildren()->ID;
  EXPECT_TRUE(session->DeleteEvent(id));
  EXPECT_EQ(SentInAll(),
            (Texts{"BEGIN", "SELECT * FROM Events WHERE EVE_ID=1", "DELETE * FROM Recurrences WHERE REC_ID=1",
                   "DELETE * FROM Notifications WHERE NTF_ID=1", "DELETE * FROM Events WHERE EVE_ID=1", "COMMIT"}));
  EXPECT_EQ(Rows("Events") + Rows("Recurrences") + Rows("Notifications"), 0);
}

TEST_F(EventOperations, DeleteLeavesOtherEventsAndTheirChildren) {
  const std::int32_t id = EventWithChildren()->ID;
  EventWithChildren();
  EXPECT_TRUE(session->DeleteEvent(id));
  EXPECT_EQ(Rows("Events WHERE EVE_ID=2"), 1);
  EXPECT_EQ(Rows("Recurrences WHERE REC_ID=2"), 1);
  EXPECT_EQ(Rows("Notifications WHERE NTF_ID=2"), 1);
}

TEST_F(EventOperations, DeleteWithoutARowCommitsAnEmptyTransaction) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteEvent(99));
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "SELECT * FROM Events WHERE EVE_ID=99", "COMMIT"}));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(EventOperations, DeleteAsksForRuleMinusOneToo) {
  Run("INSERT INTO Events (EVE_ID,EVE_RecurrenceID) VALUES (51,-1)");
  EXPECT_TRUE(session->DeleteEvent(51));
  EXPECT_EQ(Sent()[1], "DELETE * FROM Recurrences WHERE REC_ID=-1");
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(EventOperations, DeleteReadsNullReferencesAsZero) {
  Run("INSERT INTO Events (EVE_ID) VALUES (51)");
  EXPECT_TRUE(session->DeleteEvent(51));
  EXPECT_EQ(Sent(), (Texts{"SELECT * FROM Events WHERE EVE_ID=51", "DELETE * FROM Recurrences WHERE REC_ID=0",
                           "DELETE * FROM Notifications WHERE NTF_ID=0", "DELETE * FROM Events WHERE EVE_ID=51"}));
}

TEST_F(EventOperations, DeleteLeavesTheMarksOfTheSeen) {
  const Ref<CEvent> event = EventWithChildren();
  ASSERT_TRUE(event->MarkSeenByUser(now_));
  EXPECT_TRUE(session->DeleteEvent(event->ID));
  EXPECT_EQ(Rows("ViewedEvents"), 1);
}

TEST_F(EventOperations, DeleteIsRefusedToASessionThatMayOnlyReadWithTheTextOfTheRollback) {
  const std::int32_t id = EventWithChildren()->ID;
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: 105 - No transaction is started.");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(EventOperations, RefusedDeleteUndoesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Events (EVE_ID) VALUES (99)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteEvent(99));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DeleteEvent] Error: 105 - ") + kRefusal);
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(EventOperations, DeleteInTheClientsTransactionFailsAndUndoesThatOne) {
  const std::int32_t id = EventWithChildren()->ID;
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Events (EVE_ID) VALUES (99)");
  LeaveAnOldError();
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[BeginTransaction] Error: 0 - A transaction is already started.");
  EXPECT_EQ(Rows("Events"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_ID=99"), 0);
}

TEST_F(EventOperations, DeleteThatFailsAtTheEventsRowIsRecordedAndUndone) {
  const std::int32_t id = EventWithChildren()->ID;
  Refuse("DELETE * FROM Events");
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteEvent] Error: -2147217900 - made to fail");
  EXPECT_EQ(Rows("Events") + Rows("Recurrences") + Rows("Notifications"), 3);
}

TEST_F(EventOperations, DeleteThatFailsAtTheRuleEndsWithItsRecord) {
  const std::int32_t id = EventWithChildren()->ID;
  Refuse("DELETE * FROM Recurrences");
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteRecurrence");
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(EventOperations, DeleteThatFailsAtTheNotificationEndsWithItsRecordAndKeepsTheRule) {
  const std::int32_t id = EventWithChildren()->ID;
  Refuse("DELETE * FROM Notifications");
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteNotification");
  EXPECT_EQ(Rows("Recurrences"), 1);
}

TEST_F(EventOperations, DeleteThatCannotBeginEndsWithTheTextOfTheRollback) {
  Refuse("BEGIN");
  EXPECT_FALSE(session->DeleteEvent(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: -2147217900 - No transaction is started.");
}

TEST_F(EventOperations, DeleteThatCannotBeCommittedIsUndone) {
  const std::int32_t id = EventWithChildren()->ID;
  Refuse("COMMIT");
  EXPECT_FALSE(session->DeleteEvent(id));
  EXPECT_EQ(session->GetErrorProcedure(), "CommitTransaction");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(EventOperations, EveryFailureOfADeleteLeavesAllRows) {
  const std::int32_t id = EventWithChildren()->ID;
  Texts procedures;
  for (const InjectedFailure& failure : FailEachCall(database, *session, [&] { return session->DeleteEvent(id); })) {
    procedures.push_back(failure.procedure);
  }
  EXPECT_EQ(procedures, (Texts{"RollbackTransaction", "DeleteEvent", "DeleteRecurrence", "DeleteNotification",
                               "DeleteEvent", "CommitTransaction"}));
  EXPECT_EQ(Rows("Events"), 0);
}

}  // namespace
}  // namespace zef::test
