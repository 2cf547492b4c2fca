#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "client/record_values.h"
#include "session/collections.h"
#include "session/property.h"
#include "session/session.h"

/// The library's classes of record as tables of data, for the store alone.
namespace zef::client {

/// A property that is no plain one of its class: it is worked out, belongs to a child, or is a secret. Without `set` it
/// is only read, without `get` only written.
template <class R>
struct Derived {
  PropertyType type;
  PropertyValue (*get)(const R&);
  void (*set)(R&, const PropertyValue&) = nullptr;
};

template <class R>
using Access = std::variant<std::int32_t R::*, Property<std::int32_t> R::*, Property<bool> R::*, Property<Date> R::*,
                            Property<std::string> R::*, Derived<R>>;

template <class R>
struct Member {
  std::string_view name;
  Access<R> access;
  bool kept = false;  ///< the library's or the system's; users only read it
};

/// A class of record: its members by name, and the operations of the session on it.
template <class R>
struct RecordClass {
  std::string_view name;  ///< for people
  std::span<const Member<R>> members;
  std::string_view folder_column;  ///< empty if its records lie in no folder
  std::string_view order;          ///< of lists
  Ref<R> (CSession::*get)(std::int32_t);
  Ref<R> (CSession::*create)();  ///< null if a client makes the record by itself
  bool (CSession::*load)(const Ref<Collection<R>>&, const std::string&);
  bool (CSession::*remove)(std::int32_t);
  bool (R::*save_to_file)(const std::string&) const = nullptr;  ///< null if its records are not exported by themselves
};

extern const RecordClass<CFolder> kFolderClass;
extern const RecordClass<CTask> kTaskClass;
extern const RecordClass<CEvent> kEventClass;
extern const RecordClass<CContact> kContactClass;
extern const RecordClass<CNote> kNoteClass;
extern const RecordClass<CAlarm> kAlarmClass;
extern const RecordClass<CPhoneLog> kCallClass;
extern const RecordClass<CCategory> kCategoryClass;
extern const RecordClass<CUser> kUserClass;

/// Calls `use` with the class of a type.
template <class Use>
auto WithClass(RecordType type, Use&& use) {
  switch (type) {
    case RecordType::Folder: return use(kFolderClass);
    case RecordType::Task: return use(kTaskClass);
    case RecordType::Event: return use(kEventClass);
    case RecordType::Contact: return use(kContactClass);
    case RecordType::Note: return use(kNoteClass);
    case RecordType::Alarm: return use(kAlarmClass);
    case RecordType::Call: return use(kCallClass);
    case RecordType::Category: return use(kCategoryClass);
    case RecordType::User: break;
  }
  return use(kUserClass);
}

}  // namespace zef::client
