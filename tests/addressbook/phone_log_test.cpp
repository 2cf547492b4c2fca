#include "addressbook/phone_log.h"

#include <limits>

#include "tests/addressbook/phone_log_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

const std::vector<Setter<CPhoneLog>> kSetters = {
    {"ContactID", [](auto& l) { l.ContactID = 5; }, [](auto& l) { l.ContactID = 6; }},
    {"Direction", [](auto& l) { l.Direction = DIR_OUTGOING; }, [](auto& l) { l.Direction = DIR_INCOMING; }},
    {"RecordDate", [](auto& l) { l.RecordDate = Date(1); }, [](auto& l) { l.RecordDate = Date(2); }},
    {"Subject", [](auto& l) { l.Subject = "a"; }, [](auto& l) { l.Subject = "A"; }},
    {"PhoneNumber", [](auto& l) { l.PhoneNumber = "a"; }, [](auto& l) { l.PhoneNumber = "A"; }},
    {"Notes", [](auto& l) { l.Notes = "a"; }, [](auto& l) { l.Notes = "A"; }},
    {"DateLastUpdate", [](auto& l) { l.DateLastUpdate = Date(1); }, [](auto& l) { l.DateLastUpdate = Date(2); }},
};

using PhoneLogRecord = PhoneLogTest;

// ---- a new log

TEST_F(PhoneLogRecord, NewLogIsIncoming) { EXPECT_EQ(MakeRef<CPhoneLog>()->Direction, DIR_INCOMING); }

TEST_F(PhoneLogRecord, NewLogHasZeroOrNothingInEverythingElse) {
  const auto log = MakeRef<CPhoneLog>();
  EXPECT_EQ(log->ID, 0);
  EXPECT_EQ(log->ContactID, 0);
  EXPECT_EQ(log->Subject.get() + log->PhoneNumber.get() + log->Notes.get(), "");
  EXPECT_EQ(log->RecordDate, Date());
  EXPECT_EQ(log->DateLastUpdate, Date());
}

TEST_F(PhoneLogRecord, NewLogIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CPhoneLog>()), "new clear"); }

TEST_F(PhoneLogRecord, EverySetterMarksOnlyAChange) {
  for (const Setter<CPhoneLog>& setter : kSetters) ExpectMarksOnlyChanges(*MakeRef<CPhoneLog>(), setter);
}

TEST_F(PhoneLogRecord, DirectionsHaveTheirStoredNumbers) {
  EXPECT_EQ(DIR_INCOMING, 0);
  EXPECT_EQ(DIR_OUTGOING, 1);
}

// ---- reading

TEST_F(PhoneLogRecord, RowFillsEveryProperty) { ExpectAllValues(*StoredLog(), kPhoneLogColumns); }

TEST_F(PhoneLogRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO PhoneLogs (PL_ID) VALUES (61)");
  ExpectAllNullValues(*session->GetPhoneLog(61), kPhoneLogColumns);
}

TEST_F(PhoneLogRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("PhoneLogs", kPhoneLogColumns));
  ExpectReadInOrder(connection(), "PhoneLogs", kPhoneLogColumns, [] { return MakeRef<CPhoneLog>(); });
}

TEST_F(PhoneLogRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO PhoneLogs (PL_ID) VALUES (61)");
  const Ref<Recordset> rs = Run("SELECT Null AS PL_ID," + ColumnList(kPhoneLogColumns, "PL_ID") + " FROM PhoneLogs");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CPhoneLog>()->GetValuesFromRS(rs); }), 94);
}

TEST_F(PhoneLogRecord, ReadingClearsBothFlags) { EXPECT_EQ(Flags(*StoredLog()), "old clear"); }

TEST_F(PhoneLogRecord, ReadsEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kPhoneLogColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "PhoneLogs")));
}

// ---- the row

TEST_F(PhoneLogRecord, InsertWritesAllColumnsInTheirOrder) {
  EXPECT_EQ(SentBySaving(FullLog()),
            Texts{"INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_DateLastUpdate,PL_Subject,PL_Notes,"
                  "PL_RecordDate,PL_PhoneNumber,PL_Direction) VALUES (1,62,'3/1/2024 8:00:00 AM',"
                  "'O''Brien''s order','Line 1\r\nLine 2','2/29/2024 6:30:15 PM','+1 (555) ''home''',1)"});
}

TEST_F(PhoneLogRecord, InsertLeavesEmptyTextsOutAndWritesZeroDates) {
  const Ref<CPhoneLog> log = NewLog();
  log->ContactID = 5;
  EXPECT_EQ(SentBySaving(log),
            Texts{"INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_DateLastUpdate,PL_RecordDate,PL_Direction) "
                  "VALUES (1,5,'12:00:00 AM','12:00:00 AM',0)"});
}

