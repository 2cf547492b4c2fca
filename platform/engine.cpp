#include "platform/engine.h"

#include <algorithm>
#include <numeric>

#include "platform/backup.h"
#include "platform/connection_string.h"
#ifdef ZEF_POSTGRESQL
#include "platform/postgresql/postgresql_engine.h"
#endif
#include "platform/sqlite/sqlite_engine.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/text.h"

namespace zef {
namespace {

struct Provider {
  std::string_view name;
  std::unique_ptr<Engine> (*open)(const ConnectionString&);
  void (*create)(const ConnectionString&);
  void (*back_up)(const ConnectionString&, const std::string& path, const BackupProgress&);
};

constexpr Provider kProviders[] = {
    {"Microsoft.Jet.OLEDB.4.0", &OpenSqlite, &CreateSqlite, &BackUpSqlite},
    {"SQLite", &OpenSqlite, &CreateSqlite, &BackUpSqlite},
#ifdef ZEF_POSTGRESQL
    {"PostgreSQL", &OpenPostgresql, &CreatePostgresql, &BackUpPostgresql},
#endif
};

const Provider& ProviderOf(const ConnectionString& connection) {
  const std::string_view wanted = connection.Get("Provider");
  for (const Provider& provider : kProviders) {
    if (text::EqualNames(provider.name, wanted)) return provider;
  }
  if (!text::EqualNames("PostgreSQL", wanted)) throw RunTimeError(FailureNumber::ProviderNotFound);
  throw RunTimeError(FailureNumber::ProviderNotFound,
                     "The provider cannot be found: this library was built without PostgreSQL.");
}

}  // namespace

RowShape::RowShape(sql::CompiledStatement statement) : statement_(std::move(statement)) {
  for (const sql::ResultColumn& column : statement_.columns) types_.push_back(column.type);
  if (statement_.hidden_row_id) types_.push_back(sql::Type::Unknown);
  every_column_.resize(types_.size());
  std::iota(every_column_.begin(), every_column_.end(), 0);
  if (statement_.hidden_row_id) {
    identity_.push_back(every_column_.back());
  } else {
    identity_.assign(statement_.key_columns.begin(), statement_.key_columns.end());
  }
}

const std::string& RowShape::UpdateText(zef::Positions written) const {
  if (!update_text_.empty() && std::ranges::equal(updated_, written)) return update_text_;
  const auto name = [&](int column) { return "[" + columns()[static_cast<std::size_t>(column)].name + "]=?"; };
  std::string text = "UPDATE [" + statement_.table + "] SET ";
  for (std::size_t i = 0; i < written.size(); ++i) text += (i == 0 ? "" : ",") + name(written[i]);
  for (std::size_t i = 0; i < statement_.key_columns.size(); ++i) {
    text += (i == 0 ? " WHERE " : " AND ") + name(identity_[i]);
  }
  updated_.assign(written.begin(), written.end());
  return update_text_ = std::move(text);
}

int RowShape::Position(std::string_view name) const {
  for (std::size_t i = 0; i < statement_.columns.size(); ++i) {
    if (text::EqualNames(statement_.columns[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

Positions RowShape::Positions(ColumnNames names) const {
  for (const auto& [list, positions] : positions_) {
    if (list == names.data()) return positions;
  }
  std::vector<int> positions;
  for (const std::string_view name : names) positions.push_back(Position(name));
  return positions_.emplace_back(names.data(), std::move(positions)).second;
}

std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection) {
  return ProviderOf(connection).open(connection);
}

void CreateDatabase(const std::string& connection_string) {
  const ConnectionString parsed = ParseConnectionString(connection_string);
  ProviderOf(parsed).create(parsed);
}

void BackUpDatabase(const std::string& connection_string, const std::string& path, const BackupProgress& progress) {
  const ConnectionString parsed = ParseConnectionString(connection_string);
  ProviderOf(parsed).back_up(parsed, path, progress);
}

void ReleaseEngines() { ReleaseSqlite(); }

}  // namespace zef
