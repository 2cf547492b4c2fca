#include <gtest/gtest.h>

#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

constexpr auto kNoSuchTable = static_cast<std::int32_t>(FailureNumber::NoSuchTable);
constexpr auto kStatementError = static_cast<std::int32_t>(FailureNumber::StatementError);

using Get = SessionTest;

TEST_F(Get, GivesTheRecord) { EXPECT_EQ(session->GetFolder(8)->Name.get(), "Birthdays"); }

TEST_F(Get, GivesTheRecordItsSession) { EXPECT_EQ(session->GetFolder(8)->Session(), session); }

TEST_F(Get, ThatRunsOutOfMemoryGivesNothingAndIsRecorded) {
  const auto log = Watch(connection());
  log->refused = {"SELECT * FROM Folders"};
  log->out_of_memory = true;
  EXPECT_EQ(session->GetFolder(8), nullptr);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetFolder] Error: 7 - Out of memory");
}

TEST_F(Get, OfAMissingRowGivesNothing) { EXPECT_EQ(session->GetFolder(99), nullptr); }

TEST_F(Get, OfAMissingRowIsNoFailure) {
  session->GetFolder(99);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(Get, ClearsAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->GetFolder(99);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(Get, GivesANewObjectEachTime) { EXPECT_NE(session->GetFolder(8), session->GetFolder(8)); }

TEST_F(Get, ThatFailsGivesNothing) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_EQ(session->GetFolder(8), nullptr);
}

TEST_F(Get, ThatFailsIsRecordedUnderTheBareName) {
  connection().Execute("DROP TABLE Folders");
  session->GetFolder(8);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolder");
  EXPECT_EQ(session->GetErrorCode(), kNoSuchTable);
}

TEST_F(Get, OfARowWithoutAColumnIsRecorded) {
  connection().Execute("ALTER TABLE Folders DROP COLUMN FLD_Options");
  EXPECT_EQ(session->GetFolder(8), nullptr);
  EXPECT_EQ(session->GetErrorCode(), 3265);
}

TEST_F(Get, SeesWhatTheRunningTransactionWrote) {
  session->BeginTransaction();
  connection().Execute("UPDATE Folders SET FLD_Name='Feasts' WHERE FLD_ID=8");
  EXPECT_EQ(session->GetFolder(8)->Name.get(), "Feasts");
}

TEST_F(Get, RecordsKeepTheirSessionAlive) {
  const Ref<CFolder> folder = session->GetFolder(8);
  session.reset();
  folder->Name = "Feasts";
  EXPECT_TRUE(folder->Save());
}

using Create = SessionTest;

TEST_F(Create, DrawsTheNextIdentifier) { EXPECT_EQ(session->CreateFolder()->ID, 13); }

TEST_F(Create, DrawsAnotherOneEachTime) {
  session->CreateFolder();
  EXPECT_EQ(session->CreateFolder()->ID, 14);
}

TEST_F(Create, GivesTheRecordItsSession) { EXPECT_EQ(session->CreateFolder()->Session(), session); }

TEST_F(Create, AddsNoRow) {
  session->CreateFolder();
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(Create, LeavesAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->CreateFolder();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - seven");
}

TEST_F(Create, WithoutItsSequenceGivesNothing) {
  connection().Execute("DELETE * FROM Sequences WHERE SEQ_ID=12");
  EXPECT_EQ(session->CreateFolder(), nullptr);
}

TEST_F(Create, WithoutItsSequenceIsRecordedUnderTheSequences) {
  connection().Execute("DELETE * FROM Sequences WHERE SEQ_ID=12");
  session->CreateFolder();
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

TEST_F(Create, BehindTheLastIdentifierGivesNothing) {
  connection().Execute("UPDATE Sequences SET SEQ_Value=2147483647 WHERE SEQ_ID=12");
  EXPECT_EQ(session->CreateFolder(), nullptr);
}

class Load : public SessionTest {
 protected:
  bool LoadWith(const std::string& criteria) { return session->LoadFoldersWithCriteria(folders, criteria); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const Ref<CFolder>& folder : *folders) names.push_back(folder->Name);
    return names;
  }
  using Texts = std::vector<std::string>;
  Ref<CFolders> folders = MakeRef<CFolders>();
};

/// A collection that holds one element, which is no row.
class LoadThatFails : public Load {
 protected:
  LoadThatFails() {
    const auto old = MakeRef<CFolder>();
    old->ID = 4711;
    folders->Add(old);
  }
  void ExpectOldContent() {
    ASSERT_EQ(folders->Count(), 1);
    EXPECT_EQ(folders->ItemByIdx(1)->ID, 4711);
  }
};

TEST_F(Load, ReturnsTrue) { EXPECT_TRUE(LoadWith("")); }

TEST_F(Load, WithoutCriteriaTakesTheWholeTableSorted) {
  LoadWith("");
  EXPECT_EQ(Names(), (Texts{"Alarms", "All Events", "All Tasks", "Anniversaries", "Birthdays", "Calendar",
                            "Completed Tasks", "Contacts", "Notes", "Phone Call Notes", "Tasks", "Tasks Due Dates"}));
}

TEST_F(Load, SortsWithoutRegardToLetterCase) {
  connection().Execute("DELETE * FROM Folders WHERE FLD_ID>3");
  connection().Execute("UPDATE Folders SET FLD_Name='apple' WHERE FLD_ID=1");
  connection().Execute("UPDATE Folders SET FLD_Name='Banana' WHERE FLD_ID=2");
  connection().Execute("UPDATE Folders SET FLD_Name='cherry' WHERE FLD_ID=3");
  LoadWith("");
  EXPECT_EQ(Names(), (Texts{"apple", "Banana", "cherry"}));
}

TEST_F(Load, SortsAccentsBesideTheirLetters) {
  connection().Execute("DELETE * FROM Folders WHERE FLD_ID>3");
  connection().Execute("UPDATE Folders SET FLD_Name='zebra' WHERE FLD_ID=1");
  connection().Execute("UPDATE Folders SET FLD_Name='Übung' WHERE FLD_ID=2");
  connection().Execute("UPDATE Folders SET FLD_Name='ubiquity' WHERE FLD_ID=3");
  LoadWith("");
  EXPECT_EQ(Names(), (Texts{"ubiquity", "Übung", "zebra"}));
}

TEST_F(Load, PutsNullFirst) {
  connection().Execute("UPDATE Folders SET FLD_Name=Null WHERE FLD_ID=7");
  LoadWith("");
  EXPECT_EQ(folders->ItemByIdx(1)->ID, 7);
}

TEST_F(Load, TakesTheRowsThatMeetTheCriteria) {
  LoadWith("FLD_Type=2");
  EXPECT_EQ(Names(), (Texts{"All Tasks", "Completed Tasks", "Tasks"}));
}

TEST_F(Load, GivesTheElementsTheirSession) {
  LoadWith("FLD_ID=1");
  EXPECT_EQ(folders->ItemByIdx(1)->Session(), session);
}

TEST_F(Load, ElementsHaveNoFlags) {
  LoadWith("FLD_ID=1");
  EXPECT_FALSE(folders->ItemByIdx(1)->IsNew() || folders->ItemByIdx(1)->IsModified());
}

TEST_F(Load, KeysTheElementsByTheirID) {
  LoadWith("");
  EXPECT_EQ(folders->ItemByKey("8")->Name.get(), "Birthdays");
}

TEST_F(Load, WithoutRowsReturnsTrue) { EXPECT_TRUE(LoadWith("FLD_ID=99")); }

TEST_F(Load, WithoutRowsEmptiesTheCollection) {
  LoadWith("");
  LoadWith("FLD_ID=99");
  EXPECT_EQ(folders->Count(), 0);
}

TEST_F(Load, TwiceReplacesTheElements) {
  LoadWith("FLD_Type=2");
  LoadWith("FLD_Type=2");
  EXPECT_EQ(folders->Count(), 3);
}

TEST_F(Load, ClearsAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  LoadWith("");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(Load, IntoNothingReturnsFalse) {
  EXPECT_FALSE(session->LoadFoldersWithCriteria(nullptr, ""));
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(LoadThatFails, OfABadColumnReturnsFalse) { EXPECT_FALSE(LoadWith("NoSuchColumn=1")); }

TEST_F(LoadThatFails, OfABadColumnIsRecordedUnderTheBareName) {
  LoadWith("NoSuchColumn=1");
  EXPECT_EQ(session->GetErrorProcedure(), "LoadFoldersWithCriteria");
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchColumn));
}

TEST_F(LoadThatFails, OfABadColumnLeavesTheCollection) {
  LoadWith("NoSuchColumn=1");
  ExpectOldContent();
}

TEST_F(LoadThatFails, OfTwoStatementsReturnsFalse) {
  EXPECT_FALSE(LoadWith("FLD_ID=1; DELETE * FROM Folders"));
  EXPECT_EQ(session->GetErrorCode(), kStatementError);
}

TEST_F(LoadThatFails, OfTwoStatementsRunsNeither) {
  LoadWith("FLD_ID=1; DELETE * FROM Folders");
  EXPECT_EQ(Count(connection(), "Folders"), 12);
  ExpectOldContent();
}

TEST_F(LoadThatFails, OfAMissingTableLeavesTheCollection) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_FALSE(LoadWith(""));
  EXPECT_EQ(session->GetErrorCode(), kNoSuchTable);
  ExpectOldContent();
}

TEST_F(LoadThatFails, InTheMiddleKeepsWhatWasAdded) {
  connection().Execute("ALTER TABLE Folders ALTER COLUMN FLD_Options Double");
  connection().Execute("UPDATE Folders SET FLD_Options=1E10 WHERE FLD_Name='Anniversaries'");
  EXPECT_FALSE(LoadWith(""));
  EXPECT_EQ(session->GetErrorCode(), 6);
  EXPECT_EQ(Names(), (Texts{"Alarms", "All Events", "All Tasks"}));
}

TEST_F(LoadThatFails, CanBeRepeatedWithSuccess) {
  LoadWith("NoSuchColumn=1");
  EXPECT_TRUE(LoadWith(""));
  EXPECT_FALSE(session->GetErrorFlag());
}

}  // namespace
}  // namespace zef::test
