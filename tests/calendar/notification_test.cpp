#include "calendar/notification.h"

#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {
namespace {

const ColumnCases<CNotification> kColumns = {
    {"NTF_ID", "41", "41", "", [](auto& n) { return Shown(n.ID); }},
    {"NTF_Subject", "'a subject'", "a subject", "", [](auto& n) { return Shown(n.Subject); }},
    {"NTF_Message", "'a message'", "a message", "", [](auto& n) { return Shown(n.Message); }},
    {"NTF_Email", "'to@here'", "to@here", "", [](auto& n) { return Shown(n.Email); }},
    {"NTF_CC", "'cc@here'", "cc@here", "", [](auto& n) { return Shown(n.CC); }},
    {"NTF_BCC", "'bcc@here'", "bcc@here", "", [](auto& n) { return Shown(n.BCC); }},
    {"NTF_Type", "3", "3", "0", [](auto& n) { return Shown(n.NType); }},
    {"NTF_Status", "2", "2", "0", [](auto& n) { return Shown(n.Status); }},
    {"NTF_SendingDate", "'2/29/2024 6:30:15 PM'", "2/29/2024 6:30:15 PM", "12:00:00 AM",
     [](auto& n) { return Shown(n.SendingDate); }},
};

class NotificationRecord : public RecordTest {
 protected:
  Ref<CNotification> NewMessage() {
    auto message = MakeRef<CNotification>();
    message->SetSession(session);
    return message;
  }
  Ref<CNotification> FullMessage() {
    Ref<CNotification> message = NewMessage();
    message->Subject = "It's due";
    message->Message = "Line 1\nLine 2";
    message->Email = "o'brien@here";
    message->CC = "cc@here";
    message->BCC = "bcc@here";
    message->SendingDate = On("2/29/2024 6:30:15 PM");
    message->Status = NS_ERRORS;
    message->NType = NT_ALARMS;
    return message;
  }
  Ref<CNotification> StoredMessage() {
    Run(InsertOfAll("Notifications", kColumns));
    return session->GetNotification(41);
  }
};

// ---- a new message

TEST_F(NotificationRecord, NewMessageIsEmptyAlthoughItHasASendingDate) {
  const auto message = MakeRef<CNotification>();
  EXPECT_TRUE(message->IsEmpty());
  EXPECT_EQ(message->SendingDate, now_);
}

TEST_F(NotificationRecord, NewMessageIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CNotification>()), "new clear"); }

TEST_F(NotificationRecord, NewMessageIsNotSentAndBelongsToNothing) {
  const auto message = MakeRef<CNotification>();
  EXPECT_EQ(message->ID, 0);
  EXPECT_EQ(message->Status, NS_NOTSENT);
  EXPECT_EQ(message->NType, NT_EMPTY);
}

TEST_F(NotificationRecord, AnyOneTextMakesAMessageNotEmpty) {
  for (auto text : {&CNotification::Subject, &CNotification::Message, &CNotification::Email, &CNotification::CC,
                    &CNotification::BCC}) {
    const auto message = MakeRef<CNotification>();
    (*message).*text = "x";
    EXPECT_FALSE(message->IsEmpty());
  }
}

TEST_F(NotificationRecord, MessageWithASubjectOfOneBlankIsNotEmpty) {
  const auto message = MakeRef<CNotification>();
  message->Subject = " ";
  EXPECT_FALSE(message->IsEmpty());
}

TEST_F(NotificationRecord, MessageWithOnlyDateTypeAndStatusIsEmpty) {
  const auto message = MakeRef<CNotification>();
  message->SendingDate = Date(1);
  message->NType = NT_TASKS;
  message->Status = NS_SENTOK;
  EXPECT_TRUE(message->IsEmpty());
}

TEST_F(NotificationRecord, NumbersOfTheTypesAreFixed) {
  EXPECT_EQ(NT_EMPTY, 0);
  EXPECT_EQ(NT_EVENTS, 1);
  EXPECT_EQ(NT_TASKS, 2);
  EXPECT_EQ(NT_ALARMS, 3);
}

