#include "platform/recordset.h"

#include <algorithm>

#include "platform/ignoring_failures.h"
#include "platform/text.h"
#include "platform/transaction_guard.h"

namespace zef {
namespace {

using SetFields = std::vector<std::pair<int, Value>>;

std::string Bracketed(std::string_view name) { return "[" + std::string(name) + "]"; }

const Value* FindField(const SetFields& fields, int position) {
  for (const auto& [set, value] : fields) {
    if (set == position) return &value;
  }
  return nullptr;
}

void SetField(SetFields& fields, int position, Value value) {
  for (auto& [set, old] : fields) {
    if (set == position) {
      old = std::move(value);
      return;
    }
  }
  fields.emplace_back(position, std::move(value));
}

}  // namespace

const std::string& Field::Name() const {
  return recordset_->OpenShape().columns()[static_cast<std::size_t>(position_)].name;
}

Value Field::Value() const { return recordset_->ValueAt(position_); }

void Field::SetValue(zef::Value value) { recordset_->Set(position_, std::move(value)); }

std::int32_t Field::ActualSize() const {
  const zef::Value& value = recordset_->Portions(position_).value;
  if (const auto* text = std::get_if<std::string>(&value)) return static_cast<std::int32_t>(text::Length(*text));
  if (const auto* bytes = std::get_if<Bytes>(&value)) return static_cast<std::int32_t>(bytes->size());
  return IsNull(value) ? 0 : static_cast<std::int32_t>(sizeof(double));
}

Value Field::GetChunk(std::int32_t length) {
  auto& [position, value, fetched] = recordset_->Portions(position_);
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string_view chunk = text::Left(std::string_view(*text).substr(fetched), length);
    fetched += chunk.size();
    return chunk.empty() ? zef::Value(Null{}) : zef::Value(std::string(chunk));
  }
  const auto* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr || fetched >= bytes->size()) return Null{};
  const auto first = bytes->begin() + static_cast<std::ptrdiff_t>(fetched);
  const auto count = std::min(bytes->size() - fetched, static_cast<std::size_t>(std::max(length, 0)));
  fetched += count;
  return Bytes(first, first + static_cast<std::ptrdiff_t>(count));
}

std::int32_t Fields::Count() const { return static_cast<std::int32_t>(recordset_->OpenShape().columns().size()); }

Field Fields::Item(std::string_view name) const {
  const int position = recordset_->OpenShape().Position(name);
  if (position < 0) throw RunTimeError(FailureNumber::ItemNotFound);
  return Field(*recordset_, position);
}

Field Fields::Item(std::int32_t index) const {
  if (index < 0 || index >= Count()) throw RunTimeError(FailureNumber::ItemNotFound);
  return Field(*recordset_, index);
}

Recordset::~Recordset() {
  cursor_.reset();
  // Closing the connection has undone an own transaction; there is nobody to tell if undoing it here fails.
  if (lock_ != 0 && IsConnected()) IgnoringFailures([&] { ReleaseLock(false); });
}

void Recordset::Open(const std::string& source, const Ref<Connection>& connection, std::int32_t cursor_type,
                     std::int32_t lock_type, std::int32_t options) {
  if (IsOpen()) throw RunTimeError(FailureNumber::ObjectOpen);
  Connection& opened = Deref(connection);
  cursor_.reset();  // of a connection that was closed
  LeaveRow();
  lock_ = 0;
  const bool table = options > 0 && (options & adCmdTable) != 0;
  const std::string text = table ? "SELECT * FROM " + Bracketed(source) : source;
  const bool pessimistic = lock_type == adLockPessimistic;
  // A pessimistic record set outside a transaction brings one of its own, which ends with `Update` or `Close`.
  TransactionGuard lock(opened, pessimistic && opened.OpenedEngine().TransactionDepth() == 0);
  const bool writable = pessimistic || lock_type == adLockOptimistic;
  Result result = opened.Run({.text = text,
                              .options = {.updatable = writable, .lock_rows = pessimistic},
                              .request = {cursor_type, lock_type, options}});
  if (!result.cursor) return lock.Commit();
  Attach(connection, std::move(result.cursor));
  writable_ = writable;
  if (lock.Keep()) lock_ = opened.NewestTransaction();
}

