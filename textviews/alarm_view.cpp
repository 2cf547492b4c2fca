#include "calendar/alarm.h"
#include "platform/text.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

constexpr NamedValue<CAlarm> kLabels[] = {
    {"Text:", Plain<&CAlarm::Text>},
    {"Folder:", FolderOf},
    {"Category:", CategoryOf},
    {"Start date:", DateOrNothing<&CAlarm::StartDate>},
    {"Reminder:", NumberFromZero<&CAlarm::Reminder>},
    {"Date last updated:", Plain<&CAlarm::DateLastUpdate>},
};

constexpr NamedValue<CAlarm> kFields[] = {
    {"ALA_TEXT", Plain<&CAlarm::Text>},
    {"ALA_STARTDATE", DateOrNothing<&CAlarm::StartDate>},
    {"ALA_REMINDERDATE", RemindedOn},
    {"CAT_NAME", CategoryLookedUp},
};

}  // namespace

void FillLabels(const CAlarm& alarm, FieldsArray& rows) { FillRows(rows, kLabels, alarm); }

std::string CAlarm::Field2String(const std::string& strFldName) const {
  return ValueOf(kFields, text::UpperCase(strFldName), *this);
}

bool CAlarm::Save2File(const std::string& strFile) const {
  return SaveToFile(*this, "CAlarm.Save2File", strFile, [this](std::int32_t file) {
    return PrintSection(file, "Notification", Notification) && PrintSection(file, "Recurrence", Recurrence) &&
           PrintSection(file, "Attachement", Attachement);
  });
}

}  // namespace zef
