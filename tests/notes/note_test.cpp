#include "notes/note.h"

#include <limits>

#include "tests/notes/note_fixture.h"

namespace zef::test {
namespace {

const std::vector<Setter<CNote>> kSetters = {
    {"FolderID", [](auto& n) { n.FolderID = 5; }, [](auto& n) { n.FolderID = 6; }},
    {"CategoryID", [](auto& n) { n.CategoryID = 5; }, [](auto& n) { n.CategoryID = 6; }},
    {"Title", [](auto& n) { n.Title = "a"; }, [](auto& n) { n.Title = "A"; }},
    {"Text", [](auto& n) { n.Text = "a"; }, [](auto& n) { n.Text = "A"; }},
    {"DateLastUpdate", [](auto& n) { n.DateLastUpdate = Date(1); }, [](auto& n) { n.DateLastUpdate = Date(2); }},
};

using NoteRecord = NoteTest;

// ---- a new note

TEST_F(NoteRecord, NewNoteHasNoCategory) { EXPECT_EQ(MakeRef<CNote>()->CategoryID, -1); }

TEST_F(NoteRecord, NewNoteHasZeroOrNothingInEverythingElse) {
  const auto note = MakeRef<CNote>();
  EXPECT_EQ(note->ID, 0);
  EXPECT_EQ(note->FolderID, 0);
  EXPECT_EQ(note->Title.get() + note->Text.get(), "");
  EXPECT_EQ(note->DateLastUpdate, Date());
}

TEST_F(NoteRecord, NewNoteIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CNote>()), "new clear"); }

TEST_F(NoteRecord, NewNoteIsEmpty) { EXPECT_TRUE(MakeRef<CNote>()->IsEmpty()); }

TEST_F(NoteRecord, NoteWithACategoryIsNotEmpty) {
  const auto note = MakeRef<CNote>();
  note->CategoryID = 1;
  EXPECT_FALSE(note->IsEmpty());
}

TEST_F(NoteRecord, NoteWithATitleOrATextIsNotEmpty) {
  for (auto text : {&CNote::Title, &CNote::Text}) {
    const auto note = MakeRef<CNote>();
    (*note).*text = "x";
    EXPECT_FALSE(note->IsEmpty());
  }
}

TEST_F(NoteRecord, FolderIdentifierAndDateDoNotKeepANoteFromBeingEmpty) {
  const auto note = MakeRef<CNote>();
  note->FolderID = 5;
  note->ID = 6;
  note->CategoryID = 0;
  note->DateLastUpdate = Date(1);
  EXPECT_TRUE(note->IsEmpty());
}

TEST_F(NoteRecord, EverySetterMarksOnlyAChange) {
  for (const Setter<CNote>& setter : kSetters) ExpectMarksOnlyChanges(*MakeRef<CNote>(), setter);
}

TEST_F(NoteRecord, ResetFlagsSetsBothFlags) {
  const Ref<CNote> note = StoredNote();
  note->ResetFlags();
  EXPECT_EQ(Flags(*note), "new modified");
}

// ---- reading

TEST_F(NoteRecord, RowFillsEveryProperty) { ExpectAllValues(*StoredNote(), kNoteColumns); }

TEST_F(NoteRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO Notes (NOT_ID,NOT_FolderID) VALUES (71,0)");
  const Ref<CNote> note = session->GetNote(71);
  EXPECT_EQ(note->CategoryID, 0);
  EXPECT_EQ(note->Text.get() + note->Title.get(), "");
  EXPECT_EQ(note->DateLastUpdate, Date());
}

TEST_F(NoteRecord, EmptyTextsReadAsEmpty) {
  Run("INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Text,NOT_Title) VALUES (71,0,'','')");
  const Ref<CNote> note = session->GetNote(71);
  EXPECT_EQ(note->Text.get() + note->Title.get(), "");
}

/// A long text that counts how often a portion of it is fetched.
struct CountedField {
  std::string text;
  std::size_t fetched = 0;
  int chunks = 0;

