#include <gtest/gtest.h>

#include "platform/recordset.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr char kAddCategory[] = "INSERT INTO Categories (CAT_ID, CAT_Name) VALUES (1, 'Red')";

/// Number of categories as another client sees them.
std::int32_t CommittedCategories(const Database& database) { return Count(*database.Connect(), "Categories"); }

using Transaction = SessionTest;

TEST_F(Transaction, NoneRunsAtFirst) { EXPECT_FALSE(session->TransactionStarted()); }

TEST_F(Transaction, BeginReturnsTrue) { EXPECT_TRUE(session->BeginTransaction()); }

TEST_F(Transaction, BeginSetsTheFlag) {
  session->BeginTransaction();
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, CommitReturnsTrue) {
  session->BeginTransaction();
  EXPECT_TRUE(session->CommitTransaction());
}

TEST_F(Transaction, CommitClearsTheFlag) {
  session->BeginTransaction();
  session->CommitTransaction();
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(Transaction, CommitKeepsWhatWasWritten) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  session->CommitTransaction();
  EXPECT_EQ(CommittedCategories(database), 1);
}

TEST_F(Transaction, RollbackReturnsTrue) {
  session->BeginTransaction();
  EXPECT_TRUE(session->RollbackTransaction());
}

TEST_F(Transaction, RollbackClearsTheFlag) {
  session->BeginTransaction();
  session->RollbackTransaction();
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(Transaction, RollbackUndoesWhatWasWritten) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  session->RollbackTransaction();
  EXPECT_EQ(Count(connection(), "Categories"), 0);
}

TEST_F(Transaction, OtherClientsDoNotSeeWhatIsNotCommitted) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  EXPECT_EQ(CommittedCategories(database), 0);
}

TEST_F(Transaction, SecondBeginReturnsFalse) {
  session->BeginTransaction();
  EXPECT_FALSE(session->BeginTransaction());
}

TEST_F(Transaction, SecondBeginIsRecorded) {
  session->ClearError();
  session->BeginTransaction();
  session->BeginTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[BeginTransaction] Error: 0 - A transaction is already started.");
}

TEST_F(Transaction, SecondBeginSetsTheErrorFlag) {
  session->BeginTransaction();
  session->BeginTransaction();
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST_F(Transaction, SecondBeginLeavesTheCode) {
  session->BeginTransaction();
  session->RecordError("Earlier", 77, "seven");
  session->BeginTransaction();
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(Transaction, SecondBeginLeavesTheFirstRunning) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  session->BeginTransaction();
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(connection().OpenedEngine().TransactionDepth(), 1);
}

TEST_F(Transaction, CommitWithNoneRunningReturnsFalse) { EXPECT_FALSE(session->CommitTransaction()); }

TEST_F(Transaction, CommitWithNoneRunningIsRecorded) {
  session->ClearError();
  session->CommitTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CommitTransaction] Error: 0 - No transaction is started.");
}

