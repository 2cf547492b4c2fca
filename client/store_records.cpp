#include <algorithm>
#include <type_traits>

#include "client/number_words.h"
#include "client/place_file.h"
#include "client/record_classes.h"
#include "client/store_session.h"

/// Records of any type by the names of their properties.
namespace zef::client {
namespace {

template <class R>
PropertyInfo InfoOf(RecordType type, const Member<R>& member) {
  return {member.name, member.type, member.kept || member.set == nullptr, WordsOf(type, member.name)};
}

template <class R, class Records>
RecordValues ValuesOf(RecordType type, const RecordClass<R, Records>& known, const R& record) {
  RecordValues values{type, {}};
  for (const Member<R>& member : known.members) {
    if (member.get != nullptr) values.properties.emplace_back(member.name, member.get(record));
  }
  return values;
}

template <class R, class Records>
void Assign(const RecordClass<R, Records>& known, R& record, const std::vector<Assignment>& assignments) {
  for (const auto& [name, value] : assignments) {
    const auto member = std::find_if(known.members.begin(), known.members.end(),
                                     [&name = name](const Member<R>& m) { return m.name == name; });
    member->set(record, value);
  }
}

/// A call that was not dated took place now. Calls are the one class that does not note by itself when it was changed.
template <class R>
void Stamp(R& record) {
  if constexpr (std::is_same_v<R, CPhoneLog>) {
    if (record.RecordDate.get().IsZero()) record.RecordDate = Now();
    record.DateLastUpdate = Now();
  }
}

template <class R, class Records>
R Created(const Store::Session& session, const RecordClass<R, Records>& known) {
  if (known.create != nullptr) return session.Made(known.create(session.it));
  R record = Make<R>();
  record.Session = session.it;
  return record;
}

template <class R, class Records>
R Found(const Store::Session& session, const RecordClass<R, Records>& known, std::int32_t id) {
  return session.Existing(known.get(session.it, id), known.name, id);
}

template <class R, class Records>
std::string CouldNotBeSaved(const RecordClass<R, Records>& known) {
  return fmt::format("The {} could not be saved, perhaps because a folder of the system is missing.", known.name);
}

/// The client's condition, that of a folder and the order as one.
template <class R, class Records>
std::string Criteria(const RecordClass<R, Records>& known, const std::optional<FolderInfo>& folder,
                     const std::string& where) {
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
  return WithClass(type, [&]<class R, class Records>(const RecordClass<R, Records>& known) {
    const auto loaded = Make<Records>();
    session_->Require(known.load(session_->it, loaded, Criteria(known, folder, condition)),
                      "The records could not be read.");
    std::vector<RecordValues> all;
    for (const R& record : loaded) all.push_back(ValuesOf(type, known, record));
    return all;
  });
}

RecordValues Store::Record(RecordType type, std::int32_t id) {
  return WithClass(type, [&](const auto& known) { return ValuesOf(type, known, Found(*session_, known, id)); });
}

RecordValues Store::AddRecord(RecordType type, const std::vector<Assignment>& values) {
  return WithClass(type, [&]<class R, class Records>(const RecordClass<R, Records>& known) {
    R record = Telling([&] { return Created(*session_, known); });
    Assign(known, record, values);
    Stamp(record);
    session_->Require(record.Save(), CouldNotBeSaved(known));
    return Record(type, record.ID);
  });
}

RecordValues Store::SetRecord(RecordType type, std::int32_t id, const std::vector<Assignment>& values) {
  return WithClass(type, [&]<class R, class Records>(const RecordClass<R, Records>& known) {
    session_->InTransaction([&] {  // so that nobody changes the row between reading and writing it
      R record = Found(*session_, known, id);
      Assign(known, record, values);
      if (record.IsModified()) Stamp(record);
      session_->Require(record.Save(), CouldNotBeSaved(known));
    });
    return Record(type, id);
  });
}

void Store::DeleteRecord(RecordType type, std::int32_t id) {
  WithClass(type, [&](const auto& known) {
    Found(*session_, known, id);
    session_->Require(Telling([&] { return known.remove(session_->it, id); }),
                      fmt::format("The {} could not be deleted.", known.name));
  });
}

bool CanBeExported(RecordType type) {
  return WithClass(type, [](const auto& known) { return known.save_to_file != nullptr; });
}

void Store::Export(RecordType type, std::int32_t id, const std::string& path, bool replace) {
  WithClass(type, [&]<class R, class Records>(const RecordClass<R, Records>& known) {
    R record = Found(*session_, known, id);
    const auto write = [&](const std::string& place) {
      session_->Require(known.save_to_file(record, place), "The file could not be written.");
    };
    if (replace) {
      write(path);
    } else {
      MakeNewFile(path, write);
    }
  });
}

}  // namespace zef::client