  std::int32_t ActualSize() const { return static_cast<std::int32_t>(text.size()); }
  Value GetChunk(std::int32_t length) {
    ++chunks;
    const std::string chunk = text.substr(fetched, static_cast<std::size_t>(length));
    fetched += chunk.size();
    return chunk;
  }
};

using NoteText = Property<std::string> CNote::*;

/// Both long texts of a note.
class NotePortions : public testing::TestWithParam<NoteText> {
 protected:
  /// The text of a new note that has read it from a field.
  template <class LongField>
  std::string Read(LongField&& field) {
    const auto note = MakeRef<CNote>();
    const Column<CNote> column{.name = "NOT_Text", .member = GetParam(), .in_portions = true};
    ReadPortions(*note, column, field);
    return (*note).*GetParam();
  }
  int ChunksOf(const std::string& text) {
    CountedField field{text};
    EXPECT_EQ(Read(field), text);
    return field.chunks;
  }
};
INSTANTIATE_TEST_SUITE_P(Of, NotePortions, testing::Values(&CNote::Text, &CNote::Title),
                         [](const auto& text) { return text.param == &CNote::Text ? "Text" : "Title"; });

TEST_P(NotePortions, OfNoCharactersAreNotFetched) { EXPECT_EQ(ChunksOf(""), 0); }

TEST_P(NotePortions, Have128Characters) {
  EXPECT_EQ(ChunksOf("a"), 1);
  EXPECT_EQ(ChunksOf(std::string(128, 'a')), 1);
  EXPECT_EQ(ChunksOf(std::string(129, 'a')), 2);
}

/// A long text whose second portion is Null.
struct FieldWithAGap {
  int chunks = 0;

  std::int32_t ActualSize() const { return 384; }
  Value GetChunk(std::int32_t) { return ++chunks == 2 ? Value() : Value(std::to_string(chunks)); }
};

TEST_P(NotePortions, ThatAreNullAddNothing) { EXPECT_EQ(Read(FieldWithAGap()), "13"); }

TEST_F(NoteRecord, NullFolderCannotBeRead) {
  Run("INSERT INTO Notes (NOT_ID) VALUES (71)");
  EXPECT_FALSE(session->GetNote(71));
  EXPECT_EQ(session->GetErrorProcedure(), "GetNote");
  EXPECT_EQ(session->GetErrorCode(), 94);
}

TEST_F(NoteRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Notes (NOT_ID,NOT_FolderID) VALUES (71,1)");
  const Ref<Recordset> rs = Run("SELECT Null AS NOT_ID," + ColumnList(kNoteColumns, "NOT_ID") + " FROM Notes");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CNote>()->GetValuesFromRS(rs); }), 94);
}

TEST_F(NoteRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Notes", kNoteColumns));
  ExpectReadInOrder(connection(), "Notes", kNoteColumns, [] { return MakeRef<CNote>(); });
}

TEST_F(NoteRecord, ReadingClearsBothFlags) { EXPECT_EQ(Flags(*StoredNote()), "old clear"); }

TEST_F(NoteRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kNoteColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Notes")));
  EXPECT_THAT(ColumnsWritten(*NewNote(), "NOT_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Notes")));
}

TEST_F(NoteRecord, TextsAroundThePortionsLengthComeBackWhole) {
  for (const std::size_t length : {1u, 127u, 128u, 129u, 255u, 256u, 257u}) {
    const std::string text(length, 'x');
    EXPECT_EQ(TextAfterSaving(text), text) << length;
  }
}

TEST_F(NoteRecord, TextOf129EmojiComesBackWhole) {
  std::string text;
  for (int i = 0; i < 129; ++i) text += "🎂";
  EXPECT_EQ(TextAfterSaving(text), text);
}

TEST_F(NoteRecord, CharactersOfAllLengthsAroundAPortionsEndComeBackWhole) {
  for (const char* character : {"a", "ä", "€", "🎂", "👩‍👩‍👧"}) {
    const std::string text = std::string(127, 'x') + character + std::string(130, 'y');
    EXPECT_EQ(TextAfterSaving(text), text) << character;
  }
}

