#include <libical/ical.h>

#include <stdexcept>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/contest.h"
#include "calendar/recurrence.h"

namespace zef::bench {
namespace {

using std::chrono::year_month_day;
using namespace std::chrono_literals;

/// A rule of the library, the same rule of the other one, and a day on which it falls.
struct RulePair {
  const char* name;
  void (*set)(CRecurrence&);
  const char* other;
  year_month_day start;
};

constexpr RulePair kRules[] = {
    {"daily",
     [](CRecurrence& rule) {
       rule.RType = REC_DAILY;
       rule.Options1 = 3;
     },
     "FREQ=DAILY;INTERVAL=3", 2024y / 1 / 1},
    {"weekly",
     [](CRecurrence& rule) {
       rule.RType = REC_WEEKLY;
       rule.Options1 = 2;
       rule.Monday = rule.Wendsday = rule.Friday = true;
     },
     "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE,FR", 2024y / 1 / 1},
    {"monthly by day",
     [](CRecurrence& rule) {
       rule.RType = REC_MONTHLY;
       rule.Options1 = 15;
       rule.Options2 = 1;
     },
     "FREQ=MONTHLY;BYMONTHDAY=15", 2024y / 1 / 15},
    {"monthly by week",
     [](CRecurrence& rule) {
       rule.RType = REC_MONTHLY;
       rule.SubType = 1;
       rule.Options1 = 1;
       rule.Options2 = 1;
       rule.WeekNumber = 1;
     },
     "FREQ=MONTHLY;BYDAY=2TU", 2024y / 1 / 9},
    {"yearly",
     [](CRecurrence& rule) {
       rule.RType = REC_YEARLY;
       rule.Options1 = 5;
       rule.Options2 = 17;
     },
     "FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=17", 2024y / 6 / 17},
};

std::uint64_t DigestOf(year_month_day day) {
  return static_cast<std::uint64_t>(std::chrono::sys_days(day).time_since_epoch().count());
}

icaltimetype ToOther(year_month_day day) {
  icaltimetype time = icaltime_null_time();
  time.year = static_cast<int>(day.year());
  time.month = static_cast<int>(static_cast<unsigned>(day.month()));
  time.day = static_cast<int>(static_cast<unsigned>(day.day()));
  return time;
}

year_month_day FromOther(const icaltimetype& time) {
  return std::chrono::year(time.year) / std::chrono::month(static_cast<unsigned>(time.month)) /
         std::chrono::day(static_cast<unsigned>(time.day));
}

/// Walks over the occurrences behind the start. All of them are compared before, the last one in each round.
class RuleContest final : public Contest {
 public:
  RuleContest(const RulePair& pair, int occurrences) : pair_(pair), occurrences_(occurrences) {
    pair.set(*rule_);
    rule_->EndDate = Date();
    std::vector<year_month_day> ours;
    Walk([&](Date date) { ours.push_back(date.YearMonthDay()); });
    std::vector<year_month_day> others;
    WalkOther([&](const icaltimetype& time) { others.push_back(FromOther(time)); });
    if (ours != others) throw std::runtime_error("the occurrences of the two libraries differ");
  }

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    Date last;
    watch.Start();
    Walk([&](Date date) { last = date; });
    watch.Stop();
    return DigestOf(last.YearMonthDay());
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    icaltimetype last = icaltime_null_time();
    watch.Start();
    WalkOther([&](const icaltimetype& time) { last = time; });
    watch.Stop();
    return DigestOf(FromOther(last));
  }

 private:
  template <class Visit>
  void Walk(Visit visit) const {
    Date date(pair_.start);
    for (int i = 0; i < occurrences_; ++i) visit(date = rule_->NextOccuranceDate(date));
  }

  template <class Visit>
  void WalkOther(Visit visit) const {
    icalrecur_iterator* const iterator = icalrecur_iterator_new(other_, ToOther(pair_.start));
    if (iterator == nullptr) throw std::runtime_error("the other library refuses the rule");
    icalrecur_iterator_next(iterator);  // the start
    for (int i = 0; i < occurrences_; ++i) visit(icalrecur_iterator_next(iterator));
    icalrecur_iterator_free(iterator);
  }

  const RulePair& pair_;
  int occurrences_;
  Ref<CRecurrence> rule_ = MakeRef<CRecurrence>();
  icalrecurrencetype other_ = icalrecurrencetype_from_string(pair_.other);
};

}  // namespace

void RegisterRules(World& world) {
  for (const RulePair& pair : kRules) {
    Register({.name = std::string("NextOccuranceDate, ") + pair.name,
              .target = 0.2,
              .operations = 500,
              .rounds = world.Rounds(100),
              .make = [&pair](int operations) { return std::make_unique<RuleContest>(pair, operations); }});
  }
}

}  // namespace zef::bench
