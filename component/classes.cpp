#include "component/classes.h"

#include <array>
#include <tuple>

#include "component/names.h"

namespace zef::component {
namespace {

/// The descriptions of classes, in the order of their names.
template <class... T>
std::array<const Class*, sizeof...(T)> ClassesOf(const std::tuple<Named<T>...>&) {
  return {&ClassOf<T>()...};
}

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
  static const auto kClasses = ClassesOf(kPublicNames);
  return kClasses;
}

std::span<const Class* const> ReachedClasses() {
  static const auto kClasses = ClassesOf(kReachedNames);
  return kClasses;
}

std::span<const Enumeration> PublicEnumerations() { return kEnumerations; }

}  // namespace zef::component
