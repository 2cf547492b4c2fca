#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "session/session.h"

namespace zef {

/// Message of a refusal, code 105.
inline constexpr std::string_view kNoRights = "You don't have rights to insert/edit data";

/// Runs `body` and returns its result. A failure is written to the session's error record under `procedure`, and the
/// result is `fallback`. A failure of the recording itself, as without a connection, reaches the caller.
template <class Result, class Body>
Result Trapped(CSession& session, std::string_view procedure, Result fallback, Body&& body) {
  try {
    return body();
  } catch (...) {
    session.RecordError(std::string(procedure));
    return fallback;
  }
}

/// The same for a record's session; where that is Nothing, a failure reaches the caller as 91.
template <class Result, class Body>
Result Trapped(const Ref<CSession>& session, std::string_view procedure, Result fallback, Body&& body) {
  try {
    return body();
  } catch (...) {
    Deref(session).RecordError(std::string(procedure));
    return fallback;
  }
}

/// True if the session may only read: then the refusal stands in the error record under `procedure`.
inline bool Refused(CSession& session, std::string_view procedure) {
  if (!session.IsDataViewer()) return false;
  session.RecordError(std::string(procedure), 105, std::string(kNoRights));
  return true;
}

/// Records that a callee failed without raising: the provider's failure if one is listed, else the reason that the
/// callee left in the record, now under `procedure`.
inline void RecordCallee(CSession& session, std::string_view procedure) {
  const std::int32_t reason = session.GetErrorFlag() ? session.GetErrorCode() : 0;
  const bool listed = Deref(session.conDBConnection).Errors().Count() > 0;
  if (listed || reason <= 0) return session.RecordError(std::string(procedure));
  session.RecordError(std::string(procedure), reason, session.GetErrorDescription());
}

/// How the steps of a `Save` ended. `Failed` needs a record of its own; after `Quiet` the record shows what a callee
/// wrote.
enum class Outcome { Done, Failed, Quiet };

/// Runs the steps of a `Save` in the session's transaction, opening one if none is running; that one is committed after
/// `Done` and undone otherwise. Failures that the steps raise are trapped under `procedure`. True if all went well.
template <class Steps>
bool InTransaction(CSession& session, std::string_view procedure, Steps&& steps) {
  bool owner = false;
  const bool done = Trapped(session, procedure, false, [&] {
    Outcome outcome = Outcome::Failed;
    if (session.TransactionStarted() || (owner = session.BeginTransaction())) outcome = steps();
    if (outcome == Outcome::Done && owner && !session.CommitTransaction()) outcome = Outcome::Failed;
    if (outcome == Outcome::Failed) RecordCallee(session, procedure);
    return outcome == Outcome::Done;
  });
  if (!done && owner) session.RollbackTransaction();
  return done;
}

}  // namespace zef
