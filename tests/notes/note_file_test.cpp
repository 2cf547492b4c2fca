#include <sys/stat.h>
#include <unistd.h>

#include "platform/text.h"
#include "tests/notes/note_fixture.h"
#include "tests/support/file_numbers.h"
#include "tests/support/open_file.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

class NoteFile : public NoteTest {
 protected:
  /// Reads a file into a loaded note, whose text is "a text".
  bool Read(const std::string& path) { return note_->ReadFromFile(path); }

  Ref<CNote> note_ = StoredNote();

 private:
  FreeFileNumbers free_numbers_;
};

TEST_F(NoteFile, TextOfAFileReplacesTheText) {
  ASSERT_TRUE(Read(FileOf("one\r\ntwo\n")));
  EXPECT_EQ(note_->Text, "one\r\ntwo\n");
}

TEST_F(NoteFile, TitleStays) {
  ASSERT_TRUE(Read(FileOf("Title: other")));
  EXPECT_EQ(note_->Title, "a title");
}

TEST_F(NoteFile, BytesAreReadInTheSingleByteEncoding) {
  ASSERT_TRUE(Read(FileOf("M\xfcller \x80 5")));
  EXPECT_EQ(note_->Text, "Müller € 5");
}

TEST_F(NoteFile, EveryByteValueIsOneCharacter) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  ASSERT_TRUE(Read(FileOf(bytes)));
  EXPECT_EQ(text::Length(note_->Text.get()), 256);
}

