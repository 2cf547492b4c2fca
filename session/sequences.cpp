#include "platform/checked_number.h"
#include "platform/ignoring_failures.h"
#include "platform/recordset.h"
#include "platform/value.h"
#include "session/session.h"
#include "session/statements.h"
#include "session/trap.h"

namespace zef {
namespace {

constexpr char kSelectSequence[] = "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=";

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
