#pragma once

#include <cstdint>

#include "folders/folder.h"

namespace zef {

/// What a folder can hold: one kind of item and what is done with all of them. Both stop at the first item that fails,
/// and let go of the items before they return.
struct ItemKind {
  FolderType type;
  /// Copies the items of a folder into another one; false if one could not be read, copied or saved.
  bool (*copy)(CSession& session, std::int32_t from, std::int32_t to);
  /// Deletes the items of a folder; false if they could not be read or one could not be deleted.
  bool (*remove)(CSession& session, std::int32_t folder);
};

/// The kind of the items in folders of a type; null for a type that holds none.
const ItemKind* KindOfItems(std::int32_t type);

}  // namespace zef