TEST_F(NotificationRecord, NumbersOfTheStatesAreFixed) {
  EXPECT_EQ(NS_NOTSENT, 0);
  EXPECT_EQ(NS_SENTOK, 1);
  EXPECT_EQ(NS_ERRORS, 2);
  EXPECT_EQ(NS_INACTIVE, 3);
}

TEST_F(NotificationRecord, EverySetterMarksOnlyAChange) {
  const std::vector<Setter<CNotification>> setters = {
      {"Subject", [](auto& n) { n.Subject = "a"; }, [](auto& n) { n.Subject = "A"; }},
      {"Message", [](auto& n) { n.Message = "a"; }, [](auto& n) { n.Message = "A"; }},
      {"Email", [](auto& n) { n.Email = "a"; }, [](auto& n) { n.Email = "A"; }},
      {"CC", [](auto& n) { n.CC = "a"; }, [](auto& n) { n.CC = "A"; }},
      {"BCC", [](auto& n) { n.BCC = "a"; }, [](auto& n) { n.BCC = "A"; }},
      {"SendingDate", [](auto& n) { n.SendingDate = Date(1); }, [](auto& n) { n.SendingDate = Date(); }},
      {"Status", [](auto& n) { n.Status = NS_SENTOK; }, [](auto& n) { n.Status = NS_INACTIVE; }},
      {"NType", [](auto& n) { n.NType = NT_TASKS; }, [](auto& n) { n.NType = NT_EVENTS; }},
  };
  const auto message = MakeRef<CNotification>();
  for (const Setter<CNotification>& setter : setters) ExpectMarksOnlyChanges(*message, setter);
}

// ---- reading a row

TEST_F(NotificationRecord, RowFillsEveryProperty) { ExpectAllValues(*StoredMessage(), kColumns); }

TEST_F(NotificationRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO Notifications (NTF_ID) VALUES (41)");
  ExpectAllNullValues(*session->GetNotification(41), kColumns);
}

TEST_F(NotificationRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Notifications", kColumns));
  ExpectReadInOrder(connection(), "Notifications", kColumns, [this] { return NewMessage(); });
}

TEST_F(NotificationRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Notifications (NTF_ID) VALUES (41)");
  const Ref<Recordset> rs = Run("SELECT Null AS NTF_ID," + ColumnList(kColumns, "NTF_ID") + " FROM Notifications");
  EXPECT_EQ(NumberRaised([&] { NewMessage()->GetValuesFromRS(rs); }), 94);
}

TEST_F(NotificationRecord, ReadingClearsBothFlags) { EXPECT_EQ(Flags(*StoredMessage()), "old clear"); }

TEST_F(NotificationRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Notifications")));
  EXPECT_THAT(ColumnsWritten(*NewMessage(), "NTF_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Notifications")));
}

// ---- saving

TEST_F(NotificationRecord, InsertWritesAllColumnsInTheirOrder) {
  ASSERT_TRUE(FullMessage()->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_Subject,NTF_Message,NTF_Email,NTF_CC,"
                          "NTF_BCC,NTF_Type,NTF_Status) VALUES (1,'2/29/2024 6:30:15 PM','It''s due','Line 1\nLine 2',"
                          "'o''brien@here','cc@here','bcc@here',3,2)"});
}

TEST_F(NotificationRecord, InsertOfASubjectAloneLeavesTheOtherTextsOut) {
  const Ref<CNotification> message = NewMessage();
  message->Subject = "s";
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_Subject,NTF_Type,NTF_Status) VALUES "
                          "(1,'5/1/2024 9:00:00 AM','s',0,0)"});
}

TEST_F(NotificationRecord, TextsLeftOutOfAnInsertAreNull) {
  const Ref<CNotification> message = NewMessage();
  message->Subject = "s";
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Stored("SELECT NTF_Message FROM Notifications"), "Null");
}

