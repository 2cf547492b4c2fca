#include "tests/platform/conformance/backend.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

class SchemaChanges : public Conformance {
 protected:
  SchemaChanges() {
    Execute("CREATE TABLE Parents (P Long NOT NULL CONSTRAINT PK_Parents PRIMARY KEY)");
    Execute(
        "CREATE TABLE Things (T Long NOT NULL CONSTRAINT PK_Things PRIMARY KEY, Word Text(10), Amount Double, P Long, "
        "CONSTRAINT ParentsThings FOREIGN KEY (P) REFERENCES Parents (P))");
    Execute("INSERT INTO Things (T,Word,Amount) VALUES (1,'ten chars.',2.5)");
    Execute("INSERT INTO Things (T,Word) VALUES (2,Null)");
  }
  std::string Words() { return Text("SELECT Word FROM Things WHERE T=1"); }
};
INSTANTIATE_TEST_SUITE_P(Engines, SchemaChanges, testing::ValuesIn(Backends()), BackendName);

TEST_P(SchemaChanges, AnAddedColumnIsNullInOldRows) {
  Execute("ALTER TABLE THINGS ADD COLUMN Extra Text(1) NULL");
  EXPECT_EQ(Text("SELECT Extra FROM Things WHERE T=1"), "Null");
  EXPECT_EQ(FailureOf("UPDATE Things SET Extra='xy'"), -2147217833);
}

TEST_P(SchemaChanges, ADroppedColumnIsGoneAndTheRestStays) {
  Execute("ALTER TABLE Things DROP COLUMN Amount");
  EXPECT_EQ(FailureOf("SELECT Amount FROM Things"), -2147217904);
  EXPECT_EQ(Words(), "ten chars.");
}

TEST_P(SchemaChanges, AWiderTextTakesLongerValues) {
  Execute("ALTER TABLE Things ALTER COLUMN Word Text(20) ");
  Execute("UPDATE Things SET Word='more than ten chars' WHERE T=1");
  EXPECT_EQ(Words(), "more than ten chars");
}

TEST_P(SchemaChanges, ANarrowerTextRefusesALongerValueAndLeavesTheTable) {
  EXPECT_EQ(FailureOf("ALTER TABLE Things ALTER COLUMN Word Text(9)"), -2147217833);
  EXPECT_EQ(Words(), "ten chars.");
  EXPECT_EQ(FailureOf("UPDATE Things SET Word='TEN CHARS.' WHERE T=1"), 0);
}

TEST_P(SchemaChanges, ALongTextHasNoLimit) {
  Execute("ALTER TABLE Things ALTER COLUMN Word Memo ");
  Execute("UPDATE Things SET Word='" + std::string(70000, 'x') + "' WHERE T=1");
  EXPECT_EQ(Text("SELECT Len(Word) FROM Things WHERE T=1"), "70000");
}

TEST_P(SchemaChanges, AColumnOfAnotherTypeConvertsItsValues) {
  Execute("ALTER TABLE Things ALTER COLUMN Amount Text(10)");
  EXPECT_EQ(Text("SELECT Amount FROM Things WHERE T=1"), "2.5");
  EXPECT_EQ(Execute("SELECT Amount FROM Things WHERE T=1")->Fields().Item(0).Value(), Value(std::string("2.5")));
}

TEST_P(SchemaChanges, AValueThatDoesNotConvertLeavesTheTable) {
  EXPECT_EQ(FailureOf("ALTER TABLE Things ALTER COLUMN Word Long"), -2147217913);
  EXPECT_EQ(Words(), "ten chars.");
}

TEST_P(SchemaChanges, AnAlteredTableKeepsItsIndexesAndKey) {
  Execute("CREATE UNIQUE INDEX UX_Word ON Things (Word)");
  Execute("ALTER TABLE Things ALTER COLUMN Word Text(30)");
  EXPECT_EQ(FailureOf("UPDATE Things SET Word='TEN CHARS.' WHERE T=2"), -2147217873);
  EXPECT_EQ(FailureOf("INSERT INTO Things (T) VALUES (1)"), -2147217873);
}

TEST_P(SchemaChanges, ANamedConstraintIsDroppedByNameInAnyLetterCase) {
  Execute("ALTER TABLE Things DROP CONSTRAINT PARENTSTHINGS");
  EXPECT_EQ(FailureOf("ALTER TABLE Things DROP CONSTRAINT ParentsThings"), -2147217900);
  Execute("ALTER TABLE Things DROP COLUMN P");
  EXPECT_EQ(Words(), "ten chars.");
}

