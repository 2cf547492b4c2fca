#include <gtest/gtest.h>

#include "tests/schema/lookups.h"
#include "tests/support/server.h"
#include "tests/support/server_planner.h"

namespace zef::test {
namespace {

class LookupPostgreSQL : public testing::Test {
 protected:
  ServerDatabase database_{"9.2.4"};
  ServerPlanner planner_{database_.ConnectionString()};
};

TEST_F(LookupPostgreSQL, ScansNoTable) {
  for (const char* const statement : kLookups) EXPECT_EQ(planner_.Scans(statement), "") << statement;
}

TEST_F(LookupPostgreSQL, OfANumberThatIsWrittenAsATextScansNoTable) {
  for (const char* const condition : {"TSK_ID='7'", "'7'=TSK_ID", "TSK_ID IN ('7','8.5',9)", "TSK_FolderID=7.0"}) {
    EXPECT_EQ(planner_.Scans(std::string("SELECT * FROM Tasks WHERE ") + condition), "") << condition;
  }
}

TEST_F(LookupPostgreSQL, ByAColumnWithoutAnIndexScans) {
  EXPECT_NE(planner_.Scans("SELECT * FROM Tasks WHERE TSK_StatusID=1"), "");
}

}  // namespace
}  // namespace zef::test
