#include <fmt/format.h>
#include <malloc.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "bench/benchmarks.h"
#include "bench/contest.h"
#include "bench/test_data.h"
#include "folders/folder.h"
#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/recordset.h"
#include "tasks/task.h"
#include "tests/support/forwarding_engine.h"

namespace zef::bench {
namespace {

constexpr int kManyTasks = 10'000;
constexpr int kFewTasks = 1'000;

void Require(bool success, const CSession& session) {
  if (!success) throw std::runtime_error(session.GetEntireErrorDesc());
}

/// A database of its own, with folders of tasks that have a rule each.
class TaskFolders {
 public:
  TaskFolders() : path_((folder_.path() / "tree.db").string()) {
    MakeDatabase(path_, {});
    session = OpenSession(path_);
    destination = MakeFolder("Copies", 0, 0);
  }

  std::int32_t MakeFolder(const std::string& name, std::int32_t parent, int tasks) const {
    Require(session->BeginTransaction(), *session);
    const Ref<CFolder> folder = session->CreateFolder();
    folder->Name = name;
    folder->ParentID = parent;
    folder->ItemsType = FT_TASKS;
    Require(folder->Save(), *session);
    for (int i = 0; i < tasks; ++i) {
      const Ref<CTask> task = session->CreateTask();
      task->FolderID = folder->ID;
      task->Name = fmt::format("task {}", (i * 7919) % tasks);
      task->Recurrence->RType = REC_WEEKLY;
      task->Recurrence->Monday = true;
      Require(task->Save(), *session);
    }
    Require(session->CommitTransaction(), *session);
    return folder->ID;
  }
  void Copy(std::int32_t folder) const { Require(session->CopyFolder(folder, destination), *session); }
  /// Deletes the one copy that there is.
  void DeleteCopy() const {
    const std::int32_t copy = session->GetFolderIDByCriteria(fmt::format("FLD_ParentID={}", destination));
    Require(session->DeleteFolder(copy), *session);
  }
  /// Tasks in copies, with their rules.
  std::uint64_t CopiedTasks() const {
    const std::string select = fmt::format(
        "SELECT Count(*) FROM Tasks INNER JOIN Recurrences ON TSK_RecurrenceID=REC_ID WHERE TSK_FolderID IN (SELECT "
        "FLD_ID FROM Folders WHERE FLD_ParentID={})",
        destination);
    return static_cast<std::uint64_t>(ToLong(session->conDBConnection->Execute(select)->Fields().Item(0).Value()));
  }

  Ref<CSession> session;
  std::int32_t destination = 0;

 private:
  TemporaryFolder folder_;
  std::string path_;
};

enum class Operation { Copy, Delete };

/// A folder of many tasks in the place of the library, and one of few, as often as it takes, in the place of the work
/// by hand.
class TreeContest final : public Contest {
 public:
  explicit TreeContest(Operation timed)
      : many_(folders_.MakeFolder("many", 0, kManyTasks)),
        few_(folders_.MakeFolder("few", 0, kFewTasks)),
        timed_(timed) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override { return Run(many_, watch); }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    std::uint64_t copied = 0;
    for (int i = 0; i < kManyTasks / kFewTasks; ++i) copied += Run(few_, watch);
    return copied;
  }

 private:
  std::uint64_t Run(std::int32_t folder, Stopwatch& watch) const {
    if (timed_ == Operation::Copy) watch.Start();
    folders_.Copy(folder);
    if (timed_ == Operation::Copy) watch.Stop();
    const std::uint64_t copied = folders_.CopiedTasks();
    if (timed_ == Operation::Delete) watch.Start();
    folders_.DeleteCopy();
    if (timed_ == Operation::Delete) watch.Stop();
    return copied;
  }

  TaskFolders folders_;
  std::int32_t many_;
  std::int32_t few_;
  Operation timed_;
};

/// Looks at the heap at every statement and keeps the most that was in use.
class HeapWatch final : public test::ForwardingEngine {
 public:
  HeapWatch(std::unique_ptr<Engine> engine, std::shared_ptr<std::size_t> most)
      : ForwardingEngine(std::move(engine)), most_(std::move(most)) {}

  Result Execute(const Command& command) override {
    const struct mallinfo2 info = mallinfo2();
    *most_ = std::max(*most_, info.uordblks + info.hblkhd);
    return ForwardingEngine::Execute(command);
  }

 private:
  std::shared_ptr<std::size_t> most_;
};

/// What copying ten levels of few tasks takes at its most, against one such level. A first copy of both fills the
/// engine's own memory.
Amounts MeasureLevels() {
  const TaskFolders folders;
  const std::int32_t one = folders.MakeFolder("one", 0, kFewTasks);
  const std::int32_t ten = folders.MakeFolder("ten", 0, kFewTasks);
  std::int32_t parent = ten;
  for (int level = 2; level <= 10; ++level) parent = folders.MakeFolder("below", parent, kFewTasks);
  const auto most = std::make_shared<std::size_t>(0);
  folders.session->conDBConnection->WrapEngine(
      [&](std::unique_ptr<Engine> engine) { return std::make_unique<HeapWatch>(std::move(engine), most); });
  const auto used_by = [&](std::int32_t folder) {
    folders.Copy(folder);
    folders.DeleteCopy();
    const struct mallinfo2 before = mallinfo2();
    *most = 0;
    folders.Copy(folder);
    const std::size_t used = *most - (before.uordblks + before.hblkhd);
    folders.DeleteCopy();
    return static_cast<double>(used);
  };
  used_by(ten);
  return {.ours = used_by(ten), .by_hand = used_by(one)};
}

void RegisterTree(World& world, const std::string& name, Operation timed) {
  Register({.name = fmt::format("{}, a task of {} against one of {}", name, kManyTasks, kFewTasks),
            .target = 1.3,
            .operations = kManyTasks,
            .rounds = world.Rounds(8),
            .make = [timed](int /*operations*/) { return std::make_unique<TreeContest>(timed); }});
}

}  // namespace

void RegisterTrees(World& world) {
  RegisterTree(world, "CopyFolder", Operation::Copy);
  RegisterTree(world, "DeleteFolder", Operation::Delete);
  RegisterAmounts("memory of CopyFolder, ten levels of 1000 tasks against one", 3 << 19, MeasureLevels);
}

}  // namespace zef::bench
