#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "ZEFComponents.hpp"
#include "client/record_values.h"

/// The library's classes of record as tables of data, for the store alone.
namespace zef::client {

/// A property of a class of record, by its name. Without `get` it is a secret, without `set` it is worked out.
template <class R>
struct Member {
  std::string_view name;
  PropertyType type;
  PropertyValue (*get)(const R&);
  void (*set)(R&, const PropertyValue&) = nullptr;
  bool kept = false;  ///< the library's or the system's; users only read it
};

/// A class of record: its members by name, and the operations of the session on it.
template <class R, class Records>
struct RecordClass {
  std::string_view name;  ///< for people
  std::span<const Member<R>> members;
  std::string_view folder_column;  ///< empty if its records lie in no folder
  std::string_view order;          ///< of lists
  R (*get)(const CSession&, const std::int32_t& id);
  R (*create)(const CSession&);  ///< null if a client makes the record by itself
  bool (*load)(const CSession&, const Records&, const std::string& criteria);
  bool (*remove)(const CSession&, const std::int32_t& id);
  bool (*save_to_file)(const R&, const std::string& path) = nullptr;  ///< null if it is not exported by itself
};

extern const RecordClass<CFolder, CFolders> kFolderClass;
extern const RecordClass<CTask, CTasks> kTaskClass;
extern const RecordClass<CEvent, CEvents> kEventClass;
extern const RecordClass<CContact, CContacts> kContactClass;
extern const RecordClass<CNote, CNotes> kNoteClass;
extern const RecordClass<CAlarm, CAlarms> kAlarmClass;
extern const RecordClass<CPhoneLog, CPhoneLogs> kCallClass;
extern const RecordClass<CCategory, CCategories> kCategoryClass;
extern const RecordClass<CUser, CUsers> kUserClass;

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
