#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// What comes out of a property of one type after a value of another was assigned.
class Conversion : public ComponentTest {
 protected:
  template <class Value>
  std::int32_t Long(Value&& value) {
    result = event.Put("FolderID", std::forward<Value>(value)).result;
    return event.Get("FolderID").value.number();
  }
  template <class Value>
  std::string Text(Value&& value) {
    result = event.Put("Text", std::forward<Value>(value)).result;
    return event.Get("Text").value.text();
  }
  template <class Value>
  bool Boolean(Value&& value) {
    result = folder.Put("Protected", std::forward<Value>(value)).result;
    return folder.Get("Protected").value.truth();
  }
  template <class Value>
  double Date(Value&& value) {
    result = event.Put("StartDate", std::forward<Value>(value)).result;
    return event.Get("StartDate").value.date();
  }

  const Object event = Create("CEvent");
  const Object folder = Create("CFolder");
  HRESULT result = S_OK;
};

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();

TEST_F(Conversion, KeepsTheLeastInteger) { EXPECT_EQ(Long(kLeast), kLeast); }
TEST_F(Conversion, KeepsTheGreatestInteger) { EXPECT_EQ(Long(kMost), kMost); }
TEST_F(Conversion, TakesASignedByteAsInteger) {
  EXPECT_EQ(Long(Variant::Of(VT_I1, static_cast<signed char>(-128))), -128);
}
TEST_F(Conversion, TakesAByteAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_UI1, BYTE{255})), 255); }
TEST_F(Conversion, TakesAShortIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_I2, SHORT{-32768})), -32768); }
TEST_F(Conversion, TakesAnUnsignedShortIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_UI2, USHORT{65535})), 65535); }
TEST_F(Conversion, TakesAMachineIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_INT, -7)), -7); }
TEST_F(Conversion, TakesAnUnsignedIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_UI4, 2147483647u)), kMost); }
TEST_F(Conversion, TakesAnUnsignedMachineIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_UINT, 7u)), 7); }
TEST_F(Conversion, TakesALongIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_I8, LONGLONG{-2147483648})), kLeast); }
TEST_F(Conversion, TakesAnUnsignedLongIntegerAsInteger) { EXPECT_EQ(Long(Variant::Of(VT_UI8, ULONGLONG{7})), 7); }
TEST_F(Conversion, RoundsASingleToTheEvenInteger) { EXPECT_EQ(Long(Variant::Of(VT_R4, 2.5f)), 2); }
TEST_F(Conversion, RoundsADoubleToTheEvenInteger) { EXPECT_EQ(Long(3.5), 4); }
TEST_F(Conversion, RoundsACurrencyToTheEvenInteger) { EXPECT_EQ(Long(Variant::Of(VT_CY, LONGLONG{-25000})), -2); }
TEST_F(Conversion, TakesADecimalAsInteger) { EXPECT_EQ(Long(Variant::Decimal(0, 123456, 3, false)), 123); }
TEST_F(Conversion, TakesANegativeDecimalAsInteger) { EXPECT_EQ(Long(Variant::Decimal(0, 7, 0, true)), -7); }
TEST_F(Conversion, TakesTrueAsMinusOne) { EXPECT_EQ(Long(true), -1); }
TEST_F(Conversion, TakesTheDaysOfADateAsInteger) { EXPECT_EQ(Long(Variant::Date(45413.0)), 45413); }
TEST_F(Conversion, ReadsATextAsInteger) { EXPECT_EQ(Long(" -42 "), -42); }
TEST_F(Conversion, RoundsTheNumberOfAText) { EXPECT_EQ(Long("1.6"), 2); }
TEST_F(Conversion, TakesEmptyAsZero) {
  Long(5);
  EXPECT_EQ(Long(Variant()), 0);
}

/// Values that are no integer, with the refusal that each gets.
struct Refused {
  const char* name;
  Variant (*value)();
  HRESULT result;

  friend void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.name; }
};
class RefusedInteger : public ComponentTest, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedInteger, LeavesThePropertyAsItWas) {
  const Object event = Create("CEvent");
  event.Put("FolderID", 5);
  EXPECT_EQ(event.Put("FolderID", GetParam().value()).result, GetParam().result);
  EXPECT_EQ(event.Get("FolderID").value.number(), 5);
}

