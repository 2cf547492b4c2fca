#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/sql/schema.h"

/// The tree of one statement of the dialect. Names stand as written; meaning is left to the writer.
namespace zef::sql {

struct Select;

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

/// One node of an expression. Which members mean something depends on `kind`.
struct Expr {
  enum class Kind {
    Literal,    ///< `literal`: index into the statement's literals
    Parameter,  ///< `literal`: number of a `?` placeholder, from 0
    Null,
    Boolean,   ///< `truth`
    Column,    ///< `qualifier` (may be empty) and `name`
    Star,      ///< `*`, or `qualifier`.*; in a select list and in Count(*)
    Unary,     ///< `name` is "-", "+" or "NOT"; one argument
    Binary,    ///< `name` is an operator in capitals: + - * / \ MOD ^ & = <> < <= > >= AND OR XOR
    Like,      ///< arguments text, pattern; `negated`
    Between,   ///< arguments value, low, high; `negated`
    InList,    ///< arguments value, then the list; `negated`
    InSelect,  ///< argument value and `select`; `negated`
    IsNull,    ///< one argument; `negated` for IS NOT NULL
    Exists,    ///< `select`; `negated`
    Subquery,  ///< `select`, one value
    Call,      ///< function `name` with arguments; `distinct` for Count(DISTINCT x) and its kin
  };
  Kind kind = Kind::Null;
  std::string qualifier;
  std::string name;
  std::vector<ExprPtr> args;
  std::unique_ptr<Select> select;
  std::size_t literal = 0;
  std::size_t place = 0;  ///< character of the statement at which it stands, from 1
  bool negated = false;
  bool distinct = false;
  bool truth = false;
};

/// What stands in FROM: a table, a select in brackets, or a join of two sources.
struct Source {
  enum class Kind { Table, Select, Cross, Inner, Left, Right };
  Kind kind = Kind::Table;
  std::string table;
  std::string alias;  ///< empty if none was given
  std::unique_ptr<struct Select> select;
  std::unique_ptr<Source> left, right;
  ExprPtr on;
  std::size_t place = 0;
};
using SourcePtr = std::unique_ptr<Source>;

struct SelectItem {
  ExprPtr expr;
  std::string alias;
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
};

/// A select, possibly with further selects joined to it by UNION; ORDER BY then belongs to the whole.
struct Select {
  bool distinct = false;
  ExprPtr top;  ///< a literal, or null
  std::vector<SelectItem> items;
  SourcePtr from;  ///< null for a select without tables; tables separated by commas are Cross joins
  ExprPtr where;
  std::vector<ExprPtr> group_by;
  ExprPtr having;
  struct UnionPart {
    bool all = false;
    std::unique_ptr<Select> select;
  };
  std::vector<UnionPart> unions;
  std::vector<OrderItem> order_by;
};

struct Insert {
  std::string table;
  std::vector<std::string> columns;  ///< empty: all of them in order
  std::vector<ExprPtr> values;
  std::unique_ptr<Select> select;  ///< in place of `values`
  std::size_t place = 0;
};

struct Assignment {
  ExprPtr column;
  ExprPtr value;
};

struct Update {
  SourcePtr target;
  std::vector<Assignment> assignments;
  ExprPtr where;
};

struct Delete {
  std::string of;  ///< the table or alias of `DELETE name.*`, empty for `DELETE *` and plain `DELETE`
  SourcePtr from;
  ExprPtr where;
};

/// A column in CREATE TABLE and ALTER TABLE.
struct ColumnDefinition {
  std::string name;
  Type type = Type::Unknown;
  int length = 0;
  bool required = false;  ///< NOT NULL
  bool primary_key = false;
  bool unique = false;
};

struct Constraint {
  enum class Kind { PrimaryKey, Unique, ForeignKey };
  Kind kind = Kind::PrimaryKey;
  std::string name;  ///< empty if none was given
  std::vector<std::string> columns;
  std::string foreign_table;
  std::vector<std::string> foreign_columns;
};

struct SchemaChange {
  enum class Kind {
    CreateTable,  ///< `columns`, `constraints`
    CreateIndex,  ///< `name`, `unique`, `index_columns`
    DropTable,
    DropIndex,       ///< `name` ON `table`
    AddColumn,       ///< `columns` has one
    AlterColumn,     ///< `columns` has one
    DropColumn,      ///< `name`
    AddConstraint,   ///< `constraints` has one
    DropConstraint,  ///< `name`
  };
  Kind kind = Kind::CreateTable;
  std::string table;
  std::string name;
  bool unique = false;
  std::vector<ColumnDefinition> columns;
  std::vector<Constraint> constraints;
  struct IndexColumn {
    std::string name;
    bool descending = false;
  };
  std::vector<IndexColumn> index_columns;
};

/// Exactly one of the members is set.
struct Statement {
  std::unique_ptr<Select> select;
  std::unique_ptr<Insert> insert;
  std::unique_ptr<Update> update;
  std::unique_ptr<Delete> remove;
  std::unique_ptr<SchemaChange> schema_change;
};

}  // namespace zef::sql
