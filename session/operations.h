#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/recordset.h"
#include "platform/transaction_guard.h"
#include "session/collections.h"
#include "session/executing.h"
#include "session/session.h"
#include "session/statements.h"
#include "session/trap.h"

/// The families of operations that the session offers for every record class, written once. A member of the session
/// calls one with its own texts.
namespace zef {

/// Opens a select the way all reading does: static, optimistic, a text command.
inline Ref<Recordset> OpenSelect(CSession& session, const std::string& text, std::int32_t options = adCmdText) {
  auto rs = MakeRef<Recordset>();
  rs->Open(text, session.conDBConnection, adOpenStatic, adLockOptimistic, options);
  return rs;
}

/// "Get<class>": the record of one row, or Nothing with a clear error record if there is no such row.
template <class R>
Ref<R> GetRecord(CSession& session, std::string_view procedure, std::string_view select, std::int32_t id,
                 std::int32_t options = adCmdText) {
  return Trapped(session, procedure, Ref<R>(), [&] {
    session.ClearError();
    const Ref<Recordset> rs = OpenSelect(session, WithNumber(select, id), options);
    if (rs->EndOfFile()) return Ref<R>();
    auto record = MakeRef<R>();
    record->SetSession(Ref<CSession>(&session));
    record->GetValuesFromRS(rs);
    return record;
  });
}

/// "Create<class>": a new record under the next identifier of a sequence, without a row. A refusal is recorded on top
/// of what the error record holds.
template <class R>
Ref<R> CreateRecord(CSession& session, std::string_view procedure, std::int32_t sequence) {
  if (Refused(session, procedure)) return nullptr;
  auto record = MakeRef<R>();
  std::int32_t id = 0;
  if (session.GetUniqueIDFromSeq(sequence, id, 1) == 0) return nullptr;
  record->ID = id;
  record->SetSession(Ref<CSession>(&session));
  return record;
}

/// "Duplicate<class>": an unsaved copy of what `get` loads, under the next identifier of a sequence; `renumber` gives
/// the copy's children theirs and tells whether it could. Traps nothing; a refusal is recorded on top of what the error
/// record holds.
template <class R, class Renumber>
Ref<R> DuplicateRecord(CSession& session, std::string_view refusal, Ref<R> (CSession::*get)(std::int32_t),
                       std::int32_t old_id, std::int32_t sequence, Renumber&& renumber) {
  if (Refused(session, refusal)) return nullptr;
  Ref<R> copy = (session.*get)(old_id);
  std::int32_t id = 0;
  if (!copy || session.GetUniqueIDFromSeq(sequence, id, 1) == 0) return nullptr;
  copy->ID = id;
  if (!renumber(*copy)) return nullptr;
  copy->ResetFlagsX(true, true);
  return copy;
}

/// The same for a class without children.
template <class R>
Ref<R> DuplicateRecord(CSession& session, std::string_view refusal, Ref<R> (CSession::*get)(std::int32_t),
                       std::int32_t old_id, std::int32_t sequence) {
  return DuplicateRecord(session, refusal, get, old_id, sequence, [](R&) { return true; });
}

/// A select with the client's condition, if there is one, and a fixed order behind it.
inline std::string SelectText(std::string_view select, const std::string& criteria, std::string_view sort = {}) {
  std::string text(select);
  if (!criteria.empty()) text.append(" WHERE ").append(criteria);
  return text.append(sort);
}

/// "Load<plural>WithCriteria": fills the collection with all rows that meet the client's condition, which stands in the
/// statement as it came. The collection is emptied only once the statement has been opened.
template <class R>
bool LoadRecords(CSession& session, const Ref<Collection<R>>& records, std::string_view procedure,
                 std::string_view select, const std::string& criteria, std::string_view sort = {}) {
  return Trapped(session, procedure, false, [&] {
    session.ClearError();
    const Ref<Recordset> rs = OpenSelect(session, SelectText(select, criteria, sort));
    Deref(records).Clear();
    const Ref<CSession> owner(&session);
    for (; !rs->EndOfFile(); rs->MoveNext()) {
      auto record = MakeRef<R>();
      record->SetSession(owner);
      record->GetValuesFromRS(rs);
      records->Add(record);
    }
    return true;
  });
}

/// "Delete<class>" of classes without anything that hangs on them; a row need not exist.
inline bool DeleteRow(CSession& session, std::string_view procedure, std::string_view statement, std::int32_t id) {
  return Trapped(session, procedure, false, [&] {
    session.ClearError();
    Execute(session, WithNumber(statement, id));
    return true;
  });
}

/// The same for a class whose rows only those may delete who may write.
inline bool DeleteGuardedRow(CSession& session, std::string_view procedure, std::string_view refusal,
                             std::string_view statement, std::int32_t id) {
  return Trapped(session, procedure, false, [&] {
    session.ClearError();
    return !Refused(session, refusal) && DeleteRow(session, procedure, statement, id);
  });
}

/// "Delete<class>" of classes whose rows hang together, in a transaction that is opened in any case: inside one of the
/// client's it fails and undoes that one. A refusal takes the same way out, so that without a transaction the record
/// ends with the text of the rollback.
template <class Rows>
bool DeleteInTransaction(CSession& session, std::string_view procedure, std::string_view refusal, Rows&& delete_rows) {
  const bool deleted = Trapped(session, procedure, false, [&] {
    session.ClearError();
    if (Refused(session, refusal)) return false;
    return session.BeginTransaction() && delete_rows() && session.CommitTransaction();
  });
  if (!deleted) session.RollbackTransaction();
  return deleted;
}

/// Runs steps in a transaction of the connection itself, which the session's flag does not tell of and which may lie
/// inside one of the session. It is undone unless the steps say true; their failures are trapped under `procedure`.
template <class Steps>
bool InConnectionTransaction(CSession& session, std::string_view procedure, Steps&& steps) {
  std::optional<TransactionGuard<Connection>> transaction;  // undone only after the failure has been recorded
  return Trapped(session, procedure, false, [&] {
    transaction.emplace(Deref(session.conDBConnection));
    if (!steps()) return false;
    transaction->Commit();
    return true;
  });
}

/// "Refresh": reads the record's row again; without one, `code` and `message` are recorded. Does not clear the error
/// record first.
template <class R>
bool RefreshRecord(R& record, std::string_view procedure, std::string_view select, std::int32_t code,
                   const char* message) {
  CSession& session = Deref(record.Session());
  return Trapped(session, procedure, false, [&] {
    const Ref<Recordset> rs = SelectByKey(session, select, record.ID);
    if (rs->EndOfFile()) {
      session.RecordError(std::string(procedure), code, message);
      return false;
    }
    record.GetValuesFromRS(rs);
    return true;
  });
}

}  // namespace zef
