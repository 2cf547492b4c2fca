#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/date.h"
#include "session/session.h"
#include "session/trap.h"

namespace zef {

/// A kind of event that the library writes for another record: its type and the condition that finds its folder. Such
/// an event is found again by type, link and folder, never by an identifier stored at its owner.
struct GeneratedKind {
  std::string_view type;
  std::string_view folder_criteria;
};

/// A date of a record, and what its event is made of.
struct DateOfOwner {
  std::int32_t owner;  ///< the record's identifier
  bool owner_is_new;   ///< it can have no event yet, so none is looked for
  Date date;
  std::function<std::string()> text;  ///< of a new event; a found one keeps its own
  std::function<void(CRecurrence&)> write_rule;
};

/// Brings the event of one date of a record in step with that date, inside the running transaction: none for a zero
/// date, else one on the day of the date, with its rule. Quiet if the folder of a new event is missing or the event
/// could not be saved.
Outcome KeepGeneratedEvent(CSession& session, const GeneratedKind& kind, const DateOfOwner& of);

/// Deletes the events of a kind and record by one plain statement: their rules, notifications and marks of the seen
/// stay. Without the kind's folder nothing is deleted, which is no failure, nor is a look-up of the folder that fails:
/// only the error record tells, until the next look-up clears it. Raises if the statement fails.
void DeleteGeneratedEvents(CSession& session, const GeneratedKind& kind, std::int32_t owner);

}  // namespace zef
