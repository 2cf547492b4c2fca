#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "calendar/item.h"

namespace zef {

/// The sequence that numbers tasks.
inline constexpr std::int32_t kTaskSequence = 2;

/// One to-do item with its own rule and notification. A task with a due date has one generated event in the protected
/// folder "Tasks Due Dates", which `Save` keeps.
class CTask : public Item<CTask> {
 public:
  /// Selects one row; its key follows.
  static constexpr std::string_view kSelectRow = "SELECT * FROM Tasks WHERE TSK_ID=";

  CTask() = default;

  Property<std::int32_t> FolderID{*this};
  Property<std::int32_t> CategoryID{*this};
  Property<std::string> Priority{*this};  ///< the name, not an identifier
  Property<std::int32_t> StatusID{*this};
  Property<std::string> Name{*this};
  Property<std::string> Description{*this};
  Property<std::string> AssignedTo{*this};
  Property<std::int32_t> Completed{*this};  ///< a plain number; 0 means open
  Property<Date> DateCompleted{*this};      ///< date value 0 means no date, here and below
  Property<Date> StartDate{*this};
  Property<Date> DueDate{*this};
  Property<Date> DateLastUpdate{*this};  ///< reads date value 0 after a `Save` until the record is read again

  /// Reads the children's rows too; a reference without a row leaves its child as it was.
  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Writes the children, the row if it changed, and in any case the due-date event, in one transaction.
  bool Save();
  bool Refresh();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// As that of an event; the file is made before the fields are.
  bool Save2File(const std::string& strFile) const;
  /// As that of an event.
  std::string Field2String(const std::string& strFldName) const;
  /// True if the task carries nothing worth keeping; `FolderID`, `DateLastUpdate` and the children's contents do not
  /// count.
  bool IsEmpty() const;

  /// Turns the task into the next instance of its rule, counted from `StartDate`: under new identifiers, open again,
  /// new and modified, without a row until `Save`; the rows of the earlier instance stay. False and nothing changed if
  /// there is no rule or no next date. False with all flags clear, and nothing recorded here, if a step fails; what the
  /// steps before it changed stays then. Drop such a task: under its new identifier `Save` would write no row, but with
  /// a due date an event of a task that does not exist. Raises 91 only if a child is Nothing.
  bool ApplyRecurrence();
  /// Copies the properties, identifier and flags into the target, or a new task for Nothing; the target keeps its own
  /// children. A failure ends the copy silently.
  Ref<CTask> Clone(const Ref<CTask>& DestTask = nullptr) const;
};

}  // namespace zef
