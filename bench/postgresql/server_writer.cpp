#include "bench/contact_statements.h"
#include "bench/postgresql/server_records.h"
#include "bench/statement_texts.h"

namespace zef::bench {
namespace {

constexpr std::int32_t kEventSequence = 4;

/// The first number of a result; `none` without a row.
std::int32_t FirstNumber(const ServerResult& result, std::int32_t none) {
  if (PQntuples(result.get()) == 0) return none;
  std::int32_t number = 0;
  ServerRow(result.get(), 0).Read(0, number);
  return number;
}

void AddNumbersAndDates(const HandContact& contact, ServerParameters& parameters) {
  for (const std::int32_t number : {contact.id, contact.folder_id, contact.category_id}) parameters.Add(number);
  for (const double date : {contact.birth_date, contact.anniversary, contact.last_meeting_date, NowByHand()}) {
    parameters.Add(date);
  }
}

}  // namespace

ServerWriter::ServerWriter(const HandServer& server)
    : server_(server),
      select_sequence_(server.Prepare(std::string(kSelectSequence) + " FOR UPDATE")),
      update_sequence_(server.Prepare(kUpdateSequence)),
      update_event_(server.Prepare(kUpdateEvent)),
      insert_event_(server.Prepare(kInsertEvent)),
      insert_task_(server.Prepare(kInsertTask)),
      select_folder_(server.Prepare(kSelectDueDatesFolder)) {}

std::int32_t ServerWriter::Draw(std::int32_t sequence) const {
  const std::int32_t id = FirstNumber(server_.Run(select_sequence_, sequence), -1) + 1;
  server_.Run(update_sequence_, id, sequence);
  return id;
}

std::int32_t ServerWriter::DrawAlone(std::int32_t sequence) const {
  Begin();
  const std::int32_t id = Draw(sequence);
  Commit();
  return id;
}

void ServerWriter::UpdateEvent(const HandEvent& event) const {
  server_.Run(update_event_, event.id, event.folder_id, event.category_id, event.notification_id, event.recurrence_id,
              event.contact_id, event.text, event.start_date, event.reminder, NowByHand(), event.location,
              event.end_date, event.type, event.link_id);
}

void ServerWriter::InsertTask(const HandTask& task) const {
  server_.Run(insert_task_, task.id, task.folder_id, task.recurrence_id, task.notification_id, task.category_id,
              task.priority, task.status_id, task.name, task.description, task.due_date, task.start_date,
              task.assigned_to, task.completed, task.date_completed, NowByHand());
  const std::int32_t event = Draw(kEventSequence);
  const std::int32_t folder = FirstNumber(server_.Run(select_folder_), 0);
  const std::string text = task.name + " Due Date";
  server_.Run(insert_event_, event, folder, 0, 0, 0, 0, text, task.due_date, 0, NowByHand(), task.due_date, "T",
              task.id);
}

ServerContactWriter::ServerContactWriter(const HandServer& server)
    : server_(server),
      insert_(server.Prepare(InsertContactText())),
      update_(server.Prepare(UpdateContactText())),
      select_folder_(server.Prepare(kSelectProtectedFolder)),
      delete_events_(server.Prepare(kDeleteDateEvents)) {}

void ServerContactWriter::Insert(const HandContact& contact) const {
  ServerParameters parameters;
  AddNumbersAndDates(contact, parameters);
  for (const std::string& text : contact.texts) text.empty() ? parameters.AddNull() : parameters.Add(text);
  server_.Run(insert_, parameters);
}

void ServerContactWriter::Update(const HandContact& contact) const {
  ServerParameters parameters;
  AddNumbersAndDates(contact, parameters);
  for (const std::string& text : contact.texts) parameters.Add(text);
  server_.Run(update_, parameters);
  DeleteEvents("A", "Anniversaries", contact.id);
  DeleteEvents("B", "Birthdays", contact.id);
}

void ServerContactWriter::DeleteEvents(const char* type, const char* folder, std::int32_t contact) const {
  server_.Run(delete_events_, type, contact, FirstNumber(server_.Run(select_folder_, folder), -1));
}

}  // namespace zef::bench
