#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

inline constexpr std::int32_t kFolderSequence = 12;

/// The kinds of item that a folder holds. Values are stored; 5 is left free.
enum FolderType : std::int32_t { FT_CONTACTS = 1, FT_TASKS = 2, FT_Notes = 3, FT_EVENTS = 4, FT_ALARMS = 6 };

/// One node of the folder tree. System folders carry the protected flag and are found by their names; the flag guards
/// nothing by itself.
class CFolder : public Record<CFolder> {
 public:
  CFolder() = default;

  Property<std::int32_t> ParentID{*this};  ///< 0 for a root folder
  Property<bool> Protected{*this};
  Property<std::int32_t> Options{*this};  ///< the client's; stored and handed back
  Property<std::string> Name{*this};
  Property<std::string> Description{*this};
  Property<std::int32_t> ItemsType{*this};  ///< a `FolderType`, not checked
  Property<Date> DateLastUpdate{*this};     ///< as last read; `Save` stamps the row, not the object

  /// True for the protected folder of events, or tasks, whose name is "all events", or "all tasks", in any letter case.
  bool IsAllEventsFolder() const;
  bool IsAllTasksFolder() const;

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Refuses a name that another folder under the same parent has (code 1000), even if nothing was changed.
  bool Save();

 private:
  bool IsSystemFolder(const char* lower_name, FolderType type) const;
};

}  // namespace zef
