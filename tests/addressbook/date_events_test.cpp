#include "addressbook/date_events.h"

#include <algorithm>

#include "tests/addressbook/contact_fixture.h"

namespace zef::test {
namespace {

using DateEvents = DateEventsTest;

// ---- the text

TEST_F(DateEvents, TextIsFirstNameLastNameAndBirthday) {
  EXPECT_EQ(BirthdayTextOf(Named("Ann", "Lee")), "Ann Lee's Birthday");
}

TEST_F(DateEvents, TextOfAnAnniversaryEndsWithThatWord) {
  AnnLee();
  EXPECT_EQ(Of("A", "EVE_Text"), "Ann Lee's Anniversary");
}

TEST_F(DateEvents, TextHasTheInitialWithoutAPointAndNoSuffix) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->MI = "B";
  contact->Suffix = "Jr";
  EXPECT_EQ(BirthdayTextOf(contact), "Ann B Lee's Birthday");
}

TEST_F(DateEvents, TextWithoutAFirstNameBeginsWithABlank) {
  EXPECT_EQ(BirthdayTextOf(Named("", "Lee")), " Lee's Birthday");
}

TEST_F(DateEvents, TextOfAnInitialWithoutAFirstNameBeginsWithABlank) {
  const Ref<CContact> contact = Named("", "Lee");
  contact->MI = "B";
  EXPECT_EQ(BirthdayTextOf(contact), " B Lee's Birthday");
}

TEST_F(DateEvents, TextWithoutALastNameHasABlankBeforeTheApostrophe) {
  EXPECT_EQ(BirthdayTextOf(Named("Ann", "")), "Ann 's Birthday");
}

TEST_F(DateEvents, TextOfAContactWithACompanyAloneIsItsName) {
  const Ref<CContact> contact = NewContact();
  contact->Company = "Acme";
  contact->MI = "B";
  contact->Anniversary = On("6/3/2010");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("A", "EVE_Text"), "Acme's Anniversary");
}

TEST_F(DateEvents, TextOfAPersonInACompanyDoesNotNameIt) {
  const Ref<CContact> contact = Named("", "Lee");
  contact->Company = "Acme";
  EXPECT_EQ(BirthdayTextOf(contact), " Lee's Birthday");
}

TEST_F(DateEvents, TextWithoutAnyNameIsTheEndingAlone) { EXPECT_EQ(BirthdayTextOf(NewContact()), "'s Birthday"); }

TEST_F(DateEvents, NamesWithApostrophesAndOtherScriptsComeWhole) {
  EXPECT_EQ(BirthdayTextOf(Named("山田 🎈", "O'Neill")), "山田 🎈 O'Neill's Birthday");
}

// ---- the event

TEST_F(DateEvents, NewContactWithBothDatesGetsOneEventEach) {
  AnnLee();
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A'"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B'"), 1);
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(DateEvents, EventsAreLinkedToTheContact) {
  SetSequences({{1, 41}});
  AnnLee();
  EXPECT_EQ(Of("A", "EVE_LinkID"), "42");
  EXPECT_EQ(Of("B", "EVE_LinkID"), "42");
}

TEST_F(DateEvents, EventsStandInTheProtectedFolders) {
  Run("INSERT INTO Folders (FLD_ID,FLD_Name,FLD_Protected) VALUES (0,'Birthdays',0)");
  Run("INSERT INTO Folders (FLD_ID,FLD_Name,FLD_Protected) VALUES (-5,'Anniversaries',0)");
  AnnLee();
  EXPECT_EQ(Of("A", "EVE_FolderID"), "7");
  EXPECT_EQ(Of("B", "EVE_FolderID"), "8");
}

TEST_F(DateEvents, EventsHaveAReminderOfZero) {
  AnnLee();
  EXPECT_EQ(Of("A", "EVE_Reminder") + Of("B", "EVE_Reminder"), "00");
}

TEST_F(DateEvents, EventsStartAndEndOnTheDateWithoutATime) {
  AnnLee();
  EXPECT_EQ(Of("A", "EVE_StartDate"), "6/3/2010");
  EXPECT_EQ(Of("A", "EVE_EndDate"), "6/3/2010");
  EXPECT_EQ(Of("B", "EVE_StartDate"), "2/29/1980");
  EXPECT_EQ(Of("B", "EVE_EndDate"), "2/29/1980");
}

TEST_F(DateEvents, ContactKeepsTheTimesOfItsDates) {
  AnnLee();
  EXPECT_EQ(Stored("SELECT CNT_BirthDate FROM Contacts"), "2/29/1980 8:09:10 AM");
}

TEST_F(DateEvents, RuleIsYearlyOnMonthAndDayWithoutAnEnd) {
  AnnLee();
  EXPECT_EQ(RuleOf("B", "REC_Type"), "4");
  EXPECT_EQ(RuleOf("B", "REC_SubType"), "0");
  EXPECT_EQ(RuleOf("B", "REC_Options1"), "1");
  EXPECT_EQ(RuleOf("B", "REC_Options2"), "29");
  EXPECT_EQ(RuleOf("B", "REC_OccurencesNo"), "0");
  EXPECT_EQ(RuleOf("B", "REC_EndDate"), "12:00:00 AM");
}

TEST_F(DateEvents, JanuaryIsMonthZeroAndDecemberMonthEleven) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->Anniversary = On("1/1/2001");
  contact->BirthDate = On("12/31/1999");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(RuleOf("A", "REC_Options1") + "/" + RuleOf("A", "REC_Options2"), "0/1");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "11/31");
}

