#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "bench/benchmarks.h"
#include "bench/by_hand_upgrade.h"
#include "bench/contest.h"
#include "bench/digest.h"
#include "bench/older_database.h"
#include "bench/peak_memory.h"

namespace zef::bench {
namespace {

namespace fs = std::filesystem;

void UpgradeByLibrary(CSession& session) {
  std::string version;
  std::string kind;
  const bool done = session.GetDBInfo(version, kind) && session.UpgradeDBToVersion9_2_1(version, kind) &&
                    session.UpgradeDBToVersion9_2_2(version, kind) && session.UpgradeDBToVersion9_2_3(version, kind) &&
                    session.UpgradeDBToVersion9_2_4(version, kind);
  if (!done) throw std::runtime_error(session.GetEntireErrorDesc());
}

/// All rows of the tables that an upgrade changes, but the moments at which folders were made.
std::uint64_t DigestOfUpgraded(const std::string& path) {
  constexpr const char* kSelects[] = {
      "SELECT * FROM Events ORDER BY EVE_ID",
      "SELECT * FROM Tasks ORDER BY TSK_ID",
      "SELECT * FROM Contacts ORDER BY CNT_ID",
      "SELECT FLD_ID, FLD_ParentID, FLD_Name, FLD_Type, FLD_Protected FROM Folders ORDER BY FLD_ID",
      "SELECT * FROM Sequences ORDER BY SEQ_ID",
      "SELECT * FROM _VersionInfo",
  };
  const HandDatabase db(path);
  Digest digest;
  for (const char* const select : kSelects) {
    const HandStatement rows = db.Prepare(select, false);
    while (db.Step(rows)) {
      for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), column));
        digest.Add(text == nullptr ? std::string_view("Null") : std::string_view(text));
      }
    }
  }
  return digest.value();
}

/// An older database, and copies of it to be upgraded.
class OlderDatabase {
 public:
  explicit OlderDatabase(std::int32_t contacts) : original_(folder_.path() / "older.db") {
    MakeOlderDatabase(original_.string(), contacts);
  }
  /// A fresh copy in the place of the last one.
  std::string Copy() const {
    const fs::path copy = folder_.path() / "copy.db";
    for (const char* const ending : {"", "-wal", "-shm"}) fs::remove(copy.string() + ending);
    fs::copy_file(original_, copy);
    return copy.string();
  }

 private:
  TemporaryFolder folder_;
  fs::path original_;
};

class UpgradeContest final : public Contest {
 public:
  explicit UpgradeContest(std::int32_t contacts) : older_(contacts) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    const std::string path = older_.Copy();
    {
      const Ref<CSession> session = OpenSession(path);
      watch.Start();
      UpgradeByLibrary(*session);
      watch.Stop();
    }
    return DigestOfUpgraded(path);
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    const std::string path = older_.Copy();
    {
      const HandDatabase db(path);
      watch.Start();
      UpgradeByHand(db);
      watch.Stop();
    }
    return DigestOfUpgraded(path);
  }

 private:
  OlderDatabase older_;
};

Amounts PeaksOfUpgrades(std::int32_t contacts) {
  const OlderDatabase older(contacts);
  Amounts peaks;
  {
    const Ref<CSession> session = OpenSession(older.Copy());
    peaks.ours = MemoryOf([&] { UpgradeByLibrary(*session); }).peak;
  }
  const HandDatabase db(older.Copy());
  peaks.by_hand = MemoryOf([&] { UpgradeByHand(db); }).peak;
  return peaks;
}

}  // namespace

void RegisterUpgrades(World& world) {
  const std::int32_t contacts = world.UpgradedContacts();
  Register({.name = fmt::format("Upgrade from 9.1 to 9.2.4, {} rows", 4 * contacts),
            .target = 3,
            .operations = 1,
            .rounds = world.Rounds(9),
            .make = [contacts](int /*operations*/) { return std::make_unique<UpgradeContest>(contacts); }});
  RegisterAmounts(fmt::format("memory of an upgrade of {} rows", 4 * contacts), 16 << 20,
                  [contacts] { return PeaksOfUpgrades(contacts); });
}

}  // namespace zef::bench
