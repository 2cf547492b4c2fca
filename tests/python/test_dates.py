import datetime
import math
import unittest

from zefcomponents import dates

DAY_ZERO = datetime.datetime(1899, 12, 30)


class DatesTest(unittest.TestCase):
    def test_day_zero_is_the_number_0(self):
        self.assertEqual(dates.to_number(DAY_ZERO), 0.0)

    def test_time_before_day_zero_counts_forward_from_its_midnight(self):
        self.assertEqual(dates.to_number(datetime.datetime(1899, 12, 29, 6)), -1.25)
        self.assertEqual(dates.from_number(-1.25), datetime.datetime(1899, 12, 29, 6))

    def test_date_alone_is_its_midnight(self):
        self.assertEqual(dates.to_number(datetime.date(2024, 5, 1)), 45413.0)

    def test_time_alone_is_on_day_zero(self):
        self.assertEqual(dates.to_number(datetime.time(18)), 0.75)

    def test_number_is_whole_days_plus_seconds_of_the_day(self):
        date = datetime.datetime(2024, 5, 1, 9, 0, 1)
        self.assertEqual(dates.to_number(date), 45413 + 32401 / 86400)

    def test_every_second_of_a_day_comes_back(self):
        for day in (datetime.datetime(2024, 5, 1), datetime.datetime(1776, 7, 4), datetime.datetime(9999, 12, 31)):
            for second in range(0, 86400, 61):
                date = day + datetime.timedelta(seconds=second)
                self.assertEqual(dates.from_number(dates.to_number(date)), date)

    def test_first_and_last_date_come_back(self):
        for date in (datetime.datetime(100, 1, 1), datetime.datetime(9999, 12, 31, 23, 59, 59)):
            self.assertEqual(dates.from_number(dates.to_number(date)), date)

    def test_last_moment_comes_back_without_what_is_beyond_milliseconds(self):
        last = datetime.datetime(9999, 12, 31, 23, 59, 59, 999970)
        self.assertEqual(dates.from_number(dates.to_number(last)), last.replace(microsecond=999000))

    def test_last_moment_of_a_day_stays_on_its_day(self):
        for day in (datetime.date.max, datetime.date(2024, 5, 1), datetime.date(1776, 7, 4), datetime.date(100, 1, 1)):
            with self.subTest(day):
                number = dates.to_number(datetime.datetime.combine(day, datetime.time.max))
                self.assertEqual(math.trunc(number), dates.to_number(day))

    def test_last_moment_of_a_day_comes_back_as_the_midnight_that_it_rounds_to(self):
        for day in (datetime.date(2024, 5, 1), datetime.date(1776, 7, 4), datetime.date(100, 1, 1)):
            with self.subTest(day):
                number = dates.to_number(datetime.datetime.combine(day, datetime.time.max))
                midnight = datetime.datetime.combine(day, datetime.time()) + datetime.timedelta(days=1)
                self.assertEqual(dates.from_number(number), midnight)

    def test_number_of_the_year_10000_is_refused(self):
        with self.assertRaises(ValueError):
            dates.from_number(2958466.0)

    def test_year_before_100_is_refused(self):
        with self.assertRaisesRegex(ValueError, "year 99 is before 100"):
            dates.to_number(datetime.datetime(99, 12, 31))

    def test_date_with_a_time_zone_is_refused(self):
        with self.assertRaisesRegex(ValueError, "time zone"):
            dates.to_number(datetime.datetime(2024, 5, 1, tzinfo=datetime.timezone.utc))

    def test_number_beyond_the_calendar_is_refused(self):
        with self.assertRaises(ValueError):
            dates.from_number(1e9)
