#pragma once

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/connection.h"
#include "platform/engine.h"
#include "tests/support/forwarding_engine.h"

namespace zef::test {

/// How a record set was opened.
struct OpenedRecordset {
  std::string text;
  RowRequest request;
  sql::CompileOptions options;
};

/// What the wrapper has seen and what it is to do; shared with the test.
struct EngineLog {
  std::vector<std::string> texts;  ///< statements as the classes sent them, transactions as BEGIN, COMMIT and ROLLBACK,
                                   ///< and a question for a table's relationships as RELATIONSHIPS with its name
  std::vector<OpenedRecordset> opened;  ///< those of the statements that opened a record set of their own
  std::vector<std::string> by_row_id;   ///< those of the statements that find their row by its identity
  int fail_at = 0;                      ///< fails the n-th call from now on, rollbacks not counted; 0 for none
  std::string spared;                   ///< calls whose text begins like this are not counted either; empty for none
  std::vector<std::string> refused;     ///< fails every call whose text begins like one of these
  RunTimeError failure{FailureNumber::StatementError, "made to fail"};
  std::optional<RunTimeError> rollback_failure;  ///< of a refused ROLLBACK, if it has one of its own
  bool out_of_memory = false;                    ///< refused calls find no memory instead

  /// The statements without the transactions and without those of the sequences.
  std::vector<std::string> Statements() const;
};

/// Passes everything on to an engine, notes the texts and fails chosen calls before they reach the engine.
class EngineWrapper final : public ForwardingEngine {
 public:
  EngineWrapper(std::unique_ptr<Engine> engine, std::shared_ptr<EngineLog> log)
      : ForwardingEngine(std::move(engine)), log_(std::move(log)) {}

  Result Execute(const Command& command) override {
    if (command.request.cursor_type >= 0) {
      log_->opened.push_back({std::string(command.text), command.request, command.options});
    }
    if (command.options.by_row_id) log_->by_row_id.emplace_back(command.text);
    Note(std::string(command.text));
    return ForwardingEngine::Execute(command);
  }
  std::optional<std::vector<std::string>> Relationships(std::string_view table) override {
    Note("RELATIONSHIPS " + std::string(table));
    return ForwardingEngine::Relationships(table);
  }
  void BeginTrans() override {
    Note("BEGIN");
    ForwardingEngine::BeginTrans();
  }
  void CommitTrans() override {
    Note("COMMIT");
    ForwardingEngine::CommitTrans();
  }
  /// Is not counted: a rollback is what follows a failure.
  void RollbackTrans() override {
    log_->texts.push_back("ROLLBACK");
    RefuseIfAsked("ROLLBACK");
    ForwardingEngine::RollbackTrans();
  }

 private:
  bool Counts(std::string_view text) const { return log_->spared.empty() || !text.starts_with(log_->spared); }
  void RefuseIfAsked(std::string_view text) const {
    const bool refused = std::any_of(log_->refused.begin(), log_->refused.end(),
                                     [&](const std::string& beginning) { return text.starts_with(beginning); });
    if (!refused) return;
    if (log_->out_of_memory) throw std::bad_alloc();
    throw text == "ROLLBACK" ? log_->rollback_failure.value_or(log_->failure) : log_->failure;
  }
  void Note(std::string text) {
    log_->texts.push_back(std::move(text));
    RefuseIfAsked(log_->texts.back());
    if (log_->fail_at > 0 && Counts(log_->texts.back()) && --log_->fail_at == 0) throw log_->failure;
  }

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