constexpr Refused kRefused[] = {
    {"UnsignedAboveTheRange", [] { return Variant::Of(VT_UI4, 2147483648u); }, DISP_E_OVERFLOW},
    {"UnsignedMachineIntegerAboveTheRange", [] { return Variant::Of(VT_UINT, 4294967295u); }, DISP_E_OVERFLOW},
    {"LongAboveTheRange", [] { return Variant::Of(VT_I8, LONGLONG{2147483648}); }, DISP_E_OVERFLOW},
    {"LongBelowTheRange", [] { return Variant::Of(VT_I8, LONGLONG{-2147483649}); }, DISP_E_OVERFLOW},
    {"GreatestUnsignedLong", [] { return Variant::Of(VT_UI8, ~ULONGLONG{0}); }, DISP_E_OVERFLOW},
    {"DoubleAboveTheRange", [] { return Variant(2147483647.5); }, DISP_E_OVERFLOW},
    {"NotANumber", [] { return Variant(std::nan("")); }, DISP_E_OVERFLOW},
    {"Infinity", [] { return Variant(HUGE_VAL); }, DISP_E_OVERFLOW},
    {"CurrencyAboveTheRange", [] { return Variant::Of(VT_CY, LONGLONG{21474836475001}); }, DISP_E_OVERFLOW},
    {"DecimalOf96Bits", [] { return Variant::Decimal(1, 0, 0, false); }, DISP_E_OVERFLOW},
    {"TextAboveTheRange", [] { return Variant("2147483648"); }, DISP_E_OVERFLOW},
    {"TextBeyondADouble", [] { return Variant("1e999"); }, DISP_E_OVERFLOW},
    {"Word", [] { return Variant("twelve"); }, DISP_E_TYPEMISMATCH},
    {"EmptyText", [] { return Variant(""); }, DISP_E_TYPEMISMATCH},
    {"NullText", [] { return Variant::Of(VT_BSTR, BSTR{nullptr}); }, DISP_E_TYPEMISMATCH},
    {"DatabaseNull", [] { return Variant::Null(); }, DISP_E_TYPEMISMATCH},
    {"Object", [] { return Variant(Library::Shared().Create("CTag")); }, DISP_E_TYPEMISMATCH},
    {"Nothing", [] { return Variant::Nothing(); }, DISP_E_TYPEMISMATCH},
    {"ErrorCode", [] { return Variant::Of(VT_ERROR, SCODE{5}); }, DISP_E_TYPEMISMATCH},
    {"UnknownKind", [] { return Variant::Of(VARTYPE{99}, LONGLONG{1}); }, DISP_E_TYPEMISMATCH},
    {"VariantInItself", [] { return Variant::Of(VT_VARIANT, LONGLONG{1}); }, DISP_E_TYPEMISMATCH},
    {"ReferenceToNowhere", [] { return Variant::Ref(VT_I4, nullptr); }, DISP_E_TYPEMISMATCH},
    {"ReferenceToNoVariant", [] { return Variant::Ref(VT_VARIANT, nullptr); }, DISP_E_TYPEMISMATCH},
    {"NullArray", [] { return Variant::Of(VT_ARRAY | VT_I4, static_cast<SAFEARRAY*>(nullptr)); }, DISP_E_TYPEMISMATCH},
};

std::string NameOfCase(const testing::TestParamInfo<Refused>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Conversion, RefusedInteger, testing::ValuesIn(kRefused), NameOfCase);

