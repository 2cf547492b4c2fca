#pragma once

#include <string>

#include "platform/sql/compile.h"

namespace zef {

/// How the embedded engine writes the dialect. Its functions and the collation ZEF are those of `RegisterFunctions`.
class SqliteDialect final : public sql::Dialect {
 public:
  std::string Parameter(std::size_t n, sql::Type type) const override;
  std::string CompareTexts(const std::string& left, const std::string& op, const std::string& right,
                           bool indexed_column) const override;
  std::string Collated(const std::string& text) const override;
  std::string Function(const std::string& name) const override;
  bool FetchesLater() const override;
  std::string ForUpdate() const override;
};

}  // namespace zef
