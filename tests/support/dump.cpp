#include "tests/support/dump.h"

#include <string_view>

#include "platform/recordset.h"
#include "platform/value.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::test {
namespace {

constexpr std::string_view kCreateTable = "CREATE TABLE ";

std::string HexText(const Bytes& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::byte byte : bytes) {
    text += kDigits[std::to_integer<std::size_t>(byte >> 4)];
    text += kDigits[std::to_integer<std::size_t>(byte & std::byte{15})];
  }
  return text;
}

std::string ValueText(const Value& value) {
  if (IsNull(value)) return "Null";
  if (const auto* bytes = std::get_if<Bytes>(&value)) return HexText(*bytes);
  if (const auto* date = std::get_if<Date>(&value)) return NumberText(date->value());
  if (const auto* text = std::get_if<std::string>(&value)) return "'" + *text + "'";
  return ToText(value);
}

}  // namespace

std::vector<std::string> TableNames() {
  std::vector<std::string> names;
  for (const std::string& statement : schema::Statements(schema::Text("9.2.4"))) {
    if (!statement.starts_with(kCreateTable)) continue;
    const std::string rest = statement.substr(kCreateTable.size());
    names.push_back(rest.substr(0, rest.find_first_of(" (")));
  }
  return names;
}

std::string DumpRows(Connection& connection, const std::string& select) {
  std::string text;
  const Ref<Recordset> rs = connection.Execute(select);
  for (; !rs->EndOfFile(); rs->MoveNext()) {
    for (int i = 0; i < rs->Fields().Count(); ++i) text += "  " + ValueText(rs->ValueAt(i));
    text += "\n";
  }
  return text;
}

std::string Dump(Connection& connection, const std::vector<std::string>& tables) {
  std::string text;
  for (const std::string& table : tables) {
    text += table + "\n" + DumpRows(connection, "SELECT * FROM [" + table + "] ORDER BY 1");
  }
  return text;
}

}  // namespace zef::test