TEST_F(NoteRecord, TextOfAMegabyteComesBackWhole) {
  std::string text;
  while (text.size() < 1'000'000) text += "line of a long note\r\n";
  EXPECT_EQ(TextAfterSaving(text), text);
}

TEST_F(NoteRecord, TextWithAZeroCharacterComesBackWhole) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(TextAfterSaving(text), text);
}

TEST_F(NoteRecord, LongTitleComesBackWhole) {
  const Ref<CNote> note = NewNote();
  note->Title = std::string(1000, 't');
  ASSERT_TRUE(note->Save());
  EXPECT_EQ(session->GetNote(note->ID)->Title, std::string(1000, 't'));
}

TEST_F(NoteRecord, ReadingAddsToWhatAnObjectHolds) {
  Run(InsertOfAll("Notes", kNoteColumns));
  const auto note = MakeRef<CNote>();
  note->Title = "my ";
  note->Text = "before ";
  note->GetValuesFromRS(Run("SELECT * FROM Notes"));
  EXPECT_EQ(note->Title, "my a title");
  EXPECT_EQ(note->Text, "before a text");
}

// ---- Refresh

TEST_F(NoteRecord, RefreshSendsTheSelectOfOneNote) {
  ASSERT_TRUE(StoredNote()->Refresh());
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Notes WHERE NOT_ID=71"});
}

TEST_F(NoteRecord, RefreshOfALoadedNoteGivesItsTextsTwiceOver) {
  const Ref<CNote> note = StoredNote();
  ASSERT_TRUE(note->Refresh());
  EXPECT_EQ(note->Text, "a texta text");
  EXPECT_EQ(note->Title, "a titlea title");
}

TEST_F(NoteRecord, RefreshClearsTheFlags) {
  const Ref<CNote> note = StoredNote();
  note->FolderID = 5;
  ASSERT_TRUE(note->Refresh());
  EXPECT_EQ(Flags(*note), "old clear");
  EXPECT_EQ(note->FolderID, 72);
}

TEST_F(NoteRecord, RefreshOfADeletedNoteRecords101AndLeavesTheNote) {
  const Ref<CNote> note = StoredNote();
  note->Text = "mine";
  Run("DELETE * FROM Notes");
  EXPECT_FALSE(note->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CNote.Refresh] Error: 101 - No note found");
  EXPECT_EQ(note->Text, "mine");
  EXPECT_EQ(Flags(*note), "old modified");
}

TEST_F(NoteRecord, RefreshThatFailsIsRecorded) {
  const Ref<CNote> note = StoredNote();
  Refuse("SELECT * FROM Notes");
  EXPECT_FALSE(note->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CNote.Refresh] Error: -2147217900 - made to fail");
}

TEST_F(NoteRecord, RefreshDoesNotClearAnOldError) {
  const Ref<CNote> note = StoredNote();
  LeaveAnOldError();
  ASSERT_TRUE(note->Refresh());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- GetFieldsArray

TEST_F(NoteRecord, FieldsHaveTenRowsAndTenFurtherColumns) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(StoredNote()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 10);
  EXPECT_EQ(fields.LastRow(), 10);
  EXPECT_EQ(fields.LastColumn(), 10);
}

TEST_F(NoteRecord, FieldsStandInTheOrderOfWriting) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(StoredNote()->GetFieldsArray(FN_DATABASE, fields, count));
  Texts names, values;
  for (std::int32_t row = 0; row < 5; ++row) {
    names.push_back(fields(row, 0));
    values.push_back(fields(row, 1));
  }
  EXPECT_EQ(names, (Texts{"NOT_Title", "NOT_Text", "NOT_FolderID", "NOT_CategoryID", "NOT_DateLastUpdate"}));
  EXPECT_EQ(values, (Texts{"'a title'", "'a text'", "72", "73", "'5/1/2024 9:00:00 AM'"}));
  EXPECT_EQ(fields(5, 0), "");
}

}  // namespace
}  // namespace zef::test
