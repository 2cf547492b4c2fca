#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "platform/postgresql/postgresql_engine.h"
#include "session/session.h"
#include "tests/support/forwarding_engine.h"
#include "tests/support/server.h"

namespace zef::test {

/// Counts what takes a round trip by itself: statements, and the end of a transaction that has run one.
class StepCounter final : public ForwardingEngine {
 public:
  StepCounter(std::unique_ptr<Engine> engine, std::int64_t& steps)
      : ForwardingEngine(std::move(engine)), steps_(steps) {}

  Result Execute(const Command& command) override {
    ++steps_;
    used_ = TransactionDepth() > 0;
    return ForwardingEngine::Execute(command);
  }
  void CommitTrans() override {
    End();
    ForwardingEngine::CommitTrans();
  }
  void RollbackTrans() override {
    End();
    ForwardingEngine::RollbackTrans();
  }

 private:
  void End() {
    if (TransactionDepth() == 1 && std::exchange(used_, false)) ++steps_;
  }

  std::int64_t& steps_;
  bool used_ = false;
};

/// What is done while round trips are counted; false for a failure.
using Work = std::function<bool()>;

/// An operation with the round trips that it takes once its statements and tables are known.
struct Operation {
  const char* name;
  std::int64_t trips;
  /// Makes what the operation needs, which is not counted, and gives the operation.
  Work (*ready)(CSession& session);
};

/// A database on the server with one session.
class TripsTest : public testing::Test {
 protected:
  TripsTest() {
    session_->Connect2DatabaseCS(database_.ConnectionString());
    session_->conDBConnection->WrapEngine([&](std::unique_ptr<Engine> engine) {
      engine_ = &dynamic_cast<const PostgresqlEngine&>(*engine);
      return std::make_unique<StepCounter>(std::move(engine), steps_);
    });
  }

  /// Each operation is counted when it is done for the second time. It takes a trip for each of its steps, and no more.
  void ExpectTrips(std::span<const Operation> operations) {
    for (const Operation& operation : operations) {
      SCOPED_TRACE(operation.name);
      EXPECT_TRUE(operation.ready(*session_)()) << session_->GetEntireErrorDesc();
      const Work work = operation.ready(*session_);
      const std::int64_t trips = engine_->RoundTrips();
      const std::int64_t steps = steps_;
      EXPECT_TRUE(work()) << session_->GetEntireErrorDesc();
      EXPECT_EQ(engine_->RoundTrips() - trips, operation.trips);
      EXPECT_EQ(steps_ - steps, operation.trips);
    }
  }

 private:
  ServerDatabase database_{"9.2.4"};
  Ref<CSession> session_ = MakeRef<CSession>();
  const PostgresqlEngine* engine_ = nullptr;
  std::int64_t steps_ = 0;
};

}  // namespace zef::test
