#include "bench/by_hand.h"
#include "bench/statement_texts.h"

namespace zef::bench {
namespace {

std::string Text(sqlite3_stmt* row, int column) {
  const unsigned char* text = sqlite3_column_text(row, column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

bool IsNull(sqlite3_stmt* row, int column) { return sqlite3_column_type(row, column) == SQLITE_NULL; }

void Read(sqlite3_stmt* row, int column, std::int32_t& value) { value = sqlite3_column_int(row, column); }
void Read(sqlite3_stmt* row, int column, double& value) { value = sqlite3_column_double(row, column); }
void Read(sqlite3_stmt* row, int column, bool& value) { value = sqlite3_column_int(row, column) == 1; }
void Read(sqlite3_stmt* row, int column, std::string& value) { value = Text(row, column); }

/// Reads the columns of a row in order.
template <class... Values>
void ReadRow(sqlite3_stmt* row, Values&... values) {
  int column = 0;
  (Read(row, column++, values), ...);
}

std::unique_ptr<HandFolder> ReadFolder(sqlite3_stmt* row) {
  auto folder = std::make_unique<HandFolder>();
  HandFolder& f = *folder;
  ReadRow(row, f.id, f.parent_id, f.options, f.name, f.description, f.items_type, f.date_last_update, f.is_protected);
  return folder;
}

std::unique_ptr<HandRule> ReadRule(sqlite3_stmt* row) {
  auto rule = std::make_unique<HandRule>();
  HandRule& r = *rule;
  ReadRow(row, r.id, r.type, r.occurrences, r.options1, r.options2, r.sub_type, r.days, r.month, r.week_number,
          r.end_date);
  return rule;
}

std::unique_ptr<HandNotification> ReadNotification(sqlite3_stmt* row) {
  auto notification = std::make_unique<HandNotification>();
  HandNotification& n = *notification;
  ReadRow(row, n.id, n.subject, n.message, n.email, n.cc, n.bcc, n.type, n.status, n.sending_date);
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
      folder_(db.Prepare(std::string(kSelectFolders) + "FLD_ID=?1")),
      folders_(db.Prepare(std::string(kSelectFolders) + "FLD_Protected=?1 ORDER BY FLD_Name COLLATE NOCASE")),
      event_(db.Prepare(std::string(kSelectEvents) + "EVE_ID=?1")),
      events_(db.Prepare(std::string(kSelectEvents) + "EVE_Reminder>=?1")),
      rule_(db.Prepare(kSelectRule)),
      notification_(db.Prepare(kSelectNotification)) {}

std::unique_ptr<HandFolder> HandReader::GetFolder(std::int32_t id) const {
  return GetOne(db_, folder_, id, ReadFolder);
}

std::unique_ptr<HandEvent> HandReader::GetEvent(std::int32_t id) const {
  return GetOne(db_, event_, id, [this](sqlite3_stmt* row) { return ReadEvent(row); });
}

std::unique_ptr<HandEvent> HandReader::ReadEvent(sqlite3_stmt* row) const {
  auto event = std::make_unique<HandEvent>();
  HandEvent& e = *event;
  ReadRow(row, e.id, e.folder_id, e.category_id, e.notification_id, e.recurrence_id, e.contact_id, e.text, e.location,
          e.start_date, e.end_date, e.reminder, e.date_last_update);
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
  return ReadEvents(db_.Prepare(kSelectEvents + condition, false));
}

}  // namespace zef::bench
