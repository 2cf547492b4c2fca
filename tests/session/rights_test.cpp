#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "tasks/task.h"
#include "tests/support/dump.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

struct Mask {
  std::int32_t rights;
  bool administrator, editor, viewer;
};

void PrintTo(const Mask& mask, std::ostream* out) { *out << mask.rights; }

class RightsMask : public testing::TestWithParam<Mask> {
 protected:
  RightsMask() { session->UserRights = GetParam().rights; }
  Ref<CSession> session = MakeRef<CSession>();
};

TEST_P(RightsMask, TellsTheAdministrator) { EXPECT_EQ(session->IsAdministrator(), GetParam().administrator); }
TEST_P(RightsMask, TellsTheEditor) { EXPECT_EQ(session->IsDataEditor(), GetParam().editor); }
TEST_P(RightsMask, TellsTheViewer) { EXPECT_EQ(session->IsDataViewer(), GetParam().viewer); }

constexpr Mask kMasks[] = {
    {0, false, false, false}, {1, true, false, false}, {2, false, true, false}, {3, true, true, false},
    {4, false, false, true},  {5, true, false, true},  {6, false, true, true},  {7, true, true, true},
    {8, false, false, false}, {-1, true, true, true},
};
INSTANTIATE_TEST_SUITE_P(Masks, RightsMask, testing::ValuesIn(kMasks),
                         [](const auto& test) { return "Index" + std::to_string(test.index); });

TEST(Rights, FreshSessionHasNone) { EXPECT_EQ(MakeRef<CSession>()->UserRights, 0); }

TEST(Rights, FreshSessionHasNoUser) { EXPECT_EQ(MakeRef<CSession>()->UserID, -1); }

TEST(Rights, SetAdministratorReplacesWhatWasThere) {
  const auto session = MakeRef<CSession>();
  session->UserRights = 6;
  session->SetAdministratorRights();
  EXPECT_EQ(session->UserRights, 1);
}

using RightsOnDatabase = SessionTest;

TEST_F(RightsOnDatabase, SurviveDisconnect) {
  session->UserRights = 6;
  session->UserID = 17;
  session->DisconnectFromDatabase();
  EXPECT_EQ(session->UserRights, 6);
  EXPECT_EQ(session->UserID, 17);
}

TEST_F(RightsOnDatabase, SurviveConnecting) {
  const auto fresh = MakeRef<CSession>();
  fresh->UserRights = 6;
  fresh->UserID = 17;
  ASSERT_TRUE(fresh->Connect2DatabaseCS(database.ConnectionString()));
  EXPECT_EQ(fresh->UserRights, 6);
  EXPECT_EQ(fresh->UserID, 17);
}

TEST_F(RightsOnDatabase, SurviveConnectingToAFile) {
  const auto fresh = MakeRef<CSession>();
  fresh->UserRights = 6;
  fresh->UserID = 17;
  ASSERT_TRUE(fresh->Connect2Database(database.path(), "", ""));
  EXPECT_EQ(fresh->UserRights, 6);
  EXPECT_EQ(fresh->UserID, 17);
}

TEST_F(RightsOnDatabase, SetAdministratorAllowsWritingAgain) {
  session->UserRights = 6;
  session->SetAdministratorRights();
  EXPECT_TRUE(session->CreateFolder());
}

TEST_F(RightsOnDatabase, ClientMayWriteWithoutAnyRight) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->Options = 5;
  EXPECT_TRUE(folder->Save());
}

TEST_F(RightsOnDatabase, BitsBeyondTheThreeRefuseNothing) {
  session->UserRights = 8;
  EXPECT_TRUE(session->CreateFolder());
}

/// An operation that a data viewer must not do.
struct Guarded {
  const char* name;
  const char* procedure;
  bool clears;  ///< a record of earlier is gone when the operation has succeeded
  std::function<bool(CSession&)> run;
  const char* recorded_description = "You don't have rights to insert/edit data";
};

void PrintTo(const Guarded& guarded, std::ostream* out) { *out << guarded.name; }

template <class R>
bool SaveNew(CSession& session) {
  const auto record = MakeRef<R>();
  record->SetSession(Ref<CSession>(&session));
  record->ID = 77;
  record->ResetFlags();
  return record->Save();
}

