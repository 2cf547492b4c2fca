#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "folders/folder.h"
#include "tests/support/process.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

using namespace std::chrono_literals;

std::string SaveFolder(const Database& database, const std::string& name) {
  const Ref<CSession> session = database.OpenSession();
  const Ref<CFolder> folder = session->CreateFolder();
  if (!folder) return session->GetEntireErrorDesc();
  folder->Name = name;
  return folder->Save() ? "saved" : session->GetEntireErrorDesc();
}

TEST(TwoClients, OneThatSavesWaitsForTheOthersTransaction) {
  const Database database;
  Process other([&] {
    std::this_thread::sleep_for(300ms);
    return SaveFolder(database, "Second");
  });
  const Ref<CSession> session = database.OpenSession();
  ASSERT_TRUE(session->BeginTransaction());
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Name = "First";
  EXPECT_TRUE(folder->Save());
  std::this_thread::sleep_for(1s);
  EXPECT_EQ(Count(*session->conDBConnection, "Folders"), 12) << "the other one is still waiting";
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(other.Result(), "saved");
  EXPECT_EQ(Count(*session->conDBConnection, "Folders"), 13);
}

TEST(TwoClients, ThatSaveManyTimesAtOnceBothSucceed) {
  const Database database;
  const auto save_many = [&](const std::string& name) {
    for (int i = 0; i < 40; ++i) {
      if (const std::string result = SaveFolder(database, name + std::to_string(i)); result != "saved") return result;
    }
    return std::string("saved");
  };
  Process first([&] { return save_many("First"); });
  Process second([&] { return save_many("Second"); });
  EXPECT_EQ(first.Result(), "saved");
  EXPECT_EQ(second.Result(), "saved");
  EXPECT_EQ(Count(*database.Connect(), "Folders WHERE FLD_ID>12"), 80);
}

TEST(TwoClients, ThatTakeOneNameAtOnceGiveItToOneOfThem) {
  const Database database;
  Process first([&] { return SaveFolder(database, "Wanted"); });
  Process second([&] { return SaveFolder(database, "Wanted"); });
  const std::string refused = "[CFolder.Save] Error: 1000 - A folder with this name already exists";
  const bool first_won = first.Result() == "saved";
  EXPECT_EQ(second.Result(), first_won ? refused : "saved");
  EXPECT_EQ(Count(*database.Connect(), "Folders WHERE FLD_Name='Wanted'"), 1);
}

TEST(TwoClients, OneThatDiesInATransactionLeavesNothingOfIt) {
  const Database database;
  Process dying([&]() -> std::string {
    const Ref<CSession> session = database.OpenSession();
    session->BeginTransaction();
    const Ref<CFolder> folder = session->GetFolder(8);
    folder->Name = "Half done";
    folder->Save();
    std::abort();
  });
  EXPECT_EQ(dying.Result(), "");
  EXPECT_EQ(database.OpenSession()->GetFolder(8)->Name.get(), "Birthdays");
}

TEST(TwoClients, OneSeesWhatTheOtherHasCommitted) {
  const Database database;
  const Ref<CSession> first = database.OpenSession(), second = database.OpenSession();
  EXPECT_EQ(second->GetFolder(8)->Name.get(), "Birthdays");
  const Ref<CFolder> folder = first->GetFolder(8);
  folder->Name = "Feasts";
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(second->GetFolder(8)->Name.get(), "Feasts");
}

TEST(TwoClients, ReadingDoesNotWaitForATransaction) {
  const Database database;
  const Ref<CSession> first = database.OpenSession(), second = database.OpenSession();
  first->BeginTransaction();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(second->GetFolder(8));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(TwoClients, HaveErrorRecordsOfTheirOwn) {
  const Database database;
  const Ref<CSession> first = database.OpenSession(), second = database.OpenSession();
  first->RecordError("First", 77, "seven");
  EXPECT_FALSE(second->GetErrorFlag());
}

}  // namespace
}  // namespace zef::test
