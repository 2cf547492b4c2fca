#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/engine.h"

namespace zef::test {

/// Passes everything on to an engine. What wraps one overrides the calls that it is about.
class ForwardingEngine : public Engine {
 public:
  explicit ForwardingEngine(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}

  Result Execute(const Command& command) override { return engine_->Execute(command); }
  std::optional<std::vector<std::string>> Relationships(std::string_view table) override {
    return engine_->Relationships(table);
  }
  void BeginTrans() override { engine_->BeginTrans(); }
  void CommitTrans() override { engine_->CommitTrans(); }
  void RollbackTrans() override { engine_->RollbackTrans(); }
  int TransactionDepth() const override { return engine_->TransactionDepth(); }

 private:
  std::unique_ptr<Engine> engine_;
};

}  // namespace zef::test
