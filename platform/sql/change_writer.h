#pragma once

#include "platform/sql/writing.h"

namespace zef::sql {

void WriteInsert(Writing& writing, const Insert& insert);
/// An update or delete over joined sources changes the rows of one table that the select of these sources finds.
void WriteUpdate(Writing& writing, const Update& update);
void WriteDelete(Writing& writing, const Delete& remove);

}  // namespace zef::sql
