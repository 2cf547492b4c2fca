#include "platform/sqlite/sqlite_dialect.h"

namespace zef {

std::string SqliteDialect::Parameter(std::size_t n) const { return "?" + std::to_string(n); }

std::string SqliteDialect::RowId() const { return "rowid"; }

/// Beside a plain ASCII text the engine's own NOCASE is exact for rows of plain ASCII, and an index serves it. The few
/// other rows have an index of their own, which asks for the very same GLOB.
std::string SqliteDialect::CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                                        bool indexed_column) const {
  const std::string exact = Collated(left) + " " + op + " " + right;
  const bool equality = op == "=" || op == "IN";
  if (!indexed_column || !equality) return exact;
  return "(" + left + " COLLATE NOCASE " + op + " " + right + " OR (" + left + " GLOB '*[^ -~]*' AND " + exact + "))";
}

std::string SqliteDialect::Collated(const std::string& text) const { return text + " COLLATE ZEF"; }

std::string SqliteDialect::Function(const std::string& name) const { return "zef_" + name; }

/// The transaction that reads holds the write lock already.
std::string SqliteDialect::ForUpdate() const { return {}; }

}  // namespace zef
