#include "schema/statements.h"

#include <gmock/gmock.h>

namespace zef::schema {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Statements, EmptyTextHasNone) { EXPECT_THAT(Statements(""), IsEmpty()); }

TEST(Statements, AreCutAtSemicolonsThatEndALine) { EXPECT_THAT(Statements("ONE;\nTWO;\n"), ElementsAre("ONE", "TWO")); }

TEST(Statements, SemicolonInsideALineDoesNotCut) {
  EXPECT_THAT(Statements("INSERT 'a; b' c;\n"), ElementsAre("INSERT 'a; b' c"));
}

TEST(Statements, LinesOfOneStatementStayTogether) {
  EXPECT_THAT(Statements("CREATE (\n  a,\n  b);\n"), ElementsAre("CREATE (\n  a,\n  b)"));
}

TEST(Statements, CommentLinesAreLeftOut) {
  EXPECT_THAT(Statements("-- about one;\nONE;\n-- the end\n"), ElementsAre("ONE"));
}

TEST(Statements, LastLineNeedsNoLineBreak) { EXPECT_THAT(Statements("ONE;\nTWO;"), ElementsAre("ONE", "TWO")); }

}  // namespace
}  // namespace zef::schema
