#include "notes/note.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kNoteSequence = 3;

}  // namespace

Ref<CNote> CSession::GetNote(std::int32_t NoteID) {
  return GetRecord<CNote>(*this, "GetNote", CNote::kSelectRow, NoteID, adCmdText | adAsyncFetch);
}

Ref<CNote> CSession::CreateNote() { return CreateRecord<CNote>(*this, "CSession.CreateNote", kNoteSequence); }

Ref<CNote> CSession::DuplicateNote(std::int32_t lngOldNoteID) {
  return DuplicateRecord(*this, "CSession.DuplicateNote", &CSession::GetNote, lngOldNoteID, kNoteSequence);
}

bool CSession::DeleteNote(std::int32_t lngNoteID) {
  return DeleteRow(*this, "DeleteNote", "DELETE * FROM Notes WHERE NOT_ID=", lngNoteID, "CSession.DeleteNote");
}

bool CSession::LoadNotes4Folder(const Ref<CNotes>& udtNotes, std::int32_t lngFolderID) {
  return LoadNotesWithCriteria(udtNotes, "NOT_FolderID=" + SqlNumber(lngFolderID));
}

bool CSession::LoadNotesWithCriteria(const Ref<CNotes>& udtNotes, const std::string& strCriteria) {
  return LoadRecords(*this, udtNotes, "LoadNotesWithCriteria", "SELECT * FROM Notes", strCriteria);
}

}  // namespace zef
