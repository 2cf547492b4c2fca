#include <algorithm>
#include <bit>
#include <iterator>
#include <utility>

#include "platform/sql/parser_state.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

/// How tightly operators bind, from the loosest.
enum Level : int { Xor, Or, And, Not, Comparison, Concatenation, Sum, Modulo, Whole, Product, Sign, Power };

struct Constant {
  std::string_view word;
  Expr::Kind kind;
  bool truth;
};
constexpr Constant kConstants[] = {
    {"NULL", Expr::Kind::Null, false}, {"TRUE", Expr::Kind::Boolean, true}, {"FALSE", Expr::Kind::Boolean, false}};

struct Prefix {
  std::string_view word;
  Level level;
};
constexpr Prefix kPrefixes[] = {{"NOT", Not}, {"-", Sign}, {"+", Sign}};

/// LEFT and RIGHT are functions only where a bracket follows and an operand may stand.
constexpr std::string_view kReservedFunctions[] = {"LEFT", "RIGHT"};

/// The terms of a chain of one operator and the places of the operators between them.
struct Chain {
  std::string_view op;
  std::vector<ExprPtr> terms;
  std::vector<std::size_t> places;
};

/// A tree of minimal height over the terms from `first` to before `last`.
ExprPtr Balanced(Chain& chain, std::size_t first, std::size_t last) {
  if (last - first == 1) return std::move(chain.terms[first]);
  const std::size_t middle = first + (last - first + 1) / 2;
  auto node = std::make_unique<Expr>();
  node->kind = Expr::Kind::Binary;
  node->name = chain.op;
  node->place = chain.places[middle - 1];
  node->args.push_back(Balanced(chain, first, middle));
  node->args.push_back(Balanced(chain, middle, last));
  return node;
}

}  // namespace

struct Parser::Operator {
  std::string_view text;
  Level level;
  ExprPtr (Parser::*rest)(ExprPtr, const Operator&);
};

ExprPtr Parser::Expression(int level) {
  const Height height(*this);
  ExprPtr left = Operand();
  while (const Operator* const op = TakeOperator(level)) left = (this->*op->rest)(std::move(left), *op);
  return left;
}

const Parser::Operator* Parser::TakeOperator(int level) {
  static constexpr Operator kOperators[] = {
      {"=", Comparison, &Parser::BinaryRest},
      {"AND", And, &Parser::ChainRest},
      {"OR", Or, &Parser::ChainRest},
      {"<>", Comparison, &Parser::BinaryRest},
      {"<", Comparison, &Parser::BinaryRest},
      {"<=", Comparison, &Parser::BinaryRest},
      {">", Comparison, &Parser::BinaryRest},
      {">=", Comparison, &Parser::BinaryRest},
      {"LIKE", Comparison, &Parser::LikeRest},
      {"IN", Comparison, &Parser::InRest},
      {"IS", Comparison, &Parser::IsRest},
      {"BETWEEN", Comparison, &Parser::BetweenRest},
      {"NOT", Comparison, &Parser::NegatedRest},
      {"&", Concatenation, &Parser::BinaryRest},
      {"+", Sum, &Parser::BinaryRest},
      {"-", Sum, &Parser::BinaryRest},
      {"*", Product, &Parser::BinaryRest},
      {"/", Product, &Parser::BinaryRest},
      {"\\", Whole, &Parser::BinaryRest},
      {"MOD", Modulo, &Parser::BinaryRest},
      {"^", Power, &Parser::BinaryRest},
      {"XOR", Xor, &Parser::ChainRest},
  };
  const Token::Kind kind = Peek().kind;
  if (kind != Token::Kind::Word && kind != Token::Kind::Symbol) return nullptr;
  const auto* const op = std::find_if(std::begin(kOperators), std::end(kOperators),
                                      [this](const Operator& candidate) { return At(candidate.text); });
  if (op == std::end(kOperators) || op->level < level) return nullptr;
  ++position_;
  return op;
}

ExprPtr Parser::BinaryRest(ExprPtr left, const Operator& op) {
  auto node = Node(Expr::Kind::Binary);
  node->place = tokens_[position_ - 1].place;
  node->name = op.text;
  node->args.push_back(std::move(left));
  node->args.push_back(Expression(op.level + 1));
  Raise();
  return node;
}

/// AND, OR and XOR do not care how their terms are grouped, so a chain of any length makes a low tree.
ExprPtr Parser::ChainRest(ExprPtr left, const Operator& op) {
  Chain chain{op.text, {}, {}};
  chain.terms.push_back(std::move(left));
  do {
    chain.places.push_back(tokens_[position_ - 1].place);
    chain.terms.push_back(Expression(op.level + 1));
  } while (Take(op.text));
  Raise(static_cast<std::size_t>(std::bit_width(chain.places.size())));
  return Balanced(chain, 0, chain.terms.size());
}

/// NOT between an operand and LIKE, IN or BETWEEN.
ExprPtr Parser::NegatedRest(ExprPtr left, const Operator&) {
  const bool negatable = At("LIKE") || At("IN") || At("BETWEEN");
  if (!negatable) Fail("LIKE, IN or BETWEEN is expected");
  const Operator& op = *TakeOperator(Comparison);
  ExprPtr node = (this->*op.rest)(std::move(left), op);
  node->negated = true;
  return node;
}

