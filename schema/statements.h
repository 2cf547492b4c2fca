#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zef::schema {

/// The statements of a schema text in order, without comments and without the ';' that ends each.
std::vector<std::string> Statements(std::string_view text);

}  // namespace zef::schema
