#include "session/collections.h"
#include "tests/notes/note_fixture.h"
#include "tests/support/collection_with_one.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

class NoteOperations : public NoteTest {
 protected:
  /// Notes 1 and 3 in folder 5, note 2 in folder 6.
  void InsertThree() {
    Run("INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Title) VALUES (1,5,'b')");
    Run("INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Title) VALUES (2,6,'c')");
    Run("INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Title) VALUES (3,5,'a')");
  }
  static Texts TitlesOf(const Ref<CNotes>& notes) {
    Texts titles;
    for (const Ref<CNote>& note : *notes) titles.push_back(note->Title);
    return titles;
  }
};

// ---- GetNote

TEST_F(NoteOperations, GetNoteSendsOneSelect) {
  session->GetNote(71);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Notes WHERE NOT_ID=71"});
}

TEST_F(NoteOperations, GetNoteGivesTheSession) { EXPECT_EQ(StoredNote()->Session(), session); }

TEST_F(NoteOperations, GetNoteWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetNote(71));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NoteOperations, GetNoteThatFailsIsRecorded) {
  Refuse("SELECT * FROM Notes");
  EXPECT_FALSE(session->GetNote(71));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetNote] Error: -2147217900 - made to fail");
}

// ---- loading

TEST_F(NoteOperations, LoadingWithoutCriteriaSelectsTheWholeTableUnsorted) {
  InsertThree();
  const auto notes = Loaded(&CSession::LoadNotesWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Notes"});
  EXPECT_EQ(notes->Count(), 3);
}

TEST_F(NoteOperations, NotesOfAFolderAreSelectedByItsIdentifierUnsorted) {
  InsertThree();
  const auto notes = Loaded(&CSession::LoadNotes4Folder, 5);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Notes WHERE NOT_FolderID=5"});
  EXPECT_THAT(TitlesOf(notes), testing::UnorderedElementsAre("a", "b"));
}

TEST_F(NoteOperations, LoadedNotesHaveTheSessionAndClearFlags) {
  InsertThree();
  const auto notes = Loaded(&CSession::LoadNotesWithCriteria, "NOT_ID=2");
  EXPECT_EQ(notes->ItemByKey("2")->Session(), session);
  EXPECT_EQ(Flags(*notes->ItemByIdx(1)), "old clear");
}

TEST_F(NoteOperations, LoadingThatCannotOpenIsRecordedAndLeavesTheCollection) {
  const auto notes = CollectionWithOne(&CNote::Title);
  EXPECT_FALSE(session->LoadNotesWithCriteria(notes, "no such column = 1"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadNotesWithCriteria");
  EXPECT_EQ(TitlesOf(notes), Texts{"from before"});
}

TEST_F(NoteOperations, LoadingThatFailsOnTheWayKeepsWhatWasAdded) {
  InsertThree();
  Run("UPDATE Notes SET NOT_FolderID=Null WHERE NOT_ID=2");
  const auto notes = CollectionWithOne(&CNote::Title);
  EXPECT_FALSE(session->LoadNotesWithCriteria(notes, "NOT_ID>0 ORDER BY NOT_ID"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadNotesWithCriteria");
  EXPECT_EQ(TitlesOf(notes), Texts{"b"});
}

TEST_F(NoteOperations, FolderThatCannotBeLoadedIsRecordedByTheLoading) {
  Refuse("SELECT * FROM Notes");
  EXPECT_FALSE(session->LoadNotes4Folder(MakeRef<CNotes>(), 5));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadNotesWithCriteria");
}

// ---- CreateNote

TEST_F(NoteOperations, CreateNoteDrawsFromSequenceThree) {
  SetSequences({{3, 41}});
  EXPECT_EQ(session->CreateNote()->ID, 42);
}

TEST_F(NoteOperations, CreatedNoteHasTheSessionAndNoOtherDefault) {
  const Ref<CNote> note = NewNote();
  EXPECT_EQ(note->Session(), session);
  EXPECT_EQ(note->CategoryID, -1);
  EXPECT_EQ(Flags(*note), "new clear");
}

TEST_F(NoteOperations, CreateNoteIsRefusedToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreateNote());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CreateNote] Error: 105 - You don't have rights to insert/edit data");
}

// ---- DuplicateNote

TEST_F(NoteOperations, DuplicateTakesTheNextNumberAndTheOldValues) {
  StoredNote();
  const Ref<CNote> copy = session->DuplicateNote(71);
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->ID, 1);
  EXPECT_EQ(copy->Text, "a text");
  EXPECT_EQ(copy->Title, "a title");
  EXPECT_EQ(copy->FolderID, 72);
}

TEST_F(NoteOperations, DuplicateIsNewAndModifiedAndHasNoRow) {
  StoredNote();
  EXPECT_EQ(Flags(*session->DuplicateNote(71)), "new modified");
  EXPECT_EQ(Rows("Notes"), 1);
}

TEST_F(NoteOperations, SavedDuplicateIsARowOfItsOwn) {
  StoredNote();
  ASSERT_TRUE(session->DuplicateNote(71)->Save());
  EXPECT_EQ(Stored("SELECT NOT_Text FROM Notes WHERE NOT_ID=1"), "a text");
  EXPECT_EQ(Rows("Notes"), 2);
}

TEST_F(NoteOperations, DuplicateOfAnUnknownNoteGivesNothingAndDrawsNoNumber) {
  EXPECT_FALSE(session->DuplicateNote(71));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=3"), "0");
}

TEST_F(NoteOperations, DuplicateIsRefusedToASessionThatMayOnlyReadBeforeAnythingElse) {
  StoredNote();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DuplicateNote(71));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DuplicateNote] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(NoteOperations, DuplicateWithoutASequenceGivesNothing) {
  StoredNote();
  Run("DELETE * FROM Sequences WHERE SEQ_ID=3");
  EXPECT_FALSE(session->DuplicateNote(71));
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

TEST_F(NoteOperations, EveryFailureOfASavedDuplicateLeavesTheRows) {
  StoredNote();
  const auto duplicate = [&] {
    const Ref<CNote> copy = session->DuplicateNote(71);
    return copy && copy->Save();
  };
  EXPECT_EQ(FailEachCall(database, *session, duplicate, {}, Unchanged::AllButSequences).size(), 6u);
}

// ---- DeleteNote

TEST_F(NoteOperations, DeleteNoteSendsOneDelete) {
  InsertThree();
  EXPECT_TRUE(session->DeleteNote(2));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM Notes WHERE NOT_ID=2"});
  EXPECT_EQ(Rows("Notes"), 2);
}

TEST_F(NoteOperations, DeleteNoteWithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteNote(71));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NoteOperations, DeleteNoteIsRefusedToASessionThatMayOnlyRead) {
  InsertThree();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteNote(2));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeleteNote] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(Rows("Notes"), 3);
}

TEST_F(NoteOperations, DeleteNoteJoinsTheClientsTransaction) {
  InsertThree();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteNote(2));
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Notes"), 3);
}

TEST_F(NoteOperations, EveryFailureOfADeleteIsRecordedAndLeavesTheRow) {
  InsertThree();
  const auto failures = FailEachCall(database, *session, [&] { return session->DeleteNote(2); });
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "DeleteNote");
}

}  // namespace
}  // namespace zef::test
