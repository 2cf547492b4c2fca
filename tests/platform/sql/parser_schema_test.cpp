#include <gtest/gtest.h>

#include <string>

#include "tests/platform/sql/tree_rows.h"

namespace zef::sql {
namespace {

class SchemaChangeTest : public testing::TestWithParam<Row> {};

TEST_P(SchemaChangeTest, GivesItsTree) { EXPECT_EQ(Print(GetParam().statement), GetParam().tree); }

INSTANTIATE_TEST_SUITE_P(
    Create, SchemaChangeTest,
    testing::Values(
        Row{"Table", "CREATE TABLE t (a Long, b Text(20));", "CreateTable t | a Long | b Text(20)"},
        Row{"TableOfNames", "create table [My Table] ([My Column] long)", "CreateTable My Table | My Column Long"},
        Row{"NotNull", "CREATE TABLE t (a Long NOT NULL)", "CreateTable t | a Long REQUIRED"},
        Row{"Null", "CREATE TABLE t (a Long NULL)", "CreateTable t | a Long"},
        Row{"PrimaryKeyColumn", "CREATE TABLE t (a Long PRIMARY KEY)", "CreateTable t | a Long KEY"},
        Row{"UniqueColumn", "CREATE TABLE t (a Long UNIQUE)", "CreateTable t | a Long UNIQUE"},
        Row{"OptionsTogether", "CREATE TABLE t (a Long NOT NULL UNIQUE REFERENCES u (b), c Byte)",
            "CreateTable t | a Long REQUIRED UNIQUE | c Byte | FOREIGN (a) -> u (b)"},
        Row{"NamedPrimaryKeyColumn", "CREATE TABLE t (a Long CONSTRAINT k PRIMARY KEY)",
            "CreateTable t | a Long | k: KEY (a)"},
        Row{"NamedUniqueColumn", "CREATE TABLE t (a Long NOT NULL CONSTRAINT k UNIQUE)",
            "CreateTable t | a Long REQUIRED | k: UNIQUE (a)"},
        Row{"References", "CREATE TABLE t (a Long REFERENCES u)", "CreateTable t | a Long | FOREIGN (a) -> u"},
        Row{"NamedReferences", "CREATE TABLE t (a Long CONSTRAINT k REFERENCES u (b))",
            "CreateTable t | a Long | k: FOREIGN (a) -> u (b)"},
        Row{"PrimaryKeyOfTwo", "CREATE TABLE t (a Long, b Long, CONSTRAINT k PRIMARY KEY (a, b))",
            "CreateTable t | a Long | b Long | k: KEY (a, b)"},
        Row{"UniqueOfTwo", "CREATE TABLE t (a Long, b Long, CONSTRAINT k UNIQUE (a, b))",
            "CreateTable t | a Long | b Long | k: UNIQUE (a, b)"},
        Row{"ForeignKey", "CREATE TABLE t (a Long, CONSTRAINT k FOREIGN KEY (a) REFERENCES u (b))",
            "CreateTable t | a Long | k: FOREIGN (a) -> u (b)"},
        Row{"ForeignKeyToTheKey", "CREATE TABLE t (a Long, CONSTRAINT k FOREIGN KEY (a) REFERENCES u)",
            "CreateTable t | a Long | k: FOREIGN (a) -> u"},
        Row{"UnnamedPrimaryKey", "CREATE TABLE t (a Long, PRIMARY KEY (a))", "CreateTable t | a Long | KEY (a)"},
        Row{"Index", "CREATE INDEX i ON t (a)", "CreateIndex t i | a"},
        Row{"UniqueIndex", "CREATE UNIQUE INDEX i ON t (a, b)", "CreateIndex t i UNIQUE | a | b"},
        Row{"IndexOrders", "CREATE INDEX [my i] ON [my t] ([a] ASC, b DESC)", "CreateIndex my t my i | a | b DESC"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(Drop, SchemaChangeTest,
                         testing::Values(Row{"Table", "DROP TABLE t", "DropTable t"},
                                         Row{"Index", "DROP INDEX i ON t", "DropIndex t i"}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    Alter, SchemaChangeTest,
    testing::Values(
        Row{"AddColumn", "ALTER TABLE t ADD COLUMN a Text(5) NOT NULL", "AddColumn t | a Text(5) REQUIRED"},
        Row{"AddWithoutColumn", "ALTER TABLE t ADD a Byte", "AddColumn t | a Byte"},
        Row{"AddColumnWithReferences", "ALTER TABLE t ADD COLUMN a Long CONSTRAINT k REFERENCES u (b)",
            "AddColumn t | a Long | k: FOREIGN (a) -> u (b)"},
        Row{"AlterColumn", "ALTER TABLE t ALTER COLUMN a Text(128)", "AlterColumn t | a Text(128)"},
        Row{"AlterColumnToNull", "ALTER TABLE t ALTER COLUMN a Memo NULL", "AlterColumn t | a Memo"},
        Row{"AlterColumnToNotNull", "ALTER TABLE t ALTER COLUMN a Long NOT NULL", "AlterColumn t | a Long REQUIRED"},
        Row{"DropColumn", "ALTER TABLE t DROP COLUMN a", "DropColumn t a"},
        Row{"DropWithoutColumn", "ALTER TABLE t DROP [a b]", "DropColumn t a b"},
        Row{"AddConstraint", "ALTER TABLE t ADD CONSTRAINT k FOREIGN KEY (a) REFERENCES u (b)",
            "AddConstraint t | k: FOREIGN (a) -> u (b)"},
        Row{"AddPrimaryKey", "ALTER TABLE t ADD CONSTRAINT k PRIMARY KEY (a)", "AddConstraint t | k: KEY (a)"},
        Row{"AddUnique", "ALTER TABLE t ADD CONSTRAINT k UNIQUE (a)", "AddConstraint t | k: UNIQUE (a)"},
        Row{"DropConstraint", "ALTER TABLE t DROP CONSTRAINT k", "DropConstraint t k"}),
    NameOf);

struct TypeRow {
  std::string_view word;
  std::string_view type;
};

class ColumnTypeTest : public testing::TestWithParam<TypeRow> {};

TEST_P(ColumnTypeTest, IsReadInAnyLetterCase) {
  EXPECT_EQ(Print("CREATE TABLE t (a " + std::string(GetParam().word) + ")"),
            "CreateTable t | a " + std::string(GetParam().type));
}

INSTANTIATE_TEST_SUITE_P(
    ParseTypes, ColumnTypeTest,
    testing::Values(TypeRow{"Long", "Long"}, TypeRow{"INTEGER", "Long"}, TypeRow{"int", "Long"},
                    TypeRow{"Short", "Short"}, TypeRow{"SmallInt", "Short"}, TypeRow{"Byte", "Byte"},
                    TypeRow{"Double", "Double"}, TypeRow{"Float", "Double"}, TypeRow{"Real", "Double"},
                    TypeRow{"Bit", "Boolean"}, TypeRow{"YesNo", "Boolean"}, TypeRow{"Boolean", "Boolean"},
                    TypeRow{"Logical", "Boolean"}, TypeRow{"Text", "Text(255)"}, TypeRow{"Text (1)", "Text(1)"},
                    TypeRow{"VarChar(30)", "Text(30)"}, TypeRow{"Char(2)", "Text(2)"}, TypeRow{"Memo", "Memo"},
                    TypeRow{"LongText", "Memo"}, TypeRow{"DateTime", "Date"}, TypeRow{"Date", "Date"},
                    TypeRow{"LongBinary", "Binary"}, TypeRow{"Image", "Binary"}, TypeRow{"Blob", "Binary"}));

TEST(SchemaParseTest, ColumnsMayBeNamedLikeTypes) {
  EXPECT_EQ(Print("CREATE TABLE t (Text Text(9), Date DateTime, Name Memo, Type Byte, Value Long, Count Long)"),
            "CreateTable t | Text Text(9) | Date Date | Name Memo | Type Byte | Value Long | Count Long");
}

TEST(SchemaParseTest, FindIgnoresLetterCase) {
  const TableInfo table{"t", {ColumnInfo{.name = "First"}, ColumnInfo{.name = "Second"}}};
  EXPECT_EQ(table.Find("sECOND"), &table.columns[1]);
}

TEST(SchemaParseTest, FindOfAnAbsentColumnIsNull) {
  const TableInfo table{"t", {ColumnInfo{.name = "First"}}};
  EXPECT_EQ(table.Find("Fir"), nullptr);
}

}  // namespace
}  // namespace zef::sql
