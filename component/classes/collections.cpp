#include "session/collections.h"

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "component/binding.h"
#include "component/enumerator.h"
#include "component/table.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "tasks/task.h"
#include "users/user.h"

namespace zef::component {
namespace {

constexpr Member kTagMembers[] = {
    Members<CTag>::Field<&CTag::ID, Long>("ID"),
    Members<CTag>::Field<&CTag::Text, Text>("Text"),
};
constexpr Class kTag = Creatable<CTag>(kTagMembers);

template <class Element>
bool ElementOf(Object object, std::int32_t position, VARIANT& element) {
  const auto& collection = *static_cast<const Collection<Element>*>(object.address);
  if (position >= collection.Count()) return false;
  Crossing<Ref<Element>>::Out(element, collection.ItemByIdx(position + 1));
  return true;
}

template <class Element>
void NewEnum(const Call& call) {
  if (call.result == nullptr) return;
  call.result->punkVal = new Enumerator(ClassOf<Collection<Element>>(), call.object, &ElementOf<Element>);
  call.result->vt = VT_UNKNOWN;
}

/// The seven members of a collection, which differ in the element and in the name of what is added.
template <class Element>
constexpr std::array<Member, 7> CollectionMembers(std::string_view added) {
  using Of = Members<Collection<Element>>;
  using List = Collection<Element>;
  return {
      Of::template Function<&List::Add, Boolean(ByRef<Ref<Element>>)>("Add", added),
      Of::template ReadOnly<&List::ItemByIdx, Ref<Element>(Long)>("ItemByIdx", "Index"),
      Of::template ReadOnly<&List::ItemByKey, Ref<Element>(ByRef<Text>)>("ItemByKey", "Key"),
      Of::template ReadOnly<&List::Count, Long()>("Count"),
      Of::template Function<&List::Remove, void(ByRef<PositionOrKey>)>("Remove", "vntIndexKey"),
      Member{.name = "NewEnum",
             .kind = Kind::Enumerator,
             .type = {VT_UNKNOWN, kNameOf<Element>, false},
             .get = &NewEnum<Element>},
      Of::template Function<&List::Clear, void()>("Clear"),
  };
}

/// The argument of `Add` is named after the element, but for events.
template <class Element>
constexpr std::string_view AddedName() {
  if constexpr (std::is_same_v<Element, CEvent>) return "udtEvent";
  return kNameOf<Element>.substr(1);
}

template <class Element>
constexpr auto kCollectionMembers = CollectionMembers<Element>(AddedName<Element>());
template <class Element>
constexpr Class kCollection = Creatable<Collection<Element>>(kCollectionMembers<Element>);

}  // namespace

const Class& DescriptionOf(Tag<CTag>) { return kTag; }
const Class& DescriptionOf(Tag<CAlarms>) { return kCollection<CAlarm>; }
const Class& DescriptionOf(Tag<CCategories>) { return kCollection<CCategory>; }
const Class& DescriptionOf(Tag<CContacts>) { return kCollection<CContact>; }
const Class& DescriptionOf(Tag<CEvents>) { return kCollection<CEvent>; }
const Class& DescriptionOf(Tag<CFolders>) { return kCollection<CFolder>; }
const Class& DescriptionOf(Tag<CNotes>) { return kCollection<CNote>; }
const Class& DescriptionOf(Tag<CPhoneLogs>) { return kCollection<CPhoneLog>; }
const Class& DescriptionOf(Tag<CTags>) { return kCollection<CTag>; }
const Class& DescriptionOf(Tag<CTasks>) { return kCollection<CTask>; }
const Class& DescriptionOf(Tag<CUsers>) { return kCollection<CUser>; }

}  // namespace zef::component
