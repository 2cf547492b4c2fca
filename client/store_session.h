#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "client/components.h"
#include "client/record_info.h"
#include "client/store.h"

/// What the files of the store share; for them alone.
namespace zef::client {

template <class Records>
auto InfosOf(const Records& records) {
  std::vector<decltype(InfoOf(*records.begin()))> infos;
  for (const auto& record : records) infos.push_back(InfoOf(record));
  return infos;
}

/// The value in the first column of the row that a record set stands at.
inline Value FirstValue(const Recordset& rows) { return rows.Fields->Item(0)->Value; }

/// The library's session, with a result for each operation that fails by raising.
class Store::Session {
 public:
  CSession it = Make<CSession>();
  DatabasePlace place;

  [[noreturn]] void RefuseAsRecorded(const std::string& otherwise) const {
    const std::string recorded = it.GetErrorDescription();
    Refuse(recorded.empty() ? otherwise : recorded);
  }

  void Require(bool done, const std::string& otherwise) const {
    if (!done) RefuseAsRecorded(otherwise);
  }

  /// The record, or the recorded failure.
  template <class Record>
  Record Made(Record record) const {
    if (!record) RefuseAsRecorded("A new identifier could not be drawn.");
    return record;
  }

  /// The texts in the first column of a select, empty for what is none.
  std::vector<std::string> Texts(const std::string& select) const {
    return Telling([&] {
      std::vector<std::string> texts;
      const Recordset rows = it.conDBConnection->Execute(select);
      for (; !rows.EndOfFile; rows.MoveNext()) {
        const Value value = FirstValue(rows);
        const auto* const text = std::get_if<std::string>(&value);
        texts.push_back(text == nullptr ? std::string() : *text);
      }
      return texts;
    });
  }

  std::int32_t Count(const char* table) const {
    return Telling([&] {
      return std::get<std::int32_t>(
          FirstValue(it.conDBConnection->Execute(fmt::format("SELECT Count(*) FROM {}", table))));
    });
  }

  std::vector<FolderInfo> Folders(const std::string& criteria) const {
    const auto folders = Make<CFolders>();
    Require(it.LoadFoldersWithCriteria(folders, criteria), "The folders could not be read.");
    return InfosOf(folders);
  }

  /// The record that was read, or why there is none.
  template <class Record>
  Record Existing(Record record, std::string_view kind, std::int32_t id) const {
    if (!record) RefuseAsRecorded(fmt::format("There is no {} {}.", kind, id));
    return record;
  }

  CEvent Event(std::int32_t id) const { return Existing(it.GetEvent(id), "event", id); }

  /// Raises for a database that another program has made.
  std::string Version() const {
    std::string version;
    std::string kind;
    const bool read = it.GetDBInfo(version, kind);
    if (!version.empty()) return version;
    const std::int32_t code = it.GetErrorCode();
    if (!read && code != kNoSuchTable && code != kItemNotFound) RefuseAsRecorded("");
    Refuse(place.IsFile() ? fmt::format("'{}' is a database, but none of zef's.", place.file)
                          : "The database is none of zef's.");
  }

  /// Runs steps in a transaction of the session, which is undone if they raise.
  template <class Steps>
  void InTransaction(Steps&& steps) const {
    Require(it.BeginTransaction(), "The database could not be locked for writing.");
    try {
      Telling(steps);
      Require(it.CommitTransaction(), "The changes could not be written.");
    } catch (const Failure&) {
      it.RollbackTransaction();
      throw;
    }
  }
};

}  // namespace zef::client
