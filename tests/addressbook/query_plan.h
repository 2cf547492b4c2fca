#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"
#include "platform/sql/compile.h"
#include "platform/sql/parser.h"
#include "platform/sqlite/functions.h"
#include "platform/sqlite/sqlite_dialect.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/table_description.h"

namespace zef::test {

/// The tables of a database file.
class FileCatalog final : public sql::Catalog {
 public:
  explicit FileCatalog(sqlite3* db) : db_(db) {}
  const sql::TableInfo* FindTable(std::string_view name) override {
    return &tables_.try_emplace(std::string(name), DescribeTable(db_, name)).first->second;
  }

 private:
  sqlite3* db_;
  std::map<std::string, sql::TableInfo> tables_;
};

/// How the engine goes about a statement of the dialect on a database file, one step a line.
inline std::string QueryPlan(const std::string& path, std::string_view text) {
  const DatabaseHandle db = OpenDatabaseFile(path, {});
  RegisterFunctions(db.get(), [](const RunTimeError&) {});
  FileCatalog catalog(db.get());
  sql::Shape shape;
  sql::ReadShape(text, shape);
  const std::string written = sql::Compile(sql::Parse(shape), shape, catalog, SqliteDialect(), {}).text;
  sqlite3_stmt* raw = nullptr;
  sqlite3_prepare_v2(db.get(), ("EXPLAIN QUERY PLAN " + written).c_str(), -1, &raw, nullptr);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, &sqlite3_finalize);
  std::string plan;
  while (sqlite3_step(raw) == SQLITE_ROW) {
    plan.append(reinterpret_cast<const char*>(sqlite3_column_text(raw, 3))).append("\n");
  }
  return plan;
}

}  // namespace zef::test
