#include "addressbook/contact.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CContact>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CContact::FolderID, Long>("FolderID"),
    Of::Property<&CContact::CategoryID, Long>("CategoryID"),
    Of::ReadOnly<&CContact::FullName, Text()>("FullName"),
    Of::Property<&CContact::FirstName, Text>("FirstName"),
    Of::Property<&CContact::LastName, Text>("LastName"),
    Of::Property<&CContact::MI, Text>("MI"),
    Of::Property<&CContact::Suffix, Text>("Suffix"),
    Of::Property<&CContact::Dear, Text>("Dear"),
    Of::Property<&CContact::Address, Text>("Address"),
    Of::Property<&CContact::City, Text>("City"),
    Of::Property<&CContact::State, Text>("State"),
    Of::Property<&CContact::Country, Text>("Country"),
    Of::Property<&CContact::PostalCode, Text>("PostalCode"),
    Of::Property<&CContact::Region, Text>("Region"),
    Of::Property<&CContact::Phone, Text>("Phone"),
    Of::Property<&CContact::MobilePhone, Text>("MobilePhone"),
    Of::Property<&CContact::Email, Text>("Email"),
    Of::Property<&CContact::URL, Text>("URL"),
    Of::Property<&CContact::JobTitle, Text>("JobTitle"),
    Of::Property<&CContact::BirthDate, Date>("BirthDate"),
    Of::Property<&CContact::Anniversary, Date>("Anniversary"),
    Of::Property<&CContact::Company, Text>("Company"),
    Of::Property<&CContact::WorkAddress, Text>("WorkAddress"),
    Of::Property<&CContact::WorkCity, Text>("WorkCity"),
    Of::Property<&CContact::WorkCountry, Text>("WorkCountry"),
    Of::Property<&CContact::WorkState, Text>("WorkState"),
    Of::Property<&CContact::WorkPostalCode, Text>("WorkPostalCode"),
    Of::Property<&CContact::WorkRegion, Text>("WorkRegion"),
    Of::Property<&CContact::WorkPhone, Text>("WorkPhone"),
    Of::Property<&CContact::WorkExtension, Text>("WorkExtension"),
    Of::Property<&CContact::WorkFax, Text>("WorkFax"),
    Of::Property<&CContact::WorkEmail, Text>("WorkEmail"),
    Of::Property<&CContact::WorkURL, Text>("WorkURL"),
    Of::Property<&CContact::WorkOffice, Text>("WorkOffice"),
    Of::Property<&CContact::WorkDepartment, Text>("WorkDepartment"),
    Of::Property<&CContact::Profession, Text>("Profession"),
    Of::Property<&CContact::AssistantName, Text>("AssistantName"),
    Of::Property<&CContact::LastmeetingDate, Date>("LastmeetingDate"),
    Of::Property<&CContact::ReferredBy, Text>("ReferredBy"),
    Of::Property<&CContact::Notes, Text>("Notes"),
    Of::Property<&CContact::CustomField1, Text>("CustomField1"),
    Of::Property<&CContact::CustomField2, Text>("CustomField2"),
    Of::DateLastUpdate(),
    Of::Contract(),
    Of::Save2File(),
    Of::Refresh(),
    Of::Function<&CContact::CopyCompanyInformation, Boolean(ByRef<Ref<CContact>>)>("CopyCompanyInformation",
                                                                                   "conSource"),
    Of::Function<&CContact::ToString, Text()>("ToString"),
    Of::GetFieldsArray(),
    Of::Field2String(),
    Of::IsEmpty(),
};
constexpr Class kClass = Creatable<CContact>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CContact>) { return kClass; }

}  // namespace zef::component
