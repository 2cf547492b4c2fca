#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "notes/note.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

inline const ColumnCases<CNote> kNoteColumns = {
    {"NOT_ID", "71", "71", "", [](auto& n) { return Shown(n.ID); }},
    {"NOT_FolderID", "72", "72", "", [](auto& n) { return Shown(n.FolderID); }},
    {"NOT_CategoryID", "73", "73", "0", [](auto& n) { return Shown(n.CategoryID); }},
    {"NOT_Text", "'a text'", "a text", "", [](auto& n) { return Shown(n.Text); }},
    {"NOT_Title", "'a title'", "a title", "", [](auto& n) { return Shown(n.Title); }},
    {"NOT_DateLastUpdate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& n) { return Shown(n.DateLastUpdate); }},
};

/// Tests around one note.
class NoteTest : public RecordTest {
 protected:
  /// A new note under the next identifier, of which the log tells nothing.
  Ref<CNote> NewNote() {
    Ref<CNote> note = session->CreateNote();
    Forget();
    return note;
  }
  /// The note of a row that has each column's own value.
  Ref<CNote> StoredNote() {
    Run(InsertOfAll("Notes", kNoteColumns));
    Ref<CNote> note = session->GetNote(71);
    Forget();
    return note;
  }
  /// The text of a new note after it was saved and loaded again.
  std::string TextAfterSaving(const std::string& text) {
    const Ref<CNote> note = NewNote();
    note->Text = text;
    EXPECT_TRUE(note->Save()) << session->GetEntireErrorDesc();
    return session->GetNote(note->ID)->Text;
  }
  /// A file of these bytes, in a folder of its own.
  std::string FileOf(const std::string& content) const {
    const std::string path = (folder_.path() / "note.txt").string();
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace zef::test
