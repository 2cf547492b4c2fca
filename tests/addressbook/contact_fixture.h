#pragma once

#include <string>
#include <vector>

#include "addressbook/contact.h"
#include "calendar/event.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

using ContactText = Property<std::string> CContact::*;

/// A text property by its column.
struct TextColumn {
  const char* column;
  ContactText text;
  std::size_t length;  ///< characters that the column takes, 0 for no limit
};

/// All texts of a contact, in the order in which a statement writes them.
inline const std::vector<TextColumn> kContactTexts = {
    {"CNT_Country", &CContact::Country, 128},
    {"CNT_State", &CContact::State, 128},
    {"CNT_WorkCountry", &CContact::WorkCountry, 128},
    {"CNT_WorkState", &CContact::WorkState, 128},
    {"CNT_LastName", &CContact::LastName, 255},
    {"CNT_FirstName", &CContact::FirstName, 255},
    {"CNT_MI", &CContact::MI, 64},
    {"CNT_Suffix", &CContact::Suffix, 64},
    {"CNT_Dear", &CContact::Dear, 255},
    {"CNT_Address", &CContact::Address, 255},
    {"CNT_City", &CContact::City, 255},
    {"CNT_PostalCode", &CContact::PostalCode, 64},
    {"CNT_Region", &CContact::Region, 255},
    {"CNT_Phone", &CContact::Phone, 32},
    {"CNT_MobilePhone", &CContact::MobilePhone, 32},
    {"CNT_Email", &CContact::Email, 255},
    {"CNT_URL", &CContact::URL, 0},
    {"CNT_JobTitle", &CContact::JobTitle, 255},
    {"CNT_WorkAddress", &CContact::WorkAddress, 255},
    {"CNT_WorkCity", &CContact::WorkCity, 255},
    {"CNT_WorkPostalCode", &CContact::WorkPostalCode, 64},
    {"CNT_WorkRegion", &CContact::WorkRegion, 255},
    {"CNT_WorkPhone", &CContact::WorkPhone, 32},
    {"CNT_WorkExtension", &CContact::WorkExtension, 64},
    {"CNT_WorkFax", &CContact::WorkFax, 32},
    {"CNT_WorkEmail", &CContact::WorkEmail, 255},
    {"CNT_WorkURL", &CContact::WorkURL, 0},
    {"CNT_WorkDepartment", &CContact::WorkDepartment, 255},
    {"CNT_WorkOffice", &CContact::WorkOffice, 255},
    {"CNT_Profession", &CContact::Profession, 255},
    {"CNT_AssistantName", &CContact::AssistantName, 255},
    {"CNT_ReferredBy", &CContact::ReferredBy, 255},
    {"CNT_Notes", &CContact::Notes, 0},
    {"CNT_CustomField1", &CContact::CustomField1, 255},
    {"CNT_CustomField2", &CContact::CustomField2, 255},
    {"CNT_Company", &CContact::Company, 255},
};

/// Tests around one contact.
class ContactTest : public RecordTest {
 protected:
  /// A new contact under the next identifier, of which the log tells nothing.
  Ref<CContact> NewContact() {
    Ref<CContact> contact = session->CreateContact();
    Forget();
    return contact;
  }
  /// A new contact of that name.
  Ref<CContact> Named(const std::string& first, const std::string& last) {
    Ref<CContact> contact = NewContact();
    contact->FirstName = first;
    contact->LastName = last;
    return contact;
  }
  /// A new contact whose texts are their columns' names with an apostrophe before each; it has no yearly date and so no
  /// event.
  Ref<CContact> FullContact() {
    Ref<CContact> contact = NewContact();
    contact->FolderID = 21;
    contact->CategoryID = 22;
    for (const TextColumn& one : kContactTexts) (*contact).*one.text = std::string("'") + one.column;
    contact->LastmeetingDate = On("3/4/2024 5:06:07 PM");
    return contact;
  }
  /// The contact as it was stored, read anew.
  Ref<CContact> Saved(const Ref<CContact>& contact) {
    EXPECT_TRUE(contact->Save()) << session->GetEntireErrorDesc();
    Ref<CContact> loaded = session->GetContact(contact->ID);
    Forget();
    return loaded;
  }
};

/// Tests around the generated events of one contact.
class DateEventsTest : public ContactTest {
 protected:
  /// The stored contact 1, Ann Lee, born on 29 February 1980 and married on 3 June 2010, each with a time of day; event
  /// 1 is of the anniversary, event 2 of the birthday.
  Ref<CContact> AnnLee() {
    Ref<CContact> contact = Named("Ann", "Lee");
    contact->BirthDate = On("2/29/1980 8:09:10 AM");
    contact->Anniversary = On("6/3/2010 3:00:00 PM");
    return Saved(contact);
  }
  /// What a column of the one event of a type holds.
  std::string Of(const std::string& type, const std::string& column) {
    return Stored("SELECT " + column + " FROM Events WHERE EVE_Type='" + type + "'");
  }
  /// What a column of the rule of the one event of a type holds.
  std::string RuleOf(const std::string& type, const std::string& column) {
    return Stored("SELECT " + column + " FROM Recurrences WHERE REC_ID=" + Of(type, "EVE_RecurrenceID"));
  }
  /// The text of the birthday event of a new contact.
  std::string BirthdayTextOf(const Ref<CContact>& contact) {
    contact->BirthDate = On("2/3/1980");
    EXPECT_TRUE(contact->Save());
    return Of("B", "EVE_Text");
  }
};

inline constexpr char kBirthdaysLookUp[] = "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Birthdays'";
inline constexpr char kAnniversariesLookUp[] =
    "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Anniversaries'";

}  // namespace zef::test
