#include <ctime>
#include <initializer_list>
#include <variant>

#include "bench/by_hand.h"
#include "bench/statement_texts.h"

namespace zef::bench {
namespace {

constexpr std::int32_t kEventSequence = 4;

int Bind(sqlite3_stmt* statement, int number, std::int32_t value) { return sqlite3_bind_int(statement, number, value); }
int Bind(sqlite3_stmt* statement, int number, double value) { return sqlite3_bind_double(statement, number, value); }
int Bind(sqlite3_stmt* statement, int number, const std::string& value) {
  return sqlite3_bind_text(statement, number, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
}

/// Binds all parameters in order; the texts outlive the run.
template <class... Values>
void BindAll(const HandStatement& statement, const Values&... values) {
  int number = 0;
  (Bind(statement.get(), ++number, values), ...);
}

}  // namespace

double NowByHand() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return static_cast<double>(timegm(&local)) / 86400 + 25569;
}

HandWriter::HandWriter(const HandDatabase& db)
    : db_(db),
      begin_(db.Prepare("BEGIN IMMEDIATE")),
      commit_(db.Prepare("COMMIT")),
      savepoint_(db.Prepare("SAVEPOINT draw")),
      release_(db.Prepare("RELEASE draw")),
      select_sequence_(db.Prepare(kSelectSequence)),
      update_sequence_(db.Prepare(kUpdateSequence)),
      update_event_(db.Prepare(kUpdateEvent)),
      insert_event_(db.Prepare(kInsertEvent)),
      insert_task_(db.Prepare(kInsertTask)),
      select_folder_(db.Prepare(kSelectDueDatesFolder)) {}

std::int32_t HandWriter::DrawInside(std::int32_t sequence) const {
  BindAll(select_sequence_, sequence);
  const std::int32_t id = db_.Step(select_sequence_) ? sqlite3_column_int(select_sequence_.get(), 0) + 1 : 0;
  sqlite3_reset(select_sequence_.get());
  BindAll(update_sequence_, id, sequence);
  db_.Run(update_sequence_);
  return id;
}

std::int32_t HandWriter::Draw(std::int32_t sequence) const {
  db_.Run(savepoint_);
  const std::int32_t id = DrawInside(sequence);
  db_.Run(release_);
  return id;
}

std::int32_t HandWriter::DrawAlone(std::int32_t sequence) const {
  Begin();
  const std::int32_t id = DrawInside(sequence);
  Commit();
  return id;
}

void HandWriter::UpdateEvent(const HandEvent& event) const {
  BindAll(update_event_, event.id, event.folder_id, event.category_id, event.notification_id, event.recurrence_id,
          event.contact_id, event.text, event.start_date, event.reminder, NowByHand(), event.location, event.end_date,
          event.type, event.link_id);
  db_.Run(update_event_);
}

void HandWriter::InsertEvent(const HandEvent& event) const {
  BindAll(insert_event_, event.id, event.folder_id, event.category_id, event.notification_id, event.recurrence_id,
          event.contact_id, event.text, event.start_date, event.reminder, NowByHand(), event.end_date, event.type,
          event.link_id);
  db_.Run(insert_event_);
}

std::int32_t HandWriter::DueDatesFolder() const {
  const std::int32_t id = db_.Step(select_folder_) ? sqlite3_column_int(select_folder_.get(), 0) : 0;
  sqlite3_reset(select_folder_.get());
  return id;
}

void HandWriter::InsertTask(const HandTask& task) const {
  BindAll(insert_task_, task.id, task.folder_id, task.recurrence_id, task.notification_id, task.category_id,
          task.priority, task.status_id, task.name, task.description, task.due_date, task.start_date, task.assigned_to,
          task.completed, task.date_completed, NowByHand());
  db_.Run(insert_task_);
  HandEvent event;
  event.id = Draw(kEventSequence);
  event.link_id = task.id;
  event.type = "T";
  event.text = task.name + " Due Date";
  event.folder_id = DueDatesFolder();
  event.start_date = event.end_date = task.due_date;
  InsertEvent(event);
}

}  // namespace zef::bench
