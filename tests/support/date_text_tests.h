#pragma once

/// What texts of dates are, for both of their homes: the library, and the header of its clients, which needs nothing of
/// it. Each includes this behind its own declaration of `Date`, `ToText` and `ParseDate`.

#include <gtest/gtest.h>

#include <clocale>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace zef {
namespace {

struct TextCase {
  Date date;
  const char* text;
};

void PrintTo(const TextCase& example, std::ostream* out) { *out << example.text; }

// ---- writing

class DefaultText : public testing::TestWithParam<TextCase> {};

TEST_P(DefaultText, IsWritten) { EXPECT_EQ(ToText(GetParam().date), GetParam().text); }

TEST_P(DefaultText, ReadsBackToTheSameBits) { EXPECT_EQ(ParseDate(GetParam().text), GetParam().date); }

INSTANTIATE_TEST_SUITE_P(Dates, DefaultText,
                         testing::Values(TextCase{Date(45413 + 9 / 24.0), "5/1/2024 9:00:00 AM"},
                                         TextCase{Date(45413), "5/1/2024"},
                                         TextCase{Date(45413 + 0.5), "5/1/2024 12:00:00 PM"},
                                         TextCase{Date(45413 + 1 / 86400.0), "5/1/2024 12:00:01 AM"},
                                         TextCase{Date(45657 + 86399 / 86400.0), "12/31/2024 11:59:59 PM"},
                                         TextCase{Date(), "12:00:00 AM"}, TextCase{Date(0.5), "12:00:00 PM"},
                                         TextCase{Date(21 / 24.0), "9:00:00 PM"}, TextCase{Date(1), "12/31/1899"},
                                         TextCase{Date(-1.25), "12/29/1899 6:00:00 AM"},
                                         TextCase{Date(-657434), "1/1/100"}, TextCase{Date(2958465), "12/31/9999"}));

TEST(DateText, AFractionBelowZeroIsATimeOfDayZero) { EXPECT_EQ(ToText(Date(-0.5)), "12:00:00 PM"); }

TEST(DateText, PartsOfASecondAreRounded) { EXPECT_EQ(ToText(Date(45413 + 10.6 / 86400)), "5/1/2024 12:00:11 AM"); }

TEST(DateText, ATimeThatRoundsToMidnightCarriesIntoTheNextDay) {
  EXPECT_EQ(ToText(Date(45413 + 86399.7 / 86400)), "5/2/2024");
}

TEST(DateText, ATimeThatRoundsToMidnightCarriesFromDayMinusOneToDayZero) {
  EXPECT_EQ(ToText(Date(-1 - 86399.7 / 86400)), "12:00:00 AM");
}

TEST(DateText, DoesNotFollowTheLocaleOfTheProcess) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "");
  EXPECT_EQ(ToText(Date(45413.375)), "5/1/2024 9:00:00 AM");
  std::setlocale(LC_ALL, before.c_str());
}

TEST(DateText, EveryWholeSecondReadsBackToTheSameBits) {
  std::mt19937 random(20240501);
  for (int i = 0; i < 200000; ++i) {
    const int day = static_cast<int>(random() % 3615900) - 657434;
    const double fraction = static_cast<double>(random() % 86400) / 86400.0;
    const Date date(day < 0 ? day - fraction : day + fraction);
    ASSERT_EQ(ParseDate(ToText(date)), date) << ToText(date);
  }
}

// ---- reading

class ReadableDate : public testing::TestWithParam<TextCase> {};

TEST_P(ReadableDate, IsRead) {
  const std::optional<Date> date = ParseDate(GetParam().text);
  ASSERT_TRUE(date.has_value());
  EXPECT_EQ(*date, GetParam().date) << "read as " << ToText(*date);
}

constexpr double kMay1 = 45413;
constexpr double kNinePm = 21 * 3600 / 86400.0;