TEST_F(NotificationRecord, ZeroDateIsWritten) {
  const Ref<CNotification> message = NewMessage();
  message->SendingDate = Date();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_Type,NTF_Status) VALUES "
                          "(1,'12:00:00 AM',0,0)"});
}

TEST_F(NotificationRecord, UpdateWritesAllColumnsInTheirOrder) {
  const Ref<CNotification> message = FullMessage();
  message->ResetFlagsX(true, false);
  message->ID = 5;
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Notifications SET NTF_ID=5,NTF_SendingDate='2/29/2024 6:30:15 PM',"
                          "NTF_Subject='It''s due',NTF_Message='Line 1\nLine 2',NTF_Email='o''brien@here',"
                          "NTF_CC='cc@here',NTF_BCC='bcc@here',NTF_Type=3,NTF_Status=2 WHERE NTF_ID=5"});
}

TEST_F(NotificationRecord, NewStatusOfALoadedMessageUpdatesEveryColumnTheEmptyOnesToo) {
  Run("INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (41,'s')");
  const Ref<CNotification> message = session->GetNotification(41);
  message->Status = NS_SENTOK;
  Forget();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Notifications SET NTF_ID=41,NTF_SendingDate='12:00:00 AM',NTF_Subject='s',"
                          "NTF_Message='',NTF_Email='',NTF_CC='',NTF_BCC='',NTF_Type=0,NTF_Status=1 WHERE NTF_ID=41"});
}

TEST_F(NotificationRecord, ValuesComeBackAsTheyWereSaved) {
  const Ref<CNotification> saved = FullMessage();
  ASSERT_TRUE(saved->Save());
  const Ref<CNotification> loaded = session->GetNotification(saved->ID);
  ASSERT_TRUE(loaded);
  for (const ColumnCase<CNotification>& one : kColumns) {
    EXPECT_EQ(one.property(*loaded), one.property(*saved)) << one.column;
  }
}

TEST_F(NotificationRecord, FirstSaveDrawsTheIdentifierFromSequenceSeven) {
  SetSequences({{7, 41}});
  const Ref<CNotification> message = FullMessage();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(message->ID, 42);
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=7"), "42");
}

TEST_F(NotificationRecord, SavingClearsBothFlags) {
  const Ref<CNotification> message = FullMessage();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(Flags(*message), "old clear");
}

TEST_F(NotificationRecord, UnchangedNewMessageSendsNothingAndIsNoLongerNew) {
  const Ref<CNotification> message = NewMessage();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*message), "old clear");
}

TEST_F(NotificationRecord, SaveClearsAnOldErrorEvenWithNothingToWrite) {
  LeaveAnOldError();
  ASSERT_TRUE(NewMessage()->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NotificationRecord, SaveOpensNoTransactionOfItsOwn) {
  const Ref<CNotification> message = StoredMessage();
  message->Status = NS_SENTOK;
  Forget();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(SentInAll().size(), 1u);
}

TEST_F(NotificationRecord, SaveIsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(FullMessage()->Save());
  EXPECT_EQ(Rows("Notifications"), 1);
}

TEST_F(NotificationRecord, ResetFlagsMakesTheNextSaveInsertUnderANewIdentifier) {
  const Ref<CNotification> message = FullMessage();
  ASSERT_TRUE(message->Save());
  message->ResetFlags();
  ASSERT_TRUE(message->Save());
  EXPECT_EQ(message->ID, 2);
  EXPECT_EQ(Rows("Notifications"), 2);
}

// ---- a save that fails

TEST_F(NotificationRecord, RefusedInsertIsRecordedAndLeavesTheFlags) {
  const Ref<CNotification> message = FullMessage();
  Refuse("INSERT INTO Notifications");
  EXPECT_FALSE(message->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CNotification.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*message), "new modified");
}

