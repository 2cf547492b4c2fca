#include "platform/sqlite/table_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace zef {
namespace {

struct Piece {
  std::size_t begin;
  std::size_t end;
};

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsWord(char c) {
  return c == '_' || (c & 0x80) != 0 || (c >= '0' && c <= '9') || ((c | 32) >= 'a' && (c | 32) <= 'z');
}

char Closing(char c) { return c == '[' ? ']' : c; }

/// The end of the token that begins at `at`: a quoted name or text, a bracketed group, a word, or one character.
std::size_t TokenEnd(std::string_view text, std::size_t at) {
  const char c = text[at];
  std::size_t end = at + 1;
  if (c == '"' || c == '\'' || c == '`' || c == '[') {
    end = text.find(Closing(c), end);
    return end == std::string_view::npos ? text.size() : end + 1;
  }
  if (c == '(') {
    while (end < text.size() && text[end] != ')') end = TokenEnd(text, end);
    return std::min(end + 1, text.size());
  }
  while (IsWord(c) && end < text.size() && IsWord(text[end])) ++end;
  return end;
}

std::vector<Piece> Tokens(std::string_view text) {
  std::vector<Piece> tokens;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = TokenEnd(text, at);
    if (!IsSpace(text[at])) tokens.push_back({at, end});
    at = end;
  }
  return tokens;
}

std::string Unquoted(std::string_view token) {
  const bool quoted = token.size() > 1 && std::string_view("\"'`[").find(token[0]) != std::string_view::npos;
  if (!quoted) return std::string(token);
  std::string name;
  for (std::size_t i = 1; i + 1 < token.size(); ++i) {
    name += token[i];
    if (token[i] == token[0] && token[i + 1] == token[0]) ++i;
  }
  return name;
}

/// The name of a constraint, and the word behind it that tells its kind; both empty for a column.
struct NamedConstraint {
  std::string name;
  std::string_view kind;
};

NamedConstraint ConstraintIn(std::string_view item) {
  const std::vector<Piece> tokens = Tokens(item);
  const auto token = [&](std::size_t i) { return item.substr(tokens[i].begin, tokens[i].end - tokens[i].begin); };
  if (tokens.size() < 3 || !text::EqualNames(token(0), "CONSTRAINT")) return {};
  return {Unquoted(token(1)), token(2)};
}

bool EndsType(std::string_view word) {
  constexpr std::array<std::string_view, 11> kWords = {
      "CONSTRAINT", "PRIMARY", "NOT", "NULL", "UNIQUE", "CHECK", "DEFAULT", "COLLATE", "REFERENCES", "GENERATED", "AS"};
  return std::any_of(kWords.begin(), kWords.end(), [&](auto known) { return text::EqualNames(known, word); });
}

}  // namespace

TableText::TableText(std::string_view text) {
  const std::size_t open = text.find('(');
  head_ = text.substr(0, open + 1);
  std::size_t item = open + 1;
  std::size_t at = item;
  while (at < text.size() && text[at] != ')') {
    if (text[at] == ',') {
      items_.emplace_back(text.substr(item, at - item));
      item = at + 1;
    }
    at = TokenEnd(text, at);
  }
  items_.emplace_back(text.substr(item, at - item));
  tail_ = text.substr(at);
}

std::string TableText::Text() const {
  std::string text = head_;
  for (std::size_t i = 0; i < items_.size(); ++i) text += (i == 0 ? "" : ",") + items_[i];
  return text + tail_;
}

bool TableText::ChangeType(std::string_view column, std::string_view type) {
  for (std::string& item : items_) {
    const std::vector<Piece> tokens = Tokens(item);
    const auto token = [&](std::size_t i) {
      return std::string_view(item).substr(tokens[i].begin, tokens[i].end - tokens[i].begin);
    };
    if (tokens.empty() || !text::EqualNames(Unquoted(token(0)), column)) continue;
    std::size_t last = 0;
    while (last + 1 < tokens.size() && !EndsType(token(last + 1))) ++last;
    item = item.substr(0, tokens[0].end) + " " + std::string(type) + item.substr(tokens[last].end);
    return true;
  }
  return false;
}

void TableText::AddConstraint(std::string_view text) { items_.emplace_back(text); }

std::vector<std::string> TableText::Relationships() const {
  std::vector<std::string> names;
  for (const std::string& item : items_) {
    NamedConstraint constraint = ConstraintIn(item);
    if (text::EqualNames(constraint.kind, "FOREIGN")) names.push_back(std::move(constraint.name));
  }
  return names;
}

bool TableText::RemoveConstraint(std::string_view name) {
  const std::string sought = text::LowerCase(name);
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const std::string& item) {
    const NamedConstraint constraint = ConstraintIn(item);
    return !constraint.kind.empty() && text::LowerCase(constraint.name) == sought;
  });
  if (found == items_.end()) return false;
  items_.erase(found);
  return true;
}

}  // namespace zef
