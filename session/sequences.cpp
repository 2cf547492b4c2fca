#include "platform/recordset.h"
#include "platform/transaction_guard.h"
#include "platform/value.h"
#include "session/session.h"
#include "session/statements.h"
#include "session/trap.h"

namespace zef {
namespace {

constexpr char kSelectSequence[] = "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=";

std::int32_t Sum(std::int32_t a, std::int32_t b) {
  std::int32_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throw RunTimeError(FailureNumber::Overflow);
  return sum;
}

}  // namespace

std::int32_t CSession::GetUniqueIDFromSeq(std::int32_t lngSeqID, std::int32_t& lngID, std::int32_t lngBatchSize) {
  bool begun = false;
  const bool issued = Trapped(*this, "GetUniqueIDFromSeq", false, [&] {
    Connection& connection = Deref(conDBConnection);
    connection.BeginTrans();
    begun = true;
    auto sequence = MakeRef<Recordset>();
    sequence->Open(WithNumber(kSelectSequence, lngSeqID), conDBConnection, adOpenForwardOnly, adLockPessimistic);
    Field value = sequence->Fields().Item("SEQ_Value");
    lngID = Sum(ToLong(value.Value()), lngBatchSize);
    value.SetValue(lngID);
    sequence->Update();
    sequence.reset();
    connection.CommitTrans();
    return true;
  });
  if (!issued && begun) IgnoringFailures([&] { Deref(conDBConnection).RollbackTrans(); });
  return issued ? 1 : 0;
}

}  // namespace zef