/// Without `ResetFlags`, which would make the alarm save an attachment that it does not have.
bool SaveNewAlarm(CSession& session) {
  const auto alarm = MakeRef<CAlarm>();
  alarm->SetSession(Ref<CSession>(&session));
  alarm->ID = 77;
  alarm->Text = "new";
  return alarm->Save();
}

template <auto Create>
bool Creates(CSession& session) {
  return (session.*Create)() != nullptr;
}
template <auto Duplicate>
bool Duplicates(CSession& session) {
  return (session.*Duplicate)(1) != nullptr;
}
template <auto Delete>
bool Deletes(CSession& session) {
  return (session.*Delete)(1);
}

// The way out of these passes through the rollback, which writes over the texts of the refusal.
constexpr char kRollback[] = "RollbackTransaction";
constexpr char kRolledBack[] = "No transaction is started.";

/// All of them but `DeleteCategory` and `DeleteFolder`, whose refusals touch the connection; the folders' tests show
/// those.
const Guarded kGuarded[] = {
    {"CopyFolder", kRollback, true, [](CSession& s) { return s.CopyFolder(100, 4); }, kRolledBack},
    {"CreateFolder", "CSession.CreateFolder", false, &Creates<&CSession::CreateFolder>},
    {"DuplicateAlarm", "CSession.DuplicateAlarm", true, &Duplicates<&CSession::DuplicateAlarm>},
    {"CreateAlarm", "CSession.CreateAlarm", false, &Creates<&CSession::CreateAlarm>},
    {"DeleteAlarm", kRollback, true, &Deletes<&CSession::DeleteAlarm>, kRolledBack},
    {"DuplicateContact", "CSession.DuplicateContact", true, &Duplicates<&CSession::DuplicateContact>},
    {"CreateContact", "CSession.CreateContact", false, &Creates<&CSession::CreateContact>},
    {"DeleteContact", "CSession.DeleteContact", true, &Deletes<&CSession::DeleteContact>},
    {"DuplicateTask", "CSession.DuplicateTask", true, &Duplicates<&CSession::DuplicateTask>},
    {"CreateTask", "CSession.CreateTask", false, &Creates<&CSession::CreateTask>},
    {"DeleteTask", kRollback, true, &Deletes<&CSession::DeleteTask>, kRolledBack},
    {"CreateNote", "CSession.CreateNote", false, &Creates<&CSession::CreateNote>},
    {"DuplicateNote", "CSession.DuplicateNote", true, &Duplicates<&CSession::DuplicateNote>},
    {"DeleteNote", "CSession.DeleteNote", true, &Deletes<&CSession::DeleteNote>},
    {"CreateEvent", "CSession.CreateEvent", false, &Creates<&CSession::CreateEvent>},
    {"DuplicateEvent", "CSession.DuplicateEvent", true, &Duplicates<&CSession::DuplicateEvent>},
    {"DeleteEvent", kRollback, true, &Deletes<&CSession::DeleteEvent>, kRolledBack},
    {"DeleteUser", "CSession.DeleteUser", true, &Deletes<&CSession::DeleteUser>},
    {"DeletePhoneLog", "CSession.DeletePhoneLog", true, &Deletes<&CSession::DeletePhoneLog>},
    {"CreatePhoneLog", "CSession.CreatePhoneLog", false, &Creates<&CSession::CreatePhoneLog>},
    {"SaveAlarm", "CAlarm.Save", true, &SaveNewAlarm},
    {"SaveContact", "CContact.Save", true, &SaveNew<CContact>},
    {"SaveEvent", "CEvent.Save", true, &SaveNew<CEvent>},
    {"SaveFolder", "CAlarm.Save", true, &SaveNew<CFolder>},
    {"SaveNote", "CNote.Save", true, &SaveNew<CNote>},
    {"SavePhoneLog", "CPhoneLog.Save", true, &SaveNew<CPhoneLog>},
    {"SaveTask", "CTask.Save", true, &SaveNew<CTask>},
    {"SaveCategory", "CCategory.Save", true, &SaveNew<CCategory>},
};

