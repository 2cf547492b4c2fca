#include "platform/date.h"
#include "platform/run_time_error.h"
#include "tests/support/date_text_tests.h"

namespace zef {
namespace {

TEST(DateText, IsAppended) {
  std::string text = "since ";
  AppendText(text, Date(45413));
  EXPECT_EQ(text, "since 5/1/2024");
}

TEST(DateText, LeavesTheTextAloneWhenTheDateIsOutOfRange) {
  std::string text = "since ";
  EXPECT_THROW(AppendText(text, Date(1e9)), RunTimeError);
  EXPECT_EQ(text, "since ");
}

TEST(ShortDateText, IsTheDateAlone) { EXPECT_EQ(ShortDateText(Date(45413.375)), "5/1/2024"); }
TEST(ShortDateText, OfTheZeroDateIsItsDay) { EXPECT_EQ(ShortDateText(Date()), "12/30/1899"); }
TEST(ShortDateText, CarriesWithTheTime) { EXPECT_EQ(ShortDateText(Date(45413 + 86399.7 / 86400)), "5/2/2024"); }

}  // namespace
}  // namespace zef
