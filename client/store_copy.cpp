#include <algorithm>

#include "client/new_database.h"
#include "client/schema_names.h"
#include "client/store_session.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

/// Making a second database that holds the same as this one.
namespace zef::client {
namespace {

using Tell = std::function<void(const std::string&)>;

constexpr std::int32_t kForwardOnly = 0;
constexpr std::int32_t kOptimistic = 3;
constexpr std::int32_t kTable = 2;

/// The schema with the tables of a version; the versions between have none, and are steps of an upgrade.
std::string SchemaOf(const std::string& version) {
  if (version == kCurrentSchema) return kCurrentSchema;
  if (version.starts_with(std::string(kOlderSchema) + ".")) return kOlderSchema;
  Refuse(
      fmt::format("The database has version '{}'; only databases of version {} and {} can be copied. Upgrade it first.",
                  version, kOlderSchema, kCurrentSchema));
}

using Columns = std::vector<Field>;

Columns ColumnsOf(const Recordset& rows) {
  Columns columns;
  for (const Field& field : rows.Fields.get()) columns.push_back(field);
  return columns;
}

/// The column of another table under the same name; the two tables may have them in different orders.
Field SameColumn(const Recordset& rows, const std::string& name, const std::string& table) {
  try {
    return rows.Fields->Item(name);
  } catch (const automation::Failure& failure) {
    if (failure.number() != kItemNotFound) throw;
    Refuse(fmt::format("The table {} has a column {}, for which a new database has no place.", table, name));
  }
}

Columns SameColumns(const Recordset& rows, const Columns& columns, const std::string& table) {
  Columns same;
  for (const Field& column : columns) same.push_back(SameColumn(rows, column.Name, table));
  return same;
}

/// A table of the database that is copied, and of the copy.
struct TablePair {
  const Connection& from;
  const Connection& to;
  const std::string& name;
  const HeldSignals& signals;
};

/// A record set that new rows can be added to. Only a statement hands one out, which is then opened anew.
Recordset OpenForAdding(const Connection& connection, const std::string& table) {
  Recordset rows = connection.Execute(fmt::format("SELECT * FROM [{}] WHERE 0=1", table));
  rows.Close();
  rows.Open(table, connection, kForwardOnly, kOptimistic, kTable);
  return rows;
}

/// Gives the number of rows.
std::int64_t CopyRows(const TablePair& table) {
  const Recordset rows = table.from.Execute(fmt::format("SELECT * FROM [{}]", table.name));
  const Recordset copy = OpenForAdding(table.to, table.name);
  const Columns from = ColumnsOf(rows);
  Columns to = SameColumns(copy, from, table.name);
  std::int64_t count = 0;
  for (; !rows.EndOfFile; rows.MoveNext(), ++count) {
    table.signals.StopIfAsked();
    copy.AddNew();
    for (std::size_t i = 0; i < from.size(); ++i) to[i].Value = from[i].Value.get();
    copy.Update();
  }
  return count;
}

/// Reads all rows in an order that is the same in both databases: by the key, which is the first column, or by every
/// column of a table without one.
std::string OrderedSelect(const std::string& table, const Columns& columns, bool keyed) {
  std::vector<std::string> order;
  for (const Field& column : columns) order.push_back(fmt::format("[{}]", std::string(column.Name)));
  if (keyed) order.resize(1);
  return fmt::format("SELECT * FROM [{}] ORDER BY {}", table, fmt::join(order, ","));
}

[[noreturn]] void RefuseCopy(const std::string& what) {
  Refuse(fmt::format("The copy is not the same and was taken back: {}.", what));
}

void CompareRow(const std::string& table, const Columns& from, const Columns& to, std::int64_t row) {
  for (std::size_t i = 0; i < from.size(); ++i) {
    if (from[i].Value.get() == to[i].Value.get()) continue;
    RefuseCopy(fmt::format("{} of row {} in the table {} is another value", std::string(from[i].Name), row, table));
  }
}

/// Raises unless the copy has the same rows.
void CompareRows(const TablePair& table, std::int64_t rows, bool keyed) {
  const Columns any = ColumnsOf(table.from.Execute(fmt::format("SELECT * FROM [{}] WHERE 0=1", table.name)));
  const std::string select = OrderedSelect(table.name, any, keyed);
  const Recordset expected = table.from.Execute(select);
  const Recordset found = table.to.Execute(select);
  const Columns from = ColumnsOf(expected);
  const Columns to = SameColumns(found, from, table.name);
  std::int64_t row = 0;
  for (; !expected.EndOfFile && !found.EndOfFile; expected.MoveNext(), found.MoveNext()) {
    table.signals.StopIfAsked();
    CompareRow(table.name, from, to, ++row);
  }
  if (row != rows || !expected.EndOfFile || !found.EndOfFile) {
    RefuseCopy(fmt::format("the table {} has another number of rows", table.name));
  }
}

struct Statements {
  std::vector<std::string> tables;
  std::vector<std::string> indexes;  ///< made when the rows are there, which is quicker
};

/// The first rows are left out: they come with the copy.
Statements StatementsOf(const std::string& schema) {
  Statements statements;
  for (std::string& statement : schema::Statements(schema::Text(schema))) {
    if (!NameBehind(kCreateTable, statement).empty())
      statements.tables.push_back(std::move(statement));
    else if (!NameBehind(kCreateIndex, statement).empty())
      statements.indexes.push_back(std::move(statement));
  }
  return statements;
}

std::vector<CopiedTable> CopyTables(const Connection& from, const Connection& to, const std::string& schema,
                                    const HeldSignals& signals, const Tell& tell) {
  const Statements statements = StatementsOf(schema);
  std::vector<CopiedTable> copied;
  for (const std::string& statement : statements.tables) {
    const std::string name = NameBehind(kCreateTable, statement);
    const TablePair table{from, to, name, signals};
    tell(fmt::format("Copying {}", name));
    to.Execute(statement);
    copied.push_back({name, CopyRows(table)});
    tell(fmt::format("Comparing {}", name));
    CompareRows(table, copied.back().rows, statement.find("PRIMARY KEY") != std::string::npos);
  }
  tell("Making the indexes");
  for (const std::string& statement : statements.indexes) {
    signals.StopIfAsked();
    to.Execute(statement);
  }
  return copied;
}

}  // namespace

std::vector<CopiedTable> Store::CopyTo(const DatabasePlace& place, const Tell& tell) {
  std::vector<CopiedTable> copied;
  session_->InTransaction([&] {
    const std::string schema = SchemaOf(session_->Version());
    MakeNewDatabase(place, [&](const Connection& to, const HeldSignals& signals) {
      copied = CopyTables(session_->it.conDBConnection, to, schema, signals, tell);
    });
  });
  return copied;
}

}  // namespace zef::client
