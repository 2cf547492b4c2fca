#pragma once

#include <string>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "calendar/recurrence_type.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "platform/run_time_error.h"
#include "tasks/task.h"
#include "users/user.h"

/// One record of each class as a client makes it, saved or not.
namespace zef::test {

template <class R>
Ref<R> Saved(const Ref<R>& record) {
  if (!record->Save()) throw RunTimeError(FailureNumber::InvalidCall, record->Session()->GetEntireErrorDesc());
  return record;
}

/// A class that no operation of the session creates.
template <class R>
Ref<R> Made(CSession& session) {
  auto record = MakeRef<R>();
  record->SetSession(Ref<CSession>(&session));
  return record;
}

inline Ref<CRecurrence> NewRule(CSession& session) {
  auto rule = Made<CRecurrence>(session);
  rule->RType = REC_DAILY;
  rule->Options1 = 1;
  rule->OccurencesNo = 0;
  rule->EndDate = Date();
  return rule;
}

inline Ref<CNotification> NewNotification(CSession& session) {
  auto notification = Made<CNotification>(session);
  notification->Subject = "Due";
  return notification;
}

/// Gives an item a rule and a notification.
template <class R>
Ref<R> WithChildren(const Ref<R>& item) {
  item->Recurrence->RType = REC_DAILY;
  item->Recurrence->Options1 = 1;
  item->Recurrence->OccurencesNo = 0;
  item->Recurrence->EndDate = Date();
  item->Notification->Subject = "Due";
  return item;
}

inline Ref<CFolder> NewFolder(CSession& session) {
  static int count = 0;
  Ref<CFolder> folder = session.CreateFolder();
  folder->Name = "Folder " + std::to_string(++count);
  folder->ItemsType = FT_TASKS;
  return folder;
}

inline Ref<CCategory> NewCategory(CSession& session) {
  auto category = Made<CCategory>(session);
  category->Name = "Red";
  return category;
}

inline Ref<CEvent> NewEvent(CSession& session) {
  Ref<CEvent> event = session.CreateEvent();
  event->FolderID = 1;
  event->Text = "Lunch";
  return event;
}

inline Ref<CAlarm> NewAlarm(CSession& session) {
  Ref<CAlarm> alarm = session.CreateAlarm();
  alarm->FolderID = 5;
  alarm->Text = "Wake";
  return alarm;
}

inline Ref<CTask> NewTask(CSession& session) {
  Ref<CTask> task = session.CreateTask();
  task->FolderID = 3;
  task->Name = "Water the plants";
  return task;
}

inline Ref<CTask> NewTaskWithDueDate(CSession& session) {
  Ref<CTask> task = NewTask(session);
  task->DueDate = DateSerial(2026, 5, 17);
  return task;
}

inline Ref<CContact> NewContact(CSession& session) {
  Ref<CContact> contact = session.CreateContact();
  contact->FolderID = 2;
  contact->LastName = "Lee";
  contact->Phone = "555-1";
  return contact;
}

inline Ref<CContact> NewContactWithDates(CSession& session) {
  Ref<CContact> contact = NewContact(session);
  contact->BirthDate = DateSerial(1990, 5, 17);
  contact->Anniversary = DateSerial(2015, 6, 18);
  return contact;
}

inline Ref<CPhoneLog> NewPhoneLog(CSession& session) {
  Ref<CPhoneLog> log = session.CreatePhoneLog();
  log->ContactID = 1;
  log->Subject = "Called";
  return log;
}

inline Ref<CNote> NewNote(CSession& session) {
  Ref<CNote> note = session.CreateNote();
  note->FolderID = 4;
  note->Title = "Title";
  note->Text = std::string(1000, 'n');
  return note;
}

inline Ref<CUser> NewUser(CSession& session) {
  auto user = Made<CUser>(session);
  user->Name = "anna";
  user->Password = "sesame";
  user->FullName = "Anna Lee";
  return user;
}

}  // namespace zef::test