TEST_F(DateEvents, DateBefore1900GivesAnEventOnItsDay) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->BirthDate = On("2/28/1896 6:00:00 PM");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate"), "2/28/1896");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "1/28");
}

TEST_F(DateEvents, TimeAloneIsADateOnDayZero) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->BirthDate = Date(0.25);
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate"), "12:00:00 AM");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "11/30");
}

TEST_F(DateEvents, RuleFollowsATimeThatRoundsIntoTheNextDay) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->BirthDate = Date(On("2/28/2023").value() + 0.9999999);
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate"), "3/1/2023");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "2/1");
}

TEST_F(DateEvents, EndsOfTheDateRangeGiveEvents) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->Anniversary = On("1/1/100");
  contact->BirthDate = On("12/31/9999");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("A", "EVE_StartDate"), "1/1/100");
  EXPECT_EQ(Of("B", "EVE_StartDate"), "12/31/9999");
}

TEST_F(DateEvents, DateOfTheLastMeetingGetsNoEvent) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->LastmeetingDate = On("2/3/2024");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(DateEvents, NewContactWithoutDatesLooksForNoFolder) {
  ASSERT_TRUE(Named("Ann", "Lee")->Save());
  EXPECT_EQ(Sent().size(), 1u);
}

TEST_F(DateEvents, OfANewContactAreMadeAnniversaryFirstWithoutLookingForOldOnes) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->BirthDate = On("2/29/1980 8:09:10 AM");
  contact->Anniversary = On("6/3/2010");
  ASSERT_TRUE(contact->Save());
  const std::string rule =
      "INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,REC_Type,REC_EndDate,"
      "REC_Day,REC_Month,REC_WeekNumber) VALUES ";
  const std::string event =
      "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_NotificationID,EVE_RecurrenceID,EVE_ContactID,"
      "EVE_Text,EVE_StartDate,EVE_Reminder,EVE_DateLastUpdate,EVE_EndDate,EVE_Type,EVE_LinkID) VALUES ";
  EXPECT_EQ(Sent(),
            (Texts{"INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName,CNT_FirstName,CNT_DateLastUpdate,"
                   "CNT_LastMeetingDate,CNT_Anniversary,CNT_BirthDate,CNT_CategoryID) VALUES (1,0,'Lee','Ann',"
                   "'5/1/2024 9:00:00 AM','12:00:00 AM','6/3/2010','2/29/1980 8:09:10 AM',0)",
                   kAnniversariesLookUp, rule + "(1,0,5,3,0,4,'12:00:00 AM',0,0,0)",
                   event + "(1,7,0,0,1,0,'Ann Lee''s Anniversary','6/3/2010',0,'5/1/2024 9:00:00 AM','6/3/2010','A',1)",
                   kBirthdaysLookUp, rule + "(2,0,1,29,0,4,'12:00:00 AM',0,0,0)",
                   event + "(2,8,0,0,2,0,'Ann Lee''s Birthday','2/29/1980',0,'5/1/2024 9:00:00 AM','2/29/1980','B',"
                           "1)"}));
}

