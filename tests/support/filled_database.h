#pragma once

#include <string>

#include "platform/connection.h"

namespace zef::test {

/// Fills a database of version 9.1 with rows of every table that a client fills: Nulls, dangling identifiers,
/// apostrophes, texts of full length and of other scripts.
void FillOlderDatabase(Connection& connection);

/// Adds so many contacts and tasks and twice as many events; some references are Null and some dangle.
void AddManyRows(Connection& connection, int contacts);

/// What an upgrade must keep: every row of every table, references to lists read as the names that they stand for, in
/// an older database and in an upgraded one. Folders and what the upgrade adds are left out.
std::string KeptRows(Connection& connection);

}  // namespace zef::test
