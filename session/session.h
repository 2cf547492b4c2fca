#pragma once

#include <cstdint>
#include <string>

#include "platform/connection.h"
#include "platform/reference.h"
#include "session/record_classes.h"

namespace zef {

struct TreeWalk;

/// Bits of a user's rights. They are tested one at a time; a mask may hold more than one.
enum Rights : std::int32_t { Administrator = 1, DataEditor = 2, DataViewer = 4 };

/// What a client keeps: one connection, one error record, one transaction flag and the identity of the working user.
/// Every record reaches the database through its session. A session and all that it hands out belong to one thread;
/// sessions share nothing. Make one with `MakeRef`: it is counted, and one on the stack would be destroyed twice.
/// Operations trap their failures: they write them to the error record and return False, 0, -1 or Nothing. Without a
/// connection, in which failures are looked up, they raise 91. `Create...`, `Duplicate...` and `Load...4Folder` trap
/// nothing beyond what the operations inside them do; others that raise say so.
class CSession : public RefCounted<CSession> {
 public:
  CSession() = default;
  CSession(const CSession&) = delete;
  CSession& operator=(const CSession&) = delete;

  /// The open connection, or Nothing; readable and assignable by clients.
  Ref<Connection> conDBConnection;
  /// Rights mask and identifier of the working user; the client writes them, the library only reads them.
  std::int32_t UserRights = 0;
  std::int32_t UserID = -1;

  /// True while a transaction opened through `BeginTransaction` runs.
  bool TransactionStarted() const { return TransactionFlag; }

  // The error record. One per session: a second failure overwrites the first.

  /// Empties the record; its code becomes 0.
  void ClearError();
  const std::string& GetErrorDescription() const { return ErrorDescription; }
  const std::string& GetErrorProcedure() const { return ErrorProcedure; }
  bool GetErrorFlag() const { return ErrorFlag; }
  /// Raises 13 until a code was recorded or the record cleared: the code is kept as text, and the empty text is no
  /// number.
  std::int32_t GetErrorCode() const;
  /// "[procedure] Error: code - description".
  std::string GetEntireErrorDesc() const;
  bool IsConnected() const { return Connected; }
  /// Writes the record. A code above 0 is stored with the message; otherwise the first entry of the connection's error
  /// list counts, however old it is, or else the failure now being handled. Raises 91 without a connection if the code
  /// is not above 0.
  void RecordError(const std::string& strProcedure, std::int32_t lngCode = 0, const std::string& strMessage = {});

  // Connecting. These three trap nothing: they return True or raise.

  /// Opens a database file. `UserName` plays no part; an empty password means an unprotected file. A file name or
  /// password with a `;`, or a password with blanks at its ends, must come between quotation marks. On a failure
  /// `Connected` keeps its value.
  bool Connect2Database(const std::string& DatabaseName, const std::string& UserName, const std::string& Password);
  /// Opens what a connection string names.
  bool Connect2DatabaseCS(const std::string& ConnectionString);
  /// Closes the connection and lets it go; a transaction that is open is undone, its flag stays. Raises 91 without a
  /// connection.
  bool DisconnectFromDatabase();

  // Transactions. No nesting: a second begin is refused and leaves the first one running. None of the three clears the
  // record first.

  bool BeginTransaction();
  bool CommitTransaction();
  bool RollbackTransaction();

  bool IsAdministrator() const { return (UserRights & Rights::Administrator) != 0; }
  bool IsDataEditor() const { return (UserRights & Rights::DataEditor) != 0; }
  bool IsDataViewer() const { return (UserRights & Rights::DataViewer) != 0; }
  /// Sets the rights to exactly 1 and reads no table.
  void SetAdministratorRights() { UserRights = Rights::Administrator; }

  /// Issues the next identifier of a sequence into `lngID`; with a larger batch, the highest of them. Runs in a
  /// transaction of its own, inside one of the session if that runs. Returns 1, or 0 on a failure. Leaves the error
  /// record alone unless it fails.
  std::int32_t GetUniqueIDFromSeq(std::int32_t lngSeqID, std::int32_t& lngID, std::int32_t lngBatchSize = 1);

  // Folders.

