#pragma once

#include <string>

#include "folders/folder.h"
#include "tests/support/session_test.h"

namespace zef::test {

/// Folders to be saved.
class FolderSave : public SessionTest {
 protected:
  Ref<CFolder> NewFolder(const std::string& name, std::int32_t parent = 0) {
    Ref<CFolder> folder = session->CreateFolder();
    folder->Name = name;
    folder->ParentID = parent;
    folder->ItemsType = FT_Notes;
    return folder;
  }
  Ref<CFolder> SavedFolder(const std::string& name, std::int32_t parent = 0) {
    Ref<CFolder> folder = NewFolder(name, parent);
    EXPECT_TRUE(folder->Save()) << session->GetEntireErrorDesc();
    return folder;
  }
  int Depth() { return connection().OpenedEngine().TransactionDepth(); }
};

}  // namespace zef::test
