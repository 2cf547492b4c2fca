#pragma once

#include "bench/by_hand.h"

namespace zef::bench {

/// Does to a database of version 9.1 what the upgrade to 9.2.4 does, statement by statement.
void UpgradeByHand(const HandDatabase& db);

}  // namespace zef::bench
