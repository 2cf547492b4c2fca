#include "session/session.h"

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "component/classes/record_members.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/attachement.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "users/user.h"

namespace zef::component {
namespace {

using Of = Members<CSession>;

constexpr Member kMembers[] = {
    Of::Field<&CSession::conDBConnection, Ref<Connection>>("conDBConnection"),
    Of::Field<&CSession::UserRights, Long>("UserRights"),
    Of::Field<&CSession::UserID, Long>("UserID"),
    Of::ReadOnly<&CSession::TransactionStarted, Boolean()>("TransactionStarted"),
    Of::Function<&CSession::ClearError, void()>("ClearError"),
    Of::Function<&CSession::GetErrorDescription, Text()>("GetErrorDescription"),
    Of::Function<&CSession::GetErrorProcedure, Text()>("GetErrorProcedure"),
    Of::Function<&CSession::GetErrorFlag, Boolean()>("GetErrorFlag"),
    Of::Function<&CSession::GetErrorCode, Long()>("GetErrorCode"),
    Of::Function<&CSession::GetEntireErrorDesc, Text()>("GetEntireErrorDesc"),
    Of::Function<&CSession::IsConnected, Boolean()>("IsConnected"),
    Of::Function<&CSession::RecordError, void(ByRef<Text>, Optional<Long>, Optional<ByRef<Text>>)>(
        "RecordError", "strProcedure", "lngCode", "strMessage"),
    Of::Function<&CSession::Connect2Database, Boolean(ByRef<Text>, ByRef<Text>, ByRef<Text>)>(
        "Connect2Database", "DatabaseName", "UserName", "Password"),
    Of::Function<&CSession::Connect2DatabaseCS, Boolean(ByRef<Text>)>("Connect2DatabaseCS", "ConnectionString"),
    Of::Function<&CSession::DisconnectFromDatabase, Boolean()>("DisconnectFromDatabase"),
    Of::Function<&CSession::BeginTransaction, Boolean()>("BeginTransaction"),
    Of::Function<&CSession::CommitTransaction, Boolean()>("CommitTransaction"),
    Of::Function<&CSession::RollbackTransaction, Boolean()>("RollbackTransaction"),
    Of::Function<&CSession::IsAdministrator, Boolean()>("IsAdministrator"),
    Of::Function<&CSession::IsDataEditor, Boolean()>("IsDataEditor"),
    Of::Function<&CSession::IsDataViewer, Boolean()>("IsDataViewer"),
    Of::Function<&CSession::SetAdministratorRights, void()>("SetAdministratorRights"),
    Of::Function<&CSession::GetUniqueIDFromSeq, Long(Long, ByRef<Long>, Optional<Long, 1>)>(
        "GetUniqueIDFromSeq", "lngSeqID", "lngID", "lngBatchSize"),
    Of::Function<&CSession::GetFolder, Ref<CFolder>(Long)>("GetFolder", "FolderID"),
    Of::Function<&CSession::CreateFolder, Ref<CFolder>()>("CreateFolder"),
    Of::Function<&CSession::GetFolderIDByCriteria, Long(ByRef<Text>)>("GetFolderIDByCriteria", "strCriteria"),
    Of::Function<&CSession::GetFolderID4PhoneCallNotes, Long()>("GetFolderID4PhoneCallNotes"),
    Of::Function<&CSession::GetFolderID4Completedtasks, Long()>("GetFolderID4Completedtasks"),
    Of::Function<&CSession::LoadRootFolders, Boolean(ByRef<Ref<CFolders>>)>("LoadRootFolders", "udtFolders"),
    Of::Function<&CSession::LoadChildFolders, Boolean(ByRef<Ref<CFolders>>, Long)>("LoadChildFolders", "udtFolders",
                                                                                   "lngParentId"),
    Of::Function<&CSession::LoadFoldersWithCriteria, Boolean(ByRef<Ref<CFolders>>, ByRef<Text>)>(
        "LoadFoldersWithCriteria", "udtFolders", "strCriteria"),
    Of::Function<&CSession::GetCategory, Ref<CCategory>(Long)>("GetCategory", "CategoryID"),
    Of::Function<&CSession::GetCategoryID4Name, Long(ByRef<Text>)>("GetCategoryID4Name", "strConnectName"),
    Of::Function<&CSession::DeleteCategory, Boolean(Long)>("DeleteCategory", "lngCategoryID"),
    Of::Function<&CSession::LoadCategoriesWithCriteria, Boolean(ByRef<Ref<CCategories>>, ByRef<Text>)>(
        "LoadCategoriesWithCriteria", "udtCategories", "strCriteria"),
    Of::Function<&CSession::CopyFolder, Boolean(Long, Long)>("CopyFolder", "FolderID", "lngNewParentID"),
    Of::Function<&CSession::DeleteFolder, Boolean(Long)>("DeleteFolder", "lngFolderID"),
    Of::Function<&CSession::GetRecurrence, Ref<CRecurrence>(Long)>("GetRecurrence", "lngRecurrenceID"),
    Of::Function<&CSession::DeleteRecurrence, Boolean(Long)>("DeleteRecurrence", "lngRecurrenceID"),
    Of::Function<&CSession::GetNotification, Ref<CNotification>(Long)>("GetNotification", "lngNotificationID"),
    Of::Function<&CSession::DeleteNotification, Boolean(Long)>("DeleteNotification", "lngNotificationID"),
    Of::Function<&CSession::GetEvent, Ref<CEvent>(Long)>("GetEvent", "EventID"),
    Of::Function<&CSession::LoadEvents4Folder, Boolean(ByRef<Ref<CEvents>>, Long)>("LoadEvents4Folder", "udtEvents",
                                                                                   "lngFolderID"),
    Of::Function<&CSession::LoadEventsWithCriteria, Boolean(ByRef<Ref<CEvents>>, ByRef<Text>)>(
        "LoadEventsWithCriteria", "udtEvents", "strCriteria"),
    Of::Function<&CSession::CreateEvent, Ref<CEvent>()>("CreateEvent"),
    Of::Function<&CSession::DuplicateEvent, Ref<CEvent>(Long)>("DuplicateEvent", "lngOldEventID"),
    Of::Function<&CSession::DeleteEvent, Boolean(Long)>("DeleteEvent", "lngEventID"),
    Of::Function<&CSession::GetAlarm, Ref<CAlarm>(Long)>("GetAlarm", "AlarmID"),
    Of::Function<&CSession::DuplicateAlarm, Ref<CAlarm>(Long)>("DuplicateAlarm", "lngOldAlarmID"),
    Of::Function<&CSession::CreateAlarm, Ref<CAlarm>()>("CreateAlarm"),
    Of::Function<&CSession::LoadAlarms4Folder, Boolean(ByRef<Ref<CAlarms>>, Long)>("LoadAlarms4Folder", "udtAlarms",
                                                                                   "lngFolderID"),
    Of::Function<&CSession::LoadAlarmsWithCriteria, Boolean(ByRef<Ref<CAlarms>>, ByRef<Text>)>(
        "LoadAlarmsWithCriteria", "udtAlarms", "strCriteria"),
    Of::Function<&CSession::DeleteAlarm, Boolean(Long)>("DeleteAlarm", "lngAlarmID"),
    Of::Function<&CSession::GetTask, Ref<CTask>(Long)>("GetTask", "TaskID"),
    Of::Function<&CSession::DuplicateTask, Ref<CTask>(Long)>("DuplicateTask", "lngOldTaskID"),
    Of::Function<&CSession::CreateTask, Ref<CTask>()>("CreateTask"),
    Of::Function<&CSession::LoadTasks4Folder, Boolean(ByRef<Ref<CTasks>>, Long)>("LoadTasks4Folder", "udtTasks",
                                                                                 "lngFolderID"),
    Of::Function<&CSession::LoadTasksWithCriteria, Boolean(ByRef<Ref<CTasks>>, ByRef<Text>)>("LoadTasksWithCriteria",
                                                                                             "udtTasks", "strCriteria"),
    Of::Function<&CSession::DeleteTask, Boolean(Long)>("DeleteTask", "lngTaskID"),
    Of::Function<&CSession::GetContact, Ref<CContact>(Long)>("GetContact", "ContactID"),
    Of::Function<&CSession::DuplicateContact, Ref<CContact>(Long)>("DuplicateContact", "lngOldContactID"),
    Of::Function<&CSession::LoadContacts4Folder, Boolean(ByRef<Ref<CContacts>>, Long)>("LoadContacts4Folder",
                                                                                       "udtContacts", "lngFolderID"),
    Of::Function<&CSession::LoadContactsWithCriteria, Boolean(ByRef<Ref<CContacts>>, ByRef<Text>)>(
        "LoadContactsWithCriteria", "udtContacts", "strCriteria"),
    Of::Function<&CSession::LoadContactTagsWithCriteria, Boolean(ByRef<Ref<CTags>>, ByRef<Text>)>(
        "LoadContactTagsWithCriteria", "udtContactTags", "strCriteria"),
    Of::Function<&CSession::CreateContact, Ref<CContact>()>("CreateContact"),
    Of::Function<&CSession::DeleteContact, Boolean(Long)>("DeleteContact", "lngContactID"),
    Of::Function<&CSession::GetObjectID, Boolean(ByRef<Text>, ByRef<Long>, ByRef<Long>)>("GetObjectID", "strSearch",
                                                                                         "lngID", "lngFolderID"),
    Of::Function<&CSession::GetContactIDByPhoneNumber, Long(ByRef<Text>)>("GetContactIDByPhoneNumber", "strNumber"),
    Of::Function<&CSession::GetPhoneLog, Ref<CPhoneLog>(Long)>("GetPhoneLog", "PhoneLogID"),
    Of::Function<&CSession::DeletePhoneLog, Boolean(Long)>("DeletePhoneLog", "lngPhoneLogID"),
    Of::Function<&CSession::LoadPhoneLogsWithCriteria, Boolean(ByRef<Ref<CPhoneLogs>>, ByRef<Text>)>(
        "LoadPhoneLogsWithCriteria", "udtPhoneLogs", "strCriteria"),
    Of::Function<&CSession::CreatePhoneLog, Ref<CPhoneLog>()>("CreatePhoneLog"),
    Of::Function<&CSession::GetNote, Ref<CNote>(Long)>("GetNote", "NoteID"),
    Of::Function<&CSession::CreateNote, Ref<CNote>()>("CreateNote"),
    Of::Function<&CSession::DuplicateNote, Ref<CNote>(Long)>("DuplicateNote", "lngOldNoteID"),
    Of::Function<&CSession::DeleteNote, Boolean(Long)>("DeleteNote", "lngNoteID"),
    Of::Function<&CSession::LoadNotes4Folder, Boolean(ByRef<Ref<CNotes>>, Long)>("LoadNotes4Folder", "udtNotes",
                                                                                 "lngFolderID"),
    Of::Function<&CSession::LoadNotesWithCriteria, Boolean(ByRef<Ref<CNotes>>, ByRef<Text>)>("LoadNotesWithCriteria",
                                                                                             "udtNotes", "strCriteria"),
    Of::Function<&CSession::GetAttachement, Ref<CAttachement>(Long)>("GetAttachement", "lngAttachementID"),
    Of::Function<&CSession::DeleteAttachement, Boolean(Long)>("DeleteAttachement", "lngAttachementID"),
    Of::Function<&CSession::GetUser, Ref<CUser>(Long)>("GetUser", "UserID"),
    Of::Function<&CSession::GetUsersNo, Long()>("GetUsersNo"),
    Of::Function<&CSession::GetUserID4Name, Long(Text)>("GetUserID4Name", "strConnectName"),
    Of::Function<&CSession::CheckUser, Ref<CUser>(Text, Text)>("CheckUser", "strConnectName", "strConnectPwd"),
    Of::Function<&CSession::DeleteUser, Boolean(Long)>("DeleteUser", "lngUserID"),
    Of::Function<&CSession::LoadUserTags, Boolean(ByRef<Ref<CTags>>, Text)>("LoadUserTags", "udtUserTags",
                                                                            "strCriteria"),
    Of::Function<&CSession::LoadUsersWithCriteria, Boolean(ByRef<Ref<CUsers>>, Text)>("LoadUsersWithCriteria",
                                                                                      "udtUsers", "strCriteria"),
    Of::Function<&CSession::LoadTaskStatusList, Boolean(ByRef<Ref<CTags>>)>("LoadTaskStatusList", "udtStatusList"),
    Of::Function<&CSession::LoadTaskPriorityList, Boolean(ByRef<Ref<CTags>>)>("LoadTaskPriorityList",
                                                                              "udtPriorityList"),
    Of::Function<&CSession::LoadStateTags, Boolean(ByRef<Ref<CTags>>)>("LoadStateTags", "udtStateTags"),
    Of::Function<&CSession::LoadCountryTags, Boolean(ByRef<Ref<CTags>>)>("LoadCountryTags", "udtCountryTags"),
    Of::Function<&CSession::GetTaskStatus, Ref<CTag>(Long)>("GetTaskStatus", "StatusID"),
    Of::Function<&CSession::GetTaskPriority, Ref<CTag>(Long)>("GetTaskPriority", "PriorityID"),
    Of::Function<&CSession::GetStateTag, Ref<CTag>(Long)>("GetStateTag", "lngStateID"),
    Of::Function<&CSession::GetCountryTag, Ref<CTag>(Long)>("GetCountryTag", "lngCountryID"),
    Of::Function<&CSession::UpgradeDBToVersion9_2_1, Boolean(ByRef<Text>, ByRef<Text>)>("UpgradeDBToVersion9_2_1",
                                                                                        "strVersion", "strErrorMsg"),
    Of::Function<&CSession::GetDBInfo, Boolean(ByRef<Text>, ByRef<Text>)>("GetDBInfo", "strVersion", "strType"),
    Of::Function<&CSession::UpgradeDBToVersion9_2_2, Boolean(ByRef<Text>, ByRef<Text>)>("UpgradeDBToVersion9_2_2",
                                                                                        "strVersion", "strErrorMsg"),
    Of::Function<&CSession::UpgradeDBToVersion9_2_3, Boolean(ByRef<Text>, ByRef<Text>)>("UpgradeDBToVersion9_2_3",
                                                                                        "strVersion", "strErrorMsg"),
    Of::Function<&CSession::UpgradeDBToVersion9_2_4, Boolean(ByRef<Text>, ByRef<Text>)>("UpgradeDBToVersion9_2_4",
                                                                                        "strVersion", "strErrorMsg"),
};
constexpr Class kClass = Creatable<CSession>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CSession>) { return kClass; }

}  // namespace zef::component
