#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/date.h"
#include "platform/value.h"
#include "session/fields_array.h"
#include "session/property.h"
#include "textviews/names.h"

namespace zef {

/// A label or a column name, and what a record shows under it.
template <class R>
struct NamedValue {
  std::string_view name;
  std::string (*value)(const R&);
};

/// Fills a row for each entry, from row 0 on.
template <class R, std::size_t N>
void FillRows(FieldsArray& rows, const NamedValue<R> (&labels)[N], const R& record) {
  std::int32_t row = 0;
  for (const NamedValue<R>& label : labels) {
    rows(row, 0) = label.name;
    rows(row++, 1) = label.value(record);
  }
}

/// What the record shows under exactly this name; empty if no entry has it.
template <class R, std::size_t N>
std::string ValueOf(const NamedValue<R> (&values)[N], std::string_view name, const R& record) {
  for (const NamedValue<R>& entry : values) {
    if (entry.name == name) return entry.value(record);
  }
  return {};
}

// The ways in which a property is shown.

/// A text, a number in decimal, a date in the default text form.
template <auto Member, class R>
std::string Plain(const R& record) {
  return ToText(record.*Member);
}

/// A date in the default text form; empty for date value 0.
template <auto Member, class R>
std::string DateOrNothing(const R& record) {
  const Date date = record.*Member;
  return date.IsZero() ? std::string() : ToText(date);
}

/// A date in the format "Short Date", date value 0 too.
template <auto Member, class R>
std::string ShortDate(const R& record) {
  return ShortDateText(record.*Member);
}

/// The same, but empty for date value 0.
template <auto Member, class R>
std::string ShortDateOrNothing(const R& record) {
  const Date date = record.*Member;
  return date.IsZero() ? std::string() : ShortDateText(date);
}

/// A number in decimal; empty if it is negative.
template <auto Member, class R>
std::string NumberFromZero(const R& record) {
  return record.*Member < 0 ? std::string() : ToText(record.*Member);
}

template <class R>
std::string FolderOf(const R& record) {
  return FolderName(record.Session(), record.FolderID);
}

/// A reference below 1 is none, and nothing is looked up for it.
template <class R>
std::string CategoryOf(const R& record) {
  return record.CategoryID < 1 ? std::string() : CategoryName(record.Session(), record.CategoryID);
}

/// The same, looked up whatever the reference is.
template <class R>
std::string CategoryLookedUp(const R& record) {
  return CategoryName(record.Session(), record.CategoryID);
}

/// The moment of the reminder: as many months before the start as `Reminder` says. Clients know it in months, whatever
/// unit they count the reminder in elsewhere. Empty without a start or a reminder.
template <class R>
std::string RemindedOn(const R& record) {
  if (record.StartDate->IsZero() || record.Reminder < 0) return {};
  return ToText(DateAdd("m", -static_cast<double>(record.Reminder), record.StartDate));
}

}  // namespace zef
