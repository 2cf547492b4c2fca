#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstdlib>

#include "folders/folder.h"
#include "tests/support/process.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

std::string SaveFolder(const Database& database, const std::string& name) {
  const Ref<CSession> session = database.OpenSession();
  const Ref<CFolder> folder = session->CreateFolder();
  if (!folder) return session->GetEntireErrorDesc();
  folder->Name = name;
  return folder->Save() ? "saved" : session->GetEntireErrorDesc();
}

/// Lets one process wait until another one has given the sign.
class Sign {
 public:
  Sign() { EXPECT_EQ(pipe(ends_.data()), 0); }
  ~Sign() {
    for (const int end : ends_) close(end);
  }
  Sign(const Sign&) = delete;
  Sign& operator=(const Sign&) = delete;

  void Give() { EXPECT_EQ(write(ends_[1], "!", 1), 1); }
  void Await() {
    char sign = 0;
    EXPECT_EQ(read(ends_[0], &sign, 1), 1);
  }

 private:
  std::array<int, 2> ends_{};
};

TEST(TwoClients, OneThatSavesWaitsForTheOthersTransaction) {
  const Database database;
  Sign transaction_runs, saving;
  Process other([&] {
    transaction_runs.Await();
    saving.Give();
    return SaveFolder(database, "Second");
  });
  const Ref<CSession> session = database.OpenSession();
  ASSERT_TRUE(session->BeginTransaction());
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Name = "First";
  EXPECT_TRUE(folder->Save());
  transaction_runs.Give();
  saving.Await();
  EXPECT_EQ(Count(*session->conDBConnection, "Folders"), 12) << "the other one cannot be done yet";
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

TEST(TwoClients, ThatTakeManyNamesAtOnceGiveEachToOneOfThem) {
  constexpr int kNames = 40;
  const Database database;
  Sign first_ready[kNames], second_ready[kNames];
  const auto take_all = [&](Sign* mine, Sign* other) {
    const Ref<CSession> session = database.OpenSession();
    int taken = 0;
    for (int i = 0; i < kNames; ++i) {
      const Ref<CFolder> folder = session->CreateFolder();
      folder->Name = "Wanted " + std::to_string(i);
      mine[i].Give();
      other[i].Await();
      if (folder->Save()) ++taken;
    }
    return std::to_string(taken);
  };
  Process first([&] { return take_all(first_ready, second_ready); });
  Process second([&] { return take_all(second_ready, first_ready); });
  EXPECT_EQ(std::stoi(first.Result()) + std::stoi(second.Result()), kNames);
  EXPECT_EQ(Count(*database.Connect(), "Folders WHERE FLD_Name LIKE 'Wanted %'"), kNames);
}

TEST(TwoClients, ThatRaiseOneNumberInTransactionsLoseNoRaise) {
  constexpr int kTimes = 40;
  const Database database;
  const auto raise = [&] {
    const Ref<CSession> session = database.OpenSession();
    for (int i = 0; i < kTimes; ++i) {
      session->BeginTransaction();
      const Ref<CFolder> folder = session->GetFolder(8);
      if (!folder) return session->GetEntireErrorDesc();
      folder->Options = folder->Options + 1;
      if (!folder->Save() || !session->CommitTransaction()) return session->GetEntireErrorDesc();
    }
    return std::string("done");
  };
  const std::int32_t before = database.OpenSession()->GetFolder(8)->Options;
  Process first(raise), second(raise);
  EXPECT_EQ(first.Result(), "done");
  EXPECT_EQ(second.Result(), "done");
  EXPECT_EQ(database.OpenSession()->GetFolder(8)->Options, before + 2 * kTimes);
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
  const Ref<CFolder> folder = first->GetFolder(8);
  folder->Name = "Feasts";
  EXPECT_TRUE(folder->Save());
  const Ref<CFolder> read = second->GetFolder(8);
  ASSERT_TRUE(read) << "it has waited in vain for the transaction, which only this very thread can end";
  EXPECT_EQ(read->Name.get(), "Birthdays");
}

TEST(TwoClients, HaveErrorRecordsOfTheirOwn) {
  const Database database;
  const Ref<CSession> first = database.OpenSession(), second = database.OpenSession();
  first->RecordError("First", 77, "seven");
  EXPECT_FALSE(second->GetErrorFlag());
}

}  // namespace
}  // namespace zef::test
