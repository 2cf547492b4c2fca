#include "platform/engine.h"

#include <numeric>

#include "platform/connection_string.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/text.h"

namespace zef {
namespace {

struct Provider {
  std::string_view name;
  std::unique_ptr<Engine> (*open)(const ConnectionString&);
};

constexpr Provider kProviders[] = {
    {"Microsoft.Jet.OLEDB.4.0", &OpenSqlite},
    {"SQLite", &OpenSqlite},
};

}  // namespace

RowShape::RowShape(sql::CompiledStatement statement) : statement_(std::move(statement)) {
  for (const sql::ResultColumn& column : statement_.columns) types_.push_back(column.type);
  if (statement_.hidden_row_id) types_.push_back(sql::Type::Unknown);
  every_column_.resize(types_.size());
  std::iota(every_column_.begin(), every_column_.end(), 0);
}

int RowShape::Position(std::string_view name) const {
  for (std::size_t i = 0; i < statement_.columns.size(); ++i) {
    if (text::EqualNames(statement_.columns[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

Positions RowShape::Positions(ColumnNames names) const {
  const auto [entry, fresh] = positions_.try_emplace(names.data());
  if (fresh) {
    for (const std::string_view name : names) entry->second.push_back(Position(name));
  }
  return entry->second;
}

std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection) {
  const std::string_view wanted = connection.Get("Provider");
  for (const Provider& provider : kProviders) {
    if (text::EqualNames(provider.name, wanted)) return provider.open(connection);
  }
  throw RunTimeError(FailureNumber::ProviderNotFound);
}

}  // namespace zef
