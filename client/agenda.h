#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "client/occurrences.h"
#include "client/style.h"

namespace zef::client {

/// What an agenda shows. Days are whole automation dates.
struct AgendaSpan {
  std::chrono::year_month month;
  std::int64_t today = 0;
  std::int64_t first_day = 0;  ///< of the list
  std::int64_t last_day = 0;   ///< included
};

/// The month of the picture is the wanted one, or that of today. The list covers `days` days from today on; or else the
/// wanted month, from today on if today lies in it; or else 31 days from today on.
AgendaSpan SpanOf(Date today, std::optional<std::chrono::year_month> month, std::optional<std::int32_t> days);

struct AgendaEntry {
  Occurrence occurrence;
  EventInfo event;
};

/// The entries of a list in the order of time, and the days of the picture on which something takes place.
struct Agenda {
  AgendaSpan span;
  std::vector<AgendaEntry> entries;
  std::set<unsigned> marked;
};

Agenda MakeAgenda(const AgendaSpan& span, const std::vector<EventInfo>& events);

std::string AgendaText(const Agenda& agenda, const Screen& screen);
/// One object on a line.
std::string AgendaJson(const Agenda& agenda);

}  // namespace zef::client
