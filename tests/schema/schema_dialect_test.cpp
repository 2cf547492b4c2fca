#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/sql/lexer.h"
#include "platform/sql/parser.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::schema {
namespace {

sql::Statement Parsed(std::string_view statement) {
  sql::Shape shape;
  sql::ReadShape(statement, shape);
  return sql::Parse(shape);
}

class SchemaDialect : public testing::TestWithParam<std::string_view> {};

INSTANTIATE_TEST_SUITE_P(AllVersions, SchemaDialect, testing::Values("9.2.4", "9.1"),
                         [](const auto& version) { return version.param == "9.1" ? "Older" : "Current"; });

TEST_P(SchemaDialect, UnderstandsEveryStatement) {
  for (const std::string& statement : Statements(Text(GetParam()))) {
    EXPECT_NO_THROW(Parsed(statement)) << statement;
  }
}

TEST_P(SchemaDialect, FindsAKeyWhereverATableIsMeantToHaveOne) {
  int keys = 0;
  for (const std::string& text : Statements(Text(GetParam()))) {
    const sql::Statement statement = Parsed(text);
    if (!statement.schema_change) continue;
    for (const sql::ColumnDefinition& column : statement.schema_change->columns) keys += column.primary_key ? 1 : 0;
    for (const sql::Constraint& constraint : statement.schema_change->constraints) {
      keys += constraint.kind == sql::Constraint::Kind::PrimaryKey ? 1 : 0;
    }
  }
  EXPECT_EQ(keys, 17) << "all tables but _VersionInfo, ViewedEvents and ViewedAlarms";
}

}  // namespace
}  // namespace zef::schema
