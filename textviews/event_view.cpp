#include "calendar/event.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

constexpr NamedValue<CEvent> kLabels[] = {
    {"Text:", Plain<&CEvent::Text>},
    {"Start date:", DateOrNothing<&CEvent::StartDate>},
    {"End date:", DateOrNothing<&CEvent::EndDate>},
    {"Reminder:", NumberFromZero<&CEvent::Reminder>},
    {"Category:", CategoryOf},
    {"Location:", Plain<&CEvent::Location>},
    {"Date last updated:", Plain<&CEvent::DateLastUpdate>},
    // These two have no colon; files are known that way.
    {"Type", Plain<&CEvent::EType>},
    {"Link ID", Plain<&CEvent::LinkID>},
};

constexpr NamedValue<CEvent> kFields[] = {
    {"EVE_Text", Plain<&CEvent::Text>},
    {"EVE_Location", Plain<&CEvent::Location>},
    {"EVE_EndDate", DateOrNothing<&CEvent::EndDate>},
    {"EVE_StartDate", DateOrNothing<&CEvent::StartDate>},
    {"EVE_Reminder", RemindedOn},
    {"CAT_Name", CategoryLookedUp},
};

}  // namespace

void FillLabels(const CEvent& event, FieldsArray& rows) { FillRows(rows, kLabels, event); }

std::string CEvent::Field2String(const std::string& strFldName) const { return ValueOf(kFields, strFldName, *this); }

bool CEvent::Save2File(const std::string& strFile) const {
  return SaveToFile(*this, "CEvent.Save2File", strFile,
                    [this](std::int32_t file) { return PrintChildren(file, *this); });
}

}  // namespace zef
