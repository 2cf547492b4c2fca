#pragma once

#include <string>

#include "platform/sql/compile.h"

namespace zef {

/// How the server's engine writes the dialect. Its functions, collation and types are those of schema `zef`. Every text
/// brings the collation along: columns by their declaration, all others where they come into being.
class PostgresqlDialect final : public sql::Dialect {
 public:
  std::string Parameter(std::size_t n, sql::Type type) const override;
  std::string CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                           bool indexed_column) const override;
  std::string Collated(const std::string& text) const override;
  std::string Function(const std::string& name) const override;
  bool FetchesLater() const override;
  std::string ForUpdate() const override;
  std::string Cast(const std::string& text, sql::Type from, sql::Type to) const override;
  std::string Later(const std::string& column, const std::string& row_id) const override;
  std::string Varying(const std::string& text) const override;
  std::string Column(const std::string& text, const sql::ColumnInfo& column) const override;
  std::string Truth(bool truth) const override;
  std::string Direction(bool descending) const override;
  bool SortsGroups() const override;
  bool KeepsStars() const override;
  std::string InPlaceOfStar(const sql::TableInfo& table) const override;
  std::string SoughtWhole(const std::string& number) const override;
  std::string Returning(const std::string& row_id) const override;
};

}  // namespace zef