/// A row of each kind, under the identifier 1.
constexpr const char* kRows[] = {
    "INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Name) VALUES (100,0,'Source')",
    "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (1,6,'kept')",
    "INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (1,5,'kept')",
    "INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName) VALUES (1,2,'kept')",
    "INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_Name) VALUES (1,3,'kept')",
    "INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Title) VALUES (1,4,'kept')",
    "INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject) VALUES (1,1,'kept')",
};

class Refusal : public testing::TestWithParam<Guarded> {
 protected:
  Refusal() {
    for (const char* row : kRows) connection().Execute(row);
    session->UserRights = DataViewer;
  }
  Connection& connection() { return *session->conDBConnection; }
  bool Run() { return GetParam().run(*session); }

  Database database;
  Ref<CSession> session = database.OpenSession();
};

TEST_P(Refusal, GivesTheFailureResult) { EXPECT_FALSE(Run()); }

TEST_P(Refusal, RecordsCode105) {
  Run();
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_P(Refusal, RecordsItsProcedure) {
  Run();
  EXPECT_EQ(session->GetErrorProcedure(), GetParam().procedure);
}

TEST_P(Refusal, RecordsItsMessage) {
  Run();
  EXPECT_EQ(session->GetErrorDescription(), GetParam().recorded_description);
}

TEST_P(Refusal, SetsTheErrorFlag) {
  Run();
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST_P(Refusal, ReplacesAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  Run();
  EXPECT_EQ(session->GetErrorCode(), 105);
  EXPECT_EQ(session->GetErrorProcedure(), GetParam().procedure);
}

TEST_P(Refusal, ComesBeforeTheFirstDatabaseAccess) {
  const auto log = Watch(connection());
  Run();
  EXPECT_TRUE(log->texts.empty());
}

TEST_P(Refusal, ChangesNoTable) {
  const std::string before = Dump(connection());
  Run();
  EXPECT_EQ(Dump(connection()), before);
}

TEST_P(Refusal, ComesToAnAdministratorWhoIsAViewerToo) {
  session->UserRights = 5;
  EXPECT_FALSE(Run());
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_P(Refusal, DoesNotComeWithTheOtherRights) {
  session->UserRights = 3;
  EXPECT_TRUE(Run()) << session->GetEntireErrorDesc();
}

TEST_P(Refusal, WhenItDoesNotComeTheOlderRecordGoesOrStays) {
  session->UserRights = 0;
  session->RecordError("Earlier", 77, "seven");
  ASSERT_TRUE(Run()) << session->GetEntireErrorDesc();
  EXPECT_EQ(session->GetErrorFlag(), !GetParam().clears);
}

INSTANTIATE_TEST_SUITE_P(Operations, Refusal, testing::ValuesIn(kGuarded),
                         [](const auto& test) { return std::string(test.param.name); });

using RefusedSave = SessionTest;

TEST_F(RefusedSave, LeavesTheRowAlone) {
  const Ref<CFolder> folder = session->GetFolder(1);
  session->UserRights = DataViewer;
  folder->Name = "Renamed";
  folder->Save();
  EXPECT_EQ(Scalar("SELECT FLD_Name FROM Folders WHERE FLD_ID=1"), "Calendar");
}

TEST_F(RefusedSave, LeavesTheFlags) {
  const Ref<CFolder> folder = session->GetFolder(1);
  session->UserRights = DataViewer;
  folder->Name = "Renamed";
  folder->Save();
  EXPECT_TRUE(folder->IsModified());
  EXPECT_FALSE(folder->IsNew());
}

TEST_F(RefusedSave, ComesEvenToAnUnchangedRecord) {
  const Ref<CFolder> folder = session->GetFolder(1);
  session->UserRights = DataViewer;
  EXPECT_FALSE(folder->Save());
}

TEST_F(RefusedSave, LeavesARunningTransactionRunning) {
  const Ref<CFolder> folder = session->GetFolder(1);
  session->BeginTransaction();
  session->UserRights = DataViewer;
  folder->Save();
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(RefusedSave, DoesNotKeepAViewerFromReading) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(session->GetFolder(1));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(RefusedSave, DoesNotKeepAViewerFromDrawingNumbers) {
  session->UserRights = DataViewer;
  std::int32_t id = 0;
  EXPECT_EQ(session->GetUniqueIDFromSeq(12, id), 1);
}

}  // namespace
}  // namespace zef::test
