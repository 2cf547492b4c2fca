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
/// (the flags of the records concerned, say) are what they were; and of the last run that it succeeds. Gives the
/// failures in order. Calls whose text begins with `spared` are left out: those whose failure the operation survives.
std::vector<InjectedFailure> FailEachCall(const Database& database, CSession& session,
                                          const std::function<bool()>& operation,
                                          const std::function<std::string()>& state = {},
                                          Unchanged unchanged = Unchanged::AllTables, const std::string& spared = {});

/// The same for the first `Save` of a record, which `make` makes anew for each run: a failed run leaves it new and
/// modified. A run for which `make` gives Nothing has failed.
template <class Make>
std::vector<InjectedFailure> FailEachFirstSave(const Database& database, CSession& session, Make&& make) {
  bool still_to_be_saved = true;
  const auto save = [&] {
    const auto record = make();
    if (!record) return false;
    const bool saved = record->Save();
    if (!saved) still_to_be_saved = record->IsNew() && record->IsModified();
    return saved;
  };
  return FailEachCall(
      database, session, save, [&] { return std::string(still_to_be_saved ? "new modified" : "thought to be saved"); },
      Unchanged::AllButSequences);
}

/// The identifier and the flags of a record, for `FailEachCall`.
template <class Record>
std::string FlagsOf(const Record& record) {
  return std::to_string(record.ID) + (record.IsNew() ? " new" : " stored") +
         (record.IsModified() ? " modified" : " clear");
}

}  // namespace zef::test
