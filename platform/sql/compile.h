#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/sql/ast.h"
#include "platform/sql/lexer.h"
#include "platform/sql/schema.h"

namespace zef::sql {

/// What becomes a parameter of a prepared statement, and how.
struct ParameterPlan {
  enum class Source { Literal, Placeholder, Now, Date, Time };

  std::size_t index = 0;  ///< of the literal, or of the placeholder
  Source source = Source::Literal;
  /// The type it is converted to before it is bound; `Unknown` binds it as it is. A conversion that fails is
  /// -2147217913, a value that does not fit -2147217833 (texts longer than `length`, numbers outside the type).
  Type type = Type::Unknown;
  int length = 0;
  bool required = false;    ///< Null is refused with -2147217873
  std::string column = {};  ///< that it is stored in, for the sentence of a failure; empty for none
};

struct ResultColumn {
  std::string name;
  Type type = Type::Unknown;  ///< Unknown: each row's own
};

/// A result column whose values are fetched only when they are read, since they may be large: in its place stands what
/// `Dialect::Later` writes.
struct LaterColumn {
  int position = 0;
  std::string text;  ///< the select of the value, whose one parameter is the identifier
};

/// A statement in the language of an engine, with all that is needed to run it again and again for one shape.
struct CompiledStatement {
  enum class Kind { Select, Insert, Update, Delete };
  Kind kind = Kind::Select;
  std::string text;
  std::vector<ParameterPlan> parameters;  ///< in the order of the engine's parameter numbers
  std::vector<ResultColumn> columns;      ///< of a select; the hidden row identifier is not among them
  /// For a select that `Update` can write through: its one table, and how a row of it is found again.
  std::string table;
  std::vector<std::size_t> key_columns;  ///< result columns that form the primary key
  bool hidden_row_id = false;            ///< the row identifier follows behind the last column
  std::vector<LaterColumn> later;        ///< of a select, for an engine that fetches them
  bool cacheable = true;                 ///< false if a literal stands in the text itself (ORDER BY 2)
};

/// What engines write differently. One object an engine, without state.
class Dialect {
 public:
  virtual ~Dialect() = default;
  /// Parameter number `n`, from 1: "?1" or "$1". `type` is that of the values it is bound to, `Unknown` if only its
  /// place tells.
  virtual std::string Parameter(std::size_t n, Type type) const = 0;
  /// A comparison of two text expressions by the dialect's rules; `op` is =, <>, <, <=, > or >=, or IN with a list or
  /// select in brackets as `right`. `indexed_column` tells that `left` is a column that leads an index and ignores the
  /// case of ASCII letters, and `right` a parameter that is a plain ASCII text (or a list of at most 100 of them), so
  /// that a search by equality must be written to use the index.
  virtual std::string CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                                   bool indexed_column) const = 0;
  /// A text expression as it must stand in ORDER BY, GROUP BY, DISTINCT, IN and Min/Max to follow the dialect's rules.
  virtual std::string Collated(const std::string& text) const = 0;
  /// The engine's name for a function of the dialect, or of the writer's own helpers ("concat", "like", "divide",
  /// "to_long", ...).
  virtual std::string Function(const std::string& name) const = 0;
  /// True if the engine's statements fetch binary columns later.
  virtual bool FetchesLater() const = 0;
  /// What follows a select that must lock the rows it reads; may be empty.
  virtual std::string ForUpdate() const = 0;

  // What an engine of dynamic types, whose values convert themselves, has no need of.

  /// A value of one type as it stands where one of another type is needed: beside it in a comparison or calculation, or
  /// as an argument. A whole number beside others of 64 bits is meant by `Long`.
  virtual std::string Cast(const std::string& text, Type /*from*/, Type /*to*/) const { return text; }
  /// A value whose type only its row tells.
  virtual std::string Varying(const std::string& text) const { return text; }
  /// What stands in the select list for a binary column that is fetched later: the row's identifier, or something that
  /// holds it for large values and the value itself for small ones.
  virtual std::string Later(const std::string& /*column*/, const std::string& row_id) const { return row_id; }
  /// A column of a table as it stands in an expression.
  virtual std::string Column(const std::string& text, const ColumnInfo& /*column*/) const { return text; }
  /// A number of any kind that is sought in a column of whole numbers, as an index of that column finds it.
  virtual std::string SoughtWhole(const std::string& number) const { return number; }
  /// True or False as a number, never a bare one: where rows are sorted, engines take that for the position of a
  /// column.
  virtual std::string Truth(bool truth) const { return truth ? "~0" : "~-1"; }
  /// What follows an expression by which rows are sorted, so that Null comes first in the one and last in the other
  /// direction.
  virtual std::string Direction(bool descending) const { return descending ? " DESC" : ""; }
  /// True if groups come in the order of their keys by themselves.
  virtual bool SortsGroups() const { return true; }
  /// True if the star of a select must stand in the engine's statement, since that is how it notices that a table has
  /// got another column.
  virtual bool KeepsStars() const { return false; }
  /// What stands behind the columns of a select for a star that cannot: it fails if the table has got another column.
  virtual std::string InPlaceOfStar(const TableInfo& /*table*/) const { return {}; }
  /// What follows an UPDATE that found its row by its identifier; may be empty.
  virtual std::string Returning(const std::string& /*row_id*/) const { return {}; }
};

struct CompileOptions {
  bool updatable = false;   ///< make a single-table select findable for `Update`
  bool lock_rows = false;   ///< pessimistic: lock what is read
  bool lock_found = false;  ///< lock the row of a select that names its whole key
  /// An `UPDATE` of one table changes one row: its identifier is the placeholder behind those of the assignments.
  bool by_row_id = false;
};

/// Writes a parsed statement (not a schema change) for an engine. Raises -2147217865 for an unknown table, -2147217904
/// for a column or placeholder that nothing gives a value, -2147217913 for types that do not convert, -2147217900 for
/// the rest, each naming the place.
CompiledStatement Compile(const Statement& statement, const Shape& shape, Catalog& catalog, const Dialect& dialect,
                          CompileOptions options);

}  // namespace zef::sql
