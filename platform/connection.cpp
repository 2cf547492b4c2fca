#include "platform/connection.h"

#include "platform/connection_string.h"
#include "platform/recordset.h"

namespace zef {

const Error& Errors::Item(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw RunTimeError(FailureNumber::ItemNotFound);
  return entries_[static_cast<std::size_t>(index)];
}

void Connection::Open(const std::string& connection_string, const std::string& /*user*/, const std::string& password,
                      std::int32_t /*options*/) {
  if (engine_) throw RunTimeError(FailureNumber::ObjectOpen);
  engine_ = Guarded([&] {
    ConnectionString given = ParseConnectionString(connection_string);
    const bool has_password = !given.Get("Password").empty() || !given.Get("Jet OLEDB:Database Password").empty();
    if (!password.empty() && !has_password) given.parts.emplace_back("Password", password);
    return OpenEngine(given);
  });
  ++openings_;
}

void Connection::Close() {
  OpenedEngine();
  engine_.reset();
}

Engine& Connection::OpenedEngine() {
  if (!engine_) throw RunTimeError(FailureNumber::ObjectClosed);
  return *engine_;
}

std::int32_t Connection::BeginTrans() {
  Engine& engine = OpenedEngine();
  Guarded([&] { engine.BeginTrans(); });
  const int depth = engine.TransactionDepth();
  transactions_ += depth == 1 ? 1 : 0;
  return depth;
}

void Connection::CommitTrans() {
  Engine& engine = OpenedEngine();
  Guarded([&] { engine.CommitTrans(); });
}

void Connection::RollbackTrans() {
  Engine& engine = OpenedEngine();
  Guarded([&] { engine.RollbackTrans(); });
}

Result Connection::Run(const Command& command) {
  Engine& engine = OpenedEngine();
  return Guarded([&] { return engine.Execute(command); });
}

Ref<Recordset> Connection::Execute(const std::string& text, std::int32_t /*options*/) { return RowsOf({.text = text}); }

Ref<Recordset> Connection::ExecuteInTurn(const std::string& text, std::string_view turn) {
  return RowsOf({.text = text, .turn = turn});
}

Ref<Recordset> Connection::RowsOf(const Command& command) {
  auto recordset = MakeRef<Recordset>();  // first: nothing may fail once the statement has done its work
  Result result = Run(command);
  if (result.cursor) recordset->Attach(Ref<Connection>(this), std::move(result.cursor));
  return recordset;
}

void Connection::WrapEngine(const std::function<std::unique_ptr<Engine>(std::unique_ptr<Engine>)>& wrap) {
  OpenedEngine();
  engine_ = wrap(std::move(engine_));
}

}  // namespace zef
