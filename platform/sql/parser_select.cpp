#include <utility>

#include "platform/sql/limits.h"
#include "platform/sql/parser_state.h"

namespace zef::sql {
namespace {

/// A select whose TOP, UNION or ORDER BY its brackets keep to itself, made a part of a larger one.
std::unique_ptr<Select> AsPart(std::unique_ptr<Select> select, std::size_t place) {
  const bool plain = !select->top && select->unions.empty() && select->order_by.empty();
  if (plain) return select;
  auto outer = std::make_unique<Select>();
  outer->items.emplace_back().expr = std::make_unique<Expr>();
  outer->items.back().expr->kind = Expr::Kind::Star;
  outer->items.back().expr->place = place;
  outer->from = std::make_unique<Source>();
  outer->from->kind = Source::Kind::Select;
  outer->from->place = place;
  outer->from->select = std::move(select);
  return outer;
}

struct Join {
  std::string_view word;
  Source::Kind kind;
};
constexpr Join kJoins[] = {
    {"INNER", Source::Kind::Inner}, {"LEFT", Source::Kind::Left}, {"RIGHT", Source::Kind::Right}};

}  // namespace

/// True at SELECT, with as many brackets before it as may be nested.
bool Parser::AtSelect() const {
  std::size_t opened = 0;
  while (opened <= kDeepest && At("(", opened)) ++opened;
  return At("SELECT", opened);
}

/// True at SELECT, and at brackets that hold the first part of a union; where brackets may hold other things as well,
/// those around one select are left to whoever reads brackets there.
bool Parser::AtQuery() const { return At("SELECT") || (AtSelect() && At("UNION", Behind(0))); }

/// How far ahead the token behind a bracket's end stands.
std::size_t Parser::Behind(std::size_t bracket) const {
  std::size_t open = 0;
  std::size_t ahead = bracket;
  do {
    if (At("(", ahead)) ++open;
    if (At(")", ahead)) --open;
    ++ahead;
  } while (open != 0 && Peek(ahead).kind != Token::Kind::End);
  return ahead;
}

std::unique_ptr<Select> Parser::Query() {
  const std::size_t place = Peek().place;
  const bool bracketed = At("(");
  auto query = UnionTerm();
  if (bracketed && (At("UNION") || At("ORDER"))) query = AsPart(std::move(query), place);
  while (Take("UNION")) {
    if (query->unions.size() + 1 == kMostUnited) {
      Fail("a UNION has at most " + std::to_string(kMostUnited) + " selects, and this is one more");
    }
    Select::UnionPart& part = query->unions.emplace_back();
    part.all = Take("ALL");
    const std::size_t part_place = Peek().place;
    part.select = AsPart(UnionTerm(), part_place);
  }
  if (!Take("ORDER")) return query;
  Expect("BY");
  List([&] { query->order_by.push_back(ReadOrderItem()); });
  return query;
}

std::unique_ptr<Select> Parser::UnionTerm() { return At("(") ? BracketedQuery() : SingleSelect(); }

std::unique_ptr<Select> Parser::BracketedQuery() {
  std::unique_ptr<Select> query;
  Bracketed([&] { query = Query(); });
  return query;
}

std::unique_ptr<Select> Parser::SingleSelect() {
  Expect("SELECT");
  auto select = std::make_unique<Select>();
  select->distinct = Take("DISTINCT");
  const bool distinct_rows = !select->distinct && Take("DISTINCTROW");
  if (!select->distinct && !distinct_rows) Take("ALL");
  select->top = OptionalTop();
  List([&] { select->items.push_back(ReadItem()); });
  if (Take("FROM")) select->from = Sources();
  // The rows of a single table are distinct already, whatever is shown of them.
  if (distinct_rows && select->from) select->distinct = select->from->left != nullptr;
  select->where = OptionalCondition("WHERE");
  if (Take("GROUP")) {
    Expect("BY");
    List([&] { select->group_by.push_back(Expression()); });
  }
  select->having = OptionalCondition("HAVING");
  return select;
}

ExprPtr Parser::OptionalTop() {
  if (!Take("TOP")) return nullptr;
  const bool number = Peek().kind == Token::Kind::Literal && Peek().literal_kind == LiteralKind::Integer;
  if (!number) Fail("TOP needs a whole number");
  return Operand();
}

SelectItem Parser::ReadItem() {
  SelectItem item;
  item.expr = OptionalStar();
  if (item.expr) return item;
  item.expr = Expression();
  item.alias = OptionalAlias();
  return item;
}

ExprPtr Parser::OptionalStar() {
  const bool qualified = !At("*");
  if (qualified && !(AtName() && At(".", 1) && At("*", 2))) return nullptr;
  auto star = Node(Expr::Kind::Star);
  if (qualified) {
    star->qualifier = Name("a table name");
    Expect(".");
  }
  Expect("*");
  return star;
}

OrderItem Parser::ReadOrderItem() {
  OrderItem item;
  item.expr = Expression();
  item.descending = Take("DESC");
  if (!item.descending) Take("ASC");
  return item;
}

SourcePtr Parser::Sources() {
  const Height height(*this);
  SourcePtr sources = JoinedSource();
  while (Take(",")) sources = JoinOf(Source::Kind::Cross, std::move(sources), JoinedSource());
  return sources;
}

SourcePtr Parser::JoinedSource() {
  const Height height(*this);
  SourcePtr source = SingleSource();
  while (const Source::Kind* const kind = TakeJoin()) {
    source = JoinOf(*kind, std::move(source), SingleSource());
    Expect("ON");
    source->on = Expression();
  }
  return source;
}

const Source::Kind* Parser::TakeJoin() {
  for (const Join& join : kJoins) {
    if (!Take(join.word)) continue;
    if (join.kind != Source::Kind::Inner) Take("OUTER");
    Expect("JOIN");
    return &join.kind;
  }
  return nullptr;
}

SourcePtr Parser::JoinOf(Source::Kind kind, SourcePtr left, SourcePtr right) {
  Raise();
  auto join = std::make_unique<Source>();
  join->kind = kind;
  join->place = right->place;
  join->left = std::move(left);
  join->right = std::move(right);
  return join;
}

SourcePtr Parser::SingleSource() {
  if (!At("(")) return TableSource();
  const std::size_t place = Peek().place;
  SourcePtr source;
  Bracketed([&] {
    const bool query = AtQuery();
    source = query ? std::make_unique<Source>() : Sources();
    if (!query) return;
    source->kind = Source::Kind::Select;
    source->place = place;
    source->select = Query();
    Raise();
  });
  if (source->select && source->alias.empty()) source->alias = OptionalAlias();
  return source;
}

SourcePtr Parser::TableSource() {
  auto source = std::make_unique<Source>();
  source->place = Peek().place;
  source->table = Name("a table name");
  source->alias = OptionalAlias();
  return source;
}

}  // namespace zef::sql
