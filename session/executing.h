#pragma once

#include <string>
#include <string_view>

#include "platform/recordset.h"
#include "session/session.h"
#include "session/statements.h"

/// How the library runs statements on a session's connection where it opens no record set of its own. All raise what
/// the connection raises, and 91 without one.
namespace zef {

/// Runs a select; its record set stands on the first row.
inline Ref<Recordset> Select(CSession& session, const std::string& text) {
  return Deref(session.conDBConnection).Execute(text);
}

/// Runs a select of the rows with one key; `head` is the statement up to the number.
inline Ref<Recordset> SelectByKey(CSession& session, std::string_view head, std::int32_t key) {
  return Select(session, WithNumber(head, key));
}

/// Runs a statement for its effect.
inline void Execute(CSession& session, const std::string& text) { Deref(session.conDBConnection).Execute(text); }

}  // namespace zef
