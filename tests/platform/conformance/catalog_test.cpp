#include "platform/catalog.h"

#include <gmock/gmock.h>

#include "tests/platform/conformance/backend.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

class CatalogOfTables : public Conformance {
 protected:
  CatalogOfTables() {
    Execute("CREATE TABLE Parents (P Long NOT NULL CONSTRAINT PK_Parents PRIMARY KEY)");
    Execute(
        "CREATE TABLE Things (T Long NOT NULL CONSTRAINT PK_Things PRIMARY KEY, P Long CONSTRAINT First REFERENCES "
        "Parents (P), Q Long, CONSTRAINT Words UNIQUE (Q), CONSTRAINT [The second] FOREIGN KEY (Q) REFERENCES Parents "
        "(P))");
    catalog_.SetActiveConnection(connection_);
  }
  std::vector<std::string> Names(const std::string& table) {
    const CatalogKeys keys = catalog_.Tables(table).Keys;
    std::vector<std::string> names;
    for (std::int32_t i = 0; i < keys.Count(); ++i) names.push_back(keys.Item(i).Name);
    return names;
  }

  Catalog catalog_;
};
INSTANTIATE_TEST_SUITE_P(Engines, CatalogOfTables, testing::ValuesIn(Backends()), BackendName);

TEST_P(CatalogOfTables, NamesTheRelationshipsAndNoOtherKey) {
  EXPECT_THAT(Names("Things"), testing::UnorderedElementsAre("First", "The second"));
}

TEST_P(CatalogOfTables, FindsATableInAnyLetterCase) { EXPECT_EQ(Names("tHINGS").size(), 2u); }

TEST_P(CatalogOfTables, OfATableWithoutRelationshipsIsEmpty) { EXPECT_TRUE(Names("Parents").empty()); }

TEST_P(CatalogOfTables, HasNoTableThatIsNotThere) {
  EXPECT_EQ(NumberRaised([&] { catalog_.Tables("Nowhere"); }), 3265);
}

TEST_P(CatalogOfTables, HasNoKeyBeyondItsCount) {
  const CatalogKeys keys = catalog_.Tables("Things").Keys;
  EXPECT_EQ(NumberRaised([&] { keys.Item(2); }), 3265);
  EXPECT_EQ(NumberRaised([&] { keys.Item(-1); }), 3265);
}

TEST_P(CatalogOfTables, ADeletedRelationshipIsGoneAndTheOtherStays) {
  catalog_.Tables("things").Keys.Delete("FIRST");
  EXPECT_EQ(Names("Things"), std::vector<std::string>{"The second"});
  Execute("ALTER TABLE Things DROP COLUMN P");
}

TEST_P(CatalogOfTables, ARelationshipThatIsNotThereIsNotDeleted) {
  const CatalogKeys keys = catalog_.Tables("Things").Keys;
  EXPECT_EQ(NumberRaised([&] { keys.Delete("Third"); }), -2147217900);
}

TEST_P(CatalogOfTables, SeesWhatAnotherClientChanges) {
  EXPECT_EQ(Names("Things").size(), 2u);
  Connect()->Execute("ALTER TABLE Things DROP CONSTRAINT First");
  EXPECT_EQ(Names("Things").size(), 1u);
}

TEST_P(CatalogOfTables, ADeletionIsUndoneWithItsTransaction) {
  connection_->BeginTrans();
  catalog_.Tables("Things").Keys.Delete("First");
  connection_->RollbackTrans();
  EXPECT_EQ(Names("Things").size(), 2u);
}

TEST_P(CatalogOfTables, WithoutAConnectionRaises91) {
  EXPECT_EQ(NumberRaised([&] { Catalog().Tables("Things"); }), 91);
  EXPECT_EQ(NumberRaised([&] { Catalog().SetActiveConnection(nullptr); }), 91);
}

TEST_P(CatalogOfTables, WithAClosedConnectionRaises3704) {
  connection_->Close();
  EXPECT_EQ(NumberRaised([&] { Catalog().SetActiveConnection(connection_); }), 3704);
  EXPECT_EQ(NumberRaised([&] { catalog_.Tables("Things"); }), 3704);
}

}  // namespace
}  // namespace zef::test
