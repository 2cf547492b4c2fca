-- The tables of a database of version 9.1, in the order in which they must be made, then its indexes and first rows.
-- Written in the library's own dialect; a statement ends with a semicolon at the end of a line.
-- The older layout: priorities, states and countries are references to their lists, held by named relationships.

CREATE TABLE Sequences (
  SEQ_ID Long NOT NULL CONSTRAINT PK_Sequences PRIMARY KEY,
  SEQ_Value Long);

CREATE TABLE _VersionInfo (
  VI_Version Text(32),
  VI_Type Text(64));

CREATE TABLE Users (
  USR_ID Long NOT NULL CONSTRAINT PK_Users PRIMARY KEY,
  USR_Rights Long,
  USR_Name Text(255),
  USR_FullName Text(255),
  USR_Password Text(255),
  USR_Email Text(255),
  USR_DateLastUpdated DateTime,
  USR_CreationDate DateTime);

CREATE TABLE lstTaskStatus (
  TS_ID Long NOT NULL CONSTRAINT PK_lstTaskStatus PRIMARY KEY,
  TS_Name Text(64));

CREATE TABLE lstTaskPriority (
  TP_ID Long NOT NULL CONSTRAINT PK_lstTaskPriority PRIMARY KEY,
  TP_Name Text(64));

CREATE TABLE lstStates (
  ST_ID Long NOT NULL CONSTRAINT PK_lstStates PRIMARY KEY,
  ST_Name Text(128));

CREATE TABLE lstCountries (
  COU_ID Long NOT NULL CONSTRAINT PK_lstCountries PRIMARY KEY,
  COU_Name Text(128));

CREATE TABLE Folders (
  FLD_ID Long NOT NULL CONSTRAINT PK_Folders PRIMARY KEY,
  FLD_ParentID Long,
  FLD_Options Long,
  FLD_Name Text(255),
  FLD_Description Memo,
  FLD_Type Long,
  FLD_DateLastUpdate DateTime);

CREATE TABLE Categories (
  CAT_ID Long NOT NULL CONSTRAINT PK_Categories PRIMARY KEY,
  CAT_Name Text(255),
  CAT_Color Long,
  CAT_DateLastUpdate DateTime);

CREATE TABLE Recurrences (
  REC_ID Long NOT NULL CONSTRAINT PK_Recurrences PRIMARY KEY,
  REC_Type Long,
  REC_OccurencesNo Long,
  REC_Options1 Long,
  REC_Options2 Long,
  REC_SubType Long,
  REC_Day Long,
  REC_Month Long,
  REC_WeekNumber Long,
  REC_EndDate DateTime);

CREATE TABLE Notifications (
  NTF_ID Long NOT NULL CONSTRAINT PK_Notifications PRIMARY KEY,
  NTF_Subject Text(255),
  NTF_Message Memo,
  NTF_Email Memo,
  NTF_CC Memo,
  NTF_BCC Memo,
  NTF_Type Long,
  NTF_Status Long,
  NTF_SendingDate DateTime);

CREATE TABLE Attachements (
  ATC_ID Long NOT NULL CONSTRAINT PK_Attachements PRIMARY KEY,
  ATC_Name Text(255),
  ATC_DocType Text(255),
  ATC_Description Memo,
  ATC_FileName Memo,
  ATC_Content LongBinary);

CREATE TABLE Events (
  EVE_ID Long NOT NULL CONSTRAINT PK_Events PRIMARY KEY,
  EVE_FolderID Long,
  EVE_CategoryID Long,
  EVE_NotificationID Long,
  EVE_RecurrenceID Long,
  EVE_ContactID Long,
  EVE_Text Text(128),
  EVE_Location Text(255),
  EVE_StartDate DateTime,
  EVE_EndDate DateTime,
  EVE_Reminder Long,
  EVE_DateLastUpdate DateTime);

CREATE TABLE ViewedEvents (
  VE_EventID Long,
  VE_UserID Long,
  VE_Date DateTime);

CREATE TABLE Alarms (
  ALA_ID Long NOT NULL CONSTRAINT PK_Alarms PRIMARY KEY,
  ALA_FolderID Long,
  ALA_CategoryID Long,
  ALA_NotificationID Long,
  ALA_RecurrenceID Long,
  ALA_AttachementID Long,
  ALA_Text Text(255),
  ALA_StartDate DateTime,
  ALA_Reminder Long,
  ALA_DateLastUpdate DateTime);

CREATE TABLE ViewedAlarms (
  VA_AlarmID Long,
  VA_UserID Long,
  VA_Date DateTime);

CREATE TABLE Tasks (
  TSK_ID Long NOT NULL CONSTRAINT PK_Tasks PRIMARY KEY,
  TSK_FolderID Long,
  TSK_RecurrenceID Long,
  TSK_NotificationID Long,
  TSK_CategoryID Long,
  TSK_PriorityID Long,
  TSK_StatusID Long,
  TSK_Name Text(246),
  TSK_Description Memo,
  TSK_DueDate DateTime,
  TSK_StartDate DateTime,
  TSK_AssignedTo Text(255),
  TSK_Completed Long,
  TSK_DateCompleted DateTime,
  TSK_DateLastUpdate DateTime,
  CONSTRAINT lstTaskPriorityTasks FOREIGN KEY (TSK_PriorityID) REFERENCES lstTaskPriority (TP_ID));

