#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zef {

/// The parts of a connection string, `key=value` separated by `;`. Keys are compared without regard to letter case.
struct ConnectionString {
  std::vector<std::pair<std::string, std::string>> parts;

  /// The value of a key, the last one if it stands there twice, or the empty text.
  std::string_view Get(std::string_view key) const;
  /// Raises -2147217900 if a key is not among `known`; the sentence names the key, unless it stands behind a password,
  /// and no value. A key that stands there again behind a password is refused, too.
  void Require(std::initializer_list<std::string_view> known) const;
};

/// Reads a connection string. Blanks around keys and values do not count; a value may stand between single or double
/// quotes, doubled inside. Raises -2147217900 for a part without `=` and an unclosed quote.
ConnectionString ParseConnectionString(std::string_view text);
/// A value between double quotes, as `ParseConnectionString` reads it back.
std::string QuotedConnectionValue(std::string_view value);

}  // namespace zef
