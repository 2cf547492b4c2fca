#pragma once

#include <memory>
#include <string>

#include "bench/by_hand.h"
#include "bench/by_hand_contact.h"
#include "bench/postgresql/server_by_hand.h"

/// The readers and writers of the other side of the benchmarks, over libpq: the same members as those on a file.
namespace zef::bench {

class ServerReader {
 public:
  explicit ServerReader(const HandServer& server);

  std::unique_ptr<HandFolder> GetFolder(std::int32_t id) const;
  /// With its rule and its notification.
  std::unique_ptr<HandEvent> GetEvent(std::int32_t id) const;

 private:
  const HandServer& server_;
  std::string folder_;
  std::string event_;
  std::string rule_;
  std::string notification_;
};

class ServerContactReader {
 public:
  explicit ServerContactReader(const HandServer& server);

  std::unique_ptr<HandContact> Get(std::int32_t id) const;
  /// The contacts numbered from so much on. Rows come one by one, so that they are not in memory twice.
  HandContacts Load(std::int32_t first) const;
  /// Their names.
  HandTags LoadTags(std::int32_t first) const;

 private:
  const HandServer& server_;
  std::string one_;
  std::string many_;
};

/// Writes in the running transaction, one statement after the other.
class ServerWriter {
 public:
  explicit ServerWriter(const HandServer& server);

  void Begin() const { server_.Execute("BEGIN"); }
  void Commit() const { server_.Execute("COMMIT"); }
  /// The next identifier of a sequence, whose row is locked.
  std::int32_t Draw(std::int32_t sequence) const;
  std::int32_t DrawAlone(std::int32_t sequence) const;
  void UpdateEvent(const HandEvent& event) const;
  /// With the event of its due date.
  void InsertTask(const HandTask& task) const;

 private:
  const HandServer& server_;
  std::string select_sequence_;
  std::string update_sequence_;
  std::string update_event_;
  std::string insert_event_;
  std::string insert_task_;
  std::string select_folder_;
};

class ServerContactWriter {
 public:
  explicit ServerContactWriter(const HandServer& server);

  void Insert(const HandContact& contact) const;
  void Update(const HandContact& contact) const;

 private:
  void DeleteEvents(const char* type, const char* folder, std::int32_t contact) const;

  const HandServer& server_;
  std::string insert_;
  std::string update_;
  std::string select_folder_;
  std::string delete_events_;
};

}  // namespace zef::bench