TEST_F(PhoneLogRecord, UpdateBlanksEmptyTexts) {
  const Ref<CPhoneLog> log = StoredLog();
  log->Subject = "";
  log->PhoneNumber = "";
  log->Notes = "";
  EXPECT_EQ(SentBySaving(log),
            Texts{"UPDATE PhoneLogs SET PL_ID=61,PL_ContactID=62,PL_DateLastUpdate='2/3/2024 1:00:00 PM',"
                  "PL_Subject='',PL_Notes='',PL_RecordDate='2/29/2024 6:30:15 PM',PL_PhoneNumber='',"
                  "PL_Direction=1 WHERE PL_ID=61"});
}

TEST_F(PhoneLogRecord, ValuesComeBackAsTheyWereSaved) {
  const Ref<CPhoneLog> saved = FullLog();
  ASSERT_TRUE(saved->Save());
  const Ref<CPhoneLog> loaded = session->GetPhoneLog(saved->ID);
  ASSERT_TRUE(loaded);
  for (const ColumnCase<CPhoneLog>& one : kPhoneLogColumns) {
    EXPECT_EQ(one.property(*loaded), one.property(*saved)) << one.column;
  }
}

TEST_F(PhoneLogRecord, LastUpdateOfAChangedLogStaysAsTheClientLeftIt) {
  const Ref<CPhoneLog> log = StoredLog();
  log->Subject = "another";
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(log->DateLastUpdate, On("2/3/2024 1:00:00 PM"));
  EXPECT_EQ(Stored("SELECT PL_DateLastUpdate FROM PhoneLogs"), "2/3/2024 1:00:00 PM");
}

TEST_F(PhoneLogRecord, LogWithoutALastUpdateStoresTheZeroDate) {
  const Ref<CPhoneLog> log = NewLog();
  log->Subject = "s";
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(Stored("SELECT PL_DateLastUpdate FROM PhoneLogs"), "12:00:00 AM");
}

TEST_F(PhoneLogRecord, OutgoingIsStoredAsOne) {
  const Ref<CPhoneLog> log = NewLog();
  log->Direction = DIR_OUTGOING;
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(Stored("SELECT PL_Direction FROM PhoneLogs"), "1");
}

TEST_F(PhoneLogRecord, DirectionOutsideTheEnumerationIsKept) {
  const Ref<CPhoneLog> log = NewLog();
  log->Direction = std::numeric_limits<std::int32_t>::min();
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(session->GetPhoneLog(log->ID)->Direction, std::numeric_limits<std::int32_t>::min());
}

TEST_F(PhoneLogRecord, ContactNeedNotExist) {
  const Ref<CPhoneLog> log = NewLog();
  log->ContactID = std::numeric_limits<std::int32_t>::max();
  EXPECT_TRUE(log->Save());
  EXPECT_EQ(session->GetPhoneLog(log->ID)->ContactID, std::numeric_limits<std::int32_t>::max());
}

TEST_F(PhoneLogRecord, DateOfThe29thOfFebruaryBefore1900ComesBack) {
  const Ref<CPhoneLog> log = NewLog();
  log->RecordDate = On("2/29/1896 6:00:00 AM");
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(session->GetPhoneLog(log->ID)->RecordDate, On("2/29/1896 6:00:00 AM"));
}

TEST_F(PhoneLogRecord, EmojiInTheSubjectComesBack) {
  const Ref<CPhoneLog> log = NewLog();
  log->Subject = "☎️ Mum 👩‍👧";
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(session->GetPhoneLog(log->ID)->Subject, "☎️ Mum 👩‍👧");
}

TEST_F(PhoneLogRecord, SavingClearsTheFlags) {
  const Ref<CPhoneLog> log = FullLog();
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(Flags(*log), "old clear");
}

TEST_F(PhoneLogRecord, UnchangedNewLogGetsNoRowAndIsNoLongerNew) {
  const Ref<CPhoneLog> log = NewLog();
  EXPECT_TRUE(log->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*log), "old clear");
}

TEST_F(PhoneLogRecord, UnchangedLoadedLogSendsNothing) {
  const Ref<CPhoneLog> log = StoredLog();
  EXPECT_TRUE(log->Save());
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(PhoneLogRecord, SaveOpensNoTransactionOfItsOwn) {
  const Ref<CPhoneLog> log = FullLog();
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(SentInAll().size(), 1u);
}

TEST_F(PhoneLogRecord, SaveJoinsTheClientsTransaction) {
  const Ref<CPhoneLog> log = FullLog();
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(Rows("PhoneLogs"), 0);
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("PhoneLogs"), 0);
}

