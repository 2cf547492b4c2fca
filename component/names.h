#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "addressbook/phone_log.h"
#include "calendar/notification.h"
#include "calendar/recurrence_type.h"
#include "component/description.h"
#include "folders/folder.h"
#include "platform/recordset.h"
#include "session/collections.h"
#include "session/fields_array.h"
#include "session/session.h"

/// Every class and enumeration that clients know, by its public name, in its public order.
namespace zef::component {

/// A C++ type and what clients call it.
template <class T>
struct Named {
  std::string_view name;
};

inline constexpr std::tuple kEnumerationNames{
    Named<FolderType>{"FolderType"},
    Named<FieldType>{"FieldType"},
    Named<NotificationType>{"NotificationType"},
    Named<NotificationStatus>{"NotificationStatus"},
    Named<CallDirection>{"CallDirection"},
    Named<RecurrenceType>{"RecurrenceType"},
};

/// The classes that clients can create. Their identifiers end in their places, so a new one goes to the end.
inline constexpr std::tuple kPublicNames{
    Named<CSession>{"CSession"},
    Named<CAlarm>{"CAlarm"},
    Named<CAttachement>{"CAttachement"},
    Named<CCategory>{"CCategory"},
    Named<CContact>{"CContact"},
    Named<CEvent>{"CEvent"},
    Named<CFolder>{"CFolder"},
    Named<CNote>{"CNote"},
    Named<CNotification>{"CNotification"},
    Named<CPhoneLog>{"CPhoneLog"},
    Named<CRecurrence>{"CRecurrence"},
    Named<CTask>{"CTask"},
    Named<CUser>{"CUser"},
    Named<CTag>{"CTag"},
    Named<CAlarms>{"CAlarms"},
    Named<CCategories>{"CCategories"},
    Named<CContacts>{"CContacts"},
    Named<CEvents>{"CEvents"},
    Named<CFolders>{"CFolders"},
    Named<CNotes>{"CNotes"},
    Named<CPhoneLogs>{"CPhoneLogs"},
    Named<CTags>{"CTags"},
    Named<CTasks>{"CTasks"},
    Named<CUsers>{"CUsers"},
};

/// Those that clients only reach; what is said above holds for them too.
inline constexpr std::tuple kReachedNames{
    Named<Connection>{"Connection"}, Named<Errors>{"Errors"}, Named<Error>{"Error"},
    Named<Recordset>{"Recordset"},   Named<Fields>{"Fields"}, Named<Field>{"Field"},
};

template <class T>
inline constexpr std::string_view kNameOf =
    std::get<Named<T>>(std::tuple_cat(kEnumerationNames, kPublicNames, kReachedNames)).name;

/// The place of a class in its list, from 1.
template <class T, class... Listed>
constexpr std::uint16_t PlaceIn(const std::tuple<Named<Listed>...>&) {
  static_assert((std::is_same_v<T, Listed> || ...), "the class is in the other list");
  constexpr std::array kIsIt{std::is_same_v<T, Listed>...};
  return static_cast<std::uint16_t>(std::ranges::find(kIsIt, true) - kIsIt.begin() + 1);
}

template <class T>
struct Tag {};

// Each is described in a file of its own.

const Class& DescriptionOf(Tag<CSession>);
const Class& DescriptionOf(Tag<CAlarm>);
const Class& DescriptionOf(Tag<CAttachement>);
const Class& DescriptionOf(Tag<CCategory>);
const Class& DescriptionOf(Tag<CContact>);
const Class& DescriptionOf(Tag<CEvent>);
const Class& DescriptionOf(Tag<CFolder>);
const Class& DescriptionOf(Tag<CNote>);
const Class& DescriptionOf(Tag<CNotification>);
const Class& DescriptionOf(Tag<CPhoneLog>);
const Class& DescriptionOf(Tag<CRecurrence>);
const Class& DescriptionOf(Tag<CTask>);
const Class& DescriptionOf(Tag<CUser>);
const Class& DescriptionOf(Tag<CTag>);
const Class& DescriptionOf(Tag<CAlarms>);
const Class& DescriptionOf(Tag<CCategories>);
const Class& DescriptionOf(Tag<CContacts>);
const Class& DescriptionOf(Tag<CEvents>);
const Class& DescriptionOf(Tag<CFolders>);
const Class& DescriptionOf(Tag<CNotes>);
const Class& DescriptionOf(Tag<CPhoneLogs>);
const Class& DescriptionOf(Tag<CTags>);
const Class& DescriptionOf(Tag<CTasks>);
const Class& DescriptionOf(Tag<CUsers>);
const Class& DescriptionOf(Tag<Connection>);
const Class& DescriptionOf(Tag<Errors>);
const Class& DescriptionOf(Tag<Error>);
const Class& DescriptionOf(Tag<Recordset>);
const Class& DescriptionOf(Tag<Fields>);
const Class& DescriptionOf(Tag<Field>);

/// The class of a C++ type that clients can reach.
template <class T>
const Class& ClassOf() {
  return DescriptionOf(Tag<T>());
}

}  // namespace zef::component