TEST_F(NotificationRecord, RefusedUpdateLeavesTheFlags) {
  const Ref<CNotification> message = StoredMessage();
  message->Status = NS_SENTOK;
  Refuse("UPDATE Notifications");
  EXPECT_FALSE(message->Save());
  EXPECT_EQ(Flags(*message), "old modified");
}

TEST_F(NotificationRecord, SubjectThatDoesNotFitFailsTheSave) {
  const Ref<CNotification> message = FullMessage();
  message->Subject = std::string(256, 's');
  EXPECT_FALSE(message->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
}

TEST_F(NotificationRecord, SaveWithoutASequenceFailsInItsOwnNameForTheSequencesReason) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=7");
  const Ref<CNotification> message = FullMessage();
  EXPECT_FALSE(message->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.Save");
  EXPECT_EQ(session->GetErrorCode(), 3021);
  EXPECT_EQ(Flags(*message), "new modified");
}

TEST_F(NotificationRecord, SaveOfADateOutOfRangeIsRecordedByTheFieldsAlone) {
  const Ref<CNotification> message = FullMessage();
  message->SendingDate = Date(3e6);
  EXPECT_FALSE(message->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.GetFieldsArray");
  EXPECT_EQ(message->ID, 0);
}

TEST_F(NotificationRecord, FieldsHaveFifteenRowsThreeColumnsAndAreEmptyBehindTheLast) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullMessage()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 15);
  EXPECT_EQ(fields.LastRow(), 15);
  EXPECT_EQ(fields.LastColumn(), 2);
  EXPECT_EQ(fields(7, 0), "NTF_Status");
  for (std::int32_t row = 8; row <= 15; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(NotificationRecord, FieldOfAnEmptyTextHasItsNameAndNoValue) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(NewMessage()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(fields(1, 0), "NTF_Subject");
  EXPECT_EQ(fields(1, 1), "");
}

// ---- the session's operations

TEST_F(NotificationRecord, GetNotificationSendsOneSelect) {
  session->GetNotification(41);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Notifications WHERE NTF_ID=41"});
}

TEST_F(NotificationRecord, GetNotificationGivesTheMessageItsSession) { EXPECT_EQ(StoredMessage()->Session(), session); }

TEST_F(NotificationRecord, GetNotificationWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetNotification(41));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NotificationRecord, GetNotificationThatFailsIsRecorded) {
  Refuse("SELECT");
  EXPECT_FALSE(session->GetNotification(41));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetNotification] Error: -2147217900 - made to fail");
}

TEST_F(NotificationRecord, DeleteNotificationSendsOneDelete) {
  EXPECT_TRUE(session->DeleteNotification(41));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM Notifications WHERE NTF_ID=41"});
}

TEST_F(NotificationRecord, DeleteNotificationWithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteNotification(41));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NotificationRecord, DeleteNotificationLeavesItsOwnersColumn) {
  Run("INSERT INTO Notifications (NTF_ID) VALUES (41)");
  Run("INSERT INTO Tasks (TSK_ID,TSK_NotificationID) VALUES (1,41)");
  EXPECT_TRUE(session->DeleteNotification(41));
  EXPECT_EQ(Rows("Notifications"), 0);
  EXPECT_EQ(Stored("SELECT TSK_NotificationID FROM Tasks"), "41");
}

TEST_F(NotificationRecord, DeleteNotificationIsOpenToASessionThatMayOnlyRead) {
  Run("INSERT INTO Notifications (NTF_ID) VALUES (41)");
  session->UserRights = DataViewer;
  EXPECT_TRUE(session->DeleteNotification(41));
  EXPECT_EQ(Rows("Notifications"), 0);
}

TEST_F(NotificationRecord, DeleteNotificationThatFailsIsRecorded) {
  Refuse("DELETE");
  EXPECT_FALSE(session->DeleteNotification(41));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteNotification] Error: -2147217900 - made to fail");
}

}  // namespace
}  // namespace zef::test
