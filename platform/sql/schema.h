#pragma once

#include <string>
#include <vector>

namespace zef::sql {

/// Types of columns and expressions. `Unknown` is an expression whose type only the row tells.
enum class Type { Unknown, Boolean, Byte, Short, Long, Double, Date, Text, Memo, Binary };

constexpr bool IsText(Type type) { return type == Type::Text || type == Type::Memo; }
constexpr bool IsNumber(Type type) { return type >= Type::Boolean && type <= Type::Double; }

struct ColumnInfo {
  std::string name;  ///< as declared
  Type type = Type::Unknown;
  int length = 0;            ///< declared characters of a `Text` column, 0 for no limit
  bool required = false;     ///< declared NOT NULL, or part of the primary key
  bool key = false;          ///< part of the primary key
  bool leads_index = false;  ///< first column of an index, so that a search by it need not scan
  /// Declared so that the engine itself compares it without regard to ASCII letter case (`Text` and `Memo` only).
  bool ignores_case = false;
};

struct TableInfo {
  std::string name;  ///< as declared
  std::vector<ColumnInfo> columns;
  /// The engine's name of the hidden column that identifies a row. Empty without one, or if columns of the table have
  /// taken all its names.
  std::string row_id{};

  /// The column of that name without regard to letter case, or null.
  const ColumnInfo* Find(std::string_view column) const;
};

/// Where the writer learns of tables. Answers stay valid until the statement is written.
class Catalog {
 public:
  virtual ~Catalog() = default;
  /// The table or view of that name without regard to letter case, or null if there is none.
  virtual const TableInfo* FindTable(std::string_view name) = 0;
};

}  // namespace zef::sql
