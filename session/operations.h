#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/recordset.h"
#include "session/bas_global.h"
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

/// What `make` gives for the first row of a select, or Nothing with a clear error record if there is no row.
template <class Make>
auto GetElement(CSession& session, std::string_view procedure, const std::string& text, Make&& make,
                std::int32_t options = adCmdText) {
  using Element = decltype(make(Ref<Recordset>()));
  return Trapped(session, procedure, Element(), [&] {
    session.ClearError();
    const Ref<Recordset> rs = OpenSelect(session, text, options);
    return rs->EndOfFile() ? Element() : make(rs);
  });
}

/// The record of a record set's current row.
template <class R>
Ref<R> ReadRecord(const Ref<CSession>& session, const Ref<Recordset>& rs) {
  auto record = MakeRef<R>();
  record->SetSession(session);
  record->GetValuesFromRS(rs);
  return record;
}

/// The record of a select's first row, see `GetElement`.
template <class R>
Ref<R> GetFirst(CSession& session, std::string_view procedure, const std::string& text,
                std::int32_t options = adCmdText) {
  return GetElement(
      session, procedure, text, [&](const Ref<Recordset>& rs) { return ReadRecord<R>(&session, rs); }, options);
}

/// "Get<class>": the record of one row, or Nothing with a clear error record if there is no such row.
template <class R>
Ref<R> GetRecord(CSession& session, std::string_view procedure, std::string_view select, std::int32_t id,
                 std::int32_t options = adCmdText) {
  return GetFirst<R>(session, procedure, WithNumber(select, id), options);
}

/// The identifier in the first row of a select, or -1 if there is no row. A Null there reads as `null`, and is a
/// failure if that is Null as well.
inline std::int32_t FirstID(CSession& session, std::string_view procedure, const std::string& text,
                            std::string_view column, const Value& null = Value()) {
  return Trapped(session, procedure, std::int32_t{-1}, [&] {
    session.ClearError();
    const Ref<Recordset> rs = OpenSelect(session, text);
    return rs->EndOfFile() ? -1 : ToLong(Nz(rs->Fields().Item(column).Value(), null));
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

/// Fills the collection with what `make` gives for each row of a select. The collection is emptied only once the
/// statement has been opened; what was added before a failure stays.
template <class Element, class Make>
bool LoadElements(CSession& session, const Ref<Collection<Element>>& elements, std::string_view procedure,
                  const std::string& text, Make&& make) {
  return Trapped(session, procedure, false, [&] {
    session.ClearError();
    const Ref<Recordset> rs = OpenSelect(session, text);
    Deref(elements).Clear();
    for (; !rs->EndOfFile(); rs->MoveNext()) elements->Add(make(rs));
    return true;
  });
}

/// "Load<plural>WithCriteria": fills the collection with all rows that meet the client's condition, which stands in the
/// statement as it came.
template <class R>
bool LoadRecords(CSession& session, const Ref<Collection<R>>& records, std::string_view procedure,
                 std::string_view select, const std::string& criteria, std::string_view sort = {}) {
  const Ref<CSession> owner(&session);
  return LoadElements(session, records, procedure, SelectText(select, criteria, sort),
                      [&](const Ref<Recordset>& rs) { return ReadRecord<R>(owner, rs); });
}

/// "Delete<class>" of classes without anything that hangs on them; a row need not exist. With a `refusal` it is only
/// for those who may write.
inline bool DeleteRow(CSession& session, std::string_view procedure, std::string_view statement, std::int32_t id,
                      std::string_view refusal = {}) {
  return Trapped(session, procedure, false, [&] {
    session.ClearError();
    if (!refusal.empty() && Refused(session, refusal)) return false;
    Execute(session, WithNumber(statement, id));
    return true;
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
/// inside one of the session. It is undone unless the steps say true; their failures are trapped under `procedure`. A
/// failure of the undoing reaches the caller, for whom the transaction is still open then.
template <class Steps>
bool InConnectionTransaction(CSession& session, std::string_view procedure, Steps&& steps) {
  bool begun = false;
  const bool done = Trapped(session, procedure, false, [&] {
    Connection& connection = Deref(session.conDBConnection);
    connection.BeginTrans();
    begun = true;
    if (!steps()) return false;
    connection.CommitTrans();
    return true;
  });
  if (!done && begun) Deref(session.conDBConnection).RollbackTrans();
  return done;
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
