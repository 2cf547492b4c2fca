#include "client/record_views.h"

#include <gmock/gmock.h>

namespace zef::client {
namespace {

using namespace std::chrono_literals;

RecordValues Call(std::int32_t direction) {
  return {RecordType::Call,
          {{"ID", 1},
           {"ContactID", -1},
           {"Direction", direction},
           {"RecordDate", Date(2024y / 5 / 1, 36000)},
           {"PhoneNumber", std::string("555")},
           {"Subject", std::string()},
           {"Notes", std::string("a\nb")}}};
}

TEST(RecordViews, ListShowsTheColumnsOfItsKind) {
  EXPECT_EQ(RecordTable(KindOf(RecordType::Call), {Call(0), Call(1)}, {}),
            "ID  WHEN              DIRECTION  NUMBER  CONTACT  SUBJECT\n"
            " 1  2024-05-01 10:00  incoming   555          -1\n"
            " 1  2024-05-01 10:00  outgoing   555          -1\n");
}

TEST(RecordViews, NumberWithoutAWordIsShownAsItIs) {
  EXPECT_EQ(RecordTable(KindOf(RecordType::Call), {Call(7)}, {}),
            "ID  WHEN              DIRECTION  NUMBER  CONTACT  SUBJECT\n"
            " 1  2024-05-01 10:00  7          555          -1\n");
}

TEST(RecordViews, EmptyListIsToldByItsKind) {
  EXPECT_EQ(RecordTable(KindOf(RecordType::Category), {}, {}), "No categories.\n");
}

TEST(RecordViews, RecordShowsWhatItHoldsLineByLine) {
  EXPECT_EQ(RecordText(Call(1), {}),
            "ID           1\n"
            "Direction    outgoing\n"
            "RecordDate   2024-05-01 10:00\n"
            "PhoneNumber  555\n"
            "Notes        a\n"
            "             b\n");
}

TEST(RecordViews, NumberWithAWordIsShownEvenIfItIsZero) {
  EXPECT_THAT(RecordText(Call(0), {}), testing::HasSubstr("Direction    incoming\n"));
}

TEST(RecordViews, JsonHoldsEveryProperty) {
  EXPECT_EQ(Json(JsonOf(Call(1))).Text(),
            "{\"id\": 1, \"contact\": -1, \"direction\": 1, \"record_date\": \"2024-05-01 10:00\", \"phone_number\": "
            "\"555\", \"subject\": \"\", \"notes\": \"a\\u000ab\"}");
}

TEST(RecordViews, FlagsAreYesOrNo) { EXPECT_EQ(ValueText(true) + ValueText(false), "yesno"); }

}  // namespace
}  // namespace zef::client
