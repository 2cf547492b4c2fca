#include <gtest/gtest.h>

#include "platform/postgresql/postgresql_dialect.h"
#include "tests/platform/sql/compile_support.h"

namespace zef::sql {
namespace {

/// The condition behind WHERE in the server's text.
std::string ServersWhere(const std::string& condition, const std::string& table = "Folders") {
  SmallCatalog catalog;
  Shape shape;
  ReadShape("SELECT Null FROM " + table + " WHERE " + condition, shape);
  const std::string text = Compile(Parse(shape), shape, catalog, PostgresqlDialect(), {}).text;
  return text.substr(text.find(" WHERE ") + 7);
}

/// The server finds an index by the bare column only: a conversion around it means that each search reads the table.
TEST(BareColumnsPostgreSQL, AreComparedWithNumbers) {
  EXPECT_EQ(ServersWhere("FLD_ID=18"), "\"FLD_ID\" = $1::int4");
  EXPECT_EQ(ServersWhere("FLD_Type<>4"), "\"FLD_Type\" <> $1::int4");
  EXPECT_EQ(ServersWhere("FLD_ID BETWEEN 1 AND 5"), "(\"FLD_ID\" BETWEEN $1::int4 AND $2::int4)");
  EXPECT_EQ(ServersWhere("FLD_ID IN (1,2)"), "\"FLD_ID\" IN ($1::int4, $2::int4)");
}

TEST(BareColumnsPostgreSQL, AreComparedWithEachOther) {
  EXPECT_EQ(ServersWhere("FLD_ID=FLD_ParentID"), "\"FLD_ID\" = \"FLD_ParentID\"");
}

TEST(BareColumnsPostgreSQL, AreComparedWithDates) {
  EXPECT_EQ(ServersWhere("EVE_Start>='5/1/2024'", "Events"), "\"EVE_Start\" >= $1::timestamp");
}

TEST(BareColumnsPostgreSQL, AreComparedWithTexts) {
  EXPECT_EQ(ServersWhere("FLD_Name='Tasks'"), "\"FLD_Name\" = ($1::text COLLATE zef.ci)");
}

}  // namespace
}  // namespace zef::sql
