#include "client/assignment.h"

#include <gmock/gmock.h>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using test::FailureOf;

Assignment Read(RecordType type, std::string_view word) { return ReadAssignment(KindOf(type), word); }
std::string Complaint(RecordType type, std::string_view word) {
  return FailureOf([&] { Read(type, word); });
}

TEST(Assignment, TextIsReadAsItStands) {
  EXPECT_EQ(Read(RecordType::Note, "Title= a "), Assignment("Title", std::string(" a ")));
}

TEST(Assignment, TextMayBeEmpty) { EXPECT_EQ(Read(RecordType::Note, "Text="), Assignment("Text", std::string())); }

TEST(Assignment, TextMayHoldEqualSigns) {
  EXPECT_EQ(Read(RecordType::Note, "Text=a=b"), Assignment("Text", std::string("a=b")));
}

TEST(Assignment, PropertyMayBeWrittenInAnyLetterCase) { EXPECT_EQ(Read(RecordType::Note, "tItLe=x").first, "Title"); }

TEST(Assignment, DateIsRead) {
  EXPECT_EQ(Read(RecordType::Contact, "BirthDate=1980-02-29"), Assignment("BirthDate", Date(1980y / 2 / 29)));
}

TEST(Assignment, EmptyDateIsNoDate) {
  EXPECT_EQ(Read(RecordType::Contact, "BirthDate="), Assignment("BirthDate", Date()));
}

TEST(Assignment, WrongDateIsToldByItsProperty) {
  EXPECT_THAT(Complaint(RecordType::Contact, "BirthDate=soon"),
              testing::StartsWith("2: BirthDate: 'soon' is no date."));
}

TEST(Assignment, LargestNumberIsRead) {
  EXPECT_EQ(Read(RecordType::Category, "Color=2147483647"), Assignment("Color", 2147483647));
}

TEST(Assignment, NumberBeyond32BitsIsWrongUse) {
  EXPECT_EQ(Complaint(RecordType::Category, "Color=2147483648"),
            "2: Color: 2147483648 is not between -2147483648 and 2147483647.");
}

TEST(Assignment, EmptyNumberIsWrongUse) {
  EXPECT_EQ(Complaint(RecordType::Category, "Color="), "2: Color: '' is no whole number.");
}

TEST(Assignment, UnknownPropertyIsWrongUseThatTellsThose) {
  EXPECT_EQ(Complaint(RecordType::Category, "Colour=1"),
            "2: No category has a property 'Colour' to set; there are Name, Color.");
}

TEST(Assignment, IdentifierIsRefused) {
  EXPECT_EQ(Complaint(RecordType::Task, "ID=3"), "1: The property ID cannot be set.");
}

TEST(Assignment, NameMadeOfOthersIsRefused) {
  EXPECT_EQ(Complaint(RecordType::Contact, "FullName=x"), "1: The property FullName cannot be set.");
}

TEST(Assignment, WordWithoutAnEqualSignIsWrongUse) {
  EXPECT_EQ(Complaint(RecordType::Task, "Name"), "2: 'Name' does not say what to set; write Property=value.");
}

TEST(Assignment, WordWithoutAPropertyIsWrongUse) {
  EXPECT_EQ(Complaint(RecordType::Task, "=x"), "2: '=x' does not say what to set; write Property=value.");
}

constexpr PropertyInfo kFlag{"Flag", PropertyType::Flag, false};

class FlagWord : public testing::TestWithParam<std::pair<const char*, bool>> {};

TEST_P(FlagWord, IsUnderstood) {
  EXPECT_EQ(ReadValue("Flag", kFlag, GetParam().first), PropertyValue(GetParam().second));
}

INSTANTIATE_TEST_SUITE_P(Assignment, FlagWord,
                         testing::Values(std::pair("yes", true), std::pair("TRUE", true), std::pair("1", true),
                                         std::pair("no", false), std::pair("False", false), std::pair("0", false)));

TEST(Assignment, OtherWordForAFlagIsWrongUse) {
  EXPECT_EQ(FailureOf([] { ReadValue("Flag", kFlag, "maybe"); }), "2: Flag: 'maybe' is neither yes nor no.");
}

}  // namespace
}  // namespace zef::client
