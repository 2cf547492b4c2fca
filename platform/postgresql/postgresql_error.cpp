#include "platform/postgresql/postgresql_error.h"

namespace zef {
namespace {

/// Failures by how their SQLSTATE begins, the longer beginnings first; an empty text keeps the server's own sentence.
/// Codes that begin with ZF are those of zef.fail.
struct Sentence {
  std::string_view state;
  FailureNumber number;
  std::string_view text;
};

constexpr std::string_view kTooDeep =
    "The statement is too complex: selects or operators stand too deep inside each other.";
constexpr std::string_view kLocked = "The database is locked by another program; try again later.";
constexpr std::string_view kLost = "The connection to the server was lost; connect again.";
constexpr std::string_view kOverflow = "Overflow";
constexpr std::string_view kInvalid = "Invalid procedure call or argument";
constexpr std::string_view kNoConversion = "A value does not convert to the type that is needed here.";

constexpr Sentence kSentences[] = {
    {"ZF001", FailureNumber::StatementError, "The tables were changed by another program."},
    {"ZF005", FailureNumber::InvalidCall, kInvalid},
    {"ZF006", FailureNumber::Overflow, kOverflow},
    {"ZF013", FailureNumber::TypesDoNotConvert, kNoConversion},
    {"ZF017", FailureNumber::ValueDoesNotFit, ""},
    {"ZF023", FailureNumber::ConstraintViolated, ""},
    {"42P01", FailureNumber::NoSuchTable, ""},
    {"42P07", FailureNumber::TableExists, ""},
    {"42701", FailureNumber::ColumnExists, ""},
    {"42703", FailureNumber::NoSuchColumn, ""},
    {"42501", FailureNumber::FileUnusable, ""},
    {"42", FailureNumber::StatementError, ""},
    {"22001", FailureNumber::ValueDoesNotFit, "A text is too long for its column."},
    {"22003", FailureNumber::Overflow, kOverflow},
    {"22008", FailureNumber::InvalidCall, kInvalid},
    {"22012", FailureNumber::DivisionByZero, "Division by zero"},
    {"2201", FailureNumber::InvalidCall, kInvalid},
    {"22021", FailureNumber::StatementError, "The server takes no text with the character U+0000."},
    {"22", FailureNumber::TypesDoNotConvert, kNoConversion},
    {"23", FailureNumber::ConstraintViolated, ""},
    {"25P02", FailureNumber::FileUnusable, "The transaction was undone after a failure; roll it back."},
    {"28", FailureNumber::PasswordRefused, "The server refused the user or the password."},
    {"40001", FailureNumber::FileUnusable, "Another program changed the same rows at the same time; try again."},
    {"40P01", FailureNumber::FileUnusable,
     "Two programs waited for each other; the statement was given up, try again."},
    {"53100", FailureNumber::FileUnusable, "The server's disk is full; nothing was written."},
    {"53200", FailureNumber::OutOfMemory, "Out of memory"},
    {"54001", FailureNumber::StatementError, kTooDeep},
    {"54011", FailureNumber::StatementError, "A result has at most 1664 columns on this server, and a table 1600."},
    {"54", FailureNumber::StatementError, ""},
    {"55P03", FailureNumber::FileUnusable, kLocked},
    {"55006", FailureNumber::FileUnusable, kLocked},
    {"57P0", FailureNumber::FileUnusable, kLost},
    {"08", FailureNumber::FileUnusable, kLost},
    {"0A", FailureNumber::StatementError, ""},
};

}  // namespace

std::string ReadableSentence(std::string_view sentence) {
  std::string text;
  for (const char c : sentence) text += c == '\n' || c == '\t' ? ' ' : c;
  text.erase(text.find_last_not_of(' ') + 1);
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  if (!text.empty() && text.back() != '.') text += '.';
  return text;
}

RunTimeError ConnectionLost() { return {FailureNumber::FileUnusable, std::string(kLost)}; }

RunTimeError PostgresqlFailure(PGconn* connection, const PGresult* result) {
  const char* const code = PQresultErrorField(result, PG_DIAG_SQLSTATE);
  if (code == nullptr || PQstatus(connection) == CONNECTION_BAD) return ConnectionLost();
  const std::string_view state(code);
  const char* const words = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
  const std::string own = ReadableSentence(words == nullptr ? "" : words);
  for (const Sentence& known : kSentences) {
    if (state.starts_with(known.state)) return {known.number, known.text.empty() ? own : std::string(known.text)};
  }
  return {FailureNumber::FileUnusable, own};
}

}  // namespace zef
