#include "bench/benchmarks.h"
#include "bench/by_hand.h"
#include "bench/reading_contest.h"
#include "bench/test_data.h"
#include "session/collections.h"

namespace zef::bench {
namespace {

struct FolderReading {
  using Records = CFolders;
  using Reader = HandReader;
  static constexpr std::int32_t kFirst = kSystemFolders + 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetFolder(id); }
  static auto Get(const HandReader& reader, std::int32_t id) { return reader.GetFolder(id); }
  static bool Load(CSession& session, const Ref<CFolders>& folders) {
    return session.LoadFoldersWithCriteria(folders, "FLD_Protected=0");
  }
  static auto Load(const HandReader& reader) { return reader.LoadFolders(); }
};

struct EventReading {
  using Records = CEvents;
  using Reader = HandReader;
  static constexpr std::int32_t kFirst = 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetEvent(id); }
  static auto Get(const HandReader& reader, std::int32_t id) { return reader.GetEvent(id); }
  static bool Load(CSession& session, const Ref<CEvents>& events) {
    return session.LoadEventsWithCriteria(events, "EVE_Reminder>=15");
  }
  static auto Load(const HandReader& reader) { return reader.LoadEvents(15); }
};

}  // namespace

void RegisterReading(World& world) {
  RegisterPicks<FolderReading>(world, "GetFolder");
  RegisterPicks<EventReading>(world, "GetEvent with two children");
  RegisterLoad<FolderReading>(world, "LoadFoldersWithCriteria, a row");
  RegisterLoad<EventReading>(world, "LoadEventsWithCriteria, a row");
}

}  // namespace zef::bench
