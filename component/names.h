#pragma once

#include <string_view>

#include "addressbook/phone_log.h"
#include "calendar/notification.h"
#include "calendar/recurrence_type.h"
#include "component/description.h"
#include "folders/folder.h"
#include "platform/recordset.h"
#include "session/collections.h"
#include "session/fields_array.h"
#include "session/session.h"

/// Every class and enumeration that clients know, by its public name.
namespace zef::component {

template <class T>
inline constexpr std::string_view kNameOf;

template <>
inline constexpr std::string_view kNameOf<FolderType> = "FolderType";
template <>
inline constexpr std::string_view kNameOf<FieldType> = "FieldType";
template <>
inline constexpr std::string_view kNameOf<NotificationType> = "NotificationType";
template <>
inline constexpr std::string_view kNameOf<NotificationStatus> = "NotificationStatus";
template <>
inline constexpr std::string_view kNameOf<CallDirection> = "CallDirection";
template <>
inline constexpr std::string_view kNameOf<RecurrenceType> = "RecurrenceType";
template <>
inline constexpr std::string_view kNameOf<CSession> = "CSession";
template <>
inline constexpr std::string_view kNameOf<CAlarm> = "CAlarm";
template <>
inline constexpr std::string_view kNameOf<CAttachement> = "CAttachement";
template <>
inline constexpr std::string_view kNameOf<CCategory> = "CCategory";
template <>
inline constexpr std::string_view kNameOf<CContact> = "CContact";
template <>
inline constexpr std::string_view kNameOf<CEvent> = "CEvent";
template <>
inline constexpr std::string_view kNameOf<CFolder> = "CFolder";
template <>
inline constexpr std::string_view kNameOf<CNote> = "CNote";
template <>
inline constexpr std::string_view kNameOf<CNotification> = "CNotification";
template <>
inline constexpr std::string_view kNameOf<CPhoneLog> = "CPhoneLog";
template <>
inline constexpr std::string_view kNameOf<CRecurrence> = "CRecurrence";
template <>
inline constexpr std::string_view kNameOf<CTask> = "CTask";
template <>
inline constexpr std::string_view kNameOf<CUser> = "CUser";
template <>
inline constexpr std::string_view kNameOf<CTag> = "CTag";
template <>
inline constexpr std::string_view kNameOf<CAlarms> = "CAlarms";
template <>
inline constexpr std::string_view kNameOf<CCategories> = "CCategories";
template <>
inline constexpr std::string_view kNameOf<CContacts> = "CContacts";
template <>
inline constexpr std::string_view kNameOf<CEvents> = "CEvents";
template <>
inline constexpr std::string_view kNameOf<CFolders> = "CFolders";
template <>
inline constexpr std::string_view kNameOf<CNotes> = "CNotes";
template <>
inline constexpr std::string_view kNameOf<CPhoneLogs> = "CPhoneLogs";
template <>
inline constexpr std::string_view kNameOf<CTags> = "CTags";
template <>
inline constexpr std::string_view kNameOf<CTasks> = "CTasks";
template <>
inline constexpr std::string_view kNameOf<CUsers> = "CUsers";
template <>
inline constexpr std::string_view kNameOf<Connection> = "Connection";
template <>
inline constexpr std::string_view kNameOf<Errors> = "Errors";
template <>
inline constexpr std::string_view kNameOf<Error> = "Error";
template <>
inline constexpr std::string_view kNameOf<Recordset> = "Recordset";
template <>
inline constexpr std::string_view kNameOf<Fields> = "Fields";
template <>
inline constexpr std::string_view kNameOf<Field> = "Field";

template <>
const Class& ClassOf<CSession>();
template <>
const Class& ClassOf<CAlarm>();
template <>
const Class& ClassOf<CAttachement>();
template <>
const Class& ClassOf<CCategory>();
template <>
const Class& ClassOf<CContact>();
template <>
const Class& ClassOf<CEvent>();
template <>
const Class& ClassOf<CFolder>();
template <>
const Class& ClassOf<CNote>();
template <>
const Class& ClassOf<CNotification>();
template <>
const Class& ClassOf<CPhoneLog>();
template <>
const Class& ClassOf<CRecurrence>();
template <>
const Class& ClassOf<CTask>();
template <>
const Class& ClassOf<CUser>();
template <>
const Class& ClassOf<CTag>();
template <>
const Class& ClassOf<CAlarms>();
template <>
const Class& ClassOf<CCategories>();
template <>
const Class& ClassOf<CContacts>();
template <>
const Class& ClassOf<CEvents>();
template <>
const Class& ClassOf<CFolders>();
template <>
const Class& ClassOf<CNotes>();
template <>
const Class& ClassOf<CPhoneLogs>();
template <>
const Class& ClassOf<CTags>();
template <>
const Class& ClassOf<CTasks>();
template <>
const Class& ClassOf<CUsers>();
template <>
const Class& ClassOf<Connection>();
template <>
const Class& ClassOf<Errors>();
template <>
const Class& ClassOf<Error>();
template <>
const Class& ClassOf<Recordset>();
template <>
const Class& ClassOf<Fields>();
template <>
const Class& ClassOf<Field>();

}  // namespace zef::component
