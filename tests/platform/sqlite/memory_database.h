#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sql/convert.h"
#include "platform/sql/statement_clock.h"
#include "platform/sqlite/functions.h"
#include "tests/platform/sql/compile_support.h"

namespace zef::sql {

/// The tables of the small catalog in memory. Runs statements of the dialect; literals are bound by their plans.
class MemoryDatabase {
 public:
  MemoryDatabase() {
    sqlite3_open(":memory:", &db_);
    RegisterFunctions(db_, [this](RunTimeError failure) { failure_ = std::move(failure); });
    Exec(
        "CREATE TABLE Folders (FLD_ID INTEGER NOT NULL PRIMARY KEY, FLD_ParentID INTEGER,"
        " FLD_Name TEXT COLLATE NOCASE, FLD_Note TEXT,"
        " FLD_Type INTEGER, FLD_Open INTEGER);"
        "CREATE INDEX ByName ON Folders (FLD_Name);"
        "CREATE INDEX ByOtherName ON Folders (FLD_Name) WHERE FLD_Name GLOB '*[^ -~]*';"
        "CREATE TABLE Events (EVE_ID INTEGER NOT NULL PRIMARY KEY, EVE_FolderID INTEGER, EVE_Text TEXT, EVE_Start REAL,"
        " EVE_Cost REAL, EVE_Rank INTEGER, EVE_Data BLOB);"
        "CREATE TABLE Seen (SEE_User INTEGER NOT NULL, SEE_Date REAL)");
  }
  ~MemoryDatabase() { sqlite3_close(db_); }
  MemoryDatabase(const MemoryDatabase&) = delete;
  MemoryDatabase& operator=(const MemoryDatabase&) = delete;

  /// The rows of a statement of the dialect: values behind commas, rows behind semicolons, Null as "Null".
  std::string Rows(std::string_view text) {
    const CompiledText compiled = CompileText(text);
    return Rows(compiled, compiled.statement.text);
  }
  void Run(std::string_view text) { Rows(text); }
  /// The one value of an expression, read by its inferred type.
  std::string Calculate(const std::string& expression) { return Rows("SELECT " + expression); }
  std::int32_t FailureNumberOf(const std::string& text) {
    return FailureOf([&] { Rows(text); }).number;
  }
  /// How the engine goes about a statement.
  std::string PlanOf(std::string_view text) {
    const CompiledText compiled = CompileText(text);
    return Rows(compiled, "EXPLAIN QUERY PLAN " + compiled.statement.text);
  }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  void Exec(const char* text) { Check(sqlite3_exec(db_, text, nullptr, nullptr, nullptr)); }

  void Check(int code) {
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    if (failure_) throw RunTimeError(*std::exchange(failure_, std::nullopt));
    throw RunTimeError(FailureNumber::StatementError, sqlite3_errmsg(db_));
  }

  std::string Rows(const CompiledText& compiled, const std::string& text) {
    sqlite3_stmt* raw = nullptr;
    Check(sqlite3_prepare_v2(db_, text.c_str(), -1, &raw, nullptr));
    const std::unique_ptr<sqlite3_stmt, Finalize> statement(raw);
    StatementClock clock;
    for (std::size_t i = 0; i < compiled.statement.parameters.size(); ++i) {
      const ParameterPlan& plan = compiled.statement.parameters[i];
      const bool literal = plan.source == ParameterPlan::Source::Literal;
      const Value given = literal ? compiled.shape.literals.at(plan.index) : clock.Read(plan.source);
      Value scratch;
      Bind(raw, static_cast<int>(i + 1), Converted(given, plan, scratch));
    }
    std::string rows;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(raw)) == SQLITE_ROW) {
      if (!rows.empty()) rows += "; ";
      AppendRow(raw, compiled.statement, rows);
    }
    Check(code);
    return rows;
  }

  static void AppendRow(sqlite3_stmt* statement, const CompiledStatement& compiled, std::string& rows) {
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
      const auto column = static_cast<std::size_t>(i);
      if (i > 0) rows += ", ";
      rows += Read(statement, i, column < compiled.columns.size() ? compiled.columns[column].type : Type::Unknown);
    }
  }

  static std::string Read(sqlite3_stmt* statement, int i, Type type) {
    if (sqlite3_column_type(statement, i) == SQLITE_NULL) return "Null";
    if (type == Type::Date) return zef::ToText(Date(sqlite3_column_double(statement, i)));
    if (type == Type::Boolean) return zef::ToText(Value(sqlite3_column_int(statement, i) != 0));
    if (sqlite3_column_type(statement, i) == SQLITE_FLOAT) return NumberText(sqlite3_column_double(statement, i));
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
  }

  static void Bind(sqlite3_stmt* statement, int number, const Value& value) {
    if (const auto* whole = std::get_if<std::int32_t>(&value)) sqlite3_bind_int(statement, number, *whole);
    if (const auto* byte = std::get_if<std::uint8_t>(&value)) sqlite3_bind_int(statement, number, *byte);
    if (const auto* real = std::get_if<double>(&value)) sqlite3_bind_double(statement, number, *real);
    if (const auto* date = std::get_if<Date>(&value)) sqlite3_bind_double(statement, number, date->value());
    if (const auto* truth = std::get_if<bool>(&value)) sqlite3_bind_int(statement, number, *truth ? -1 : 0);
    if (const auto* text = std::get_if<std::string>(&value)) {
      sqlite3_bind_text64(statement, number, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
  }

  sqlite3* db_ = nullptr;
  std::optional<RunTimeError> failure_;
};

}  // namespace zef::sql
