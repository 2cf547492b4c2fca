#include "schema/statements.h"

#include <utility>

namespace zef::schema {
namespace {

/// Takes the first line off a text.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
  return line;
}

}  // namespace

std::vector<std::string> Statements(std::string_view text) {
  std::vector<std::string> statements;
  std::string statement;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.empty() || line.starts_with("--")) continue;
    if (!statement.empty()) statement += '\n';
    statement += line;
    if (!line.ends_with(';')) continue;
    statement.pop_back();
    statements.push_back(std::move(statement));
    statement.clear();
  }
  return statements;
}

}  // namespace zef::schema
