#include "platform/date_parts.h"
#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

class DatesPostgreSQL : public ServerTest {
 protected:
  DatesPostgreSQL() { Execute("CREATE TABLE Dates (D_ID Long NOT NULL PRIMARY KEY, D DateTime)"); }
  Value RoundTrip(Date date) {
    auto rs = MakeRef<Recordset>();
    rs->Open("Dates", connection_, adOpenStatic, adLockOptimistic, adCmdTable);
    rs->AddNew();
    rs->Fields().Item("D_ID").SetValue(++id_);
    rs->Fields().Item("D").SetValue(date);
    rs->Update();
    return Execute("SELECT D FROM Dates WHERE D_ID=" + std::to_string(id_))->ValueAt(0);
  }

  std::int32_t id_ = 0;
};

TEST_F(DatesPostgreSQL, InWholeSecondsComeBackBitForBit) {
  using namespace date_parts;
  for (std::int64_t day = kFirstDay; day <= kLastDay; day += 98765) {
    for (const int seconds : {0, 1, 32400, 43201, 86399}) {
      const Date date = Join({day, seconds});
      EXPECT_EQ(RoundTrip(date), Value(date)) << ToText(date);
    }
  }
}

TEST_F(DatesPostgreSQL, AroundDayZeroComeBackBitForBit) {
  for (const double number : {-1.75, -1.25, -1.0, 0.0, 0.25, 1.5, 2958465.0, -657434.0}) {
    EXPECT_EQ(RoundTrip(Date(number)), Value(Date(number))) << number;
  }
}

TEST_F(DatesPostgreSQL, AreTimestampsToOtherPrograms) {
  RoundTrip(Date(-1.25));
  EXPECT_EQ(database_.Ask("SELECT \"D\"::text FROM \"Dates\""), "1899-12-29 06:00:00");
}

}  // namespace
}  // namespace zef::test
