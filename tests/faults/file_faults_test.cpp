#include <gtest/gtest.h>

#include "platform/date.h"
#include "tests/faults/faulty_files.h"

namespace zef::test {
namespace {

using Kind = FaultyFiles::Kind;

struct NamedKind {
  const char* name;
  Kind kind;
};

constexpr NamedKind kKinds[] = {{"reads fail", Kind::Read},       {"reads are cut short", Kind::ShortRead},
                                {"writes fail", Kind::Write},     {"writes fail half-way", Kind::ShortWrite},
                                {"the disk is full", Kind::Full}, {"syncs fail", Kind::Sync}};

class FileFaults : public testing::TestWithParam<Operation> {};
INSTANTIATE_TEST_SUITE_P(Operations, FileFaults, testing::ValuesIn(Operations()),
                         [](const auto& operation) { return operation.param.name; });

TEST_P(FileFaults, EachEndsAsAReportedFailure) {
  FaultyFiles::Install();
  const ClockOverride clock(Date(45413.375));
  for (const NamedKind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    FaultyFiles files(kind.kind);
    FailEachCallOf(GetParam(), files);
  }
}

}  // namespace
}  // namespace zef::test
