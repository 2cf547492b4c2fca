#include "addressbook/contact.h"

#include <algorithm>

#include "addressbook/date_events.h"
#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CContact> kColumns[] = {
    Key<CContact>("CNT_ID"),
    Stored<CContact>("CNT_FolderID", &CContact::FolderID, 0),
    Stored<CContact>("CNT_CategoryID", &CContact::CategoryID, 40),
    Stored<CContact>("CNT_FirstName", &CContact::FirstName, 6),
    Stored<CContact>("CNT_LastName", &CContact::LastName, 5),
    Stored<CContact>("CNT_MI", &CContact::MI, 7),
    Stored<CContact>("CNT_Suffix", &CContact::Suffix, 8),
    Stored<CContact>("CNT_Dear", &CContact::Dear, 9),
    Stored<CContact>("CNT_Address", &CContact::Address, 10),
    Stored<CContact>("CNT_City", &CContact::City, 11),
    Stored<CContact>("CNT_State", &CContact::State, 2),
    Stored<CContact>("CNT_Country", &CContact::Country, 1),
    Stored<CContact>("CNT_PostalCode", &CContact::PostalCode, 12),
    Stored<CContact>("CNT_Region", &CContact::Region, 13),
    Stored<CContact>("CNT_Phone", &CContact::Phone, 14),
    Stored<CContact>("CNT_MobilePhone", &CContact::MobilePhone, 15),
    Stored<CContact>("CNT_Email", &CContact::Email, 16),
    Stored<CContact>("CNT_URL", &CContact::URL, 17),
    Stored<CContact>("CNT_JobTitle", &CContact::JobTitle, 18),
    Stored<CContact>("CNT_BirthDate", &CContact::BirthDate, 39),
    Stored<CContact>("CNT_Anniversary", &CContact::Anniversary, 38),
    Stored<CContact>("CNT_Company", &CContact::Company, 41),
    Stored<CContact>("CNT_WorkAddress", &CContact::WorkAddress, 19),
    Stored<CContact>("CNT_WorkCity", &CContact::WorkCity, 20),
    Stored<CContact>("CNT_WorkState", &CContact::WorkState, 4),
    Stored<CContact>("CNT_WorkCountry", &CContact::WorkCountry, 3),
    Stored<CContact>("CNT_WorkPostalCode", &CContact::WorkPostalCode, 21),
    Stored<CContact>("CNT_WorkRegion", &CContact::WorkRegion, 22),
    Stored<CContact>("CNT_WorkPhone", &CContact::WorkPhone, 23),
    Stored<CContact>("CNT_WorkExtension", &CContact::WorkExtension, 24),
    Stored<CContact>("CNT_WorkFax", &CContact::WorkFax, 25),
    Stored<CContact>("CNT_WorkEmail", &CContact::WorkEmail, 26),
    Stored<CContact>("CNT_WorkURL", &CContact::WorkURL, 27),
    Stored<CContact>("CNT_WorkOffice", &CContact::WorkOffice, 29),
    Stored<CContact>("CNT_WorkDepartment", &CContact::WorkDepartment, 28),
    Stored<CContact>("CNT_Profession", &CContact::Profession, 30),
    Stored<CContact>("CNT_AssistantName", &CContact::AssistantName, 31),
    Stored<CContact>("CNT_LastMeetingDate", &CContact::LastmeetingDate, 37),
    Stored<CContact>("CNT_ReferredBy", &CContact::ReferredBy, 32),
    Stored<CContact>("CNT_Notes", &CContact::Notes, 33),
    Stored<CContact>("CNT_CustomField1", &CContact::CustomField1, 34),
    Stored<CContact>("CNT_CustomField2", &CContact::CustomField2, 35),
    Stored<CContact>("CNT_DateLastUpdate", &CContact::DateLastUpdate, 36, Form::Stamp),
};
constexpr Table kContacts("Contacts", kColumns, 50);

constexpr char kSave[] = "CContact.Save";
constexpr char kFieldsArray[] = "CContact.GetFieldsArray";
constexpr std::int32_t kNotFound = 104;

using Text = Property<std::string> CContact::*;

/// The company block: what is overwritten and with what. The department takes the office, as clients have come to
/// expect.
constexpr struct {
  Text target;
  Text source;
} kCompanyBlock[] = {
    {&CContact::Company, &CContact::Company},
    {&CContact::WorkAddress, &CContact::WorkAddress},
    {&CContact::WorkCity, &CContact::WorkCity},
    {&CContact::WorkState, &CContact::WorkState},
    {&CContact::WorkCountry, &CContact::WorkCountry},
    {&CContact::WorkPostalCode, &CContact::WorkPostalCode},
    {&CContact::WorkRegion, &CContact::WorkRegion},
    {&CContact::WorkPhone, &CContact::WorkPhone},
    {&CContact::WorkExtension, &CContact::WorkExtension},
    {&CContact::WorkFax, &CContact::WorkFax},
    {&CContact::WorkEmail, &CContact::WorkEmail},
    {&CContact::WorkURL, &CContact::WorkURL},
    {&CContact::WorkOffice, &CContact::WorkOffice},
    {&CContact::WorkDepartment, &CContact::WorkOffice},
    {&CContact::Profession, &CContact::Profession},
    {&CContact::AssistantName, &CContact::AssistantName},
};

/// True of a column whose content is not worth keeping: an empty text, no date, and whatever is neither text nor date.
bool HoldsNothing(const CContact& contact, const Column<CContact>& column) {
  if (const auto* text = std::get_if<Text>(&column.member)) return (contact.**text)->empty();
  if (column.form == Form::Stamp) return true;
  const auto* date = std::get_if<Property<Date> CContact::*>(&column.member);
  return date == nullptr || (contact.**date)->IsZero();
}

}  // namespace

std::string CContact::FullName() const {
  std::string name = LastName;
  if (!LastName->empty() && !FirstName->empty()) name += ", ";
  name += FirstName.get();
  if (!MI->empty()) name.append(" ").append(MI.get()).append(".");
  if (!Suffix->empty()) name.append(" ").append(Suffix.get());
  return name;
}

void CContact::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kContacts, Deref(Rs));
  SetFlags(false, false);
}

bool CContact::Save() {
  return SaveInTransaction(kSave, [&](CSession& session) {
    if (!OwnModified()) return Outcome::Done;
    const Outcome written = SaveRow(*this, kContacts, kFieldsArray);
    return written == Outcome::Done ? KeepDateEvents(session, *this) : written;
  });
}

bool CContact::Refresh() { return RefreshRecord(*this, "CContact.Refresh", kSelectRow, kNotFound, "No contact found"); }

bool CContact::CopyCompanyInformation(const Ref<CContact>& conSource) {
  return Trapped(Session(), "CContact.CopyCompanyInformation", false, [&] {
    if (!conSource) return true;
    for (const auto& [target, source] : kCompanyBlock) this->*target = (*conSource).*source;
    return true;
  });
}

bool CContact::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kContacts, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CContact::IsEmpty() const {
  return CategoryID < 1 &&
         std::ranges::all_of(kColumns, [&](const auto& column) { return HoldsNothing(*this, column); });
}

}  // namespace zef
