#include <gmock/gmock.h>

#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

using testing::ElementsAre;

/// The columns of an INSERT of a folder with a name.
const std::string kInsert =
    "INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Options,FLD_Name,FLD_Type,FLD_DateLastUpdate,FLD_Description,"
    "FLD_Protected) VALUES ";

/// The texts of folders, at nine o'clock on the first of May 2024.
class FolderText : public SessionTest {
 protected:
  Ref<CFolder> NewFolder(const std::string& name, const std::string& description = {}) {
    Ref<CFolder> folder = session->CreateFolder();
    folder->Name = name;
    folder->Description = description;
    folder->ParentID = 4;
    folder->ItemsType = FT_Notes;
    return folder;
  }
  /// All that `Save` sends.
  std::vector<std::string> Texts(CFolder& folder) {
    const auto log = Watch(connection());
    EXPECT_TRUE(folder.Save()) << session->GetEntireErrorDesc();
    return log->texts;
  }
  std::string Written(CFolder& folder) { return Texts(folder).at(2); }

  const ClockOverride clock{Date(45413.375)};
};

TEST_F(FolderText, OfASaveAreTheseFourCalls) {
  EXPECT_THAT(Texts(*NewFolder("Recipes")),
              ElementsAre("BEGIN", "SELECT * FROM Folders WHERE FLD_ID<>13 AND FLD_ParentID=4 AND FLD_Name='Recipes'",
                          kInsert + "(13,4,0,'Recipes',3,'5/1/2024 9:00:00 AM','',0)", "COMMIT"));
}

TEST_F(FolderText, OfAnInsertWithAllSet) {
  const Ref<CFolder> folder = NewFolder("Recipes", "Sweet and sour");
  folder->Options = -1;
  folder->Protected = true;
  EXPECT_EQ(Written(*folder), kInsert + "(13,4,-1,'Recipes',3,'5/1/2024 9:00:00 AM','Sweet and sour',1)");
}

TEST_F(FolderText, OfAnInsertLeavesOutAnEmptyName) {
  EXPECT_EQ(Written(*NewFolder("")),
            "INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Options,FLD_Type,FLD_DateLastUpdate,FLD_Description,"
            "FLD_Protected) VALUES (13,4,0,3,'5/1/2024 9:00:00 AM','',0)");
}

TEST_F(FolderText, OfAnInsertDoublesApostrophes) {
  EXPECT_EQ(Written(*NewFolder("O'Brien", "'tis 'quoted'")),
            kInsert + "(13,4,0,'O''Brien',3,'5/1/2024 9:00:00 AM','''tis ''quoted''',0)");
}

TEST_F(FolderText, OfTheNameCheckDoublesApostrophes) {
  EXPECT_EQ(Texts(*NewFolder("O'Brien")).at(1),
            "SELECT * FROM Folders WHERE FLD_ID<>13 AND FLD_ParentID=4 AND FLD_Name='O''Brien'");
}

TEST_F(FolderText, OfTheNameCheckQuotesAnEmptyName) {
  EXPECT_EQ(Texts(*NewFolder("")).at(1), "SELECT * FROM Folders WHERE FLD_ID<>13 AND FLD_ParentID=4 AND FLD_Name=''");
}

TEST_F(FolderText, OfAnUpdate) {
  const Ref<CFolder> folder = session->GetFolder(12);
  folder->Description = "Calls";
  EXPECT_EQ(Written(*folder),
            "UPDATE Folders SET FLD_ID=12,FLD_ParentID=4,FLD_Options=0,FLD_Name='Phone Call Notes',FLD_Type=3,"
            "FLD_DateLastUpdate='5/1/2024 9:00:00 AM',FLD_Description='Calls',FLD_Protected=1 WHERE FLD_ID=12");
}

TEST_F(FolderText, OfAnUpdateWritesEmptyTexts) {
  const Ref<CFolder> folder = session->GetFolder(12);
  folder->Name = "";
  folder->Description = "";
  EXPECT_EQ(Written(*folder),
            "UPDATE Folders SET FLD_ID=12,FLD_ParentID=4,FLD_Options=0,FLD_Name='',FLD_Type=3,"
            "FLD_DateLastUpdate='5/1/2024 9:00:00 AM',FLD_Description='',FLD_Protected=1 WHERE FLD_ID=12");
}

TEST_F(FolderText, OfAnUpdateDoublesApostrophes) {
  const Ref<CFolder> folder = session->GetFolder(12);
  folder->Name = "'";
  folder->Description = "it's";
  EXPECT_EQ(Written(*folder),
            "UPDATE Folders SET FLD_ID=12,FLD_ParentID=4,FLD_Options=0,FLD_Name='''',FLD_Type=3,"
            "FLD_DateLastUpdate='5/1/2024 9:00:00 AM',FLD_Description='it''s',FLD_Protected=1 WHERE FLD_ID=12");
}

