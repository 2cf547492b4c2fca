#pragma once

#include "platform/sql/ast.h"
#include "platform/sql/lexer.h"

namespace zef::sql {

/// Parses one statement of the dialect. `literals` are needed where a number is part of the statement's meaning (a
/// declared length). Raises -2147217900 with a sentence that names the place for what it does not understand, for
/// brackets and prefix operators nested deeper than 200, and for trees higher than 1000: at most so many operators or
/// joins in one chain. Chains of AND, of OR and of XOR may have any length; they become balanced trees.
Statement Parse(const Shape& shape);

}  // namespace zef::sql
