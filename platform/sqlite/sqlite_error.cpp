#include "platform/sqlite/sqlite_error.h"

#include <string>
#include <string_view>

namespace zef {
namespace {

struct Sentence {
  int code;
  FailureNumber number;
  std::string_view text;
};

/// Failures by primary result code; an empty text keeps the engine's own sentence.
constexpr Sentence kByCode[] = {
    {SQLITE_CONSTRAINT, FailureNumber::ConstraintViolated, ""},
    {SQLITE_TOOBIG, FailureNumber::ValueDoesNotFit, "A value is too long to be stored."},
    {SQLITE_BUSY, FailureNumber::FileUnusable, "The database is locked by another program; try again later."},
    {SQLITE_LOCKED, FailureNumber::FileUnusable, "The database is locked by another statement of this program."},
    {SQLITE_NOTADB, FailureNumber::FileUnusable, "The file is not a database."},
    {SQLITE_CORRUPT, FailureNumber::FileUnusable, "The database file is damaged."},
    {SQLITE_READONLY, FailureNumber::FileUnusable,
     "The database cannot be written: the file or its folder is read-only."},
    {SQLITE_FULL, FailureNumber::FileUnusable, "The disk is full; nothing was written."},
    {SQLITE_IOERR, FailureNumber::FileUnusable, "The database file could not be read or written."},
    {SQLITE_CANTOPEN, FailureNumber::FileUnusable, "The database file cannot be opened."},
    {SQLITE_PERM, FailureNumber::FileUnusable, "The access to the database file was refused."},
    {SQLITE_MISMATCH, FailureNumber::TypesDoNotConvert, "A value does not convert to the type of its column."},
    {SQLITE_NOMEM, FailureNumber::OutOfMemory, "Out of memory"},
};

/// Failures of a statement by how the engine's sentence begins; an empty text keeps that sentence.
struct Beginning {
  std::string_view own;
  FailureNumber number;
  std::string_view text;
};

constexpr std::string_view kTooDeep =
    "The statement is too complex: selects or operators stand too deep inside each other.";
constexpr std::string_view kTooManyColumns =
    "A table, a result, a GROUP BY and an ORDER BY have at most 2000 columns each.";
constexpr std::string_view kTooManySources =
    "A select reads at most 64 tables, those of selects inside its FROM included.";

constexpr Beginning kByBeginning[] = {
    {"no such table", FailureNumber::NoSuchTable, ""},
    {"no such column", FailureNumber::NoSuchColumn, ""},
    {"duplicate column name", FailureNumber::ColumnExists, ""},
    {"Expression tree is too large", FailureNumber::StatementError, kTooDeep},
    {"Recursion limit", FailureNumber::StatementError, kTooDeep},
    {"parser stack overflow", FailureNumber::StatementError, kTooDeep},
    {"too many columns", FailureNumber::StatementError, kTooManyColumns},
    {"too many terms in ORDER BY", FailureNumber::StatementError, kTooManyColumns},
    {"too many terms in GROUP BY", FailureNumber::StatementError, kTooManyColumns},
    {"too many terms in compound", FailureNumber::StatementError, "A UNION has at most 500 selects."},
    {"at most 64 tables", FailureNumber::StatementError, kTooManySources},
    {"too many FROM clause terms", FailureNumber::StatementError, kTooManySources},
};

std::string Readable(std::string_view sentence) {
  std::string text(sentence);
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  if (!text.empty() && text.back() != '.') text += '.';
  return text;
}

}  // namespace

RunTimeError SqliteFailure(sqlite3* db, int code) {
  const std::string_view own = db == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(db);
  for (const Sentence& known : kByCode) {
    if (known.code == (code & 0xff))
      return {known.number, known.text.empty() ? Readable(own) : std::string(known.text)};
  }
  for (const Beginning& known : kByBeginning) {
    if (own.starts_with(known.own)) return {known.number, Readable(known.text.empty() ? own : known.text)};
  }
  return {FailureNumber::StatementError, Readable(own)};
}

void CheckSqlite(sqlite3* db, int code) {
  if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) throw SqliteFailure(db, code);
}

}  // namespace zef
