#include <gtest/gtest.h>

#include <new>

#include "folders/folder.h"
#include "platform/recordset.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr char kNoSuchTable[] = "SELECT * FROM NoSuchTable";
constexpr auto kTableMissing = static_cast<std::int32_t>(FailureNumber::NoSuchTable);

/// Records while a run-time failure is being handled.
void RecordOverflow(CSession& session, std::int32_t code = 0, const std::string& message = {}) {
  try {
    throw RunTimeError(FailureNumber::Overflow);
  } catch (const RunTimeError&) {
    session.RecordError("Handler", code, message);
  }
}

TEST(ErrorRecord, FreshSessionHasNoFlag) { EXPECT_FALSE(MakeRef<CSession>()->GetErrorFlag()); }

TEST(ErrorRecord, FreshSessionHasNoCode) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->GetErrorCode(); }), 13);
}

TEST(ErrorRecord, FreshSessionTellsEmptyTexts) {
  EXPECT_EQ(MakeRef<CSession>()->GetEntireErrorDesc(), "[] Error:  - ");
}

TEST(ErrorRecord, MessageMayBeTheRecordsOwnProcedure) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Old", 1, "x");
  session->RecordError("New", 2, session->GetErrorProcedure());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[New] Error: 2 - Old");
}

TEST(ErrorRecord, ClearedHasCodeZero) {
  const auto session = MakeRef<CSession>();
  session->ClearError();
  EXPECT_EQ(session->GetErrorCode(), 0);
}

TEST(ErrorRecord, ClearedTellsEmptyTextsAndZero) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 1, "something");
  session->ClearError();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST(ErrorRecord, ClearedHasNoFlag) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 1, "something");
  session->ClearError();
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST(ErrorRecord, RecordedCodeCanBeRead) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 105, "not allowed");
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST(ErrorRecord, RecordedMessageIsTheDescription) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 105, "not allowed");
  EXPECT_EQ(session->GetErrorDescription(), "not allowed");
}

TEST(ErrorRecord, RecordedProcedureCanBeRead) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 105, "not allowed");
  EXPECT_EQ(session->GetErrorProcedure(), "Somebody");
}

TEST(ErrorRecord, RecordingSetsTheFlag) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 105, "not allowed");
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST(ErrorRecord, EntireDescriptionJoinsTheThreeTexts) {
  const auto session = MakeRef<CSession>();
  session->RecordError("CFolder.Save", 1000, "A folder with this name already exists");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CFolder.Save] Error: 1000 - A folder with this name already exists");
}

TEST(ErrorRecord, SecondFailureOverwritesTheFirst) {
  const auto session = MakeRef<CSession>();
  session->RecordError("First", 1, "one");
  session->RecordError("Second", 2, "two");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Second] Error: 2 - two");
}

TEST(ErrorRecord, CodeWithoutMessageLeavesAnEmptyDescription) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 7);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Somebody] Error: 7 - ");
}

TEST(ErrorRecord, LargestCodeCanBeRead) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Somebody", 2147483647, "largest");
  EXPECT_EQ(session->GetErrorCode(), 2147483647);
}

TEST(ErrorRecord, CanBeRecordedAgainFromItsOwnTexts) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Earlier", 1, "one");
  session->RecordError(session->GetErrorDescription(), 2, session->GetErrorProcedure());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[one] Error: 2 - Earlier");
}

using ErrorRecordOnConnection = SessionTest;

TEST_F(ErrorRecordOnConnection, WithoutCodeTakesTheRunTimeFailure) {
  RecordOverflow(*session);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Handler] Error: 6 - Overflow");
}

TEST_F(ErrorRecordOnConnection, FailureOfAnotherKindIsRecordedToo) {
  try {
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
    session->RecordError("Handler");
  }
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Handler] Error: 7 - Out of memory");
}

TEST_F(ErrorRecordOnConnection, FailureThatIsNoExceptionIsRecordedAsFive) {
  try {
    throw 17;
  } catch (int) {
    session->RecordError("Handler");
  }
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Handler] Error: 5 - Invalid procedure call or argument");
}

