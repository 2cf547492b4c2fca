#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

constexpr char kTooDeep[] = "Out of stack space: the folders lie more than 1000 levels deep.";

/// Chains of folders, each the child of the one before it.
class FolderLevels : public FolderTreeTest {
 protected:
  /// The folders 2001 to 2000 + `count`; the first one is a root.
  void InsertChain(std::int32_t count) {
    ASSERT_TRUE(session->BeginTransaction());
    for (std::int32_t id = 2001; id <= 2000 + count; ++id) {
      connection().Execute("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Type,FLD_Name) VALUES (" + std::to_string(id) +
                           "," + std::to_string(id == 2001 ? 0 : id - 1) + ",5,'F')");
    }
    ASSERT_TRUE(session->CommitTransaction());
  }
  void ExpectNothingChanged(const std::function<bool()>& operation) {
    const std::string before = Everything();
    EXPECT_FALSE(operation());
    EXPECT_TRUE(Everything() == before);
    EXPECT_EQ(Depth(), 0);
  }
};

TEST_F(FolderLevels, AThousandAreDeleted) {
  InsertChain(1000);
  EXPECT_TRUE(session->DeleteFolder(2001)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>2000"), 0);
}

TEST_F(FolderLevels, MoreThanAThousandAreNotDeleted) {
  InsertChain(1001);
  ExpectNothingChanged([&] { return session->DeleteFolder(2001); });
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteFolder] Error: 28 - " + std::string(kTooDeep));
}

TEST_F(FolderLevels, MoreThanAThousandAreNotCopied) {
  InsertChain(1001);
  InsertFolder(200, 0, 5);
  ExpectNothingChanged([&] { return session->CopyFolder(2001, 200); });
  EXPECT_EQ(session->GetErrorCode(), 28);
}

TEST_F(FolderLevels, AFolderIsCopiedBelowAThousand) {
  InsertChain(1000);
  InsertFolder(100, 0, 5);
  EXPECT_TRUE(session->CopyFolder(100, 3000)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows(Children(3000)), 1);
}

TEST_F(FolderLevels, AFolderIsNotCopiedBelowMoreThanAThousand) {
  InsertChain(1001);
  InsertFolder(100, 0, 5);
  ExpectNothingChanged([&] { return session->CopyFolder(100, 3001); });
  EXPECT_EQ(session->GetErrorCode(), 28);
}

}  // namespace
}  // namespace zef::test
