#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "client/failure.h"
#include "client/record_info.h"
#include "client/store.h"
#include "platform/recordset.h"
#include "session/collections.h"
#include "session/session.h"

/// What the files of the store share; for them alone.
namespace zef::client {

[[noreturn]] inline void Refuse(const std::string& sentence) { throw Failure(kRefused, sentence); }

/// Runs a step of the library; what it raises is told in its own words.
template <class Step>
auto Telling(Step&& step) -> decltype(step()) {
  try {
    return step();
  } catch (const RunTimeError& failure) {
    Refuse(failure.description());
  }
}

template <class Element>
auto InfosOf(const Collection<Element>& records) {
  std::vector<decltype(InfoOf(std::declval<const Element&>()))> infos;
  for (const Ref<Element>& record : records) infos.push_back(InfoOf(*record));
  return infos;
}

/// The library's session, with a result for each operation that fails by raising.
class Store::Session {
 public:
  Ref<CSession> it = MakeRef<CSession>();
  std::string file;
  std::string connection_string;
  bool encrypted = false;

  [[noreturn]] void RefuseAsRecorded(const std::string& otherwise) const {
    Refuse(it->GetErrorDescription().empty() ? otherwise : it->GetErrorDescription());
  }

  void Require(bool done, const std::string& otherwise) const {
    if (!done) RefuseAsRecorded(otherwise);
  }

  /// The record, or the recorded failure.
  template <class Record>
  Ref<Record> Made(Ref<Record> record) const {
    if (!record) RefuseAsRecorded("A new identifier could not be drawn.");
    return record;
  }

  /// The values of the first column of a select, as texts.
  std::vector<std::string> Texts(const std::string& select) const {
    return Telling([&] {
      std::vector<std::string> texts;
      const Ref<Recordset> rs = it->conDBConnection->Execute(select);
      for (; !rs->EndOfFile(); rs->MoveNext()) {
        const Value value = rs->ValueAt(0);
        texts.push_back(IsNull(value) ? std::string() : ToText(value));
      }
      return texts;
    });
  }

  std::int32_t Count(const char* table) const {
    return Telling([&] {
      return ToLong(it->conDBConnection->Execute(fmt::format("SELECT Count(*) FROM {}", table))->ValueAt(0));
    });
  }

  std::vector<FolderInfo> Folders(const std::string& criteria) const {
    const auto folders = MakeRef<CFolders>();
    Require(it->LoadFoldersWithCriteria(folders, criteria), "The folders could not be read.");
    return InfosOf(*folders);
  }

  /// The record that was read, or why there is none.
  template <class Record>
  Ref<Record> Existing(Ref<Record> record, std::string_view kind, std::int32_t id) const {
    if (!record) RefuseAsRecorded(fmt::format("There is no {} {}.", kind, id));
    return record;
  }

  Ref<CEvent> Event(std::int32_t id) const { return Existing(it->GetEvent(id), "event", id); }

  /// Raises for a database that another program has made.
  std::string Version() const {
    std::string version;
    std::string kind;
    const bool read = it->GetDBInfo(version, kind);
    if (!version.empty()) return version;
    const auto code = static_cast<FailureNumber>(read ? 0 : it->GetErrorCode());
    if (!read && code != FailureNumber::NoSuchTable && code != FailureNumber::ItemNotFound) RefuseAsRecorded("");
    Refuse(fmt::format("'{}' is a database, but none of zef's.", file));
  }

  /// Runs steps in a transaction of the session, which is undone if they raise.
  template <class Steps>
  void InTransaction(Steps&& steps) const {
    Require(it->BeginTransaction(), "The database could not be locked for writing.");
    try {
      Telling(steps);
      Require(it->CommitTransaction(), "The changes could not be written.");
    } catch (const Failure&) {
      it->RollbackTransaction();
      throw;
    }
  }
};

}  // namespace zef::client
