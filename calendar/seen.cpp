#include "calendar/seen.h"

#include "calendar/alarm.h"
#include "calendar/event.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr SeenTable kSeenEvents{"ViewedEvents", "VE_EventID", "VE_UserID", "VE_Date"};
constexpr SeenTable kSeenAlarms{"ViewedAlarms", "VA_AlarmID", "VA_UserID", "VA_Date"};

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

}  // namespace

bool SeenByUser(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item, Date date,
                bool& show) {
  return Trapped(session, procedure, false, [&] {
    const std::string text = Joined({"SELECT * FROM ", table.name, " WHERE ", table.item, "=", SqlNumber(item), " AND ",
                                     table.user, "=", SqlNumber(session.UserID)});
    const Ref<Recordset> rs = Select(session, text);
    show = true;
    for (; !rs->EndOfFile(); rs->MoveNext()) {
      const Value seen = rs->Fields().Item(table.date).Value();
      if (!IsNull(seen) && ToDate(seen) == date) show = false;
    }
    return true;
  });
}

bool MarkSeenByUser(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item,
                    Date date) {
  return Trapped(session, procedure, false, [&] {
    Execute(session, Joined({"INSERT INTO ", table.name, " (", table.item, ",", table.user, ",", table.date,
                             ") VALUES (", SqlNumber(item), ",", SqlNumber(session.UserID), ",", SqlDate(date), ")"}));
    return true;
  });
}

bool CEvent::SeenByUser(Date dtmDate, bool& blnShow) {
  return zef::SeenByUser(Deref(Session()), kSeenEvents, "CEvent.SeenByUser", ID, dtmDate, blnShow);
}

bool CEvent::MarkSeenByUser(Date dtmDate) {
  return zef::MarkSeenByUser(Deref(Session()), kSeenEvents, "CEvent.MarkSeenByUser", ID, dtmDate);
}

bool CAlarm::SeenByUser(Date dtmDate, bool& blnShow) {
  return zef::SeenByUser(Deref(Session()), kSeenAlarms, "CAlarm.SeenByUser", ID, dtmDate, blnShow);
}

bool CAlarm::MarkSeenByUser(Date dtmDate) {
  return zef::MarkSeenByUser(Deref(Session()), kSeenAlarms, "CAlarm.MarkSeenByUser", ID, dtmDate);
}

}  // namespace zef