TEST_F(ErrorRecordOnConnection, WithoutCodeAndFailureTheCodeIsZero) {
  session->RecordError("Nobody");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Nobody] Error: 0 - ");
}

TEST_F(ErrorRecordOnConnection, MessageWithoutCodeIsIgnored) {
  RecordOverflow(*session, 0, "ignored");
  EXPECT_EQ(session->GetErrorDescription(), "Overflow");
}

TEST_F(ErrorRecordOnConnection, NegativeCodeCountsAsNone) {
  RecordOverflow(*session, -1, "ignored");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Handler] Error: 6 - Overflow");
}

TEST_F(ErrorRecordOnConnection, ProviderEntryComesBeforeTheRunTimeFailure) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  RecordOverflow(*session);
  EXPECT_EQ(session->GetErrorCode(), kTableMissing);
}

TEST_F(ErrorRecordOnConnection, ProviderEntryGivesItsDescription) {
  const auto failure = Raised([&] { connection().Execute(kNoSuchTable); });
  RecordOverflow(*session);
  EXPECT_EQ(session->GetErrorDescription(), failure.value().description());
}

TEST_F(ErrorRecordOnConnection, NegativeCodeTakesTheProviderEntry) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  session->RecordError("Handler", -1, "ignored");
  EXPECT_EQ(session->GetErrorCode(), kTableMissing);
}

TEST_F(ErrorRecordOnConnection, OldProviderEntryOutlivesSuccessfulCalls) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  connection().Execute("SELECT * FROM Folders");
  EXPECT_TRUE(session->BeginTransaction() && session->CommitTransaction());
  RecordOverflow(*session);
  EXPECT_EQ(session->GetErrorCode(), kTableMissing);
}

TEST_F(ErrorRecordOnConnection, ClearingTheRecordLeavesTheProviderEntry) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  session->ClearError();
  session->RecordError("Handler");
  EXPECT_EQ(session->GetErrorCode(), kTableMissing);
}

TEST_F(ErrorRecordOnConnection, NewerProviderEntryReplacesTheOldOne) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  EXPECT_NE(NumberRaised([&] { connection().CommitTrans(); }), 0);
  session->RecordError("Handler");
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoTransaction));
}

TEST_F(ErrorRecordOnConnection, PositiveCodeComesBeforeThePendingProviderEntry) {
  EXPECT_NE(NumberRaised([&] { connection().Execute(kNoSuchTable); }), 0);
  session->RecordError("Refusal", 105, "not allowed");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Refusal] Error: 105 - not allowed");
}

TEST(ErrorRecordWithoutConnection, RecordingWithoutCodeRaises) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->RecordError("Handler"); }), 91);
}

TEST(ErrorRecordWithoutConnection, RecordingWithoutCodeWritesTheProcedure) {
  const auto session = MakeRef<CSession>();
  EXPECT_TRUE(Raised([&] { session->RecordError("Handler"); }));
  EXPECT_EQ(session->GetErrorProcedure(), "Handler");
}

TEST(ErrorRecordWithoutConnection, RecordingWithoutCodeLeavesTheFlagClear) {
  const auto session = MakeRef<CSession>();
  EXPECT_TRUE(Raised([&] { session->RecordError("Handler"); }));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST(ErrorRecordWithoutConnection, RecordingWithoutCodeLeavesTheFlagSet) {
  const auto session = MakeRef<CSession>();
  session->RecordError("Earlier", 1, "one");
  EXPECT_TRUE(Raised([&] { session->RecordError("Handler"); }));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Handler] Error: 1 - one");
}

TEST(ErrorRecordWithoutConnection, RecordingWithCodeNeedsNoConnection) {
  const auto session = MakeRef<CSession>();
  EXPECT_FALSE(Raised([&] { session->RecordError("Handler", 105, "not allowed"); }));
}

TEST(ErrorRecordWithoutConnection, TrappedOperationRaises) {
  const auto session = MakeRef<CSession>();
  EXPECT_EQ(NumberRaised([&] { session->GetFolder(1); }), 91);
}

}  // namespace
}  // namespace zef::test