TEST_F(Transaction, CommitWithNoneRunningSetsTheErrorFlag) {
  session->CommitTransaction();
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST_F(Transaction, CommitWithNoneRunningLeavesTheCode) {
  session->RecordError("Earlier", 77, "seven");
  session->CommitTransaction();
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(Transaction, RollbackWithNoneRunningReturnsFalse) { EXPECT_FALSE(session->RollbackTransaction()); }

TEST_F(Transaction, RollbackWithNoneRunningIsRecordedOverTheOldTexts) {
  session->RecordError("Earlier", 77, "seven");
  session->RollbackTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: 77 - No transaction is started.");
}

TEST_F(Transaction, OfTheConnectionIsNotTheSessions) {
  connection().BeginTrans();
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_FALSE(session->CommitTransaction());
}

TEST_F(Transaction, BeginDoesNotClearTheRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->BeginTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Transaction, CommitDoesNotClearTheRecord) {
  session->BeginTransaction();
  session->RecordError("Earlier", 77, "seven");
  session->CommitTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Transaction, RollbackDoesNotClearTheRecord) {
  session->BeginTransaction();
  session->RecordError("Earlier", 77, "seven");
  session->RollbackTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Transaction, BeginAfterADisconnectDuringOneIsRefusedWithoutAConnectionToo) {
  session->BeginTransaction();
  session->DisconnectFromDatabase();
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_EQ(session->GetErrorDescription(), "A transaction is already started.");
}

TEST_F(Transaction, CommitAfterADisconnectDuringOneRaises) {
  session->BeginTransaction();
  session->DisconnectFromDatabase();
  EXPECT_EQ(NumberRaised([&] { session->CommitTransaction(); }), 91);
  EXPECT_EQ(session->GetErrorProcedure(), "CommitTransaction");
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, FailedBeginReturnsFalse) {
  Watch(connection())->fail_at = 1;
  EXPECT_FALSE(session->BeginTransaction());
}

TEST_F(Transaction, FailedBeginLeavesTheFlagClear) {
  Watch(connection())->fail_at = 1;
  session->BeginTransaction();
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(Transaction, FailedBeginIsRecordedWithTheProvidersWords) {
  Watch(connection())->fail_at = 1;
  session->BeginTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[BeginTransaction] Error: -2147217900 - made to fail");
}

TEST_F(Transaction, BeginAfterAFailedOneSucceeds) {
  Watch(connection())->fail_at = 1;
  session->BeginTransaction();
  EXPECT_TRUE(session->BeginTransaction());
}

TEST_F(Transaction, FailedCommitReturnsFalse) {
  session->BeginTransaction();
  Watch(connection())->fail_at = 1;
  EXPECT_FALSE(session->CommitTransaction());
}

TEST_F(Transaction, FailedCommitLeavesTheFlagSet) {
  session->BeginTransaction();
  Watch(connection())->fail_at = 1;
  session->CommitTransaction();
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, FailedCommitIsRecordedWithTheProvidersWords) {
  session->BeginTransaction();
  Watch(connection())->fail_at = 1;
  session->CommitTransaction();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CommitTransaction] Error: -2147217900 - made to fail");
}

TEST_F(Transaction, FailedCommitCanBeRepeated) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  Watch(connection())->fail_at = 1;
  session->CommitTransaction();
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(CommittedCategories(database), 1);
}

TEST_F(Transaction, FailedRollbackReturnsFalseAndLeavesTheFlagSet) {
  session->BeginTransaction();
  connection().RollbackTrans();
  EXPECT_FALSE(session->RollbackTransaction());
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, FailedRollbackIsRecordedUnderItsName) {
  session->BeginTransaction();
  connection().RollbackTrans();
  session->RollbackTransaction();
  EXPECT_EQ(session->GetErrorProcedure(), "RollbackTransaction");
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoTransaction));
}

TEST_F(Transaction, BeginOnAClosedConnectionIsRecorded) {
  connection().Close();
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::ObjectClosed));
}

TEST_F(Transaction, FailedStatementLeavesItUsable) {
  session->BeginTransaction();
  EXPECT_TRUE(Raised([&] { connection().Execute("SELECT * FROM NoSuchTable"); }));
  connection().Execute(kAddCategory);
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(CommittedCategories(database), 1);
}

TEST_F(Transaction, DisconnectLeavesTheFlagSet) {
  session->BeginTransaction();
  session->DisconnectFromDatabase();
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, DisconnectUndoesIt) {
  session->BeginTransaction();
  connection().Execute(kAddCategory);
  session->DisconnectFromDatabase();
  EXPECT_EQ(CommittedCategories(database), 0);
}

TEST_F(Transaction, BeginAfterDisconnectDuringOneIsRefused) {
  session->BeginTransaction();
  session->DisconnectFromDatabase();
  session->Connect2DatabaseCS(database.ConnectionString());
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_EQ(session->GetErrorDescription(), "A transaction is already started.");
}

TEST_F(Transaction, CommitAfterReconnectFailsAndLeavesTheFlag) {
  session->BeginTransaction();
  session->Connect2DatabaseCS(database.ConnectionString());
  EXPECT_FALSE(session->CommitTransaction());
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(Transaction, WaitsForAnotherClientsOnlySoLong) {
  const Ref<CSession> other = database.OpenSession();
  other->BeginTransaction();
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::FileUnusable));
  EXPECT_FALSE(session->TransactionStarted());
}

TEST(TransactionWithoutConnection, BeginRaises) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->BeginTransaction(); }), 91);
  EXPECT_FALSE(session->TransactionStarted());
}

TEST(TransactionWithoutConnection, CommitReportsThatNoneRuns) {
  const auto session = MakeRef<CSession>();
  EXPECT_FALSE(session->CommitTransaction());
  EXPECT_EQ(session->GetErrorDescription(), "No transaction is started.");
}

TEST(TransactionWithoutConnection, MisuseLeavesAFreshRecordWithoutCode) {
  const auto session = MakeRef<CSession>();
  session->CommitTransaction();
  EXPECT_EQ(NumberRaised([&] { session->GetErrorCode(); }), 13);
}

}  // namespace
}  // namespace zef::test
