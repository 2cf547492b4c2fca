#include "platform/sqlite/sqlite_backup.h"

#include <memory>

#include "platform/file_calls.h"
#include "platform/sqlite/sqlite_error.h"

namespace zef {
namespace {

constexpr int kPagesAPortion = 1000;

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using BackupHandle = std::unique_ptr<sqlite3_backup, FinishBackup>;

void CopyPages(sqlite3* from, sqlite3* to, const BackupProgress& progress) {
  CheckSqlite(to, sqlite3_exec(to, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr));
  BackupHandle backup(sqlite3_backup_init(to, "main", from, "main"));
  if (!backup) throw SqliteFailure(to, sqlite3_extended_errcode(to));
  int code = SQLITE_OK;
  while (code == SQLITE_OK) {
    code = sqlite3_backup_step(backup.get(), kPagesAPortion);
    const int all = sqlite3_backup_pagecount(backup.get());
    if (code == SQLITE_OK || code == SQLITE_DONE) progress(all - sqlite3_backup_remaining(backup.get()), all);
  }
  if (code != SQLITE_DONE) throw SqliteFailure(nullptr, code);
  // Only the end of the backup closes what it has opened in the copy, and may still fail.
  const int finished = sqlite3_backup_finish(backup.release());
  if (finished != SQLITE_OK) throw SqliteFailure(nullptr, finished);
}

}  // namespace

void BackUpDatabaseFile(const std::string& from, const std::string& password, const std::string& to,
                        const BackupProgress& progress) {
  const DatabaseHandle source = OpenDatabaseFile(from, password);
  DatabaseHandle copy = OpenNewDatabaseFile(to, password);
  try {
    CopyPages(source.get(), copy.get(), progress);
  } catch (...) {
    copy.reset();  // takes its journal along
    file_calls::Remove(to);
    throw;
  }
}

}  // namespace zef