TEST_F(DateEvents, JoinTheTransactionOfTheContact) {
  AnnLee();
  const Ref<CContact> contact = Named("Bob", "Lee");
  contact->BirthDate = On("2/3/1980");
  ASSERT_TRUE(contact->Save());
  const Texts sent = SentInAll();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "BEGIN"), 3) << "the contact's, and around two identifiers";
  EXPECT_EQ(sent.back(), "COMMIT");
}

TEST_F(DateEvents, ContactThatIsNewAgainUnderAnotherIdentifierGetsItsOwn) {
  const Ref<CContact> contact = AnnLee();
  contact->ID = 99;
  contact->ResetFlags();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=99"), 2);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=1"), 2);
}

// ---- refreshing

TEST_F(DateEvents, OfAnOldContactAreFoundByTypeLinkAndFolder) {
  const Ref<CContact> contact = AnnLee();
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  const Texts sent = Sent();
  EXPECT_THAT(sent.at(0), testing::StartsWith("UPDATE Contacts"));
  EXPECT_EQ(
      Texts(sent.begin() + 1, sent.end()),
      (Texts{kAnniversariesLookUp, "SELECT EVE_ID FROM Events WHERE EVE_Type='A' and EVE_LinkID=1 AND EVE_FolderID=7",
             "SELECT * FROM Events WHERE EVE_ID=1", "SELECT * FROM Recurrences WHERE REC_ID=1", kBirthdaysLookUp,
             "SELECT EVE_ID FROM Events WHERE EVE_Type='B' and EVE_LinkID=1 AND EVE_FolderID=8",
             "SELECT * FROM Events WHERE EVE_ID=2", "SELECT * FROM Recurrences WHERE REC_ID=2"}));
}

TEST_F(DateEvents, ChangedDateMovesEventAndRule) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = On("7/8/1981 1:00:00 PM");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate") + " " + Of("B", "EVE_EndDate"), "7/8/1981 7/8/1981");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "6/8");
  EXPECT_EQ(Rows("Events") + Rows("Recurrences"), 4);
}

TEST_F(DateEvents, ChangedDateLeavesTheOtherEvent) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = On("7/8/1981");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("A", "EVE_StartDate"), "6/3/2010");
}

TEST_F(DateEvents, ChangedNameLeavesTheText) {
  const Ref<CContact> contact = AnnLee();
  contact->LastName = "Smith";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_Text"), "Ann Lee's Birthday");
}

TEST_F(DateEvents, DateRemovedAndSetAgainInTwoSavesMakesANewText) {
  const Ref<CContact> contact = AnnLee();
  contact->LastName = "Smith";
  contact->BirthDate = Date();
  ASSERT_TRUE(contact->Save());
  contact->BirthDate = On("2/3/1980");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_Text"), "Ann Smith's Birthday");
}

TEST_F(DateEvents, ModifiedContactWritesDateReminderAndRuleOfTheEventAgain) {
  const Ref<CContact> contact = AnnLee();
  Run("UPDATE Events SET EVE_StartDate='1/1/2000',EVE_EndDate='1/2/2000',EVE_Reminder=15");
  Run("UPDATE Recurrences SET REC_Type=2,REC_SubType=3,REC_Options1=9,REC_Options2=1,REC_OccurencesNo=5,"
      "REC_EndDate='1/1/2030'");
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate") + " " + Of("B", "EVE_EndDate"), "2/29/1980 2/29/1980");
  EXPECT_EQ(Of("B", "EVE_Reminder"), "0");
  EXPECT_EQ(RuleOf("B", "REC_Type") + "/" + RuleOf("B", "REC_SubType"), "4/0");
  EXPECT_EQ(RuleOf("B", "REC_Options1") + "/" + RuleOf("B", "REC_Options2"), "1/29");
  EXPECT_EQ(RuleOf("B", "REC_OccurencesNo"), "0");
  EXPECT_EQ(RuleOf("B", "REC_EndDate"), "12:00:00 AM");
}

TEST_F(DateEvents, RuleThatWasChangedAloneIsWrittenAgain) {
  const Ref<CContact> contact = AnnLee();
  Run("UPDATE Recurrences SET REC_Type=2");
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(RuleOf("B", "REC_Type"), "4");
}

