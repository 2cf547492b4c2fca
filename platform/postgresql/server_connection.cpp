#include "platform/postgresql/server_connection.h"

#include <utility>

#include "platform/postgresql/postgresql_error.h"

namespace zef {
namespace {

constexpr int kBinary = 1;

bool IsFailure(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE || status == PGRES_PIPELINE_ABORTED;
}

}  // namespace

ServerConnection::ServerConnection(ConnectionHandle connection, std::function<void()> make_room,
                                   std::string for_each_transaction)
    : connection_(std::move(connection)),
      make_room_(std::move(make_room)),
      for_each_transaction_(std::move(for_each_transaction)) {}

std::string_view ServerConnection::Setting(const char* name) const {
  const char* const value = PQparameterStatus(connection_.get(), name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

void ServerConnection::Defer(std::string command) { deferred_.push_back(std::move(command)); }

bool ServerConnection::TakeBack(std::string_view command) {
  if (deferred_.empty() || deferred_.back() != command) return false;
  deferred_.pop_back();
  return true;
}

void ServerConnection::Deallocate(const std::string& name) {
  if (!lost()) deallocated_.push_back("DEALLOCATE " + name);
}

void ServerConnection::Sent(int code) const {
  if (code == 0) throw ConnectionLost();
}

/// Begins a round trip with what was deferred. What forgets statements comes last: it cannot be done before a rollback
/// that a failed transaction waits for.
void ServerConnection::Open() {
  if (delivering_) make_room_();
  if (lost()) throw ConnectionLost();
  Sent(PQenterPipelineMode(connection_.get()));
  deferred_.insert(deferred_.end(), deallocated_.begin(), deallocated_.end());
  deallocated_.clear();
  ahead_ = 0;
  const bool inside = PQtransactionStatus(connection_.get()) != PQTRANS_IDLE;
  const bool begins = !deferred_.empty() && deferred_.front() == kBegin;
  if (!inside && !begins) SendAhead(for_each_transaction_);
  for (const std::string& command : std::exchange(deferred_, {})) {
    SendAhead(command);
    if (command == kBegin) SendAhead(for_each_transaction_);
  }
}

void ServerConnection::SendAhead(const std::string& command) {
  if (command.empty()) return;
  Sent(PQsendQueryParams(connection_.get(), command.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
  ++ahead_;
}

void ServerConnection::Sync() {
  Sent(PQpipelineSync(connection_.get()));
  ++round_trips_;
  delivering_ = true;
  PassOver(ahead_);
}

void ServerConnection::PassOver(int results) {
  for (int i = 0; i < results; ++i) {
    while (const ResultHandle result{PQgetResult(connection_.get())}) {
      if (IsFailure(result.get())) Fail(result.get());
    }
  }
}

/// Reads to the end of the round trip, so that the next one can begin.
void ServerConnection::End() {
  delivering_ = false;
  undo_late_failure_.clear();
  while (!lost()) {
    const ResultHandle result(PQgetResult(connection_.get()));
    if (result && PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC) break;
  }
  PQexitPipelineMode(connection_.get());
}

/// Whoever begins a statement undoes it if it fails at once. One that fails while its rows come, and with it the
/// transaction around it, is nobody's any more.
void ServerConnection::Fail(const PGresult* result) {
  deferred_.insert(deferred_.begin(), undo_late_failure_.begin(), undo_late_failure_.end());
  const RunTimeError failure = PostgresqlFailure(connection_.get(), result);
  End();
  throw failure;
}

void ServerConnection::UndoLateFailureBy(Commands commands) {
  if (delivering_ && undo_late_failure_.empty()) undo_late_failure_ = std::move(commands);
}

ResultHandle ServerConnection::Query(const std::string& text, const std::vector<std::string>& parameters, Form form) {
  std::vector<const char*> values;
  for (const std::string& parameter : parameters) values.push_back(parameter.c_str());
  Open();
  Sent(PQsendQueryParams(connection_.get(), text.c_str(), static_cast<int>(values.size()), nullptr, values.data(),
                         nullptr, nullptr, static_cast<int>(form)));
  Sync();
  ResultHandle result = Next();
  if (delivering_) Skip();
  return result;
}

void ServerConnection::RunScript(const std::string& text) {
  ++round_trips_;
  const ResultHandle result(PQexec(connection_.get(), text.c_str()));
  if (IsFailure(result.get())) throw PostgresqlFailure(connection_.get(), result.get());
}

void ServerConnection::Start(const Run& run) {
  Open();
  PGconn* const connection = connection_.get();
  if (run.text != nullptr) {
    Sent(PQsendPrepare(connection, run.name.c_str(), run.text->c_str(), 0, nullptr));
    ++ahead_;
  }
  Sent(PQsendQueryPrepared(connection, run.name.c_str(), run.parameters.count(), run.parameters.values(),
                           run.parameters.lengths(), run.parameters.formats(), kBinary));
  Sync();
  if (run.row_by_row) PQsetSingleRowMode(connection);
}

ResultHandle ServerConnection::Next() {
  if (!delivering_) return nullptr;
  ResultHandle result(PQgetResult(connection_.get()));
  if (result && IsFailure(result.get())) Fail(result.get());
  if (!result) {
    if (lost()) {
      delivering_ = false;
      throw ConnectionLost();
    }
    End();
  }
  return result;
}

void ServerConnection::Skip() {
  while (Next()) {
  }
}

}  // namespace zef
