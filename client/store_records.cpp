#include <algorithm>
#include <type_traits>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "client/number_words.h"
#include "client/place_file.h"
#include "client/record_classes.h"
#include "client/store_session.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "tasks/task.h"
#include "users/user.h"

/// Records of any type by the names of their properties.
namespace zef::client {
namespace {

template <class T>
constexpr PropertyType kTypeOf = PropertyType::Number;
template <>
constexpr PropertyType kTypeOf<bool> = PropertyType::Flag;
template <>
constexpr PropertyType kTypeOf<Date> = PropertyType::Date;
template <>
constexpr PropertyType kTypeOf<std::string> = PropertyType::Text;

/// What can be done with each way in which a class holds a property.
template <class R>
struct Reading {
  const R& record;

  PropertyValue operator()(std::int32_t R::*field) const { return record.*field; }
  template <class T>
  PropertyValue operator()(Property<T> R::*property) const {
    return (record.*property).get();
  }
  PropertyValue operator()(const Derived<R>& derived) const { return derived.get(record); }
};

template <class R>
struct Writing {
  R& record;
  const PropertyValue& value;

  void operator()(std::int32_t R::*field) const { record.*field = std::get<std::int32_t>(value); }
  template <class T>
  void operator()(Property<T> R::*property) const {
    record.*property = std::get<T>(value);
  }
  void operator()(const Derived<R>& derived) const {
    if (derived.set != nullptr) derived.set(record, value);
  }
};

template <class R>
struct Typing {
  PropertyType operator()(std::int32_t R::*) const { return PropertyType::Number; }
  template <class T>
  PropertyType operator()(Property<T> R::*) const {
    return kTypeOf<T>;
  }
  PropertyType operator()(const Derived<R>& derived) const { return derived.type; }
};

template <class R>
PropertyInfo InfoOf(RecordType type, const Member<R>& member) {
  const auto* const derived = std::get_if<Derived<R>>(&member.access);
  const bool read_only = member.kept || (derived != nullptr && derived->set == nullptr);
  return {member.name, std::visit(Typing<R>{}, member.access), read_only, WordsOf(type, member.name)};
}

/// False for a secret.
template <class R>
bool IsReadable(const Member<R>& member) {
  const auto* const derived = std::get_if<Derived<R>>(&member.access);
  return derived == nullptr || derived->get != nullptr;
}

template <class R>
RecordValues ValuesOf(RecordType type, const RecordClass<R>& known, const R& record) {
  RecordValues values{type, {}};
  for (const Member<R>& member : known.members) {
    if (!IsReadable(member)) continue;
    values.properties.emplace_back(member.name, std::visit(Reading<R>{record}, member.access));
  }
  return values;
}

template <class R>
void Assign(const RecordClass<R>& known, R& record, const std::vector<Assignment>& assignments) {
  for (const auto& [name, value] : assignments) {
    const auto member = std::find_if(known.members.begin(), known.members.end(),
                                     [&name = name](const Member<R>& m) { return m.name == name; });
    std::visit(Writing<R>{record, value}, member->access);
  }
}

/// A call that was not dated took place now. Calls are the one class that does not note by itself when it was changed.
template <class R>
void Stamp(R& record) {
  if constexpr (std::is_same_v<R, CPhoneLog>) {
    if (record.RecordDate->IsZero()) record.RecordDate = Now();
    record.DateLastUpdate = Now();
  }
}

template <class R>
Ref<R> Create(CSession& session, const RecordClass<R>& known) {
  if (known.create != nullptr) return (session.*known.create)();
  auto record = MakeRef<R>();
  record->SetSession(Ref<CSession>(&session));
  return record;
}

template <class R>
Ref<R> Found(const Store::Session& session, const RecordClass<R>& known, std::int32_t id) {
  return session.Existing((*session.it.*known.get)(id), known.name, id);
}

template <class R>
std::string CouldNotBeSaved(const RecordClass<R>& known) {
  return fmt::format("The {} could not be saved, perhaps because a folder of the system is missing.", known.name);
}

/// The client's condition, that of a folder and the order as one.
template <class R>
std::string Criteria(const RecordClass<R>& known, const std::optional<FolderInfo>& folder, const std::string& where) {
  std::vector<std::string> conditions;
  if (folder && !folder->shows_all) conditions.push_back(fmt::format("{}={}", known.folder_column, folder->id));
  if (!where.empty()) conditions.push_back(fmt::format("({})", where));
  const std::string condition = fmt::format("{}", fmt::join(conditions, " AND "));
  if (known.order.empty()) return condition;
  return fmt::format("{} ORDER BY {}", condition.empty() ? "1=1" : condition, known.order);
}

}  // namespace

std::vector<PropertyInfo> PropertiesOf(RecordType type) {
  return WithClass(type, [type](const auto& known) {
    std::vector<PropertyInfo> infos;
    for (const auto& member : known.members) infos.push_back(InfoOf(type, member));
    return infos;
  });
}

std::vector<RecordValues> Store::Records(RecordType type, const std::optional<FolderInfo>& folder,
                                         const std::string& condition) {
  return WithClass(type, [&]<class R>(const RecordClass<R>& known) {
    const auto records = MakeRef<Collection<R>>();
    session_->Require((*session_->it.*known.load)(records, Criteria(known, folder, condition)),
                      "The records could not be read.");
    std::vector<RecordValues> all;
    for (const Ref<R>& record : *records) all.push_back(ValuesOf(type, known, *record));
    return all;
  });
}

RecordValues Store::Record(RecordType type, std::int32_t id) {
  return WithClass(type, [&](const auto& known) { return ValuesOf(type, known, *Found(*session_, known, id)); });
}

RecordValues Store::AddRecord(RecordType type, const std::vector<Assignment>& values) {
  return WithClass(type, [&]<class R>(const RecordClass<R>& known) {
    const Ref<R> record = Telling([&] { return session_->Made(Create(*session_->it, known)); });
    Assign(known, *record, values);
    Stamp(*record);
    session_->Require(record->Save(), CouldNotBeSaved(known));
    return Record(type, record->ID);
  });
}

RecordValues Store::SetRecord(RecordType type, std::int32_t id, const std::vector<Assignment>& values) {
  return WithClass(type, [&]<class R>(const RecordClass<R>& known) {
    session_->InTransaction([&] {  // so that nobody changes the row between reading and writing it
      const Ref<R> record = Found(*session_, known, id);
      Assign(known, *record, values);
      if (record->IsModified()) Stamp(*record);
      session_->Require(record->Save(), CouldNotBeSaved(known));
    });
    return Record(type, id);
  });
}

void Store::DeleteRecord(RecordType type, std::int32_t id) {
  WithClass(type, [&](const auto& known) {
    Found(*session_, known, id);
    session_->Require(Telling([&] { return (*session_->it.*known.remove)(id); }),
                      fmt::format("The {} could not be deleted.", known.name));
  });
}

bool CanBeExported(RecordType type) {
  return WithClass(type, [](const auto& known) { return known.save_to_file != nullptr; });
}

void Store::Export(RecordType type, std::int32_t id, const std::string& path, bool replace) {
  WithClass(type, [&]<class R>(const RecordClass<R>& known) {
    const Ref<R> record = Found(*session_, known, id);
    const auto write = [&](const std::string& place) {
      session_->Require((*record.*known.save_to_file)(place), "The file could not be written.");
    };
    if (replace) {
      write(path);
    } else {
      MakeNewFile(path, write);
    }
  });
}

}  // namespace zef::client
