#include "platform/catalog.h"

#include <optional>

#include "platform/recordset.h"

namespace zef {

const CatalogKey& CatalogKeys::Item(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw RunTimeError(FailureNumber::ItemNotFound);
  return keys_[static_cast<std::size_t>(index)];
}

void CatalogKeys::Delete(const std::string& name) const {
  connection_->Execute("ALTER TABLE [" + table_ + "] DROP CONSTRAINT [" + name + "]");
}

void Catalog::SetActiveConnection(const Ref<Connection>& connection) {
  Deref(connection).OpenedEngine();
  connection_ = connection;
}

CatalogTable Catalog::Tables(const std::string& name) const {
  Connection& connection = Deref(connection_);
  Engine& engine = connection.OpenedEngine();
  const std::optional<std::vector<std::string>> names = connection.Guarded([&] { return engine.Relationships(name); });
  if (!names) throw RunTimeError(FailureNumber::ItemNotFound);
  std::vector<CatalogKey> keys;
  for (const std::string& key : *names) keys.push_back({key});
  return {CatalogKeys(connection_, name, std::move(keys))};
}

}  // namespace zef
