#include <gtest/gtest.h>

#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/dump.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr auto kStatementError = static_cast<std::int32_t>(FailureNumber::StatementError);

std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

/// Conditions that are no condition: False, a record, and all as it was.
class BadCriteria : public SessionTest, public testing::WithParamInterface<std::string> {
 protected:
  BadCriteria() {
    const auto old = MakeRef<CFolder>();
    old->ID = 4711;
    folders->Add(old);
  }
  Ref<CFolders> folders = MakeRef<CFolders>();
};

TEST_P(BadCriteria, MakesLoadReturnFalse) { EXPECT_FALSE(session->LoadFoldersWithCriteria(folders, GetParam())); }

TEST_P(BadCriteria, IsRecordedAsAFailureOfTheStatement) {
  session->LoadFoldersWithCriteria(folders, GetParam());
  EXPECT_EQ(session->GetErrorProcedure(), "LoadFoldersWithCriteria");
  EXPECT_EQ(session->GetErrorCode(), kStatementError);
}

TEST_P(BadCriteria, IsExplained) {
  session->LoadFoldersWithCriteria(folders, GetParam());
  EXPECT_FALSE(session->GetErrorDescription().empty());
}

TEST_P(BadCriteria, LeavesTheCollection) {
  session->LoadFoldersWithCriteria(folders, GetParam());
  ASSERT_EQ(folders->Count(), 1);
  EXPECT_EQ(folders->ItemByIdx(1)->ID, 4711);
}

TEST_P(BadCriteria, ChangesNoTable) {
  const std::string before = Dump(connection());
  session->LoadFoldersWithCriteria(folders, GetParam());
  EXPECT_EQ(Dump(connection()), before);
}

TEST_P(BadCriteria, FindsNoFolder) {
  EXPECT_EQ(session->GetFolderIDByCriteria(GetParam()), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
}

INSTANTIATE_TEST_SUITE_P(Texts, BadCriteria,
                         testing::Values("FLD_ID=1; SELECT * FROM Users", "FLD_ID=1; DROP TABLE Folders", ";",
                                         "(FLD_ID=1", "FLD_ID=1)", "[FLD_ID=1", "FLD_Name='open", "FLD_Name=\"open",
                                         "FLD_ID=", "FLD_ID=#no date#", "AND", " ", Repeated("(", 10000) + "FLD_ID=1",
                                         Repeated("[", 10000), Repeated("(", 10000) + "FLD_ID=1" + Repeated(")", 10000),
                                         Repeated("NOT ", 10000) + "FLD_ID=1", std::string("FLD_ID=1\0", 9)));

using LongCriteria = SessionTest;

TEST_F(LongCriteria, OfAThousandConditionsIsRun) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(session->LoadFoldersWithCriteria(folders, "FLD_ID=0" + Repeated(" OR FLD_ID=8", 1000)))
      << session->GetEntireErrorDesc();
  EXPECT_EQ(folders->Count(), 1);
}

TEST_F(LongCriteria, WithSomeNestedBracketsIsRun) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(session->LoadFoldersWithCriteria(folders, Repeated("(", 50) + "FLD_ID=8" + Repeated(")", 50)))
      << session->GetEntireErrorDesc();
  EXPECT_EQ(folders->Count(), 1);
}

}  // namespace
}  // namespace zef::test
