#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "session/session.h"
#include "tasks/task.h"
#include "tests/many_clients/account.h"
#include "tests/many_clients/client.h"
#include "tests/many_clients/invariants.h"
#include "tests/support/database.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

using namespace std::chrono_literals;

/// Clients in processes of their own on one database, of which some die in the midst of their work.
class ManyClients : public testing::Test {
 protected:
  ManyClients() {
    const Ref<CSession> session = database_.OpenSession();
    const Ref<CTask> task = session->CreateTask();
    task->Name = "Counted by all";
    EXPECT_TRUE(task->Save());
    shared_task_ = task->ID;
  }

  /// A client that works until it is told to end.
  void Start() {
    const std::size_t place = clients_.size();
    clients_.push_back(std::make_unique<Process>([this, place] { return WorkOf(place); }, kSecondsToLive));
  }
  std::string WorkOf(std::size_t place) {
    Account& account = accounts_[place];
    try {
      Client client(database_, static_cast<unsigned>(place + 1), shared_task_, account);
      while (!accounts_.closing()) client.Work();
    } catch (...) {
      account.ended = true;
      throw;
    }
    return "done";
  }
  void WaitForOperations(std::size_t place, std::int64_t operations) {
    const Account& account = accounts_[place];
    while (account.operations < operations && !account.ended) std::this_thread::sleep_for(1ms);
  }
  /// Ends one client at once and puts another in its place.
  void Replace(std::size_t place) {
    clients_[place]->Kill();
    EXPECT_EQ(clients_[place]->Result(), "") << "it had found a fault";
    ++deaths_;
    Start();
  }
  void EndAll() {
    accounts_.closing() = true;
    for (const auto& client : clients_) {
      const std::string result = client->Result();
      EXPECT_TRUE(result.empty() || result == "done") << result;
    }
  }
  std::int64_t Sum(std::atomic<std::int64_t> Account::*field) {
    std::int64_t sum = 0;
    for (std::size_t place = 0; place < clients_.size(); ++place) sum += accounts_[place].*field;
    return sum;
  }
  void ExpectSound() {
    const Ref<Connection> connection = database_.Connect();
    EXPECT_EQ(BrokenInvariants(*connection), "");
    const std::string raised =
        test::Scalar(*connection, "SELECT TSK_Completed FROM Tasks WHERE TSK_ID=" + std::to_string(shared_task_));
    EXPECT_GE(std::stoll(raised), Sum(&Account::raises_done)) << "an update is lost";
    EXPECT_LE(std::stoll(raised), Sum(&Account::raises_begun));
  }

  static constexpr unsigned kSecondsToLive = 200;
  Database database_;
  Accounts accounts_;
  std::int32_t shared_task_ = 0;
  std::vector<std::unique_ptr<Process>> clients_;
  int deaths_ = 0;
};

TEST_F(ManyClients, OfWhichSomeDieLeaveASoundDatabase) {
  constexpr std::size_t kClients = 4;
  for (std::size_t i = 0; i < kClients; ++i) Start();
  for (std::size_t place = 0; place < kClients; ++place) {
    WaitForOperations(place, 20 + 7 * static_cast<std::int64_t>(place));
    Replace(place);
  }
  for (std::size_t place = kClients; place < clients_.size(); ++place) WaitForOperations(place, 30);
  EndAll();
  ExpectSound();
  EXPECT_GT(Sum(&Account::raises_done), 0);
}

/// The proof at full size, run by bench/many_clients.sh. How often a client dies depends on the machine.
TEST_F(ManyClients, DISABLED_SixteenForAMinuteLeaveASoundDatabase) {
  constexpr std::size_t kClients = 16;
  constexpr auto kTime = 60s;
  std::mt19937 random(1);
  for (std::size_t i = 0; i < kClients; ++i) Start();
  const auto begin = std::chrono::steady_clock::now();
  std::vector<std::size_t> living(kClients);
  for (std::size_t i = 0; i < kClients; ++i) living[i] = i;
  while (std::chrono::steady_clock::now() - begin < kTime && !HasFailure()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution<>(100, 1000)(random)));
    std::size_t& place = living[std::uniform_int_distribution<std::size_t>(0, kClients - 1)(random)];
    if (accounts_[place].operations == 0) continue;  // still busy with its first folders
    Replace(place);
    place = clients_.size() - 1;
  }
  EndAll();
  ExpectSound();
  std::printf(
      "%d clients at a time for %lld s: %lld operations, %lld of them refused, %lld raises of one number; %d deaths\n",
      static_cast<int>(kClients), static_cast<long long>(kTime.count()),
      static_cast<long long>(Sum(&Account::operations)), static_cast<long long>(Sum(&Account::refused)),
      static_cast<long long>(Sum(&Account::raises_done)), deaths_);
}

}  // namespace
}  // namespace zef::test
