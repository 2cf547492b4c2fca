#include <ostream>

#include "session/collections.h"
#include "tests/calendar/record_fixture.h"

namespace zef::test {
namespace {

/// One of the four lists: its table with the two columns, and its operations with their names.
struct List {
  const char* table;
  const char* id;
  const char* name;
  bool (CSession::*load)(const Ref<CTags>&);
  const char* load_name;
  Ref<CTag> (CSession::*get)(std::int32_t);
  const char* get_name;

  friend void PrintTo(const List& list, std::ostream* out) { *out << list.table; }
};

class LookupList : public RecordTest, public testing::WithParamInterface<List> {
 protected:
  LookupList() {
    Run("DROP TABLE " + Table());
    Run("CREATE TABLE " + Table() + " (" + list_.id + " Long, " + list_.name + " Text(128))");
    tags_->Add(MakeRef<CTag>());
  }
  std::string Table() const { return list_.table; }
  std::string Select() const { return "SELECT * FROM " + Table(); }
  void Insert(const std::string& id, const std::string& name) {
    Run("INSERT INTO " + Table() + " (" + list_.id + "," + list_.name + ") VALUES (" + id + "," + name + ")");
  }
  bool Load() { return ((*session).*list_.load)(tags_); }
  Ref<CTag> Get(std::int32_t id) { return ((*session).*list_.get)(id); }
  /// What the collection holds, as in "1 Low"; from the beginning that is one empty tag.
  Texts Held() const {
    Texts texts;
    for (const Ref<CTag>& tag : *tags_) texts.push_back(std::to_string(tag->ID) + " " + tag->Text);
    return texts;
  }

  const List& list_ = GetParam();
  Ref<CTags> tags_ = MakeRef<CTags>();
};

TEST_P(LookupList, LoadsIdentifiersAndNamesInTheOrderOfTheDatabase) {
  Insert("30", "'c'");
  Insert("-1", "'O''Brien'");
  Insert("20", "''");
  Forget();
  EXPECT_TRUE(Load());
  EXPECT_EQ(SentInAll(), Texts{Select()});
  EXPECT_EQ(Held(), (Texts{"30 c", "-1 O'Brien", "20 "}));
}

TEST_P(LookupList, LoadedAgainReplacesTheTags) {
  Insert("1", "'a'");
  EXPECT_TRUE(Load());
  EXPECT_TRUE(Load());
  EXPECT_EQ(Held(), Texts{"1 a"});
}

TEST_P(LookupList, EmptyOneEmptiesTheCollectionAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(Load());
  EXPECT_EQ(tags_->Count(), 0);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_P(LookupList, NullNameInTheThirdRowStopsTheWalkThere) {
  Insert("1", "'a'");
  Insert("2", "'b'");
  Insert("3", "Null");
  Insert("4", "'d'");
  EXPECT_FALSE(Load());
  EXPECT_EQ(Held(), (Texts{"1 a", "2 b"}));
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[") + list_.load_name +
                                               "] Error: 94 - Invalid use of Null in the column '" + list_.name + "'");
}

TEST_P(LookupList, NullIdentifierStopsTheWalkThere) {
  Insert("1", "'a'");
  Insert("Null", "'b'");
  EXPECT_FALSE(Load());
  EXPECT_EQ(Held(), Texts{"1 a"});
  EXPECT_EQ(session->GetEntireErrorDesc(),
            std::string("[") + list_.load_name + "] Error: 94 - Invalid use of Null in the column '" + list_.id + "'");
}

TEST_P(LookupList, IdentifierTwiceIsLoadedOnce) {
  Insert("1", "'a'");
  Insert("1", "'b'");
  EXPECT_TRUE(Load());
  EXPECT_EQ(Held(), Texts{"1 a"});
}

TEST_P(LookupList, MissingTableLeavesTheCollectionAndIsRecorded) {
  Run("DROP TABLE " + Table());
  EXPECT_FALSE(Load());
  EXPECT_EQ(Held(), Texts{"0 "});
  EXPECT_EQ(session->GetErrorProcedure(), list_.load_name);
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchTable));
  EXPECT_EQ(session->GetErrorDescription(), connection().Errors().Item(0).Description);
}

TEST_P(LookupList, MissingColumnIsRecordedWithItsName) {
  Insert("1", "'a'");
  Run("ALTER TABLE " + Table() + " DROP COLUMN " + list_.name);
  EXPECT_FALSE(Load());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            std::string("[") + list_.load_name + "] Error: 3265 - The column '" + list_.name + "' is missing.");
}

