#include <initializer_list>

#include "calendar/alarm.h"
#include "calendar/event.h"
#include "session/operations.h"

namespace zef {
namespace {

/// The table in which occurrences of a kind of item are marked as seen: a row says that a user has seen an item at a
/// date.
struct SeenTable {
  std::string_view name;
  std::string_view item;  ///< column of the item's identifier
  std::string_view user;
  std::string_view date;
};

constexpr SeenTable kSeenEvents{"ViewedEvents", "VE_EventID", "VE_UserID", "VE_Date"};
constexpr SeenTable kSeenAlarms{"ViewedAlarms", "VA_AlarmID", "VA_UserID", "VA_Date"};

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

/// Clears `show` if one of the marks is of exactly this date. All are walked.
void ClearIfMarked(Recordset& marks, std::string_view column, Date date, bool& show) {
  if (marks.EndOfFile()) return;
  const Field field = marks.Fields().Item(column);
  for (; !marks.EndOfFile(); marks.MoveNext()) {
    const Value seen = field.Value();
    if (!IsNull(seen) && ToDate(seen) == date) show = false;
  }
}

/// `show` receives whether the session's user has no mark for the item at exactly this date.
bool LookUp(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item, Date date,
            bool& show) {
  return Trapped(session, procedure, false, [&] {
    const std::string text = Joined({"SELECT * FROM ", table.name, " WHERE ", table.item, "=", SqlNumber(item), " AND ",
                                     table.user, "=", SqlNumber(session.UserID)});
    const Ref<Recordset> marks = Select(session, text);
    show = true;
    ClearIfMarked(*marks, table.date, date, show);
    return true;
  });
}

/// Adds a mark for the session's user.
bool Mark(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item, Date date) {
  return Trapped(session, procedure, false, [&] {
    Execute(session, Joined({"INSERT INTO ", table.name, " (", table.item, ",", table.user, ",", table.date,
                             ") VALUES (", SqlNumber(item), ",", SqlNumber(session.UserID), ",", SqlDate(date), ")"}));
    return true;
  });
}

}  // namespace

bool CEvent::SeenByUser(Date dtmDate, bool& blnShow) {
  return LookUp(Deref(Session()), kSeenEvents, "CEvent.SeenByUser", ID, dtmDate, blnShow);
}

bool CEvent::MarkSeenByUser(Date dtmDate) {
  return Mark(Deref(Session()), kSeenEvents, "CEvent.MarkSeenByUser", ID, dtmDate);
}

bool CAlarm::SeenByUser(Date dtmDate, bool& blnShow) {
  return LookUp(Deref(Session()), kSeenAlarms, "CAlarm.SeenByUser", ID, dtmDate, blnShow);
}

bool CAlarm::MarkSeenByUser(Date dtmDate) {
  return Mark(Deref(Session()), kSeenAlarms, "CAlarm.MarkSeenByUser", ID, dtmDate);
}

}  // namespace zef
