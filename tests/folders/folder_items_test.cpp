#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

/// A kind of items that have children or belong to a client's transaction in a way of their own.
struct Kind {
  const char* name;
  std::int32_t type;
  const char* table;
  const char* prefix;

  friend void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }
};

constexpr Kind kTasks{"Tasks", FT_TASKS, "Tasks", "TSK"};
constexpr Kind kEvents{"Events", FT_EVENTS, "Events", "EVE"};
constexpr Kind kAlarms{"Alarms", FT_ALARMS, "Alarms", "ALA"};
constexpr Kind kContacts{"Contacts", FT_CONTACTS, "Contacts", "CNT"};
constexpr Kind kNotes{"Notes", FT_Notes, "Notes", "NOT"};

std::string KindName(const testing::TestParamInfo<Kind>& info) { return info.param.name; }

/// Folder 100 with two items of one kind, numbers 1 and 2, beside the folder 200.
class FolderItems : public FolderTreeTest, public testing::WithParamInterface<Kind> {
 protected:
  FolderItems() {
    InsertFolder(100, 0, GetParam().type);
    InsertFolder(200, 0, 5);
    InsertItems();
  }
  void InsertItems() {
    switch (GetParam().type) {
      case FT_TASKS: return InsertTasks(100, 1, 2);
      case FT_EVENTS: return InsertEvents(100, 1, 2);
      case FT_ALARMS: return InsertAlarms(100, 1, 2);
      case FT_Notes: return InsertNotes(100, 1, 2);
      default: break;
    }
    for (const std::int32_t id : {1, 2}) InsertContact(100, id);
  }
  std::string Column(const char* name) { return std::string(GetParam().prefix) + "_" + name; }
  std::int32_t Items(const std::string& condition = "1=1") {
    return Rows(std::string(GetParam().table) + " WHERE " + condition);
  }
};

// ---- children that are missing

class FolderItemsWithoutChildren : public FolderItems {
 protected:
  FolderItemsWithoutChildren() {
    Run("DELETE * FROM Recurrences");
    Run("DELETE * FROM Notifications");
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FolderItemsWithoutChildren, testing::Values(kTasks, kEvents, kAlarms), KindName);

TEST_P(FolderItemsWithoutChildren, AreCopiedWithoutReferences) {
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Items(Column("FolderID") + "=1000"), 2);
  EXPECT_EQ(
      Items(Column("FolderID") + "=1000 AND " + Column("RecurrenceID") + "=-1 AND " + Column("NotificationID") + "=-1"),
      2);
  EXPECT_EQ(Rows("Recurrences") + Rows("Notifications"), 0);
}

TEST_P(FolderItemsWithoutChildren, AreDeleted) {
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Items(), 0);
}

// ---- deletion in a client's transaction

class FolderItemsThatJoin : public FolderItems {};

INSTANTIATE_TEST_SUITE_P(Kinds, FolderItemsThatJoin, testing::Values(kContacts, kNotes), KindName);

TEST_P(FolderItemsThatJoin, AreDeletedInTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Items(), 2) << "seen from outside";
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Items(), 0);
}

TEST_P(FolderItemsThatJoin, AreThereAgainOnceTheClientsTransactionIsUndone) {
  const std::string before = Everything();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Everything(), before);
}

class FolderItemsThatDoNotJoin : public FolderItems {};

INSTANTIATE_TEST_SUITE_P(Kinds, FolderItemsThatDoNotJoin, testing::Values(kTasks, kEvents, kAlarms), KindName);

TEST_P(FolderItemsThatDoNotJoin, MakeTheDeletionUndoBothLevels) {
  const std::string before = Everything();
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Notes (NOT_ID) VALUES (99)");
  EXPECT_FALSE(session->DeleteFolder(100));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace zef::test
