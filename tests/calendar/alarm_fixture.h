#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "calendar/alarm.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Tests around one alarm.
class AlarmTest : public RecordTest {
 protected:
  /// A new alarm under the next identifier, of which the log tells nothing.
  Ref<CAlarm> NewAlarm() {
    Ref<CAlarm> alarm = session->CreateAlarm();
    Forget();
    return alarm;
  }
  /// A stored alarm with a weekly rule, a notification and an attachment, each under number 1.
  Ref<CAlarm> AlarmWithChildren() {
    Ref<CAlarm> alarm = NewAlarm();
    alarm->Text = "Choir";
    alarm->Recurrence->RType = REC_WEEKLY;
    alarm->Notification->Subject = "Sing";
    alarm->Attachement->Name = "score";
    alarm->Attachement->FileName = Source();
    EXPECT_TRUE(alarm->Save()) << session->GetEntireErrorDesc();
    Forget();
    return alarm;
  }
  /// The same, loaded.
  Ref<CAlarm> LoadedAlarm() {
    Ref<CAlarm> alarm = session->GetAlarm(AlarmWithChildren()->ID);
    Forget();
    return alarm;
  }
  /// A file to attach.
  std::string Source() const {
    const std::string path = (folder_.path() / "score.txt").string();
    std::ofstream(path) << "do re mi";
    return path;
  }
  std::int32_t RowsOfChildren() { return Rows("Attachements") + Rows("Notifications") + Rows("Recurrences"); }

 private:
  TemporaryFolder folder_;
};

}  // namespace zef::test
