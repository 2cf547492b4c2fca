#include "bench/by_hand.h"

namespace zef::bench {
namespace {

constexpr char kFolder[] =
    "SELECT FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected "
    "FROM Folders WHERE ";
constexpr char kEvent[] =
    "SELECT EVE_ID, EVE_FolderID, EVE_CategoryID, EVE_NotificationID, EVE_RecurrenceID, EVE_ContactID, EVE_Text, "
    "EVE_Location, EVE_StartDate, EVE_EndDate, EVE_Reminder, EVE_DateLastUpdate, EVE_Type, EVE_LinkID "
    "FROM Events WHERE ";
constexpr char kRule[] =
    "SELECT REC_ID, REC_Type, REC_OccurencesNo, REC_Options1, REC_Options2, REC_SubType, REC_Day, REC_Month, "
    "REC_WeekNumber, REC_EndDate FROM Recurrences WHERE REC_ID=?1";
constexpr char kNotification[] =
    "SELECT NTF_ID, NTF_Subject, NTF_Message, NTF_Email, NTF_CC, NTF_BCC, NTF_Type, NTF_Status, NTF_SendingDate "
    "FROM Notifications WHERE NTF_ID=?1";

std::string Text(sqlite3_stmt* row, int column) {
  const unsigned char* text = sqlite3_column_text(row, column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

bool IsNull(sqlite3_stmt* row, int column) { return sqlite3_column_type(row, column) == SQLITE_NULL; }

std::unique_ptr<HandFolder> ReadFolder(sqlite3_stmt* row) {
  auto folder = std::make_unique<HandFolder>();
  folder->id = sqlite3_column_int(row, 0);
  folder->parent_id = sqlite3_column_int(row, 1);
  folder->options = sqlite3_column_int(row, 2);
  folder->name = Text(row, 3);
  folder->description = Text(row, 4);
  folder->items_type = sqlite3_column_int(row, 5);
  folder->date_last_update = sqlite3_column_double(row, 6);
  folder->is_protected = sqlite3_column_int(row, 7) == 1;
  return folder;
}

std::unique_ptr<HandRule> ReadRule(sqlite3_stmt* row) {
  auto rule = std::make_unique<HandRule>();
  rule->id = sqlite3_column_int(row, 0);
  rule->type = sqlite3_column_int(row, 1);
  rule->occurrences = sqlite3_column_int(row, 2);
  rule->options1 = sqlite3_column_int(row, 3);
  rule->options2 = sqlite3_column_int(row, 4);
  rule->sub_type = sqlite3_column_int(row, 5);
  rule->days = sqlite3_column_int(row, 6);
  rule->month = sqlite3_column_int(row, 7);
  rule->week_number = sqlite3_column_int(row, 8);
  rule->end_date = sqlite3_column_double(row, 9);
  return rule;
}

std::unique_ptr<HandNotification> ReadNotification(sqlite3_stmt* row) {
  auto notification = std::make_unique<HandNotification>();
  notification->id = sqlite3_column_int(row, 0);
  notification->subject = Text(row, 1);
  notification->message = Text(row, 2);
  notification->email = Text(row, 3);
  notification->cc = Text(row, 4);
  notification->bcc = Text(row, 5);
  notification->type = sqlite3_column_int(row, 6);
  notification->status = sqlite3_column_int(row, 7);
  notification->sending_date = sqlite3_column_double(row, 8);
  return notification;
}

/// The first row of a statement for one number, made an object by `read`; null without a row.
template <class Read>
auto GetOne(const HandDatabase& db, const HandStatement& statement, std::int32_t number, Read read)
    -> decltype(read(statement.get())) {
  sqlite3_bind_int(statement.get(), 1, number);
  decltype(read(statement.get())) object;
  if (db.Step(statement)) object = read(statement.get());
  sqlite3_reset(statement.get());
  return object;
}

}  // namespace

HandReader::HandReader(const HandDatabase& db)
    : db_(db),
      folder_(db.Prepare(std::string(kFolder) + "FLD_ID=?1")),
      folders_(db.Prepare(std::string(kFolder) + "FLD_Protected=?1 ORDER BY FLD_Name COLLATE NOCASE")),
      event_(db.Prepare(std::string(kEvent) + "EVE_ID=?1")),
      events_(db.Prepare(std::string(kEvent) + "EVE_Reminder>=?1")),
      rule_(db.Prepare(kRule)),
      notification_(db.Prepare(kNotification)) {}

std::unique_ptr<HandFolder> HandReader::GetFolder(std::int32_t id) const {
  return GetOne(db_, folder_, id, ReadFolder);
}

std::unique_ptr<HandEvent> HandReader::GetEvent(std::int32_t id) const {
  return GetOne(db_, event_, id, [this](sqlite3_stmt* row) { return ReadEvent(row); });
}

std::unique_ptr<HandEvent> HandReader::ReadEvent(sqlite3_stmt* row) const {
  auto event = std::make_unique<HandEvent>();
  event->id = sqlite3_column_int(row, 0);
  event->folder_id = sqlite3_column_int(row, 1);
  event->category_id = sqlite3_column_int(row, 2);
  event->notification_id = sqlite3_column_int(row, 3);
  event->recurrence_id = sqlite3_column_int(row, 4);
  event->contact_id = sqlite3_column_int(row, 5);
  event->text = Text(row, 6);
  event->location = Text(row, 7);
  event->start_date = sqlite3_column_double(row, 8);
  event->end_date = sqlite3_column_double(row, 9);
  event->reminder = sqlite3_column_int(row, 10);
  event->date_last_update = sqlite3_column_double(row, 11);
  event->type = IsNull(row, 12) ? "E" : Text(row, 12);
  event->link_id = IsNull(row, 13) ? -1 : sqlite3_column_int(row, 13);
  event->notification = GetOne(db_, notification_, event->notification_id, ReadNotification);
  event->rule = GetOne(db_, rule_, event->recurrence_id, ReadRule);
  return event;
}

HandFolders HandReader::LoadFolders() const {
  HandFolders folders;
  sqlite3_bind_int(folders_.get(), 1, 0);
  while (db_.Step(folders_)) folders.push_back(ReadFolder(folders_.get()));
  sqlite3_reset(folders_.get());
  return folders;
}

HandEvents HandReader::ReadEvents(const HandStatement& statement) const {
  HandEvents events;
  while (db_.Step(statement)) events.push_back(ReadEvent(statement.get()));
  sqlite3_reset(statement.get());
  return events;
}

HandEvents HandReader::LoadEvents(std::int32_t reminder) const {
  sqlite3_bind_int(events_.get(), 1, reminder);
  return ReadEvents(events_);
}

HandEvents HandReader::LoadEventsWhere(const std::string& condition) const {
  return ReadEvents(db_.Prepare(kEvent + condition, false));
}

}  // namespace zef::bench
