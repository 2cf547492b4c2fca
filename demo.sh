#!/usr/bin/env bash
# Builds the command-line client and shows what it does.
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh test # the group with the sqlite3 shell, which the end of the story needs
cmake --preset release
cmake --build --preset release --target zef
PATH="$PWD/build/release:$PATH"

# --- the story -------------------------------------------------------------------------------------------------------
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

tell() {
  printf '\n'
  printf '# %s\n' "$@"
}

# Prints a command as one would type it, then runs it.
show() {
  local word
  printf '$'
  for word in "$@"; do
    if [[ $word =~ ^[A-Za-z0-9_./:=-]+$ ]]; then printf ' %s' "$word"; else printf ' "%s"' "$word"; fi
  done
  printf '\n'
  "$@"
}

tell "A database is one file. A new one holds the folders that every user has, and nothing else."
show zef create people.db
show zef info people.db

tell "We keep tasks about the garden in a folder of their own, below the folder Tasks."
show zef add folder people.db Garden --parent Tasks
show zef folders people.db

tell "A task for every Friday, due for the first time on 3 May, and an appointment."
show zef add task people.db "Water the plants" --folder Garden --due 2024-05-03 --every week --on fri
show zef add event people.db "Dentist" --start "2024-05-14 09:30" --end "2024-05-14 10:15" --location "Main Street 4"
show zef tasks people.db

tell "Nobody entered the due dates into the calendar: saving the task did, and they repeat as the task does." \
  "Monday, 6 May, plays the part of today; a star marks a day on which something takes place."
show zef agenda people.db --month 2024-05 --today 2024-05-06

tell "A program that shows reminders notes what its user has seen, one occurrence at a time."
show zef seen people.db 1 2024-05-10 --mark
show zef seen people.db 1 2024-05-10
show zef seen people.db 1 2024-05-17

tell "Ann has a birthday. Saving her as a contact is enough for it to be in the calendar every year."
show zef add contact people.db --first-name Ann --last-name Lee --birthday 1980-05-17 --mobile "555 0100"
show zef agenda people.db --today 2024-05-13 --days 7
show zef find people.db "555 0100"

tell "The plants were watered. The series goes on with a task of its own, due a week later."
show zef done people.db 1 --today 2024-05-03
show zef tasks people.db

tell "Notes hold text; any property of any record can be changed by its name."
show zef add note people.db "Tomatoes" --text "Sow in March, plant out after the last frost."
show zef set note people.db 1 Title="Tomatoes and beans"
show zef show note people.db 1
show zef export note people.db 1 tomatoes.txt

tell "An alarm can carry a file. It lives in the database, whatever becomes of the one that it came from."
echo "Tap, shed, greenhouse" >round.txt
show zef add alarm people.db "Close the taps" --start "2024-10-31 18:00" --every year --attach round.txt
rm round.txt
show zef alarms people.db
show zef attachment save people.db 1 round-again.txt
show cat round-again.txt

tell "A folder can be copied with all that is in and below it, due dates in the calendar included."
show zef add folder people.db "Plans for 2025" --parent Tasks
show zef copy folder people.db Garden "Plans for 2025"
show zef folders people.db

tell "What takes more along than was named goes only with --yes."
show zef delete folder people.db 14 || echo "(exit status $?)"
show zef delete folder people.db 14 --yes

tell "Several people may have an account. A program asks who it is, and what that one may do."
show zef add user people.db ann --full-name "Ann Lee" --rights editor --password "tea at five"
show zef users people.db
show zef login people.db ann --password "tea at four" || echo "(exit status $?)"
show zef login people.db ann --password "tea at five"

tell "A database of an older version is upgraded behind a copy of it, all or nothing."
show zef create old.db --schema 9.1
show zef upgrade old.db
show zef info old.db.backup

tell "Every command speaks JSON to programs."
show zef tasks people.db --where "TSK_DueDate < #6/1/2024#" --json

tell "Nothing is ever overwritten."
show zef create people.db || echo "(exit status $?)"

tell "The file is plain: the stock sqlite3 shell reads it. Dates are days since 30 December 1899," \
  "an event of type T is a due date, a rule of type 2 is weekly, and 16 is the bit of Friday."
show sqlite3 -header -column people.db "SELECT EVE_ID, EVE_Text, EVE_Type, datetime(EVE_StartDate + 2415018.5) AS Start,
  REC_Type, REC_Options1, REC_Day FROM Events LEFT JOIN Recurrences ON REC_ID = EVE_RecurrenceID"
show sqlite3 -header -column people.db "SELECT VE_EventID, VE_UserID, date(VE_Date + 2415018.5) AS Seen FROM ViewedEvents"

tell "And what the shell writes, the library reads."
show sqlite3 people.db "UPDATE Events SET EVE_Location = 'Main Street 5' WHERE EVE_Text = 'Dentist'"
show zef agenda people.db --today 2024-05-13 --days 2
