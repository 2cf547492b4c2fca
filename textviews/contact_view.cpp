#include "addressbook/contact.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

/// Some have no colon; files are known that way.
constexpr NamedValue<CContact> kLabels[] = {
    {"First name:", Plain<&CContact::FirstName>},
    {"Last name:", Plain<&CContact::LastName>},
    {"Middle:", Plain<&CContact::MI>},
    {"Suffix:", Plain<&CContact::Suffix>},
    {"Dear:", Plain<&CContact::Dear>},
    {"Address:", Plain<&CContact::Address>},
    {"City:", Plain<&CContact::City>},
    {"Country:", Plain<&CContact::Country>},
    {"State:", Plain<&CContact::State>},
    {"Postal code:", Plain<&CContact::PostalCode>},
    {"Region:", Plain<&CContact::Region>},
    {"Phone:", Plain<&CContact::Phone>},
    {"Mobile phone:", Plain<&CContact::MobilePhone>},
    {"Email:", Plain<&CContact::Email>},
    {"URL:", Plain<&CContact::URL>},
    {"Company:", Plain<&CContact::Company>},
    {"Work address:", Plain<&CContact::WorkAddress>},
    {"Work city", Plain<&CContact::WorkCity>},
    {"Work country:", Plain<&CContact::WorkCountry>},
    {"Work state:", Plain<&CContact::WorkState>},
    {"Work postal code:", Plain<&CContact::WorkPostalCode>},
    {"Work region:", Plain<&CContact::WorkRegion>},
    {"Work phone:", Plain<&CContact::WorkPhone>},
    {"Work extension:", Plain<&CContact::WorkExtension>},
    {"Work fax:", Plain<&CContact::WorkFax>},
    {"Work email:", Plain<&CContact::WorkEmail>},
    {"Work URL:", Plain<&CContact::WorkURL>},
    {"Work department:", Plain<&CContact::WorkDepartment>},
    {"Work office:", Plain<&CContact::WorkOffice>},
    {"Profession:", Plain<&CContact::Profession>},
    {"Job title:", Plain<&CContact::JobTitle>},
    {"Assistant name:", Plain<&CContact::AssistantName>},
    {"Referred by:", Plain<&CContact::ReferredBy>},
    {"Notes:", Plain<&CContact::Notes>},
    {"Custom field 1:", Plain<&CContact::CustomField1>},
    {"Custom field 2:", Plain<&CContact::CustomField2>},
    {"Folder:", FolderOf},
    {"Category:", CategoryOf},
    {"Last meeting date", ShortDate<&CContact::LastmeetingDate>},
    {"Anniversary", ShortDate<&CContact::Anniversary>},
    {"Birth date", ShortDate<&CContact::BirthDate>},
    {"Date last update:", Plain<&CContact::DateLastUpdate>},
};

/// The office is asked for by "CNT_Workoffice", not by its column's name.
constexpr NamedValue<CContact> kFields[] = {
    {"CNT_FirstName", Plain<&CContact::FirstName>},
    {"CNT_LastName", Plain<&CContact::LastName>},
    {"CNT_MI", Plain<&CContact::MI>},
    {"CNT_Suffix", Plain<&CContact::Suffix>},
    {"CNT_Dear", Plain<&CContact::Dear>},
    {"CNT_Address", Plain<&CContact::Address>},
    {"CNT_City", Plain<&CContact::City>},
    {"CNT_PostalCode", Plain<&CContact::PostalCode>},
    {"CNT_Region", Plain<&CContact::Region>},
    {"CNT_Phone", Plain<&CContact::Phone>},
    {"CNT_MobilePhone", Plain<&CContact::MobilePhone>},
    {"CNT_Email", Plain<&CContact::Email>},
    {"CNT_URL", Plain<&CContact::URL>},
    {"CNT_JobTitle", Plain<&CContact::JobTitle>},
    {"CNT_BirthDate", DateOrNothing<&CContact::BirthDate>},
    {"CNT_Anniversary", DateOrNothing<&CContact::Anniversary>},
    {"CNT_WorkAddress", Plain<&CContact::WorkAddress>},
    {"CNT_WorkCity", Plain<&CContact::WorkCity>},
    {"CNT_WorkPostalCode", Plain<&CContact::WorkPostalCode>},
    {"CNT_WorkRegion", Plain<&CContact::WorkRegion>},
    {"CNT_WorkPhone", Plain<&CContact::WorkPhone>},
    {"CNT_WorkExtension", Plain<&CContact::WorkExtension>},
    {"CNT_WorkFax", Plain<&CContact::WorkFax>},
    {"CNT_WorkEmail", Plain<&CContact::WorkEmail>},
    {"CNT_WorkURL", Plain<&CContact::WorkURL>},
    {"CNT_WorkDepartment", Plain<&CContact::WorkDepartment>},
    {"CNT_Workoffice", Plain<&CContact::WorkOffice>},
    {"CNT_Profession", Plain<&CContact::Profession>},
    {"CNT_AssistantName", Plain<&CContact::AssistantName>},
    {"CNT_LastMeetingDate", DateOrNothing<&CContact::LastmeetingDate>},
    {"CNT_ReferredBy", Plain<&CContact::ReferredBy>},
    {"CNT_Notes", Plain<&CContact::Notes>},
    {"CNT_CustomField1", Plain<&CContact::CustomField1>},
    {"CNT_CustomField2", Plain<&CContact::CustomField2>},
    {"CNT_Company", Plain<&CContact::Company>},
    {"CAT_Name", CategoryLookedUp},
};

}  // namespace

void FillLabels(const CContact& contact, FieldsArray& rows) { FillRows(rows, kLabels, contact); }

std::string CContact::Field2String(const std::string& strFldName) const { return ValueOf(kFields, strFldName, *this); }

std::string CContact::ToString() const {
  Deref(Session()).ClearError();
  return FieldLines(*this).value_or(std::string());
}

bool CContact::Save2File(const std::string& strFile) const {
  return Trapped(Session(), "CContact.Save2File", false, [&] {
    const std::string text = ToString() + kLineEnd;
    const std::int32_t file = FreeFile();
    // Asked again only for its answer: `ToString` does not tell a failure from an empty text.
    if (!FieldLines(*this)) return false;
    OpenForOutput(strFile, file);
    Print(file, text);
    CloseFile(file);
    return true;
  });
}

}  // namespace zef
