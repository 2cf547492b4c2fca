#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/connection.h"
#include "platform/reference.h"

namespace zef {

/// A relationship of a table.
struct CatalogKey {
  std::string Name;
};

/// The named relationships by which a table refers to others, as they were when the table was asked for.
class CatalogKeys {
 public:
  CatalogKeys(Ref<Connection> connection, std::string table, std::vector<CatalogKey> keys)
      : connection_(std::move(connection)), table_(std::move(table)), keys_(std::move(keys)) {}

  std::int32_t Count() const { return static_cast<std::int32_t>(keys_.size()); }
  /// By position from 0; raises 3265 beyond them.
  const CatalogKey& Item(std::int32_t index) const;
  /// Removes the relationship of that name, letter case ignored, from the table; its rows and columns stay. Raises
  /// -2147217900 if there is none. This list stays as it is.
  void Delete(const std::string& name) const;

 private:
  Ref<Connection> connection_;
  std::string table_;
  std::vector<CatalogKey> keys_;
};

struct CatalogTable {
  CatalogKeys Keys;
};

/// What a database tells of its tables.
class Catalog {
 public:
  /// The connection whose tables are meant. Raises 91 for Nothing and 3704 for one that is closed.
  void SetActiveConnection(const Ref<Connection>& connection);
  /// A table by name, letter case ignored; raises 3265 if there is none, and 91 before a connection was set.
  CatalogTable Tables(const std::string& name) const;

 private:
  Ref<Connection> connection_;
};

}  // namespace zef
