#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/by_hand.h"

/// The contacts of the other side of the benchmarks.
namespace zef::bench {

/// The text columns of a contact, in the order in which `HandContact` keeps them.
inline constexpr std::array kTextColumns = {
    "FirstName",     "LastName",      "MI",          "Suffix",         "Dear",         "Address",
    "City",          "State",         "Country",     "PostalCode",     "Region",       "Phone",
    "MobilePhone",   "Email",         "URL",         "JobTitle",       "Company",      "WorkAddress",
    "WorkCity",      "WorkState",     "WorkCountry", "WorkPostalCode", "WorkRegion",   "WorkPhone",
    "WorkExtension", "WorkFax",       "WorkEmail",   "WorkURL",        "WorkOffice",   "WorkDepartment",
    "Profession",    "AssistantName", "ReferredBy",  "Notes",          "CustomField1", "CustomField2"};

struct HandContact {
  std::int32_t id = 0;
  std::int32_t folder_id = 0;
  std::int32_t category_id = 0;
  double birth_date = 0;
  double anniversary = 0;
  double last_meeting_date = 0;
  double date_last_update = 0;
  std::array<std::string, kTextColumns.size()> texts;

  std::string FullName() const;
};

struct HandTag {
  std::int32_t id = 0;
  std::string text;
};

using HandContacts = std::vector<std::unique_ptr<HandContact>>;
using HandTags = std::vector<std::unique_ptr<HandTag>>;

class HandContactReader {
 public:
  explicit HandContactReader(const HandDatabase& db);

  std::unique_ptr<HandContact> Get(std::int32_t id) const;
  /// The contacts numbered from so much on.
  HandContacts Load(std::int32_t first) const;
  /// Their names; whole rows are read, one after another into the same contact.
  HandTags LoadTags(std::int32_t first) const;
  /// The first contact with that number, in any of the four phone columns; -1 without one.
  std::int32_t FindPhone(const std::string& number) const;

 private:
  const HandDatabase& db_;
  HandStatement one_;
  HandStatement many_;
  HandStatement phone_;
};

/// Saves contacts without yearly dates, in the running transaction.
class HandContactWriter {
 public:
  explicit HandContactWriter(const HandDatabase& db);

  void Insert(const HandContact& contact) const;
  /// Writes a contact over its row and deletes what the calendar may still hold of it.
  void Update(const HandContact& contact) const;

 private:
  void Bind(const HandStatement& statement, const HandContact& contact) const;
  void DeleteEvents(const char* type, const std::string& folder, std::int32_t contact) const;

  const HandDatabase& db_;
  HandStatement insert_;
  HandStatement update_;
  HandStatement select_folder_;
  HandStatement delete_events_;
};

}  // namespace zef::bench
