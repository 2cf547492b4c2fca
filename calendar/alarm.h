#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

#include "calendar/item.h"
#include "notes/attachement.h"

namespace zef {

/// A timed reminder with its own rule, notification and attachment, which live and die with it. Its notification is
/// modified from the start, so that even an alarm that nobody has touched gets its rows at its first `Save`; the next
/// one finds the notification empty and deletes it again.
class CAlarm : public Item<CAlarm> {
 public:
  /// Selects one row; its key follows.
  static constexpr std::string_view kSelectRow = "SELECT * FROM Alarms WHERE ALA_ID=";

  CAlarm();

  /// Setting it replaces the object and changes no flag.
  Ref<CAttachement> Attachement = MakeRef<CAttachement>();

  Property<std::int32_t> FolderID{*this};
  Property<std::int32_t> CategoryID{*this};
  Property<std::int32_t> AttachementID{*this};  ///< of the attachment's row; below 1 for none
  Property<std::string> Text{*this};
  Property<Date> StartDate{*this, Now()};
  Property<std::int32_t> Reminder{*this};  ///< the unit is the client's
  Property<Date> DateLastUpdate{*this};    ///< reads date value 0 after a `Save` until the record is read again

  /// Also sets the session of the children.
  void SetSession(const Ref<CSession>& session);
  /// True if the alarm's own flag is set or a child reports a change.
  bool IsModified() const { return OwnModified() || ChildModified(Attachement) || Item::IsModified(); }
  void ResetFlagsX(bool M, bool N);

  /// Reads the children's rows too; a reference without a row leaves its child as it was.
  void GetValuesFromRS(const Ref<Recordset>& Rs);
  bool Save();
  bool Refresh();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// Writes the labelled fields, then those of the children, to a text file, in place of what stands there. If that
  /// fails on the way, the file stays open under its number.
  bool Save2File(const std::string& strFile) const;
  /// What a column shows to people, or a category's name for "CAT_NAME", letter case ignored; empty for any other name.
  /// Traps nothing.
  std::string Field2String(const std::string& strFldName) const;

  /// As those of an event.
  bool SeenByUser(Date dtmDate, bool& blnShow);
  bool MarkSeenByUser(Date dtmDate);

  /// True if the alarm carries nothing worth keeping; a new one carries its `StartDate`. `FolderID` and the children's
  /// contents do not count.
  bool IsEmpty() const;

 private:
  friend class Item<CAlarm>;
  bool SaveChildren(CSession& session);
  auto ChildrenBefore() {
    return std::tuple_cat(std::tuple(ChildBefore(Attachement, AttachementID)), Item::ChildrenBefore());
  }
};

}  // namespace zef
