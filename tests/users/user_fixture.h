#pragma once

#include <string>

#include "session/collections.h"
#include "tests/calendar/column_cases.h"
#include "tests/calendar/record_fixture.h"
#include "users/user.h"

namespace zef::test {

inline const ColumnCases<CUser> kUserColumns = {
    {"USR_ID", "61", "61", "", [](auto& u) { return Shown(u.ID); }},
    {"USR_Rights", "62", "62", "0", [](auto& u) { return Shown(u.Rights); }},
    {"USR_Name", "'a name'", "a name", "", [](auto& u) { return Shown(u.Name); }},
    {"USR_FullName", "'a full name'", "a full name", "", [](auto& u) { return Shown(u.FullName); }},
    {"USR_Password", "'a password'", "a password", "", [](auto& u) { return Shown(u.Password); }},
    {"USR_Email", "'a@b.example'", "a@b.example", "", [](auto& u) { return Shown(u.Email); }},
    {"USR_DateLastUpdated", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& u) { return Shown(u.DateLastUpdate); }},
    {"USR_CreationDate", "'2/29/2020 6:30:15 PM'", "2/29/2020 6:30:15 PM", "12:00:00 AM",
     [](auto& u) { return Shown(u.CreationDate); }},
};

/// Tests around users, in a database that has none.
class UserTest : public RecordTest {
 protected:
  UserTest() { Run("DELETE * FROM Users"); }

  /// A user as clients make it.
  Ref<CUser> NewUser(const std::string& name = {}) {
    auto user = MakeRef<CUser>();
    user->SetSession(session);
    user->Name = name;
    return user;
  }
  /// One with all its properties set.
  Ref<CUser> FullUser() {
    Ref<CUser> user = NewUser("o'brien");
    user->Rights = DataEditor;
    user->FullName = "Pat O'Brien";
    user->Password = "it's 'me'";
    user->Email = "o'b@example.org";
    user->DateLastUpdate = On("1/1/1999");
    user->CreationDate = On("2/29/2020 6:30:15 PM");
    return user;
  }
  /// The user of a row that has each column's own value.
  Ref<CUser> StoredUser() {
    Run(InsertOfAll("Users", kUserColumns));
    Ref<CUser> user = session->GetUser(61);
    Forget();
    return user;
  }
  /// A row with a name and a password, given as a statement writes them.
  void InsertUser(const std::string& id, const std::string& name, const std::string& password) {
    Run("INSERT INTO Users (USR_ID,USR_Name,USR_Password) VALUES (" + id + "," + name + "," + password + ")");
  }
  /// Replaces the table by one whose key can be Null.
  void AllowNullInTheKey() {
    Run("DROP TABLE Users");
    Run("CREATE TABLE Users (USR_ID Long, USR_Rights Long, USR_Name Text(255), USR_FullName Text(255), "
        "USR_Password Text(255), USR_Email Text(255), USR_DateLastUpdated DateTime, USR_CreationDate DateTime)");
  }
};

}  // namespace zef::test
