#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

/// One entry of the address book: a person's name and private address, the company's block, dates and free texts. Each
/// of the two yearly dates has one generated event in the calendar, which `Save` keeps. Date value 0 means no date.
class CContact : public Record<CContact> {
 public:
  CContact() = default;

  Property<std::int32_t> FolderID{*this};
  Property<std::int32_t> CategoryID{*this};  ///< below 1 for none

  Property<std::string> FirstName{*this};
  Property<std::string> LastName{*this};
  Property<std::string> MI{*this};  ///< the middle initial, without a point
  Property<std::string> Suffix{*this};
  Property<std::string> Dear{*this};
  Property<std::string> Address{*this};
  Property<std::string> City{*this};
  Property<std::string> State{*this};  ///< a name, as the three below; no reference to a list
  Property<std::string> Country{*this};
  Property<std::string> PostalCode{*this};
  Property<std::string> Region{*this};
  Property<std::string> Phone{*this};
  Property<std::string> MobilePhone{*this};
  Property<std::string> Email{*this};
  Property<std::string> URL{*this};
  Property<std::string> JobTitle{*this};
  Property<Date> BirthDate{*this};
  Property<Date> Anniversary{*this};

  Property<std::string> Company{*this};
  Property<std::string> WorkAddress{*this};
  Property<std::string> WorkCity{*this};
  Property<std::string> WorkCountry{*this};
  Property<std::string> WorkState{*this};
  Property<std::string> WorkPostalCode{*this};
  Property<std::string> WorkRegion{*this};
  Property<std::string> WorkPhone{*this};
  Property<std::string> WorkExtension{*this};
  Property<std::string> WorkFax{*this};
  Property<std::string> WorkEmail{*this};
  Property<std::string> WorkURL{*this};
  Property<std::string> WorkOffice{*this};
  Property<std::string> WorkDepartment{*this};
  Property<std::string> Profession{*this};
  Property<std::string> AssistantName{*this};

  Property<Date> LastmeetingDate{*this};
  Property<std::string> ReferredBy{*this};
  Property<std::string> Notes{*this};
  Property<std::string> CustomField1{*this};
  Property<std::string> CustomField2{*this};
  Property<Date> DateLastUpdate{*this};  ///< reads date value 0 after a `Save` until the record is read again

  /// "Last, First M. Suffix", composed anew at each call from the parts that are there.
  std::string FullName() const;

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Writes the row and the generated events if something changed, in one transaction: without its events a contact is
  /// not saved. False with nothing on record if the protected folder of an event to be made is missing.
  bool Save();
  bool Refresh();
  /// Overwrites the company block with another contact's and saves nothing. The department takes the source's office;
  /// the job title stays. Nothing as the source changes nothing.
  bool CopyCompanyInformation(const Ref<CContact>& conSource);
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// The labelled fields, one a line. Empty if they could not be made; traps nothing else.
  std::string ToString() const;
  /// Writes that text and an empty line to a text file, in place of what stands there.
  bool Save2File(const std::string& strFile) const;
  /// As that of an event.
  std::string Field2String(const std::string& strFldName) const;
  /// True if the contact carries nothing worth keeping; `FolderID` and `DateLastUpdate` do not count.
  bool IsEmpty() const;
};

}  // namespace zef
