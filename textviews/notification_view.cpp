#include <array>

#include "calendar/notification.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

/// By `NotificationStatus`.
constexpr std::array<std::string_view, 4> kStatuses = {"Not sent", "Sent OK", "Errors", "Inactive"};
static_assert(kStatuses[NS_INACTIVE] == "Inactive");

std::string StatusOf(const CNotification& notification) {
  const std::int32_t status = notification.Status;
  if (status < 0 || status >= std::ssize(kStatuses)) return {};
  return std::string(kStatuses[static_cast<std::size_t>(status)]);
}

constexpr NamedValue<CNotification> kLabels[] = {
    {"Email to:", Plain<&CNotification::Email>},
    {"CC:", Plain<&CNotification::CC>},
    {"BCC:", Plain<&CNotification::BCC>},
    {"Subject:", Plain<&CNotification::Subject>},
    {"Message:", Plain<&CNotification::Message>},
    {"Status:", StatusOf},
    {"Sending date", DateOrNothing<&CNotification::SendingDate>},  // without a colon; files are known that way
};

}  // namespace

void FillLabels(const CNotification& notification, FieldsArray& rows) { FillRows(rows, kLabels, notification); }

bool CNotification::Save2File(std::int32_t lngFileNumber) const {
  return SaveToOpenFile(*this, "CNotification.Save2File", lngFileNumber);
}

}  // namespace zef
