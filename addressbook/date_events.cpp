#include "addressbook/date_events.h"

#include "calendar/generated_event.h"
#include "calendar/recurrence.h"

namespace zef {
namespace {

/// One of a contact's two yearly dates.
struct YearlyDate {
  GeneratedKind kind;
  Property<Date> CContact::*date;
  std::string_view ending;  ///< of the event's text, behind the name
};

constexpr YearlyDate kAnniversary{
    .kind = {.type = "A", .folder_criteria = "FLD_Protected=1 and FLD_Name='Anniversaries'"},
    .date = &CContact::Anniversary,
    .ending = "'s Anniversary"};
constexpr YearlyDate kBirthday{.kind = {.type = "B", .folder_criteria = "FLD_Protected=1 and FLD_Name='Birthdays'"},
                               .date = &CContact::BirthDate,
                               .ending = "'s Birthday"};

/// First name first, and the company only of a contact without a name.
std::string NameInEvents(const CContact& contact) {
  if (contact.FirstName->empty() && contact.LastName->empty()) return contact.Company;
  const char* before_initial = contact.MI->empty() ? "" : " ";
  return contact.FirstName.get() + before_initial + contact.MI.get() + " " + contact.LastName.get();
}

/// Every year on the day that the event itself starts on, without an end.
void WriteYearlyRule(Date date, CRecurrence& rule) {
  const Date day = date.RoundedToSeconds();
  rule.RType = REC_YEARLY;
  rule.SubType = 0;
  rule.Options1 = day.Month() - 1;
  rule.Options2 = day.Day();
  rule.OccurencesNo = 0;
  rule.EndDate = Date();
}

Outcome KeepEvent(CSession& session, const CContact& contact, const YearlyDate& yearly) {
  const Date date = contact.*yearly.date;
  return KeepGeneratedEvent(session, yearly.kind,
                            {.owner = contact.ID,
                             .owner_is_new = contact.IsNew(),
                             .date = date,
                             .text = [&] { return NameInEvents(contact).append(yearly.ending); },
                             .write_rule = [&](CRecurrence& rule) { WriteYearlyRule(date, rule); }});
}

}  // namespace

Outcome KeepDateEvents(CSession& session, const CContact& contact) {
  const Outcome kept = KeepEvent(session, contact, kAnniversary);
  return kept == Outcome::Done ? KeepEvent(session, contact, kBirthday) : kept;
}

void DeleteDateEvents(CSession& session, std::int32_t contact) {
  DeleteGeneratedEvents(session, kBirthday.kind, contact);
  DeleteGeneratedEvents(session, kAnniversary.kind, contact);
}

}  // namespace zef
