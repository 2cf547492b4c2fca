#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/recordset.h"
#include "session/bas_global.h"
#include "session/executing.h"
#include "session/property.h"
#include "session/session.h"
#include "session/statements.h"

/// What owners of a rule, a notification or another child record share.
namespace zef {

/// A column of a row that names a child; 0 for Null.
inline std::int32_t ChildReference(Recordset& rs, std::string_view column) {
  return ToLong(Nz(rs.Fields().Item(column).Value(), Value(0)));
}

/// Reads the child's row if the owner names one; without a reference or a row the child stays as it is.
template <class Child>
void ReadChild(const Ref<CSession>& session, const Ref<Child>& child, std::int32_t reference, std::string_view select) {
  if (reference <= 0) return;
  const Ref<Recordset> rs = SelectByKey(Deref(session), select, reference);
  if (!rs->EndOfFile()) Deref(child).GetValuesFromRS(rs);
}

/// Saves a child before its owner's row is written. A stored child that the client has emptied loses its row, and the
/// reference becomes -1 even if that delete fails; a changed one is saved, and the reference takes its identifier; any
/// other is left alone. False if the child's own `Save` failed.
template <class Child>
bool SaveChild(CSession& session, const Ref<Child>& child, Property<std::int32_t>& reference,
               bool (CSession::*remove)(std::int32_t)) {
  Child& saved = Deref(child);
  if (saved.ID >= 1 && saved.IsEmpty()) {
    (session.*remove)(saved.ID);
    reference = -1;
    return true;
  }
  if (!saved.IsModified()) return true;
  if (!saved.Save()) return false;
  reference = saved.ID;
  return true;
}

/// What a `Save` may change of a child and of its owner's reference to it, to be given back when all that was written
/// has been undone; nothing if the child is Nothing, for then the `Save` fails before it changes either.
template <class Child>
class ChildBefore {
 public:
  ChildBefore(const Ref<Child>& child, Property<std::int32_t>& reference) : reference_(reference) {
    if (child) before_ = State{child, reference, child->ID, child->IsModified(), child->IsNew()};
  }

  void GiveBack() const {
    if (!before_) return;
    reference_.Load(before_->reference);
    before_->child->ID = before_->id;
    before_->child->ResetFlagsX(before_->modified, before_->is_new);
  }

 private:
  struct State {
    Ref<Child> child;
    std::int32_t reference;
    std::int32_t id;
    bool modified;
    bool is_new;
  };

  Property<std::int32_t>& reference_;
  std::optional<State> before_;
};

/// Gives a child of a copy the next number of a sequence as a placeholder, in the child and in its owner's reference;
/// false if none could be drawn.
template <class Child>
bool RenumberChild(CSession& session, std::int32_t sequence, const Ref<Child>& child,
                   Property<std::int32_t>& reference) {
  std::int32_t id = 0;
  if (session.GetUniqueIDFromSeq(sequence, id, 1) == 0) return false;
  Deref(child).ID = id;
  reference = id;
  return true;
}

/// The column of an owner's row that names a child, and the operation that deletes the child.
struct ChildColumn {
  std::string_view name;
  bool (CSession::*remove)(std::int32_t);
};

/// Deletes the children that an owner's row names, in their order, and then the row; Null names child 0. `from` is the
/// statement from the table on, as in " FROM Events WHERE EVE_ID=". Nothing happens without a row. False if a child
/// could not be deleted.
inline bool DeleteOwner(CSession& session, std::string_view from, std::span<const ChildColumn> children,
                        std::int32_t id) {
  const std::string row = WithNumber(from, id);
  const Ref<Recordset> rs = Select(session, "SELECT *" + row);
  if (rs->EndOfFile()) return true;
  for (const ChildColumn& child : children) {
    if (!(session.*child.remove)(ChildReference(*rs, child.name))) return false;
  }
  rs->Close();
  Execute(session, "DELETE *" + row);
  return true;
}

/// True if a child that is present reports a change.
template <class Child>
bool ChildModified(const Ref<Child>& child) {
  return child && child->IsModified();
}

}  // namespace zef
