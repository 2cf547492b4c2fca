#pragma once

#include "bench/reading_contest.h"
#include "bench/test_data.h"
#include "session/collections.h"

/// The kinds of records that are read, on either engine: `Side` names the work by hand.
namespace zef::bench {

template <class S>
struct FolderReading {
  using Side = S;
  using Records = CFolders;
  using Reader = typename S::Reader;
  static constexpr std::int32_t kFirst = kSystemFolders + 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetFolder(id); }
  static auto Get(const Reader& reader, std::int32_t id) { return reader.GetFolder(id); }
  static bool Load(CSession& session, const Ref<CFolders>& folders) {
    return session.LoadFoldersWithCriteria(folders, "FLD_Protected=0");
  }
  static auto Load(const Reader& reader) { return reader.LoadFolders(); }
};

template <class S>
struct EventReading {
  using Side = S;
  using Records = CEvents;
  using Reader = typename S::Reader;
  static constexpr std::int32_t kFirst = 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetEvent(id); }
  static auto Get(const Reader& reader, std::int32_t id) { return reader.GetEvent(id); }
  static bool Load(CSession& session, const Ref<CEvents>& events) {
    return session.LoadEventsWithCriteria(events, "EVE_Reminder>=15");
  }
  static auto Load(const Reader& reader) { return reader.LoadEvents(15); }
};

template <class S>
struct ContactReading {
  using Side = S;
  using Records = CContacts;
  using Reader = typename S::ContactReader;
  static constexpr std::int32_t kFirst = 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetContact(id); }
  static auto Get(const Reader& reader, std::int32_t id) { return reader.Get(id); }
  static bool Load(CSession& session, const Ref<CContacts>& contacts) {
    return session.LoadContactsWithCriteria(contacts, "CNT_ID>=1");
  }
  static auto Load(const Reader& reader) { return reader.Load(1); }
};

template <class S>
struct TagReading {
  using Side = S;
  using Records = CTags;
  using Reader = typename S::ContactReader;

  static bool Load(CSession& session, const Ref<CTags>& tags) {
    return session.LoadContactTagsWithCriteria(tags, "CNT_ID>=1");
  }
  static auto Load(const Reader& reader) { return reader.LoadTags(1); }
};

}  // namespace zef::bench
