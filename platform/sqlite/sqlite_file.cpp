#include "platform/sqlite/sqlite_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include "platform/file_calls.h"
#include "platform/sqlite/sqlite_error.h"

namespace zef {
namespace {

[[noreturn]] void Unusable(const std::string& sentence) { throw RunTimeError(FailureNumber::FileUnusable, sentence); }
[[noreturn]] void Refused(const std::string& sentence) { throw RunTimeError(FailureNumber::PasswordRefused, sentence); }

std::string Quoted(const std::string& path) { return "'" + path + "'"; }

void CheckPath(const std::string& path) {
  if (path.empty()) Unusable("No database file is named.");
  if (path.find('\0') != std::string::npos) Unusable("The name of the database file holds a zero character.");
  const auto status = file_calls::StatusBehindLinks(path);
  if (!status) {
    if (errno == EACCES) Unusable("The database file " + Quoted(path) + " cannot be reached: permission denied.");
    Unusable("The database file " + Quoted(path) + " does not exist.");
  }
  if (status->kind == file_calls::Kind::Folder) Unusable(Quoted(path) + " is a folder, not a database file.");
  if (status->kind != file_calls::Kind::Regular) Unusable(Quoted(path) + " is not a regular file.");
  if (!file_calls::MayRead(path)) Unusable("The database file " + Quoted(path) + " cannot be read: permission denied.");
  if (!file_calls::MayWrite(path)) Unusable("The database file " + Quoted(path) + " is read-only.");
}

enum class Kind { Plain, Encrypted, Other };

/// The first bytes tell the kinds of file apart. An encrypted file keeps eight bytes of the header readable, among them
/// the page size and three fixed payload fractions.
Kind KindOf(const std::string& path) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  std::array<char, 100> header{};
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  file.read(header.data(), header.size());
  const auto size = static_cast<std::size_t>(file.gcount());
  if (std::string_view(header.data(), std::min(size, kMagic.size())) == kMagic) return Kind::Plain;
  if (size < header.size()) return Kind::Other;
  const bool fractions = header[21] == 64 && header[22] == 32 && header[23] == 32;
  const bool versions = (header[18] == 1 || header[18] == 2) && (header[19] == 1 || header[19] == 2);
  return fractions && versions ? Kind::Encrypted : Kind::Other;
}

void CheckKind(const std::string& path, Kind kind, const std::string& password) {
  if (kind == Kind::Other) Unusable("The file " + Quoted(path) + " is not a database.");
  if (kind == Kind::Encrypted && password.empty())
    Refused("The database is protected; it opens with its password only.");
  if (kind == Kind::Plain && !password.empty()) Refused("The password does not fit: this database has none.");
}

void SetPassword([[maybe_unused]] sqlite3* db, const std::string& password) {
  if (password.empty()) return;
#ifdef ZEF_SYSTEM_SQLITE
  Refused("This build of the library has no encryption; a database password cannot be used.");
#else
  CheckSqlite(db, sqlite3_key(db, password.data(), static_cast<int>(password.size())));
#endif
}

DatabaseHandle OpenHandle(const std::string& path, int flags) {
  sqlite3* db = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &db, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  DatabaseHandle handle(db);
  CheckSqlite(db, code);
  sqlite3_busy_timeout(db, 5000);
  return handle;
}

int Run(sqlite3* db, const char* statement) { return sqlite3_exec(db, statement, nullptr, nullptr, nullptr); }

/// The first read of the file: it decrypts, parses the tables and compares the file's length with what its header says.
void ProveReadable(sqlite3* db, const std::string& path, Kind kind) {
  const int code = Run(db, "SELECT count(*) FROM sqlite_schema") & 0xff;
  if (code == SQLITE_NOTADB && kind == Kind::Encrypted) Refused("The password of the database is wrong.");
  if (code == SQLITE_NOTADB || code == SQLITE_CORRUPT) {
    Unusable("The database file " + Quoted(path) + " is damaged or cut short.");
  }
  CheckSqlite(db, code);
}

}  // namespace

DatabaseHandle OpenDatabaseFile(const std::string& path, const std::string& password) {
  CheckPath(path);
  const Kind kind = KindOf(path);
  CheckKind(path, kind, password);
  DatabaseHandle db = OpenHandle(path, SQLITE_OPEN_READWRITE);
  SetPassword(db.get(), password);
  ProveReadable(db.get(), path, kind);
  return db;
}

DatabaseHandle OpenNewDatabaseFile(const std::string& path, const std::string& password) {
  const int file = file_calls::MakeNew(path);
  if (file < 0) {
    throw RunTimeError(FailureNumber::PathFileAccess,
                       "The file " + Quoted(path) + " cannot be made: " + file_calls::Reason(errno) + ".");
  }
  file_calls::Close(file);
  DatabaseHandle db = OpenHandle(path, SQLITE_OPEN_READWRITE);
  SetPassword(db.get(), password);
  return db;
}

void CreateDatabaseFile(const std::string& path, const std::string& password) {
  const DatabaseHandle db = OpenNewDatabaseFile(path, password);
  CheckSqlite(db.get(), Run(db.get(), "PRAGMA journal_mode=WAL"));
  CheckSqlite(db.get(), Run(db.get(), "PRAGMA user_version=0; VACUUM"));
}

void ReleaseSqlite() {
#ifndef ZEF_SYSTEM_SQLITE
  sqlite3_shutdown();
#endif
}

}  // namespace zef
