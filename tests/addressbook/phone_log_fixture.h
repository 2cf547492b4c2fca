#pragma once

#include "addressbook/phone_log.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

inline const ColumnCases<CPhoneLog> kPhoneLogColumns = {
    {"PL_ID", "61", "61", "", [](auto& l) { return Shown(l.ID); }},
    {"PL_ContactID", "62", "62", "0", [](auto& l) { return Shown(l.ContactID); }},
    {"PL_DateLastUpdate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& l) { return Shown(l.DateLastUpdate); }},
    {"PL_Subject", "'a subject'", "a subject", "", [](auto& l) { return Shown(l.Subject); }},
    {"PL_PhoneNumber", "'555-1'", "555-1", "", [](auto& l) { return Shown(l.PhoneNumber); }},
    {"PL_Notes", "'some notes'", "some notes", "", [](auto& l) { return Shown(l.Notes); }},
    {"PL_RecordDate", "'2/29/2024 6:30:15 PM'", "2/29/2024 6:30:15 PM", "12:00:00 AM",
     [](auto& l) { return Shown(l.RecordDate); }},
    {"PL_Direction", "1", "1", "0", [](auto& l) { return Shown(l.Direction); }},
};

/// Tests around one telephone call.
class PhoneLogTest : public RecordTest {
 protected:
  /// A new log under the next identifier, of which the log of statements tells nothing.
  Ref<CPhoneLog> NewLog() {
    Ref<CPhoneLog> log = session->CreatePhoneLog();
    Forget();
    return log;
  }
  /// A new log with all properties set.
  Ref<CPhoneLog> FullLog() {
    Ref<CPhoneLog> log = NewLog();
    log->ContactID = 62;
    log->Direction = DIR_OUTGOING;
    log->RecordDate = On("2/29/2024 6:30:15 PM");
    log->Subject = "O'Brien's order";
    log->PhoneNumber = "+1 (555) 'home'";
    log->Notes = "Line 1\r\nLine 2";
    log->DateLastUpdate = On("3/1/2024 8:00:00 AM");
    return log;
  }
  /// The log of a row that has each column's own value.
  Ref<CPhoneLog> StoredLog() {
    Run(InsertOfAll("PhoneLogs", kPhoneLogColumns));
    Ref<CPhoneLog> log = session->GetPhoneLog(61);
    Forget();
    return log;
  }
};

}  // namespace zef::test
