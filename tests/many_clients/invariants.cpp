#include "tests/many_clients/invariants.h"

#include "tests/support/database.h"

namespace zef::test {
namespace {

/// A rule in words, and the rows that break it.
struct Rule {
  const char* text;
  const char* rows;
};

constexpr Rule kRules[] = {
    {"A task with a due date has one event.",
     "Tasks WHERE TSK_DueDate<>#1899-12-30# AND (SELECT Count(*) FROM Events WHERE EVE_Type='T' AND "
     "EVE_LinkID=TSK_ID)<>1"},
    {"An event of a due date belongs to a task with a due date.",
     "Events WHERE EVE_Type='T' AND EVE_LinkID NOT IN (SELECT TSK_ID FROM Tasks WHERE TSK_DueDate<>#1899-12-30#)"},
    {"A contact with a birthday has one event.",
     "Contacts WHERE CNT_BirthDate<>#1899-12-30# AND (SELECT Count(*) FROM Events WHERE EVE_Type='B' AND "
     "EVE_LinkID=CNT_ID)<>1"},
    {"An event of a birthday belongs to a contact with a birthday.",
     "Events WHERE EVE_Type='B' AND EVE_LinkID NOT IN (SELECT CNT_ID FROM Contacts WHERE "
     "CNT_BirthDate<>#1899-12-30#)"},
    {"A task has its rule.",
     "Tasks WHERE TSK_RecurrenceID>0 AND TSK_RecurrenceID NOT IN (SELECT REC_ID FROM Recurrences)"},
    {"A task has its notification.",
     "Tasks WHERE TSK_NotificationID>0 AND TSK_NotificationID NOT IN (SELECT NTF_ID FROM Notifications)"},
    {"An event has its rule.",
     "Events WHERE EVE_RecurrenceID>0 AND EVE_RecurrenceID NOT IN (SELECT REC_ID FROM Recurrences)"},
    {"A notification belongs to a task.",
     "Notifications WHERE NTF_ID NOT IN (SELECT TSK_NotificationID FROM Tasks WHERE TSK_NotificationID>0)"},
    {"A task lies in a folder.", "Tasks WHERE TSK_FolderID>0 AND TSK_FolderID NOT IN (SELECT FLD_ID FROM Folders)"},
    {"A contact lies in a folder.",
     "Contacts WHERE CNT_FolderID>0 AND CNT_FolderID NOT IN (SELECT FLD_ID FROM Folders)"},
    {"An event lies in a folder.", "Events WHERE EVE_FolderID>0 AND EVE_FolderID NOT IN (SELECT FLD_ID FROM Folders)"},
    {"A folder lies in a folder.",
     "Folders WHERE FLD_ParentID>0 AND FLD_ParentID NOT IN (SELECT FLD_ID FROM Folders AS Parents)"},
    {"No contact's number is above its sequence.",
     "Contacts WHERE CNT_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=1)"},
    {"No task's number is above its sequence.", "Tasks WHERE TSK_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=2)"},
    {"No event's number is above its sequence.",
     "Events WHERE EVE_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=4)"},
    {"No notification's number is above its sequence.",
     "Notifications WHERE NTF_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=7)"},
    {"No rule's number is above its sequence.",
     "Recurrences WHERE REC_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=8)"},
    {"No folder's number is above its sequence.",
     "Folders WHERE FLD_ID>(SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=12)"},
};

}  // namespace

std::string BrokenInvariants(Connection& connection) {
  std::string broken;
  for (const Rule& rule : kRules) {
    const std::int32_t rows = Count(connection, rule.rows);
    if (rows != 0) broken += std::string(rule.text) + " Not so: " + std::to_string(rows) + ".\n";
  }
  return broken;
}

}  // namespace zef::test