ExprPtr Parser::LikeRest(ExprPtr left, const Operator& op) {
  ExprPtr node = BinaryRest(std::move(left), op);
  node->kind = Expr::Kind::Like;
  node->name.clear();
  return node;
}

ExprPtr Parser::InRest(ExprPtr left, const Operator&) {
  auto node = Node(Expr::Kind::InList);
  node->place = tokens_[position_ - 1].place;
  node->args.push_back(std::move(left));
  Bracketed([&] {
    if (AtQuery()) {
      node->kind = Expr::Kind::InSelect;
      node->select = Query();
    } else {
      List([&] { node->args.push_back(Expression()); });
    }
  });
  Raise();
  return node;
}

ExprPtr Parser::BetweenRest(ExprPtr left, const Operator& op) {
  auto node = Node(Expr::Kind::Between);
  node->place = tokens_[position_ - 1].place;
  node->args.push_back(std::move(left));
  node->args.push_back(Expression(op.level + 1));
  Expect("AND");
  node->args.push_back(Expression(op.level + 1));
  Raise();
  return node;
}

ExprPtr Parser::IsRest(ExprPtr left, const Operator&) {
  auto node = Node(Expr::Kind::IsNull);
  node->place = tokens_[position_ - 1].place;
  node->negated = Take("NOT");
  Expect("NULL");
  node->args.push_back(std::move(left));
  Raise();
  return node;
}

ExprPtr Parser::Operand() {
  using Reader = ExprPtr (Parser::*)();
  static constexpr Reader kReaders[] = {&Parser::OptionalConstant, &Parser::OptionalPrefixed, &Parser::OptionalCall};
  if (At("(")) return BracketedExpression();
  for (const Reader reader : kReaders) {
    if (ExprPtr operand = (this->*reader)()) return operand;
  }
  return Column();
}

ExprPtr Parser::OptionalConstant() {
  const Token& token = Peek();
  const bool literal = token.kind == Token::Kind::Literal;
  if (literal || token.kind == Token::Kind::Placeholder) {
    auto node = Node(literal ? Expr::Kind::Literal : Expr::Kind::Parameter);
    node->literal = token.index;
    ++position_;
    return node;
  }
  const auto* const constant = std::find_if(std::begin(kConstants), std::end(kConstants),
                                            [this](const Constant& candidate) { return At(candidate.word); });
  if (constant == std::end(kConstants)) return nullptr;
  auto node = Node(constant->kind);
  node->truth = constant->truth;
  ++position_;
  return node;
}

ExprPtr Parser::OptionalPrefixed() {
  const auto* const prefix = std::find_if(std::begin(kPrefixes), std::end(kPrefixes),
                                          [this](const Prefix& candidate) { return At(candidate.word); });
  if (prefix == std::end(kPrefixes)) return nullptr;
  auto node = Node(Expr::Kind::Unary);
  const Nesting nesting(*this);
  ++position_;
  ExprPtr operand = Expression(prefix->level);
  if (prefix->level == Not && operand->kind == Expr::Kind::Exists && !operand->negated) {
    operand->negated = true;
    return operand;
  }
  node->name = prefix->word;
  node->args.push_back(std::move(operand));
  Raise();
  return node;
}

ExprPtr Parser::OptionalCall() {
  if (!At("(", 1)) return nullptr;
  const bool exists = At("EXISTS");
  const bool function = Peek().kind == Token::Kind::Word && AtName();
  const bool reserved = std::any_of(std::begin(kReservedFunctions), std::end(kReservedFunctions),
                                    [this](std::string_view word) { return At(word); });
  if (!exists && !function && !reserved) return nullptr;
  auto node = Node(exists ? Expr::Kind::Exists : Expr::Kind::Call);
  const std::string_view name = tokens_[position_++].text;
  if (exists) {
    node->select = BracketedQuery();
  } else {
    node->name = name;
    Bracketed([&] { ReadArguments(*node); });
  }
  Raise();
  return node;
}

void Parser::ReadArguments(Expr& call) {
  if (At(")")) return;
  if (At("*")) {
    call.args.push_back(OptionalStar());
    return;
  }
  call.distinct = Take("DISTINCT");
  List([&] { call.args.push_back(Expression()); });
}

ExprPtr Parser::Column() {
  if (!AtName()) Fail("an expression is expected");
  auto node = Node(Expr::Kind::Column);
  node->name = Name("a column name");
  if (!Take(".")) return node;
  const Token& token = Peek();
  const bool named = token.kind == Token::Kind::Word || token.kind == Token::Kind::Name;
  if (!named) Fail("a column name is expected");
  node->qualifier = std::exchange(node->name, std::string(token.text));
  ++position_;
  return node;
}

ExprPtr Parser::BracketedExpression() {
  auto node = Node(Expr::Kind::Subquery);
  Bracketed([&] {
    if (AtQuery()) {
      node->select = Query();
      Raise();
    } else {
      node = Expression();
    }
  });
  return node;
}

ExprPtr Parser::Node(Expr::Kind kind) const {
  auto node = std::make_unique<Expr>();
  node->kind = kind;
  node->place = Peek().place;
  return node;
}

}  // namespace zef::sql
