#include <algorithm>
#include <iterator>

#include "platform/sql/characters.h"
#include "platform/sql/lexer.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

class TokenReader {
 public:
  explicit TokenReader(std::string_view key) : rest_(key) {}

  Token Next() {
    Skip(std::find_if(rest_.begin(), rest_.end(), [](char c) { return ClassOf(c) != ByteClass::Blank; }));
    Token token;
    token.place = place_;
    if (!rest_.empty()) Read(token);
    return token;
  }

 private:
  void Read(Token& token) {
    switch (ClassOf(rest_.front())) {
      case ByteClass::Letter: return ReadWord(token);
      case ByteClass::OpenName: return ReadName(token);
      case ByteClass::Mark: return ReadLiteral(token);
      default: return ReadSymbol(token);
    }
  }

  void ReadWord(Token& token) {
    token.kind = Token::Kind::Word;
    token.text = Skip(std::find_if_not(rest_.begin(), rest_.end(), IsNameCharacter));
  }

  void ReadName(Token& token) {
    token.kind = Token::Kind::Name;
    const std::size_t close = rest_.find(ClosingOf(rest_.front()), 1);
    const std::string_view whole = SkipCount(close == std::string_view::npos ? close : close + 1);
    token.text = whole.substr(1, whole.size() - 2);
  }

  void ReadLiteral(Token& token) {
    token.kind = Token::Kind::Literal;
    token.index = literals_++;
    token.literal_kind = static_cast<LiteralKind>(SkipCount(2).back());
  }

  void ReadSymbol(Token& token) {
    const std::string_view pair = rest_.substr(0, 2);
    const bool two = pair == "<=" || pair == ">=" || pair == "<>";
    token.kind = pair.front() == '?' ? Token::Kind::Placeholder : Token::Kind::Symbol;
    if (token.kind == Token::Kind::Placeholder) token.index = placeholders_++;
    token.text = SkipCount(two ? 2 : 1);
  }

  std::string_view Skip(std::string_view::const_iterator last) {
    return SkipCount(static_cast<std::size_t>(last - rest_.begin()));
  }

  std::string_view SkipCount(std::size_t bytes) {
    const std::string_view skipped = rest_.substr(0, bytes);
    rest_.remove_prefix(skipped.size());
    place_ += static_cast<std::size_t>(std::count_if(skipped.begin(), skipped.end(), StartsCharacter));
    return skipped;
  }

  std::string_view rest_;
  std::size_t place_ = 1;
  std::size_t literals_ = 0;
  std::size_t placeholders_ = 0;
};

}  // namespace

bool IsSchemaChange(std::string_view statement) {
  constexpr std::string_view kWords[] = {"CREATE", "ALTER", "DROP"};
  const Token first = TokenReader(statement).Next();
  return first.kind == Token::Kind::Word &&
         std::any_of(std::begin(kWords), std::end(kWords),
                     [&](std::string_view word) { return text::EqualNames(first.text, word); });
}

std::vector<Token> ReadTokens(std::string_view key) {
  TokenReader reader(key);
  constexpr std::size_t kUsualLength = 4;
  std::vector<Token> tokens;
  tokens.reserve(key.size() / kUsualLength + 1);
  do tokens.push_back(reader.Next());
  while (tokens.back().kind != Token::Kind::End);
  return tokens;
}

}  // namespace zef::sql
