#include "platform/sql/schema.h"

#include <algorithm>

#include "platform/text.h"

namespace zef::sql {

const ColumnInfo* TableInfo::Find(std::string_view column) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [column](const ColumnInfo& info) { return text::EqualNames(info.name, column); });
  return found == columns.end() ? nullptr : &*found;
}

}  // namespace zef::sql
