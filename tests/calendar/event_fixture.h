#pragma once

#include <string>

#include "calendar/event.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Tests around one event.
class EventTest : public RecordTest {
 protected:
  /// A new event under the next identifier, of which the log tells nothing.
  Ref<CEvent> NewEvent() {
    Ref<CEvent> event = session->CreateEvent();
    Forget();
    return event;
  }
  /// A new event with all its own properties set, as the statements of the tests write them.
  Ref<CEvent> FullEvent() {
    Ref<CEvent> event = NewEvent();
    event->FolderID = 21;
    event->CategoryID = 22;
    event->NotificationID = 23;
    event->RecurrenceID = 24;
    event->ContactID = 25;
    event->Text = "Dinner at O'Neill's";
    event->Location = "Room 'A'";
    event->StartDate = On("3/4/2024 5:06:07 PM");
    event->EndDate = On("3/4/2024 8:00:00 PM");
    event->Reminder = 26;
    event->EType = "E";
    event->LinkID = 27;
    return event;
  }
  /// A stored event with a weekly rule and a notification, each under number 1.
  Ref<CEvent> EventWithChildren() {
    Ref<CEvent> event = NewEvent();
    event->Text = "Choir";
    event->Recurrence->RType = REC_WEEKLY;
    event->Notification->Subject = "Sing";
    EXPECT_TRUE(event->Save());
    Forget();
    return event;
  }
};

}  // namespace zef::test