  Ref<CFolder> GetFolder(std::int32_t FolderID);
  Ref<CFolder> CreateFolder();
  /// Identifier of the first folder that meets the condition, or -1; an empty condition takes any folder.
  std::int32_t GetFolderIDByCriteria(const std::string& strCriteria);
  std::int32_t GetFolderID4PhoneCallNotes();
  std::int32_t GetFolderID4Completedtasks();
  bool LoadRootFolders(const Ref<CFolders>& udtFolders);
  bool LoadChildFolders(const Ref<CFolders>& udtFolders, std::int32_t lngParentId);
  bool LoadFoldersWithCriteria(const Ref<CFolders>& udtFolders, const std::string& strCriteria);
  /// Copies a folder with all that lies in and below it under another folder, which must exist. In a transaction that
  /// is opened in any case: inside one of the client it fails and undoes that one. Fails with 28 for a copy into the
  /// folder itself, for folder rows that go in a circle and for a tree of more than 1000 levels, counted from the
  /// source down and from the destination up. An unknown folder gives False with a clear record.
  bool CopyFolder(std::int32_t FolderID, std::int32_t lngNewParentID);
  /// Deletes a folder with all that lies in and below it, protected ones too. May run inside a client's transaction as
  /// long as there are no tasks, events or alarms to delete: those make it fail and undo that one. Fails with 28 as
  /// `CopyFolder` does, and an unknown folder gives False with a clear record. Raises only if what it has done cannot
  /// be undone, and its transaction is open then.
  bool DeleteFolder(std::int32_t lngFolderID);

  // Categories.

  Ref<CCategory> GetCategory(std::int32_t CategoryID);
  /// Identifier of the first category of that name, or -1.
  std::int32_t GetCategoryID4Name(const std::string& strConnectName);
  /// Deletes a category and clears all references to it. May run inside a client's transaction. Raises as
  /// `DeleteFolder` does. A refusal raises -2147168242 where no transaction runs. Where one does, it undoes that one
  /// and leaves the flag, so that the session can neither end nor begin one until the client calls `BeginTrans` of the
  /// connection and then `RollbackTransaction`.
  bool DeleteCategory(std::int32_t lngCategoryID);
  bool LoadCategoriesWithCriteria(const Ref<CCategories>& udtCategories, const std::string& strCriteria);

  // Rules and notifications.

  Ref<CRecurrence> GetRecurrence(std::int32_t lngRecurrenceID);
  bool DeleteRecurrence(std::int32_t lngRecurrenceID);
  Ref<CNotification> GetNotification(std::int32_t lngNotificationID);
  bool DeleteNotification(std::int32_t lngNotificationID);

  // Events.

  Ref<CEvent> GetEvent(std::int32_t EventID);
  bool LoadEvents4Folder(const Ref<CEvents>& udtEvents, std::int32_t lngFolderID);
  bool LoadEventsWithCriteria(const Ref<CEvents>& udtEvents, const std::string& strCriteria);
  Ref<CEvent> CreateEvent();
  Ref<CEvent> DuplicateEvent(std::int32_t lngOldEventID);
  /// Deletes an event and its children in a transaction of its own. Inside a transaction of the client it fails and
  /// undoes that one.
  bool DeleteEvent(std::int32_t lngEventID);

  // Alarms.

  Ref<CAlarm> GetAlarm(std::int32_t AlarmID);
  Ref<CAlarm> DuplicateAlarm(std::int32_t lngOldAlarmID);
  Ref<CAlarm> CreateAlarm();
  bool LoadAlarms4Folder(const Ref<CAlarms>& udtAlarms, std::int32_t lngFolderID);
  bool LoadAlarmsWithCriteria(const Ref<CAlarms>& udtAlarms, const std::string& strCriteria);
  /// Deletes an alarm and its children in a transaction of its own, as `DeleteEvent` does.
  bool DeleteAlarm(std::int32_t lngAlarmID);

  // Tasks.

  Ref<CTask> GetTask(std::int32_t TaskID);
  /// An unsaved copy of a stored task under new identifiers, or Nothing.
  Ref<CTask> DuplicateTask(std::int32_t lngOldTaskID);
  Ref<CTask> CreateTask();
  bool LoadTasks4Folder(const Ref<CTasks>& udtTasks, std::int32_t lngFolderID);
  bool LoadTasksWithCriteria(const Ref<CTasks>& udtTasks, const std::string& strCriteria);
  /// Deletes a task, its children and its due-date event in a transaction of its own, as `DeleteEvent` does.
  bool DeleteTask(std::int32_t lngTaskID);

  // Contacts and calls.

  Ref<CContact> GetContact(std::int32_t ContactID);
  /// An unsaved copy of a stored contact under a new identifier, or Nothing.
  Ref<CContact> DuplicateContact(std::int32_t lngOldContactID);
  bool LoadContacts4Folder(const Ref<CContacts>& udtContacts, std::int32_t lngFolderID);
  bool LoadContactsWithCriteria(const Ref<CContacts>& udtContacts, const std::string& strCriteria);
  /// Identifiers and full names of the contacts that meet the condition.
  bool LoadContactTagsWithCriteria(const Ref<CTags>& udtContactTags, const std::string& strCriteria);
  Ref<CContact> CreateContact();
  /// Deletes a contact with its birthday and anniversary events; joins a transaction that runs.
  bool DeleteContact(std::int32_t lngContactID);
  /// Runs a client's statement and takes the columns "ID" and "FolderID" of its first row; without a row both arguments
  /// stay. Traps nothing.
  bool GetObjectID(const std::string& strSearch, std::int32_t& lngID, std::int32_t& lngFolderID);
  /// Identifier of the first contact with this number in one of its four phone columns, or -1. The database compares:
  /// every blank and hyphen counts, letter case does not. The number stands in the statement as it came.
  std::int32_t GetContactIDByPhoneNumber(const std::string& strNumber);

