#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <sstream>

#include "platform/recordset.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/process.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr std::int32_t kNotes = 3;
constexpr std::int32_t kMissing = 99;

class Sequence : public SessionTest {
 protected:
  Sequence() { SetValue("41"); }
  void SetValue(const std::string& value) {
    connection().Execute("UPDATE Sequences SET SEQ_Value=" + value + " WHERE SEQ_ID=3");
  }
  std::string StoredValue() { return Scalar("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=3"); }
  std::int32_t Draw(std::int32_t batch = 1) {
    std::int32_t id = -5;
    EXPECT_EQ(session->GetUniqueIDFromSeq(kNotes, id, batch), 1) << session->GetEntireErrorDesc();
    return id;
  }
  std::int32_t DrawInVain(std::int32_t sequence, std::int32_t batch = 1) {
    std::int32_t id = -5;
    EXPECT_EQ(session->GetUniqueIDFromSeq(sequence, id, batch), 0);
    return id;
  }
  int Depth() { return connection().OpenedEngine().TransactionDepth(); }
};

TEST_F(Sequence, ReturnsOne) {
  std::int32_t id = 0;
  EXPECT_EQ(session->GetUniqueIDFromSeq(kNotes, id), 1);
}

TEST_F(Sequence, IssuesTheNextNumber) { EXPECT_EQ(Draw(), 42); }

TEST_F(Sequence, HasABatchOfOneByDefault) {
  std::int32_t id = 0;
  session->GetUniqueIDFromSeq(kNotes, id);
  EXPECT_EQ(id, 42);
}

TEST_F(Sequence, StoresTheNumberIssuedLast) {
  Draw();
  EXPECT_EQ(StoredValue(), "42");
}

TEST_F(Sequence, GivesTheHighestNumberOfABatch) { EXPECT_EQ(Draw(5), 46); }

TEST_F(Sequence, StoresTheHighestNumberOfABatch) {
  Draw(5);
  EXPECT_EQ(StoredValue(), "46");
}

TEST_F(Sequence, GoesOnBehindABatch) {
  Draw(5);
  EXPECT_EQ(Draw(), 47);
}

TEST_F(Sequence, BatchOfZeroGivesTheNumberIssuedLast) {
  EXPECT_EQ(Draw(0), 41);
  EXPECT_EQ(StoredValue(), "41");
}

TEST_F(Sequence, BatchBelowZeroGoesBack) {
  EXPECT_EQ(Draw(-5), 36);
  EXPECT_EQ(StoredValue(), "36");
}

TEST_F(Sequence, LeavesTheOtherSequences) {
  Draw();
  EXPECT_EQ(Scalar("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=12"), "12");
}

TEST_F(Sequence, NewDatabaseHasOneForEachOfTwelveKinds) {
  EXPECT_EQ(Count(connection(), "Sequences WHERE SEQ_ID BETWEEN 1 AND 12"), 12);
}

