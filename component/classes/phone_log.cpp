#include "addressbook/phone_log.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CPhoneLog>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CPhoneLog::ContactID, Long>("ContactID"),
    Of::Property<&CPhoneLog::Direction, CallDirection>("Direction"),
    Of::Property<&CPhoneLog::RecordDate, Date>("RecordDate"),
    Of::Property<&CPhoneLog::Subject, Text>("Subject"),
    Of::Property<&CPhoneLog::PhoneNumber, Text>("PhoneNumber"),
    Of::Property<&CPhoneLog::Notes, Text>("Notes"),
    Of::DateLastUpdate(),
    Of::Contract(),
};
constexpr Class kClass = Creatable<CPhoneLog>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CPhoneLog>) { return kClass; }

}  // namespace zef::component