void Recordset::Attach(const Ref<Connection>& connection, std::unique_ptr<Cursor> cursor) {
  at_end_ = !connection->Guarded([&] { return cursor->Next(); });
  connection_ = connection;
  opening_ = connection->Opening();
  cursor_ = std::move(cursor);
}

void Recordset::ReleaseLock(bool keep) {
  if (lock_ == 0) return;
  const int depth = connection_->OpenedEngine().TransactionDepth();
  const bool still_open = depth > 0 && connection_->NewestTransaction() == lock_;
  if (still_open && depth > 1) return;
  lock_ = 0;
  if (!still_open) return;
  keep ? connection_->CommitTrans() : connection_->RollbackTrans();
}

void Recordset::LeaveRow() {
  pending_.clear();
  written_.clear();
  portioned_.clear();
  adding_ = inserted_ = false;
}

void Recordset::Close() {
  OpenShape();
  cursor_.reset();
  LeaveRow();
  ReleaseLock(false);
  connection_.reset();
}

const RowShape& Recordset::OpenShape() const {
  if (!IsOpen()) throw RunTimeError(FailureNumber::ObjectClosed);
  return cursor_->shape();
}

bool Recordset::EndOfFile() const {
  OpenShape();
  return at_end_ && !adding_;
}

void Recordset::RequireRow() const {
  OpenShape();
  if (at_end_ && !adding_) throw RunTimeError(FailureNumber::NoCurrentRecord);
}

void Recordset::MoveNext() {
  RequireRow();
  LeaveRow();
  at_end_ = true;  // also behind a row that cannot be read
  at_end_ = !connection_->Guarded([&] { return cursor_->Next(); });
}

std::int32_t Recordset::RecordCount() {
  OpenShape();
  return static_cast<std::int32_t>(connection_->Guarded([&] { return cursor_->CountRows(); }));
}

Positions Recordset::Positions(ColumnNames names) const { return OpenShape().Positions(names); }

std::size_t Recordset::Fill(zef::Positions columns, std::span<const Slot> slots) const {
  return IsUntouched() ? cursor_->Fill(columns, slots) : 0;
}

Value Recordset::ValueAt(int position) const {
  if (!IsUntouched()) RequireRow();
  if (const Value* value = FindField(pending_, position)) return *value;
  return StoredValue(position);
}

Value Recordset::StoredValue(int position) const {
  if (const Value* value = FindField(written_, position)) return *value;
  Value value;
  if (!adding_) connection_->Guarded([&] { cursor_->Read({&position, 1}, {&value, 1}); });
  return value;
}

Recordset::Portioned& Recordset::Portions(int position) {
  for (Portioned& one : portioned_) {
    if (one.position == position) return one;
  }
  return portioned_.emplace_back(Portioned{position, ValueAt(position)});
}

void Recordset::Set(int position, Value value) {
  RequireRow();
  std::erase_if(portioned_, [&](const Portioned& one) { return one.position == position; });
  SetField(pending_, position, std::move(value));
}

void Recordset::AddNew() {
  OpenShape();
  LeaveRow();
  cursor_->GiveUp();
  at_end_ = true;
  adding_ = true;
}

void Recordset::Update() {
  RequireRow();
  const bool insert = adding_ && !inserted_;
  const bool writable = writable_ && !OpenShape().statement().table.empty();
  if (writable && pending_.empty() && !insert) return;
  connection_->Guarded([&] {
    if (!writable) {
      throw RunTimeError(FailureNumber::FileUnusable,
                         "The record set cannot be written: it was not opened for that, or its rows have no identity.");
    }
    insert ? InsertRow() : UpdateRow();
  });
  inserted_ = adding_;
  if (written_.empty()) written_.swap(pending_);
  for (auto& [position, value] : pending_) SetField(written_, position, std::move(value));
  pending_.clear();
  ReleaseLock(true);
}

}  // namespace zef
