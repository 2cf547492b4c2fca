#include <algorithm>
#include <string>
#include <vector>

#include "folders/folder.h"
#include "platform/text.h"
#include "session/operations.h"
#include "upgrade/bas_adox.h"
#include "upgrade/steps.h"

namespace zef {
namespace {

// The guards compare upper-case names. The statements stand as databases in the field have always been upgraded, blanks
// at the ends included.

constexpr const char* kProtectRoots[] = {
    "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Alarms' AND FLD_ParentID=0",
    "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Notes' AND FLD_ParentID=0",
    "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Calendar' AND FLD_ParentID=0",
    "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Contacts' AND FLD_ParentID=0",
};

constexpr SystemFolder kFolders[] = {
    {"All Events", "Calendar", FT_EVENTS, "Cannot find Calendar folder"},
    {"Completed Tasks", "Tasks", FT_TASKS, "Cannot find Tasks folder"},
    {"Phone Call Notes", "Notes", FT_Notes, "Cannot find Notes folder"},
    {"Tasks Due Dates", "Calendar", FT_EVENTS, "Cannot find Events folder"},
    {"Anniversaries", "Calendar", FT_EVENTS, "Cannot find Events folder"},
    {"Birthdays", "Calendar", FT_EVENTS, "Cannot find Events folder"},
};

/// A relationship that holds a column which goes; without a name it has that of its tables.
struct Relationship {
  const char* primary;
  const char* foreign;
  const char* name;
};

constexpr Relationship kRelationships[] = {
    {"lstTaskPriority", "Tasks", ""},
    {"Categories", "Notes", ""},
    {"lstStates", "Contacts", "lstStatesContacts"},
    {"lstStates", "Contacts", "lstStatesContacts1"},
    {"lstCountries", "Contacts", "lstCountriesContacts"},
    {"lstCountries", "Contacts", "lstCountriesContacts1"},
};

/// A reference to a list that becomes the name that it refers to.
struct Reference {
  const char* table;
  const char* guard;
  const char* add;
  const char* copy;
  const char* drop;
};

constexpr Reference kReferences[] = {
    {"Tasks", "TSK_PRIORITY", "ALTER TABLE TASKS ADD COLUMN TSK_PRIORITY Text(64) NULL",
     "UPDATE TASKS,lstTaskPriority SET TSK_PRIORITY =lstTaskPriority.TP_Name WHERE lstTaskPriority.TP_ID = "
     "Tasks.TSK_PriorityID",
     "ALTER TABLE TASKS DROP COLUMN TSK_PRIORITYID"},
    {"Contacts", "CNT_STATE", "ALTER TABLE Contacts ADD COLUMN CNT_STATE Text(128) NULL",
     "UPDATE Contacts,lstStates SET CNT_STATE =lstStates.ST_Name WHERE lstStates.ST_ID = Contacts.CNT_StateID",
     "ALTER TABLE CONTACTS DROP COLUMN CNT_STATEID"},
    {"Contacts", "CNT_COUNTRY", "ALTER TABLE Contacts ADD COLUMN CNT_Country Text(128) NULL",
     "UPDATE Contacts,lstCountries SET CNT_Country =lstCountries.COU_Name WHERE lstCountries.COU_ID = "
     "Contacts.CNT_CountryID",
     "ALTER TABLE CONTACTS DROP COLUMN CNT_CountryID"},
    {"Contacts", "CNT_WORKSTATE", "ALTER TABLE Contacts ADD COLUMN CNT_WorkSTATE Text(128) NULL",
     "UPDATE Contacts,lstStates SET CNT_WorkState =lstStates.ST_Name WHERE lstStates.ST_ID = Contacts.CNT_WorkStateID",
     "ALTER TABLE CONTACTS DROP COLUMN CNT_WorkStateID"},
    {"Contacts", "CNT_WORKCOUNTRY", "ALTER TABLE Contacts ADD COLUMN CNT_WorkCountry Text(128) NULL",
     "UPDATE Contacts,lstCountries SET CNT_WorkCountry =lstCountries.COU_Name WHERE lstCountries.COU_ID = "
     "Contacts.CNT_WorkCountryID",
     "ALTER TABLE CONTACTS DROP COLUMN CNT_WorkCountryID"},
};

/// The names of a table's columns as they are now.
class ColumnsOf {
 public:
  ColumnsOf(CSession& session, const std::string& table) {
    const Ref<Recordset> rs = Select(session, "SELECT * FROM " + table + " WHERE 0=1");
    for (std::int32_t i = 0; i < rs->Fields().Count(); ++i) {
      names_.push_back(text::UpperCase(rs->Fields().Item(i).Name()));
    }
    rs->Close();
  }
  bool Lack(const char* guard) const { return std::find(names_.begin(), names_.end(), guard) == names_.end(); }

