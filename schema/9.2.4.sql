-- The tables of a database of version 9.2.4, in the order in which they must be made, then its indexes and first rows.
-- Written in the library's own dialect; a statement ends with a semicolon at the end of a line.

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
  FLD_DateLastUpdate DateTime,
  FLD_Protected Byte);

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
  EVE_Text Text(255),
  EVE_Location Text(255),
  EVE_StartDate DateTime,
  EVE_EndDate DateTime,
  EVE_Reminder Long,
  EVE_DateLastUpdate DateTime,
  EVE_Type Text(1),
  EVE_LinkID Long);

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
  TSK_Priority Text(64),
  TSK_StatusID Long,
  TSK_Name Text(255),
  TSK_Description Memo,
  TSK_DueDate DateTime,
  TSK_StartDate DateTime,
  TSK_AssignedTo Text(255),
  TSK_Completed Long,
  TSK_DateCompleted DateTime,
  TSK_DateLastUpdate DateTime);

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
  CNT_State Text(128),
  CNT_Country Text(128),
  CNT_PostalCode Text(64),
  CNT_Region Text(255),
  CNT_Phone Text(32),
  CNT_MobilePhone Text(32),
  CNT_Email Text(255),
  CNT_URL Memo,
  CNT_JobTitle Text(255),
  CNT_BirthDate DateTime,
  CNT_Anniversary DateTime,
  CNT_Company Text(255),
  CNT_WorkAddress Text(255),
  CNT_WorkCity Text(255),
  CNT_WorkState Text(128),
  CNT_WorkCountry Text(128),
  CNT_WorkPostalCode Text(64),
  CNT_WorkRegion Text(255),
  CNT_WorkPhone Text(32),
  CNT_WorkExtension Text(64),
  CNT_WorkFax Text(32),
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
  CNT_DateLastUpdate DateTime);

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
  NOT_Title Memo,
  NOT_DateLastUpdate DateTime);

-- One index for every look-up by something other than the key.
CREATE INDEX IX_Folders_ParentID ON Folders (FLD_ParentID);
CREATE INDEX IX_Folders_Name ON Folders (FLD_Name);
CREATE INDEX IX_Categories_Name ON Categories (CAT_Name);
CREATE INDEX IX_Users_Name ON Users (USR_Name);
CREATE INDEX IX_Events_FolderID ON Events (EVE_FolderID);
CREATE INDEX IX_Events_CategoryID ON Events (EVE_CategoryID);
CREATE INDEX IX_Events_LinkID ON Events (EVE_LinkID, EVE_FolderID);
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

-- First rows.
INSERT INTO _VersionInfo (VI_Version, VI_Type) VALUES ('9.2.4', 'Personal');

INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (1, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (2, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (3, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (4, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (5, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (6, 1);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (7, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (8, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (9, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (10, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (11, 0);
INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (12, 12);

INSERT INTO Users (USR_ID, USR_Rights, USR_Name, USR_FullName, USR_DateLastUpdated, USR_CreationDate) VALUES (1, 1, 'Admin', 'Administrator', Now(), Now());

INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (1, 0, 0, 'Calendar', 'Calendar', 4, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (2, 0, 0, 'Contacts', 'Contacts', 1, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (3, 0, 0, 'Tasks', 'Tasks', 2, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (4, 0, 0, 'Notes', 'Notes', 3, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (5, 0, 0, 'Alarms', 'Alarms', 6, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (6, 1, 0, 'All Events', 'All Events', 4, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (7, 1, 0, 'Anniversaries', 'Anniversaries', 4, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (8, 1, 0, 'Birthdays', 'Birthdays', 4, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (9, 1, 0, 'Tasks Due Dates', 'Tasks Due Dates', 4, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (10, 3, 0, 'Completed Tasks', 'Completed Tasks', 2, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (11, 3, 0, 'All Tasks', 'All Tasks', 2, Now(), 1);
INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Options, FLD_Name, FLD_Description, FLD_Type, FLD_DateLastUpdate, FLD_Protected) VALUES (12, 4, 0, 'Phone Call Notes', 'Phone Call Notes', 3, Now(), 1);

INSERT INTO lstTaskStatus (TS_ID, TS_Name) VALUES (1, 'Not Started');
INSERT INTO lstTaskStatus (TS_ID, TS_Name) VALUES (2, 'In Progress');
INSERT INTO lstTaskStatus (TS_ID, TS_Name) VALUES (3, 'Completed');
INSERT INTO lstTaskStatus (TS_ID, TS_Name) VALUES (4, 'Waiting');
INSERT INTO lstTaskStatus (TS_ID, TS_Name) VALUES (5, 'Deferred');

INSERT INTO lstTaskPriority (TP_ID, TP_Name) VALUES (1, 'Low');
INSERT INTO lstTaskPriority (TP_ID, TP_Name) VALUES (2, 'Normal');
INSERT INTO lstTaskPriority (TP_ID, TP_Name) VALUES (3, 'High');

INSERT INTO lstStates (ST_ID, ST_Name) VALUES (1, 'Alabama');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (2, 'Alaska');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (3, 'Arizona');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (4, 'Arkansas');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (5, 'California');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (6, 'Colorado');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (7, 'Connecticut');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (8, 'Delaware');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (9, 'District of Columbia');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (10, 'Florida');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (11, 'Georgia');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (12, 'Hawaii');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (13, 'Idaho');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (14, 'Illinois');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (15, 'Indiana');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (16, 'Iowa');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (17, 'Kansas');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (18, 'Kentucky');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (19, 'Louisiana');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (20, 'Maine');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (21, 'Maryland');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (22, 'Massachusetts');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (23, 'Michigan');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (24, 'Minnesota');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (25, 'Mississippi');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (26, 'Missouri');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (27, 'Montana');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (28, 'Nebraska');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (29, 'Nevada');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (30, 'New Hampshire');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (31, 'New Jersey');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (32, 'New Mexico');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (33, 'New York');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (34, 'North Carolina');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (35, 'North Dakota');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (36, 'Ohio');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (37, 'Oklahoma');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (38, 'Oregon');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (39, 'Pennsylvania');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (40, 'Rhode Island');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (41, 'South Carolina');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (42, 'South Dakota');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (43, 'Tennessee');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (44, 'Texas');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (45, 'Utah');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (46, 'Vermont');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (47, 'Virginia');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (48, 'Washington');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (49, 'West Virginia');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (50, 'Wisconsin');
INSERT INTO lstStates (ST_ID, ST_Name) VALUES (51, 'Wyoming');

INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (1, 'Afghanistan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (2, 'Albania');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (3, 'Algeria');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (4, 'Andorra');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (5, 'Angola');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (6, 'Antigua and Barbuda');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (7, 'Argentina');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (8, 'Armenia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (9, 'Australia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (10, 'Austria');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (11, 'Azerbaijan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (12, 'Bahamas');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (13, 'Bahrain');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (14, 'Bangladesh');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (15, 'Barbados');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (16, 'Belarus');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (17, 'Belgium');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (18, 'Belize');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (19, 'Benin');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (20, 'Bhutan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (21, 'Bolivia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (22, 'Bosnia and Herzegovina');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (23, 'Botswana');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (24, 'Brazil');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (25, 'Brunei');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (26, 'Bulgaria');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (27, 'Burkina Faso');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (28, 'Burundi');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (29, 'Cabo Verde');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (30, 'Cambodia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (31, 'Cameroon');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (32, 'Canada');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (33, 'Central African Republic');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (34, 'Chad');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (35, 'Chile');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (36, 'China');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (37, 'Colombia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (38, 'Comoros');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (39, 'Congo');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (40, 'Costa Rica');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (41, 'Côte d''Ivoire');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (42, 'Croatia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (43, 'Cuba');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (44, 'Cyprus');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (45, 'Czechia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (46, 'Democratic Republic of the Congo');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (47, 'Denmark');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (48, 'Djibouti');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (49, 'Dominica');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (50, 'Dominican Republic');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (51, 'Ecuador');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (52, 'Egypt');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (53, 'El Salvador');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (54, 'Equatorial Guinea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (55, 'Eritrea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (56, 'Estonia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (57, 'Eswatini');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (58, 'Ethiopia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (59, 'Fiji');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (60, 'Finland');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (61, 'France');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (62, 'Gabon');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (63, 'Gambia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (64, 'Georgia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (65, 'Germany');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (66, 'Ghana');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (67, 'Greece');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (68, 'Grenada');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (69, 'Guatemala');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (70, 'Guinea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (71, 'Guinea-Bissau');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (72, 'Guyana');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (73, 'Haiti');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (74, 'Honduras');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (75, 'Hungary');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (76, 'Iceland');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (77, 'India');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (78, 'Indonesia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (79, 'Iran');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (80, 'Iraq');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (81, 'Ireland');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (82, 'Israel');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (83, 'Italy');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (84, 'Jamaica');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (85, 'Japan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (86, 'Jordan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (87, 'Kazakhstan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (88, 'Kenya');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (89, 'Kiribati');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (90, 'Kosovo');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (91, 'Kuwait');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (92, 'Kyrgyzstan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (93, 'Laos');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (94, 'Latvia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (95, 'Lebanon');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (96, 'Lesotho');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (97, 'Liberia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (98, 'Libya');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (99, 'Liechtenstein');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (100, 'Lithuania');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (101, 'Luxembourg');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (102, 'Madagascar');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (103, 'Malawi');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (104, 'Malaysia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (105, 'Maldives');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (106, 'Mali');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (107, 'Malta');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (108, 'Marshall Islands');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (109, 'Mauritania');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (110, 'Mauritius');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (111, 'Mexico');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (112, 'Micronesia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (113, 'Moldova');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (114, 'Monaco');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (115, 'Mongolia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (116, 'Montenegro');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (117, 'Morocco');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (118, 'Mozambique');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (119, 'Myanmar');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (120, 'Namibia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (121, 'Nauru');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (122, 'Nepal');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (123, 'Netherlands');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (124, 'New Zealand');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (125, 'Nicaragua');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (126, 'Niger');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (127, 'Nigeria');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (128, 'North Korea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (129, 'North Macedonia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (130, 'Norway');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (131, 'Oman');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (132, 'Pakistan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (133, 'Palau');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (134, 'Palestine');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (135, 'Panama');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (136, 'Papua New Guinea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (137, 'Paraguay');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (138, 'Peru');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (139, 'Philippines');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (140, 'Poland');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (141, 'Portugal');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (142, 'Qatar');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (143, 'Romania');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (144, 'Russia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (145, 'Rwanda');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (146, 'Saint Kitts and Nevis');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (147, 'Saint Lucia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (148, 'Saint Vincent and the Grenadines');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (149, 'Samoa');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (150, 'San Marino');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (151, 'São Tomé and Príncipe');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (152, 'Saudi Arabia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (153, 'Senegal');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (154, 'Serbia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (155, 'Seychelles');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (156, 'Sierra Leone');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (157, 'Singapore');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (158, 'Slovakia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (159, 'Slovenia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (160, 'Solomon Islands');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (161, 'Somalia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (162, 'South Africa');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (163, 'South Korea');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (164, 'South Sudan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (165, 'Spain');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (166, 'Sri Lanka');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (167, 'Sudan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (168, 'Suriname');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (169, 'Sweden');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (170, 'Switzerland');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (171, 'Syria');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (172, 'Taiwan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (173, 'Tajikistan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (174, 'Tanzania');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (175, 'Thailand');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (176, 'Timor-Leste');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (177, 'Togo');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (178, 'Tonga');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (179, 'Trinidad and Tobago');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (180, 'Tunisia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (181, 'Türkiye');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (182, 'Turkmenistan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (183, 'Tuvalu');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (184, 'Uganda');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (185, 'Ukraine');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (186, 'United Arab Emirates');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (187, 'United Kingdom');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (188, 'United States');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (189, 'Uruguay');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (190, 'Uzbekistan');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (191, 'Vanuatu');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (192, 'Vatican City');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (193, 'Venezuela');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (194, 'Vietnam');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (195, 'Yemen');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (196, 'Zambia');
INSERT INTO lstCountries (COU_ID, COU_Name) VALUES (197, 'Zimbabwe');
