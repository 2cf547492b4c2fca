#pragma once

#include <string>

#include "bench/postgresql/server_records.h"
#include "bench/test_data.h"
#include "bench/world.h"

namespace zef::bench {

/// The folder of the benchmarks' server, from ZEF_BENCH_SERVER; empty without one.
std::string ServerFolder();

/// The connection string of a database on that server, made and filled as `MakeDatabase` fills a file when it is first
/// asked for. It goes away with the server.
const std::string& ServerDatabase(const std::string& name, const Sizes& sizes);

/// What the work by hand is made of on the server, and where its databases are.
struct ServerSide {
  using Database = HandServer;
  using Reader = ServerReader;
  using Writer = ServerWriter;
  using ContactReader = ServerContactReader;
  using ContactWriter = ServerContactWriter;

  static const std::string& Reading(World& world) {
    const std::int32_t rows = world.LoadedRows();
    return ServerDatabase("reading", {.folders = rows, .events = rows, .contacts = rows});
  }
  static const std::string& Writing(World& /*world*/) {
    return ServerDatabase("writing", {.folders = 100, .events = World::kFewEvents, .contacts = World::kFewContacts});
  }
};

}  // namespace zef::bench
