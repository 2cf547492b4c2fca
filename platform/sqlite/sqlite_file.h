#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

namespace zef {

struct CloseDatabase {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;

/// Opens an existing database file for reading and writing and proves that it can be read. Raises -2147217843 for a
/// wrong, missing or superfluous password and -2147467259 for a file that is missing, a directory, not permitted, no
/// database, cut short or damaged; each case has its own sentence.
DatabaseHandle OpenDatabaseFile(const std::string& path, const std::string& password);

/// Makes a new file without content, private to the user (0600), and opens it as a database, which will be encrypted if
/// a password is given. Raises 75 if something of that name exists or the file cannot be made; a link in its place is
/// not followed.
DatabaseHandle OpenNewDatabaseFile(const std::string& path, const std::string& password);

/// Makes a new, empty database file, private to the user (0600), with write-ahead logging, encrypted if a password is
/// given. Raises as `OpenNewDatabaseFile` does.
void CreateDatabaseFile(const std::string& path, const std::string& password);

/// Gives back what SQLite keeps for the whole process; one that the process shares with others is left alone.
void ReleaseSqlite();

}  // namespace zef
