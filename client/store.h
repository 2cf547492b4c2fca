#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "client/database_place.h"
#include "client/date.h"
#include "client/record_values.h"
#include "client/rule.h"

namespace zef::client {

/// The kinds of item that a folder holds, as the database numbers them.
enum FolderKind : std::int32_t { kContacts = 1, kTasks = 2, kNotes = 3, kEvents = 4, kAlarms = 6 };

/// Bits of a user's rights, as the database numbers them.
enum UserRights : std::int32_t { kAdministrator = 1, kEditor = 2, kViewer = 4 };

struct DatabaseInfo {
  std::string version{};
  std::vector<std::pair<std::string, std::int32_t>> counts{};  ///< of records by the plural name of their kind
};

/// A list that the database offers to choose from, such as "countries".
struct LookupList {
  struct Entry {
    std::int32_t id = 0;
    std::string name{};
  };
  std::string name{};
  std::vector<Entry> entries{};
};

/// A table of which a copy was made.
struct CopiedTable {
  std::string name{};
  std::int64_t rows = 0;
};

/// What an upgrade has done.
struct UpgradeInfo {
  std::string from{};
  std::string to{};
  std::vector<std::string> steps{};    ///< the versions that were reached, one after the other
  std::vector<std::string> indexes{};  ///< those that were added
  std::string backup{};  ///< where the database stands as it was before; empty if no step was needed, or there is no
                         ///< file to copy
};

struct FolderInfo {
  std::int32_t id = 0;
  std::int32_t parent = 0;  ///< 0 for a root folder
  std::int32_t kind = 0;    ///< a `FolderKind`, or any other number
  bool is_protected = false;
  bool shows_all = false;  ///< a folder that stands for the tasks or events of all folders
  std::string name{};
  std::string description{};
};

struct TaskInfo {
  std::int32_t id = 0;
  std::int32_t folder = 0;
  std::string name{};
  std::string description{};
  std::string assigned_to{};
  std::string priority{};
  Date start{};  ///< the empty date for none, here and below
  Date due{};
  bool done = false;
  RuleSpec rule{};
};

struct EventInfo {
  std::int32_t id = 0;
  std::int32_t folder = 0;
  std::string text{};
  std::string location{};
  Date start{};
  Date end{};
  std::int32_t reminder = -1;  ///< negative for none
  std::string type{};          ///< "E" an entry, "A" anniversary, "B" birthday, "T" a task's due date
  std::int32_t link = 0;       ///< the contact or task of a generated event
  RuleSpec rule{};
};

/// An open database. Every operation raises a `Failure` with exit status `kRefused` and the library's sentence if it
/// cannot be done.
class Store {
 public:
  explicit Store(const DatabasePlace& place);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  DatabaseInfo Info();
  /// Brings the tables to the current version, all or nothing, behind a copy of the file beside it. A database that has
  /// the version lacks at most indexes, which are added. `tell` hears what is being done.
  UpgradeInfo Upgrade(const std::function<void(const std::string&)>& tell);
  /// Makes a new database that holds the same, all or nothing, and compares every value of the two. Others cannot write
  /// meanwhile.
  std::vector<CopiedTable> CopyTo(const DatabasePlace& place, const std::function<void(const std::string&)>& tell);
  /// Raises unless the tables are those that the operations below need.
  void RequireCurrentVersion();

  /// All folders by name.
  std::vector<FolderInfo> Folders();
  /// The folder with an identifier or, if there is none, with a name in any letter case; the kind, if given, narrows
  /// the choice and must fit.
  FolderInfo Folder(const std::string& id_or_name, std::optional<FolderKind> kind = std::nullopt);
  /// The folder at the root of the tree that new items of a kind go to.
  FolderInfo RootFolder(const std::string& name);

  /// These write a new item under the next identifier and give it as it was written.
  FolderInfo Add(const FolderInfo& folder);
  TaskInfo Add(const TaskInfo& task);
  EventInfo Add(const EventInfo& event);

  /// The name of a priority in the spelling of the database's list.
  std::string Priority(const std::string& name);

  /// All lists to choose from.
  std::vector<LookupList> Lists();

  /// The account with a name and password; letter case does not count, and a password of blanks is none.
  RecordValues LogIn(const std::string& name, const std::string& password);
  /// The identifier of the account with a name, if there is one.
  std::optional<std::int32_t> UserID(const std::string& name);

  /// The tasks of a folder, or of all, that meet a condition in the library's SQL, or all.
  std::vector<TaskInfo> Tasks(const std::optional<FolderInfo>& folder, const std::string& condition);
  std::vector<EventInfo> Events();
  EventInfo Event(std::int32_t id);

  // Records of any type by the names of their properties.

  /// The records of a folder, or of all, that meet a condition in the library's SQL, or all, in an order for people.
  std::vector<RecordValues> Records(RecordType type, const std::optional<FolderInfo>& folder,
                                    const std::string& condition);
  RecordValues Record(RecordType type, std::int32_t id);
  /// Writes a new record under the next identifier, or changes one, and gives it as it was written. All or nothing.
  RecordValues AddRecord(RecordType type, const std::vector<Assignment>& values);
  RecordValues SetRecord(RecordType type, std::int32_t id, const std::vector<Assignment>& values);
  /// Deletes a record with all that hangs on it; a folder with all that is in and below it.
  void DeleteRecord(RecordType type, std::int32_t id);
  /// Writes a record of a type that `CanBeExported` to a text file. Nothing is written over unless `replace` says so,
  /// and a link never.
  void Export(RecordType type, std::int32_t id, const std::string& path, bool replace);

  /// Notes that a task was done on a day and makes the next instance of its series, all or nothing. Gives the new
  /// instance, or nothing if there is none.
  std::optional<RecordValues> FinishTask(std::int32_t id, Date today);
  /// Copies a folder with all that is in and below it into another one and gives the copy.
  FolderInfo CopyFolder(const FolderInfo& folder, const FolderInfo& target);
  /// The contact that has exactly this telephone number, if there is one.
  std::optional<RecordValues> ContactWithNumber(const std::string& number);
  /// Writes the file attached to an alarm to a path that nothing has yet, private to the user.
  void SaveAttachment(std::int32_t alarm, const std::string& path);

  /// Whether a user has seen the occurrence of an event at exactly this moment.
  bool IsSeen(std::int32_t event, Date moment, std::int32_t user);
  void MarkSeen(std::int32_t event, Date moment, std::int32_t user);

  class Session;  ///< for the files of the store alone

 private:
  std::unique_ptr<Session> session_;
};

/// True for the types that the library writes to text files.
bool CanBeExported(RecordType type);

}  // namespace zef::client
