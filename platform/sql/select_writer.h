#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/sql/scope.h"
#include "platform/sql/writing.h"

namespace zef::sql {

/// How the result columns of a select are called in the engine's statement.
enum class Naming {
  None,      ///< nobody asks for names
  Declared,  ///< by their names in the dialect
  Numbered,  ///< by `NumberedName`
};

/// The name of result column `number`, from 1; no column of the dialect has it.
std::string NumberedName(std::size_t number);

struct WrittenSelect {
  std::string text;
  std::vector<ColumnInfo> columns;
};

/// Writes a select that stands inside a statement; `outer` is the scope around it, or null.
WrittenSelect WriteSelect(Writing& writing, const Select& select, const Scope* outer, Naming naming);

/// Writes the select that is the whole statement: its text, its columns, and how its rows are found again.
void WriteSelectStatement(Writing& writing, const Select& select);

/// The one column of a select that serves as a value or as a list. Raises -2147217900 if it has others.
const ColumnInfo& SingleColumn(const WrittenSelect& select, std::size_t place);

}  // namespace zef::sql
