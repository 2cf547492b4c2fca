#pragma once

namespace zef::test {

/// The statements by which the record classes find rows, with any values.
inline constexpr const char* kLookups[] = {
    // by key
    "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=4",
    "SELECT * FROM Folders WHERE FLD_ID=7",
    "SELECT * FROM Categories WHERE CAT_ID=7",
    "SELECT * FROM Recurrences WHERE REC_ID=7",
    "SELECT * FROM Notifications WHERE NTF_ID=7",
    "SELECT * FROM Attachements WHERE ATC_ID=7",
    "SELECT * FROM Events WHERE EVE_ID=7",
    "SELECT * FROM Alarms WHERE ALA_ID=7",
    "SELECT * FROM Tasks WHERE TSK_ID=7",
    "SELECT * FROM Contacts WHERE CNT_ID=7",
    "SELECT * FROM PhoneLogs WHERE PL_ID=7",
    "SELECT * FROM Notes WHERE NOT_ID=7",
    "SELECT * FROM Users WHERE USR_ID=7",
    "SELECT TS_Name FROM lstTaskStatus WHERE TS_ID=7",
    "SELECT TP_Name FROM lstTaskPriority WHERE TP_ID=7",
    "SELECT ST_Name FROM lstStates WHERE ST_ID=7",
    "SELECT COU_Name FROM lstCountries WHERE COU_ID=7",
    "UPDATE Contacts SET CNT_ID=7,CNT_LastName='x' WHERE CNT_ID=7",
    "DELETE * FROM Notes WHERE NOT_ID=7",
    // by folder
    "SELECT * FROM Folders WHERE FLD_ParentID=7 ORDER BY FLD_NAME ",
    "SELECT * FROM Folders WHERE FLD_ID<>7 AND FLD_ParentID=3 AND FLD_Name='O''Brien'",
    "SELECT * FROM Folders WHERE FLD_ID<>7 AND FLD_ParentID=3 AND FLD_Name='Übung'",
    "SELECT * FROM Events WHERE EVE_FolderID=7 ORDER BY EVE_Text ASC",
    "SELECT * FROM Alarms WHERE ALA_FolderID=7 ORDER BY ALA_Text ASC",
    "SELECT * FROM Tasks WHERE TSK_FolderID=7 ORDER BY TSK_Name ASC",
    "SELECT * FROM Contacts WHERE CNT_FolderID=7 ORDER BY CNT_LastName, CNT_FirstName, CNT_MI ASC",
    "SELECT * FROM Notes WHERE NOT_FolderID=7 ORDER BY NOT_Title ASC",
    "SELECT * FROM PhoneLogs WHERE PL_ContactID=7",
    // by category
    "UPDATE Events SET EVE_CategoryID=-1 WHERE EVE_CategoryID=7",
    "UPDATE Alarms SET ALA_CategoryID=-1 WHERE ALA_CategoryID=7",
    "UPDATE Tasks SET TSK_CategoryID=-1 WHERE TSK_CategoryID=7",
    "UPDATE Contacts SET CNT_CategoryID=-1 WHERE CNT_CategoryID=7",
    "UPDATE Notes SET NOT_CategoryID=-1 WHERE NOT_CategoryID=7",
    // generated events, and what users have seen
    "SELECT EVE_ID FROM Events WHERE EVE_Type='T' and EVE_LinkID=7 AND EVE_FolderID=9",
    "DELETE FROM Events WHERE EVE_Type='B' and EVE_LinkID=7 AND EVE_FolderID=8",
    "SELECT * FROM ViewedEvents WHERE VE_EventID=7 AND VE_UserID=1",
    "SELECT * FROM ViewedAlarms WHERE VA_AlarmID=7 AND VA_UserID=1",
    // by name or number
    "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Tasks Due Dates'",
    "SELECT FLD_ID FROM Folders WHERE FLD_Type=3 AND FLD_Protected=1 AND FLD_Name='Phone Calls Notes'",
    "SELECT * FROM Categories WHERE CAT_Name='Red'",
    "SELECT * FROM Users WHERE USR_Name='Admin' AND (IsNull(USR_Password) OR USR_Password='')",
    "SELECT * FROM Users WHERE USR_Name='Admin' AND USR_Password='secret'",
    "SELECT * FROM Contacts WHERE CNT_PHONE='5550100' or CNT_MobilePhone='5550100' or CNT_WorkPhone='5550100' or "
    "CNT_WorkFax='5550100'",
};

}  // namespace zef::test
