#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/database.h"

namespace zef::test {

/// A database call that was made to fail, and the procedure that the error record named afterwards.
struct InjectedFailure {
  std::string call;  ///< the statement's text, or BEGIN or COMMIT
  std::string procedure;
};

/// Which tables a failed operation must leave as they were. An operation that draws several identifiers in transactions
/// of their own keeps those that it has drawn.
enum class Unchanged { AllTables, AllButSequences };

/// Runs `operation` again and again on a session outside a transaction: the k-th run's k-th database call fails, until
/// a run meets no failure. Expects of each failing run that the operation returned False with the error flag set, that
/// no transaction is open in the session or on its connection and a new one can be had, and that the tables and `state`
/// (the flags of the records concerned, say) are what they were; and of the last run that it succeeds. Calls that begin
/// with `spared` never fail: those whose failure is none of the operation's. Gives the failures in order.
std::vector<InjectedFailure> FailEachCall(const Database& database, CSession& session,
                                          const std::function<bool()>& operation,
                                          const std::function<std::string()>& state = {},
                                          Unchanged unchanged = Unchanged::AllTables, const std::string& spared = {});

/// The identifier and the flags of a record, for `FailEachCall`.
template <class Record>
std::string FlagsOf(const Record& record) {
  return std::to_string(record.ID) + (record.IsNew() ? " new" : " stored") +
         (record.IsModified() ? " modified" : " clear");
}

}  // namespace zef::test