CREATE TABLE Contacts (
  CNT_ID Long NOT NULL CONSTRAINT PK_Contacts PRIMARY KEY,
  CNT_FolderID Long,
  CNT_CategoryID Long,
  CNT_FirstName Text(255),
  CNT_LastName Text(255),
  CNT_MI Text(64),
  CNT_Suffix Text(64),
  CNT_Dear Text(255),
  CNT_Address Text(255),
  CNT_City Text(255),
  CNT_StateID Long,
  CNT_CountryID Long,
  CNT_PostalCode Text(64),
  CNT_Region Text(255),
  CNT_Phone Text(24),
  CNT_MobilePhone Text(24),
  CNT_Email Text(255),
  CNT_URL Memo,
  CNT_JobTitle Text(255),
  CNT_BirthDate DateTime,
  CNT_Anniversary DateTime,
  CNT_Company Text(255),
  CNT_WorkAddress Text(255),
  CNT_WorkCity Text(255),
  CNT_WorkStateID Long,
  CNT_WorkCountryID Long,
  CNT_WorkPostalCode Text(64),
  CNT_WorkRegion Text(255),
  CNT_WorkPhone Text(24),
  CNT_WorkExtension Text(64),
  CNT_WorkFax Text(24),
  CNT_WorkEmail Text(255),
  CNT_WorkURL Memo,
  CNT_WorkOffice Text(255),
  CNT_WorkDepartment Text(255),
  CNT_Profession Text(255),
  CNT_AssistantName Text(255),
  CNT_LastMeetingDate DateTime,
  CNT_ReferredBy Text(255),
  CNT_Notes Memo,
  CNT_CustomField1 Text(255),
  CNT_CustomField2 Text(255),
  CNT_DateLastUpdate DateTime,
  CONSTRAINT lstStatesContacts FOREIGN KEY (CNT_StateID) REFERENCES lstStates (ST_ID),
  CONSTRAINT lstStatesContacts1 FOREIGN KEY (CNT_WorkStateID) REFERENCES lstStates (ST_ID),
  CONSTRAINT lstCountriesContacts FOREIGN KEY (CNT_CountryID) REFERENCES lstCountries (COU_ID),
  CONSTRAINT lstCountriesContacts1 FOREIGN KEY (CNT_WorkCountryID) REFERENCES lstCountries (COU_ID));

CREATE TABLE PhoneLogs (
  PL_ID Long NOT NULL CONSTRAINT PK_PhoneLogs PRIMARY KEY,
  PL_ContactID Long,
  PL_DateLastUpdate DateTime,
  PL_Subject Text(255),
  PL_PhoneNumber Text(64),
  PL_Notes Memo,
  PL_RecordDate DateTime,
  PL_Direction Long);

CREATE TABLE Notes (
  NOT_ID Long NOT NULL CONSTRAINT PK_Notes PRIMARY KEY,
  NOT_FolderID Long,
  NOT_CategoryID Long,
  NOT_Text Memo,
  NOT_Title Text(255),
  NOT_DateLastUpdate DateTime,
  CONSTRAINT CategoriesNotes FOREIGN KEY (NOT_CategoryID) REFERENCES Categories (CAT_ID));

-- One index for every look-up by something other than the key.
CREATE INDEX IX_Folders_ParentID ON Folders (FLD_ParentID);
CREATE INDEX IX_Folders_ParentID_Name ON Folders (FLD_ParentID, FLD_Name);
CREATE INDEX IX_Folders_Name ON Folders (FLD_Name);
CREATE INDEX IX_Categories_Name ON Categories (CAT_Name);
CREATE INDEX IX_Users_Name ON Users (USR_Name);
CREATE INDEX IX_Events_FolderID ON Events (EVE_FolderID);
CREATE INDEX IX_Events_CategoryID ON Events (EVE_CategoryID);
CREATE INDEX IX_ViewedEvents_EventID ON ViewedEvents (VE_EventID, VE_UserID);
CREATE INDEX IX_Alarms_FolderID ON Alarms (ALA_FolderID);
CREATE INDEX IX_Alarms_CategoryID ON Alarms (ALA_CategoryID);
CREATE INDEX IX_ViewedAlarms_AlarmID ON ViewedAlarms (VA_AlarmID, VA_UserID);
CREATE INDEX IX_Tasks_FolderID ON Tasks (TSK_FolderID);
CREATE INDEX IX_Tasks_CategoryID ON Tasks (TSK_CategoryID);
CREATE INDEX IX_Contacts_FolderID ON Contacts (CNT_FolderID);
CREATE INDEX IX_Contacts_CategoryID ON Contacts (CNT_CategoryID);
CREATE INDEX IX_Contacts_Phone ON Contacts (CNT_Phone);
CREATE INDEX IX_Contacts_MobilePhone ON Contacts (CNT_MobilePhone);
CREATE INDEX IX_Contacts_WorkPhone ON Contacts (CNT_WorkPhone);
CREATE INDEX IX_Contacts_WorkFax ON Contacts (CNT_WorkFax);
CREATE INDEX IX_PhoneLogs_ContactID ON PhoneLogs (PL_ContactID);
CREATE INDEX IX_Notes_FolderID ON Notes (NOT_FolderID);
CREATE INDEX IX_Notes_CategoryID ON Notes (NOT_CategoryID);

-- First rows of its own; those of all versions stand in first_rows.sql.
INSERT INTO _VersionInfo (VI_Version, VI_Type) VALUES ('9.1.0', 'Personal');

INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (12, 5);

INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate) VALUES (1, 0, 0, 'Calendar', 'Calendar', 4, Now());
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate) VALUES (2, 0, 0, 'Contacts', 'Contacts', 1, Now());
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate) VALUES (3, 0, 0, 'Tasks', 'Tasks', 2, Now());
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate) VALUES (4, 0, 0, 'Notes', 'Notes', 3, Now());
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate) VALUES (5, 0, 0, 'Alarms', 'Alarms', 6, Now());
