#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/platform/sql/tree_printer.h"

namespace zef::sql {

/// A statement and the tree that it must give.
struct Row {
  std::string_view name;
  std::string_view statement;
  std::string_view tree;
};

inline std::string NameOf(const testing::TestParamInfo<Row>& row) { return std::string(row.param.name); }

}  // namespace zef::sql
