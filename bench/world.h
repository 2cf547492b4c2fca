#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

#include "bench/test_data.h"
#include "session/session.h"

namespace zef::bench {

/// A folder of its own that goes away with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// How much work is done, and the databases to do it on, each made when it is first asked for.
class World {
 public:
  explicit World(bool quick) : quick_(quick) {}

  /// Rounds for a row that deserves `full` ones.
  int Rounds(int full) const { return quick_ ? full / 4 + 1 : full; }
  /// Rows that a load reads.
  std::int32_t LoadedRows() const { return quick_ ? 10'000 : 100'000; }
  /// Events of the database that is called large.
  std::int32_t ManyEvents() const { return quick_ ? 100'000 : 1'000'000; }
  static constexpr std::int32_t kFewEvents = 10'000;

  static constexpr std::int32_t kFewContacts = 10'000;
  std::int32_t ManyContacts() const { return quick_ ? 100'000 : 1'000'000; }

  /// A database that is only read, with `LoadedRows` folders, events and contacts.
  const std::string& Reading() {
    return Made("reading", {.folders = LoadedRows(), .events = LoadedRows(), .contacts = LoadedRows()});
  }
  /// One that is written to, with few events and contacts.
  const std::string& Writing() {
    return Made("writing", {.folders = 100, .events = kFewEvents, .contacts = kFewContacts});
  }
  /// Contacts of an older database that is upgraded, with as many tasks and twice as many events.
  std::int32_t UpgradedContacts() const { return quick_ ? 5'000 : 50'000; }

  const std::string& Small() { return Made("small", {.events = kFewEvents}); }
  const std::string& Large() { return Made("large", {.events = ManyEvents()}); }
  const std::string& SmallAddressBook() { return Made("small_book", {.contacts = kFewContacts}); }
  const std::string& LargeAddressBook() { return Made("large_book", {.contacts = ManyContacts()}); }

 private:
  const std::string& Made(const std::string& name, const Sizes& sizes);

  bool quick_;
  TemporaryFolder folder_;
  std::map<std::string, std::string> paths_;
};

/// A session of the library, connected with a database file or by a connection string.
Ref<CSession> OpenSession(const std::string& place);

}  // namespace zef::bench
