#pragma once

#include <cstdint>
#include <string>

#include "calendar/item.h"

namespace zef {

/// One calendar entry with its own rule and notification, which live and die with it. `EType` "E" or empty is the
/// client's own entry; "A", "B" and "T" are generated for a contact's anniversary and birthday and a task's due date,
/// whose identifier `LinkID` holds.
class CEvent : public Item<CEvent> {
 public:
  CEvent() = default;

  /// Scratch space for clients that lay events out in a grid; no part of the row.
  std::int32_t DisplayCol = 0;
  std::int32_t DisplayRow1 = 0;
  std::int32_t DisplayRow2 = 0;

  Property<std::int32_t> FolderID{*this};
  Property<std::int32_t> LinkID{*this};
  Property<std::int32_t> ContactID{*this};
  Property<std::int32_t> CategoryID{*this};
  Property<std::string> Text{*this};
  Property<std::string> EType{*this};
  Property<std::string> Location{*this};
  Property<Date> StartDate{*this, Now()};
  Property<Date> EndDate{*this, StartDate.get()};
  Property<std::int32_t> Reminder{*this, -1};  ///< negative: no reminder; the unit is the client's
  Property<Date> DateLastUpdate{*this};        ///< reads date value 0 after a `Save` until the record is read again

  /// Reads the children's rows too; a reference without a row leaves its child as it was.
  void GetValuesFromRS(const Ref<Recordset>& Rs);
  bool Save();
  bool Refresh();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// As that of an alarm; the notification is written twice.
  bool Save2File(const std::string& strFile) const;
  /// What a column shows to people, or the category's name for "CAT_Name", letter case counting; empty for any other
  /// name. Traps nothing.
  std::string Field2String(const std::string& strFldName) const;

  /// `blnShow` receives whether the session's user has yet to see the occurrence at this very date and time. False only
  /// if the look-up failed.
  bool SeenByUser(Date dtmDate, bool& blnShow);
  /// Notes that the session's user has seen the occurrence; doing so again adds another note.
  bool MarkSeenByUser(Date dtmDate);

  /// Copies the properties, identifier and flags into the target, or a new event for Nothing; the target keeps its own
  /// children. A failure ends the copy silently.
  Ref<CEvent> Clone(const Ref<CEvent>& DestEvent = nullptr) const;
  /// False in every case.
  bool IsEmpty() const { return false; }
};

}  // namespace zef
