#include "platform/sql/convert.h"

#include <gtest/gtest.h>

#include "tests/platform/sql/compile_support.h"

namespace zef::sql {
namespace {

ParameterPlan Plan(Type type, int length = 0, bool required = false) {
  ParameterPlan plan;
  plan.type = type;
  plan.length = length;
  plan.required = required;
  return plan;
}

Value Convert(const Value& in, const ParameterPlan& plan) {
  Value scratch;
  return Converted(in, plan, scratch);
}

std::int32_t NumberOfFailure(const Value& in, const ParameterPlan& plan) {
  return FailureOf([&] { Convert(in, plan); }).number;
}

constexpr std::int32_t kDoesNotConvert = -2147217913;
constexpr std::int32_t kDoesNotFit = -2147217833;
constexpr std::int32_t kNeedsValue = -2147217873;

TEST(ConvertTest, ValueOfTheTypeIsNotCopied) {
  const Value in = std::string("abc");
  Value scratch;
  EXPECT_EQ(&Converted(in, Plan(Type::Text, 3), scratch), &in);
}

TEST(ConvertTest, UnknownTypeTakesAnything) { EXPECT_EQ(Convert(Bytes(), Plan(Type::Unknown)), Value(Bytes())); }

TEST(ConvertTest, TextBecomesADate) { EXPECT_EQ(Convert(std::string("1/1/1900"), Plan(Type::Date)), Value(Date(2.0))); }

TEST(ConvertTest, NumberBecomesADate) { EXPECT_EQ(Convert(2, Plan(Type::Date)), Value(Date(2.0))); }

TEST(ConvertTest, TextThatIsNoDateDoesNotConvert) {
  EXPECT_EQ(NumberOfFailure(std::string("soon"), Plan(Type::Date)), kDoesNotConvert);
}

TEST(ConvertTest, NumberBeyondTheCalendarDoesNotFit) { EXPECT_EQ(NumberOfFailure(1e7, Plan(Type::Date)), kDoesNotFit); }

TEST(ConvertTest, NumberBecomesItsText) { EXPECT_EQ(Convert(18, Plan(Type::Text, 5)), Value(std::string("18"))); }

TEST(ConvertTest, DateBecomesItsText) {
  EXPECT_EQ(Convert(Date(2.0), Plan(Type::Memo)), Value(std::string("1/1/1900")));
}

TEST(ConvertTest, TextsAreMeasuredInCharacters) {
  EXPECT_EQ(Convert(std::string("\xC3\xA9\xC3\xA9"), Plan(Type::Text, 2)), Value(std::string("\xC3\xA9\xC3\xA9")));
}

TEST(ConvertTest, LongerTextDoesNotFit) {
  EXPECT_EQ(NumberOfFailure(std::string("abc"), Plan(Type::Text, 2)), kDoesNotFit);
}

TEST(ConvertTest, TextOfANumberDoesNotFitEither) { EXPECT_EQ(NumberOfFailure(123, Plan(Type::Text, 2)), kDoesNotFit); }

TEST(ConvertTest, LengthZeroIsNoLimit) {
  EXPECT_EQ(Convert(std::string(1000, 'x'), Plan(Type::Text)), Value(std::string(1000, 'x')));
}

TEST(ConvertTest, TrueIsMinusOne) { EXPECT_EQ(Convert(true, Plan(Type::Long)), Value(-1)); }

TEST(ConvertTest, NumberBecomesABoolean) { EXPECT_EQ(Convert(7, Plan(Type::Boolean)), Value(true)); }

TEST(ConvertTest, HalvesRoundToEven) { EXPECT_EQ(Convert(2.5, Plan(Type::Long)), Value(2)); }

TEST(ConvertTest, NumberBeyondAByteDoesNotFit) { EXPECT_EQ(NumberOfFailure(256, Plan(Type::Byte)), kDoesNotFit); }

TEST(ConvertTest, NumberBeyondAShortDoesNotFit) { EXPECT_EQ(NumberOfFailure(32768, Plan(Type::Short)), kDoesNotFit); }

TEST(ConvertTest, NumberBeyondALongDoesNotFit) { EXPECT_EQ(NumberOfFailure(3e9, Plan(Type::Long)), kDoesNotFit); }

TEST(ConvertTest, TextThatIsNoNumberDoesNotConvert) {
  EXPECT_EQ(NumberOfFailure(std::string("x"), Plan(Type::Double)), kDoesNotConvert);
}

TEST(ConvertTest, EmptyTextIsNoNumber) { EXPECT_EQ(NumberOfFailure(std::string(), Plan(Type::Long)), kDoesNotConvert); }

TEST(ConvertTest, TextIsNoBytes) { EXPECT_EQ(NumberOfFailure(std::string("x"), Plan(Type::Binary)), kDoesNotConvert); }

TEST(ConvertTest, BytesAreNoText) { EXPECT_EQ(NumberOfFailure(Bytes(1), Plan(Type::Text)), kDoesNotConvert); }

TEST(ConvertTest, NullStaysNull) { EXPECT_EQ(Convert(Null{}, Plan(Type::Long)), Value(Null{})); }

TEST(ConvertTest, NullIsRefusedWhereAValueIsRequired) {
  EXPECT_EQ(NumberOfFailure(Null{}, Plan(Type::Long, 0, true)), kNeedsValue);
}

}  // namespace
}  // namespace zef::sql
