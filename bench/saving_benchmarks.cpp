#include <fmt/format.h>

#include "bench/benchmarks.h"
#include "bench/digest.h"
#include "bench/writing_contest.h"
#include "tasks/task.h"

namespace zef::bench {
namespace {

/// Gives loaded events another place and reminder. The events of the two sides lie side by side.
class EventContest final : public Contest {
 public:
  EventContest(World& world, Transaction kind, int operations)
      : writers_(world), kind_(kind), operations_(operations), written_(writers_.onlooker.Prepare(kWritten)) {
    for (int i = 0; i < operations; ++i) {
      ours_.push_back(writers_.session->GetEvent(2 * i + 1));
      by_hand_.push_back(writers_.reader.GetEvent(2 * i + 2));
    }
  }

  std::uint64_t Ours(int round, Stopwatch& watch) override {
    TimeOurs(writers_, kind_, operations_, watch, [&](int i, int pass) {
      CEvent& event = *ours_[static_cast<std::size_t>(i)];
      event.Location = Location(round, pass);
      event.Reminder = 2 * round + pass;
      Require(event.Save());
    });
    return Written(1);
  }

  std::uint64_t ByHand(int round, Stopwatch& watch) override {
    TimeByHand(writers_, kind_, operations_, watch, [&](int i, int pass) {
      HandEvent& event = *by_hand_[static_cast<std::size_t>(i)];
      event.location = Location(round, pass);
      event.reminder = 2 * round + pass;
      if (kind_ == Transaction::Own) writers_.writer.Begin();
      writers_.writer.UpdateEvent(event);
      if (kind_ == Transaction::Own) writers_.writer.Commit();
    });
    return Written(2);
  }

 private:
  static constexpr char kWritten[] =
      "SELECT EVE_Location, EVE_Reminder FROM Events WHERE EVE_ID % 2 = ?1 % 2 AND EVE_ID <= ?2 ORDER BY EVE_ID";

  static std::string Location(int round, int pass) { return fmt::format("Meeting room number {}", 2 * round + pass); }

  /// What stands in the rows now.
  std::uint64_t Written(int parity) const {
    sqlite3_bind_int(written_.get(), 1, parity);
    sqlite3_bind_int(written_.get(), 2, 2 * operations_);
    Digest digest;
    while (writers_.onlooker.Step(written_)) {
      digest.Add(std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(written_.get(), 0))));
      digest.Add(sqlite3_column_int(written_.get(), 1));
    }
    sqlite3_reset(written_.get());
    return digest.value();
  }

  Writers writers_;
  Transaction kind_;
  int operations_;
  HandStatement written_;
  std::vector<Ref<CEvent>> ours_;
  HandEvents by_hand_;
};

/// Makes tasks with a due date, from drawing the identifier to the event in the calendar.
class TaskContest final : public Contest {
 public:
  TaskContest(World& world, Transaction kind, int operations)
      : writers_(world), kind_(kind), operations_(operations), written_(writers_.onlooker.Prepare(kWritten)) {}

  std::uint64_t Ours(int round, Stopwatch& watch) override {
    TimeOurs(writers_, kind_, operations_, watch, [&](int i, int pass) {
      const Ref<CTask> task = writers_.session->CreateTask();
      task->FolderID = 3;
      task->Priority = "Normal";
      task->StatusID = 2;
      task->Name = Name(round, pass * operations_ + i);
      task->Description = kDescription;
      task->DueDate = Date(kDueDate + i);
      task->StartDate = Date(kDueDate);
      task->AssignedTo = "Somebody";
      Require(task->Save());
    });
    return Written();
  }

  std::uint64_t ByHand(int round, Stopwatch& watch) override {
    TimeByHand(writers_, kind_, operations_, watch, [&](int i, int pass) {
      const bool own = kind_ == Transaction::Own;
      HandTask task;
      task.id = own ? writers_.writer.DrawAlone(kTaskSequence) : writers_.writer.Draw(kTaskSequence);
      task.folder_id = 3;
      task.priority = "Normal";
      task.status_id = 2;
      task.name = Name(round, pass * operations_ + i);
      task.description = kDescription;
      task.due_date = kDueDate + i;
      task.start_date = kDueDate;
      task.assigned_to = "Somebody";
      if (own) writers_.writer.Begin();
      writers_.writer.InsertTask(task);
      if (own) writers_.writer.Commit();
    });
    return Written();
  }

 private:
  static constexpr std::int32_t kTaskSequence = 2;
  static constexpr double kDueDate = 46000;
  static constexpr char kDescription[] = "What has to be done stands in the letter of last week.";
  static constexpr char kWritten[] =
      "SELECT TSK_Name, TSK_Description, TSK_DueDate, TSK_FolderID, EVE_Text, EVE_StartDate, EVE_EndDate, "
      "EVE_FolderID, "
      "EVE_Reminder FROM Tasks CROSS JOIN Events ON EVE_LinkID=TSK_ID AND EVE_FolderID=9 AND EVE_Type='T' "
      "ORDER BY TSK_ID DESC LIMIT ?1";

  static std::string Name(int round, int i) { return fmt::format("Task {} of round {}", i, round); }

  /// The tasks that were made last, with their events.
  std::uint64_t Written() const {
    sqlite3_bind_int(written_.get(), 1, 2 * operations_);
    Digest digest;
    while (writers_.onlooker.Step(written_)) {
      for (int column = 0; column < sqlite3_column_count(written_.get()); ++column) {
        digest.Add(std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(written_.get(), column))));
      }
    }
    sqlite3_reset(written_.get());
    return digest.value();
  }

  Writers writers_;
  Transaction kind_;
  int operations_;
  HandStatement written_;
};

/// A commit waits for the disk, whose times differ widely: many short rounds tell more than few long ones.
template <class Kind>
void RegisterBoth(World& world, const std::string& name) {
  Register({.name = name + ", in one transaction",
            .target = 2.0,
            .operations = 100,
            .rounds = world.Rounds(100),
            .make = [&](int operations) { return std::make_unique<Kind>(world, Transaction::Clients, operations); }});
  Register({.name = name + ", in its own",
            .target = 1.2,
            .operations = 2,
            .rounds = world.Rounds(240),
            .make = [&](int operations) { return std::make_unique<Kind>(world, Transaction::Own, operations); }});
}

}  // namespace

void RegisterSaving(World& world) {
  RegisterBoth<EventContest>(world, "Save of a changed event");
  RegisterBoth<TaskContest>(world, "Save of a new task with a due date");
}

}  // namespace zef::bench
