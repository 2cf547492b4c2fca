#include <gmock/gmock.h>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(ZefTest, ListsAreShownOneBehindTheOther) {
  EXPECT_THAT(Printed({"lists", "people.db"}),
              AllOf(StartsWith("LIST         ID  NAME\nstatuses      1  Not Started\n"),
                    HasSubstr("priorities    3  High\nstates        1  Alabama\n"),
                    HasSubstr("countries    41  Côte d'Ivoire\n")));
}

TEST_F(ZefTest, ListIsShownAlone) {
  EXPECT_EQ(Printed({"lists", "people.db", "priorities"}),
            "LIST        ID  NAME\n"
            "priorities   1  Low\n"
            "priorities   2  Normal\n"
            "priorities   3  High\n");
}

TEST_F(ZefTest, ListsAreToldAsJson) {
  EXPECT_EQ(
      Printed({"lists", "people.db", "priorities", "--json"}),
      "{\"priorities\": [{\"id\": 1, \"name\": \"Low\"}, {\"id\": 2, \"name\": \"Normal\"}, {\"id\": 3, \"name\": "
      "\"High\"}]}\n");
}

TEST_F(ZefTest, AllListsAreToldAsJsonByTheirNames) {
  EXPECT_THAT(Printed({"lists", "people.db", "--json"}),
              AllOf(StartsWith("{\"statuses\": [{"), HasSubstr("], \"priorities\": [{"), HasSubstr("], \"states\": [{"),
                    HasSubstr("], \"countries\": [{")));
}

TEST_F(ZefTest, UnknownListIsWrongUseThatTellsThem) {
  EXPECT_THAT(Complaint(2, {"lists", "people.db", "cats"}),
              StartsWith("zef: LIST: 'cats' is none of statuses, priorities, states, countries."));
}

TEST_F(ZefTest, ListsOfAnOlderDatabaseAreRefused) {
  Zef({"create", "old.db", "--schema", "9.1"});
  EXPECT_THAT(Complaint(1, {"lists", "old.db"}), HasSubstr("it must be upgraded"));
}

}  // namespace
}  // namespace zef::test
