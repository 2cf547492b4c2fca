#include "tests/support/filled_database.h"

#include "platform/recordset.h"
#include "platform/text.h"
#include "platform/transaction_guard.h"
#include "tests/support/dump.h"

namespace zef::test {
namespace {

constexpr const char* kRows[] = {
    "INSERT INTO Categories (CAT_ID,CAT_Name,CAT_Color) VALUES (1,'Red',255)",
    "INSERT INTO Recurrences (REC_ID,REC_Type,REC_EndDate) VALUES (1,2,'6/7/2024')",
    "INSERT INTO Notifications (NTF_ID,NTF_Subject,NTF_Message) VALUES (1,'It''s due','Long')",
    "INSERT INTO Attachements (ATC_ID,ATC_Name,ATC_FileName) VALUES (1,'Ünder','/tmp/x')",
    "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_RecurrenceID,EVE_Text,EVE_StartDate) VALUES (1,1,1,'Lunch',"
    "'5/1/2024 12:30:00 PM')",
    "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text) VALUES (2,77,Null)",
    "INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES (1,1,'5/1/2024')",
    "INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_Text) VALUES (1,5,'Wake')",
    "INSERT INTO ViewedAlarms (VA_AlarmID,VA_UserID,VA_Date) VALUES (1,1,'5/1/2024')",
    "INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_PriorityID,TSK_StatusID,TSK_Name) VALUES (1,3,3,2,'O''Neill''s')",
    "INSERT INTO Tasks (TSK_ID,TSK_PriorityID,TSK_Name,TSK_DueDate) VALUES (2,Null,'Null','12/30/1899')",
    "INSERT INTO Tasks (TSK_ID,TSK_PriorityID,TSK_Name) VALUES (3,99,'dangling')",
    "INSERT INTO Tasks (TSK_ID,TSK_PriorityID,TSK_Name) VALUES (-2147483648,0,Null)",
    "INSERT INTO Contacts (CNT_ID,CNT_LastName,CNT_StateID,CNT_CountryID,CNT_WorkStateID,CNT_WorkCountryID,CNT_Phone,"
    "CNT_BirthDate) VALUES (1,'Ωmega',1,2,3,4,'+44 (0)20 7946 0123 ext','2/29/1996')",
    "INSERT INTO Contacts (CNT_ID,CNT_StateID,CNT_CountryID,CNT_WorkStateID,CNT_WorkCountryID) VALUES "
    "(2,Null,99999,0,-1)",
    "INSERT INTO Contacts (CNT_ID,CNT_WorkFax,CNT_Notes) VALUES (2147483647,'','')",
    "INSERT INTO PhoneLogs (PL_ID,PL_ContactID,PL_Subject) VALUES (1,1,'called')",
    "INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_CategoryID,NOT_Title,NOT_Text) VALUES (1,4,1,'A title','A text')",
    "INSERT INTO Notes (NOT_ID,NOT_CategoryID,NOT_Title) VALUES (2,88,Null)",
};

/// The columns of the table of an older database that the steps leave under their names.
std::string KeptColumns(const std::string& table) {
  if (table == "Tasks") {
    return "TSK_ID, TSK_FolderID, TSK_RecurrenceID, TSK_NotificationID, TSK_CategoryID, TSK_StatusID, TSK_Name, "
           "TSK_Description, TSK_DueDate, TSK_StartDate, TSK_AssignedTo, TSK_Completed, TSK_DateCompleted, "
           "TSK_DateLastUpdate";
  }
  if (table == "Events") {
    return "EVE_ID, EVE_FolderID, EVE_CategoryID, EVE_NotificationID, EVE_RecurrenceID, EVE_ContactID, EVE_Text, "
           "EVE_Location, EVE_StartDate, EVE_EndDate, EVE_Reminder, EVE_DateLastUpdate";
  }
  if (table == "Contacts") {
    return "CNT_ID, CNT_FolderID, CNT_CategoryID, CNT_FirstName, CNT_LastName, CNT_MI, CNT_Suffix, CNT_Dear, "
           "CNT_Address, CNT_City, CNT_PostalCode, CNT_Region, CNT_Phone, CNT_MobilePhone, CNT_Email, CNT_URL, "
           "CNT_JobTitle, CNT_BirthDate, CNT_Anniversary, CNT_Company, CNT_WorkAddress, CNT_WorkCity, "
           "CNT_WorkPostalCode, CNT_WorkRegion, CNT_WorkPhone, CNT_WorkExtension, CNT_WorkFax, CNT_WorkEmail, "
           "CNT_WorkURL, CNT_WorkOffice, CNT_WorkDepartment, CNT_Profession, CNT_AssistantName, CNT_LastMeetingDate, "
           "CNT_ReferredBy, CNT_Notes, CNT_CustomField1, CNT_CustomField2, CNT_DateLastUpdate";
  }
  return "*";
}

/// A column that holds a name where an older database refers to a list.
struct Name {
  std::string key;
  std::string table;
  std::string column;
  std::string list;
  std::string list_key;
  std::string list_name;
};

const Name kNames[] = {
    {"TSK_ID", "Tasks", "TSK_Priority", "lstTaskPriority", "TP_ID", "TP_Name"},
    {"CNT_ID", "Contacts", "CNT_State", "lstStates", "ST_ID", "ST_Name"},
    {"CNT_ID", "Contacts", "CNT_Country", "lstCountries", "COU_ID", "COU_Name"},
    {"CNT_ID", "Contacts", "CNT_WorkState", "lstStates", "ST_ID", "ST_Name"},
    {"CNT_ID", "Contacts", "CNT_WorkCountry", "lstCountries", "COU_ID", "COU_Name"},
};

bool HasColumn(Connection& connection, const std::string& table, const std::string& column) {
  const Ref<Recordset> rs = connection.Execute("SELECT * FROM " + table + " WHERE 0=1");
  for (std::int32_t i = 0; i < rs->Fields().Count(); ++i) {
    if (text::EqualNames(rs->Fields().Item(i).Name(), column)) return true;
  }
  return false;
}

std::string NamesOf(Connection& connection, const Name& name) {
  const std::string identifier = name.column + "ID";
  if (!HasColumn(connection, name.table, identifier)) {
    return DumpRows(connection, "SELECT " + name.key + "," + name.column + " FROM " + name.table + " ORDER BY 1");
  }
  return DumpRows(connection, "SELECT " + name.key + "," + name.list_name + " FROM " + name.table + " LEFT JOIN " +
                                  name.list + " ON " + name.table + "." + identifier + "=" + name.list + "." +
                                  name.list_key + " ORDER BY 1");
}

}  // namespace

void FillOlderDatabase(Connection& connection) {
  for (const char* statement : kRows) connection.Execute(statement);
  connection.Execute("UPDATE Events SET EVE_Location='" + std::string(255, 'x') + "' WHERE EVE_ID=1");
  connection.Execute("UPDATE Notes SET NOT_Text='" + std::string(70000, 'n') + "' WHERE NOT_ID=1");
}

void AddManyRows(Connection& connection, int contacts) {
  TransactionGuard<Connection> guard(connection);
  // An identifier that is Null now and then and dangles where the list is shorter than `spread`.
  const auto reference = [](int i, int spread) {
    return i % 9 == 0 ? std::string("Null") : std::to_string(i % spread);
  };
  for (int i = 1; i <= contacts; ++i) {
    const std::string id = std::to_string(1000 + i);
    connection.Execute(
        "INSERT INTO Contacts (CNT_ID,CNT_LastName,CNT_StateID,CNT_CountryID,CNT_WorkStateID,"
        "CNT_WorkCountryID,CNT_Phone) VALUES (" +
        id + ",'L" + id + "'," + reference(i, 60) + "," + reference(i, 220) + "," + reference(i, 53) + "," +
        reference(i, 211) + ",'555" + id + "')");
    connection.Execute("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_PriorityID,TSK_Name) VALUES (" + id + ",3," +
                       reference(i, 5) + ",'T" + id + "')");
    for (const char* half : {"", "7"}) {
      connection.Execute("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_Text,EVE_StartDate) VALUES (" +
                         std::string(half) + id + ",1,'E" + id + "','5/1/2024 9:00:00 AM')");
    }
  }
  guard.Commit();
}

std::string KeptRows(Connection& connection) {
  std::string text;
  for (const std::string& table : TableNames()) {
    if (table == "Folders" || table == "Sequences" || table == "_VersionInfo") continue;
    text += table + "\n" + DumpRows(connection, "SELECT " + KeptColumns(table) + " FROM " + table + " ORDER BY 1");
  }
  for (const Name& name : kNames) text += name.column + "\n" + NamesOf(connection, name);
  return text;
}

}  // namespace zef::test
