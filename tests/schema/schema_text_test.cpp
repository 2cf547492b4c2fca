#include "schema/schema_text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "schema/statements.h"

namespace zef::schema {
namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::ptrdiff_t CountOf(std::string_view version, std::string_view beginning) {
  const std::vector<std::string> statements = Statements(Text(version));
  return std::ranges::count_if(statements, [&](const std::string& s) { return s.starts_with(beginning); });
}

/// The statement that makes a table, or an empty text.
std::string TableOf(std::string_view version, std::string_view table) {
  const std::string beginning = "CREATE TABLE " + std::string(table) + " (";
  for (const std::string& statement : Statements(Text(version))) {
    if (statement.starts_with(beginning)) return statement;
  }
  return {};
}

/// True for all versions alike.
class SchemaText : public testing::TestWithParam<std::string_view> {};

INSTANTIATE_TEST_SUITE_P(AllVersions, SchemaText, testing::Values("9.2.4", "9.1"),
                         [](const auto& version) { return version.param == "9.1" ? "Older" : "Current"; });

TEST_P(SchemaText, IsKnown) { EXPECT_THAT(Text(GetParam()), Not(IsEmpty())); }

TEST_P(SchemaText, MakesTwentyTables) { EXPECT_EQ(CountOf(GetParam(), "CREATE TABLE "), 20); }

TEST_P(SchemaText, InsertsEachSequenceOnce) {
  for (int sequence = 1; sequence <= 12; ++sequence) {
    const std::string row = "INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (" + std::to_string(sequence) + ", ";
    EXPECT_EQ(CountOf(GetParam(), row), 1) << "sequence " << sequence;
  }
}

TEST_P(SchemaText, SequenceOfFoldersHoldsTheNumberOfFolders) {
  const std::string folders = std::to_string(CountOf(GetParam(), "INSERT INTO Folders "));
  EXPECT_EQ(CountOf(GetParam(), "INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (12, " + folders + ")"), 1);
}

TEST_P(SchemaText, SequenceOfUsersHoldsTheNumberOfUsers) {
  const std::string users = std::to_string(CountOf(GetParam(), "INSERT INTO Users "));
  EXPECT_EQ(CountOf(GetParam(), "INSERT INTO Sequences (SEQ_ID, SEQ_Value) VALUES (6, " + users + ")"), 1);
}

TEST_P(SchemaText, GivesTheFirstUserNoPassword) {
  EXPECT_THAT(Statements(Text(GetParam())),
              Not(Contains(AllOf(StartsWith("INSERT INTO Users "), HasSubstr("USR_Password")))));
}

TEST_P(SchemaText, ListsFiveStatuses) { EXPECT_EQ(CountOf(GetParam(), "INSERT INTO lstTaskStatus "), 5); }

TEST_P(SchemaText, ListsThreePriorities) { EXPECT_EQ(CountOf(GetParam(), "INSERT INTO lstTaskPriority "), 3); }

TEST_P(SchemaText, ListsFiftyStatesAndTheDistrict) { EXPECT_EQ(CountOf(GetParam(), "INSERT INTO lstStates "), 51); }

TEST_P(SchemaText, ListsAllCountries) { EXPECT_EQ(CountOf(GetParam(), "INSERT INTO lstCountries "), 197); }

TEST_P(SchemaText, HasOneVersionRow) { EXPECT_EQ(CountOf(GetParam(), "INSERT INTO _VersionInfo "), 1); }

TEST_P(SchemaText, HoldsOnlyTablesIndexesAndRows) {
  EXPECT_THAT(Statements(Text(GetParam())),
              Each(AnyOf(StartsWith("CREATE TABLE "), StartsWith("CREATE INDEX "), StartsWith("INSERT INTO "))));
}

TEST_P(SchemaText, KeepsTrackOfSeenEventsWithoutAKey) {
  EXPECT_THAT(TableOf(GetParam(), "ViewedEvents"), Not(HasSubstr("KEY")));
}

TEST_P(SchemaText, KeepsTrackOfSeenAlarmsWithoutAKey) {
  EXPECT_THAT(TableOf(GetParam(), "ViewedAlarms"), Not(HasSubstr("KEY")));
}

TEST(SchemaTextOfUnknownVersion, IsEmpty) { EXPECT_THAT(Text("9.3"), IsEmpty()); }

TEST(CurrentSchemaText, NamesItsVersion) { EXPECT_THAT(Text("9.2.4"), HasSubstr("VALUES ('9.2.4', ")); }

TEST(CurrentSchemaText, HasTwelveFolders) { EXPECT_EQ(CountOf("9.2.4", "INSERT INTO Folders "), 12); }

TEST(CurrentSchemaText, ProtectsEveryFolder) {
  EXPECT_THAT(Statements(Text("9.2.4")),
              Each(AnyOf(Not(StartsWith("INSERT INTO Folders ")),
                         AllOf(HasSubstr(", FLD_Protected)"), testing::EndsWith(", Now(), 1)")))));
}

TEST(CurrentSchemaText, HasNoRelationships) { EXPECT_THAT(Text("9.2.4"), Not(HasSubstr("FOREIGN KEY"))); }

TEST(CurrentSchemaText, TitleOfNotesIsLongText) { EXPECT_THAT(TableOf("9.2.4", "Notes"), HasSubstr("NOT_Title Memo")); }

TEST(CurrentSchemaText, TextOfEventsHolds255Characters) {
  EXPECT_THAT(TableOf("9.2.4", "Events"), HasSubstr("EVE_Text Text(255)"));
}

TEST(OlderSchemaText, NamesItsVersion) { EXPECT_THAT(Text("9.1"), HasSubstr("VALUES ('9.1.0', ")); }

TEST(OlderSchemaText, HasTheFiveRootFoldersOnly) {
  EXPECT_EQ(CountOf("9.1", "INSERT INTO Folders (FLD_ID, FLD_ParentID"), 5);
}

TEST(OlderSchemaText, LacksWhatTheUpgradeAdds) {
  for (const char* column : {"EVE_Type", "EVE_LinkID", "FLD_Protected", "TSK_Priority ", "CNT_State ", "CNT_Country ",
                             "CNT_WorkState ", "CNT_WorkCountry "}) {
    EXPECT_THAT(Text("9.1"), Not(HasSubstr(column))) << column;
  }
}

TEST(OlderSchemaText, HasTheSixNamedRelationships) {
  for (const char* name : {"lstTaskPriorityTasks", "CategoriesNotes", "lstStatesContacts", "lstStatesContacts1",
                           "lstCountriesContacts", "lstCountriesContacts1"}) {
    EXPECT_THAT(Text("9.1"), HasSubstr("CONSTRAINT " + std::string(name) + " FOREIGN KEY")) << name;
  }
}

}  // namespace
}  // namespace zef::schema
