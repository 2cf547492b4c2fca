#include <string>

#include "session/collections.h"
#include "tests/session/postgresql/sample_records.h"
#include "tests/session/postgresql/trips.h"

namespace zef::test {
namespace {

/// Loads what `make` has saved by its identifier.
template <auto Make, auto Get>
Work GetSaved(CSession& session) {
  return [&session, id = Saved(Make(session))->ID] { return (session.*Get)(id) != nullptr; };
}
template <auto Make, auto Get>
Work GetSavedWithChildren(CSession& session) {
  return [&session, id = Saved(WithChildren(Make(session)))->ID] { return (session.*Get)(id) != nullptr; };
}
template <auto Get>
Work GetFirst(CSession& session) {
  return [&session] { return (session.*Get)(1) != nullptr; };
}
template <auto Find>
Work FindID(CSession& session) {
  return [&session] { return (session.*Find)() != 0; };
}
/// Finds what `make` has saved by a text.
template <auto Make, auto Find, const char* Text>
Work FindByText(CSession& session) {
  Saved(Make(session));
  return [&session] { return (session.*Find)(Text) > 0; };
}
template <auto Create>
Work CreateOne(CSession& session) {
  return [&session] { return (session.*Create)() != nullptr; };
}
template <auto Make, auto Operate>
Work OnSaved(CSession& session) {
  return [&session, id = Saved(Make(session))->ID] { return static_cast<bool>((session.*Operate)(id)); };
}
template <auto Make, auto Operate>
Work OnSavedWithChildren(CSession& session) {
  return [&session, id = Saved(WithChildren(Make(session)))->ID] { return static_cast<bool>((session.*Operate)(id)); };
}
/// Loads the record that `make` has saved by a condition.
template <class Records, auto Make, auto Load, const char* Key>
Work LoadSaved(CSession& session) {
  return [&session, condition = Key + ("=" + std::to_string(Saved(Make(session))->ID))] {
    auto records = MakeRef<Records>();
    return (session.*Load)(records, condition) && records->Count() == 1;
  };
}
/// Loads it as the only one of its folder.
template <class Records, auto Make, auto Load>
Work LoadFolderOf(CSession& session) {
  const auto record = Make(session);
  record->FolderID = record->ID + 1000;
  Saved(record);
  return [&session, folder = record->FolderID.get()] {
    auto records = MakeRef<Records>();
    return (session.*Load)(records, folder) && records->Count() == 1;
  };
}
Work LoadChildFolders(CSession& session) {
  const Ref<CFolder> folder = NewFolder(session);
  folder->ParentID = 1;
  Saved(folder);
  return [&session] {
    auto folders = MakeRef<CFolders>();
    return session.LoadChildFolders(folders, 1) && folders->Count() > 0;
  };
}
template <class Records, auto Load>
Work LoadList(CSession& session) {
  return [&session] {
    auto records = MakeRef<Records>();
    return (session.*Load)(records) && records->Count() > 0;
  };
}

/// An open transaction that has sent nothing yet, or something.
Work BeginTransaction(CSession& session) {
  if (session.TransactionStarted()) session.RollbackTransaction();
  return [&session] { return session.BeginTransaction(); };
}
template <auto End>
Work EndUnused(CSession& session) {
  session.BeginTransaction();
  return [&session] { return (session.*End)(); };
}
template <auto End>
Work EndUsed(CSession& session) {
  session.BeginTransaction();
  session.GetUsersNo();
  return [&session] { return (session.*End)(); };
}
Work DrawAlone(CSession& session) {
  return [&session] {
    std::int32_t id = 0;
    return session.GetUniqueIDFromSeq(2, id) == 1;
  };
}
Work DrawInTransaction(CSession& session) {
  if (!session.TransactionStarted()) EndUsed<&CSession::CommitTransaction>(session);
  return DrawAlone(session);
}

/// A folder with a smaller one in it and two tasks in each.
Ref<CFolder> NewBranch(CSession& session) {
  Ref<CFolder> branch = Saved(NewFolder(session));
  Ref<CFolder> smaller = NewFolder(session);
  smaller->ParentID = branch->ID;
  Saved(smaller);
  for (const auto& folder : {branch, branch, smaller, smaller}) {
    Ref<CTask> task = NewTask(session);
    task->FolderID = folder->ID;
    Saved(task);
  }
  return branch;
}
template <auto Make>
Work CopyFolder(CSession& session) {
  const Ref<CFolder> target = Saved(NewFolder(session));
  return [&session, id = Make(session)->ID, target] { return session.CopyFolder(id, target->ID); };
}
template <auto Make>
Work DeleteFolder(CSession& session) {
  return [&session, id = Make(session)->ID] { return session.DeleteFolder(id); };
}
Ref<CFolder> SavedFolder(CSession& session) { return Saved(NewFolder(session)); }

Work GetObjectID(CSession& session) {
  return [&session] {
    std::int32_t id = 0, folder = 0;
    return session.GetObjectID("SELECT FLD_ID AS ID,FLD_ParentID AS FolderID FROM Folders WHERE FLD_ID=1", id, folder);
  };
}
Work CheckUser(CSession& session) {
  Saved(NewUser(session));
  return [&session] { return session.CheckUser("anna", "sesame") != nullptr; };
}
Work GetDBInfo(CSession& session) {
  return [&session] {
    std::string version, type;
    return session.GetDBInfo(version, type);
  };
}

constexpr char kTasksFolder[] = "FLD_Name='Tasks'";
constexpr char kRed[] = "Red";
constexpr char kAnna[] = "anna";
constexpr char kPhone[] = "555-1";
constexpr char kFolder[] = "FLD_ID";
constexpr char kCategory[] = "CAT_ID";
constexpr char kEvent[] = "EVE_ID";
constexpr char kAlarm[] = "ALA_ID";
constexpr char kTask[] = "TSK_ID";
constexpr char kContact[] = "CNT_ID";
constexpr char kPhoneLog[] = "PL_ID";
constexpr char kNote[] = "NOT_ID";
constexpr char kUser[] = "USR_ID";

class OperationTripsPostgreSQL : public TripsTest {};

TEST_F(OperationTripsPostgreSQL, OfATransactionAreOneAtItsEnd) {
  static constexpr Operation kOperations[] = {
      {"BeginTransaction", 0, BeginTransaction},
      {"RollbackTransaction of the same", 0, EndUnused<&CSession::RollbackTransaction>},
      {"CommitTransaction without a statement", 0, EndUnused<&CSession::CommitTransaction>},
      {"CommitTransaction", 1, EndUsed<&CSession::CommitTransaction>},
      {"RollbackTransaction", 1, EndUsed<&CSession::RollbackTransaction>},
      {"GetUniqueIDFromSeq", 3, DrawAlone},
      {"GetUniqueIDFromSeq in a transaction", 2, DrawInTransaction},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfALookUpAreOneAndOneForEachChild) {
  static constexpr Operation kOperations[] = {
      {"GetFolder", 1, GetFirst<&CSession::GetFolder>},
      {"GetCategory", 1, GetSaved<NewCategory, &CSession::GetCategory>},
      {"GetRecurrence", 1, GetSaved<NewRule, &CSession::GetRecurrence>},
      {"GetNotification", 1, GetSaved<NewNotification, &CSession::GetNotification>},
      {"GetEvent", 1, GetSaved<NewEvent, &CSession::GetEvent>},
      {"GetEvent with two children", 3, GetSavedWithChildren<NewEvent, &CSession::GetEvent>},
      {"GetAlarm", 2, GetSaved<NewAlarm, &CSession::GetAlarm>},
      {"GetAlarm with two children", 3, GetSavedWithChildren<NewAlarm, &CSession::GetAlarm>},
      {"GetTask", 1, GetSaved<NewTask, &CSession::GetTask>},
      {"GetTask with two children", 3, GetSavedWithChildren<NewTask, &CSession::GetTask>},
      {"GetContact", 1, GetSaved<NewContact, &CSession::GetContact>},
      {"GetPhoneLog", 1, GetSaved<NewPhoneLog, &CSession::GetPhoneLog>},
      {"GetNote", 1, GetSaved<NewNote, &CSession::GetNote>},
      {"GetUser", 1, GetSaved<NewUser, &CSession::GetUser>},
      {"GetTaskStatus", 1, GetFirst<&CSession::GetTaskStatus>},
      {"GetTaskPriority", 1, GetFirst<&CSession::GetTaskPriority>},
      {"GetStateTag", 1, GetFirst<&CSession::GetStateTag>},
      {"GetCountryTag", 1, GetFirst<&CSession::GetCountryTag>},
      {"GetFolderIDByCriteria", 1, FindByText<NewFolder, &CSession::GetFolderIDByCriteria, kTasksFolder>},
      {"GetFolderID4PhoneCallNotes", 1, FindID<&CSession::GetFolderID4PhoneCallNotes>},
      {"GetFolderID4Completedtasks", 1, FindID<&CSession::GetFolderID4Completedtasks>},
      {"GetCategoryID4Name", 1, FindByText<NewCategory, &CSession::GetCategoryID4Name, kRed>},
      {"GetUserID4Name", 1, FindByText<NewUser, &CSession::GetUserID4Name, kAnna>},
      {"GetUsersNo", 1, FindID<&CSession::GetUsersNo>},
      {"GetContactIDByPhoneNumber", 1, FindByText<NewContact, &CSession::GetContactIDByPhoneNumber, kPhone>},
      {"GetObjectID", 1, GetObjectID},
      {"CheckUser", 1, CheckUser},
      {"GetDBInfo", 1, GetDBInfo},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfALoadAreOneAndOneForEachChild) {
  static constexpr Operation kOperations[] = {
      {"LoadRootFolders", 1, LoadList<CFolders, &CSession::LoadRootFolders>},
      {"LoadChildFolders", 1, LoadChildFolders},
      {"LoadFoldersWithCriteria", 1, LoadSaved<CFolders, NewFolder, &CSession::LoadFoldersWithCriteria, kFolder>},
      {"LoadCategoriesWithCriteria", 1,
       LoadSaved<CCategories, NewCategory, &CSession::LoadCategoriesWithCriteria, kCategory>},
      {"LoadEvents4Folder", 1, LoadFolderOf<CEvents, NewEvent, &CSession::LoadEvents4Folder>},
      {"LoadEventsWithCriteria", 1, LoadSaved<CEvents, NewEvent, &CSession::LoadEventsWithCriteria, kEvent>},
      {"LoadAlarms4Folder", 2, LoadFolderOf<CAlarms, NewAlarm, &CSession::LoadAlarms4Folder>},
      {"LoadAlarmsWithCriteria", 2, LoadSaved<CAlarms, NewAlarm, &CSession::LoadAlarmsWithCriteria, kAlarm>},
      {"LoadTasks4Folder", 1, LoadFolderOf<CTasks, NewTask, &CSession::LoadTasks4Folder>},
      {"LoadTasksWithCriteria", 1, LoadSaved<CTasks, NewTask, &CSession::LoadTasksWithCriteria, kTask>},
      {"LoadContacts4Folder", 1, LoadFolderOf<CContacts, NewContact, &CSession::LoadContacts4Folder>},
      {"LoadContactsWithCriteria", 1, LoadSaved<CContacts, NewContact, &CSession::LoadContactsWithCriteria, kContact>},
      {"LoadContactTagsWithCriteria", 1,
       LoadSaved<CTags, NewContact, &CSession::LoadContactTagsWithCriteria, kContact>},
      {"LoadPhoneLogsWithCriteria", 1,
       LoadSaved<CPhoneLogs, NewPhoneLog, &CSession::LoadPhoneLogsWithCriteria, kPhoneLog>},
      {"LoadNotes4Folder", 1, LoadFolderOf<CNotes, NewNote, &CSession::LoadNotes4Folder>},
      {"LoadNotesWithCriteria", 1, LoadSaved<CNotes, NewNote, &CSession::LoadNotesWithCriteria, kNote>},
      {"LoadUserTags", 1, LoadSaved<CTags, NewUser, &CSession::LoadUserTags, kUser>},
      {"LoadUsersWithCriteria", 1, LoadSaved<CUsers, NewUser, &CSession::LoadUsersWithCriteria, kUser>},
      {"LoadTaskStatusList", 1, LoadList<CTags, &CSession::LoadTaskStatusList>},
      {"LoadTaskPriorityList", 1, LoadList<CTags, &CSession::LoadTaskPriorityList>},
      {"LoadStateTags", 1, LoadList<CTags, &CSession::LoadStateTags>},
      {"LoadCountryTags", 1, LoadList<CTags, &CSession::LoadCountryTags>},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfCreateAreThoseOfADraw) {
  static constexpr Operation kOperations[] = {
      {"CreateFolder", 3, CreateOne<&CSession::CreateFolder>},
      {"CreateEvent", 3, CreateOne<&CSession::CreateEvent>},
      {"CreateAlarm", 3, CreateOne<&CSession::CreateAlarm>},
      {"CreateTask", 3, CreateOne<&CSession::CreateTask>},
      {"CreateContact", 3, CreateOne<&CSession::CreateContact>},
      {"CreatePhoneLog", 3, CreateOne<&CSession::CreatePhoneLog>},
      {"CreateNote", 3, CreateOne<&CSession::CreateNote>},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfDuplicateAreALookUpAndTheDraws) {
  static constexpr Operation kOperations[] = {
      {"DuplicateEvent", 10, OnSaved<NewEvent, &CSession::DuplicateEvent>},
      {"DuplicateEvent with two children", 12, OnSavedWithChildren<NewEvent, &CSession::DuplicateEvent>},
      {"DuplicateAlarm", 14, OnSaved<NewAlarm, &CSession::DuplicateAlarm>},
      {"DuplicateTask", 10, OnSaved<NewTask, &CSession::DuplicateTask>},
      {"DuplicateTask with two children", 12, OnSavedWithChildren<NewTask, &CSession::DuplicateTask>},
      {"DuplicateContact", 4, OnSaved<NewContact, &CSession::DuplicateContact>},
      {"DuplicateNote", 4, OnSaved<NewNote, &CSession::DuplicateNote>},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfDeleteAreItsStatementsAndTheCommit) {
  static constexpr Operation kOperations[] = {
      {"DeleteCategory", 7, OnSaved<NewCategory, &CSession::DeleteCategory>},
      {"DeleteRecurrence", 1, OnSaved<NewRule, &CSession::DeleteRecurrence>},
      {"DeleteNotification", 1, OnSaved<NewNotification, &CSession::DeleteNotification>},
      {"DeleteEvent", 5, OnSaved<NewEvent, &CSession::DeleteEvent>},
      {"DeleteEvent with two children", 5, OnSavedWithChildren<NewEvent, &CSession::DeleteEvent>},
      {"DeleteAlarm", 6, OnSaved<NewAlarm, &CSession::DeleteAlarm>},
      {"DeleteTask", 7, OnSaved<NewTask, &CSession::DeleteTask>},
      {"DeleteTask with two children", 7, OnSavedWithChildren<NewTask, &CSession::DeleteTask>},
      {"DeleteTask with a due date", 7, OnSaved<NewTaskWithDueDate, &CSession::DeleteTask>},
      {"DeleteContact", 6, OnSaved<NewContact, &CSession::DeleteContact>},
      {"DeletePhoneLog", 1, OnSaved<NewPhoneLog, &CSession::DeletePhoneLog>},
      {"DeleteNote", 1, OnSaved<NewNote, &CSession::DeleteNote>},
      {"DeleteUser", 1, OnSaved<NewUser, &CSession::DeleteUser>},
  };
  ExpectTrips(kOperations);
}

TEST_F(OperationTripsPostgreSQL, OfAFolderGrowWithWhatLiesInIt) {
  static constexpr Operation kOperations[] = {
      {"CopyFolder of an empty one", 11, CopyFolder<SavedFolder>},
      {"CopyFolder of two with four tasks", 58, CopyFolder<NewBranch>},
      {"DeleteFolder of an empty one", 5, DeleteFolder<SavedFolder>},
      {"DeleteFolder of two with four tasks", 33, DeleteFolder<NewBranch>},
  };
  ExpectTrips(kOperations);
}

}  // namespace
}  // namespace zef::test
