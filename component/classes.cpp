#include "component/classes.h"

#include "component/names.h"

namespace zef::component {
namespace {

constexpr EnumerationMember kFolderType[] = {{"FT_CONTACTS", FT_CONTACTS},
                                             {"FT_TASKS", FT_TASKS},
                                             {"FT_Notes", FT_Notes},
                                             {"FT_EVENTS", FT_EVENTS},
                                             {"FT_ALARMS", FT_ALARMS}};
constexpr EnumerationMember kFieldType[] = {{"FN_DATABASE", FN_DATABASE}, {"FN_SERIALIZE", FN_SERIALIZE}};
constexpr EnumerationMember kNotificationType[] = {
    {"NT_EMPTY", NT_EMPTY}, {"NT_EVENTS", NT_EVENTS}, {"NT_TASKS", NT_TASKS}, {"NT_ALARMS", NT_ALARMS}};
constexpr EnumerationMember kNotificationStatus[] = {
    {"NS_NOTSENT", NS_NOTSENT}, {"NS_SENTOK", NS_SENTOK}, {"NS_ERRORS", NS_ERRORS}, {"NS_INACTIVE", NS_INACTIVE}};
constexpr EnumerationMember kCallDirection[] = {{"DIR_INCOMING", DIR_INCOMING}, {"DIR_OUTGOING", DIR_OUTGOING}};
constexpr EnumerationMember kRecurrenceType[] = {{"REC_EMPTY", REC_EMPTY},
                                                 {"REC_DAILY", REC_DAILY},
                                                 {"REC_WEEKLY", REC_WEEKLY},
                                                 {"REC_MONTHLY", REC_MONTHLY},
                                                 {"REC_YEARLY", REC_YEARLY}};

constexpr Enumeration kEnumerations[] = {
    {kNameOf<FolderType>, kFolderType},
    {kNameOf<FieldType>, kFieldType},
    {kNameOf<NotificationType>, kNotificationType},
    {kNameOf<NotificationStatus>, kNotificationStatus},
    {kNameOf<CallDirection>, kCallDirection},
    {kNameOf<RecurrenceType>, kRecurrenceType},
};

}  // namespace

std::span<const Class* const> PublicClasses() {
  static const Class* const kClasses[] = {
      &ClassOf<CSession>(),      &ClassOf<CAlarm>(),    &ClassOf<CAttachement>(), &ClassOf<CCategory>(),
      &ClassOf<CContact>(),      &ClassOf<CEvent>(),    &ClassOf<CFolder>(),      &ClassOf<CNote>(),
      &ClassOf<CNotification>(), &ClassOf<CPhoneLog>(), &ClassOf<CRecurrence>(),  &ClassOf<CTask>(),
      &ClassOf<CUser>(),         &ClassOf<CTag>(),      &ClassOf<CAlarms>(),      &ClassOf<CCategories>(),
      &ClassOf<CContacts>(),     &ClassOf<CEvents>(),   &ClassOf<CFolders>(),     &ClassOf<CNotes>(),
      &ClassOf<CPhoneLogs>(),    &ClassOf<CTags>(),     &ClassOf<CTasks>(),       &ClassOf<CUsers>(),
  };
  return kClasses;
}

std::span<const Class* const> ReachedClasses() {
  static const Class* const kClasses[] = {&ClassOf<Connection>(), &ClassOf<Errors>(), &ClassOf<Error>(),
                                          &ClassOf<Recordset>(),  &ClassOf<Fields>(), &ClassOf<Field>()};
  return kClasses;
}

std::span<const Enumeration> PublicEnumerations() { return kEnumerations; }

}  // namespace zef::component
