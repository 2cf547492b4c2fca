#pragma once

#include <functional>
#include <string>
#include <vector>

#include "session/session.h"

namespace zef::test {

/// An operation of a session, or the `Save` of a record. True if it did what it is for.
struct Operation {
  std::string name;
  std::function<bool(CSession&)> run;
};

/// Adds what the operations work on: one record of each kind under number 101, with its children.
void AddRecords(Connection& connection);

/// Every operation of a session that touches the database but for the upgrades, and the saves of new and of stored
/// records, each on the records of `AddRecords`.
const std::vector<Operation>& Operations();

}  // namespace zef::test
