#include "folders/folder_items.h"

#include <algorithm>

#include "addressbook/contact.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "notes/note.h"
#include "session/collections.h"
#include "tasks/task.h"

namespace zef {
namespace {

template <class R>
using Load = bool (CSession::*)(const Ref<Collection<R>>&, std::int32_t);
template <class R>
using Duplicate = Ref<R> (CSession::*)(std::int32_t);
using Delete = bool (CSession::*)(std::int32_t);

template <class R, Load<R> load, Duplicate<R> duplicate>
bool CopyItems(CSession& session, std::int32_t from, std::int32_t to) {
  const auto items = MakeRef<Collection<R>>();
  if (!(session.*load)(items, from)) return false;
  for (const Ref<R>& item : *items) {
    const Ref<R> copy = (session.*duplicate)(item->ID);
    if (!copy) return false;
    copy->FolderID = to;
    if (!copy->Save()) return false;
  }
  return true;
}

template <class R, Load<R> load, Delete remove>
bool DeleteItems(CSession& session, std::int32_t folder) {
  const auto items = MakeRef<Collection<R>>();
  if (!(session.*load)(items, folder)) return false;
  for (const Ref<R>& item : *items) {
    if (!(session.*remove)(item->ID)) return false;
  }
  return true;
}

template <class R, Load<R> load, Duplicate<R> duplicate, Delete remove>
constexpr ItemKind Kind(FolderType type) {
  return {type, &CopyItems<R, load, duplicate>, &DeleteItems<R, load, remove>};
}

using S = CSession;
constexpr ItemKind kKinds[] = {
    Kind<CContact, &S::LoadContacts4Folder, &S::DuplicateContact, &S::DeleteContact>(FT_CONTACTS),
    Kind<CTask, &S::LoadTasks4Folder, &S::DuplicateTask, &S::DeleteTask>(FT_TASKS),
    Kind<CNote, &S::LoadNotes4Folder, &S::DuplicateNote, &S::DeleteNote>(FT_Notes),
    Kind<CEvent, &S::LoadEvents4Folder, &S::DuplicateEvent, &S::DeleteEvent>(FT_EVENTS),
    Kind<CAlarm, &S::LoadAlarms4Folder, &S::DuplicateAlarm, &S::DeleteAlarm>(FT_ALARMS),
};

}  // namespace

const ItemKind* KindOfItems(std::int32_t type) {
  const auto* const found =
      std::find_if(std::begin(kKinds), std::end(kKinds), [&](const ItemKind& kind) { return kind.type == type; });
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace zef
