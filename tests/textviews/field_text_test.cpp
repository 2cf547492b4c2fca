#include "tests/textviews/full_records.h"

namespace zef::test {
namespace {

using FieldText = FullRecords;

struct Case {
  std::string name;
  std::string text;
};

template <class R>
void ExpectTexts(const R& record, const std::vector<Case>& cases) {
  for (const auto& [name, text] : cases) EXPECT_EQ(record.Field2String(name), text) << name;
}

TEST_F(FieldText, NoteShowsItsColumns) {
  ExpectTexts(*FullNote(), {{"NOT_Title", "It's Ä, ö and ß"}, {"NOT_Text", "first\r\nsecond 😀"}, {"CAT_Name", "Blau"}});
}

TEST_F(FieldText, AlarmShowsItsColumns) {
  ExpectTexts(
      *FullAlarm(),
      {{"ALA_TEXT", "Tea"}, {"ALA_STARTDATE", "7/8/2024"}, {"ALA_REMINDERDATE", "4/8/2023"}, {"CAT_NAME", "Blau"}});
}

TEST_F(FieldText, EventShowsItsColumns) {
  ExpectTexts(*FullEvent(), {{"EVE_Text", "Concert"},
                             {"EVE_Location", "Café"},
                             {"EVE_EndDate", "7/8/2024 10:00:00 PM"},
                             {"EVE_StartDate", "7/8/2024 7:30:00 PM"},
                             {"EVE_Reminder", "5/8/2024 7:30:00 PM"},
                             {"CAT_Name", "Blau"}});
}

TEST_F(FieldText, TaskShowsItsColumns) {
  ExpectTexts(*FullTask(), {{"TSK_Name", "Paint"},
                            {"TSK_Description", "the door"},
                            {"TSK_StartDate", "7/8/2024 7:30:00 PM"},
                            {"TSK_DueDate", "7/9/2024"},
                            {"TSK_AssignedTo", "Ann"},
                            {"TSK_Completed", "1"},
                            {"TSK_DateCompleted", "7/10/2024 8:00:00 AM"},
                            {"CAT_Name", "Blau"}});
}

TEST_F(FieldText, ContactShowsThePersonsColumns) {
  ExpectTexts(*FullContact(), {{"CNT_FirstName", "Jörg"},
                               {"CNT_LastName", "O'Neill"},
                               {"CNT_MI", "M"},
                               {"CNT_Suffix", "Jr"},
                               {"CNT_Dear", "Dear Jörg"},
                               {"CNT_Address", "1 High St\r\nFlat 2"},
                               {"CNT_City", "Graz"},
                               {"CNT_PostalCode", "8010"},
                               {"CNT_Region", "South"},
                               {"CNT_Phone", "111"},
                               {"CNT_MobilePhone", "222"},
                               {"CNT_Email", "j@example.org"},
                               {"CNT_URL", "example.org"},
                               {"CNT_BirthDate", "1/2/1970"},
                               {"CNT_Anniversary", "6/7/2008"},
                               {"CNT_LastMeetingDate", "3/4/2024 5:00:00 PM"},
                               {"CNT_ReferredBy", "Referrer"},
                               {"CNT_Notes", "€ 😀"},
                               {"CNT_CustomField1", "One"},
                               {"CNT_CustomField2", "Two"},
                               {"CAT_Name", "Blau"}});
}

TEST_F(FieldText, ContactShowsTheCompanysColumns) {
  ExpectTexts(*FullContact(), {{"CNT_Company", "Acme"},
                               {"CNT_JobTitle", "Head"},
                               {"CNT_WorkAddress", "2 Low St"},
                               {"CNT_WorkCity", "Wien"},
                               {"CNT_WorkPostalCode", "1010"},
                               {"CNT_WorkRegion", "East"},
                               {"CNT_WorkPhone", "333"},
                               {"CNT_WorkExtension", "44"},
                               {"CNT_WorkFax", "555"},
                               {"CNT_WorkEmail", "w@example.org"},
                               {"CNT_WorkURL", "work.example.org"},
                               {"CNT_WorkDepartment", "Sales"},
                               {"CNT_Workoffice", "12b"},
                               {"CNT_Profession", "Clerk"},
                               {"CNT_AssistantName", "Eve"}});
}

TEST_F(FieldText, ContactDoesNotListTheOfficeUnderItsColumnsName) {
  EXPECT_EQ(FullContact()->Field2String("CNT_WorkOffice"), "");
}

TEST_F(FieldText, ContactDoesNotListCountriesAndStates) {
  ExpectTexts(*FullContact(), {{"CNT_Country", ""}, {"CNT_State", ""}, {"CNT_WorkCountry", ""}, {"CNT_WorkState", ""}});
}

TEST_F(FieldText, AlarmIgnoresLetterCase) {
  ExpectTexts(*FullAlarm(), {{"ala_text", "Tea"}, {"Ala_StartDate", "7/8/2024"}, {"Cat_Name", "Blau"}});
}

TEST_F(FieldText, OtherClassesMindLetterCase) {
  EXPECT_EQ(FullEvent()->Field2String("eve_text"), "");
  EXPECT_EQ(FullNote()->Field2String("NOT_TITLE"), "");
  EXPECT_EQ(FullTask()->Field2String("TSK_name"), "");
  EXPECT_EQ(FullContact()->Field2String("CAT_NAME"), "");
}

TEST_F(FieldText, UnknownNameIsEmpty) {
  EXPECT_EQ(FullNote()->Field2String("NOT_FolderID"), "");
  EXPECT_EQ(FullAlarm()->Field2String(""), "");
}

TEST_F(FieldText, DateThatIsZeroIsEmpty) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->StartDate = Date();
  ExpectTexts(*alarm, {{"ALA_STARTDATE", ""}});
  const Ref<CEvent> event = New<CEvent>();
  event->StartDate = Date();
  event->EndDate = Date();
  ExpectTexts(*event, {{"EVE_StartDate", ""}, {"EVE_EndDate", ""}});
  ExpectTexts(*New<CTask>(), {{"TSK_StartDate", ""}, {"TSK_DueDate", ""}, {"TSK_DateCompleted", ""}});
  ExpectTexts(*New<CContact>(), {{"CNT_BirthDate", ""}, {"CNT_Anniversary", ""}, {"CNT_LastMeetingDate", ""}});
}

TEST_F(FieldText, NumberThatIsZeroIsShown) { EXPECT_EQ(New<CTask>()->Field2String("TSK_Completed"), "0"); }

TEST_F(FieldText, ReminderOfMinusOneIsEmpty) {
  const Ref<CEvent> event = FullEvent();
  event->Reminder = -1;
  EXPECT_EQ(event->Field2String("EVE_Reminder"), "");
}

TEST_F(FieldText, ReminderOfZeroIsTheStart) {
  const Ref<CEvent> event = FullEvent();
  event->Reminder = 0;
  EXPECT_EQ(event->Field2String("EVE_Reminder"), "7/8/2024 7:30:00 PM");
}

TEST_F(FieldText, ReminderWithoutAStartIsEmpty) {
  const Ref<CAlarm> alarm = FullAlarm();
  alarm->StartDate = Date();
  EXPECT_EQ(alarm->Field2String("ALA_REMINDERDATE"), "");
}

TEST_F(FieldText, ReminderOfAnAlarmIsThatOfAnEvent) {
  const Ref<CAlarm> alarm = FullAlarm();
  alarm->Reminder = -1;
  EXPECT_EQ(alarm->Field2String("ALA_REMINDERDATE"), "");
  alarm->Reminder = 0;
  EXPECT_EQ(alarm->Field2String("ALA_REMINDERDATE"), "7/8/2024");
}

TEST_F(FieldText, ReminderGoesToTheEndOfAShorterMonth) {
  const Ref<CEvent> event = FullEvent();
  event->StartDate = On("3/31/2024");
  event->Reminder = 1;
  EXPECT_EQ(event->Field2String("EVE_Reminder"), "2/29/2024");
}

TEST_F(FieldText, ReminderBeforeAllDatesIsRaised) {
  const Ref<CEvent> event = FullEvent();
  event->Reminder = 2'147'483'647;
  EXPECT_EQ(NumberRaised([&] { event->Field2String("EVE_Reminder"); }), 5);
}

TEST_F(FieldText, CategoryWithoutARowIsEmpty) {
  const Ref<CNote> note = New<CNote>();
  note->CategoryID = 12345;
  EXPECT_EQ(note->Field2String("CAT_Name"), "");
}

TEST_F(FieldText, MissingCategoryIsLookedUpToo) {
  EXPECT_EQ(New<CNote>()->Field2String("CAT_Name"), "");
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Categories WHERE CAT_ID=-1"});
}

TEST_F(FieldText, CategoryWithoutASessionIsRaised) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CNote>()->Field2String("CAT_Name"); }), 91);
}

TEST_F(FieldText, OtherColumnsLookNothingUp) {
  FullContact()->Field2String("CNT_Company");
  FullEvent()->Field2String("EVE_Reminder");
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(FieldText, LookupThatFailsIsRaised) {
  const Ref<CTask> task = FullTask();
  Refuse("SELECT * FROM Categories");
  const auto failure = Raised([&] { task->Field2String("CAT_Name"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "made to fail");
}

TEST_F(FieldText, TextColumnNeedsNoSession) {
  const Ref<CNote> note = MakeRef<CNote>();
  note->Title = "alone";
  EXPECT_EQ(note->Field2String("NOT_Title"), "alone");
}

}  // namespace
}  // namespace zef::test
