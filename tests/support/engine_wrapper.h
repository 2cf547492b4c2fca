#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/connection.h"
#include "platform/engine.h"

namespace zef::test {

/// What the wrapper has seen and what it is to do; shared with the test.
struct EngineLog {
  std::vector<std::string> texts;  ///< statements as the classes sent them, transactions as BEGIN, COMMIT and ROLLBACK
  int fail_at = 0;                 ///< fails the n-th call from now on; 0 for none
  RunTimeError failure{FailureNumber::StatementError, "made to fail"};

  /// The statements without the transactions and without those of the sequences.
  std::vector<std::string> Statements() const;
};

/// Passes everything on to an engine, notes the texts and fails a chosen call before it reaches the engine.
class EngineWrapper final : public Engine {
 public:
  EngineWrapper(std::unique_ptr<Engine> engine, std::shared_ptr<EngineLog> log)
      : engine_(std::move(engine)), log_(std::move(log)) {}

  Result Execute(const Command& command) override {
    Note(std::string(command.text));
    return engine_->Execute(command);
  }
  void BeginTrans() override {
    Note("BEGIN");
    engine_->BeginTrans();
  }
  void CommitTrans() override {
    Note("COMMIT");
    engine_->CommitTrans();
  }
  /// Never fails on demand: a rollback is what follows a failure.
  void RollbackTrans() override {
    log_->texts.push_back("ROLLBACK");
    engine_->RollbackTrans();
  }
  int TransactionDepth() const override { return engine_->TransactionDepth(); }

 private:
  void Note(std::string text) {
    log_->texts.push_back(std::move(text));
    if (log_->fail_at > 0 && --log_->fail_at == 0) throw log_->failure;
  }

  std::unique_ptr<Engine> engine_;
  std::shared_ptr<EngineLog> log_;
};

/// Puts a wrapper around the connection's engine and gives its log.
inline std::shared_ptr<EngineLog> Watch(Connection& connection) {
  auto log = std::make_shared<EngineLog>();
  connection.WrapEngine(
      [&](std::unique_ptr<Engine> engine) { return std::make_unique<EngineWrapper>(std::move(engine), log); });
  return log;
}

inline std::vector<std::string> EngineLog::Statements() const {
  std::vector<std::string> statements;
  for (const std::string& text : texts) {
    const bool transaction = text == "BEGIN" || text == "COMMIT" || text == "ROLLBACK";
    if (!transaction && text.find("Sequences") == std::string::npos) statements.push_back(text);
  }
  return statements;
}

}  // namespace zef::test
