#include "platform/sqlite/sqlite_dialect.h"

namespace zef {

std::string SqliteDialect::Parameter(std::size_t n, sql::Type /*type*/) const { return "?" + std::to_string(n); }

/// Beside a plain ASCII text the engine's own comparison of such a column is exact for rows of plain ASCII, and an
/// index serves it. The few other rows have an index of their own, which asks for the very same GLOB; the engine takes
/// it only with a bound on its column, and none of those texts is empty. A COLLATE anywhere inside would keep the
/// engine from using an index for each side of the OR, so these rows are compared by a function. That few rows bear one
/// text must be said, in the share of rows that the engine takes it for in an index over the text alone: otherwise it
/// would rather go through all rows that share a number asked for beside it than use an index over number and text.
std::string SqliteDialect::CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                                        bool indexed_column) const {
  const bool list = op == "IN";
  if (!indexed_column || !(list || op == "=")) return Collated(left) + " " + op + " " + right;
  const std::string texts = list ? right.substr(1, right.size() - 2) : right;
  const std::string plain = list ? left + " IN " + right : "likelihood(" + left + " = " + right + ", 0.00001)";
  return "(" + plain + " OR (" + left + " > '' AND " + left + " GLOB '*[^ -~]*' AND " + Function("equals") + "(" +
         left + ", " + texts + ")))";
}

std::string SqliteDialect::Collated(const std::string& text) const { return text + " COLLATE ZEF"; }

std::string SqliteDialect::Function(const std::string& name) const { return "zef_" + name; }

/// The engine would copy a value of the row whole, pages of its own and all, before anybody asks for it.
bool SqliteDialect::FetchesLater() const { return true; }

/// The transaction that reads holds the write lock already.
std::string SqliteDialect::ForUpdate() const { return {}; }

}  // namespace zef
