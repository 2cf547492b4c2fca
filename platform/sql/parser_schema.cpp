#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/sql/parser_state.h"
#include "platform/sql/syntax_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

constexpr int kUsualTextLength = 255;

struct TypeWord {
  std::string_view word;
  Type type;
};
constexpr TypeWord kTypes[] = {
    {"LONG", Type::Long},         {"INTEGER", Type::Long},  {"INT", Type::Long},      {"SHORT", Type::Short},
    {"SMALLINT", Type::Short},    {"BYTE", Type::Byte},     {"DOUBLE", Type::Double}, {"FLOAT", Type::Double},
    {"REAL", Type::Double},       {"BIT", Type::Boolean},   {"YESNO", Type::Boolean}, {"BOOLEAN", Type::Boolean},
    {"LOGICAL", Type::Boolean},   {"TEXT", Type::Text},     {"VARCHAR", Type::Text},  {"CHAR", Type::Text},
    {"MEMO", Type::Memo},         {"LONGTEXT", Type::Memo}, {"DATETIME", Type::Date}, {"DATE", Type::Date},
    {"LONGBINARY", Type::Binary}, {"IMAGE", Type::Binary},  {"BLOB", Type::Binary},
};

Type TypeNamed(std::string_view word) {
  const auto* const found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                         [word](const TypeWord& type) { return text::EqualNames(type.word, word); });
  return found == std::end(kTypes) ? Type::Unknown : found->type;
}

constexpr std::string_view kConstraintWords[] = {"CONSTRAINT", "PRIMARY", "UNIQUE", "FOREIGN"};

SchemaChange& Begin(Statement& statement) {
  statement.schema_change = std::make_unique<SchemaChange>();
  return *statement.schema_change;
}

}  // namespace

void Parser::ReadCreate(Statement& statement) {
  SchemaChange& change = Begin(statement);
  if (Take("TABLE")) return ReadCreateTable(change);
  change.unique = Take("UNIQUE");
  if (!Take("INDEX")) Fail(change.unique ? "INDEX is expected" : "TABLE, INDEX or UNIQUE INDEX is expected");
  ReadCreateIndex(change);
}

void Parser::ReadCreateTable(SchemaChange& change) {
  change.kind = SchemaChange::Kind::CreateTable;
  change.table = Name("a table name");
  Bracketed([&] {
    List([&] { AtConstraint() ? change.constraints.push_back(TableConstraint()) : ReadColumn(change); });
    if (change.columns.empty()) Fail("a column is expected");
  });
}

void Parser::ReadCreateIndex(SchemaChange& change) {
  change.kind = SchemaChange::Kind::CreateIndex;
  change.name = Name("an index name");
  Expect("ON");
  change.table = Name("a table name");
  Bracketed([&] { List([&] { change.index_columns.push_back(ReadIndexColumn()); }); });
}

SchemaChange::IndexColumn Parser::ReadIndexColumn() {
  SchemaChange::IndexColumn column;
  column.name = Name("a column name");
  column.descending = Take("DESC");
  if (!column.descending) Take("ASC");
  return column;
}

void Parser::ReadDrop(Statement& statement) {
  SchemaChange& change = Begin(statement);
  const bool table = Take("TABLE");
  if (!table && !Take("INDEX")) Fail("TABLE or INDEX is expected");
  change.kind = table ? SchemaChange::Kind::DropTable : SchemaChange::Kind::DropIndex;
  if (!table) {
    change.name = Name("an index name");
    Expect("ON");
  }
  change.table = Name("a table name");
}

void Parser::ReadAlter(Statement& statement) {
  SchemaChange& change = Begin(statement);
  Expect("TABLE");
  change.table = Name("a table name");
  if (Take("ADD")) return ReadAddition(change);
  if (Take("DROP")) return ReadRemoval(change);
  if (!Take("ALTER")) Fail("ADD, ALTER or DROP is expected");
  Take("COLUMN");
  change.kind = SchemaChange::Kind::AlterColumn;
  change.columns.push_back(ColumnWithType());
  TakeNullability(change.columns.back());
}

