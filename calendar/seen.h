#pragma once

#include <cstdint>
#include <string_view>

#include "platform/date.h"
#include "session/session.h"

namespace zef {

/// The table in which occurrences of a kind of item are marked as seen: a row says that a user has seen an item at a
/// date.
struct SeenTable {
  std::string_view name;
  std::string_view item;  ///< column of the item's identifier
  std::string_view user;
  std::string_view date;
};

/// `show` receives whether the session's user has no mark for the item at exactly this date. False if the look-up
/// failed, recorded under `procedure`.
bool SeenByUser(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item, Date date,
                bool& show);

/// Adds a mark for the session's user.
bool MarkSeenByUser(CSession& session, const SeenTable& table, std::string_view procedure, std::int32_t item,
                    Date date);

}  // namespace zef
