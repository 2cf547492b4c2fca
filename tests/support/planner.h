#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/sql/compile.h"
#include "platform/sql/parser.h"
#include "platform/sqlite/functions.h"
#include "platform/sqlite/sqlite_dialect.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/sqlite/table_description.h"
#include "platform/text.h"

namespace zef::test {

/// The tables of a database file.
class FileCatalog final : public sql::Catalog {
 public:
  explicit FileCatalog(sqlite3* db) : db_(db) {}
  const sql::TableInfo* FindTable(std::string_view name) override {
    const auto [entry, fresh] = tables_.try_emplace(text::LowerCase(name));
    if (fresh) entry->second = DescribeTable(db_, name);
    return entry->second.columns.empty() ? nullptr : &entry->second;
  }

 private:
  sqlite3* db_;
  std::map<std::string, sql::TableInfo> tables_;
};

/// Tells how the engine goes about the statements of the dialect on a database file.
class Planner {
 public:
  explicit Planner(const std::string& path) : db_(OpenDatabaseFile(path, "")), catalog_(db_.get()) {
    RegisterFunctions(db_.get(), [](const RunTimeError&) {});
  }

  /// The steps of a statement.
  std::vector<std::string> Steps(std::string_view text, sql::CompileOptions options = {}) {
    sql::Shape shape;
    sql::ReadShape(text, shape);
    const std::string written = sql::Compile(sql::Parse(shape), shape, catalog_, SqliteDialect(), options).text;
    const StatementHandle plan = PrepareOwn(db_.get(), "EXPLAIN QUERY PLAN " + written);
    std::vector<std::string> steps;
    while (sqlite3_step(plan.get()) == SQLITE_ROW) {
      steps.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(plan.get(), 3)));
    }
    return steps;
  }
  /// Those that walk a whole table, with a line each.
  std::string Scans(std::string_view text, sql::CompileOptions options = {}) {
    std::string scans;
    for (const std::string& step : Steps(text, options)) {
      if (step.starts_with("SCAN ") && step.find("CONSTANT ROW") == std::string::npos) scans += step + "\n";
    }
    return scans;
  }

 private:
  DatabaseHandle db_;
  FileCatalog catalog_;
};

}  // namespace zef::test
