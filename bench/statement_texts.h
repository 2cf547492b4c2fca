#pragma once

/// The statements of the code by hand, on either engine.
namespace zef::bench {

inline constexpr char kSelectFolders[] =
    "SELECT FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected "
    "FROM Folders WHERE ";
inline constexpr char kSelectEvents[] =
    "SELECT EVE_ID, EVE_FolderID, EVE_CategoryID, EVE_NotificationID, EVE_RecurrenceID, EVE_ContactID, EVE_Text, "
    "EVE_Location, EVE_StartDate, EVE_EndDate, EVE_Reminder, EVE_DateLastUpdate, EVE_Type, EVE_LinkID "
    "FROM Events WHERE ";
inline constexpr char kSelectRule[] =
    "SELECT REC_ID, REC_Type, REC_OccurencesNo, REC_Options1, REC_Options2, REC_SubType, REC_Day, REC_Month, "
    "REC_WeekNumber, REC_EndDate FROM Recurrences WHERE REC_ID=?1";
inline constexpr char kSelectNotification[] =
    "SELECT NTF_ID, NTF_Subject, NTF_Message, NTF_Email, NTF_CC, NTF_BCC, NTF_Type, NTF_Status, NTF_SendingDate "
    "FROM Notifications WHERE NTF_ID=?1";
inline constexpr char kUpdateEvent[] =
    "UPDATE Events SET EVE_ID=?1, EVE_FolderID=?2, EVE_CategoryID=?3, EVE_NotificationID=?4, EVE_RecurrenceID=?5, "
    "EVE_ContactID=?6, EVE_Text=?7, EVE_StartDate=?8, EVE_Reminder=?9, EVE_DateLastUpdate=?10, EVE_Location=?11, "
    "EVE_EndDate=?12, EVE_Type=?13, EVE_LinkID=?14 WHERE EVE_ID=?1";
inline constexpr char kInsertEvent[] =
    "INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_CategoryID, EVE_NotificationID, EVE_RecurrenceID, EVE_ContactID, "
    "EVE_Text, EVE_StartDate, EVE_Reminder, EVE_DateLastUpdate, EVE_EndDate, EVE_Type, EVE_LinkID) "
    "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13)";
inline constexpr char kInsertTask[] =
    "INSERT INTO Tasks (TSK_ID, TSK_FolderID, TSK_RecurrenceID, TSK_NotificationID, TSK_CategoryID, TSK_Priority, "
    "TSK_StatusID, TSK_Name, TSK_Description, TSK_DueDate, TSK_StartDate, TSK_AssignedTo, TSK_Completed, "
    "TSK_DateCompleted, TSK_DateLastUpdate) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15)";
inline constexpr char kSelectDueDatesFolder[] =
    "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 AND FLD_Name='Tasks Due Dates' COLLATE NOCASE";
inline constexpr char kSelectSequence[] = "SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=?1";
inline constexpr char kUpdateSequence[] = "UPDATE Sequences SET SEQ_Value=?1 WHERE SEQ_ID=?2";
inline constexpr char kSelectProtectedFolder[] = "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 AND FLD_Name=?1";
inline constexpr char kDeleteDateEvents[] =
    "DELETE FROM Events WHERE EVE_Type=?1 AND EVE_LinkID=?2 AND EVE_FolderID=?3";

}  // namespace zef::bench
