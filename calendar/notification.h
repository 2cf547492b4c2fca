#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

/// The kind of record that a notification belongs to. Values are stored.
enum NotificationType : std::int32_t { NT_EMPTY = 0, NT_EVENTS = 1, NT_TASKS = 2, NT_ALARMS = 3 };

/// What became of a notification. Values are stored.
enum NotificationStatus : std::int32_t { NS_NOTSENT = 0, NS_SENTOK = 1, NS_ERRORS = 2, NS_INACTIVE = 3 };

/// The sequence that numbers notifications.
inline constexpr std::int32_t kNotificationSequence = 7;

/// One mail message to be sent when something falls due. This library stores it; sending is the client's.
class CNotification : public Record<CNotification> {
 public:
  CNotification() = default;

  Property<std::string> Subject{*this};
  Property<std::string> Message{*this};
  Property<std::string> Email{*this};  ///< the address to send to
  Property<std::string> CC{*this};
  Property<std::string> BCC{*this};
  Property<Date> SendingDate{*this, Now()};
  Property<std::int32_t> Status{*this};  ///< a `NotificationStatus`
  Property<std::int32_t> NType{*this};   ///< a `NotificationType`

  /// True while the five texts are empty; owners decide by this whether they have a notification at all.
  bool IsEmpty() const;

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  bool Save();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// Writes the labelled fields to a file that the owner has open.
  bool Save2File(std::int32_t lngFileNumber) const;
};

}  // namespace zef