TEST_F(FolderText, OfNegativeNumbersHasNoQuotes) {
  const Ref<CFolder> folder = session->GetFolder(12);
  folder->ParentID = -1;
  folder->Options = -2147483647 - 1;
  EXPECT_EQ(Written(*folder),
            "UPDATE Folders SET FLD_ID=12,FLD_ParentID=-1,FLD_Options=-2147483648,FLD_Name='Phone Call Notes',"
            "FLD_Type=3,FLD_DateLastUpdate='5/1/2024 9:00:00 AM',FLD_Description='Phone Call Notes',FLD_Protected=1 "
            "WHERE FLD_ID=12");
}

TEST_F(FolderText, OfAStampAtMidnightIsTheDateAlone) {
  const ClockOverride midnight{Date(45413.0)};
  EXPECT_NE(Written(*NewFolder("Recipes")).find(",'5/1/2024',"), std::string::npos);
}

TEST_F(FolderText, OfAnUnchangedFolderIsTheNameCheckAlone) {
  EXPECT_THAT(
      Texts(*session->GetFolder(12)),
      ElementsAre("BEGIN", "SELECT * FROM Folders WHERE FLD_ID<>12 AND FLD_ParentID=4 AND FLD_Name='Phone Call Notes'",
                  "COMMIT"));
}

TEST_F(FolderText, InsideATransactionHasNoBeginOrCommit) {
  const Ref<CFolder> folder = session->GetFolder(12);
  session->BeginTransaction();
  EXPECT_THAT(Texts(*folder),
              ElementsAre("SELECT * FROM Folders WHERE FLD_ID<>12 AND FLD_ParentID=4 AND FLD_Name='Phone Call Notes'"));
}

/// What a look-up or a listing sends.
struct Sending {
  const char* name;
  void (*call)(CSession&);
  const char* text;

  friend void PrintTo(const Sending& sending, std::ostream* out) { *out << sending.name; }
};

class LookupText : public SessionTest, public testing::WithParamInterface<Sending> {};

TEST_P(LookupText, IsSentAlone) {
  const auto log = Watch(connection());
  GetParam().call(*session);
  EXPECT_THAT(log->texts, ElementsAre(GetParam().text));
}

void LoadFolders(CSession& session, const char* criteria) {
  session.LoadFoldersWithCriteria(MakeRef<CFolders>(), criteria);
}

const Sending kSendings[] = {
    {"OfGetFolder", [](CSession& s) { s.GetFolder(-1); }, "SELECT * FROM Folders WHERE FLD_ID=-1"},
    {"OfTheIdentifierWithCriteria",
     [](CSession& s) { s.GetFolderIDByCriteria("FLD_Protected=1 and FLD_Name='Birthdays'"); },
     "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Birthdays'"},
    {"OfTheIdentifierWithoutCriteria", [](CSession& s) { s.GetFolderIDByCriteria(""); }, "SELECT FLD_ID FROM Folders"},
    {"OfPhoneCallNotesNamesCalls", [](CSession& s) { s.GetFolderID4PhoneCallNotes(); },
     "SELECT FLD_ID FROM Folders WHERE FLD_Type=3 AND FLD_Protected=1 AND FLD_Name='Phone Calls Notes'"},
    {"OfCompletedTasks", [](CSession& s) { s.GetFolderID4Completedtasks(); },
     "SELECT FLD_ID FROM Folders WHERE FLD_Type=2 AND FLD_Protected=1 AND FLD_Name='Completed Tasks'"},
    {"OfAListWithoutCriteria", [](CSession& s) { LoadFolders(s, ""); }, "SELECT * FROM Folders ORDER BY FLD_NAME "},
    {"OfAListWithCriteria", [](CSession& s) { LoadFolders(s, "FLD_Type=4"); },
     "SELECT * FROM Folders WHERE FLD_Type=4 ORDER BY FLD_NAME "},
    {"OfTheRootFolders", [](CSession& s) { s.LoadRootFolders(MakeRef<CFolders>()); },
     "SELECT * FROM Folders WHERE FLD_ParentID=0 ORDER BY FLD_NAME "},
    {"OfTheChildFolders", [](CSession& s) { s.LoadChildFolders(MakeRef<CFolders>(), -7); },
     "SELECT * FROM Folders WHERE FLD_ParentID=-7 ORDER BY FLD_NAME "},
};
INSTANTIATE_TEST_SUITE_P(Operations, LookupText, testing::ValuesIn(kSendings),
                         [](const auto& sending) { return std::string(sending.param.name); });

}  // namespace
}  // namespace zef::test