TEST_F(Conversion, RefusesAMissingValueInAnAssignment) {
  Long(Variant::Missing());
  EXPECT_EQ(result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Conversion, WritesAnIntegerAsText) { EXPECT_EQ(Text(-42), "-42"); }
TEST_F(Conversion, WritesADoubleInItsShortestForm) { EXPECT_EQ(Text(0.1), "0.1"); }
TEST_F(Conversion, WritesASingleInItsShortestForm) { EXPECT_EQ(Text(Variant::Of(VT_R4, 0.1f)), "0.1"); }
TEST_F(Conversion, WritesALongIntegerWithAllItsDigits) {
  EXPECT_EQ(Text(Variant::Of(VT_I8, LONGLONG{-9223372036854775807})), "-9223372036854775807");
}
TEST_F(Conversion, WritesTheLeastLongInteger) {
  EXPECT_EQ(Text(Variant::Of(VT_I8, std::numeric_limits<LONGLONG>::min())), "-9223372036854775808");
}
TEST_F(Conversion, WritesAnUnsignedLongIntegerWithAllItsDigits) {
  EXPECT_EQ(Text(Variant::Of(VT_UI8, ~ULONGLONG{0})), "18446744073709551615");
}
TEST_F(Conversion, WritesACurrencyWithAllItsDigits) {
  EXPECT_EQ(Text(Variant::Of(VT_CY, LONGLONG{-9223372036854775807})), "-922337203685477.5807");
}
TEST_F(Conversion, WritesACurrencyWithoutNeedlessZeros) { EXPECT_EQ(Text(Variant::Of(VT_CY, LONGLONG{15000})), "1.5"); }
TEST_F(Conversion, WritesASmallCurrencyWithItsZeros) { EXPECT_EQ(Text(Variant::Of(VT_CY, LONGLONG{-5})), "-0.0005"); }
TEST_F(Conversion, WritesADecimalWithAllItsDigits) {
  EXPECT_EQ(Text(Variant::Decimal(0xFFFFFFFF, ~std::uint64_t{0}, 28, true)), "-7.9228162514264337593543950335");
}
TEST_F(Conversion, WritesADecimalOfZeroWithoutSign) { EXPECT_EQ(Text(Variant::Decimal(0, 0, 5, true)), "0"); }
TEST_F(Conversion, RefusesADecimalOfAnImpossibleScale) {
  Text(Variant::Decimal(0, 1, 29, false));
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}
TEST_F(Conversion, WritesTrueAsAWord) { EXPECT_EQ(Text(true), "True"); }
TEST_F(Conversion, WritesADateInTheDefaultForm) { EXPECT_EQ(Text(Variant::Date(45413.375)), "5/1/2024 9:00:00 AM"); }
TEST_F(Conversion, WritesEmptyAsTheEmptyText) {
  Text("before");
  EXPECT_EQ(Text(Variant()), "");
}
TEST_F(Conversion, TakesTheNullTextAsTheEmptyOne) {
  Text("before");
  EXPECT_EQ(Text(Variant::Of(VT_BSTR, BSTR{nullptr})), "");
}
TEST_F(Conversion, RefusesNullAsText) {
  Text(Variant::Null());
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}
TEST_F(Conversion, RefusesAnObjectAsText) {
  Text(event);
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}

TEST_F(Conversion, TakesAnyNumberButZeroAsTrue) { EXPECT_TRUE(Boolean(-2)); }
TEST_F(Conversion, TakesOneAsTrueBooleanValue) {
  EXPECT_TRUE(Boolean(Variant::Of(VT_BOOL, VARIANT_BOOL{1})));
  EXPECT_EQ(folder.Get("Protected").value.raw().boolVal, VARIANT_TRUE);
}
TEST_F(Conversion, TakesZeroAsFalse) {
  Boolean(true);
  EXPECT_FALSE(Boolean(0));
}
TEST_F(Conversion, ReadsTheWordTrue) { EXPECT_TRUE(Boolean("tRUE")); }
TEST_F(Conversion, ReadsTheWordFalse) {
  Boolean(true);
  EXPECT_FALSE(Boolean("False"));
}
TEST_F(Conversion, ReadsANumberAsTruth) { EXPECT_TRUE(Boolean("1")); }
TEST_F(Conversion, RefusesOtherWordsAsTruth) {
  Boolean("yes");
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}
TEST_F(Conversion, TakesEmptyAsFalse) {
  Boolean(true);
  EXPECT_FALSE(Boolean(Variant()));
}

TEST_F(Conversion, KeepsADateWithItsFraction) { EXPECT_EQ(Date(Variant::Date(-1.25)), -1.25); }
TEST_F(Conversion, KeepsTheEarliestDate) { EXPECT_EQ(Date(Variant::Date(-657434.0)), -657434.0); }
TEST_F(Conversion, KeepsTheLatestDate) { EXPECT_EQ(Date(Variant::Date(2958465.0)), 2958465.0); }
TEST_F(Conversion, TakesANumberAsDate) { EXPECT_EQ(Date(45413.5), 45413.5); }
TEST_F(Conversion, TakesAnIntegerAsDate) { EXPECT_EQ(Date(45413), 45413.0); }
TEST_F(Conversion, ReadsATextAsDate) { EXPECT_EQ(Date("5/1/2024 9:00:00 AM"), 45413.375); }
TEST_F(Conversion, TakesEmptyAsTheZeroDate) {
  Date(45413);
  EXPECT_EQ(Date(Variant()), 0.0);
}
TEST_F(Conversion, RefusesATextThatIsNoDate) {
  Date("tomorrow");
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}
TEST_F(Conversion, RefusesANumberBeyondTheLatestDate) {
  Date(2958466.0);
  EXPECT_EQ(result, DISP_E_OVERFLOW);
}
TEST_F(Conversion, RefusesADateBeyondTheLatestDate) {
  Date(Variant::Date(2958466.0));
  EXPECT_EQ(result, DISP_E_OVERFLOW);
}
TEST_F(Conversion, RefusesADateThatIsNoNumber) {
  Date(Variant::Date(std::nan("")));
  EXPECT_EQ(result, DISP_E_OVERFLOW);
}
TEST_F(Conversion, OfARefusedDateLeavesThePropertyAsItWas) {
  Date(45413);
  EXPECT_EQ(Date(Variant::Date(1e300)), 45413.0);
}

TEST_F(Conversion, GoesThroughAReference) {
  SHORT number = -7;
  EXPECT_EQ(Long(Variant::Ref(VT_I2, &number)), -7);
}
TEST_F(Conversion, GoesThroughAReferenceToADecimal) {
  Variant decimal = Variant::Decimal(0, 70, 1, false);
  EXPECT_EQ(Long(Variant::Ref(VT_DECIMAL, &decimal.raw())), 7);
}
TEST_F(Conversion, GoesThroughNestedReferences) {
  Variant number("42");
  Variant inner = Variant::Ref(number);
  EXPECT_EQ(Long(Variant::Ref(inner)), 42);
}
TEST_F(Conversion, DoesNotHangInARingOfReferences) {
  Variant ring = Variant::Ref(VT_VARIANT, nullptr);
  ring.raw().pvarVal = &ring.raw();
  Long(Variant::Ref(ring));
  EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace zef::test
