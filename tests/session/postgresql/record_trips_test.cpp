#include <filesystem>
#include <fstream>

#include "tests/session/postgresql/sample_records.h"
#include "tests/session/postgresql/trips.h"
#include "tests/support/database.h"

namespace zef::test {
namespace {

/// Saves what `make` makes.
template <auto Make>
Work SaveNew(CSession& session) {
  return [record = Make(session)] { return record->Save(); };
}
template <auto Make>
Work SaveNewWithChildren(CSession& session) {
  return [record = WithChildren(Make(session))] { return record->Save(); };
}
/// Saves a stored record of which one property, the one that `change` sets, has changed.
template <auto Make, auto Change>
Work SaveChanged(CSession& session) {
  auto record = Saved(Make(session));
  Change(*record);
  return [record] { return record->Save(); };
}
template <auto Make>
Work SaveUnchanged(CSession& session) {
  return [record = Saved(Make(session))] { return record->Save(); };
}
/// Of an event or alarm, of which nothing but its rule has changed.
template <auto Make>
Work SaveChangedRule(CSession& session) {
  auto record = Saved(WithChildren(Make(session)));
  record->Recurrence->Options1 = 2;
  return [record] { return record->Save(); };
}
/// A stored child that was emptied loses its row.
template <auto Make>
Work SaveEmptiedRule(CSession& session) {
  auto record = Saved(WithChildren(Make(session)));
  record->Recurrence->RType = REC_EMPTY;
  return [record] { return record->Save(); };
}
template <auto Make>
Work Refresh(CSession& session) {
  return [record = Saved(Make(session))] { return record->Refresh(); };
}
template <auto Make>
Work RefreshWithChildren(CSession& session) {
  return [record = Saved(WithChildren(Make(session)))] { return record->Refresh(); };
}
template <auto Make>
Work MarkSeen(CSession& session) {
  return [record = Saved(Make(session))] { return record->MarkSeenByUser(DateSerial(2026, 5, 1)); };
}
template <auto Make>
Work AskSeen(CSession& session) {
  return [record = Saved(Make(session))] {
    bool show = false;
    return record->SeenByUser(DateSerial(2026, 5, 1), show);
  };
}
/// The same in a transaction of the client, which is open already and stays so.
template <Work (*Ready)(CSession&)>
Work InOpenTransaction(CSession& session) {
  if (session.TransactionStarted()) session.CommitTransaction();
  Work work = Ready(session);
  session.BeginTransaction();
  session.GetUsersNo();
  return work;
}

constexpr auto kRedescribe = [](auto& record) { record.Description = "Other"; };
constexpr auto kRename = [](auto& record) { record.Name = "Other"; };
constexpr auto kRetext = [](auto& record) { record.Text = "Other"; };
constexpr auto kRecall = [](auto& record) { record.Subject = "Other"; };
constexpr auto kMove = [](auto& record) { record.City = "Springfield"; };
constexpr auto kOtherDays = [](auto& record) { record.Options1 = 3; };

Work ApplyRecurrence(CSession& session) {
  auto task = WithChildren(NewTaskWithDueDate(session));
  task->StartDate = DateSerial(2026, 5, 17);
  Saved(task);
  task->DateCompleted = DateSerial(2026, 5, 17);
  return [task] { return task->ApplyRecurrence(); };
}

/// A small file to be attached.
std::string File() {
  static const TemporaryFolder folder;
  const std::string path = (folder.path() / "file.txt").string();
  std::ofstream(path) << "content";
  return path;
}

Ref<CAttachement> NewAttachement(CSession& session) {
  auto attachement = Made<CAttachement>(session);
  attachement->Name = "file";
  attachement->FileName = File();
  attachement->CacheFileName = File() + ".cache";
  return attachement;
}

Ref<CAlarm> NewAlarmWithAttachement(CSession& session) {
  Ref<CAlarm> alarm = NewAlarm(session);
  alarm->Attachement->Name = "file";
  alarm->Attachement->FileName = File();
  return alarm;
}

Work Cache2File(CSession& session) {
  return [attachement = Saved(NewAttachement(session))] { return attachement->Cache2File(); };
}

class RecordTripsPostgreSQL : public TripsTest {};

TEST_F(RecordTripsPostgreSQL, OfSaveAreItsStatementsAndTheCommit) {
  static constexpr Operation kOperations[] = {
      {"a new folder", 3, SaveNew<NewFolder>},
      {"a changed folder", 3, SaveChanged<NewFolder, kRedescribe>},
      {"a new category", 4, SaveNew<NewCategory>},
      {"a changed category", 1, SaveChanged<NewCategory, kRename>},
      {"a new rule", 4, SaveNew<NewRule>},
      {"a changed rule", 1, SaveChanged<NewRule, kOtherDays>},
      {"a new notification", 4, SaveNew<NewNotification>},
      {"a changed notification", 1, SaveChanged<NewNotification, kRecall>},
      {"a new event", 2, SaveNew<NewEvent>},
      {"a new event with two children", 8, SaveNewWithChildren<NewEvent>},
      {"a changed event", 2, SaveChanged<NewEvent, kRetext>},
      {"an event with a changed rule", 2, SaveChangedRule<NewEvent>},
      {"an event with an emptied rule", 3, SaveEmptiedRule<NewEvent>},
      {"a new alarm", 5, SaveNew<NewAlarm>},
      {"a new alarm with two children", 8, SaveNewWithChildren<NewAlarm>},
      {"a new alarm with an attachment", 9, SaveNew<NewAlarmWithAttachement>},
      {"a changed alarm", 3, SaveChanged<NewAlarm, kRetext>},
      {"a new task", 2, SaveNew<NewTask>},
      {"a new task with two children", 8, SaveNewWithChildren<NewTask>},
      {"a new task with a due date", 6, SaveNew<NewTaskWithDueDate>},
      {"a changed task", 4, SaveChanged<NewTask, kRename>},
      {"a changed task with a due date", 5, SaveChanged<NewTaskWithDueDate, kRename>},
      {"a task with an emptied rule", 5, SaveEmptiedRule<NewTask>},
      {"a new contact", 2, SaveNew<NewContact>},
      {"a new contact with two yearly dates", 16, SaveNew<NewContactWithDates>},
      {"a changed contact", 6, SaveChanged<NewContact, kMove>},
      {"a changed contact with two yearly dates", 10, SaveChanged<NewContactWithDates, kMove>},
      {"a new call", 1, SaveNew<NewPhoneLog>},
      {"a changed call", 1, SaveChanged<NewPhoneLog, kRecall>},
      {"a new note", 1, SaveNew<NewNote>},
      {"a changed note", 1, SaveChanged<NewNote, kRetext>},
      {"a new attachment", 5, SaveNew<NewAttachement>},
      {"a changed attachment", 2, SaveChanged<NewAttachement, kRename>},
      {"a new user", 4, SaveNew<NewUser>},
      {"a changed user", 1, SaveChanged<NewUser, kRename>},
  };
  ExpectTrips(kOperations);
}

TEST_F(RecordTripsPostgreSQL, OfSaveInATransactionAreItsStatements) {
  static constexpr Operation kOperations[] = {
      {"a new event", 1, InOpenTransaction<SaveNew<NewEvent>>},
      {"a changed event", 1, InOpenTransaction<SaveChanged<NewEvent, kRetext>>},
      {"a new task with a due date", 5, InOpenTransaction<SaveNew<NewTaskWithDueDate>>},
      {"a changed task", 3, InOpenTransaction<SaveChanged<NewTask, kRename>>},
      {"a new contact", 1, InOpenTransaction<SaveNew<NewContact>>},
      {"a changed contact", 5, InOpenTransaction<SaveChanged<NewContact, kMove>>},
      {"a changed folder", 2, InOpenTransaction<SaveChanged<NewFolder, kRedescribe>>},
  };
  ExpectTrips(kOperations);
}

TEST_F(RecordTripsPostgreSQL, OfSaveWhereNothingHasChangedAreThoseOfItsChecks) {
  static constexpr Operation kOperations[] = {
      {"a folder", 2, SaveUnchanged<NewFolder>}, {"a category", 0, SaveUnchanged<NewCategory>},
      {"a rule", 0, SaveUnchanged<NewRule>},     {"a notification", 0, SaveUnchanged<NewNotification>},
      {"an event", 0, SaveUnchanged<NewEvent>},  {"an alarm", 3, SaveUnchanged<NewAlarm>},
      {"a task", 3, SaveUnchanged<NewTask>},     {"a contact", 0, SaveUnchanged<NewContact>},
      {"a call", 0, SaveUnchanged<NewPhoneLog>}, {"a note", 0, SaveUnchanged<NewNote>},
      {"a user", 0, SaveUnchanged<NewUser>},
  };
  ExpectTrips(kOperations);
}

TEST_F(RecordTripsPostgreSQL, OfTheOtherMembersAreTheirStatements) {
  static constexpr Operation kOperations[] = {
      {"Refresh of an event", 1, Refresh<NewEvent>},
      {"Refresh of an event with two children", 3, RefreshWithChildren<NewEvent>},
      {"Refresh of an alarm", 2, Refresh<NewAlarm>},
      {"Refresh of an alarm with two children", 3, RefreshWithChildren<NewAlarm>},
      {"Refresh of a task", 1, Refresh<NewTask>},
      {"Refresh of a contact", 1, Refresh<NewContact>},
      {"Refresh of a note", 1, Refresh<NewNote>},
      {"MarkSeenByUser of an event", 1, MarkSeen<NewEvent>},
      {"MarkSeenByUser of an alarm", 1, MarkSeen<NewAlarm>},
      {"SeenByUser of an event", 1, AskSeen<NewEvent>},
      {"SeenByUser of an alarm", 1, AskSeen<NewAlarm>},
      {"ApplyRecurrence of a task", 9, ApplyRecurrence},
      {"Cache2File of an attachment", 1, Cache2File},
  };
  ExpectTrips(kOperations);
}

}  // namespace
}  // namespace zef::test
