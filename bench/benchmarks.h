#pragma once

#include "bench/world.h"

namespace zef::bench {

/// Each makes the rows of one subject known to the benchmark program. The world outlives the run.
void RegisterReading(World& world);
void RegisterSaving(World& world);
void RegisterSequences(World& world);
void RegisterCriteria(World& world);
void RegisterRules(World& world);
void RegisterNotes(World& world);
void RegisterContacts(World& world);
void RegisterGrowth(World& world);
void RegisterMemory(World& world);
void RegisterTrees(World& world);
void RegisterUpgrades(World& world);
void RegisterComponent(World& world);
/// The rows on a server, if there is one and the library was built for it.
void RegisterServer(World& world);

}  // namespace zef::bench
