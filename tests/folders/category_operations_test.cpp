#include <gmock/gmock.h>

#include "tests/folders/category_fixture.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

/// The five tables that refer to categories, with their keys and references.
struct Reference {
  const char* table;
  const char* key;
  const char* column;
};
constexpr Reference kReferences[] = {{"Alarms", "ALA_ID", "ALA_CategoryID"},
                                     {"Events", "EVE_ID", "EVE_CategoryID"},
                                     {"Notes", "NOT_ID", "NOT_CategoryID"},
                                     {"Tasks", "TSK_ID", "TSK_CategoryID"},
                                     {"Contacts", "CNT_ID", "CNT_CategoryID"}};

class CategoryOperations : public CategoryTest {
 protected:
  /// Categories 5 and 6, and in each table one row that refers to each of them.
  void InsertReferences() {
    for (const char* id : {"5", "6"}) {
      Run(std::string("INSERT INTO Categories (CAT_ID,CAT_Name) VALUES (") + id + ",'Home')");
      for (const Reference& r : kReferences) {
        Run(std::string("INSERT INTO ") + r.table + " (" + r.key + "," + r.column + ") VALUES (" + id + "," + id + ")");
      }
    }
  }
  /// What the rows refer to that belonged to a category.
  Texts ReferencesOf(const std::string& id) {
    Texts found;
    for (const Reference& r : kReferences) {
      found.push_back(Stored(std::string("SELECT ") + r.column + " FROM " + r.table + " WHERE " + r.key + "=" + id));
    }
    return found;
  }
  int Depth() { return connection().OpenedEngine().TransactionDepth(); }
};

// ---- GetCategory

TEST_F(CategoryOperations, GetSendsItsSelectAndGivesTheSession) {
  StoredCategory("Home");
  EXPECT_EQ(session->GetCategory(1)->Session(), session);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Categories WHERE CAT_ID=1"});
}

TEST_F(CategoryOperations, GetWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetCategory(99));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CategoryOperations, GetThatFailsIsRecorded) {
  Refuse("SELECT * FROM Categories");
  EXPECT_FALSE(session->GetCategory(1));
  EXPECT_EQ(session->GetErrorProcedure(), "GetCategory");
}

// ---- GetCategoryID4Name

TEST_F(CategoryOperations, NameWithAnApostropheIsFound) {
  StoredCategory("Home");
  StoredCategory("O'Neill's");
  EXPECT_EQ(session->GetCategoryID4Name("O'Neill's"), 2);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Categories WHERE CAT_Name='O''Neill''s'"});
}

