#pragma once

#include "bench/by_hand.h"
#include "bench/by_hand_contact.h"
#include "bench/world.h"

namespace zef::bench {

/// What the work by hand is made of on a database file, and where its databases are. The same rows run on the server
/// with `ServerSide`.
struct FileSide {
  using Database = HandDatabase;
  using Reader = HandReader;
  using Writer = HandWriter;
  using ContactReader = HandContactReader;
  using ContactWriter = HandContactWriter;

  static const std::string& Reading(World& world) { return world.Reading(); }
  static const std::string& Writing(World& world) { return world.Writing(); }
};

}  // namespace zef::bench