void Parser::ReadAddition(SchemaChange& change) {
  if (AtConstraint()) {
    change.kind = SchemaChange::Kind::AddConstraint;
    change.constraints.push_back(TableConstraint());
    return;
  }
  Take("COLUMN");
  change.kind = SchemaChange::Kind::AddColumn;
  ReadColumn(change);
}

void Parser::ReadRemoval(SchemaChange& change) {
  const bool constraint = Take("CONSTRAINT");
  if (!constraint) Take("COLUMN");
  change.kind = constraint ? SchemaChange::Kind::DropConstraint : SchemaChange::Kind::DropColumn;
  change.name = Name(constraint ? "a constraint name" : "a column name");
}

bool Parser::AtConstraint() const {
  return std::any_of(std::begin(kConstraintWords), std::end(kConstraintWords),
                     [this](std::string_view word) { return At(word); });
}

Constraint Parser::TableConstraint() {
  Constraint constraint;
  if (Take("CONSTRAINT")) constraint.name = Name("a constraint name");
  const bool foreign = Take("FOREIGN");
  const bool primary = !foreign && Take("PRIMARY");
  if (foreign || primary) {
    Expect("KEY");
  } else if (!Take("UNIQUE")) {
    Fail("PRIMARY KEY, UNIQUE or FOREIGN KEY is expected");
  }
  constraint.kind = primary ? Constraint::Kind::PrimaryKey : Constraint::Kind::Unique;
  constraint.columns = Names("a column name");
  if (!foreign) return constraint;
  Expect("REFERENCES");
  ReadReferences(constraint);
  return constraint;
}

void Parser::ReadReferences(Constraint& constraint) {
  constraint.kind = Constraint::Kind::ForeignKey;
  constraint.foreign_table = Name("a table name");
  if (At("(")) constraint.foreign_columns = Names("a column name");
}

ColumnDefinition Parser::ColumnWithType() {
  ColumnDefinition column;
  column.name = Name("a column name");
  const Token& word = Peek();
  column.type = word.kind == Token::Kind::Word ? TypeNamed(word.text) : Type::Unknown;
  if (column.type == Type::Unknown) Fail("a column type is expected");
  ++position_;
  if (column.type == Type::Text) ReadLength(column);
  return column;
}

void Parser::ReadLength(ColumnDefinition& column) {
  column.length = kUsualTextLength;
  if (!At("(")) return;
  Bracketed([&] {
    const Token& token = Peek();
    const bool number = token.kind == Token::Kind::Literal && token.literal_kind == LiteralKind::Integer;
    column.length = number ? std::get<std::int32_t>(shape_.literals[token.index]) : 0;
    if (column.length < 1) Fail("a length is a whole number from 1");
    ++position_;
  });
}

bool Parser::TakeNullability(ColumnDefinition& column) {
  const bool required = Take("NOT");
  if (required) Expect("NULL");
  column.required = column.required || required;
  return required || Take("NULL");
}

void Parser::ReadColumn(SchemaChange& change) {
  ColumnDefinition column = ColumnWithType();
  for (;;) {
    if (TakeNullability(column)) continue;
    const bool constrained = AtConstraint() || At("REFERENCES");
    if (!constrained) break;
    ReadColumnConstraint(change, column);
  }
  change.columns.push_back(std::move(column));
}

/// A constraint behind its column. A named one, or one that refers to another table, stands among the table's
/// constraints; what remains is a property of the column.
void Parser::ReadColumnConstraint(SchemaChange& change, ColumnDefinition& column) {
  Constraint constraint;
  if (Take("CONSTRAINT")) constraint.name = Name("a constraint name");
  constraint.columns = {column.name};
  const bool primary = Take("PRIMARY");
  if (primary) Expect("KEY");
  const bool unique = !primary && Take("UNIQUE");
  const bool own = primary || unique;
  if (!own && !Take("REFERENCES")) Fail("PRIMARY KEY, UNIQUE or REFERENCES is expected");
  if (own && constraint.name.empty()) {
    (primary ? column.primary_key : column.unique) = true;
    return;
  }
  if (unique) constraint.kind = Constraint::Kind::Unique;
  if (!own) ReadReferences(constraint);
  change.constraints.push_back(std::move(constraint));
}

}  // namespace zef::sql
