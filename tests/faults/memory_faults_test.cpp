#include <gtest/gtest.h>

#include <new>

#include "platform/connection.h"
#include "platform/date.h"
#include "platform/recordset.h"
#include "platform/value.h"
#include "tests/faults/faulty_memory.h"

namespace zef::test {
namespace {

class MemoryFaults : public testing::TestWithParam<Operation> {};
INSTANTIATE_TEST_SUITE_P(Operations, MemoryFaults, testing::ValuesIn(Operations()),
                         [](const auto& operation) { return operation.param.name; });

TEST_P(MemoryFaults, EachEndsAsAReportedFailure) {
  const ClockOverride clock(Date(45413.375));
  FaultyMemory memory;
  FailEachCallOf(GetParam(), memory);
}

TEST(MemoryFaultsOfARecordset, RowThatCannotBeKeptIsToldWhenItIsRead) {
  const Database database;
  const Ref<Connection> connection = database.Connect();
  FaultyMemory memory;
  const auto first_name = [&](int fail_at) {
    const Ref<Recordset> rs = connection->Execute("SELECT USR_Name FROM Users");
    memory.Arm(fail_at);
    try {
      connection->Execute("UPDATE Users SET USR_Email='x'");
    } catch (const std::bad_alloc&) {
    }
    memory.Disarm();
    return ToText(rs->ValueAt(0));
  };
  int told = 0;
  for (int fail_at = 1; fail_at < 40; ++fail_at) {
    try {
      EXPECT_EQ(first_name(fail_at), "Admin");
    } catch (const std::bad_alloc&) {
      ++told;
    }
  }
  EXPECT_GT(told, 0);
}

}  // namespace
}  // namespace zef::test
