#include <stdexcept>

#include "bench/by_hand.h"

namespace zef::bench {

HandDatabase::HandDatabase(const std::string& path) {
  sqlite3* db = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  db_.reset(db);
  Require(code == SQLITE_OK);
  sqlite3_busy_timeout(db, 5000);
  Execute("PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF; PRAGMA trusted_schema=OFF");
}

void HandDatabase::Require(bool success) const {
  if (!success) throw std::runtime_error(sqlite3_errmsg(db_.get()));
}

HandStatement HandDatabase::Prepare(std::string_view text, bool kept) const {
  sqlite3_stmt* statement = nullptr;
  const unsigned flags = kept ? SQLITE_PREPARE_PERSISTENT : 0;
  Require(sqlite3_prepare_v3(db_.get(), text.data(), static_cast<int>(text.size()), flags, &statement, nullptr) ==
          SQLITE_OK);
  return HandStatement(statement);
}

bool HandDatabase::Step(const HandStatement& statement) const {
  const int code = sqlite3_step(statement.get());
  Require(code == SQLITE_ROW || code == SQLITE_DONE);
  return code == SQLITE_ROW;
}

bool HandDatabase::Run(const HandStatement& statement) const {
  const bool row = Step(statement);
  sqlite3_reset(statement.get());
  return !row;
}

void HandDatabase::Execute(const char* text) const {
  Require(sqlite3_exec(db_.get(), text, nullptr, nullptr, nullptr) == SQLITE_OK);
}

void HandDatabase::Checkpoint() const {
  Require(sqlite3_wal_checkpoint_v2(db_.get(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr) == SQLITE_OK);
}

}  // namespace zef::bench
