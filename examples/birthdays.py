#!/usr/bin/env python3
"""The birthdays of a month."""

import argparse
import datetime
import sys

import zefcomponents


def month_number(text):
    """A month from 1 to 12."""
    if text.isdecimal() and 1 <= int(text) <= 12:
        return int(text)
    raise argparse.ArgumentTypeError(f"{text} is no month from 1 to 12")


def birthdays(database, month):
    """Day, name and year of birth of everybody born in a month, by day."""
    session = zefcomponents.CreateObject("ZEFComponents.CSession")
    session.Connect2Database(database, "", "")
    contacts = zefcomponents.CreateObject("ZEFComponents.CContacts")
    if not session.LoadContactsWithCriteria(contacts, f"Month(CNT_BirthDate)={month}"):
        raise zefcomponents.Failure(session.GetErrorCode(), session.GetErrorDescription())
    born = [(contact.BirthDate, contact) for contact in contacts if contact.BirthDate is not None]
    return sorted((date.day, f"{contact.FirstName} {contact.LastName}", date.year) for date, contact in born)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("database")
    parser.add_argument("month", type=month_number, nargs="?", default=datetime.date.today().month,
                        help="from 1 to 12; this month if none is given")
    asked = parser.parse_args()
    try:
        for day, name, year in birthdays(asked.database, asked.month):
            print(f"{day:2}  {name} ({year})")
    except (zefcomponents.Failure, ValueError) as failure:  # the name of a file need not be a text
        sys.exit(f"birthdays.py: {failure}")


if __name__ == "__main__":
    main()
