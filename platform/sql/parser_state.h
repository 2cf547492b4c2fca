#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/ast.h"
#include "platform/sql/lexer.h"

namespace zef::sql {

/// Reads one statement by recursive descent. Two bounds keep the stack safe: `Nesting` limits how deep the reading
/// goes, `Height` how high the tree grows, so that whoever walks or destroys the tree may recurse.
class Parser {
 public:
  explicit Parser(const Shape& shape);
  Statement Read();

 private:
  static constexpr std::size_t kDeepest = 200;
  static constexpr std::size_t kHighest = 1000;

  struct Operator;
  struct StatementKind;

  /// One more open bracket or prefix operator for as long as it lives.
  class Nesting {
   public:
    explicit Nesting(Parser& parser);
    ~Nesting() { --parser_.depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Parser& parser_;
  };

  /// Measures the part of the tree that is read while it lives; afterwards the higher of this part and its elder
  /// siblings counts.
  class Height {
   public:
    explicit Height(Parser& parser);
    ~Height();
    Height(const Height&) = delete;
    Height& operator=(const Height&) = delete;

   private:
    Parser& parser_;
    const std::size_t before_;
  };

  // Tokens.
  const Token& Peek(std::size_t ahead = 0) const;
  bool At(std::string_view word, std::size_t ahead = 0) const;
  bool Take(std::string_view word);
  void Expect(std::string_view word);
  void ExpectClosing();
  bool AtName() const;
  /// A name in brackets, or a bare one that is not reserved.
  std::string Name(std::string_view what);
  std::string OptionalAlias();
  [[noreturn]] void Fail(std::string_view what) const;
  /// Counts nodes put on top of what was read since the current `Height` began.
  void Raise(std::size_t levels = 1);

  template <class Item>
  void List(Item item) {
    do item();
    while (Take(","));
  }
  template <class Content>
  void Bracketed(Content content) {
    const Nesting nesting(*this);
    Expect("(");
    content();
    ExpectClosing();
  }
  std::vector<std::string> Names(std::string_view what);

  // Statements.
  void ReadSelect(Statement& statement);
  void ReadInsert(Statement& statement);
  void ReadInserted(Insert& insert);
  void ReadUpdate(Statement& statement);
  void ReadDelete(Statement& statement);
  Assignment ReadAssignment();
  ExprPtr OptionalCondition(std::string_view word);

  // Selects and their sources.
  bool AtSelect() const;
  bool AtQuery() const;
  std::size_t Behind(std::size_t bracket) const;
  std::unique_ptr<Select> Query();
  std::unique_ptr<Select> UnionTerm();
  std::unique_ptr<Select> BracketedQuery();
  std::unique_ptr<Select> SingleSelect();
  ExprPtr OptionalTop();
  SelectItem ReadItem();
  ExprPtr OptionalStar();
  OrderItem ReadOrderItem();
  SourcePtr Sources();
  SourcePtr JoinedSource();
  SourcePtr SingleSource();
  SourcePtr TableSource();
  SourcePtr JoinOf(Source::Kind kind, SourcePtr left, SourcePtr right);
  const Source::Kind* TakeJoin();

  // Expressions.
  ExprPtr Expression(int level = 0);
  const Operator* TakeOperator(int level);
  ExprPtr BinaryRest(ExprPtr left, const Operator& op);
  ExprPtr ChainRest(ExprPtr left, const Operator& op);
  ExprPtr NegatedRest(ExprPtr left, const Operator& op);
  ExprPtr LikeRest(ExprPtr left, const Operator& op);
  ExprPtr InRest(ExprPtr left, const Operator& op);
  ExprPtr BetweenRest(ExprPtr left, const Operator& op);
  ExprPtr IsRest(ExprPtr left, const Operator& op);
  ExprPtr Operand();
  ExprPtr OptionalPrefixed();
  ExprPtr OptionalConstant();
  ExprPtr OptionalCall();
  void ReadArguments(Expr& call);
  ExprPtr Column();
  ExprPtr BracketedExpression();
  ExprPtr Node(Expr::Kind kind) const;

  // Schema changes.
  void ReadCreate(Statement& statement);
  void ReadDrop(Statement& statement);
  void ReadAlter(Statement& statement);
  void ReadCreateTable(SchemaChange& change);
  void ReadCreateIndex(SchemaChange& change);
  void ReadAddition(SchemaChange& change);
  void ReadRemoval(SchemaChange& change);
  SchemaChange::IndexColumn ReadIndexColumn();
  bool AtConstraint() const;
  Constraint TableConstraint();
  void ReadReferences(Constraint& constraint);
  ColumnDefinition ColumnWithType();
  void ReadLength(ColumnDefinition& column);
  bool TakeNullability(ColumnDefinition& column);
  void ReadColumn(SchemaChange& change);
  void ReadColumnConstraint(SchemaChange& change, ColumnDefinition& column);

  const Shape& shape_;
  std::vector<Token> tokens_;
  std::size_t position_ = 0;
  std::size_t depth_ = 0;
  std::size_t height_ = 0;
};

}  // namespace zef::sql
