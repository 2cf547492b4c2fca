#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The other side of the benchmarks: plain structs and prepared statements, as a careful programmer writes them over
/// the engine's C interface. A failure raises std::runtime_error.
namespace zef::bench {

struct HandFolder {
  std::int32_t id = 0;
  std::int32_t parent_id = 0;
  std::int32_t options = 0;
  std::string name;
  std::string description;
  std::int32_t items_type = 0;
  double date_last_update = 0;
  bool is_protected = false;
};

struct HandRule {
  std::int32_t id = 0;
  std::int32_t type = 0;
  std::int32_t occurrences = 0;
  std::int32_t options1 = 0;
  std::int32_t options2 = 0;
  std::int32_t sub_type = 0;
  std::int32_t days = 0;
  std::int32_t month = 0;
  std::int32_t week_number = 0;
  double end_date = 0;
};

struct HandNotification {
  std::int32_t id = 0;
  std::string subject;
  std::string message;
  std::string email;
  std::string cc;
  std::string bcc;
  std::int32_t type = 0;
  std::int32_t status = 0;
  double sending_date = 0;
};

struct HandEvent {
  std::int32_t id = 0;
  std::int32_t folder_id = 0;
  std::int32_t category_id = 0;
  std::int32_t notification_id = 0;
  std::int32_t recurrence_id = 0;
  std::int32_t contact_id = 0;
  std::string text;
  std::string location;
  double start_date = 0;
  double end_date = 0;
  std::int32_t reminder = 0;
  double date_last_update = 0;
  std::string type;
  std::int32_t link_id = 0;
  std::unique_ptr<HandRule> rule;
  std::unique_ptr<HandNotification> notification;
};

struct HandTask {
  std::int32_t id = 0;
  std::int32_t folder_id = 0;
  std::int32_t recurrence_id = 0;
  std::int32_t notification_id = 0;
  std::int32_t category_id = 0;
  std::string priority;
  std::int32_t status_id = 0;
  std::string name;
  std::string description;
  double due_date = 0;
  double start_date = 0;
  std::string assigned_to;
  std::int32_t completed = 0;
  double date_completed = 0;
};

using HandFolders = std::vector<std::unique_ptr<HandFolder>>;
using HandEvents = std::vector<std::unique_ptr<HandEvent>>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using HandStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A connection of its own, with the same settings as the library's.
class HandDatabase {
 public:
  explicit HandDatabase(const std::string& path);

  /// `kept` tells the engine that the statement stays for long.
  HandStatement Prepare(std::string_view text, bool kept = true) const;
  /// Runs a statement to its end and makes it ready for the next run; false if it gave a row.
  bool Run(const HandStatement& statement) const;
  /// Goes to the next row; false behind the last one.
  bool Step(const HandStatement& statement) const;
  void Execute(const char* text) const;
  /// Moves all that was committed from the log into the file and empties the log.
  void Checkpoint() const;

 private:
  struct Close {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
  };
  void Require(bool success) const;

  std::unique_ptr<sqlite3, Close> db_;
};

/// The local date and time as the database keeps it.
double NowByHand();

/// Reads folders and events.
class HandReader {
 public:
  explicit HandReader(const HandDatabase& db);

  std::unique_ptr<HandFolder> GetFolder(std::int32_t id) const;
  /// With its rule and its notification.
  std::unique_ptr<HandEvent> GetEvent(std::int32_t id) const;
  /// The unprotected folders by name.
  HandFolders LoadFolders() const;
  /// The events with a reminder of at least so much.
  HandEvents LoadEvents(std::int32_t reminder) const;
  /// The events that meet a condition in the engine's language, through a statement made for this one run.
  HandEvents LoadEventsWhere(const std::string& condition) const;

 private:
  std::unique_ptr<HandEvent> ReadEvent(sqlite3_stmt* row) const;
  HandEvents ReadEvents(const HandStatement& statement) const;

  const HandDatabase& db_;
  HandStatement folder_;
  HandStatement folders_;
  HandStatement event_;
  HandStatement events_;
  HandStatement rule_;
  HandStatement notification_;
};

/// Saves events and tasks and draws identifiers.
class HandWriter {
 public:
  explicit HandWriter(const HandDatabase& db);

  void Begin() const { db_.Run(begin_); }
  void Commit() const { db_.Run(commit_); }
  /// The next identifier of a sequence, in a savepoint of the running transaction.
  std::int32_t Draw(std::int32_t sequence) const;
  /// The same in a transaction of its own.
  std::int32_t DrawAlone(std::int32_t sequence) const;
  /// Writes an event over its row.
  void UpdateEvent(const HandEvent& event) const;
  /// Writes a new task and the event of its due date, in the running transaction.
  void InsertTask(const HandTask& task) const;

 private:
  std::int32_t DrawInside(std::int32_t sequence) const;
  void InsertEvent(const HandEvent& event) const;
  std::int32_t DueDatesFolder() const;

  const HandDatabase& db_;
  HandStatement begin_;
  HandStatement commit_;
  HandStatement savepoint_;
  HandStatement release_;
  HandStatement select_sequence_;
  HandStatement update_sequence_;
  HandStatement update_event_;
  HandStatement insert_event_;
  HandStatement insert_task_;
  HandStatement select_folder_;
};

}  // namespace zef::bench
