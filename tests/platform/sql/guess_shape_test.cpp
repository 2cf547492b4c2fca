#include <gtest/gtest.h>

#include <string>

#include "platform/run_time_error.h"
#include "platform/sql/lexer.h"

namespace zef::sql {
namespace {

Shape Guessed(std::string_view statement) {
  Shape shape;
  EXPECT_TRUE(GuessShape(statement, shape)) << statement;
  return shape;
}

Shape ReadOf(std::string_view statement) {
  Shape shape;
  ReadShape(statement, shape);
  return shape;
}

bool AreSame(const Shape& a, const Shape& b) {
  return a.key == b.key && a.literals == b.literals && a.lengths == b.lengths;
}

/// The guess is what a reading of the statement gives.
void ExpectExact(std::string_view statement) {
  EXPECT_TRUE(AreSame(Guessed(statement), ReadOf(statement))) << statement;
}

/// No statement has the guessed key: the one that would, with 0 for the literal, has another or cannot be read.
void ExpectToFindNothing(std::string_view statement) {
  const std::string key = Guessed(statement).key;
  std::string written = key;
  if (const std::size_t mark = key.find('\1'); mark != std::string::npos) written.replace(mark, 2, "0");
  Shape shape;
  try {
    ReadShape(written, shape);
  } catch (const RunTimeError&) {
    return;
  }
  EXPECT_NE(shape.key, key) << statement;
}

TEST(GuessShapeTest, StatementWithoutLiteralsIsExact) { ExpectExact("SELECT * FROM Events"); }
TEST(GuessShapeTest, NumberBehindAnEqualsSignAtTheEndIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=4711"); }
TEST(GuessShapeTest, NegativeNumberIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=-1"); }
TEST(GuessShapeTest, ZeroIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=0"); }
TEST(GuessShapeTest, NumberWithLeadingZeroesIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=007"); }
TEST(GuessShapeTest, NumberBehindALessOrEqualIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID<=12"); }
TEST(GuessShapeTest, NumberBehindAPlaceholderIsExact) { ExpectExact("UPDATE Events SET EVE_Text=? WHERE EVE_ID=12"); }
TEST(GuessShapeTest, LargestLongIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=2147483647"); }
TEST(GuessShapeTest, SmallestLongIsExact) { ExpectExact("SELECT * FROM Events WHERE EVE_ID=-2147483648"); }
TEST(GuessShapeTest, UnnamedColumnInBracketsIsExact) { ExpectExact("SELECT * FROM Events WHERE [A=B]=3"); }

TEST(GuessShapeTest, GivesTheNumber) {
  EXPECT_EQ(Guessed("SELECT * FROM Events WHERE EVE_ID=-4711").literals.at(0), Value(-4711));
}

TEST(GuessShapeTest, ForgetsTheLiteralsOfTheStatementBefore) {
  Shape shape = ReadOf("SELECT 1, 2, 'three'");
  EXPECT_TRUE(GuessShape("SELECT * FROM Events", shape));
  EXPECT_TRUE(shape.literals.empty() && shape.lengths.empty());
}

TEST(GuessShapeTest, NumberAboveALongFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=2147483648"); }
TEST(GuessShapeTest, NumberBelowALongFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=-2147483649"); }
TEST(GuessShapeTest, DecimalFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=1.5"); }
TEST(GuessShapeTest, NumberWithAnExponentFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=1e3"); }
TEST(GuessShapeTest, NumberBeforeABlankFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=5 "); }
TEST(GuessShapeTest, NumberBehindABlankFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A= 5"); }
TEST(GuessShapeTest, NumberBeforeASemicolonFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=5;"); }
TEST(GuessShapeTest, NumberInBracketsFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE (A=5)"); }
TEST(GuessShapeTest, TextThatEndsLikeALookUpFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A='B=5'"); }
TEST(GuessShapeTest, TextBeforeTheNumberFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A='B=' AND C=5"); }
TEST(GuessShapeTest, NumberBeforeTheNumberFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A=4 AND C=5"); }
TEST(GuessShapeTest, DateBeforeTheNumberFindsNothing) {
  ExpectToFindNothing("SELECT * FROM E WHERE A=#1/2/2024# AND C=5");
}

TEST(GuessShapeTest, UnclosedTextWithALookUpFindsNothing) { ExpectToFindNothing("SELECT * FROM E WHERE A='B=5"); }

TEST(GuessShapeTest, MarkOfALiteralInTheStatementIsNoGuess) {
  Shape shape;
  EXPECT_FALSE(GuessShape("SELECT * FROM E WHERE A=\1i", shape));
}

TEST(GuessShapeTest, LongStatementIsNoGuess) {
  Shape shape;
  EXPECT_FALSE(GuessShape("SELECT * FROM E WHERE " + std::string(100000, ' ') + "A=5", shape));
}

}  // namespace
}  // namespace zef::sql