TEST_F(CategoryOperations, UnknownNameGivesMinusOneAndNoError) {
  LeaveAnOldError();
  EXPECT_EQ(session->GetCategoryID4Name("Home"), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CategoryOperations, NameWithoutAnIdentifierGivesMinusOneAndNoError) {
  Run("DROP TABLE Categories");
  Run("CREATE TABLE Categories (CAT_ID Long, CAT_Name Text(255))");
  Run("INSERT INTO Categories (CAT_Name) VALUES ('Home')");
  EXPECT_EQ(session->GetCategoryID4Name("Home"), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CategoryOperations, NameOfTwoGivesOneOfThem) {
  StoredCategory("Home");
  StoredCategory("Home");
  EXPECT_THAT(session->GetCategoryID4Name("Home"), testing::AnyOf(1, 2));
}

TEST_F(CategoryOperations, EmptyNameIsNotFoundAmongCategoriesWithoutOne) {
  Run("INSERT INTO Categories (CAT_ID) VALUES (5)");
  EXPECT_EQ(session->GetCategoryID4Name(""), -1);
}

TEST_F(CategoryOperations, LookUpOfANameThatFailsGivesMinusOneAndIsRecorded) {
  StoredCategory("Home");
  Refuse("SELECT * FROM Categories");
  EXPECT_EQ(session->GetCategoryID4Name("Home"), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetCategoryID4Name");
}

// ---- LoadCategoriesWithCriteria and the collection

TEST_F(CategoryOperations, LoadingWithoutCriteriaSelectsTheWholeTable) {
  StoredCategory("b");
  StoredCategory("A");
  const auto categories = MakeRef<CCategories>();
  EXPECT_TRUE(session->LoadCategoriesWithCriteria(categories, ""));
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Categories"});
  EXPECT_EQ(categories->Count(), 2);
}

TEST_F(CategoryOperations, CriteriaStandInTheStatementAsTheyCome) {
  StoredCategory("b");
  StoredCategory("A");
  const auto categories = MakeRef<CCategories>();
  EXPECT_TRUE(session->LoadCategoriesWithCriteria(categories, "CAT_ID>0 ORDER BY CAT_Name"));
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Categories WHERE CAT_ID>0 ORDER BY CAT_Name"});
  EXPECT_EQ(categories->ItemByIdx(1)->Name, "A");
}

TEST_F(CategoryOperations, LoadingThatFailsIsRecorded) {
  EXPECT_FALSE(session->LoadCategoriesWithCriteria(MakeRef<CCategories>(), "NoSuchColumn=1"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadCategoriesWithCriteria");
}

TEST_F(CategoryOperations, KeyMinusOneOfTheCollectionIsNothing) {
  EXPECT_FALSE(MakeRef<CCategories>()->ItemByKey("-1"));
}

TEST_F(CategoryOperations, KeyMinusOneIsNothingEvenBesideSuchAnElement) {
  const auto categories = MakeRef<CCategories>();
  const auto category = MakeRef<CCategory>();
  category->ID = -1;
  ASSERT_TRUE(categories->Add(category));
  EXPECT_FALSE(categories->ItemByKey("-1"));
  EXPECT_EQ(categories->ItemByIdx(1), category);
}

TEST_F(CategoryOperations, OtherUnknownKeysOfTheCollectionRaise) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CCategories>()->ItemByKey("-2"); }), 5);
}

// ---- DeleteCategory

TEST_F(CategoryOperations, DeleteRemovesTheRowAndThenTheReferencesInOneTransaction) {
  Forget();
  EXPECT_TRUE(session->DeleteCategory(5));
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "DELETE * FROM Categories WHERE CAT_ID=5",
                                "UPDATE Alarms SET ALA_CategoryID = -1 WHERE ALA_CategoryID=5",
                                "UPDATE Events SET EVE_CategoryID = -1 WHERE EVE_CategoryID=5",
                                "UPDATE Notes SET NOT_CategoryID = -1 WHERE NOT_CategoryID=5",
                                "UPDATE Tasks SET TSK_CategoryID = -1 WHERE TSK_CategoryID=5",
                                "UPDATE Contacts SET CNT_CategoryID = -1 WHERE CNT_CategoryID=5", "COMMIT"}));
}

TEST_F(CategoryOperations, DeleteClearsEveryReferenceToTheCategory) {
  InsertReferences();
  EXPECT_TRUE(session->DeleteCategory(5));
  EXPECT_EQ(ReferencesOf("5"), Texts(5, "-1"));
  EXPECT_EQ(Rows("Categories WHERE CAT_ID=5"), 0);
}

TEST_F(CategoryOperations, DeleteLeavesReferencesToOtherCategories) {
  InsertReferences();
  EXPECT_TRUE(session->DeleteCategory(5));
  EXPECT_EQ(ReferencesOf("6"), Texts(5, "6"));
  EXPECT_EQ(Rows("Categories WHERE CAT_ID=6"), 1);
}

TEST_F(CategoryOperations, DeleteLeavesTheDatesOfLastChange) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_CategoryID,TSK_DateLastUpdate) VALUES (1,5,'2/3/2020')");
  EXPECT_TRUE(session->DeleteCategory(5));
  EXPECT_EQ(Stored("SELECT TSK_DateLastUpdate FROM Tasks"), "2/3/2020");
}

TEST_F(CategoryOperations, DeleteOfAnUnknownCategorySucceedsAndChangesNoOtherReference) {
  InsertReferences();
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteCategory(99));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(ReferencesOf("5"), Texts(5, "5"));
}