TEST_F(NoteFile, EveryByteValueCanBeSavedAndComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  ASSERT_TRUE(Read(FileOf(bytes)));
  ASSERT_TRUE(note_->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(session->GetNote(71)->Text, note_->Text.get());
}

TEST_F(NoteFile, OtherTextMakesTheNoteModified) {
  ASSERT_TRUE(Read(FileOf("other")));
  EXPECT_EQ(Flags(*note_), "old modified");
}

TEST_F(NoteFile, SameTextMakesTheNoteModifiedToo) {
  ASSERT_TRUE(Read(FileOf("a text")));
  EXPECT_EQ(Flags(*note_), "old modified");
}

TEST_F(NoteFile, EmptyFileEmptiesTheTextAndMakesTheNoteModified) {
  ASSERT_TRUE(Read(FileOf("")));
  EXPECT_EQ(note_->Text, "");
  EXPECT_EQ(Flags(*note_), "old modified");
}

TEST_F(NoteFile, EmptyFileLeavesAnEmptyNoteUnmodified) {
  const Ref<CNote> note = NewNote();
  ASSERT_TRUE(note->ReadFromFile(FileOf("")));
  EXPECT_EQ(Flags(*note), "new clear");
}

TEST_F(NoteFile, MissingFileIsRecordedAndLeavesTheNote) {
  EXPECT_FALSE(Read("/no-such-file"));
  EXPECT_EQ(session->GetErrorProcedure(), "CNote.ReadFromFile");
  EXPECT_EQ(session->GetErrorCode(), 53);
  EXPECT_EQ(note_->Text, "a text");
  EXPECT_EQ(Flags(*note_), "old clear");
}

TEST_F(NoteFile, MissingFolderIsRecorded) {
  EXPECT_FALSE(Read("/no-such-folder/file"));
  EXPECT_EQ(session->GetErrorCode(), 76);
}

TEST_F(NoteFile, FolderInPlaceOfAFileIsRecorded) {
  EXPECT_FALSE(Read("/"));
  EXPECT_EQ(session->GetErrorCode(), 75);
  EXPECT_EQ(note_->Text, "a text");
}

TEST_F(NoteFile, PipeInPlaceOfAFileIsRecordedWithoutWaiting) {
  const std::string path = FileOf("");
  std::filesystem::remove(path);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_FALSE(Read(path));
  EXPECT_EQ(session->GetErrorCode(), 75);
}

TEST_F(NoteFile, EmptyNameIsRecorded) {
  EXPECT_FALSE(Read(""));
  EXPECT_EQ(session->GetErrorCode(), 75);
}

TEST_F(NoteFile, FileThatCannotBeReadToItsEndLeavesWhatWasRead) {
  EXPECT_FALSE(Read("/proc/self/mem"));  // opens, and fails at its first byte
  EXPECT_EQ(session->GetErrorProcedure(), "CNote.ReadFromFile");
  EXPECT_EQ(note_->Text, "");
  EXPECT_EQ(Flags(*note_), "old modified");
}

TEST_F(NoteFile, FileThatCannotBeReadToItsEndKeepsItsNumber) {
  EXPECT_FALSE(Read("/proc/self/mem"));
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(NoteFile, NumberOfAFileThatCouldNotBeReadCanBeClosed) {
  EXPECT_FALSE(Read("/proc/self/mem"));
  CloseFile(1);
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(NoteFile, FileThatWasReadGivesItsNumberBack) {
  ASSERT_TRUE(Read(FileOf("x")));
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(NoteFile, ReadingLeavesNoFileOpen) {
  const std::string path = FileOf("x");
  ASSERT_TRUE(Read(path));
  const auto open = OpenFileCount();
  for (int i = 0; i < 10; ++i) ASSERT_TRUE(Read(path));
  EXPECT_EQ(OpenFileCount(), open);
}

TEST_F(NoteFile, FileThatCannotBeOpenedTakesNoNumber) {
  EXPECT_FALSE(Read("/"));
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(NoteFile, ReadingWithAllFileNumbersTakenIsRecordedAndLeavesTheNote) {
  const std::string path = FileOf("other");
  TakeAllFileNumbers(path + ".taken");
  EXPECT_FALSE(Read(path));
  EXPECT_EQ(session->GetErrorProcedure(), "CNote.ReadFromFile");
  EXPECT_EQ(session->GetErrorCode(), 67);
  EXPECT_EQ(note_->Text, "a text");
}

/// What a reading ends with in a session without a database: the failure, and how the text begins that was read.
std::string EndOfReading(const std::string& path) {
  const auto session = MakeRef<CSession>();
  session->conDBConnection = MakeRef<Connection>();
  const auto note = MakeRef<CNote>();
  note->SetSession(session);
  if (note->ReadFromFile(path)) return "done";
  return std::to_string(session->GetErrorCode()) + ", " + note->Text->substr(0, 6);
}

TEST(NoteFileWithoutMemory, FileThatMemoryCannotHoldLeavesWhatWasRead) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the address sanitizer needs more memory than the limit leaves";
#endif
  const TemporaryFolder folder;
  const std::string path = folder.path() / "note.txt";
  std::ofstream(path) << "begins";
  std::filesystem::resize_file(path, std::uintmax_t{200} << 20);
  Process child([&] {
    LimitMemory(std::size_t{64} << 20);
    return EndOfReading(path);
  });
  EXPECT_EQ(child.Result(), "7, begins");
}

TEST_F(NoteFile, ExportOfANoteIsReadAsPlainText) {
  const std::string path = FileOf("");
  const Ref<CNote> exported = NewNote();
  exported->Title = "other title";
  exported->Text = "other text";
  ASSERT_TRUE(exported->Save2File(path));
  ASSERT_TRUE(Read(path));
  EXPECT_EQ(note_->Title, "a title");
  EXPECT_THAT(note_->Text.get(),
              testing::AllOf(testing::HasSubstr("other title\r\n"), testing::HasSubstr("other text")));
}

TEST(NoteFileOfAnotherUser, IsRecordedAndReadsNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.path() / "note.txt";
  std::ofstream(path) << "secret";
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  std::filesystem::permissions(path, std::filesystem::perms::none);
  Process child([&]() -> std::string {
    if (geteuid() == 0 && setuid(65534) != 0) return "70, ";  // cannot become another user here
    return EndOfReading(path);
  });
  EXPECT_EQ(child.Result(), "70, ");
}

TEST_F(NoteFile, ReadingClearsAnOldError) {
  LeaveAnOldError();
  ASSERT_TRUE(Read(FileOf("x")));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(NoteFile, ReadingIsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(Read(FileOf("x")));
}

TEST_F(NoteFile, ReadingSendsNoStatement) {
  ASSERT_TRUE(Read(FileOf("x")));
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(NoteFile, FileOfTenMegabytesIsReadWhole) {
  ASSERT_TRUE(Read(FileOf(std::string(10'000'000, '\xe4'))));
  EXPECT_EQ(note_->Text->size(), 20'000'000u);
}

}  // namespace
}  // namespace zef::test
