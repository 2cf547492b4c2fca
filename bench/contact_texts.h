#pragma once

#include <array>

#include "addressbook/contact.h"
#include "bench/by_hand_contact.h"

namespace zef::bench {

/// The texts of a contact in the order of the ones made by hand.
inline constexpr std::array kContactTexts = {
    &CContact::FirstName,     &CContact::LastName,       &CContact::MI,           &CContact::Suffix,
    &CContact::Dear,          &CContact::Address,        &CContact::City,         &CContact::State,
    &CContact::Country,       &CContact::PostalCode,     &CContact::Region,       &CContact::Phone,
    &CContact::MobilePhone,   &CContact::Email,          &CContact::URL,          &CContact::JobTitle,
    &CContact::Company,       &CContact::WorkAddress,    &CContact::WorkCity,     &CContact::WorkState,
    &CContact::WorkCountry,   &CContact::WorkPostalCode, &CContact::WorkRegion,   &CContact::WorkPhone,
    &CContact::WorkExtension, &CContact::WorkFax,        &CContact::WorkEmail,    &CContact::WorkURL,
    &CContact::WorkOffice,    &CContact::WorkDepartment, &CContact::Profession,   &CContact::AssistantName,
    &CContact::ReferredBy,    &CContact::Notes,          &CContact::CustomField1, &CContact::CustomField2};
static_assert(kContactTexts.size() == kTextColumns.size());

}  // namespace zef::bench