TEST_P(LookupList, IdentifierThatIsTooLargeIsRecordedWithItsColumn) {
  Run("ALTER TABLE " + Table() + " ALTER COLUMN " + list_.id + " Double");
  Insert("3000000000", "'a'");
  EXPECT_FALSE(Load());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            std::string("[") + list_.load_name + "] Error: 6 - Overflow in the column '" + list_.id + "'");
}

TEST_P(LookupList, LoadedIntoNothingIsRecorded) {
  EXPECT_FALSE(((*session).*list_.load)(nullptr));
  EXPECT_EQ(session->GetErrorProcedure(), list_.load_name);
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_P(LookupList, IsLoadedForASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(Load());
}

// ---- one entry

TEST_P(LookupList, EntryHasIdentifierAndName) {
  Insert("1", "'a'");
  Insert("2", "'O''Brien'");
  Forget();
  const Ref<CTag> tag = Get(2);
  ASSERT_TRUE(tag);
  EXPECT_EQ(tag->ID, 2);
  EXPECT_EQ(tag->Text, "O'Brien");
  EXPECT_EQ(SentInAll(), Texts{Select() + " WHERE " + list_.id + "=2"});
}

TEST_P(LookupList, UnknownEntryIsNothingAndNoError) {
  Insert("1", "'a'");
  LeaveAnOldError();
  EXPECT_FALSE(Get(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_P(LookupList, EntryOfAMissingReferenceIsNothing) {
  Insert("1", "'a'");
  Forget();
  EXPECT_FALSE(Get(-1));
  EXPECT_EQ(SentInAll(), Texts{Select() + " WHERE " + list_.id + "=-1"});
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_P(LookupList, EntryWithoutANameIsNothingAndRecorded) {
  Insert("1", "Null");
  EXPECT_FALSE(Get(1));
  EXPECT_EQ(session->GetEntireErrorDesc(),
            std::string("[") + list_.get_name + "] Error: 94 - Invalid use of Null in the column '" + list_.name + "'");
}

TEST_P(LookupList, EntryOfAMissingTableIsNothingAndRecorded) {
  Run("DROP TABLE " + Table());
  EXPECT_FALSE(Get(1));
  EXPECT_EQ(session->GetErrorProcedure(), list_.get_name);
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::NoSuchTable));
}

constexpr List kLists[] = {
    {"lstTaskStatus", "TS_ID", "TS_Name", &CSession::LoadTaskStatusList, "LoadTaskStatusList", &CSession::GetTaskStatus,
     "GetTaskStatus"},
    {"lstTaskPriority", "TP_ID", "TP_Name", &CSession::LoadTaskPriorityList, "LoadTaskPriorityList",
     &CSession::GetTaskPriority, "GetTaskPriority"},
    {"lstStates", "ST_ID", "ST_Name", &CSession::LoadStateTags, "LoadStateTags", &CSession::GetStateTag, "GetStateTag"},
    {"lstCountries", "COU_ID", "COU_Name", &CSession::LoadCountryTags, "LoadCountryTags", &CSession::GetCountryTag,
     "GetCountryTag"},
};
INSTANTIATE_TEST_SUITE_P(Lists, LookupList, testing::ValuesIn(kLists),
                         [](const auto& list) { return std::string(list.param.table); });

// ---- a new database

using FirstLookupRows = RecordTest;

TEST_F(FirstLookupRows, HoldTheStatuses) { EXPECT_EQ(session->GetTaskStatus(3)->Text, "Completed"); }

TEST_F(FirstLookupRows, HoldThePriorities) { EXPECT_EQ(session->GetTaskPriority(2)->Text, "Normal"); }

TEST_F(FirstLookupRows, HoldAllStatesAndCountries) {
  const auto states = MakeRef<CTags>();
  const auto countries = MakeRef<CTags>();
  EXPECT_TRUE(session->LoadStateTags(states) && session->LoadCountryTags(countries));
  EXPECT_EQ(states->Count(), Rows("lstStates"));
  EXPECT_EQ(countries->Count(), Rows("lstCountries"));
  EXPECT_EQ(session->GetStateTag(1)->Text, "Alabama");
}

}  // namespace
}  // namespace zef::test
