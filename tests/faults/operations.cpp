#include "tests/faults/operations.h"

#include <utility>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "calendar/recurrence_type.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/attachement.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "users/user.h"

namespace zef::test {
namespace {

constexpr std::int32_t kRecord = 101;
constexpr std::int32_t kRootFolder = 1;

constexpr const char* kRows[] = {
    "INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Type,FLD_Name) VALUES (101,1,2,'It''s a folder')",
    "INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Type,FLD_Name) VALUES (102,101,4,'Below')",
    "INSERT INTO Categories (CAT_ID,CAT_Name,CAT_Color) VALUES (101,'Work',255)",
    "INSERT INTO Recurrences (REC_ID,REC_Type,REC_Options1) VALUES (101,1,7)",
    "INSERT INTO Recurrences (REC_ID,REC_Type,REC_Options1) VALUES (102,1,7)",
    "INSERT INTO Recurrences (REC_ID,REC_Type,REC_Options1) VALUES (103,1,7)",
    "INSERT INTO Notifications (NTF_ID,NTF_Subject,NTF_Email) VALUES (101,'Subject','a@b.example')",
    "INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (102,'Subject')",
    "INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (103,'Subject')",
    "INSERT INTO Attachements (ATC_ID,ATC_Name,ATC_DocType) VALUES (101,'picture','png')",
    "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_RecurrenceID,EVE_NotificationID,EVE_Text,EVE_StartDate)"
    " VALUES (101,102,101,101,101,'Event',#5/1/2024 9:00:00 AM#)",
    "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text,EVE_StartDate,EVE_Type,EVE_LinkID)"
    " VALUES (102,9,'Due',#5/2/2024#,'T',101)",
    "INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES (101,1,#5/1/2024#)",
    "INSERT INTO Alarms "
    "(ALA_ID,ALA_FolderID,ALA_RecurrenceID,ALA_NotificationID,ALA_AttachementID,ALA_Text,ALA_StartDate)"
    " VALUES (101,5,102,102,101,'Alarm',#5/1/2024#)",
    "INSERT INTO ViewedAlarms (VA_AlarmID,VA_UserID,VA_Date) VALUES (101,1,#5/1/2024#)",
    "INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_CategoryID,TSK_RecurrenceID,TSK_NotificationID,TSK_Name,TSK_DueDate)"
    " VALUES (101,101,101,103,103,'Task',#5/2/2024#)",
    "INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_CategoryID,CNT_LastName,CNT_Phone,CNT_BirthDate)"
    " VALUES (101,2,101,'O''Neill','555-1234',#2/29/1996#)",
    "INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject,PL_RecordDate) VALUES (101,101,'Call',#5/1/2024#)",
    "INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_CategoryID,NOT_Title,NOT_Text) VALUES (101,4,101,'Title','Text')",
    "INSERT INTO Users (USR_ID,USR_Rights,USR_Name,USR_FullName,USR_Password) VALUES (101,1,'ann','Ann','secret')",
    "UPDATE Folders SET FLD_Name='Phone Calls Notes' WHERE FLD_ID=12",
    "UPDATE Sequences SET SEQ_Value=1000",
};

/// The loading of a collection.
template <class Records, class Criteria>
Operation Load(std::string name, bool (CSession::*load)(const Ref<Records>&, Criteria),
               std::decay_t<Criteria> criteria) {
  return {std::move(name), [load, criteria](CSession& session) {
            const auto records = MakeRef<Records>();
            return (session.*load)(records, criteria) && records->Count() > 0;
          }};
}

Operation LoadList(std::string name, bool (CSession::*load)(const Ref<CTags>&)) {
  return {std::move(name), [load](CSession& session) { return (session.*load)(MakeRef<CTags>()); }};
}

/// An operation on record 101 that gives an object or True.
template <class Result>
Operation OnRecord(std::string name, Result (CSession::*act)(std::int32_t), std::int32_t id = kRecord) {
  return {std::move(name), [act, id](CSession& session) { return static_cast<bool>((session.*act)(id)); }};
}

template <class Record>
Operation Create(std::string name, Ref<Record> (CSession::*create)()) {
  return {std::move(name), [create](CSession& session) { return (session.*create)() != nullptr; }};
}

Operation Find(std::string name, std::function<std::int32_t(CSession&)> find) {
  return {std::move(name), [find](CSession& session) { return find(session) > 0; }};
}

/// The `Save` of a new record that `fill` fills.
template <class Record, class Fill>
Operation SaveNew(std::string name, Ref<Record> (CSession::*create)(), Fill fill) {
  return {std::move(name), [create, fill](CSession& session) {
            const Ref<Record> record = (session.*create)();
            if (!record) return false;
            fill(*record);
            return record->Save();
          }};
}

/// The `Save` of stored record 101 that `change` changes.
template <class Record, class Change>
Operation SaveOld(std::string name, Ref<Record> (CSession::*get)(std::int32_t), Change change) {
  return {std::move(name), [get, change](CSession& session) {
            const Ref<Record> record = (session.*get)(kRecord);
            if (!record) return false;
            change(*record);
            return record->Save();
          }};
}

/// The `Save` of a record that a client made itself.
template <class Record, class Fill>
Operation SaveOwn(std::string name, Fill fill) {
  return {std::move(name), [fill](CSession& session) {
            const auto record = MakeRef<Record>();
            record->SetSession(Ref<CSession>(&session));
            fill(*record);
            return record->Save();
          }};
}

void AddReading(std::vector<Operation>& all) {
  const std::string by_id = "101";
  all.insert(all.end(),
             {OnRecord("GetFolder", &CSession::GetFolder),
              OnRecord("GetCategory", &CSession::GetCategory),
              OnRecord("GetRecurrence", &CSession::GetRecurrence),
              OnRecord("GetNotification", &CSession::GetNotification),
              OnRecord("GetEvent", &CSession::GetEvent),
              OnRecord("GetAlarm", &CSession::GetAlarm),
              OnRecord("GetTask", &CSession::GetTask),
              OnRecord("GetContact", &CSession::GetContact),
              OnRecord("GetPhoneLog", &CSession::GetPhoneLog),
              OnRecord("GetNote", &CSession::GetNote),
              OnRecord("GetAttachement", &CSession::GetAttachement),
              OnRecord("GetUser", &CSession::GetUser),
              OnRecord("GetTaskStatus", &CSession::GetTaskStatus, 1),
              OnRecord("GetTaskPriority", &CSession::GetTaskPriority, 1),
              OnRecord("GetStateTag", &CSession::GetStateTag, 1),
              OnRecord("GetCountryTag", &CSession::GetCountryTag, 1),
              Load("LoadChildFolders", &CSession::LoadChildFolders, kRootFolder),
              Load("LoadFoldersWithCriteria", &CSession::LoadFoldersWithCriteria, "FLD_ID=101"),
              Load("LoadCategoriesWithCriteria", &CSession::LoadCategoriesWithCriteria, "CAT_ID=101"),
              Load("LoadEvents4Folder", &CSession::LoadEvents4Folder, 102),
              Load("LoadEventsWithCriteria", &CSession::LoadEventsWithCriteria, "EVE_Text LIKE 'e%'"),
              Load("LoadAlarms4Folder", &CSession::LoadAlarms4Folder, 5),
              Load("LoadAlarmsWithCriteria", &CSession::LoadAlarmsWithCriteria, "ALA_ID=101"),
              Load("LoadTasks4Folder", &CSession::LoadTasks4Folder, 101),
              Load("LoadTasksWithCriteria", &CSession::LoadTasksWithCriteria, "TSK_Name='task'"),
              Load("LoadContacts4Folder", &CSession::LoadContacts4Folder, 2),
              Load("LoadContactsWithCriteria", &CSession::LoadContactsWithCriteria, "CNT_LastName='O''Neill'"),
              Load("LoadContactTagsWithCriteria", &CSession::LoadContactTagsWithCriteria, "CNT_ID=101"),
              Load("LoadPhoneLogsWithCriteria", &CSession::LoadPhoneLogsWithCriteria, "PL_ContactID=101"),
              Load("LoadNotes4Folder", &CSession::LoadNotes4Folder, 4),
              Load("LoadNotesWithCriteria", &CSession::LoadNotesWithCriteria, "NOT_ID=101"),
              Load("LoadUserTags", &CSession::LoadUserTags, "USR_ID=101"),
              Load("LoadUsersWithCriteria", &CSession::LoadUsersWithCriteria, "USR_ID=101"),
              LoadList("LoadTaskStatusList", &CSession::LoadTaskStatusList),
              LoadList("LoadTaskPriorityList", &CSession::LoadTaskPriorityList),
              LoadList("LoadStateTags", &CSession::LoadStateTags),
              LoadList("LoadCountryTags", &CSession::LoadCountryTags)});
  all.push_back({"LoadRootFolders", [](CSession& session) { return session.LoadRootFolders(MakeRef<CFolders>()); }});
  all.push_back({"GetObjectID", [](CSession& session) {
                   std::int32_t id = 0, folder = 0;
                   return session.GetObjectID("SELECT TSK_ID AS ID, TSK_FolderID AS FolderID FROM Tasks", id, folder);
                 }});
  all.push_back({"GetDBInfo", [](CSession& session) {
                   std::string version, type;
                   return session.GetDBInfo(version, type);
                 }});
  all.push_back({"CheckUser", [](CSession& session) { return session.CheckUser("ann", "secret") != nullptr; }});
}

void AddFinding(std::vector<Operation>& all) {
  all.insert(
      all.end(),
      {Find("GetFolderIDByCriteria", [](CSession& session) { return session.GetFolderIDByCriteria("FLD_ID=101"); }),
       Find("GetFolderID4PhoneCallNotes", [](CSession& session) { return session.GetFolderID4PhoneCallNotes(); }),
       Find("GetFolderID4Completedtasks", [](CSession& session) { return session.GetFolderID4Completedtasks(); }),
       Find("GetCategoryID4Name", [](CSession& session) { return session.GetCategoryID4Name("work"); }),
       Find("GetContactIDByPhoneNumber",
            [](CSession& session) { return session.GetContactIDByPhoneNumber("555-1234"); }),
       Find("GetUserID4Name", [](CSession& session) { return session.GetUserID4Name("ANN"); }),
       Find("GetUsersNo", [](CSession& session) { return session.GetUsersNo(); }),
       Find("GetUniqueIDFromSeq", [](CSession& session) {
         std::int32_t id = 0;
         return session.GetUniqueIDFromSeq(kTaskSequence, id);
       })});
}

void AddMaking(std::vector<Operation>& all) {
  all.insert(
      all.end(),
      {Create("CreateFolder", &CSession::CreateFolder), Create("CreateEvent", &CSession::CreateEvent),
       Create("CreateAlarm", &CSession::CreateAlarm), Create("CreateTask", &CSession::CreateTask),
       Create("CreateContact", &CSession::CreateContact), Create("CreatePhoneLog", &CSession::CreatePhoneLog),
       Create("CreateNote", &CSession::CreateNote), OnRecord("DuplicateEvent", &CSession::DuplicateEvent),
       OnRecord("DuplicateAlarm", &CSession::DuplicateAlarm), OnRecord("DuplicateTask", &CSession::DuplicateTask),
       OnRecord("DuplicateContact", &CSession::DuplicateContact), OnRecord("DuplicateNote", &CSession::DuplicateNote)});
}

void AddChanging(std::vector<Operation>& all) {
  all.insert(
      all.end(),
      {OnRecord("DeleteFolder", &CSession::DeleteFolder), OnRecord("DeleteCategory", &CSession::DeleteCategory),
       OnRecord("DeleteRecurrence", &CSession::DeleteRecurrence),
       OnRecord("DeleteNotification", &CSession::DeleteNotification), OnRecord("DeleteEvent", &CSession::DeleteEvent),
       OnRecord("DeleteAlarm", &CSession::DeleteAlarm), OnRecord("DeleteTask", &CSession::DeleteTask),
       OnRecord("DeleteContact", &CSession::DeleteContact), OnRecord("DeletePhoneLog", &CSession::DeletePhoneLog),
       OnRecord("DeleteNote", &CSession::DeleteNote), OnRecord("DeleteAttachement", &CSession::DeleteAttachement),
       OnRecord("DeleteUser", &CSession::DeleteUser)});
  all.push_back({"CopyFolder", [](CSession& session) { return session.CopyFolder(kRecord, 3); }});
  all.push_back({"MarkEventSeen", [](CSession& session) {
                   const Ref<CEvent> event = session.GetEvent(kRecord);
                   return event && event->MarkSeenByUser(Date(45414));
                 }});
  all.push_back({"MarkAlarmSeen", [](CSession& session) {
                   const Ref<CAlarm> alarm = session.GetAlarm(kRecord);
                   return alarm && alarm->MarkSeenByUser(Date(45414));
                 }});
}

void AddSaving(std::vector<Operation>& all) {
  const auto name = [](auto& record) { record.Name = "It's new"; };
  const auto event = [](CEvent& record) {
    record.Text = "New";
    record.Recurrence->RType = REC_DAILY;
    record.Notification->Subject = "Subject";
  };
  const auto alarm = [](CAlarm& record) {
    record.Text = "New";
    record.Recurrence->RType = REC_DAILY;
    record.Attachement->Name = "Readme";
    record.Attachement->FileName = "README.md";
  };
  const auto task = [](CTask& record) {
    record.Name = "New";
    record.DueDate = Date(45420);
    record.Recurrence->RType = REC_DAILY;
    record.Notification->Subject = "Subject";
  };
  const auto contact = [](CContact& record) {
    record.FirstName = "Ann";
    record.LastName = "O'Hara";
    record.BirthDate = Date(30000);
    record.Anniversary = Date(40000);
  };
  const auto call = [](CPhoneLog& record) { record.Subject = "New"; };
  const auto note = [](CNote& record) { record.Title = "New"; };
  all.insert(
      all.end(),
      {SaveNew("SaveNewFolder", &CSession::CreateFolder, name), SaveOld("SaveFolder", &CSession::GetFolder, name),
       SaveOwn<CCategory>("SaveNewCategory", name), SaveOld("SaveCategory", &CSession::GetCategory, name),
       SaveNew("SaveNewEvent", &CSession::CreateEvent, event), SaveOld("SaveEvent", &CSession::GetEvent, event),
       SaveNew("SaveNewAlarm", &CSession::CreateAlarm, alarm), SaveOld("SaveAlarm", &CSession::GetAlarm, alarm),
       SaveNew("SaveNewTask", &CSession::CreateTask, task), SaveOld("SaveTask", &CSession::GetTask, task),
       SaveNew("SaveNewContact", &CSession::CreateContact, contact),
       SaveOld("SaveContact", &CSession::GetContact, contact),
       SaveNew("SaveNewPhoneLog", &CSession::CreatePhoneLog, call),
       SaveOld("SavePhoneLog", &CSession::GetPhoneLog, call), SaveNew("SaveNewNote", &CSession::CreateNote, note),
       SaveOld("SaveNote", &CSession::GetNote, note), SaveOwn<CUser>("SaveNewUser", name),
       SaveOld("SaveUser", &CSession::GetUser, name)});
}

}  // namespace

void AddRecords(Connection& connection) {
  for (const char* row : kRows) connection.Execute(row);
}

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = [] {
    std::vector<Operation> all;
    AddReading(all);
    AddFinding(all);
    AddMaking(all);
    AddChanging(all);
    AddSaving(all);
    return all;
  }();
  return operations;
}

}  // namespace zef::test
