#include "platform/connection_string.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef {
namespace {

[[noreturn]] void Refuse(const std::string& what) {
  throw RunTimeError(FailureNumber::StatementError, "The connection string is refused: " + what);
}

[[noreturn]] void Malformed(const std::string& what) {
  throw RunTimeError(FailureNumber::StatementError, "The connection string is malformed: " + what);
}

std::string QuotedValue(std::string_view text, std::size_t& at) {
  const char quote = text[at++];
  std::string value;
  while (at < text.size()) {
    if (text[at] != quote) {
      value += text[at++];
    } else if (at + 1 < text.size() && text[at + 1] == quote) {
      value += quote;
      at += 2;
    } else {
      ++at;
      return value;
    }
  }
  Malformed("a quotation mark is not closed.");
}

std::string Value(std::string_view text, std::size_t& at) {
  at = std::min(text.find_first_not_of(' ', at), text.size());
  const bool quoted = at < text.size() && (text[at] == '"' || text[at] == '\'');
  std::string value;
  if (quoted) value = QuotedValue(text, at);
  const std::size_t end = std::min(text.find(';', at), text.size());
  const std::string_view rest = text::Trim(text.substr(at, end - at));
  if (quoted && !rest.empty()) Malformed("something follows a quoted value.");
  if (!quoted) value = rest;
  at = end + 1;
  return value;
}

}  // namespace

std::string_view ConnectionString::Get(std::string_view key) const {
  const auto found =
      std::find_if(parts.rbegin(), parts.rend(), [&](const auto& part) { return text::EqualNames(part.first, key); });
  return found == parts.rend() ? std::string_view() : std::string_view(found->second);
}

void ConnectionString::Require(std::initializer_list<std::string_view> known) const {
  bool behind_password = false;
  for (auto part = parts.begin(); part != parts.end(); ++part) {
    const std::string& key = part->first;
    const auto named = [&](std::string_view name) { return text::EqualNames(name, key); };
    // What stands behind a password may be the tail of one with a semicolon: it is not shown, and names no other file.
    if (std::none_of(known.begin(), known.end(), named)) {
      Refuse(behind_password ? "a key behind the password is not known." : "the key '" + key + "' is not known.");
    }
    const bool password = text::LowerAscii(key).ends_with("password");
    const bool again = std::any_of(parts.begin(), part, [&](const auto& other) { return named(other.first); });
    if (behind_password && again && !password) Refuse("a key stands again behind the password.");
    behind_password = behind_password || password;
  }
}

ConnectionString ParseConnectionString(std::string_view text) {
  ConnectionString parsed;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t equals = text.find('=', at);
    const std::size_t end = std::min(text.find(';', at), text.size());
    if (text::Trim(text.substr(at, end - at)).empty()) {
      at = end + 1;
      continue;
    }
    // The part itself is not shown: it may be the tail of a password with a semicolon.
    if (equals == std::string_view::npos || equals > end)
      Malformed("a part has no '='; a value with ';' stands between quotation marks.");
    std::string key(text::Trim(text.substr(at, equals - at)));
    at = equals + 1;
    parsed.parts.emplace_back(std::move(key), Value(text, at));
  }
  return parsed;
}

std::string QuotedConnectionValue(std::string_view value) {
  std::string quoted = "\"";
  for (const char c : value) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

}  // namespace zef
