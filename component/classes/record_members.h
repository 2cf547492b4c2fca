#pragma once

#include "component/binding.h"
#include "component/table.h"
#include "session/session.h"

namespace zef::component {

/// The rows that many record classes share, each with the class's own members behind it.
template <class T>
struct RecordMembers : Members<T> {
  using Of = Members<T>;

  static consteval Member ID() { return Of::template Field<&T::ID, Long>("ID"); }
  static consteval Member Session() {
    return Of::template Property<&T::Session, &T::SetSession, Ref<CSession>>("Session");
  }
  static consteval Member DateLastUpdate() { return Of::template Property<&T::DateLastUpdate, Date>("DateLastUpdate"); }
  static consteval Member IsNew() { return Of::template Function<&T::IsNew, Boolean()>("IsNew"); }
  static consteval Member IsModified() { return Of::template Function<&T::IsModified, Boolean()>("IsModified"); }
  static consteval Member IsEmpty() { return Of::template Function<&T::IsEmpty, Boolean()>("IsEmpty"); }
  static consteval Member ResetFlagsX() {
    return Of::template Function<&T::ResetFlagsX, void(Boolean, Boolean)>("ResetFlagsX", "M", "N");
  }
  static consteval Member ResetFlags() { return Of::template Function<&T::ResetFlags, void()>("ResetFlags"); }
  static consteval Member GetValuesFromRS() {
    return Of::template Function<&T::GetValuesFromRS, void(ByRef<Ref<Recordset>>)>("GetValuesFromRS", "Rs");
  }
  static consteval Member Save() { return Of::template Function<&T::Save, Boolean()>("Save"); }
  static consteval Member Refresh() { return Of::template Function<&T::Refresh, Boolean()>("Refresh"); }
  static consteval Member GetFieldsArray() {
    return Of::template Function<&T::GetFieldsArray, Boolean(FieldType, ByRef<FieldsArray>, ByRef<Long>)>(
        "GetFieldsArray", "enmType", "strFields", "lngFieldsCount");
  }
  static consteval Member Field2String() {
    return Of::template Function<&T::Field2String, Text(ByRef<Text>)>("Field2String", "strFldName");
  }
  /// Of a class that makes a file of its own.
  static consteval Member Save2File() {
    return Of::template Function<&T::Save2File, Boolean(ByRef<Text>)>("Save2File", "strFile");
  }
  /// Of a class that writes to its owner's file.
  static consteval Member Save2OwnersFile() {
    return Of::template Function<&T::Save2File, Boolean(ByRef<Long>)>("Save2File", "lngFileNumber");
  }
  static consteval Member Notification() {
    return Of::template Property<&T::Notification, Ref<CNotification>>("Notification");
  }
  static consteval Member Recurrence() { return Of::template Property<&T::Recurrence, Ref<CRecurrence>>("Recurrence"); }
  static consteval Member SeenByUser() {
    return Of::template Function<&T::SeenByUser, Boolean(Date, ByRef<Boolean>)>("SeenByUser", "dtmDate", "blnShow");
  }
  static consteval Member MarkSeenByUser() {
    return Of::template Function<&T::MarkSeenByUser, Boolean(Date)>("MarkSeenByUser", "dtmDate");
  }
};

}  // namespace zef::component
