#include "platform/sql/lexer.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/run_time_error.h"

namespace zef::sql {
namespace {

using namespace std::string_literals;

Shape ShapeOf(std::string_view statement) {
  Shape shape;
  ReadShape(statement, shape);
  return shape;
}

/// The key with its marks made visible: `{i}` for an integer.
std::string KeyOf(std::string_view statement) {
  std::string key = ShapeOf(statement).key;
  for (std::size_t at = key.find('\1'); at != std::string::npos; at = key.find('\1')) {
    key.replace(at, 2, "{"s + key[at + 1] + "}");
  }
  return key;
}

Value FirstLiteral(std::string_view statement) { return ShapeOf(statement).literals.at(0); }

std::string Refusal(std::string_view statement) {
  try {
    ShapeOf(statement);
  } catch (const RunTimeError& error) {
    return error.code() == FailureNumber::StatementError ? error.description() : "another number";
  }
  return "accepted";
}

TEST(ReadShapeTest, StatementWithoutLiteralsIsItsOwnKey) {
  EXPECT_EQ(KeyOf("SELECT [a b], `c` FROM t"), "SELECT [a b], `c` FROM t");
}

TEST(ReadShapeTest, StatementsThatDifferInLiteralsHaveOneKey) {
  EXPECT_EQ(KeyOf("SELECT * FROM t WHERE a=1 AND b='x' AND c=#5/1/2024# AND d=1.5"),
            KeyOf("SELECT * FROM t WHERE a=-22 AND b=\"it's\" AND c=#2024-12-31 10:00:00 AM# AND d=.25E3"));
}

TEST(ReadShapeTest, KeyKeepsKindsOfLiterals) {
  EXPECT_EQ(KeyOf("SELECT 1, 1.5, 'a', '\xC3\xA4', #5/1/2024#"), "SELECT {i}, {f}, {a}, {u}, {d}");
}

TEST(ReadShapeTest, TextsOfDifferentKindsHaveDifferentKeys) { EXPECT_NE(KeyOf("a='x'"), KeyOf("a='\xC3\xA4'")); }

TEST(ReadShapeTest, LiteralsKeepTheirOrder) {
  const Shape shape = ShapeOf("VALUES (3, 'two', 1)");
  EXPECT_EQ(shape.literals, (std::vector<Value>{std::int32_t{3}, "two"s, std::int32_t{1}}));
}

TEST(ReadShapeTest, EmptyStatementHasEmptyKey) { EXPECT_EQ(KeyOf(""), ""); }

TEST(ReadShapeTest, ReusedShapeForgetsTheLastStatement) {
  Shape shape = ShapeOf("SELECT 'first', 'second', 3");
  ReadShape("SELECT 'x'", shape);
  EXPECT_EQ(shape.literals, std::vector<Value>{"x"s});
  EXPECT_EQ(shape.key, "SELECT \1a");
}

TEST(ReadShapeTest, ReusedShapeAllocatesNothingNew) {
  const std::string statement = "SELECT '" + std::string(100, 'x') + "'";
  Shape shape = ShapeOf(statement);
  const char* const key = shape.key.data();
  const char* const text = std::get<std::string>(shape.literals[0]).data();
  ReadShape(statement, shape);
  EXPECT_EQ(shape.key.data(), key);
  EXPECT_EQ(std::get<std::string>(shape.literals[0]).data(), text);
}

TEST(ReadShapeTest, ShapeServesAgainAfterAFailure) {
  Shape shape;
  EXPECT_THROW(ReadShape("SELECT 1, 'open", shape), RunTimeError);
  ReadShape("SELECT 2", shape);
  EXPECT_EQ(shape.literals, std::vector<Value>{std::int32_t{2}});
}

TEST(ReadShapeTest, LengthsCountCharactersAsWritten) {
  EXPECT_EQ(ShapeOf("SELECT 12, 'it''s', '\xC3\xA4', #5/1/2024#").lengths, (std::vector<std::size_t>{2, 7, 3, 10}));
}

// Texts.

TEST(ReadShapeTest, EmptyTextIsAscii) { EXPECT_EQ(KeyOf("a=''"), "a={a}"); }
TEST(ReadShapeTest, EmptyTextIsNotNull) { EXPECT_EQ(FirstLiteral("a=''"), Value(""s)); }
TEST(ReadShapeTest, DoubledQuoteStandsForOne) { EXPECT_EQ(FirstLiteral("a='it''s'"), Value("it's"s)); }
TEST(ReadShapeTest, DoubledQuoteMayBeTheWholeText) { EXPECT_EQ(FirstLiteral("a=''''"), Value("'"s)); }
TEST(ReadShapeTest, DoubledQuotesMayFollowEachOther) { EXPECT_EQ(FirstLiteral("a='''''x'"), Value("''x"s)); }
TEST(ReadShapeTest, DoubleQuotesDelimitText) { EXPECT_EQ(FirstLiteral("a=\"x\"\"y\""), Value("x\"y"s)); }
TEST(ReadShapeTest, OtherQuoteIsPlainInText) { EXPECT_EQ(FirstLiteral("a=\"it's\""), Value("it's"s)); }
TEST(ReadShapeTest, BackslashIsPlainInText) { EXPECT_EQ(FirstLiteral("a='x\\'"), Value("x\\"s)); }
TEST(ReadShapeTest, BracketsArePlainInText) { EXPECT_EQ(FirstLiteral("a='[x#;'"), Value("[x#;"s)); }
TEST(ReadShapeTest, TextMayHoldAZeroCharacter) { EXPECT_EQ(FirstLiteral("a='x\0y'"s), Value("x\0y"s)); }
TEST(ReadShapeTest, TextMayHoldTheMark) { EXPECT_EQ(FirstLiteral("a='x\1i'"s), Value("x\1i"s)); }
TEST(ReadShapeTest, TextWithControlCharacterIsNotAscii) { EXPECT_EQ(KeyOf("a='x\ty'"), "a={u}"); }
TEST(ReadShapeTest, TextMayBeAnyUtf8) { EXPECT_EQ(FirstLiteral("a='\xF0\x9F\x98\x80'"), Value("\xF0\x9F\x98\x80"s)); }

// Numbers.

struct NumberRow {
  std::string_view name;
  std::string_view text;
  Value value;
};

class NumberTest : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberTest, IsReadAsItsValue) { EXPECT_EQ(FirstLiteral("a=" + std::string(GetParam().text)), GetParam().value); }

INSTANTIATE_TEST_SUITE_P(
    ReadShape, NumberTest,
    testing::Values(NumberRow{"Zero", "0", std::int32_t{0}}, NumberRow{"LeadingZeros", "007", std::int32_t{7}},
                    NumberRow{"GreatestLong", "2147483647", std::int32_t{2147483647}},
                    NumberRow{"SmallestLong", "-2147483648", std::int32_t{-2147483647 - 1}},
                    NumberRow{"BeyondLong", "2147483648", 2147483648.0},
                    NumberRow{"BelowLong", "-2147483649", -2147483649.0}, NumberRow{"Decimal", "1.5", 1.5},
                    NumberRow{"PointFirst", ".5", 0.5}, NumberRow{"PointLast", "5.", 5.0},
                    NumberRow{"NegativePoint", "-.5", -0.5}, NumberRow{"Exponent", "1E3", 1000.0},
                    NumberRow{"NegativeExponent", "25e-1", 2.5}, NumberRow{"PositiveExponent", "1.5E+2", 150.0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadShapeTest, IntegerBeyondLongIsADecimal) { EXPECT_EQ(KeyOf("a=2147483648"), "a={f}"); }
TEST(ReadShapeTest, DigitsOfAWordAreNoLiteral) {
  EXPECT_EQ(KeyOf("Options1 _2 \xC3\xA4"
                  "3"),
            "Options1 _2 \xC3\xA4"
            "3");
}
TEST(ReadShapeTest, DigitsOfANameInBracketsAreNoLiteral) { EXPECT_EQ(KeyOf("[1 'a]"), "[1 'a]"); }
TEST(ReadShapeTest, PointBehindANameIsNoNumber) { EXPECT_EQ(KeyOf("a.b1"), "a.b1"); }

// Signs.

struct SignRow {
  std::string_view name;
  std::string_view statement;
  std::string_view key;
};

class SignTest : public testing::TestWithParam<SignRow> {};

TEST_P(SignTest, BelongsToTheNumberOrNot) { EXPECT_EQ(KeyOf(GetParam().statement), GetParam().key); }

INSTANTIATE_TEST_SUITE_P(
    ReadShape, SignTest,
    testing::Values(SignRow{"BehindEquals", "a=-1", "a={i}"}, SignRow{"BehindEqualsAndBlank", "a= -1", "a= {i}"},
                    SignRow{"BehindLess", "a<-1", "a<{i}"}, SignRow{"BehindGreater", "a>-1", "a>{i}"},
                    SignRow{"BehindBracketAndComma", "(-1,-2)", "({i},{i})"}, SignRow{"BehindPlus", "a+-1", "a+{i}"},
                    SignRow{"BehindTimes", "a*-1", "a*{i}"}, SignRow{"BehindDivide", "a/-1", "a/{i}"},
                    SignRow{"BehindAmpersand", "a&-1", "a&{i}"}, SignRow{"BehindPower", "a^-1", "a^{i}"},
                    SignRow{"BehindBackslash", "a\\-1", "a\\{i}"}, SignRow{"BehindMinus", "5--3", "{i}-{i}"},
                    SignRow{"AtTheStart", "-1", "{i}"}, SignRow{"BehindName", "a-1", "a-{i}"},
                    SignRow{"BehindBracketedName", "[a]-1", "[a]-{i}"}, SignRow{"BehindNumber", "2 -1", "{i} -{i}"},
                    SignRow{"BehindText", "'a'-1", "{a}-{i}"}, SignRow{"BehindDate", "#5/1/2024#-1", "{d}-{i}"},
                    SignRow{"BehindClosingBracket", "(a)-1", "(a)-{i}"}, SignRow{"BehindWord", "AND -1", "AND -{i}"},
                    SignRow{"BehindPlaceholder", "?-1", "?-{i}"}, SignRow{"BeforeBlank", "a=- 1", "a=- {i}"},
                    SignRow{"BeforeName", "a=-b", "a=-b"}, SignRow{"BeforeAPower", "a=-2^2", "a=-{i}^{i}"},
                    SignRow{"BeforeABlankAndAPower", "a=-2 ^2", "a=-{i} ^{i}"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadShapeTest, FoldedSignIsPartOfTheValue) { EXPECT_EQ(FirstLiteral("REC_ID=-1"), Value(std::int32_t{-1})); }
TEST(ReadShapeTest, SignBeforeAPowerIsNotPartOfTheValue) { EXPECT_EQ(FirstLiteral("a=-2^2"), Value(std::int32_t{2})); }

// Dates.

TEST(ReadShapeTest, DateIsReadMonthFirst) { EXPECT_EQ(FirstLiteral("a=#5/1/2024#"), Value(Date(45413.0))); }
TEST(ReadShapeTest, DateIsReadYearFirst) { EXPECT_EQ(FirstLiteral("a=#2024-05-01#"), Value(Date(45413.0))); }
TEST(ReadShapeTest, DateMayHaveATime) { EXPECT_EQ(FirstLiteral("a=#5/1/2024 6:00:00 AM#"), Value(Date(45413.25))); }

// The end of the statement.

TEST(ReadShapeTest, SemicolonAndBlanksAreNotInTheKey) { EXPECT_EQ(KeyOf("SELECT a; \r\n\t"), "SELECT a"); }
TEST(ReadShapeTest, SemicolonInTextIsPlain) { EXPECT_EQ(FirstLiteral("a=';'"), Value(";"s)); }
TEST(ReadShapeTest, LiteralBeforeSemicolonIsKept) { EXPECT_EQ(KeyOf("SELECT 1;"), "SELECT {i}"); }

// Refusals.

struct RefusalRow {
  std::string_view name;
  std::string statement;
  std::string_view sentence;
};

class RefusalTest : public testing::TestWithParam<RefusalRow> {};

TEST_P(RefusalTest, NamesThePlace) {
  EXPECT_EQ(Refusal(GetParam().statement), "Syntax error at character " + std::string(GetParam().sentence));
}

constexpr std::string_view kNoMeaning = ": this character has no meaning here.";
constexpr std::string_view kNoNumber = ": this is not a number.";

std::string At(int place, std::string_view clause) { return std::to_string(place).append(clause); }

INSTANTIATE_TEST_SUITE_P(
    ReadShape, RefusalTest,
    testing::Values(RefusalRow{"OpenText", "a='x", "3: the text that begins here is not closed."},
                    RefusalRow{"OpenTextAfterDoubledQuote", "a='x''", "3: the text that begins here is not closed."},
                    RefusalRow{"LoneQuote", "'", "1: the text that begins here is not closed."},
                    RefusalRow{"TextClosedByOtherQuote", "a='x\"", "3: the text that begins here is not closed."},
                    RefusalRow{"OpenBracket", "a, [b c", "4: the name that begins here is not closed."},
                    RefusalRow{"OpenBackquote", "`", "1: the name that begins here is not closed."},
                    RefusalRow{"EmptyName", "a, []", "4: a name is empty."},
                    RefusalRow{"OpenDate", "a=#5/1/2024", "3: the date that begins here is not closed."},
                    RefusalRow{"NoDate", "a=#tomorrow#", "3: this is not a date."},
                    RefusalRow{"ImpossibleDate", "a=#2/30/2024#", "3: this is not a date."},
                    RefusalRow{"EmptyDate", "a=##", "3: this is not a date."},
                    RefusalRow{"SecondStatement", "SELECT a; DELETE",
                               "11: a call takes one statement, and nothing may follow its end."},
                    RefusalRow{"SecondSemicolon", "SELECT a;;",
                               "10: a call takes one statement, and nothing may follow its end."},
                    RefusalRow{"HugeNumber", "a=1E999", "3: this number is out of range."},
                    RefusalRow{"HugeNegativeNumber", "a=-1E999", "3: this number is out of range."}),
    [](const auto& row) { return std::string(row.param.name); });

struct CharacterRow {
  std::string_view name;
  std::string statement;
  int place;
  std::string_view clause;
};

class CharacterTest : public testing::TestWithParam<CharacterRow> {};

TEST_P(CharacterTest, IsRefusedAtItsPlace) {
  EXPECT_EQ(Refusal(GetParam().statement), "Syntax error at character " + At(GetParam().place, GetParam().clause));
}

INSTANTIATE_TEST_SUITE_P(
    ReadShape, CharacterTest,
    testing::Values(
        CharacterRow{"Exclamation", "a != 1", 3, kNoMeaning}, CharacterRow{"At", "@a", 1, kNoMeaning},
        CharacterRow{"Brace", "a {b}", 3, kNoMeaning}, CharacterRow{"ClosingBracket", "a]", 2, kNoMeaning},
        CharacterRow{"ZeroByte", "a \0"s, 3, kNoMeaning}, CharacterRow{"ZeroByteInName", "[a\0]"s, 3, kNoMeaning},
        CharacterRow{"MarkByte", "a \1i", 3, kNoMeaning}, CharacterRow{"MarkByteInName", "`a\1`", 3, kNoMeaning},
        CharacterRow{"PlaceCountsCharacters", "\xC3\xA4='\xC3\xA4' !", 7, kNoMeaning},
        CharacterRow{"NumberThenLetter", "a=1b", 3, kNoNumber}, CharacterRow{"TwoPoints", "a=1.2.3", 3, kNoNumber},
        CharacterRow{"OpenExponent", "a=1E", 3, kNoNumber}, CharacterRow{"OpenSignedExponent", "a=-1E+", 3, kNoNumber}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadShapeTest, MalformedUtf8InTextIsRefusedAtItsPlace) {
  EXPECT_EQ(Refusal("a='\xC3\xA4\xC3'"), "Syntax error at character 5: this is not UTF-8 text.");
}

TEST(ReadShapeTest, MalformedUtf8InAWordIsRefused) {
  EXPECT_EQ(Refusal("a\xFF=1"), "Syntax error at character 2: this is not UTF-8 text.");
}

TEST(ReadShapeTest, MalformedUtf8InABracketedNameIsRefused) {
  EXPECT_EQ(Refusal("[\x80]"), "Syntax error at character 2: this is not UTF-8 text.");
}

TEST(ReadShapeTest, StrayByteBehindALetterIsRefusedAtItsPlace) {
  EXPECT_EQ(Refusal("ab\x80"), "Syntax error at character 3: this is not UTF-8 text.");
}

TEST(ReadShapeTest, RefusalNeverRepeatsALiteral) {
  EXPECT_EQ(Refusal("SELECT 'secret' ! 'secret").find("secret"), std::string::npos);
}

TEST(ReadShapeTest, OneMebibyteOutsideLiteralsIsAccepted) { EXPECT_EQ(Refusal(std::string(1 << 20, 'a')), "accepted"); }

TEST(ReadShapeTest, MoreThanOneMebibyteOutsideLiteralsIsRefused) {
  EXPECT_EQ(Refusal(std::string((1 << 20) + 1, 'a')), "Syntax error at character 1: the statement is too long.");
}

TEST(ReadShapeTest, LongTextIsAccepted) { EXPECT_EQ(Refusal("'" + std::string(3 << 20, 'a') + "'"), "accepted"); }

std::string NumbersOf(int count) {
  std::string statement;
  for (int i = 0; i < count; ++i) statement += "1,";
  return statement;
}

TEST(ReadShapeTest, ThirtyThousandLiteralsAreAccepted) { EXPECT_EQ(ShapeOf(NumbersOf(30000)).literals.size(), 30000U); }

TEST(ReadShapeTest, MoreThanThirtyThousandLiteralsAreRefused) {
  EXPECT_EQ(Refusal(NumbersOf(30001)), "Syntax error at character 60001: the statement has too many literals.");
}

// Schema changes.

TEST(IsSchemaChangeTest, CreateIsOneInAnyCase) { EXPECT_TRUE(IsSchemaChange(" \n cReate TABLE t")); }
TEST(IsSchemaChangeTest, AlterIsOne) { EXPECT_TRUE(IsSchemaChange("ALTER TABLE t")); }
TEST(IsSchemaChangeTest, DropIsOne) { EXPECT_TRUE(IsSchemaChange("DROP TABLE t")); }
TEST(IsSchemaChangeTest, SelectIsNone) { EXPECT_FALSE(IsSchemaChange("SELECT 'CREATE'")); }
TEST(IsSchemaChangeTest, LongerWordIsNone) { EXPECT_FALSE(IsSchemaChange("CREATED")); }
TEST(IsSchemaChangeTest, BracketedWordIsNone) { EXPECT_FALSE(IsSchemaChange("[CREATE]")); }
TEST(IsSchemaChangeTest, EmptyStatementIsNone) { EXPECT_FALSE(IsSchemaChange("")); }
TEST(IsSchemaChangeTest, OpenBracketIsNone) { EXPECT_FALSE(IsSchemaChange("[")); }

// Tokens.

std::string Describe(const Token& token) {
  constexpr std::string_view kKinds[] = {"End", "Word", "Name", "Literal", "Placeholder", "Symbol"};
  std::string text(kKinds[static_cast<std::size_t>(token.kind)]);
  text.append(":").append(token.text);
  return text + "@" + std::to_string(token.place);
}

std::string Tokens(std::string_view statement) {
  const Shape shape = ShapeOf(statement);
  std::string text;
  for (const Token& token : ReadTokens(shape.key)) text += (text.empty() ? "" : " ") + Describe(token);
  return text;
}

TEST(ReadTokensTest, WordsNamesAndSymbolsKeepTheirText) {
  EXPECT_EQ(Tokens("Ab1 [x y].`z`,*"), "Word:Ab1@1 Name:x y@5 Symbol:.@10 Name:z@11 Symbol:,@14 Symbol:*@15 End:@16");
}

TEST(ReadTokensTest, ComparisonOfTwoCharactersIsOneSymbol) {
  EXPECT_EQ(Tokens("<=>=<><"), "Symbol:<=@1 Symbol:>=@3 Symbol:<>@5 Symbol:<@7 End:@8");
}

TEST(ReadTokensTest, PlaceCountsCharacters) { EXPECT_EQ(Tokens("\xC3\xA4 b"), "Word:\xC3\xA4@1 Word:b@3 End:@4"); }

TEST(ReadTokensTest, LiteralsAreNumberedFromZero) {
  const Shape shape = ShapeOf("'a' 2");
  const std::vector<Token> tokens = ReadTokens(shape.key);
  EXPECT_EQ(tokens.at(1).index, 1U);
  EXPECT_EQ(tokens.at(1).literal_kind, LiteralKind::Integer);
}

TEST(ReadTokensTest, PlaceholdersAreNumberedApartFromLiterals) {
  const Shape shape = ShapeOf("1 ? ?");
  EXPECT_EQ(ReadTokens(shape.key).at(2).kind, Token::Kind::Placeholder);
  EXPECT_EQ(ReadTokens(shape.key).at(2).index, 1U);
}

}  // namespace
}  // namespace zef::sql