 private:
  std::vector<std::string> names_;
};

bool HasRow(CSession& session, const char* select) {
  const Ref<Recordset> rs = Select(session, select);
  const bool has = !rs->EndOfFile();
  rs->Close();
  return has;
}

void UpgradeEvents(CSession& session) {
  const ColumnsOf events(session, "Events");
  Execute(session, "ALTER TABLE EVENTS ALTER COLUMN EVE_TEXT TEXT(255) ");
  if (events.Lack("EVE_TYPE")) {
    Execute(session, "ALTER TABLE EVENTS ADD COLUMN EVE_TYPE TEXT(1) NULL");
    Execute(session, "UPDATE EVENTS SET EVE_TYPE = 'E' ");
  }
  if (events.Lack("EVE_LINKID")) {
    Execute(session, "ALTER TABLE EVENTS ADD COLUMN EVE_LinkID Long NULL");
    Execute(session, "UPDATE EVENTS SET EVE_LinkID = -1");
  }
}

/// The root folder of tasks may bear an older name; it takes the new one unless another folder has that already.
void ProtectTasks(CSession& session) {
  const bool renamed = HasRow(session, "SELECT * FROM Folders WHERE FLD_Name='Task' AND FLD_ParentID=0") &&
                       !HasRow(session, "SELECT * FROM Folders WHERE FLD_Name='Tasks' AND FLD_ParentID=0");
  Execute(session, renamed ? "UPDATE Folders SET FLD_Protected = 1, FLD_Name='Tasks' WHERE FLD_Name='Task' AND "
                             "FLD_ParentID=0"
                           : "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Tasks' AND FLD_ParentID=0");
}

void ProtectFolders(CSession& session) {
  if (ColumnsOf(session, "Folders").Lack("FLD_PROTECTED")) {
    Execute(session, "ALTER TABLE Folders ADD COLUMN FLD_Protected Byte NULL");
    Execute(session, "UPDATE Folders SET FLD_Protected = 0");
  }
  for (const char* statement : kProtectRoots) Execute(session, statement);
  ProtectTasks(session);
}

void ReplaceByName(CSession& session, const Reference& reference) {
  if (!ColumnsOf(session, reference.table).Lack(reference.guard)) return;
  for (const char* statement : {reference.add, reference.copy, reference.drop}) Execute(session, statement);
}

}  // namespace

bool CSession::UpgradeDBToVersion9_2_1(std::string& strVersion, std::string& /*strErrorMsg*/) {
  return Trapped(*this, "UpgradeDBToVersion9_2_1", false, [&] {
    Catalog catalog;
    catalog.SetActiveConnection(conDBConnection);
    if (!strVersion.starts_with("9.1.")) return true;
    UpgradeEvents(*this);
    ProtectFolders(*this);
    for (const SystemFolder& folder : kFolders) {
      if (!EnsureFolder(*this, folder, ErrorDescription)) return false;
    }
    Execute(*this, "ALTER TABLE NOTES ALTER COLUMN NOT_Title Memo ");
    for (const auto& [primary, foreign, name] : kRelationships) {
      if (!DeleteRelationship(catalog, primary, foreign, name, ErrorDescription)) return false;
    }
    for (const Reference& reference : kReferences) ReplaceByName(*this, reference);
    return StampVersion(*this, "9.2.1", strVersion);
  });
}

}  // namespace zef
