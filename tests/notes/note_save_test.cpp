#include <limits>

#include "tests/notes/note_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

using NoteSave = NoteTest;

TEST_F(NoteSave, InsertWritesAllColumnsInTheirOrder) {
  const Ref<CNote> note = NewNote();
  note->FolderID = 72;
  note->CategoryID = 73;
  note->Title = "O'Brien's list";
  note->Text = "'milk'\r\nbread";
  EXPECT_EQ(SentBySaving(note), Texts{"INSERT INTO Notes (NOT_ID,NOT_Title,NOT_Text,NOT_FolderID,NOT_CategoryID,"
                                      "NOT_DateLastUpdate) VALUES (1,'O''Brien''s list','''milk''\r\nbread',72,73,"
                                      "'5/1/2024 9:00:00 AM')"});
}

TEST_F(NoteSave, InsertLeavesEmptyTextsOut) {
  const Ref<CNote> note = NewNote();
  note->FolderID = 5;
  EXPECT_EQ(SentBySaving(note),
            Texts{"INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_CategoryID,NOT_DateLastUpdate) VALUES "
                  "(1,5,-1,'5/1/2024 9:00:00 AM')"});
}

TEST_F(NoteSave, UpdateBlanksEmptyTexts) {
  const Ref<CNote> note = StoredNote();
  note->Title = "";
  note->Text = "";
  EXPECT_EQ(SentBySaving(note),
            Texts{"UPDATE Notes SET NOT_ID=71,NOT_Title='',NOT_Text='',NOT_FolderID=72,NOT_CategoryID=73,"
                  "NOT_DateLastUpdate='5/1/2024 9:00:00 AM' WHERE NOT_ID=71"});
}

TEST_F(NoteSave, TitleWithAnApostropheComesBack) {
  const Ref<CNote> note = NewNote();
  note->Title = "it's";
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(session->GetNote(note->ID)->Title, "it's");
}

TEST_F(NoteSave, NumbersAtTheLimitsComeBack) {
  const Ref<CNote> note = NewNote();
  note->FolderID = std::numeric_limits<std::int32_t>::min();
  note->CategoryID = std::numeric_limits<std::int32_t>::max();
  ASSERT_TRUE(note->Save());
  const Ref<CNote> loaded = session->GetNote(note->ID);
  EXPECT_EQ(loaded->FolderID, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(loaded->CategoryID, std::numeric_limits<std::int32_t>::max());
}

TEST_F(NoteSave, PropertyOfTheLastUpdateIsNotWritten) {
  const Ref<CNote> note = NewNote();
  note->DateLastUpdate = On("1/1/2000");
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(Stored("SELECT NOT_DateLastUpdate FROM Notes"), "5/1/2024 9:00:00 AM");
}

TEST_F(NoteSave, LastUpdateReadsZeroAfterASave) {
  const Ref<CNote> note = StoredNote();
  note->Title = "b";
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(note->DateLastUpdate, Date());
}

TEST_F(NoteSave, UnchangedLoadedNoteSendsNothingAndItsLastUpdateReadsZero) {
  const Ref<CNote> note = StoredNote();
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(note->DateLastUpdate, Date());
}

TEST_F(NoteSave, UnchangedNewNoteGetsNoRowAndIsNoLongerNew) {
  const Ref<CNote> note = NewNote();
  EXPECT_TRUE(note->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*note), "old clear");
}

TEST_F(NoteSave, SavingClearsTheFlags) {
  const Ref<CNote> note = StoredNote();
  note->Title = "b";
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(Flags(*note), "old clear");
}

TEST_F(NoteSave, SaveClearsAnOldErrorEvenWithNothingToWrite) {
  LeaveAnOldError();
  ASSERT_TRUE(NewNote()->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NoteSave, SaveOpensNoTransactionOfItsOwn) {
  const Ref<CNote> note = NewNote();
  note->Title = "b";
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(SentInAll().size(), 1u);
}

TEST_F(NoteSave, SaveJoinsTheClientsTransaction) {
  const Ref<CNote> note = NewNote();
  note->Title = "b";
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(note->Save());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Notes"), 0);
}

TEST_F(NoteSave, SessionThatMayOnlyReadIsRefusedAndSendsNothing) {
  const Ref<CNote> note = StoredNote();
  note->Title = "b";
  session->UserRights = DataViewer;
  EXPECT_FALSE(note->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CNote.Save] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*note), "old modified");
  EXPECT_EQ(note->DateLastUpdate, On("2/3/2024 1:00:00 PM"));
}

TEST_F(NoteSave, DateThatIsNoneIsRecordedByTheFieldsAlone) {
  const Ref<CNote> note = StoredNote();
  note->Title = "b";
  const ClockOverride no_date(Date(3e6));
  EXPECT_FALSE(note->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNote.GetFieldsArray");
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*note), "old modified");
  EXPECT_EQ(note->DateLastUpdate, On("2/3/2024 1:00:00 PM"));
}

TEST_F(NoteSave, RefusalComesEvenToAnUnchangedNote) {
  const Ref<CNote> note = StoredNote();
  session->UserRights = DataViewer;
  EXPECT_FALSE(note->Save());
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_F(NoteSave, RefusedStatementIsRecordedAndLeavesFlagsAndLastUpdate) {
  const Ref<CNote> note = StoredNote();
  note->Title = "b";
  Refuse("UPDATE Notes");
  EXPECT_FALSE(note->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CNote.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*note), "old modified");
  EXPECT_EQ(note->DateLastUpdate, On("2/3/2024 1:00:00 PM"));
}

TEST_F(NoteSave, EveryFailureOfANewNotesSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CNote> note = session->CreateNote();
    if (!note) return note;
    note->Text = "t";
    return note;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 5u) << "four calls for the identifier, and the insert";
}

}  // namespace
}  // namespace zef::test
