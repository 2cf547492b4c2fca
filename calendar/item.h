#pragma once

#include <cstdint>
#include <string_view>
#include <tuple>

#include "calendar/notification.h"
#include "calendar/recurrence.h"
#include "session/children.h"
#include "session/record.h"

namespace zef {

/// What events, alarms and tasks share: a rule and a notification of their own from the first moment on, which are
/// read, saved and reset with them. After a `Save` that answers False an event or alarm is what it was before and can
/// be saved again. But a child of a task, of an item in the client's transaction, or of one whose own transaction could
/// not be undone stays as it was saved and believes in its row, even if that is undone later: drop such an item.
template <class Derived>
class Item : public Record<Derived> {
 public:
  /// Setting a child replaces the object and changes no flag.
  Ref<CNotification> Notification = MakeRef<CNotification>();
  Ref<CRecurrence> Recurrence = MakeRef<CRecurrence>();

  /// Identifiers of the children's rows; below 1 for none. They can differ from the children's own until `Save`.
  Property<std::int32_t> NotificationID{*this};
  Property<std::int32_t> RecurrenceID{*this};

  /// Also sets the session of the children.
  void SetSession(const Ref<CSession>& session) {
    Record<Derived>::SetSession(session);
    Deref(Notification).SetSession(session);
    Deref(Recurrence).SetSession(session);
  }

  /// True if the item's own flag is set or a child reports a change. `IsNew` reads the own flag alone.
  bool IsModified() const { return this->OwnModified() || ChildModified(Notification) || ChildModified(Recurrence); }
  /// Both reach into the children.
  void ResetFlagsX(bool M, bool N) {
    this->SetFlags(M, N);
    Deref(Recurrence).ResetFlagsX(M, N);
    Deref(Notification).ResetFlagsX(M, N);
  }
  void ResetFlags() { derived().ResetFlagsX(true, true); }

 protected:
  /// A reference without a row leaves its child as it was.
  void ReadChildren() {
    ReadChild(this->Session(), Notification, NotificationID, CNotification::kSelectRow);
    ReadChild(this->Session(), Recurrence, RecurrenceID, CRecurrence::kSelectRow);
  }
  /// False if a child's own `Save` failed, which that has recorded.
  bool SaveChildren(CSession& session) {
    return SaveChild(session, Notification, NotificationID, &CSession::DeleteNotification) &&
           SaveChild(session, Recurrence, RecurrenceID, &CSession::DeleteRecurrence);
  }
  /// The children as they stand before a `Save`.
  auto ChildrenBefore() {
    return std::tuple(ChildBefore(Notification, NotificationID), ChildBefore(Recurrence, RecurrenceID));
  }
  /// `Save`: the children, the own row if it changed, then `rest`, all in one transaction.
  template <std::size_t N, class Rest>
  bool SaveItem(const Table<Derived, N>& table, std::string_view procedure, std::string_view array_procedure,
                Rest&& rest) {
    return this->SaveInTransaction(procedure, [&](CSession& session) {
      if (!derived().SaveChildren(session)) return Outcome::Quiet;
      const Outcome row = this->OwnModified() ? SaveRow(derived(), table, array_procedure) : Outcome::Done;
      return row == Outcome::Done ? rest(session) : row;
    });
  }
  /// The same with nothing behind the row. If the transaction was this `Save`'s own and has been undone, the children,
  /// the references to them and the own flags are given back, so that the next `Save` writes all of it again.
  template <std::size_t N>
  bool SaveOrGiveBack(const Table<Derived, N>& table, std::string_view procedure, std::string_view array_procedure) {
    const bool modified = this->OwnModified();
    const auto children = derived().ChildrenBefore();
    if (SaveItem(table, procedure, array_procedure, [](CSession&) { return Outcome::Done; })) return true;
    if (Deref(this->Session()).TransactionStarted()) return false;  // nothing has been undone
    std::apply([](const auto&... child) { (child.GiveBack(), ...); }, children);
    this->SetFlags(modified, this->IsNew());
    return false;
  }

 private:
  Derived& derived() { return static_cast<Derived&>(*this); }
};

/// Gives both children of a copy new numbers as placeholders; false if one could not be drawn.
template <class Derived>
bool RenumberChildren(CSession& session, Item<Derived>& copy) {
  return RenumberChild(session, kRecurrenceSequence, copy.Recurrence, copy.RecurrenceID) &&
         RenumberChild(session, kNotificationSequence, copy.Notification, copy.NotificationID);
}

}  // namespace zef