TEST_F(PhoneLogRecord, SaveClearsAnOldErrorEvenWithNothingToWrite) {
  LeaveAnOldError();
  ASSERT_TRUE(NewLog()->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(PhoneLogRecord, ResetFlagsMakesTheNextSaveInsert) {
  const Ref<CPhoneLog> log = StoredLog();
  log->ResetFlags();
  log->ID = 63;
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(Rows("PhoneLogs"), 2);
}

TEST_F(PhoneLogRecord, UpdateOfARowThatIsGoneSucceedsAndWritesNothing) {
  const Ref<CPhoneLog> log = StoredLog();
  Run("DELETE * FROM PhoneLogs");
  log->Subject = "s";
  EXPECT_TRUE(log->Save());
  EXPECT_EQ(Rows("PhoneLogs"), 0);
}

// ---- a save that fails

TEST_F(PhoneLogRecord, SessionThatMayOnlyReadIsRefusedAndSendsNothing) {
  const Ref<CPhoneLog> log = FullLog();
  session->UserRights = Administrator | DataViewer;
  EXPECT_FALSE(log->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CPhoneLog.Save] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*log), "new modified");
}

TEST_F(PhoneLogRecord, RefusalClearsAnOldErrorFirst) {
  const Ref<CPhoneLog> log = NewLog();
  LeaveAnOldError();
  session->UserRights = DataViewer;
  EXPECT_FALSE(log->Save());
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_F(PhoneLogRecord, RefusedInsertIsRecordedAndLeavesTheFlags) {
  const Ref<CPhoneLog> log = FullLog();
  Refuse("INSERT INTO PhoneLogs");
  EXPECT_FALSE(log->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CPhoneLog.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*log), "new modified");
}

TEST_F(PhoneLogRecord, RefusedUpdateLeavesTheFlags) {
  const Ref<CPhoneLog> log = StoredLog();
  log->Subject = "s";
  Refuse("UPDATE PhoneLogs");
  EXPECT_FALSE(log->Save());
  EXPECT_EQ(Flags(*log), "old modified");
}

TEST_F(PhoneLogRecord, FailureInTheClientsTransactionLeavesItRunning) {
  const Ref<CPhoneLog> log = FullLog();
  ASSERT_TRUE(session->BeginTransaction());
  Refuse("INSERT INTO PhoneLogs");
  EXPECT_FALSE(log->Save());
  EXPECT_TRUE(session->TransactionStarted());
}

constexpr struct {
  Property<std::string> CPhoneLog::*text;
  std::size_t length;
} kLimitedTexts[] = {{&CPhoneLog::Subject, 255}, {&CPhoneLog::PhoneNumber, 64}};

TEST_F(PhoneLogRecord, TextsAsLongAsTheirColumnsComeBack) {
  for (const auto& [text, length] : kLimitedTexts) {
    const Ref<CPhoneLog> log = NewLog();
    (*log).*text = std::string(length, '5');
    ASSERT_TRUE(log->Save()) << session->GetEntireErrorDesc();
    EXPECT_EQ((*session->GetPhoneLog(log->ID)).*text, std::string(length, '5'));
  }
}

TEST_F(PhoneLogRecord, TextsLongerThanTheirColumnsFail) {
  for (const auto& [text, length] : kLimitedTexts) {
    const Ref<CPhoneLog> log = NewLog();
    (*log).*text = std::string(length + 1, '5');
    EXPECT_FALSE(log->Save());
    EXPECT_EQ(session->GetErrorCode(), -2147217833);
  }
}

TEST_F(PhoneLogRecord, NotesOfAMegabyteComeBack) {
  const Ref<CPhoneLog> log = NewLog();
  const std::string notes(1'000'000, 'n');
  log->Notes = notes;
  ASSERT_TRUE(log->Save());
  EXPECT_EQ(session->GetPhoneLog(log->ID)->Notes, notes);
}

TEST_F(PhoneLogRecord, DateOutOfRangeIsRecordedByTheSave) {
  const Ref<CPhoneLog> log = NewLog();
  log->RecordDate = Date(3e6);
  EXPECT_FALSE(log->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CPhoneLog.Save");
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_EQ(Flags(*log), "new modified");
}

TEST_F(PhoneLogRecord, EveryFailureOfANewLogsSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CPhoneLog> log = session->CreatePhoneLog();
    if (!log) return log;
    log->Subject = "s";
    return log;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 5u) << "four calls for the identifier, and the insert";
}

}  // namespace
}  // namespace zef::test
