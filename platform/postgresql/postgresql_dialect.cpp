#include "platform/postgresql/postgresql_dialect.h"

#include "platform/sql/writing.h"

namespace zef {
namespace {

using sql::IsText;
using sql::Type;

bool IsWhole(Type type) { return sql::IsNumber(type) && type != Type::Double; }

/// The server's type of values as they travel and are calculated with; a Boolean is -1 or 0.
std::string TypeName(Type type) {
  switch (type) {
    case Type::Boolean:
    case Type::Byte:
    case Type::Short: return "int2";
    case Type::Long: return "int4";
    case Type::Double: return "float8";
    case Type::Date: return "timestamp";
    case Type::Binary: return "bytea";
    default: return "text";
  }
}

std::string CastAs(const std::string& text, const std::string& type) { return "CAST(" + text + " AS " + type + ")"; }
std::string Call(const std::string& function, const std::string& text) { return "zef." + function + "(" + text + ")"; }

std::string AsText(const std::string& text, Type from) {
  if (from == Type::Date) return Call("date_text", text);
  if (IsWhole(from)) return Call("number_text", CastAs(text, "int8"));
  return from == Type::Double ? Call("number_text", text) : text;
}

/// Whole numbers are calculated with in 64 bits.
std::string AsNumber(const std::string& text, Type from, Type to) {
  if (IsText(from)) return Call(to == Type::Boolean ? "cbool" : "number", text);
  if (from == Type::Date) return Call("number", text);
  if (IsWhole(from) && to == Type::Long) return CastAs(text, "int8");
  return IsWhole(from) && to == Type::Double ? CastAs(text, "float8") : text;
}

}  // namespace

std::string PostgresqlDialect::Parameter(std::size_t n, Type type) const {
  const std::string parameter = "$" + std::to_string(n);
  if (type == Type::Unknown) return parameter;
  if (IsText(type)) return "(" + parameter + "::text COLLATE zef.ci)";
  return parameter + "::" + TypeName(type);
}

std::string PostgresqlDialect::CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                                            bool /*indexed_column*/) const {
  return left + " " + op + " " + right;
}

std::string PostgresqlDialect::Collated(const std::string& text) const { return text; }

std::string PostgresqlDialect::Function(const std::string& name) const {
  return name == "concat" ? "pg_catalog.concat" : "zef." + name;
}

/// What is not asked for need not cross the network.
bool PostgresqlDialect::FetchesLater() const { return true; }

std::string PostgresqlDialect::Later(const std::string& column, const std::string& row_id) const {
  return "zef.later(" + column + ", " + row_id + ")";
}

std::string PostgresqlDialect::ForUpdate() const { return " FOR UPDATE"; }

std::string PostgresqlDialect::Cast(const std::string& text, Type from, Type to) const {
  if (from == Type::Unknown) return to == Type::Unknown ? text : CastAs(text, TypeName(to));
  if (IsText(to)) return AsText(text, from);
  if (to == Type::Date) return from == Type::Date ? text : Call("moment", text);
  return sql::IsNumber(to) ? AsNumber(text, from, to) : text;
}

std::string PostgresqlDialect::Varying(const std::string& text) const { return Call("varying", text); }

std::string PostgresqlDialect::Column(const std::string& text, const sql::ColumnInfo& column) const {
  return IsText(column.type) && !column.ignores_case ? "(" + text + " COLLATE zef.ci)" : text;
}

std::string PostgresqlDialect::Truth(bool truth) const { return CastAs(truth ? "-1" : "0", "int2"); }

std::string PostgresqlDialect::Direction(bool descending) const {
  return descending ? " DESC NULLS LAST" : " NULLS FIRST";
}

bool PostgresqlDialect::SortsGroups() const { return false; }

bool PostgresqlDialect::KeepsStars() const { return true; }

/// A row of so many columns becomes one of the table.
std::string PostgresqlDialect::InPlaceOfStar(const sql::TableInfo& table) const {
  std::string nulls;
  for (std::size_t i = 0; i < table.columns.size(); ++i) sql::AppendItem(nulls, "NULL");
  return CastAs("ROW(" + nulls + ")", sql::Quoted(table.name)) + " IS NULL";
}

/// Compared with a double, the column would become one.
std::string PostgresqlDialect::SoughtWhole(const std::string& number) const { return Call("whole", number); }

std::string PostgresqlDialect::Returning(const std::string& row_id) const { return " RETURNING " + row_id; }

}  // namespace zef
