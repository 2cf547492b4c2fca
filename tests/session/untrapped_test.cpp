#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

/// An operation that traps nothing of its own.
struct Operation {
  const char* name;
  void (*run)(CSession&);

  friend void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }
};

template <auto Create>
void Creates(CSession& session) {
  (session.*Create)();
}
template <auto Duplicate>
void Duplicates(CSession& session) {
  (session.*Duplicate)(1);
}
template <class Records, bool (CSession::*Load)(const Ref<Records>&, std::int32_t)>
void Loads(CSession& session) {
  (session.*Load)(MakeRef<Records>(), 1);
}

constexpr Operation kUntrapped[] = {
    {"CreateFolder", &Creates<&CSession::CreateFolder>},
    {"CreateEvent", &Creates<&CSession::CreateEvent>},
    {"CreateAlarm", &Creates<&CSession::CreateAlarm>},
    {"CreateTask", &Creates<&CSession::CreateTask>},
    {"CreateContact", &Creates<&CSession::CreateContact>},
    {"CreatePhoneLog", &Creates<&CSession::CreatePhoneLog>},
    {"CreateNote", &Creates<&CSession::CreateNote>},
    {"DuplicateEvent", &Duplicates<&CSession::DuplicateEvent>},
    {"DuplicateAlarm", &Duplicates<&CSession::DuplicateAlarm>},
    {"DuplicateTask", &Duplicates<&CSession::DuplicateTask>},
    {"DuplicateContact", &Duplicates<&CSession::DuplicateContact>},
    {"DuplicateNote", &Duplicates<&CSession::DuplicateNote>},
    {"LoadEvents4Folder", &Loads<CEvents, &CSession::LoadEvents4Folder>},
    {"LoadAlarms4Folder", &Loads<CAlarms, &CSession::LoadAlarms4Folder>},
    {"LoadTasks4Folder", &Loads<CTasks, &CSession::LoadTasks4Folder>},
    {"LoadContacts4Folder", &Loads<CContacts, &CSession::LoadContacts4Folder>},
    {"LoadNotes4Folder", &Loads<CNotes, &CSession::LoadNotes4Folder>},
};

class Untrapped : public testing::TestWithParam<Operation> {};

TEST_P(Untrapped, RaisesWithoutAConnection) {
  EXPECT_EQ(NumberRaised([&] { GetParam().run(*MakeRef<CSession>()); }), 91);
}

INSTANTIATE_TEST_SUITE_P(Operations, Untrapped, testing::ValuesIn(kUntrapped),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace zef::test
