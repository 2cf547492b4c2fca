#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/connection_string.h"
#include "platform/postgresql/postgresql_dialect.h"
#include "platform/postgresql/server_connection.h"
#include "platform/postgresql/table_description.h"
#include "platform/sql/compile.h"
#include "platform/sql/parser.h"
#include "platform/sql/writing.h"
#include "platform/text.h"

namespace zef::test {

/// Tells how the server goes about the statements of the dialect, whatever their values are. Tables of few rows are
/// read like those of many.
class ServerPlanner final : sql::Catalog {
 public:
  explicit ServerPlanner(const std::string& connection_string)
      : connection_(ConnectToServer(ParseConnectionString(connection_string)), [] {}, {}) {
    connection_.Query("SET enable_seqscan = off");
    connection_.Query("SET plan_cache_mode = force_generic_plan");
  }

  /// The steps that walk a whole table, with a line each, and the statement as it was written.
  std::string Scans(std::string_view text) {
    sql::Shape shape;
    sql::ReadShape(text, shape);
    const sql::CompiledStatement statement = sql::Compile(sql::Parse(shape), shape, *this, PostgresqlDialect(), {});
    const ResultHandle plan = PlanOf(statement);
    std::string scans;
    for (int row = 0; row < PQntuples(plan.get()); ++row) {
      const std::string_view step(PQgetvalue(plan.get(), row, 0));
      if (step.find("Seq Scan") != std::string_view::npos) scans.append(step) += "\n";
    }
    return scans.empty() ? scans : scans + statement.text;
  }

 private:
  ResultHandle PlanOf(const sql::CompiledStatement& statement) {
    connection_.Query("PREPARE planned AS " + statement.text);
    std::string values;
    for (std::size_t i = 0; i < statement.parameters.size(); ++i) sql::AppendItem(values, "NULL");
    ResultHandle plan = connection_.Query("EXPLAIN EXECUTE planned" + (values.empty() ? "" : "(" + values + ")"));
    connection_.Query("DEALLOCATE planned");
    return plan;
  }
  const sql::TableInfo* FindTable(std::string_view name) override {
    const auto [entry, fresh] = tables_.try_emplace(text::LowerCase(name));
    if (fresh) entry->second = DescribeTable(connection_, name);
    return entry->second.columns.empty() ? nullptr : &entry->second;
  }

  ServerConnection connection_;
  std::map<std::string, sql::TableInfo> tables_;
};

}  // namespace zef::test
