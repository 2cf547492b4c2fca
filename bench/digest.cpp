#include "bench/digest.h"

#include <bit>
#include <functional>

namespace zef::bench {
namespace {

template <class... Values>
std::uint64_t DigestOfValues(const Values&... values) {
  Digest digest;
  (digest.Add(values), ...);
  return digest.value();
}

std::int32_t DaysOf(const CRecurrence& rule) {
  const bool days[] = {rule.Monday, rule.Tuesday,  rule.Wendsday, rule.Thursday,
                       rule.Friday, rule.Saturday, rule.Sunday};
  std::int32_t bits = 0;
  for (int i = 0; i < 7; ++i) bits |= days[i] ? 1 << i : 0;
  return bits;
}

std::uint64_t DigestOf(const CRecurrence& rule) {
  return DigestOfValues(rule.ID, rule.RType.get(), rule.OccurencesNo.get(), rule.Options1.get(), rule.Options2.get(),
                        rule.SubType.get(), DaysOf(rule), rule.WeekNumber.get(), rule.EndDate->value());
}

std::uint64_t DigestOf(const HandRule& rule) {
  return DigestOfValues(rule.id, rule.type, rule.occurrences, rule.options1, rule.options2, rule.sub_type, rule.days,
                        rule.week_number, rule.end_date);
}

std::uint64_t DigestOf(const CNotification& n) {
  return DigestOfValues(n.ID, n.Subject.get(), n.Message.get(), n.Email.get(), n.CC.get(), n.BCC.get(), n.NType.get(),
                        n.Status.get(), n.SendingDate->value());
}

std::uint64_t DigestOf(const HandNotification& n) {
  return DigestOfValues(n.id, n.subject, n.message, n.email, n.cc, n.bcc, n.type, n.status, n.sending_date);
}

}  // namespace

void Digest::Add(std::uint64_t value) {
  value_ = (value_ ^ value) * 1099511628211U;
  value_ ^= value_ >> 29;
}

void Digest::Add(double value) { Add(std::bit_cast<std::uint64_t>(value)); }

void Digest::Add(std::string_view text) { Add(std::uint64_t{std::hash<std::string_view>()(text)}); }

std::uint64_t DigestOf(const CFolder& f) {
  return DigestOfValues(f.ID, f.ParentID.get(), f.Options.get(), f.Name.get(), f.Description.get(), f.ItemsType.get(),
                        f.DateLastUpdate->value(), std::int32_t{f.Protected});
}

std::uint64_t DigestOf(const HandFolder& f) {
  return DigestOfValues(f.id, f.parent_id, f.options, f.name, f.description, f.items_type, f.date_last_update,
                        std::int32_t{f.is_protected});
}

std::uint64_t DigestOf(const CEvent& e) {
  return DigestOfValues(e.ID, e.FolderID.get(), e.CategoryID.get(), e.NotificationID.get(), e.RecurrenceID.get(),
                        e.ContactID.get(), e.Text.get(), e.Location.get(), e.StartDate->value(), e.EndDate->value(),
                        e.Reminder.get(), e.DateLastUpdate->value(), e.EType.get(), e.LinkID.get(),
                        DigestOf(*e.Recurrence), DigestOf(*e.Notification));
}

std::uint64_t DigestOf(const HandEvent& e) {
  return DigestOfValues(e.id, e.folder_id, e.category_id, e.notification_id, e.recurrence_id, e.contact_id, e.text,
                        e.location, e.start_date, e.end_date, e.reminder, e.date_last_update, e.type, e.link_id,
                        DigestOf(*e.rule), DigestOf(*e.notification));
}

std::uint64_t DigestOfRows(const HandDatabase& db, const std::string& select) {
  const HandStatement rows = db.Prepare(select, false);
  Digest digest;
  while (db.Step(rows)) {
    for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
      digest.Add(std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), column))));
    }
  }
  return digest.value();
}

}  // namespace zef::bench
