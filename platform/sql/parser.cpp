#include "platform/sql/parser.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/sql/parser_state.h"
#include "platform/sql/syntax_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

/// Words that are no bare names: where one of them stands, it must be read as itself.
constexpr std::string_view kReserved[] = {
    "ALL",    "AND",   "AS",     "BETWEEN", "CONSTRAINT", "DISTINCT", "DISTINCTROW", "EXISTS",  "FALSE",      "FOREIGN",
    "FROM",   "GROUP", "HAVING", "IN",      "INNER",      "INTO",     "IS",          "JOIN",    "LEFT",       "LIKE",
    "MOD",    "NOT",   "NULL",   "ON",      "OR",         "ORDER",    "OUTER",       "PRIMARY", "REFERENCES", "RIGHT",
    "SELECT", "SET",   "TOP",    "TRUE",    "UNION",      "UNIQUE",   "VALUES",      "WHERE",   "XOR",
};

bool IsReserved(std::string_view word) {
  constexpr std::size_t kLongest = 11;
  if (word.size() > kLongest) return false;
  return std::any_of(std::begin(kReserved), std::end(kReserved), [word](std::string_view reserved) {
    return reserved.size() == word.size() && text::EqualNames(reserved, word);
  });
}

/// Literals are shorter in the key than in the statement; moves the tokens to where the statement has them.
void MoveToStatement(std::vector<Token>& tokens, const std::vector<std::size_t>& lengths) {
  constexpr std::size_t kLengthInKey = 2;
  std::size_t written = 0;
  std::size_t kept = 0;
  for (Token& token : tokens) {
    token.place = token.place + written - kept;
    if (token.kind != Token::Kind::Literal) continue;
    written += lengths[token.index];
    kept += kLengthInKey;
  }
}

}  // namespace

struct Parser::StatementKind {
  std::string_view word;
  void (Parser::*read)(Statement&);
};

Parser::Parser(const Shape& shape) : shape_(shape), tokens_(ReadTokens(shape.key)) {
  MoveToStatement(tokens_, shape.lengths);
}

Statement Parser::Read() {
  static constexpr StatementKind kKinds[] = {
      {"INSERT", &Parser::ReadInsert}, {"UPDATE", &Parser::ReadUpdate}, {"DELETE", &Parser::ReadDelete},
      {"CREATE", &Parser::ReadCreate}, {"ALTER", &Parser::ReadAlter},   {"DROP", &Parser::ReadDrop},
  };
  const auto* const kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                        [this](const StatementKind& candidate) { return Take(candidate.word); });
  Statement statement;
  const auto read = kind == std::end(kKinds) ? &Parser::ReadSelect : kind->read;
  (this->*read)(statement);
  if (Peek().kind != Token::Kind::End) Fail("the statement should end here");
  return statement;
}

void Parser::ReadSelect(Statement& statement) {
  constexpr std::string_view kBeginnings =
      "a statement begins with SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP";
  if (!At("SELECT") && !At("(")) Fail(kBeginnings);
  statement.select = Query();
}

void Parser::ReadInsert(Statement& statement) {
  Expect("INTO");
  statement.insert = std::make_unique<Insert>();
  Insert& insert = *statement.insert;
  insert.place = Peek().place;
  insert.table = Name("a table name");
  if (At("(") && !AtSelect()) insert.columns = Names("a column name");
  ReadInserted(insert);
}

void Parser::ReadInserted(Insert& insert) {
  if (AtSelect()) {
    insert.select = Query();
    return;
  }
  if (!Take("VALUES")) Fail("VALUES or SELECT is expected");
  Bracketed([&] { List([&] { insert.values.push_back(Expression()); }); });
  const bool fits = insert.columns.empty() || insert.columns.size() == insert.values.size();
  if (!fits) RaiseSyntaxError(insert.place, "there must be one value for each column");
}

void Parser::ReadUpdate(Statement& statement) {
  statement.update = std::make_unique<Update>();
  statement.update->target = Sources();
  Expect("SET");
  List([&] { statement.update->assignments.push_back(ReadAssignment()); });
  statement.update->where = OptionalCondition("WHERE");
}

Assignment Parser::ReadAssignment() {
  Assignment assignment;
  assignment.column = Column();
  Expect("=");
  assignment.value = Expression();
  return assignment;
}

void Parser::ReadDelete(Statement& statement) {
  statement.remove = std::make_unique<Delete>();
  if (const ExprPtr star = OptionalStar()) statement.remove->of = star->qualifier;
  Expect("FROM");
  statement.remove->from = Sources();
  statement.remove->where = OptionalCondition("WHERE");
}

ExprPtr Parser::OptionalCondition(std::string_view word) { return Take(word) ? Expression() : nullptr; }

const Token& Parser::Peek(std::size_t ahead) const { return tokens_[std::min(position_ + ahead, tokens_.size() - 1)]; }

bool Parser::At(std::string_view word, std::size_t ahead) const {
  const Token& token = Peek(ahead);
  const bool plain = token.kind == Token::Kind::Word || token.kind == Token::Kind::Symbol;
  return plain && token.text.size() == word.size() && text::EqualNames(token.text, word);
}

bool Parser::Take(std::string_view word) {
  const bool there = At(word);
  if (there) ++position_;
  return there;
}

void Parser::Expect(std::string_view word) {
  if (!Take(word)) Fail(std::string(word).append(" is expected"));
}

void Parser::ExpectClosing() {
  if (!Take(")")) Fail("a closing bracket is missing");
}

bool Parser::AtName() const {
  const Token& token = Peek();
  if (token.kind == Token::Kind::Word) return !IsReserved(token.text);
  return token.kind == Token::Kind::Name;
}

std::string Parser::Name(std::string_view what) {
  if (!AtName()) Fail(std::string(what).append(" is expected"));
  return std::string(tokens_[position_++].text);
}

std::string Parser::OptionalAlias() {
  if (Take("AS")) return Name("a name");
  return AtName() ? Name("a name") : std::string();
}

std::vector<std::string> Parser::Names(std::string_view what) {
  std::vector<std::string> names;
  Bracketed([&] { List([&] { names.push_back(Name(what)); }); });
  return names;
}

void Parser::Fail(std::string_view what) const { RaiseSyntaxError(Peek().place, what); }

void Parser::Raise(std::size_t levels) {
  height_ += levels;
  if (height_ > kHighest) Fail("the statement is too complex: too many operators or joins in one chain");
}

Parser::Nesting::Nesting(Parser& parser) : parser_(parser) {
  if (parser.depth_ == kDeepest) parser.Fail("the statement is nested too deeply");
  ++parser.depth_;
}

Parser::Height::Height(Parser& parser) : parser_(parser), before_(std::exchange(parser.height_, 0)) {}

Parser::Height::~Height() { parser_.height_ = std::max(parser_.height_, before_); }

Statement Parse(const Shape& shape) { return Parser(shape).Read(); }

}  // namespace zef::sql
