/// Damaged database files: a sound one, changed where the bytes say, is opened, read and written. Each step works or is
/// refused.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "calendar/event.h"
#include "fuzz/support/input.h"
#include "platform/connection.h"
#include "platform/recordset.h"
#include "platform/run_time_error.h"
#include "session/collections.h"
#include "session/session.h"
#include "tasks/task.h"
#include "tests/support/database.h"
#include "tests/support/random/choices.h"

namespace zef::fuzz {
namespace {

using Bytes = std::vector<char>;

constexpr const char* kTables[] = {"Sequences",     "_VersionInfo", "Users",    "lstTaskStatus", "lstTaskPriority",
                                   "lstStates",     "lstCountries", "Folders",  "Categories",    "Recurrences",
                                   "Notifications", "Attachements", "Events",   "ViewedEvents",  "Alarms",
                                   "ViewedAlarms",  "Tasks",        "Contacts", "PhoneLogs",     "Notes"};

void AddRecords(const Ref<CSession>& session) {
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(i);
    const std::string values = " VALUES (" + number + ", 9, '" + std::string(200, 'x') + number + "', Now())";
    session->conDBConnection->Execute("INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_Text, EVE_StartDate)" + values);
    session->conDBConnection->Execute("INSERT INTO Notes (NOT_ID, NOT_FolderID, NOT_Title, NOT_DateLastUpdate)" +
                                      values);
  }
}

Bytes SoundFile() {
  const test::Database database;
  {
    const Ref<CSession> session = database.OpenSession();
    AddRecords(session);
    session->DisconnectFromDatabase();
  }
  std::ifstream file(database.path(), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Changes single bytes and runs of them; most of what decides stands at the beginning of a page.
void Damage(Bytes& file, test::Choices& choices) {
  constexpr std::size_t kPage = 4096;
  while (!choices.AtEnd() && !file.empty()) {
    const std::size_t page = choices.Raw<std::uint8_t>() % (file.size() / kPage + 1) * kPage;
    const std::size_t offset = choices.OneIn(2) ? choices.Raw<std::uint8_t>() : choices.Raw<std::uint16_t>() % kPage;
    const std::size_t from = std::min(page + offset, file.size() - 1);
    const std::size_t length =
        std::min(choices.OneIn(4) ? choices.Raw<std::uint8_t>() : std::size_t{1}, file.size() - from);
    switch (choices.Below(8)) {
      case 0: file.resize(from); break;
      case 1: std::copy_n(file.begin(), length, file.begin() + static_cast<std::ptrdiff_t>(from)); break;
      default: std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(from), length, choices.Raw<char>()); break;
    }
  }
}

template <class Step>
void Try(Step step) {
  try {
    step();
  } catch (const RunTimeError&) {  // a refusal is an answer
  }
}

void ReadAll(Connection& connection, const std::string& table) {
  const Ref<Recordset> rows = connection.Execute("SELECT * FROM " + table);
  for (int row = 0; !rows->EndOfFile() && row < 1000; ++row) {
    for (int column = 0; column < rows->Fields().Count(); ++column) rows->ValueAt(column);
    rows->MoveNext();
  }
}

void Use(const std::string& path) {
  const Ref<CSession> session = MakeRef<CSession>();
  session->Connect2DatabaseCS("Provider=SQLite;Data Source=" + path);
  Connection& connection = *session->conDBConnection;
  for (const char* table : kTables) Try([&] { ReadAll(connection, table); });
  Try([&] { session->LoadEventsWithCriteria(MakeRef<CEvents>(), "EVE_Text LIKE '%1' ORDER BY EVE_StartDate"); });
  Try([&] { session->GetFolderID4Completedtasks(); });
  Try([&] {
    const Ref<CTask> task = session->CreateTask();
    if (!task) return;
    task->Name = "a task";
    task->DueDate = Date(45413);
    task->Save();
  });
  Try([&] { connection.Execute("UPDATE Notes SET NOT_Title='other' WHERE NOT_ID>3"); });
  Try([&] { connection.Execute("DELETE FROM Events WHERE EVE_ID>5"); });
  Try([&] { session->DisconnectFromDatabase(); });
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const zef::fuzz::Bytes sound = zef::fuzz::SoundFile();
  zef::fuzz::RunApart([=] {
    zef::fuzz::Bytes file = sound;
    zef::test::Choices choices(std::span(data, size));
    zef::fuzz::Damage(file, choices);
    std::ofstream("damaged.db", std::ios::binary).write(file.data(), static_cast<std::streamsize>(file.size()));
    zef::fuzz::Try([] { zef::fuzz::Use("damaged.db"); });
  });
  return 0;
}
