#include <set>

#include "folders/folder.h"
#include "folders/folder_items.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

/// No tree of folders that people make comes near to it, and a stack of a quarter of a megabyte holds it.
constexpr int kMostLevels = 1000;
constexpr char kCopy[] = "CSession.CopyFolder";
constexpr std::int32_t kNameTaken = 106;
constexpr std::int32_t kBelowItself = 107;

[[noreturn]] void RaiseEndless(const char* why) {
  throw RunTimeError(FailureNumber::OutOfStackSpace, std::string("Out of stack space: ") + why);
}
[[noreturn]] void RaiseCircle() { RaiseEndless("the folders go in a circle, so that one of them lies below itself."); }
[[noreturn]] void RaiseTooDeep() { RaiseEndless("the folders lie more than 1000 levels deep."); }

/// True, and recorded, if the new parent holds a folder of the source's name.
bool NameTaken(CSession& session, const CFolder& source, std::int32_t new_parent) {
  const std::string select = "SELECT * FROM Folders WHERE FLD_Name=" + SqlQuoted(source.Name.get()) +
                             " AND FLD_ParentID=" + SqlNumber(new_parent);
  if (Select(session, select)->EndOfFile()) return false;
  session.RecordError(kCopy, kNameTaken, "The destination folder contains a folder with the same name");
  return true;
}

/// True, and recorded, if the source is a parent of a folder on the way from the new parent up to its root. Raises 91
/// for a folder on the way that does not exist, and 28 if the way does not end.
bool BelowItself(CSession& session, std::int32_t source, std::int32_t new_parent) {
  std::set<std::int32_t> passed;
  std::int32_t folder = new_parent;
  for (int level = 0; level < kMostLevels; ++level) {
    if (!passed.insert(folder).second) RaiseCircle();
    const std::int32_t parent = Deref(session.GetFolder(folder)).ParentID;
    if (parent == source) {
      session.RecordError(kCopy, kBelowItself, "The destination folder is a child of source folder");
      return true;
    }
    if (parent == 0) return false;
    folder = parent;
  }
  RaiseTooDeep();
}

}  // namespace

/// Where in its tree an operation stands. A folder has one row and so one parent, since its identifier is the key: rows
/// that go in a circle lead back to the folder that the operation began with.
struct TreeWalk {
  std::int32_t root;
  int level = 1;

  /// One level further down; raises 28 where there is no end in sight.
  TreeWalk Below(std::int32_t child) const {
    if (child == root) RaiseCircle();
    if (level == kMostLevels) RaiseTooDeep();
    return {root, level + 1};
  }
};

bool CSession::CopyFolder(std::int32_t FolderID, std::int32_t lngNewParentID) {
  bool refused_by_tree = false;
  const bool copied = Trapped(*this, "CopyFolder", false, [&] {
    ClearError();
    if (Refused(*this, kCopy)) return false;
    const Ref<CFolder> source = GetFolder(FolderID);
    refused_by_tree =
        !source || NameTaken(*this, *source, lngNewParentID) || BelowItself(*this, FolderID, lngNewParentID);
    if (refused_by_tree) return false;
    return BeginTransaction() && CopyFolderRecursive(FolderID, lngNewParentID, {.root = FolderID}) &&
           CommitTransaction();
  });
  if (!copied && !refused_by_tree) RollbackTransaction();
  return copied;
}

bool CSession::CopyFolderRecursive(std::int32_t source, std::int32_t new_parent, const TreeWalk& walk) {
  const Ref<CFolder> copy = GetFolder(source);
  std::int32_t id = 0;
  if (GetUniqueIDFromSeq(kFolderSequence, id, 1) == 0) return false;
  Deref(copy).ID = id;
  copy->ParentID = new_parent;
  copy->Protected = false;
  copy->ResetFlagsX(true, true);
  if (!copy->Save()) return false;
  const ItemKind* const items = KindOfItems(copy->ItemsType);
  if (items != nullptr && !items->copy(*this, source, id)) return false;
  const auto children = MakeRef<CFolders>();
  if (!LoadChildFolders(children, source)) return false;
  for (const Ref<CFolder>& child : *children) {
    // Each copy would hold a further one.
    if (child->ID == id) RaiseEndless("a folder cannot be copied into itself.");
    if (!CopyFolderRecursive(child->ID, id, walk.Below(child->ID))) return false;
  }
  return true;
}

bool CSession::DeleteFolder(std::int32_t lngFolderID) {
  ClearError();
  return InConnectionTransaction(*this, "DeleteFolder", [&] {
    return !Refused(*this, "CSession.DeleteFolder") && DeleteFolderRecursive(lngFolderID, {.root = lngFolderID});
  });
}

bool CSession::DeleteFolderRecursive(std::int32_t folder, const TreeWalk& walk) {
  const Ref<CFolder> row = GetFolder(folder);
  if (!row) return false;
  const ItemKind* const items = KindOfItems(row->ItemsType);
  if (items != nullptr && !items->remove(*this, folder)) return false;
  const auto children = MakeRef<CFolders>();
  if (!LoadChildFolders(children, folder)) return false;
  for (const Ref<CFolder>& child : *children) {
    if (!DeleteFolderRecursive(child->ID, walk.Below(child->ID))) return false;
  }
  Execute(*this, WithNumber("DELETE * FROM Folders WHERE FLD_ID=", folder));
  return true;
}

}  // namespace zef
