"""Dates as the library keeps them: days since 30 December 1899, the time of day as the fraction.

The time of a day before that one counts forward from its midnight: -1.25 is 29 December 1899, 06:00.
"""

import datetime
import math

_DAY_ZERO = datetime.datetime(1899, 12, 30)
_SECONDS = 86400
_FIRST_YEAR = 100
_LAST_DAY = (datetime.datetime.max - _DAY_ZERO).days


def to_number(date):
    """The number of a datetime, a date (its midnight) or a time (on day zero), to the bit as the library has it."""
    if isinstance(date, datetime.time):
        date = datetime.datetime.combine(_DAY_ZERO.date(), date)
    elif not isinstance(date, datetime.datetime):
        date = datetime.datetime.combine(date, datetime.time())
    if date.tzinfo is not None:
        raise ValueError("the library's dates are local times and know no time zone")
    if date.year < _FIRST_YEAR:
        raise ValueError(f"the year {date.year} is before {_FIRST_YEAR}, where the library's dates begin")
    since = date - _DAY_ZERO  # its seconds are those since midnight on either side of day zero
    time = (since.seconds + since.microseconds / 1e6) / _SECONDS
    number = since.days - time if since.days < 0 else since.days + time
    # A last moment that is too near to midnight for such a number stays on its day: before day zero the next whole
    # number is a day that is past, and behind the last day there is none.
    return number if math.trunc(number) == since.days else math.nextafter(number, 0)


def from_number(number):
    """The datetime of a number, to the millisecond, which is what such a number can hold everywhere."""
    days = math.trunc(number)
    milliseconds = round(abs(number - days) * _SECONDS * 1000)
    if days == _LAST_DAY:
        milliseconds = min(milliseconds, _SECONDS * 1000 - 1)  # no day follows that its last moment could round to
    try:
        return _DAY_ZERO + datetime.timedelta(days=days, milliseconds=milliseconds)
    except OverflowError as overflow:
        raise ValueError(f"the number {number} is no date") from overflow
