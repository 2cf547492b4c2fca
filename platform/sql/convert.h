#pragma once

#include <string_view>

#include "platform/sql/compile.h"
#include "platform/value.h"

namespace zef::sql {

/// The value as a parameter of `plan` is bound: `in` itself where nothing has to change, else `scratch`, which then
/// holds the converted one. Texts are read as numbers or dates, numbers and dates become their texts, numbers round
/// half to even. Raises -2147217913 where the kinds do not convert, -2147217833 for a text that is longer than the plan
/// allows or a number or date beyond its type, -2147217873 for Null where a value is required, -2147217900 for a text
/// that is to be stored and is not UTF-8.
const Value& Converted(const Value& in, const ParameterPlan& plan, Value& scratch);

/// True if the text has at most `length` characters, or if `length` is 0.
bool FitsLength(std::string_view text, int length);

}  // namespace zef::sql
