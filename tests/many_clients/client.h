#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "folders/folder.h"
#include "session/session.h"
#include "tests/many_clients/account.h"
#include "tests/support/database.h"

namespace zef::test {

/// A folder with smaller folders in it, each of which holds two tasks.
struct Shelf {
  std::int32_t folder = 0;
  int branches = 0;
};

/// A program of its own with one session: keeps tasks, contacts and branches of folders in folders of its own, raises a
/// number that all clients share, and looks again and again whether everything is as it left it.
class Client {
 public:
  /// `shared_task` is the task whose `Completed` all clients raise.
  Client(const Database& database, unsigned seed, std::int32_t shared_task, Account& account);

  /// One operation drawn at random. One that is refused is counted and undone. Raises if the database holds something
  /// else than this client has put there, or if a number was given twice.
  void Work();

 private:
  bool AddTask();
  bool ChangeTask();
  bool DeleteTask();
  bool ReadTasks();
  bool AddContact();
  bool ChangeContact();
  bool DeleteContact();
  bool ReadContacts();
  bool AddBranch();
  bool CopyBranch();
  bool DeleteBranch();
  bool ReadBranches();
  bool RaiseSharedNumber();

  bool MakeFolder(const std::string& name, std::int32_t parent, std::int32_t type, std::int32_t& id);
  bool MakeTask(std::int32_t folder, std::int32_t& id, std::string& name);
  bool AddBranchInTransaction();
  bool RaiseInTransaction();
  /// One folder of the shelf drawn at random; Nothing if the shelf cannot be read or is empty.
  Ref<CFolder> SomeBranch(const Shelf& shelf);
  /// Raises if the record was not there, rather than out of reach for the moment.
  bool IsFound(bool found, const char* what);
  [[noreturn]] void Contradict(const std::string& what);
  void Refused();

  int Draw(int most) { return std::uniform_int_distribution<>(0, most)(random_); }
  std::string NewName();
  Date SomeDay();
  /// A record of the map, which must not be empty.
  std::int32_t SomeOf(const std::map<std::int32_t, std::string>& records);

  Ref<CSession> session_;
  std::mt19937 random_;
  std::int32_t shared_task_;
  Account& account_;
  std::string own_name_;
  int names_ = 0;
  Shelf own_;
  Shelf copies_;
  std::map<std::int32_t, std::string> tasks_;     ///< identifiers and names
  std::map<std::int32_t, std::string> contacts_;  ///< identifiers and last names
};

}  // namespace zef::test
