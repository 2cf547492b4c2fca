#pragma once

#include "component/binding.h"
#include "component/table.h"
#include "session/session.h"

namespace zef::component {

/// The rows that many record classes share, each with the class's own members behind it.
template <class T>
struct RecordMembers : Members<T> {
  using Of = Members<T>;

  static constexpr Member ID() { return Of::template Field<&T::ID, Long>("ID"); }
  static constexpr Member Session() {
    return Of::template Property<&T::Session, &T::SetSession, Ref<CSession>>("Session");
  }
  static constexpr Member DateLastUpdate() { return Of::template Property<&T::DateLastUpdate, Date>("DateLastUpdate"); }
  static constexpr Member IsNew() { return Of::template Function<&T::IsNew, Boolean()>("IsNew"); }
  static constexpr Member IsModified() { return Of::template Function<&T::IsModified, Boolean()>("IsModified"); }
  static constexpr Member IsEmpty() { return Of::template Function<&T::IsEmpty, Boolean()>("IsEmpty"); }
  static constexpr Member ResetFlagsX() {
    return Of::template Function<&T::ResetFlagsX, void(Boolean, Boolean)>("ResetFlagsX", "M", "N");
  }
  static constexpr Member ResetFlags() { return Of::template Function<&T::ResetFlags, void()>("ResetFlags"); }
  static constexpr Member GetValuesFromRS() {
    return Of::template Function<&T::GetValuesFromRS, void(ByRef<Ref<Recordset>>)>("GetValuesFromRS", "Rs");
  }
  static constexpr Member Save() { return Of::template Function<&T::Save, Boolean()>("Save"); }
  /// What most classes have in one run.
  static constexpr std::array<Member, 6> Contract() {
    return {IsNew(), IsModified(), ResetFlagsX(), ResetFlags(), GetValuesFromRS(), Save()};
  }
  static constexpr Member Refresh() { return Of::template Function<&T::Refresh, Boolean()>("Refresh"); }
  static constexpr Member GetFieldsArray() {
    return Of::template Function<&T::GetFieldsArray, Boolean(FieldType, ByRef<FieldsArray>, ByRef<Long>)>(
        "GetFieldsArray", "enmType", "strFields", "lngFieldsCount");
  }
  static constexpr Member Field2String() {
    return Of::template Function<&T::Field2String, Text(ByRef<Text>)>("Field2String", "strFldName");
  }
  /// Of a class that makes a file of its own.
  static constexpr Member Save2File() {
    return Of::template Function<&T::Save2File, Boolean(ByRef<Text>)>("Save2File", "strFile");
  }
  /// Of a class that writes to its owner's file.
  static constexpr Member Save2OwnersFile() {
    return Of::template Function<&T::Save2File, Boolean(ByRef<Long>)>("Save2File", "lngFileNumber");
  }
  static constexpr Member Notification() {
    return Of::template Property<&T::Notification, Ref<CNotification>>("Notification");
  }
  static constexpr Member Recurrence() { return Of::template Property<&T::Recurrence, Ref<CRecurrence>>("Recurrence"); }
  static constexpr Member SeenByUser() {
    return Of::template Function<&T::SeenByUser, Boolean(Date, ByRef<Boolean>)>("SeenByUser", "dtmDate", "blnShow");
  }
  static constexpr Member MarkSeenByUser() {
    return Of::template Function<&T::MarkSeenByUser, Boolean(Date)>("MarkSeenByUser", "dtmDate");
  }
};

}  // namespace zef::component
