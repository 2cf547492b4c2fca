#!/usr/bin/env python3
"""The birthdays of a month: birthdays.py DATABASE [MONTH], with this month if none is given."""

import datetime
import sys

import zefcomponents


def birthdays(session, month):
    """Day, name and year of birth of everybody born in a month, by day."""
    contacts = zefcomponents.CreateObject("ZEFComponents.CContacts")
    if not session.LoadContactsWithCriteria(contacts, f"Month(CNT_BirthDate)={month}"):
        sys.exit(session.GetErrorDescription())
    born = [(contact.BirthDate, contact) for contact in contacts if contact.BirthDate is not None]
    return sorted((date.day, f"{contact.FirstName} {contact.LastName}", date.year) for date, contact in born)


def main(database, month=None):
    session = zefcomponents.CreateObject("ZEFComponents.CSession")
    session.Connect2Database(database, "", "")
    for day, name, year in birthdays(session, int(month or datetime.date.today().month)):
        print(f"{day:2}  {name} ({year})")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except zefcomponents.Failure as failure:
        sys.exit(failure.description)
