#include "client/record_kinds.h"

#include <algorithm>
#include <cctype>

namespace zef::client {
namespace {

constexpr bool kMayBeCut = true;
constexpr bool kRequired = true;

constexpr ListColumn kContactColumns[] = {
    {"ID", "ID"},          {"NAME", "FullName", kMayBeCut}, {"COMPANY", "Company", kMayBeCut},
    {"PHONE", "Phone"},    {"MOBILE", "MobilePhone"},       {"EMAIL", "Email", kMayBeCut},
    {"BORN", "BirthDate"},
};
constexpr ListColumn kNoteColumns[] = {
    {"ID", "ID"}, {"FOLDER", "FolderID"}, {"TITLE", "Title", kMayBeCut}, {"CHANGED", "DateLastUpdate"}};
constexpr ListColumn kAlarmColumns[] = {{"ID", "ID"},
                                        {"TEXT", "Text", kMayBeCut},
                                        {"START", "StartDate"},
                                        {"REPEATS", "Recurrence", kMayBeCut},
                                        {"FILE", "Attachement", kMayBeCut}};
constexpr ListColumn kCallColumns[] = {{"ID", "ID"},
                                       {"WHEN", "RecordDate"},
                                       {"DIRECTION", "Direction"},
                                       {"NUMBER", "PhoneNumber"},
                                       {"CONTACT", "ContactID"},
                                       {"SUBJECT", "Subject", kMayBeCut}};
constexpr ListColumn kCategoryColumns[] = {{"ID", "ID"}, {"NAME", "Name", kMayBeCut}, {"COLOUR", "Color"}};

constexpr ListColumn kUserColumns[] = {{"ID", "ID"},
                                       {"NAME", "Name", kMayBeCut},
                                       {"FULL NAME", "FullName", kMayBeCut},
                                       {"RIGHTS", "Rights"},
                                       {"EMAIL", "Email", kMayBeCut}};

constexpr AddOption kCategory = {"--category", "CategoryID", "Identifier of its category", "ID"};

constexpr AddOption kContactOptions[] = {
    {"--first-name", "FirstName", "First name"},
    {"--last-name", "LastName", "Last name"},
    {"--mi", "MI", "Middle initial, without a point"},
    {"--suffix", "Suffix", "What stands behind the name, such as Jr."},
    {"--company", "Company", "Company"},
    {"--job-title", "JobTitle", "What the person does there"},
    {"--phone", "Phone", "Telephone number", "NUMBER"},
    {"--mobile", "MobilePhone", "Number of the mobile phone", "NUMBER"},
    {"--work-phone", "WorkPhone", "Telephone number at work", "NUMBER"},
    {"--email", "Email", "Mail address"},
    {"--address", "Address", "Street and number"},
    {"--postal-code", "PostalCode", "Postal code"},
    {"--city", "City", "City"},
    {"--country", "Country", "Country"},
    {"--birthday", "BirthDate", "Day of birth; it appears in the calendar every year", "DATE"},
    {"--anniversary", "Anniversary", "Day of an anniversary; it appears in the calendar every year", "DATE"},
    {"--notes", "Notes", "Notes"},
    kCategory,
};
constexpr AddOption kNoteOptions[] = {
    {"TITLE", "Title", "Title of the new note", "", kRequired},
    {"--text", "Text", "The text"},
    kCategory,
};
constexpr AddOption kAlarmOptions[] = {
    {"TEXT", "Text", "What the alarm is about", "", kRequired},
    {"--start", "StartDate", "When it goes off for the first time, as 2024-05-17 or \"2024-05-17 09:00\"", "DATE",
     kRequired},
    {"--reminder", "Reminder", "How long before to remind of it", "N"},
    {"--attach", "Attachement", "A file to be kept with it", "FILE"},
    kCategory,
};
constexpr AddOption kCallOptions[] = {
    {"NUMBER", "PhoneNumber", "The telephone number", "", kRequired},
    {"--contact", "ContactID", "Identifier of the contact", "ID"},
    {"--outgoing", "Direction", "A call that was made; without it, one that came in", nullptr},
    {"--date", "RecordDate", "When it took place; without it, now", "DATE"},
    {"--subject", "Subject", "What it was about"},
    {"--notes", "Notes", "Notes"},
};
constexpr AddOption kCategoryOptions[] = {
    {"NAME", "Name", "Name of the new category", "", kRequired},
    {"--colour", "Color", "A colour, as the number that programs give it", "N"},
};
constexpr AddOption kUserOptions[] = {
    {"NAME", "Name", "What the new user logs in with", "", kRequired},
    {"--full-name", "FullName", "The person's name"},
    {"--password", "Password", "Password of the account, not of the database; without it, none"},
    {"--rights", "Rights", "administrator, editor, viewer or none, or several as in editor,viewer; without it, viewer",
     "RIGHTS"},
    {"--email", "Email", "Mail address"},
};

constexpr RecordKind kKinds[] = {
    {RecordType::Folder, "folder", "folders", "Name"},
    {RecordType::Task, "task", "tasks", "Name", "Tasks", kTasks},
    {RecordType::Event, "event", "events", "Text", "Calendar", kEvents},
    {RecordType::Contact, "contact", "contacts", "FullName", "Contacts", kContacts, kContactColumns, kContactOptions},
    {RecordType::Note, "note", "notes", "Title", "Notes", kNotes, kNoteColumns, kNoteOptions},
    {RecordType::Alarm, "alarm", "alarms", "Text", "Alarms", kAlarms, kAlarmColumns, kAlarmOptions},
    {RecordType::Call, "call", "calls", "PhoneNumber", nullptr, {}, kCallColumns, kCallOptions},
    {RecordType::Category, "category", "categories", "Name", nullptr, {}, kCategoryColumns, kCategoryOptions},
    {RecordType::User, "user", "users", "Name", nullptr, {}, kUserColumns, kUserOptions},
};

struct NamePair {
  std::string_view property;
  const char* json;
};

// Those that the lists of tasks and events have always used.
constexpr NamePair kJsonNames[] = {
    {"StartDate", "start"}, {"EndDate", "end"}, {"DueDate", "due"}, {"EType", "type"}, {"Recurrence", "rule"}};

bool IsUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }

/// A word begins at a capital letter behind a small one, and at the last capital of a row that a small letter follows.
std::string Snake(std::string_view name) {
  std::string snake;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool behind_small = i > 0 && !IsUpper(name[i - 1]);
    const bool before_small =
        i > 0 && i + 1 < name.size() && std::islower(static_cast<unsigned char>(name[i + 1])) != 0;
    if (IsUpper(name[i]) && (behind_small || before_small)) snake += '_';
    snake += static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  }
  return snake;
}

}  // namespace

std::span<const RecordKind> RecordKinds() { return kKinds; }

const RecordKind& KindOf(RecordType type) {
  return *std::find_if(std::begin(kKinds), std::end(kKinds), [&](const RecordKind& kind) { return kind.type == type; });
}

std::string JsonName(std::string_view property) {
  const auto* const known = std::find_if(std::begin(kJsonNames), std::end(kJsonNames),
                                         [&](const NamePair& pair) { return pair.property == property; });
  if (known != std::end(kJsonNames)) return known->json;
  std::string name = Snake(property);
  if (name.ends_with("_id")) name.resize(name.size() - 3);
  return name;
}

}  // namespace zef::client
