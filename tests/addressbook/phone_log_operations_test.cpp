#include "session/collections.h"
#include "tests/addressbook/phone_log_fixture.h"
#include "tests/support/collection_with_one.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

class PhoneLogOperations : public PhoneLogTest {
 protected:
  /// Calls 1 to 3 of contacts 7, 8 and 7.
  void InsertThree() {
    Run("INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject) VALUES (1,7,'b')");
    Run("INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject) VALUES (2,8,'c')");
    Run("INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject) VALUES (3,7,'a')");
  }
  static Texts SubjectsOf(const Ref<CPhoneLogs>& logs) {
    Texts subjects;
    for (const Ref<CPhoneLog>& log : *logs) subjects.push_back(log->Subject);
    return subjects;
  }
};

// ---- GetPhoneLog

TEST_F(PhoneLogOperations, GetPhoneLogSendsOneSelect) {
  session->GetPhoneLog(61);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM PhoneLogs WHERE PL_ID=61"});
}

TEST_F(PhoneLogOperations, GetPhoneLogGivesTheSession) { EXPECT_EQ(StoredLog()->Session(), session); }

TEST_F(PhoneLogOperations, GetPhoneLogWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetPhoneLog(61));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(PhoneLogOperations, GetPhoneLogThatFailsIsRecorded) {
  Refuse("SELECT * FROM PhoneLogs");
  EXPECT_FALSE(session->GetPhoneLog(61));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetPhoneLog] Error: -2147217900 - made to fail");
}

// ---- loading

TEST_F(PhoneLogOperations, LoadingWithoutCriteriaSelectsTheWholeTableUnsorted) {
  InsertThree();
  const auto logs = Loaded(&CSession::LoadPhoneLogsWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM PhoneLogs"});
  EXPECT_EQ(logs->Count(), 3);
}

TEST_F(PhoneLogOperations, CriteriaWithAnOrderStandInTheStatementAsTheyCome) {
  InsertThree();
  const auto logs = Loaded(&CSession::LoadPhoneLogsWithCriteria, "PL_ContactID=7 ORDER BY PL_Subject");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM PhoneLogs WHERE PL_ContactID=7 ORDER BY PL_Subject"});
  EXPECT_EQ(SubjectsOf(logs), (Texts{"a", "b"}));
}

TEST_F(PhoneLogOperations, LoadedLogsHaveTheSessionAndClearFlags) {
  InsertThree();
  const auto logs = Loaded(&CSession::LoadPhoneLogsWithCriteria, "PL_ID=2");
  EXPECT_EQ(logs->ItemByKey("2")->Session(), session);
  EXPECT_EQ(Flags(*logs->ItemByIdx(1)), "old clear");
}

TEST_F(PhoneLogOperations, LoadingEmptiesTheCollectionFirst) {
  const auto logs = CollectionWithOne(&CPhoneLog::Subject);
  ASSERT_TRUE(session->LoadPhoneLogsWithCriteria(logs, "PL_ID=5"));
  EXPECT_EQ(logs->Count(), 0);
}

TEST_F(PhoneLogOperations, LoadingThatCannotOpenIsRecordedAndLeavesTheCollection) {
  const auto logs = CollectionWithOne(&CPhoneLog::Subject);
  EXPECT_FALSE(session->LoadPhoneLogsWithCriteria(logs, "no such column = 1"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadPhoneLogsWithCriteria");
  EXPECT_EQ(SubjectsOf(logs), Texts{"from before"});
}

// ---- CreatePhoneLog

TEST_F(PhoneLogOperations, CreatePhoneLogDrawsFromSequenceEleven) {
  SetSequences({{11, 41}});
  EXPECT_EQ(session->CreatePhoneLog()->ID, 42);
}

TEST_F(PhoneLogOperations, CreatedLogHasTheSessionAndNoRow) {
  EXPECT_EQ(NewLog()->Session(), session);
  EXPECT_EQ(Rows("PhoneLogs"), 0);
}

TEST_F(PhoneLogOperations, CreatePhoneLogLeavesAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->CreatePhoneLog());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(PhoneLogOperations, CreatePhoneLogIsRefusedToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreatePhoneLog());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CreatePhoneLog] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(PhoneLogOperations, CreatePhoneLogWithoutASequenceGivesNothing) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=11");
  EXPECT_FALSE(session->CreatePhoneLog());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

// ---- DeletePhoneLog

TEST_F(PhoneLogOperations, DeletePhoneLogSendsOneDelete) {
  InsertThree();
  EXPECT_TRUE(session->DeletePhoneLog(2));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM PhoneLogs WHERE PL_ID=2"});
  EXPECT_EQ(Rows("PhoneLogs"), 2);
}

TEST_F(PhoneLogOperations, DeletePhoneLogWithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeletePhoneLog(61));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(PhoneLogOperations, DeletePhoneLogIsRefusedToASessionThatMayOnlyRead) {
  InsertThree();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeletePhoneLog(2));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeletePhoneLog] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(Rows("PhoneLogs"), 3);
}

TEST_F(PhoneLogOperations, DeletePhoneLogJoinsTheClientsTransaction) {
  InsertThree();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeletePhoneLog(2));
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("PhoneLogs"), 3);
}

TEST_F(PhoneLogOperations, EveryFailureOfADeleteIsRecordedAndLeavesTheRow) {
  InsertThree();
  const auto failures = FailEachCall(database, *session, [&] { return session->DeletePhoneLog(2); });
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "DeletePhoneLog");
}

}  // namespace
}  // namespace zef::test
