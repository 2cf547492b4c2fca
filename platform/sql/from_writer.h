#pragma once

#include <string>

#include "platform/sql/expression_writer.h"

namespace zef::sql {

/// Puts the tables and selects of a FROM into a scope; selects in brackets see `outer` only.
void AddSources(Writing& writing, const Source& source, const Scope* outer, Scope& scope);

/// Writes the FROM whose sources are in the scope. The condition of a join sees the columns of what it joins.
std::string WriteFrom(const Source& source, Scope& scope, ExpressionWriter& expressions);

}  // namespace zef::sql
