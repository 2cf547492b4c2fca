#include "client/schema_names.h"

#include <string_view>

#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::client {

std::string NameBehind(const char* beginning, const std::string& statement) {
  const std::string_view text = beginning;
  if (!statement.starts_with(text)) return {};
  return statement.substr(text.size(), statement.find(' ', text.size()) - text.size());
}

std::vector<std::string> TablesOf(const std::string& schema) {
  std::vector<std::string> tables;
  for (const std::string& statement : schema::Statements(schema::Text(schema))) {
    std::string name = NameBehind(kCreateTable, statement);
    if (!name.empty()) tables.push_back(std::move(name));
  }
  return tables;
}

}  // namespace zef::client
