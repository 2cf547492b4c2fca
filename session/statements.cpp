#include "session/statements.h"

#include <charconv>

namespace zef {
namespace {

constexpr std::size_t kMostDigits = 11;  ///< of an identifier, its sign included

void AppendNumber(std::string& text, std::int32_t number) {
  char digits[kMostDigits];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  text.append(digits, static_cast<std::size_t>(end - digits));
}

std::size_t LengthOf(const FieldRows& rows) {
  std::size_t length = 128;
  for (const FieldRow& row : rows) length += row.name.size() + row.value.size() + 4;
  return length;
}

}  // namespace

RunTimeError InColumn(const RunTimeError& failure, std::string_view column) {
  const std::string name = "'" + std::string(column) + "'";
  switch (failure.code()) {
    case FailureNumber::ItemNotFound: return {failure.code(), "The column " + name + " is missing."};
    case FailureNumber::InvalidUseOfNull:
    case FailureNumber::TypeMismatch:
    case FailureNumber::Overflow: return {failure.code(), failure.description() + " in the column " + name};
    case FailureNumber::InvalidCall:
      return {failure.code(), "The date in the column " + name + " lies outside of the years 100 to 9999."};
    default: return failure;
  }
}

std::string SqlNumber(std::int32_t number) {
  std::string text;
  AppendNumber(text, number);
  return text;
}

std::string WithNumber(std::string_view head, std::int32_t number) {
  std::string text;
  text.reserve(head.size() + kMostDigits);
  text += head;
  AppendNumber(text, number);
  return text;
}

std::string SqlQuoted(std::string_view text) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  quoted += '\'';
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t quote = text.find('\'', at);
    const std::size_t end = quote == std::string_view::npos ? text.size() : quote + 1;
    quoted.append(text, at, end - at);
    if (quote != std::string_view::npos) quoted += '\'';
    at = end;
  }
  quoted += '\'';
  return quoted;
}

std::string SqlText(std::string_view text) { return text.empty() ? std::string() : SqlQuoted(text); }

std::string SqlDate(Date date) {
  std::string text;
  text.reserve(26);
  text += '\'';
  AppendText(text, date);
  text += '\'';
  return text;
}

std::string SqlBoolean(bool value) { return value ? "1" : "0"; }

std::string InsertText(std::string_view table, std::string_view key, std::int32_t id, const FieldRows& rows) {
  std::string text;
  text.reserve(LengthOf(rows));
  text.append("INSERT INTO ").append(table).append(" (").append(key);
  for (const FieldRow& row : rows) {
    if (!row.value.empty()) text.append(",").append(row.name);
  }
  text += ") VALUES (";
  AppendNumber(text, id);
  for (const FieldRow& row : rows) {
    if (!row.value.empty()) text.append(",").append(row.value);
  }
  text += ')';
  return text;
}

std::string UpdateText(std::string_view table, std::string_view key, std::int32_t id, const FieldRows& rows) {
  std::string text;
  text.reserve(LengthOf(rows));
  text.append("UPDATE ").append(table).append(" SET ").append(key).append("=");
  AppendNumber(text, id);
  for (const FieldRow& row : rows) {
    text.append(",").append(row.name).append("=").append(row.value.empty() ? std::string_view("''") : row.value);
  }
  text.append(" WHERE ").append(key).append("=");
  AppendNumber(text, id);
  return text;
}

}  // namespace zef