TEST_F(DateEvents, RefreshLeavesWhatTheClientAdded) {
  const Ref<CContact> contact = AnnLee();
  Run("UPDATE Events SET EVE_Text='mine',EVE_Location='here',EVE_CategoryID=4");
  contact->BirthDate = On("7/8/1981");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Text='mine' AND EVE_Location='here' AND EVE_CategoryID=4"), 2);
}

TEST_F(DateEvents, UnmodifiedContactDoesNotMakeAMissingEventAgain) {
  const Ref<CContact> contact = AnnLee();
  Run("DELETE * FROM Events");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(DateEvents, ModifiedContactMakesMissingEventsAgain) {
  const Ref<CContact> contact = AnnLee();
  Run("DELETE * FROM Events");
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("A", "EVE_StartDate") + " " + Of("B", "EVE_StartDate"), "6/3/2010 2/29/1980");
}

TEST_F(DateEvents, EventMovedToAnotherFolderIsNotFoundAndMadeAgain) {
  const Ref<CContact> contact = AnnLee();
  Run("UPDATE Events SET EVE_FolderID=6 WHERE EVE_Type='B'");
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_FolderID=6"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_FolderID=8"), 1);
}

TEST_F(DateEvents, DateGivenToAnOldContactMakesTheEvent) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  contact->BirthDate = On("2/3/1980");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "EVE_StartDate"), "2/3/1980");
  EXPECT_EQ(Of("B", "EVE_Text"), "Ann Lee's Birthday");
}

TEST_F(DateEvents, OnlyTheFirstOfSeveralEventsIsRefreshed) {
  const Ref<CContact> contact = AnnLee();
  Run("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES (99,'B',1,8)");
  Run("UPDATE Events SET EVE_Reminder=15");
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_Reminder=0"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_Reminder=15"), 1);
}

TEST_F(DateEvents, FoundEventWithoutARuleGetsANewOne) {
  for (const char* loss : {"DELETE * FROM Recurrences", "UPDATE Events SET EVE_RecurrenceID=Null",
                           "UPDATE Events SET EVE_RecurrenceID=-1"}) {
    const Ref<CContact> contact = AnnLee();
    Run(loss);
    Run("DELETE * FROM Recurrences");
    contact->City = "Leeds";
    ASSERT_TRUE(contact->Save()) << loss;
    EXPECT_EQ(RuleOf("B", "REC_Type"), "4") << loss;
    EXPECT_EQ(Rows("Recurrences"), 2) << loss;
    Run("DELETE * FROM Events");
  }
}

TEST_F(DateEvents, ContactWithoutARowGetsItsEventAllTheSame) {
  const Ref<CContact> contact = NewContact();
  ASSERT_TRUE(contact->Save());
  contact->BirthDate = On("2/3/1980");
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Contacts"), 0);
  EXPECT_EQ(Rows("Events"), 1);
}

// ---- deleting

TEST_F(DateEvents, ClearedAnniversaryDeletesItsEventAndLeavesTheBirthday) {
  const Ref<CContact> contact = AnnLee();
  contact->Anniversary = Date();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A'"), 0);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B'"), 1);
}

TEST_F(DateEvents, ClearedDatesLeaveEventsOfOtherTypesLinksAndFolders) {
  const Ref<CContact> contact = AnnLee();
  for (const char* row : {"(90,'E',1,7)", "(91,'T',1,8)", "(92,'A',1,8)", "(93,'B',1,7)", "(94,'A',2,7)",
                          "(95,'B',2,8)", "(96,'B',1,6)"}) {
    Run(std::string("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES ") + row);
  }
  contact->Anniversary = contact->BirthDate = Date();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_ID>=90"), 7);
  EXPECT_EQ(Rows("Events"), 7);
}

TEST_F(DateEvents, OldContactWithoutDatesSendsBothDeletesAtEveryModifiedSave) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Save());
  const Texts sent = Sent();
  EXPECT_EQ(Texts(sent.begin() + 1, sent.end()),
            (Texts{kAnniversariesLookUp, "DELETE FROM Events WHERE EVE_Type='A' and EVE_LinkID=1 AND EVE_FolderID=7",
                   kBirthdaysLookUp, "DELETE FROM Events WHERE EVE_Type='B' and EVE_LinkID=1 AND EVE_FolderID=8"}));
}

TEST_F(DateEvents, DeletedEventLeavesItsRuleBehind) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = Date();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Recurrences"), 2);
}

}  // namespace
}  // namespace zef::test