TEST_P(SchemaChanges, AConstraintIsAddedAndDroppedAgain) {
  Execute("ALTER TABLE Things ADD CONSTRAINT Words UNIQUE (Word)");
  EXPECT_EQ(FailureOf("UPDATE Things SET Word='ten chars.' WHERE T=2"), -2147217873);
  Execute("ALTER TABLE Things DROP CONSTRAINT Words");
  EXPECT_EQ(FailureOf("UPDATE Things SET Word='ten chars.' WHERE T=2"), 0);
}

TEST_P(SchemaChanges, AnIndexIsMadeAndDropped) {
  Execute("CREATE INDEX IX_Word ON Things (Word DESC, T)");
  Execute("DROP INDEX IX_Word ON Things");
  Execute("CREATE INDEX IX_Word ON Things (Word)");
}

TEST_P(SchemaChanges, AnIndexIsDroppedByNameInAnyLetterCase) {
  Execute("CREATE INDEX IX_Word ON Things (Word)");
  Execute("DROP INDEX ix_WORD ON Things");
  Execute("CREATE INDEX IX_Word ON Things (Word)");
}

TEST_P(SchemaChanges, AnIndexThatDoesNotExistIsNamed) {
  EXPECT_EQ(Raised([&] { Execute("DROP INDEX IX_Word ON Things"); })->description(),
            "The index 'IX_Word' does not exist.");
}

TEST_P(SchemaChanges, AnIndexIsMadeOnceWhateverTheLetterCaseOfItsName) {
  Execute("CREATE INDEX IX_Word ON Things (Word)");
  EXPECT_EQ(FailureOf("CREATE INDEX ix_word ON Things (T)"), -2147217868);
}

TEST_P(SchemaChanges, AnIndexThatExistsIsNamed) {
  Execute("CREATE INDEX IX_Word ON Things (Word)");
  EXPECT_EQ(Raised([&] { Execute("CREATE INDEX IX_Word ON Things (Word)"); })->description(),
            "The index 'IX_Word' exists already.");
}

TEST_P(SchemaChanges, AnIndexedColumnIsNotDroppedAndTheIndexIsNamed) {
  Execute("CREATE INDEX IX_Word ON Things (T, Word)");
  Execute("CREATE INDEX IX_Later ON Things (Word)");
  EXPECT_EQ(Raised([&] { Execute("ALTER TABLE Things DROP COLUMN word"); })->description(),
            "The column 'Word' cannot be dropped: it belongs to the index 'IX_Word'.");
  EXPECT_EQ(Words(), "ten chars.");
}

TEST_P(SchemaChanges, AKeyColumnIsNotDropped) {
  EXPECT_EQ(Raised([&] { Execute("ALTER TABLE Things DROP COLUMN T"); })->description(),
            "The column 'T' cannot be dropped: it belongs to a key of the table.");
}

TEST_P(SchemaChanges, AColumnOfARelationshipIsNotDropped) {
  EXPECT_EQ(Raised([&] { Execute("ALTER TABLE Things DROP COLUMN P"); })->description(),
            "The column 'P' cannot be dropped: it belongs to a relationship of the table.");
}

TEST_P(SchemaChanges, AColumnWhoseIndexIsGoneIsDropped) {
  Execute("CREATE INDEX IX_Word ON Things (Word)");
  Execute("DROP INDEX IX_Word ON Things");
  EXPECT_EQ(FailureOf("ALTER TABLE Things DROP COLUMN Word"), 0);
}

TEST_P(SchemaChanges, ADroppedTableIsGone) {
  Execute("DROP TABLE Things");
  EXPECT_EQ(FailureOf("SELECT * FROM Things"), -2147217865);
}

TEST_P(SchemaChanges, TheTwoTableUpdateCopiesByAJoin) {
  Execute("CREATE TABLE Names (N_ID Long NOT NULL PRIMARY KEY, N_Name Text(10))");
  Execute("INSERT INTO Names (N_ID,N_Name) VALUES (1,'first')");
  Execute("UPDATE THINGS,Names SET WORD =Names.N_Name WHERE Names.N_ID = Things.T");
  EXPECT_EQ(Words(), "first");
  EXPECT_EQ(Text("SELECT Word FROM Things WHERE T=2"), "Null");
}

TEST_P(SchemaChanges, NamesWithBlanksAndQuotesAreKept) {
  Execute("CREATE TABLE [My Things] ([The Key] Long NOT NULL PRIMARY KEY, [A \"B\", (C)] Text(5))");
  Execute("INSERT INTO [My Things] ([The Key],[A \"B\", (C)]) VALUES (1,'x')");
  Execute("ALTER TABLE [My Things] ALTER COLUMN [A \"B\", (C)] Text(8)");
  EXPECT_EQ(Text("SELECT [A \"B\", (C)] FROM [My Things]"), "x");
}

}  // namespace
}  // namespace zef::test
