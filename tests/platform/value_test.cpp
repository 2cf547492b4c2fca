#include "platform/value.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "platform/run_time_error.h"

namespace zef {
namespace {

using std::string;

template <class Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& failure) {
    return failure.number();
  }
  return 0;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Value Text(const char* text) { return string(text); }

// ---- Null and bytes

TEST(NullValue, IsNull) { EXPECT_TRUE(IsNull(Value())); }
TEST(NullValue, EmptyTextIsNotNull) { EXPECT_FALSE(IsNull(Text(""))); }

TEST(NullValue, NoConversionTakesIt) {
  EXPECT_EQ(FailureOf([] { ToLong(Value()); }), 94);
  EXPECT_EQ(FailureOf([] { ToByte(Value()); }), 94);
  EXPECT_EQ(FailureOf([] { ToDouble(Value()); }), 94);
  EXPECT_EQ(FailureOf([] { ToBoolean(Value()); }), 94);
  EXPECT_EQ(FailureOf([] { ToDate(Value()); }), 94);
  EXPECT_EQ(FailureOf([] { ToText(Value()); }), 94);
}

TEST(BytesValue, NoConversionTakesThem) {
  const Value bytes = Bytes(3);
  EXPECT_EQ(FailureOf([&] { ToLong(bytes); }), 13);
  EXPECT_EQ(FailureOf([&] { ToByte(bytes); }), 13);
  EXPECT_EQ(FailureOf([&] { ToDouble(bytes); }), 13);
  EXPECT_EQ(FailureOf([&] { ToBoolean(bytes); }), 13);
  EXPECT_EQ(FailureOf([&] { ToDate(bytes); }), 13);
  EXPECT_EQ(FailureOf([&] { ToText(bytes); }), 13);
}

// ---- integers

struct LongCase {
  Value value;
  std::int32_t expected;
};

class LongOf : public testing::TestWithParam<LongCase> {};

TEST_P(LongOf, IsTheRoundedNumber) { EXPECT_EQ(ToLong(GetParam().value), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Values, LongOf,
    testing::Values(LongCase{std::int32_t{7}, 7}, LongCase{std::uint8_t{200}, 200}, LongCase{0.5, 0}, LongCase{1.5, 2},
                    LongCase{2.5, 2}, LongCase{-0.5, 0}, LongCase{-1.5, -2}, LongCase{2147483647.4, 2147483647},
                    LongCase{-2147483648.5, std::numeric_limits<std::int32_t>::min()}, LongCase{true, -1},
                    LongCase{false, 0}, LongCase{Date(45413.5), 45414}, LongCase{Text("42"), 42},
                    LongCase{Text("  -42  "), -42}, LongCase{Text("+42"), 42}, LongCase{Text("2.5"), 2},
                    LongCase{Text("1e3"), 1000}, LongCase{Text("1E+3"), 1000}, LongCase{Text(".5"), 0},
                    LongCase{Text("5."), 5}, LongCase{Text("-.6"), -1}, LongCase{Text("007"), 7},
                    LongCase{Text("1e-999"), 0}, LongCase{Text("2147483647"), 2147483647}));

class LongOverflow : public testing::TestWithParam<Value> {};

TEST_P(LongOverflow, Raises6) {
  EXPECT_EQ(FailureOf([] { ToLong(GetParam()); }), 6);
}

INSTANTIATE_TEST_SUITE_P(Values, LongOverflow,
                         testing::Values(Value(2147483647.5), Value(-2147483649.0), Value(1e300), Value(kInfinity),
                                         Value(-kInfinity), Value(kNan), Text("2147483648"), Text("1e999"),
                                         Text("-1e999")));

class NoNumber : public testing::TestWithParam<const char*> {};

TEST_P(NoNumber, Raises13) {
  EXPECT_EQ(FailureOf([] { ToDouble(Text(GetParam())); }), 13);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoNumber,
                         testing::Values("", " ", "x", "1x", "1 2", "--1", "+-1", "-+1", "1,5", "1e", "1e+", ".", "-",
                                         "inf", "nan", "-infinity", "0x10", "&H10", "True", "1\n", "5/1/2024",
                                         "\xC2\xA0"
                                         "1"));

TEST(ByteOf, HoldsTheRange) {
  EXPECT_EQ(ToByte(std::int32_t{255}), 255);
  EXPECT_EQ(ToByte(std::uint8_t{7}), 7);
  EXPECT_EQ(ToByte(-0.5), 0);
  EXPECT_EQ(ToByte(Text("12")), 12);
}

TEST(ByteOf, OutsideTheRangeRaises6) {
  EXPECT_EQ(FailureOf([] { ToByte(std::int32_t{256}); }), 6);
  EXPECT_EQ(FailureOf([] { ToByte(255.5); }), 6);
  EXPECT_EQ(FailureOf([] { ToByte(std::int32_t{-1}); }), 6);
  EXPECT_EQ(FailureOf([] { ToByte(true); }), 6);
  EXPECT_EQ(FailureOf([] { ToByte(kNan); }), 6);
}

// ---- doubles, Booleans, dates

TEST(DoubleOf, TakesEveryNumber) {
  EXPECT_EQ(ToDouble(std::int32_t{-7}), -7.0);
  EXPECT_EQ(ToDouble(0.25), 0.25);
  EXPECT_EQ(ToDouble(true), -1.0);
  EXPECT_EQ(ToDouble(Date(1.5)), 1.5);
  EXPECT_EQ(ToDouble(Text("0.1")), 0.1);
}

TEST(DoubleOf, TextReadsAPointWhateverTheLocale) {
  const string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(ToDouble(Text("1.5")), 1.5);
  std::setlocale(LC_ALL, before.c_str());
}

struct BooleanCase {
  Value value;
  bool expected;
};

class BooleanOf : public testing::TestWithParam<BooleanCase> {};

TEST_P(BooleanOf, IsWhetherItIsNotZero) { EXPECT_EQ(ToBoolean(GetParam().value), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Values, BooleanOf,
                         testing::Values(BooleanCase{true, true}, BooleanCase{false, false},
                                         BooleanCase{std::int32_t{0}, false}, BooleanCase{std::int32_t{2}, true},
                                         BooleanCase{0.1, true}, BooleanCase{Date(), false}, BooleanCase{Date(1), true},
                                         BooleanCase{Text("True"), true}, BooleanCase{Text("FALSE"), false},
                                         BooleanCase{Text("true"), true}, BooleanCase{Text("0"), false},
                                         BooleanCase{Text("-1"), true}));

TEST(BooleanOf, AnotherWordRaises13) {
  EXPECT_EQ(FailureOf([] { ToBoolean(Text("yes")); }), 13);
}

TEST(DateOf, TakesADate) { EXPECT_EQ(ToDate(Date(1.5)), Date(1.5)); }
TEST(DateOf, ANumberIsItsValue) { EXPECT_EQ(ToDate(45413.375), Date(45413.375)); }
TEST(DateOf, ATextIsReadAsADate) { EXPECT_EQ(ToDate(Text("5/1/2024 9:00:00 AM")), Date(45413.375)); }
TEST(DateOf, ANumberTextIsItsValue) { EXPECT_EQ(ToDate(Text("45413.375")), Date(45413.375)); }

TEST(DateOf, AnotherTextRaises13) {
  EXPECT_EQ(FailureOf([] { ToDate(Text("2/30/2024")); }), 13);
}

TEST(DateOf, ANumberOutOfRangeRaises6) {
  EXPECT_EQ(FailureOf([] { ToDate(2958466.0); }), 6);
  EXPECT_EQ(FailureOf([] { ToDate(-657435.0); }), 6);
  EXPECT_EQ(FailureOf([] { ToDate(kNan); }), 6);
  EXPECT_EQ(FailureOf([] { ToDate(Text("1e9")); }), 6);
}

// ---- texts

TEST(TextOf, WritesEveryKind) {
  EXPECT_EQ(ToText(Value(std::int32_t{-7})), "-7");
  EXPECT_EQ(ToText(Value(std::uint8_t{200})), "200");
  EXPECT_EQ(ToText(Value(0.1)), "0.1");
  EXPECT_EQ(ToText(Value(true)), "True");
  EXPECT_EQ(ToText(Value(false)), "False");
  EXPECT_EQ(ToText(Value(Date(45413.375))), "5/1/2024 9:00:00 AM");
  EXPECT_EQ(ToText(Text("as it is")), "as it is");
}

TEST(TextOf, ATextThatIsGivenAwayIsNotCopied) {
  Value value = string(1000, 'x');
  const char* const letters = std::get<string>(value).data();
  EXPECT_EQ(ToText(std::move(value)).data(), letters);
}

struct NumberCase {
  double number;
  const char* text;
};

class NumberTextOf : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberTextOf, IsTheShortestForm) { EXPECT_EQ(NumberText(GetParam().number), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumberTextOf,
    testing::Values(NumberCase{0.0, "0"}, NumberCase{-0.0, "0"}, NumberCase{1.0, "1"}, NumberCase{-1.5, "-1.5"},
                    NumberCase{100.0, "100"}, NumberCase{0.1 + 0.2, "0.30000000000000004"},
                    NumberCase{123456789012345.0, "123456789012345"}, NumberCase{1e14, "100000000000000"},
                    NumberCase{1e15, "1E+15"}, NumberCase{1e20, "1E+20"}, NumberCase{-1.25e100, "-1.25E+100"},
                    NumberCase{0.0001, "0.0001"}, NumberCase{0.00001, "1E-05"}, NumberCase{5e-324, "5E-324"},
                    NumberCase{1234567890123456.0, "1.234567890123456E+15"}));

TEST(NumberTextOf, ReadsBackToTheSameBits) {
  std::mt19937_64 random(20240501);
  for (int i = 0; i < 100000; ++i) {
    const std::uint64_t bits = random();
    double number = 0;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    if (!std::isfinite(number)) continue;
    ASSERT_EQ(ToDouble(NumberText(number)), number);
  }
}

}  // namespace
}  // namespace zef
