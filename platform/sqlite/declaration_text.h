#pragma once

#include <string>

#include "platform/sql/ast.h"

/// How columns and constraints stand in the engine's CREATE TABLE and ALTER TABLE.
namespace zef {

/// Texts are declared with the one collation of stock SQLite that ignores letter case: searches for plain texts use
/// indexes through it, and other tools find the same rows. Empty for other types.
std::string Collation(sql::Type type);
std::string DeclaredColumn(const sql::ColumnDefinition& column);
std::string ConstraintText(const sql::Constraint& constraint);

}  // namespace zef
