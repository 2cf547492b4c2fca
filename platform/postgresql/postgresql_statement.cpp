#include "platform/postgresql/postgresql_statement.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#include "platform/ignoring_failures.h"

namespace zef {
namespace {

/// A portion ends with the first of these; most results are whole within one, and the connection is free at once.
constexpr std::size_t kPortionRows = 256;
constexpr std::size_t kPortionBytes = std::size_t{4} << 20;

}  // namespace

PostgresqlStatement::PostgresqlStatement(ServerConnection& connection, const sql::CompiledStatement& compiled,
                                         std::string name, std::string check)
    : connection_(connection),
      compiled_(compiled),
      name_(std::move(name)),
      check_(std::move(check)),
      parameters_(compiled.parameters) {}

PostgresqlStatement::~PostgresqlStatement() {
  if (prepared_ && !name_.empty()) connection_.Deallocate(name_);
}

/// Whatever `lasting` says: values are sent before the first row is waited for.
void PostgresqlStatement::Bind(int number, const Value& value, bool /*lasting*/) {
  parameters_.Set(static_cast<std::size_t>(number - 1), value);
}

void PostgresqlStatement::Start() {
  const bool select = compiled_.kind == sql::CompiledStatement::Kind::Select;
  rows_written_ = 0;
  row_id_.reset();
  if (!prepared_) connection_.Defer(check_);
  const bool known = prepared_ && !name_.empty();
  connection_.Start({name_, known ? nullptr : &compiled_.text, parameters_, select});
  prepared_ = started_ = delivering_ = true;
}

void PostgresqlStatement::TakeEnd(const PGresult* result) {
  const char* const rows = PQcmdTuples(const_cast<PGresult*>(result));
  std::from_chars(rows, rows + std::strlen(rows), rows_written_);
  if (PQntuples(result) == 0) return;
  ReadWireValue(result, 0, sql::Type::Unknown, row_id_.emplace());
}

void PostgresqlStatement::Take(ResultHandle result) {
  if (!result) {
    delivering_ = false;
  } else if (PQresultStatus(result.get()) == PGRES_SINGLE_TUPLE) {
    bytes_ += PQresultMemorySize(result.get());
    portion_.push_back(std::move(result));
  } else if (compiled_.kind != sql::CompiledStatement::Kind::Select) {
    TakeEnd(result.get());
  }
}

void PostgresqlStatement::ReadPortion() {
  portion_.clear();
  at_ = bytes_ = 0;
  while (delivering_ && portion_.size() < kPortionRows && bytes_ < kPortionBytes) Take(connection_.Next());
}

/// Lengthens the portion to the end, so that the connection is free.
void PostgresqlStatement::TakeRest() {
  while (delivering_) Take(connection_.Next());
}

/// A `*` of a statement that is read anew for each run takes in columns that a table has got meanwhile.
bool PostgresqlStatement::ColumnsHaveChanged() const {
  const std::size_t expected = compiled_.columns.size() + (compiled_.hidden_row_id ? 1 : 0);
  return name_.empty() && static_cast<std::size_t>(PQnfields(Row())) != expected;
}

PreparedStatement::Step PostgresqlStatement::Next() {
  try {
    if (!started_) {
      Start();
      ReadPortion();
    } else if (++at_ >= portion_.size()) {
      ReadPortion();
    }
  } catch (...) {
    delivering_ = false;
    portion_.clear();
    throw;
  }
  if (at_ >= portion_.size()) return Step::Done;
  if (ColumnsHaveChanged()) return Step::SchemaChanged;
  // A value that is fetched takes a round trip of its own, so no more rows may be on their way.
  if (!compiled_.later.empty()) TakeRest();
  return Step::Row;
}

const sql::LaterColumn* PostgresqlStatement::FindLater(int column) const {
  const auto found = std::find_if(compiled_.later.begin(), compiled_.later.end(),
                                  [column](const sql::LaterColumn& later) { return later.position == column; });
  return found == compiled_.later.end() ? nullptr : &*found;
}

/// The value stands behind a 0, or the place of its row behind a 1. A row that another client has changed meanwhile has
/// left its place.
void PostgresqlStatement::ReadLater(const sql::LaterColumn& later, Value& value) const {
  if (PQgetisnull(Row(), 0, later.position) != 0) {
    value.emplace<Null>();
    return;
  }
  const char* const bytes = PQgetvalue(Row(), 0, later.position);
  const auto size = static_cast<std::size_t>(PQgetlength(Row(), 0, later.position));
  if (*bytes == 0) {
    const auto* const first = reinterpret_cast<const std::byte*>(bytes);
    value.emplace<Bytes>(first + 1, first + size);
    return;
  }
  FetchPieces(later.text, {bytes + 1, size - 1}, value.emplace<Bytes>());
}

/// In pieces, since each is in memory three times.
void PostgresqlStatement::FetchPieces(const std::string& text, const std::string& place, Bytes& value) const {
  constexpr std::size_t kPiece = std::size_t{4} << 20;
  const std::string piece = "SELECT octet_length(x), substring(x FROM $2::integer FOR " + std::to_string(kPiece) +
                            ") FROM (" + text + ") AS v (x)";
  for (std::size_t whole = 1; value.size() < whole;) {
    const ResultHandle row =
        connection_.Query(piece, {place, std::to_string(value.size() + 1)}, ServerConnection::Form::Binary);
    if (PQntuples(row.get()) == 0) throw RunTimeError(FailureNumber::RowVanished);
    Value length;
    ReadWireValue(row.get(), 0, sql::Type::Long, length);
    whole = static_cast<std::size_t>(ToLong(length));
    value.reserve(whole);
    const auto* const first = reinterpret_cast<const std::byte*>(PQgetvalue(row.get(), 0, 1));
    value.insert(value.end(), first, first + PQgetlength(row.get(), 0, 1));
  }
}

void PostgresqlStatement::Read(Positions columns, std::span<const sql::Type> types, std::span<Value> values) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (const sql::LaterColumn* const later = FindLater(columns[i])) {
      ReadLater(*later, values[i]);
      continue;
    }
    ReadWireValue(Row(), columns[i], types[static_cast<std::size_t>(columns[i])], values[i]);
  }
}

std::size_t PostgresqlStatement::Fill(Positions columns, std::span<const sql::Type> types,
                                      std::span<const Slot> slots) const {
  std::size_t done = 0;
  while (done < columns.size() && columns[done] >= 0 && FindLater(columns[done]) == nullptr &&
         FillWireValue(Row(), columns[done], types[static_cast<std::size_t>(columns[done])], slots[done])) {
    ++done;
  }
  return done;
}

void PostgresqlStatement::Reset() {
  portion_.clear();
  started_ = false;
  at_ = 0;
  if (!std::exchange(delivering_, false)) return;
  IgnoringFailures([&] { connection_.Skip(); });  // whoever lets rows go has nothing to do with what is wrong in them
}

}  // namespace zef
