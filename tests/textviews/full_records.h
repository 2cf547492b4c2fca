#pragma once

#include "addressbook/contact.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "notes/note.h"
#include "tasks/task.h"
#include "tests/textviews/view_fixture.h"

namespace zef::test {

/// Records that have a value of its own in every field, told in tests/textviews/expected/.
class FullRecords : public ViewTest {
 protected:
  Ref<CNote> FullNote() {
    const Ref<CNote> note = New<CNote>();
    note->Title = "It's Ä, ö and ß";
    note->Text = "first\r\nsecond 😀";
    note->FolderID = 900;
    note->CategoryID = 901;
    note->DateLastUpdate = On("2/3/2024 1:00:05 PM");
    return note;
  }

  Ref<CAlarm> FullAlarm() {
    const Ref<CAlarm> alarm = New<CAlarm>();
    alarm->Text = "Tea";
    alarm->FolderID = 900;
    alarm->CategoryID = 901;
    alarm->StartDate = On("7/8/2024");
    alarm->Reminder = 15;
    alarm->DateLastUpdate = On("2/3/2024 1:00:00 PM");
    FillNotification(*alarm->Notification);
    FillRule(*alarm->Recurrence);
    alarm->Attachement->Name = "Plan";
    alarm->Attachement->DocType = "txt";
    alarm->Attachement->Description = "The plan";
    alarm->Attachement->FileName = "/tmp/plan.txt";
    return alarm;
  }

  Ref<CEvent> FullEvent() {
    const Ref<CEvent> event = New<CEvent>();
    event->Text = "Concert";
    event->StartDate = On("7/8/2024 7:30:00 PM");
    event->EndDate = On("7/8/2024 10:00:00 PM");
    event->Reminder = 2;
    event->FolderID = 900;
    event->CategoryID = 901;
    event->Location = "Café";
    event->DateLastUpdate = On("2/3/2024 1:00:00 PM");
    event->EType = "T";
    event->LinkID = 77;
    FillNotification(*event->Notification);
    FillRule(*event->Recurrence);
    return event;
  }

  Ref<CTask> FullTask() {
    const Ref<CTask> task = New<CTask>();
    task->Name = "Paint";
    task->Description = "the door";
    task->FolderID = 900;
    task->CategoryID = 901;
    task->StatusID = 902;
    task->Priority = "High";
    task->StartDate = On("7/8/2024 7:30:00 PM");
    task->DueDate = On("7/9/2024");
    task->Completed = 1;
    task->DateCompleted = On("7/10/2024 8:00:00 AM");
    task->AssignedTo = "Ann";
    task->DateLastUpdate = On("2/3/2024 1:00:00 PM");
    FillNotification(*task->Notification);
    FillRule(*task->Recurrence);
    return task;
  }

  /// A rule with every option set, whether its type reads it or not.
  Ref<CRecurrence> RuleOf(std::int32_t type, std::int32_t sub_type) {
    const Ref<CRecurrence> rule = New<CRecurrence>();
    rule->RType = type;
    rule->SubType = sub_type;
    rule->Options1 = 2;
    rule->Options2 = 1;
    rule->WeekNumber = 4;
    rule->Tuesday = true;
    rule->Sunday = true;
    rule->EndDate = Date();
    rule->OccurencesNo = type;
    return rule;
  }

  Ref<CContact> FullContact() {
    const Ref<CContact> contact = New<CContact>();
    FillPerson(*contact);
    FillCompany(*contact);
    contact->ReferredBy = "Referrer";
    contact->Notes = "€ 😀";
    contact->CustomField1 = "One";
    contact->CustomField2 = "Two";
    contact->FolderID = 900;
    contact->CategoryID = 901;
    contact->LastmeetingDate = On("3/4/2024 5:00:00 PM");
    contact->Anniversary = On("6/7/2008");
    contact->BirthDate = On("1/2/1970");
    contact->DateLastUpdate = On("2/3/2024 1:00:00 PM");
    return contact;
  }

 private:
  static void FillNotification(CNotification& notification) {
    notification.Email = "to@example.org";
    notification.CC = "cc@example.org";
    notification.BCC = "bcc@example.org";
    notification.Subject = "Don't forget";
    notification.Message = "It is time";
    notification.Status = NS_SENTOK;
    notification.SendingDate = On("7/1/2024 6:00:00 AM");
  }

  static void FillRule(CRecurrence& rule) {
    rule.RType = REC_WEEKLY;
    rule.Options1 = 2;
    rule.Monday = true;
    rule.Wendsday = true;
    rule.EndDate = On("12/31/2024");
    rule.OccurencesNo = 5;
  }

  static void FillPerson(CContact& contact) {
    contact.FirstName = "Jörg";
    contact.LastName = "O'Neill";
    contact.MI = "M";
    contact.Suffix = "Jr";
    contact.Dear = "Dear Jörg";
    contact.Address = "1 High St\r\nFlat 2";
    contact.City = "Graz";
    contact.Country = "Austria";
    contact.State = "Styria";
    contact.PostalCode = "8010";
    contact.Region = "South";
    contact.Phone = "111";
    contact.MobilePhone = "222";
    contact.Email = "j@example.org";
    contact.URL = "example.org";
  }

  static void FillCompany(CContact& contact) {
    contact.Company = "Acme";
    contact.WorkAddress = "2 Low St";
    contact.WorkCity = "Wien";
    contact.WorkCountry = "AT";
    contact.WorkState = "W";
    contact.WorkPostalCode = "1010";
    contact.WorkRegion = "East";
    contact.WorkPhone = "333";
    contact.WorkExtension = "44";
    contact.WorkFax = "555";
    contact.WorkEmail = "w@example.org";
    contact.WorkURL = "work.example.org";
    contact.WorkDepartment = "Sales";
    contact.WorkOffice = "12b";
    contact.Profession = "Clerk";
    contact.JobTitle = "Head";
    contact.AssistantName = "Eve";
  }
};

}  // namespace zef::test