INSTANTIATE_TEST_SUITE_P(
    Forms, ReadableDate,
    testing::Values(
        TextCase{Date(kMay1), "05/01/2024"}, TextCase{Date(kMay1), "  5/1/2024  "},
        TextCase{Date(kMay1 + kNinePm), "5/1/2024 21:00"}, TextCase{Date(kMay1 + kNinePm), "5/1/2024 9:00 PM"},
        TextCase{Date(kMay1 + kNinePm), "5/1/2024   9:00:00pm"}, TextCase{Date(kMay1 + kNinePm), "5/1/2024 9 PM"},
        TextCase{Date(9 / 24.0), "9:00 AM"}, TextCase{Date(9 / 24.0), "9 am"}, TextCase{Date(kNinePm), "21:00"},
        TextCase{Date(), "0:00"}, TextCase{Date(), "12:00 AM"}, TextCase{Date(0.5), "12:00 PM"},
        TextCase{Date(kMay1), "2024-05-01"}, TextCase{Date(kMay1), "2024-5-1"},
        TextCase{Date(kMay1 + kNinePm), "2024-05-01 21:00:00"}, TextCase{Date(kMay1 + kNinePm), "2024-05-01T21:00"},
        TextCase{Date(kMay1), "May 1, 2024"}, TextCase{Date(kMay1), "may 1 2024"}, TextCase{Date(kMay1), "May 1,2024"},
        TextCase{Date(kMay1 + kNinePm), "May 1, 2024 9:00 PM"}, TextCase{Date(kMay1), "1 May 2024"},
        TextCase{Date(kMay1 + kNinePm), "1 MAY 2024 21:00:00"}, TextCase{Date(45597), "1 Nov 2024"},
        TextCase{Date(45597), "November 1, 2024"}, TextCase{Date(45351), "2/29/2024"}, TextCase{Date(47119), "1/1/29"},
        TextCase{Date(10959), "1/1/30"}, TextCase{Date(36526), "1/1/0"}, TextCase{Date(-657434), "1/1/100"},
        TextCase{Date(-657434), "1/1/0100"}, TextCase{Date(-657434), "0100-01-01"}, TextCase{Date(), "12/30/1899"},
        TextCase{Date(0.375), "12/30/1899 9:00:00 AM"}));

class UnreadableDate : public testing::TestWithParam<const char*> {};

TEST_P(UnreadableDate, IsNothing) { EXPECT_EQ(ParseDate(GetParam()), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    Forms, UnreadableDate,
    testing::Values("", " ", "x", "5", "5/1", "5/", "/", "5/1/", "2/30/2024", "2/29/2023", "13/5/2024", "0/5/2024",
                    "5/0/2024", "5/32/2024", "5/1/2024 25:00", "5/1/2024 24:00", "5/1/2024 9:60", "5/1/2024 9:00:60",
                    "5/1/2024 13:00 PM", "5/1/2024 0:30 AM", "5/1/2024 9:00 XM", "5/1/2024 9", "9:", ":30",
                    "9:00:", "9:000", "009:00", "5/1/99999", "5/1/12024", "1/1/099", "1/1/0099", "0024-05-01",
                    "24-05-01", "2024-05", "2024-05-01T", "2024-05-01 T21:00", "2024-05-01Z", "2024-05-0100",
                    "005/01/2024", "5/001/2024", "May 2024", "May 1", "May 1,", "1 May", "1 Mai 2024", "Ma 1, 2024",
                    "Mays 1, 2024", "May 32, 2024", "31 April 2024", "May 12024", "5/1/2024 x", "5/1/2024 9:00 AM x",
                    "5/1/2024,", "5/1/20245/1/2024", "-5/1/2024", "5/-1/2024", "5.1.2024", "#5/1/2024#",
                    "5/1/2024 9:00 A", "5/1/2024 9:00 A M", "9:00 AM 5/1/2024", "\xC3\xA4", "5/1/2024\n"));

TEST(ParseDate, AZeroCharacterIsNoBlank) { EXPECT_EQ(ParseDate(std::string_view("5/1/2024\0", 9)), std::nullopt); }

TEST(ParseDate, PiecesOfEveryFormNeverCrash) {
  const std::string alphabet = "0123459/:-, TAPMamyMayJun";
  std::mt19937 random(7);
  int read = 0;
  for (int i = 0; i < 200000; ++i) {
    std::string text;
    for (auto length = random() % 12; length > 0; --length) text += alphabet[random() % alphabet.size()];
    if (const auto date = ParseDate(text)) {
      ++read;
      EXPECT_EQ(ParseDate(ToText(*date)), date) << text;
    }
  }
  EXPECT_GT(read, 0);
}

}  // namespace
}  // namespace zef