TEST_F(CategoryOperations, DeleteThatFailsInTheFourthUpdateUndoesAllOfIt) {
  InsertReferences();
  Refuse("UPDATE Tasks");
  EXPECT_FALSE(session->DeleteCategory(5));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteCategory] Error: -2147217900 - made to fail");
  EXPECT_EQ(ReferencesOf("5"), Texts(5, "5"));
  EXPECT_EQ(Rows("Categories"), 2);
}

TEST_F(CategoryOperations, DeleteInTheClientsTransactionIsANestedOne) {
  InsertReferences();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteCategory(5));
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(ReferencesOf("5"), Texts(5, "5"));
}

TEST_F(CategoryOperations, DeleteThatFailsInTheClientsTransactionLeavesThatOne) {
  InsertReferences();
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Categories (CAT_ID) VALUES (77)");
  Refuse("UPDATE Contacts");
  EXPECT_FALSE(session->DeleteCategory(5));
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Categories"), 3);
}

TEST_F(CategoryOperations, DeleteThatCannotBeginLeavesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  Refuse("BEGIN");
  EXPECT_FALSE(session->DeleteCategory(5));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteCategory");
  EXPECT_EQ(Depth(), 1);
}

TEST_F(CategoryOperations, DeleteWhoseRollbackFailsTooRaises) {
  Refuse("UPDATE Tasks");
  RefuseRollbacks("second");
  EXPECT_EQ(NumberRaised([&] { session->DeleteCategory(5); }), -2147467259);
  EXPECT_EQ(Depth(), 1);
}

TEST_F(CategoryOperations, DeleteWhoseRollbackFailsTooKeepsTheFirstFailureOnRecord) {
  Refuse("UPDATE Tasks");
  RefuseRollbacks("second");
  EXPECT_TRUE(Raised([&] { session->DeleteCategory(5); }));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteCategory] Error: -2147217900 - made to fail");
}

TEST_F(CategoryOperations, DeleteIsRefusedToASessionThatMayOnlyReadByAFailureOfTheRollback) {
  InsertReferences();
  session->UserRights = DataViewer;
  EXPECT_EQ(NumberRaised([&] { session->DeleteCategory(5); }), -2147168242);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeleteEvent] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(Rows("Categories"), 2);
}

TEST_F(CategoryOperations, DeleteIsRefusedToAnAdministratorWhoIsAViewerToo) {
  InsertReferences();
  session->UserRights = Administrator | DataViewer;
  EXPECT_EQ(NumberRaised([&] { session->DeleteCategory(5); }), -2147168242);
  EXPECT_EQ(session->GetErrorCode(), 105);
  EXPECT_EQ(Rows("Categories"), 2);
}

TEST_F(CategoryOperations, RefusedDeleteInATransactionUndoesItAndLeavesTheFlag) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Categories (CAT_ID) VALUES (77)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteCategory(5));
  EXPECT_EQ(Depth(), 0);
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Rows("Categories"), 0);
}

TEST_F(CategoryOperations, AfterARefusedDeleteInATransactionNeitherEndNorBeginWorks) {
  ASSERT_TRUE(session->BeginTransaction());
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteCategory(5));
  EXPECT_FALSE(session->BeginTransaction());
  EXPECT_FALSE(session->CommitTransaction());
  EXPECT_FALSE(session->RollbackTransaction());
  EXPECT_EQ(session->GetErrorCode(), -2147168242);
  EXPECT_TRUE(session->TransactionStarted());
}

TEST_F(CategoryOperations, AfterARefusedDeleteInATransactionTheConnectionsOwnBeginMakesTheFlagTrueAgain) {
  ASSERT_TRUE(session->BeginTransaction());
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteCategory(5));
  connection().BeginTrans();
  EXPECT_TRUE(session->RollbackTransaction());
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
}

TEST_F(CategoryOperations, DeleteWithoutAConnectionRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CSession>()->DeleteCategory(5); }), 91);
}

TEST_F(CategoryOperations, EveryFailureOfADeleteLeavesAllRows) {
  InsertReferences();
  EXPECT_EQ(FailEachCall(database, *session, [&] { return session->DeleteCategory(5); }).size(), 8u);
}

}  // namespace
}  // namespace zef::test
