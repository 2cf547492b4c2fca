#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/record.h"

namespace zef {

/// The sequence that numbers attachments.
inline constexpr std::int32_t kAttachementSequence = 10;

/// A file stored whole in the database, with the path that it came from. The content itself is no property: `Save`
/// takes it from the file named by `FileName`, `Cache2File` makes it a file again. Each passes through memory whole.
class CAttachement : public Record<CAttachement> {
 public:
  /// Selects one row; its key follows.
  static constexpr std::string_view kSelectRow = "SELECT * FROM Attachements WHERE ATC_ID=";

  CAttachement() = default;

  Property<std::string> Name{*this};
  Property<std::string> DocType{*this};  ///< the cache file's extension, without the point
  Property<std::string> Description{*this};
  Property<std::string> FileName{*this};       ///< path of the file to store
  Property<std::string> CacheFileName{*this};  ///< path of the cache file; no part of the row
  Property<bool> Cached{*this};                ///< the client's; no part of the row

  /// True while the four texts of the row are empty; owners decide by this whether they have an attachment at all.
  bool IsEmpty() const;

  /// Reads everything but the content.
  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// If something changed, stores the properties and, each time, the file as it is now; without that file nothing is
  /// written. A new record draws its identifier first. Checks no rights and opens no transaction.
  bool Save();
  /// Writes the stored content to `CacheFileName`, or to a new name in the temporary folder if that is empty, over what
  /// stands there. The file is private to the user. Without a row it writes nothing and is True. Marks nothing as
  /// modified.
  bool Cache2File();
  /// The first of "zef1", "zef2"... with the extension in the temporary folder that nothing stands under. The file is
  /// not made. Fails for a `DocType` that would lead out of the folder.
  bool GetNewCacheFileName(std::string& strCache);
  /// For the database no rows: `Save` writes through a record set.
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// Writes the labelled fields to a file that the owner has open.
  bool Save2File(std::int32_t lngFileNumber) const;
};

}  // namespace zef
