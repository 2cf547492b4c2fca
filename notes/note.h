#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/record.h"

namespace zef {

/// A titled piece of free text in a folder. Both texts may be as long as the database holds.
class CNote : public Record<CNote> {
 public:
  /// Selects one row; its key follows.
  static constexpr std::string_view kSelectRow = "SELECT * FROM Notes WHERE NOT_ID=";

  CNote() = default;

  Property<std::int32_t> FolderID{*this};
  Property<std::int32_t> CategoryID{*this, -1};
  Property<std::string> Title{*this};
  Property<std::string> Text{*this};
  Property<Date> DateLastUpdate{*this};  ///< reads date value 0 after a `Save` until the note is read again

  /// Adds the row's title and text behind those that the note holds; everything else takes the row's values.
  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Writes the row if something changed; joins a transaction that runs and opens none.
  bool Save();
  /// Makes a file's bytes, read as Windows-1252, the text. The note becomes modified with the first of them, or with
  /// the clearing, if there was a text. If the file cannot be read to its end, what was read stays; if it cannot be
  /// opened, the old text. A file that cannot be read to its end stays open under its number (`platform/text_file.h`).
  bool ReadFromFile(const std::string& strFile);
  /// Reads the row again, so that title and text stand twice in a note that was loaded.
  bool Refresh();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// Writes the labelled fields to a text file, in place of what stands there.
  bool Save2File(const std::string& strFile) const;
  /// As that of an event.
  std::string Field2String(const std::string& strFldName) const;
  /// True without a category, title and text.
  bool IsEmpty() const { return CategoryID <= 0 && Text->empty() && Title->empty(); }
};

}  // namespace zef
