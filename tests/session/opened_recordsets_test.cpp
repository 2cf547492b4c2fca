#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "calendar/notification.h"
#include "calendar/recurrence.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/attachement.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/session_test.h"
#include "users/user.h"

namespace zef::test {
namespace {

/// An operation and the record sets that it opens: cursor type, lock type and options of each, and what the engine is
/// asked for.
struct Opening {
  const char* name;
  std::function<void(CSession&)> run;
  std::string opened;

  friend void PrintTo(const Opening& opening, std::ostream* out) { *out << opening.name; }
};

std::string Shown(const std::vector<OpenedRecordset>& opened) {
  std::string text;
  for (const auto& [statement, request, options] : opened) {
    text += (text.empty() ? "" : "; ") + std::to_string(request.cursor_type) + " " + std::to_string(request.lock_type) +
            " " + std::to_string(request.options) + (options.updatable ? " updatable" : "") +
            (options.lock_rows ? " locked" : "");
  }
  return text;
}

class OpenedRecordsets : public SessionTest, public testing::WithParamInterface<Opening> {
 protected:
  OpenedRecordsets() {
    connection().Execute("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (5,3)");
    connection().Execute("INSERT INTO Events (EVE_ID,EVE_FolderID) VALUES (6,1)");
    connection().Execute("INSERT INTO Attachements (ATC_ID) VALUES (7)");
    log_ = Watch(connection());
  }
  std::shared_ptr<EngineLog> log_;
};

TEST_P(OpenedRecordsets, AskForTheirCursorLockAndOptions) {
  GetParam().run(*session);
  EXPECT_EQ(Shown(log_->opened), GetParam().opened);
}

const std::string kReading = "3 3 1 updatable";
const std::string kSequence = "0 2 -1 updatable locked";

const Opening kOpenings[] = {
    {"GetFolder", [](CSession& s) { s.GetFolder(8); }, kReading},
    {"GetTask", [](CSession& s) { s.GetTask(5); }, kReading},
    {"GetEvent", [](CSession& s) { s.GetEvent(6); }, kReading},
    {"GetCategory", [](CSession& s) { s.GetCategory(1); }, kReading},
    {"GetAlarm", [](CSession& s) { s.GetAlarm(1); }, kReading},
    {"GetContact", [](CSession& s) { s.GetContact(1); }, kReading},
    {"GetPhoneLog", [](CSession& s) { s.GetPhoneLog(1); }, kReading},
    {"GetAttachement", [](CSession& s) { s.GetAttachement(1); }, kReading},
    {"GetNote", [](CSession& s) { s.GetNote(1); }, "3 3 33 updatable"},
    {"GetCategoryID4Name", [](CSession& s) { s.GetCategoryID4Name("Home"); }, kReading},
    {"GetRecurrence", [](CSession& s) { s.GetRecurrence(1); }, kReading},
    {"GetNotification", [](CSession& s) { s.GetNotification(1); }, kReading},
    {"GetFolderIDByCriteria", [](CSession& s) { s.GetFolderIDByCriteria("FLD_ID=8"); }, kReading},
    {"GetFolderID4PhoneCallNotes", [](CSession& s) { s.GetFolderID4PhoneCallNotes(); }, kReading},
    {"GetFolderID4Completedtasks", [](CSession& s) { s.GetFolderID4Completedtasks(); }, kReading},
    {"LoadFoldersWithCriteria", [](CSession& s) { s.LoadFoldersWithCriteria(MakeRef<CFolders>(), ""); }, kReading},
    {"LoadTasksWithCriteria", [](CSession& s) { s.LoadTasksWithCriteria(MakeRef<CTasks>(), ""); }, kReading},
    {"LoadEventsWithCriteria", [](CSession& s) { s.LoadEventsWithCriteria(MakeRef<CEvents>(), ""); }, kReading},
    {"LoadNotesWithCriteria", [](CSession& s) { s.LoadNotesWithCriteria(MakeRef<CNotes>(), ""); }, kReading},
    {"LoadContactsWithCriteria", [](CSession& s) { s.LoadContactsWithCriteria(MakeRef<CContacts>(), ""); }, kReading},
    {"LoadContactTags", [](CSession& s) { s.LoadContactTagsWithCriteria(MakeRef<CTags>(), ""); }, kReading},
    {"LoadAlarmsWithCriteria", [](CSession& s) { s.LoadAlarmsWithCriteria(MakeRef<CAlarms>(), ""); }, kReading},
    {"LoadCategories", [](CSession& s) { s.LoadCategoriesWithCriteria(MakeRef<CCategories>(), ""); }, kReading},
    {"LoadPhoneLogs", [](CSession& s) { s.LoadPhoneLogsWithCriteria(MakeRef<CPhoneLogs>(), ""); }, kReading},
    {"GetUser", [](CSession& s) { s.GetUser(1); }, kReading},
    {"GetUsersNo", [](CSession& s) { s.GetUsersNo(); }, kReading},
    {"GetUserID4Name", [](CSession& s) { s.GetUserID4Name("Admin"); }, kReading},
    {"CheckUser", [](CSession& s) { s.CheckUser("Admin", ""); }, kReading},
    {"LoadUserTags", [](CSession& s) { s.LoadUserTags(MakeRef<CTags>(), ""); }, kReading},
    {"LoadUsersWithCriteria", [](CSession& s) { s.LoadUsersWithCriteria(MakeRef<CUsers>(), ""); }, kReading},
    {"LoadTaskStatusList", [](CSession& s) { s.LoadTaskStatusList(MakeRef<CTags>()); }, kReading},
    {"LoadTaskPriorityList", [](CSession& s) { s.LoadTaskPriorityList(MakeRef<CTags>()); }, kReading},
    {"LoadStateTags", [](CSession& s) { s.LoadStateTags(MakeRef<CTags>()); }, kReading},
    {"LoadCountryTags", [](CSession& s) { s.LoadCountryTags(MakeRef<CTags>()); }, kReading},
    {"GetTaskStatus", [](CSession& s) { s.GetTaskStatus(1); }, kReading},
    {"GetTaskPriority", [](CSession& s) { s.GetTaskPriority(1); }, kReading},
    {"GetStateTag", [](CSession& s) { s.GetStateTag(1); }, kReading},
    {"GetCountryTag", [](CSession& s) { s.GetCountryTag(1); }, kReading},
    {"GetDBInfo",
     [](CSession& s) {
       std::string version, type;
       s.GetDBInfo(version, type);
     },
     kReading},
    {"CreateTask", [](CSession& s) { s.CreateTask(); }, kSequence},
    {"DuplicateEvent", [](CSession& s) { s.DuplicateEvent(6); },
     kReading + "; " + kSequence + "; " + kSequence + "; " + kSequence},
    {"GetUniqueIDFromSeq",
     [](CSession& s) {
       std::int32_t id = 0;
       s.GetUniqueIDFromSeq(3, id);
     },
     kSequence},
    // What these read they read through the connection.
    {"DeleteEvent", [](CSession& s) { s.DeleteEvent(6); }, ""},
    {"UpgradeDBToVersion9_2_1",
     [](CSession& s) {
       std::string version = "9.1.", message;
       s.UpgradeDBToVersion9_2_1(version, message);
     },
     ""},
    // Its missing file fails an attachment only once the record set stands.
    {"SaveOfANewAttachement",
     [](CSession& s) {
       const auto attachement = MakeRef<CAttachement>();
       attachement->SetSession(Ref<CSession>(&s));
       attachement->Name = "score";
       attachement->Save();
     },
     kSequence + "; 3 3 2 updatable"},
    {"SaveOfAChangedAttachement",
     [](CSession& s) {
       const Ref<CAttachement> attachement = s.GetAttachement(7);
       attachement->Name = "score";
       attachement->Save();
     },
     kReading + "; " + kReading},
    {"Cache2File", [](CSession& s) { s.GetAttachement(7)->Cache2File(); }, kReading + "; " + kReading},
    {"SaveOfAnUnchangedFolder", [](CSession& s) { s.GetFolder(8)->Save(); }, kReading},
    {"RefreshOfATask", [](CSession& s) { s.GetTask(5)->Refresh(); }, kReading},
};
INSTANTIATE_TEST_SUITE_P(Operations, OpenedRecordsets, testing::ValuesIn(kOpenings),
                         [](const auto& opening) { return std::string(opening.param.name); });

}  // namespace
}  // namespace zef::test
