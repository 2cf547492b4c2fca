#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"
#include "tasks/task.h"
#include "tests/support/dump.h"
#include "tests/support/session_test.h"
#include "users/user.h"

namespace zef::test {
namespace {

constexpr auto kStatementError = static_cast<std::int32_t>(FailureNumber::StatementError);

std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

/// An operation that takes a condition: its name, and a run of it on a collection that holds record 4711.
struct Loading {
  std::string name;
  /// Gives the result and what the collection holds then, as in "False 4711".
  std::string (*load)(CSession&, const std::string&);
};

template <class R, bool (CSession::*load)(const Ref<Collection<R>>&, const std::string&)>
std::string Load(CSession& session, const std::string& criteria) {
  const auto records = MakeRef<Collection<R>>();
  const auto old = MakeRef<R>();
  old->ID = 4711;
  records->Add(old);
  std::string outcome = (session.*load)(records, criteria) ? "True" : "False";
  for (const Ref<R>& record : *records) outcome += " " + std::to_string(record->ID);
  return outcome;
}

const Loading kLoadings[] = {
    {"LoadFoldersWithCriteria", &Load<CFolder, &CSession::LoadFoldersWithCriteria>},
    {"LoadTasksWithCriteria", &Load<CTask, &CSession::LoadTasksWithCriteria>},
    {"LoadEventsWithCriteria", &Load<CEvent, &CSession::LoadEventsWithCriteria>},
    {"LoadUsersWithCriteria", &Load<CUser, &CSession::LoadUsersWithCriteria>},
    {"LoadUserTags", &Load<CTag, &CSession::LoadUserTags>},
};

/// Conditions that are no condition: False, a record, and all as it was.
class BadCriteria : public SessionTest, public testing::WithParamInterface<std::tuple<Loading, std::string>> {
 protected:
  const Loading& loading() const { return std::get<0>(GetParam()); }
  const std::string& criteria() const { return std::get<1>(GetParam()); }
  std::string Load() { return loading().load(*session, criteria()); }
};

TEST_P(BadCriteria, MakesLoadReturnFalseAndLeavesTheCollection) { EXPECT_EQ(Load(), "False 4711"); }

TEST_P(BadCriteria, IsRecordedAsAFailureOfTheStatement) {
  Load();
  EXPECT_EQ(session->GetErrorProcedure(), loading().name);
  EXPECT_EQ(session->GetErrorCode(), kStatementError);
}

TEST_P(BadCriteria, IsExplained) {
  Load();
  EXPECT_FALSE(session->GetErrorDescription().empty());
}

TEST_P(BadCriteria, ChangesNoTable) {
  const std::string before = Dump(connection());
  Load();
  EXPECT_EQ(Dump(connection()), before);
}

TEST_P(BadCriteria, FindsNoFolder) {
  EXPECT_EQ(session->GetFolderIDByCriteria(criteria()), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
}

INSTANTIATE_TEST_SUITE_P(Texts, BadCriteria,
                         testing::Combine(testing::ValuesIn(kLoadings),
                                          testing::Values("1=1; SELECT * FROM Users", "1=1; DROP TABLE Folders", ";",
                                                          "(1=1", "1=1)", "[A=1", "'a'='open", "'a'=\"open",
                                                          "1=", "1=#no date#", "AND", " ", "'a'='\xff'", "'a'='\xc3'",
                                                          Repeated("(", 10000) + "1=1", Repeated("[", 10000),
                                                          Repeated("(", 10000) + "1=1" + Repeated(")", 10000),
                                                          Repeated("NOT ", 10000) + "1=1", std::string("1=1\0", 4))),
                         [](const auto& test) { return std::get<0>(test.param).name + std::to_string(test.index); });

using LongCriteria = SessionTest;

TEST_F(LongCriteria, OfAThousandConditionsIsRun) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(session->LoadFoldersWithCriteria(folders, "FLD_ID=0" + Repeated(" OR FLD_ID=8", 1000)))
      << session->GetEntireErrorDesc();
  EXPECT_EQ(folders->Count(), 1);
}

TEST_F(LongCriteria, WithSomeNestedBracketsIsRun) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(session->LoadFoldersWithCriteria(folders, Repeated("(", 50) + "FLD_ID=8" + Repeated(")", 50)))
      << session->GetEntireErrorDesc();
  EXPECT_EQ(folders->Count(), 1);
}

}  // namespace
}  // namespace zef::test
