#pragma once

#include <array>
#include <string_view>

#include "platform/recordset.h"
#include "session/collections.h"

namespace zef {

/// The columns that a tag takes its identifier and its text from. An object of it must live as long as the program.
using TagColumns = std::array<std::string_view, 2>;

/// A tag of the current row. Both columns are read unguarded: raises 94 for a Null in one of them.
Ref<CTag> ReadTag(Recordset& rs, const TagColumns& columns);

}  // namespace zef
