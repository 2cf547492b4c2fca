#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

#include "bench/digest.h"
#include "bench/writing_contest.h"
#include "tasks/task.h"

/// Saves of events and tasks, on either engine: `Side` names the work by hand.
namespace zef::bench {

/// Gives loaded events another place and reminder. The events of the two sides lie side by side.
template <class Side>
class EventContest final : public Contest {
 public:
  EventContest(World& world, Transaction kind, int operations) : writers_(world), kind_(kind), operations_(operations) {
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
  static std::string Location(int round, int pass) { return fmt::format("Meeting room number {}", 2 * round + pass); }

  /// What stands in the rows now.
  std::uint64_t Written(int parity) const {
    return DigestOfRows(writers_.onlooker, fmt::format("SELECT EVE_Location, EVE_Reminder FROM Events WHERE EVE_ID % 2 "
                                                       "= {} AND EVE_ID <= {} ORDER BY EVE_ID",
                                                       parity % 2, 2 * operations_));
  }

  Writers<Side> writers_;
  Transaction kind_;
  int operations_;
  std::vector<Ref<CEvent>> ours_;
  HandEvents by_hand_;
};

/// Makes tasks with a due date, from drawing the identifier to the event in the calendar.
template <class Side>
class TaskContest final : public Contest {
 public:
  TaskContest(World& world, Transaction kind, int operations) : writers_(world), kind_(kind), operations_(operations) {}

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
      "ORDER BY TSK_ID DESC LIMIT {}";

  static std::string Name(int round, int i) { return fmt::format("Task {} of round {}", i, round); }

  /// The tasks that were made last, with their events.
  std::uint64_t Written() const { return DigestOfRows(writers_.onlooker, fmt::format(kWritten, 2 * operations_)); }

  Writers<Side> writers_;
  Transaction kind_;
  int operations_;
};

}  // namespace zef::bench