TEST_F(Sequence, LeavesTheErrorRecord) {
  session->RecordError("Earlier", 77, "seven");
  Draw();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Sequence, LeavesNoTransactionOpen) {
  Draw();
  EXPECT_EQ(Depth(), 0);
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(Sequence, IsCommittedAtOnce) {
  Draw();
  EXPECT_EQ(test::Scalar(*database.Connect(), "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=3"), "42");
}

TEST_F(Sequence, SendsItsSelectLetterByLetter) {
  const auto log = Watch(connection());
  Draw();
  ASSERT_EQ(log->texts.size(), 4U);
  EXPECT_EQ(log->texts[0], "BEGIN");
  EXPECT_EQ(log->texts[1], "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=3");
  EXPECT_EQ(log->texts[3], "COMMIT");
}

TEST_F(Sequence, InsideATransactionNestsAndLeavesItRunning) {
  session->BeginTransaction();
  Draw();
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(Sequence, RollbackOfTheOuterTransactionTakesTheNumberBack) {
  session->BeginTransaction();
  Draw();
  session->RollbackTransaction();
  EXPECT_EQ(StoredValue(), "41");
}

TEST_F(Sequence, CommitOfTheOuterTransactionKeepsTheNumber) {
  session->BeginTransaction();
  Draw();
  session->CommitTransaction();
  EXPECT_EQ(StoredValue(), "42");
}

TEST_F(Sequence, MissingRowReturnsZero) {
  std::int32_t id = 0;
  EXPECT_EQ(session->GetUniqueIDFromSeq(kMissing, id), 0);
}

TEST_F(Sequence, MissingRowIsRecorded) {
  DrawInVain(kMissing);
  EXPECT_TRUE(session->GetErrorFlag());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
  EXPECT_EQ(session->GetErrorCode(), 3021);
}

TEST_F(Sequence, MissingRowLeavesNoTransactionOpen) {
  DrawInVain(kMissing);
  EXPECT_EQ(Depth(), 0);
}

TEST_F(Sequence, MissingRowInsideATransactionLeavesThatOneRunning) {
  session->BeginTransaction();
  DrawInVain(kMissing);
  EXPECT_EQ(Depth(), 1);
  EXPECT_EQ(Draw(), 42);
  EXPECT_TRUE(session->CommitTransaction());
}

TEST_F(Sequence, MissingRowLeavesTheReceiver) { EXPECT_EQ(DrawInVain(kMissing), -5); }

TEST_F(Sequence, MissingRowAddsNone) {
  DrawInVain(kMissing);
  EXPECT_EQ(Count(connection(), "Sequences"), 12);
}

TEST_F(Sequence, FailedWriteHasGivenTheNumberAlready) {
  const auto log = Watch(connection());
  log->refused = {"UPDATE"};
  EXPECT_EQ(DrawInVain(kNotes), 42);
  EXPECT_EQ(StoredValue(), "41");
}

TEST_F(Sequence, ReachesTheLargestNumber) {
  SetValue("2147483646");
  EXPECT_EQ(Draw(), 2147483647);
}

TEST_F(Sequence, BehindTheLargestNumberOverflows) {
  SetValue("2147483647");
  DrawInVain(kNotes);
  EXPECT_EQ(session->GetErrorCode(), 6);
}

TEST_F(Sequence, OverflowLeavesTheValue) {
  SetValue("2147483647");
  DrawInVain(kNotes);
  EXPECT_EQ(StoredValue(), "2147483647");
}

TEST_F(Sequence, OverflowLeavesNoTransactionOpen) {
  SetValue("2147483647");
  DrawInVain(kNotes);
  EXPECT_EQ(Depth(), 0);
}

TEST_F(Sequence, BatchBeyondTheLargestNumberOverflows) {
  DrawInVain(kNotes, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(session->GetErrorCode(), 6);
  EXPECT_EQ(StoredValue(), "41");
}

TEST_F(Sequence, NullInTheValueFails) {
  SetValue("Null");
  DrawInVain(kNotes);
  EXPECT_EQ(session->GetErrorCode(), 94);
  EXPECT_EQ(StoredValue(), "Null");
}

TEST_F(Sequence, FailureOfTheObjectsIsTheProvidersOldOne) {
  EXPECT_TRUE(Raised([&] { connection().Execute("SELECT * FROM NoSuchTable"); }));
  DrawInVain(kMissing);
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchTable));
}

TEST_F(Sequence, FailureOfAnyCallChangesNothing) {
  std::int32_t id = 0;
  const auto failures = FailEachCall(database, *session, [&] { return session->GetUniqueIDFromSeq(kNotes, id) == 1; });
  EXPECT_EQ(failures.size(), 4U) << "begin, select, update, commit";
  for (const InjectedFailure& failure : failures) EXPECT_EQ(failure.procedure, "GetUniqueIDFromSeq");
  EXPECT_EQ(id, 42);
}

TEST_F(Sequence, FailureOfAnyCallInsideATransactionLeavesThatOneUsable) {
  for (int call = 1; call <= 4; ++call) {
    ASSERT_TRUE(session->BeginTransaction());
    Watch(connection())->fail_at = call;
    DrawInVain(kNotes);
    EXPECT_EQ(Depth(), 1) << call;
    EXPECT_EQ(Draw(), 42) << call;
    ASSERT_TRUE(session->RollbackTransaction());
  }
}

TEST_F(Sequence, WithoutConnectionRaises) {
  const auto unconnected = MakeRef<CSession>();
  std::int32_t id = 0;
  EXPECT_EQ(NumberRaised([&] { unconnected->GetUniqueIDFromSeq(kNotes, id); }), 91);
}

TEST_F(Sequence, OnAClosedConnectionReturnsZero) {
  connection().Close();
  DrawInVain(kNotes);
  EXPECT_EQ(session->GetErrorCode(), 3704);
}

constexpr int kProcesses = 8;
constexpr int kDraws = 150;

/// Where the disk is busy, the others may keep one waiting for longer than the engine's patience; it tries again then.
bool DrawPatiently(CSession& session, std::int32_t& id) {
  constexpr std::int32_t kLocked = -2147467259;
  while (session.GetUniqueIDFromSeq(kNotes, id) == 0) {
    if (session.GetErrorCode() != kLocked) return false;
  }
  return true;
}

std::string DrawMany(const Database& database) {
  const Ref<CSession> session = database.OpenSession();
  std::string numbers;
  for (int i = 0; i < kDraws; ++i) {
    std::int32_t id = 0;
    if (!DrawPatiently(*session, id)) return session->GetEntireErrorDesc();
    numbers += std::to_string(id) + " ";
  }
  return numbers;
}

TEST(SequenceOfManyProcesses, GivesNoNumberTwice) {
  const Database database;
  std::vector<std::unique_ptr<Process>> processes;
  for (int i = 0; i < kProcesses; ++i) {
    processes.push_back(std::make_unique<Process>([&] { return DrawMany(database); }));
  }
  std::set<std::int32_t> numbers;
  for (const auto& process : processes) {
    std::istringstream drawn(process->Result());
    for (std::int32_t number = 0; drawn >> number;) numbers.insert(number);
    EXPECT_TRUE(drawn.eof()) << drawn.str();
  }
  EXPECT_EQ(numbers.size(), static_cast<std::size_t>(kProcesses * kDraws));
  EXPECT_EQ(*numbers.rbegin(), kProcesses * kDraws) << "no number is left out either";
}

}  // namespace
}  // namespace zef::test