  Ref<CPhoneLog> GetPhoneLog(std::int32_t PhoneLogID);
  bool DeletePhoneLog(std::int32_t lngPhoneLogID);
  bool LoadPhoneLogsWithCriteria(const Ref<CPhoneLogs>& udtPhoneLogs, const std::string& strCriteria);
  Ref<CPhoneLog> CreatePhoneLog();

  // Notes and attachments.

  Ref<CNote> GetNote(std::int32_t NoteID);
  Ref<CNote> CreateNote();
  /// An unsaved copy of a stored note under a new identifier, or Nothing.
  Ref<CNote> DuplicateNote(std::int32_t lngOldNoteID);
  bool DeleteNote(std::int32_t lngNoteID);
  bool LoadNotes4Folder(const Ref<CNotes>& udtNotes, std::int32_t lngFolderID);
  bool LoadNotesWithCriteria(const Ref<CNotes>& udtNotes, const std::string& strCriteria);

  Ref<CAttachement> GetAttachement(std::int32_t lngAttachementID);
  /// Checks no rights; a cache file stays where it is.
  bool DeleteAttachement(std::int32_t lngAttachementID);

  // Users.

  Ref<CUser> GetUser(std::int32_t UserID);
  /// Number of all users, or -1.
  std::int32_t GetUsersNo();
  /// Identifier of the first user of that name, or -1.
  std::int32_t GetUserID4Name(const std::string& strConnectName);
  /// The first user with that name and password, or Nothing, with no error in the record if there is none. A password
  /// of blanks only stands for none. The database compares, so letter case does not count. Leaves `UserRights` and
  /// `UserID` to the client.
  Ref<CUser> CheckUser(const std::string& strConnectName, const std::string& strConnectPwd);
  bool DeleteUser(std::int32_t lngUserID);
  /// Identifiers and full names of the users that meet the condition. A Null in one of them is a failure.
  bool LoadUserTags(const Ref<CTags>& udtUserTags, const std::string& strCriteria);
  bool LoadUsersWithCriteria(const Ref<CUsers>& udtUsers, const std::string& strCriteria);

  // Lookup lists: identifiers and names. Single entries are Nothing if there is no such row; a Null in a row is a
  // failure.

  bool LoadTaskStatusList(const Ref<CTags>& udtStatusList);
  bool LoadTaskPriorityList(const Ref<CTags>& udtPriorityList);
  bool LoadStateTags(const Ref<CTags>& udtStateTags);
  bool LoadCountryTags(const Ref<CTags>& udtCountryTags);
  Ref<CTag> GetTaskStatus(std::int32_t StatusID);
  Ref<CTag> GetTaskPriority(std::int32_t PriorityID);
  Ref<CTag> GetStateTag(std::int32_t lngStateID);
  Ref<CTag> GetCountryTag(std::int32_t lngCountryID);

  // The version of the database, and the steps that bring an older one to 9.2.4. A client calls those that it needs, in
  // their order. They use no transaction: each statement stands once it has run. A step that failed can be run again; a
  // column that it had added but not yet filled stays as it is. A failure may leave its sentence in the description
  // alone, with the error flag not set. `strErrorMsg` is neither read nor written.

  /// The version and kind of the database; without a row both arguments stay.
  bool GetDBInfo(std::string& strVersion, std::string& strType);
  /// From any version that begins with "9.1."; True without any work for another. On success this and the next three
  /// set `strVersion` to the version reached, else it stays.
  bool UpgradeDBToVersion9_2_1(std::string& strVersion, std::string& strErrorMsg);
  /// These three run whatever the version is: the client makes sure that it is the one before.
  bool UpgradeDBToVersion9_2_2(std::string& strVersion, std::string& strErrorMsg);
  bool UpgradeDBToVersion9_2_3(std::string& strVersion, std::string& strErrorMsg);
  bool UpgradeDBToVersion9_2_4(std::string& strVersion, std::string& strErrorMsg);

 private:
  bool CopyFolderRecursive(std::int32_t source, std::int32_t new_parent, const TreeWalk& walk);
  bool DeleteFolderRecursive(std::int32_t folder, const TreeWalk& walk);
  bool EndTransaction(const char* procedure, void (Connection::*end)());
  bool ReportMisuse(const char* procedure, const char* description);

  bool ErrorFlag = false;
  std::string ErrorCode;  ///< decimal text; empty until a code is recorded or the record cleared
  std::string ErrorDescription;
  std::string ErrorProcedure;
  bool Connected = false;
  std::string ConnectionString;
  bool TransactionFlag = false;
};

}  // namespace zef
